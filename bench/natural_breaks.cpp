// Natural breaks. The two roads to the breaks of a sample of 3,000 values against the dynamic programme
// written plainly, with the same breaks; breaks of a field of 1,000,000 objects against the statistics of the
// field; the exact partition of 1,000,000 values against sorting them.

#include "data/source/generic_datasource.h"
#include "sample_table.h"
#include "scale_engine/natural_breaks/range_scale_classify_exact_breaks.h"
#include "scale_engine/natural_breaks/range_scale_classify_natural_breaks.h"
#include "tests/scale_engine/natural_breaks/plain_breaks.h"

#include "platform/base/owned.h"
#include "platform/base/text_codec.h"
#include "platform/basic/vx_stat.h"

#include <limits>

using namespace vx_bench;

namespace {
using values_list = std::vector<double>;

/// Even, or heaped at the low end as populations are.
values_list make_values(std::size_t count, bool even)
{
    std::mt19937 random(5);
    values_list values(count);
    for (auto &value : values)
        value = even ? std::uniform_real_distribution<double>(0, 1000)(random)
                     : std::lognormal_distribution<double>(3, 1)(random);
    return values;
}

void compare_programmes()
{
    std::printf("Breaks of 3,000 values, against the plain programme\n");
    struct
    {
        char const *name;
        bool even;
        double offset; ///< makes roundings count, so that the long way has to be gone
        double bound;
    } const samples[] = {{"even", true, 0, 1.0 / 25},
                         {"heaped", false, 0, 1.0 / 25},
                         {"even, far from 0", true, 1e10, 0.85},
                         {"heaped, far from 0", false, 1e10, 0.85}};
    for (unsigned const k : {5U, 10U})
        for (auto const &sample : samples) {
            auto values = make_values(3000, sample.even);
            for (auto &value : values)
                value += sample.offset;
            values_list plain;
            values_list own;
            auto const run_plain = [&] {
                auto copy = values;
                std::sort(copy.begin(), copy.end());
                plain = plain_breaks(copy, k);
            };
            auto const run_own = [&] {
                auto copy = values;
                own = vx::task::range_scale_classify_natural_breaks(L"x", k, 0, 1e9, 0).build_breaks(copy);
            };
            auto const name = std::to_string(k) + " classes, " + sample.name;
            print(name.c_str(), compare(run_plain, run_own), sample.bound);
            if (plain != own)
                std::abort();
        }
}

void compare_fields()
{
    std::printf("Natural breaks of a field of 1,000,000 objects, against the statistics of the field\n");
    struct
    {
        char const *driver;
        char const *file;
    } const formats[] = {{"GPKG", "points.gpkg"}, {"ESRI Shapefile", "points.shp"}};
    for (auto const &format : formats) {
        auto const source = vx::text::utf8_to_wide(sample_file(format.driver, format.file));
        auto const statistics = [&] {
            vx::data::generic_datasource data;
            vx::owned<Tvx_stat_data, &vx_stat_destroy> const stat(vx_stat_create());
            if (!data.open(source, vx::data::access_read))
                std::abort();
            data.field_statistics(c_number, stat.get());
        };
        auto const breaks = [&] {
            vx::task::range_scale_classify_natural_breaks const task(L"number", 7, 0, 2000, -2);
            values_list values;
            if (!task.load_values(vx::data::connection(source), values) || values.size() < 2000 ||
                task.build_breaks(values).size() != 6)
                std::abort();
        };
        print(format.driver, compare(statistics, breaks), 1.6);
    }
}

void compare_exact()
{
    std::printf("Exact breaks of 1,000,000 values in 10 classes, against sorting them\n");
    auto const values = make_values(1'000'000, false);
    double longest_wait = 0;
    auto const sort = [&] {
        auto copy = values;
        std::sort(copy.begin(), copy.end());
        return copy;
    };
    struct waiting
    {
        double last = processor_now();
        double longest = 0;
        bool ask()
        {
            double const now = processor_now();
            longest = std::max(longest, now - last);
            last = now;
            return false;
        }
    };
    auto const exact = [&] {
        auto copy = values;
        values_list breaks;
        waiting user;
        vx::task::range_scale_classify_exact_breaks task(L"x", 10, 0, 1e9, 0);
        task.on_cancel = closure<bool()>::bind<&waiting::ask>(&user);
        if (!task.build_breaks(copy, breaks) || breaks.size() != 9)
            std::abort();
        user.ask();
        longest_wait = std::max(longest_wait, user.longest);
        return copy;
    };
    print("10 classes", compare(sort, exact, 3), 40);
    std::printf("  longest time without asking whether to cancel: %.0f ms\n", longest_wait * 1e3);
}
} // namespace

int main()
{
    GDALAllRegister();
    vx::data::generic_datasource none;
    (void)none.open(L"", vx::data::access_read); // loads the bundle before the clock runs
    compare_programmes();
    compare_exact();
    compare_fields();
}
