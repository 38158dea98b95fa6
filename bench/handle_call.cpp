// A call through a handle of the component interface against a virtual call of the same method.

#include "extension/binding/feature.h"
#include "sample_table.h"

namespace {
constexpr int c_calls = 200'000'000;

class counted final : public vx::feature_impl
{
public:
    int get_integer(int field, bool *not_null) override
    {
        *not_null = true;
        return f_step + field;
    }

private:
    int f_step = 3;
};

class other final : public vx::feature_impl
{
public:
    int get_integer(int, bool *not_null) override
    {
        *not_null = false;
        return 1;
    }
};

/// Keeps the compiler from knowing the object behind a pointer.
template <class T>
T hidden(T value)
{
    asm volatile("" : "+r"(value));
    return value;
}
} // namespace

int main()
{
    counted numbers;
    other ones;
    vx::feature_impl *const object = hidden<vx::feature_impl *>(&numbers);
    vx::feature_impl *const unused = hidden<vx::feature_impl *>(&ones);
    bool defined = false;
    long long plain_sum = unused->get_integer(0, &defined) - 1;
    long long own_sum = 0;
    auto const times = vx_bench::compare(
        [&] {
            plain_sum = 0;
            for (int i = 0; i < c_calls; ++i) {
                bool not_null = false;
                plain_sum += hidden(object)->get_integer(i & 7, &not_null);
                plain_sum += not_null;
            }
        },
        [&] {
            own_sum = 0;
            vx::feature const handle = static_cast<vx::feature>(*object);
            for (int i = 0; i < c_calls; ++i) {
                bool not_null = false;
                t_vx_feature_interface const h{hidden(handle.handle().table), hidden(handle.handle().self)};
                own_sum += vx::feature(h).get_integer(i & 7, &not_null);
                own_sum += not_null;
            }
        });
    std::printf("%d calls, %.2f ns a virtual call, %.2f ns through a handle\n", c_calls,
                times.plain.processor * 1e9 / c_calls, times.own.processor * 1e9 / c_calls);
    vx_bench::print("call through a handle", times, 2.0);
    return plain_sum == own_sum ? 0 : 1;
}
