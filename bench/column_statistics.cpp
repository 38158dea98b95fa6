// Statistics and unique values of one field of 1,000,000 features through the data source class, against the
// plain ways of GDAL: one pass over its Arrow stream where the format has columns, the loop over features
// where it has none. The other fields are ignored. Opening is part of both.

#include "arrow_pass.h"
#include "data/vector/vector_datasource.h"

#include "platform/base/owned.h"
#include "platform/base/text_codec.h"
#include "platform/basic/vx_stat.h"

#include <cmath>
#include <set>
#include <string>

using namespace vx_bench;

namespace {
struct unique_case
{
    char const *name;
    int field;
    bool is_text;
    std::size_t values;
};
constexpr unique_case c_unique[] = {
    {"unique texts, 200", c_text_200, true, 200},
    {"unique texts, 2,000", c_text_2000, true, 2000},
    {"unique texts, 1,000,000", c_text_1000000, true, 1'000'000},
    {"unique whole numbers, 200", c_whole_200, false, 200},
    {"unique whole numbers, 2,000", c_whole_2000, false, 2000},
    {"unique whole numbers, 1,000,000", c_whole_1000000, false, 1'000'000},
    {"unique real numbers, 1,000,000", c_number_1000000, false, 1'000'000},
};

/// One pass that only receives the column.
void plain_pass(std::string const &file, int field)
{
    long long cells = 0;
    arrow_pass(file, field, [&](ArrowArray const &column) { cells += column.length; });
    if (cells != c_records)
        std::abort();
}

void plain_loop(std::string const &file, int field, bool is_text)
{
    std::unique_ptr<GDALDataset> const set(GDALDataset::Open(file.c_str(), GDAL_OF_VECTOR));
    auto *const layer = set->GetLayer(0);
    keep_only(*layer, field);
    double sum = 0;
    for (auto const &feature : *layer)
        if (feature->IsFieldSetAndNotNull(field))
            sum += is_text ? feature->GetFieldAsString(field)[0] : feature->GetFieldAsDouble(field);
    if (!std::isfinite(sum))
        std::abort();
}

struct unique_values
{
    std::set<std::wstring> texts;
    std::set<double> numbers;
};

/// The pass with what has to be done with the values, done plainly.
unique_values plain_unique(std::string const &file, unique_case const &c)
{
    unique_values found;
    arrow_pass(file, c.field, [&](ArrowArray const &column) {
        if (c.is_text)
            for_texts(column,
                      [&](std::string_view text) { found.texts.insert(vx::text::utf8_to_wide(text)); });
        else if (c.field == c_number_1000000)
            for_numbers<double>(column, [&](double value) { found.numbers.insert(value); });
        else
            for_numbers<std::int32_t>(column, [&](std::int32_t value) { found.numbers.insert(value); });
    });
    if (found.texts.size() + found.numbers.size() != c.values)
        std::abort();
    return found;
}

void own_statistics(std::wstring const &source, int field)
{
    vx::data::generic_datasource data;
    vx::owned<Tvx_stat_data, &vx_stat_destroy> const stat(vx_stat_create());
    if (!data.open(source, vx::data::access_read))
        std::abort();
    data.field_statistics(static_cast<vx::data::field_index_type>(field), stat.get());
    bool known = false;
    if (!(vx_stat_get_average(stat.get(), &known) < 1e12) || !known)
        std::abort();
}

unique_values own_unique(std::wstring const &source, unique_case const &c)
{
    unique_values found;
    vx::data::generic_datasource data;
    if (!data.open(source, vx::data::access_read))
        std::abort();
    auto const field = static_cast<vx::data::field_index_type>(c.field);
    bool const good = c.is_text ? data.field_unique_values(field, vx::data::c_no_limit, found.texts)
                                : data.field_unique_values(field, vx::data::c_no_limit, found.numbers);
    if (!good || found.texts.size() + found.numbers.size() != c.values)
        std::abort();
    return found;
}

void compare_format(char const *driver, char const *file_name, bool has_columns)
{
    auto const file = sample_file(driver, file_name);
    auto const source = vx::text::utf8_to_wide(file);
    double const bound = has_columns ? 1.3 : 0.35;
    std::printf("%s, against %s\n", driver, has_columns ? "one Arrow pass" : "the loop over features");
    auto const plain = [&](int field, bool is_text) {
        return [&file, field, is_text, has_columns] {
            if (has_columns)
                plain_pass(file, field);
            else
                plain_loop(file, field, is_text);
        };
    };
    for (int const field : {c_whole, c_number, c_big})
        print(field == c_whole    ? "statistics, whole numbers"
              : field == c_number ? "statistics, real numbers"
                                  : "statistics, large numbers",
              compare(plain(field, false), [&] { own_statistics(source, field); }), bound);
    for (auto const &c : c_unique)
        print(c.name, compare(plain(c.field, c.is_text), [&] { return own_unique(source, c); }), bound);
    if (!has_columns)
        return;
    std::printf("%s, against one Arrow pass that files the values in a set\n", driver);
    for (auto const &c : c_unique)
        print(c.name,
              compare([&] { return plain_unique(file, c); }, [&] { return own_unique(source, c); }, 3),
              bound);
}
} // namespace

int main()
{
    GDALAllRegister();
    // The bundle is loaded before the clock runs.
    vx::data::generic_datasource none;
    (void)none.open(L"", vx::data::access_read);
    compare_format("GPKG", "points.gpkg", true);
    compare_format("FlatGeobuf", "points.fgb", true);
    compare_format("ESRI Shapefile", "points.shp", false);
}
