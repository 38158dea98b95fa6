#include "data/vector/memory_driver.h"
#include "extension/binding/feature_forward_request.h"
#include "scale_engine/scale_fixture.h"
#include "scale_engine/vxk_task.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {
using namespace scale_fixture;
using namespace vx::task;
using vx::data::connection;

/// Its only field goes away, with its cells, when reading begins for the n-th time or at the n-th feature.
class vanishing final : public memory_driver::source
{
public:
    vanishing(int walk, int feature) : f_walk(walk), f_feature(feature)
    {
        fields = {{L"a", vx::data::field_type::numeric}};
        for (int i = 0; i < 5000; ++i)
            rows.push_back({memory_driver::cell(static_cast<double>(i % 700))});
    }
    int field_type(int i) override { return i < field_count() ? source::field_type(i) : 0; }
    void field_name(int i, vx::string_visitor visitor) override
    {
        if (i < field_count())
            source::field_name(i, visitor);
    }
    bool reset_reading() override
    {
        bool const is_good = source::reset_reading();
        if (walks == f_walk)
            vanish();
        return is_good;
    }
    bool with_next_feature(vx::feature_visitor visitor) override
    {
        if (++f_features == f_feature)
            vanish();
        return source::with_next_feature(visitor);
    }
    connection connected() { return connection(L"*memory", &open, this); }

private:
    static void open(wchar_t const *, bool, void *context, t_vx_data_source_interface *result)
    {
        *result = static_cast<vanishing *>(context)->handle();
    }
    void vanish()
    {
        fields.clear();
        for (auto &row : rows)
            row.clear();
    }

    int f_walk;
    int f_feature;
    int f_features = 0;
};

void expect_sound(scales const &s)
{
    for (auto const &[low, high] : bounds_of(s.rng))
        EXPECT_TRUE(std::isfinite(low) && std::isfinite(high) && low <= high) << low << ' ' << high;
    EXPECT_LE(vx_rng_scale_get_size(s.rng), 20U);
    EXPECT_LE(vx_val_scale_get_size(s.val), 700U);
}

// Whatever a task has read by then is what it goes by; none of them waits, fails hard or makes numbers up.
TEST(vanishing_field, leaves_sound_scales)
{
    constexpr std::pair<int, int> moments[] = {{1, 0}, {2, 0}, {3, 0}, {4, 0}, {0, 1}, {0, 2500}, {0, 7000}};
    for (auto const &[walk, feature] : moments) {
        SCOPED_TRACE(std::to_string(walk) + ' ' + std::to_string(feature));
        for (int const type : {c_rng_type_equal_ranges, c_rng_type_log_space, c_rng_type_natural_breaks}) {
            scales s;
            vanishing driver(walk, feature);
            vx_rng_scale_set_rng_type(s.rng, type);
            (void)range_scale_reset(driver.connected(), L"a").execute(s.rng, 6);
            expect_sound(s);
        }
        scales s;
        vanishing ranges(walk, feature);
        (void)range_scale_default(ranges.connected(), L"a", c_palette_red).execute(s.mngr.get(), 5);
        expect_sound(s);
        vanishing natural(walk, feature);
        range_scale_classify_natural_breaks(L"a", 5, 0, 700, -2).execute(s.rng, natural.connected());
        expect_sound(s);
        vanishing exact(walk, feature);
        range_scale_classify_exact_breaks(L"a", 5, 0, 700, -2).execute(s.rng, exact.connected());
        expect_sound(s);
        vanishing values(walk, feature);
        value_scale_rebuild(L"a", 1000).execute(s.val, values.connected());
        expect_sound(s);
        vanishing captions(walk, feature);
        std::map<std::wstring, std::wstring> cache;
        (void)value_scale_build_cache(L"a", L"a", 1000).execute(captions.connected(), cache);
        EXPECT_LE(cache.size(), 700U);
    }
}
} // namespace
