// Questions about a large table of a database server, against pulling what they are about:
//   bench_server_questions "PG:host=... dbname=...|layer=big" [number field] [text field]
// bench/server_table.sql makes a table for it.

#include "data/grid/random_sample_task.h"
#include "data/vector/vector_datasource.h"

#include "platform/base/text_codec.h"

#include <chrono>
#include <cstdio>
#include <functional>
#include <set>

using namespace vx::data;

namespace {
double seconds_of(std::function<void()> const &work)
{
    auto const start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void print(char const *what, double seconds, double pulled)
{
    std::printf("%-60s %10.4f s   %8.5f\n", what, seconds, seconds / pulled);
}
} // namespace

int main(int argc, char **argv)
{
    vector_datasource table;
    if (argc < 2 || !table.open(vx::text::utf8_to_wide(argv[1]), access_read)) {
        std::printf("usage: bench_server_questions <connection> [number field] [text field]\n");
        return 1;
    }
    auto const number = table.field_index(vx::text::utf8_to_wide(argc > 2 ? argv[2] : "v"));
    auto const text = table.field_index(vx::text::utf8_to_wide(argc > 3 ? argv[3] : "name"));
    std::uint64_t count = 0;
    Tvx_box_d2 all;
    double const counting = seconds_of([&] { count = table.feature_count(force_compute); });
    double const spanning = seconds_of([&] { (void)table.extent(all, force_compute); });
    std::printf("%llu features\n", static_cast<unsigned long long>(count));
    vector_feature feature;
    std::uint64_t read = 0;
    double const pulled = seconds_of([&] {
        table.reset_reading();
        while (table.fetch_next_feature(feature))
            ++read;
    });
    print("all features pulled, the plain way", pulled, pulled);
    print("count", counting, pulled);
    print("extent", spanning, pulled);
    print("statistics of a number", seconds_of([&] { (void)table.field_stdev(number); }), pulled);
    std::set<std::wstring> values;
    print("different texts", seconds_of([&] { (void)table.field_unique_values(text, c_no_limit, values); }),
          pulled);
    std::printf("    %zu of them\n", values.size());
    print("different texts, 100 at most",
          seconds_of([&] { (void)table.field_unique_values(text, 100, values); }), pulled);
    std::vector<double> sample;
    print("sample of 3,000",
          seconds_of([&] { sample = random_sample_task(3000).execute(table, table.field_name(number)); }),
          pulled);
    std::printf("    %zu numbers\n", sample.size());
    auto const walk = [&] {
        read = 0;
        while (table.fetch_next_feature(feature))
            ++read;
    };
    for (double const part : {0.01, 0.1}) {
        Tvx_box_d2 const window{all.min_x, all.min_y, all.min_x + all.width() * part,
                                all.min_y + all.height() * part};
        double const seen = seconds_of([&] {
            (void)table.set_spatial_fitler(window);
            walk();
        });
        print(part < 0.05 ? "window of a ten thousandth of the extent"
                          : "window of a hundredth of the extent",
              seen, pulled);
        std::printf("    %llu features\n", static_cast<unsigned long long>(read));
    }
    (void)table.set_spatial_fitler({});
    for (long long const first : {0LL, static_cast<long long>(count / 2)})
        print(first == 0 ? "first page of 50" : "page of 50 in the middle", seconds_of([&] {
                  (void)table.set_index_filter(first, first + 50);
                  walk();
              }),
              pulled);
    return 0;
}
