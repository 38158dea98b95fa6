// The attribute table of 1,000,000 records: opening, the first cell of a field (which reads its column),
// later cells, and the memory that a column takes, against one pass over GDAL's Arrow stream with the other
// fields ignored and the data in it.

#include "arrow_pass.h"

#include "platform/base/owned.h"
#include "platform/base/text_codec.h"
#include "platform/data/vx_attr_data.h"

#include <malloc.h>
#include <string>

using namespace vx_bench;

namespace {
constexpr int c_reads = 5'000'000;

struct column_case
{
    char const *name;
    int field;
    bool is_text;
};
constexpr column_case c_columns[] = {
    {"whole numbers", c_whole, false},      {"real numbers", c_number, false},
    {"large numbers", c_big, false},        {"texts, 200 different", c_text_200, true},
    {"texts, all different", c_name, true},
};

struct open_table
{
    vx::owned<Ivx_attr_data, &vx_attr_data_release> data;
    vx::owned<Ivx_attr_files, &vx_attr_files_close> files;
    explicit open_table(std::wstring const &source) : data(vx_attr_data_create(source.c_str()))
    {
        files.reset(vx_attr_files_open(data.get(), 1, 0));
        if (!files || vx_attr_files_get_no(files.get()) != c_records)
            std::abort();
    }
};

void read_cell(Ivx_attr_files *files, column_case const &c, unsigned record, double &sum)
{
    if (c.is_text)
        sum += vx_attr_files_get_wstr(files, static_cast<unsigned>(c.field), record, nullptr)[0];
    else
        sum += vx_attr_files_get_dbl(files, static_cast<unsigned>(c.field), record, nullptr);
}

/// Bytes of the column's values as the stream has them: texts with their starts.
std::size_t data_size(std::string const &file, column_case const &c)
{
    std::size_t bytes = 0;
    arrow_pass(file, c.field, [&](ArrowArray const &column) {
        auto const count = static_cast<std::size_t>(column.length);
        if (c.is_text)
            bytes += static_cast<std::size_t>(
                         static_cast<std::int32_t const *>(column.buffers[1])[column.length]) +
                     count * sizeof(std::int32_t);
        else
            bytes += count * (c.field == c_whole ? sizeof(std::int32_t) : sizeof(double));
    });
    return bytes;
}

std::size_t allocated()
{
    auto const info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

void measure_format(char const *driver, char const *file_name)
{
    auto const file = sample_file(driver, file_name);
    auto const source = vx::text::utf8_to_wide(file);
    double sum = 0;
    two_times opening;
    for (int i = 0; i < 5; ++i)
        opening.wall = std::min(opening.wall, measure([&] { return open_table(source); }).wall);
    std::printf("%s: opened in %.2f ms\n", driver, opening.wall * 1e3);
    for (auto const &c : c_columns) {
        auto const first = compare(
            [&] {
                long long cells = 0;
                arrow_pass(file, c.field, [&](ArrowArray const &column) { cells += column.length; });
            },
            [&] {
                open_table table(source);
                read_cell(table.files.get(), c, 0, sum);
                return table;
            });
        print(c.name, first, 1.5);

        open_table table(source);
        read_cell(table.files.get(), {"", c_note, true}, 0, sum); // what the format keeps for itself
        auto const before = allocated();
        read_cell(table.files.get(), c, 0, sum);
        auto const taken = static_cast<double>(allocated() - before);
        unsigned record = 1;
        auto const cells = measure([&] {
            for (int i = 0; i < c_reads; ++i) {
                read_cell(table.files.get(), c, record, sum);
                record = record + 1 < c_records ? record + 1 : 0;
            }
        });
        auto const size = static_cast<double>(data_size(file, c));
        std::printf("  %-32s a later cell %.1f ns, bound 10%s; %.1f MB, %.2f times the data, bound 1.30%s\n",
                    "", cells.processor * 1e9 / c_reads,
                    cells.processor * 1e9 / c_reads < 10 ? "" : " EXCEEDED", taken / 1e6, taken / size,
                    taken / size <= 1.3 ? "" : " EXCEEDED");
    }
    if (!(sum == sum))
        std::abort();
}
} // namespace

int main()
{
    GDALAllRegister();
    vx::owned<Ivx_attr_data, &vx_attr_data_release> const none(vx_attr_data_create(L""));
    (void)vx_attr_data_open(none.get()); // loads the bundle before the clock runs
    measure_format("GPKG", "points.gpkg");
    measure_format("FlatGeobuf", "points.fgb");
    measure_format("ESRI Shapefile", "points.shp");
}
