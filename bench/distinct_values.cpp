// Different values of a column of 1,000,000 text cells in memory through the caches of the value tasks,
// against a new wide string for each cell put into an ordered set; default value scales against reading the
// values.

#include "data/source/generic_datasource.h"
#include "sample_table.h"
#include "scale_engine/value/value_scale_build_text_cache.h"
#include "scale_engine/value/value_scale_default.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/base/text_codec.h"
#include "platform/data/vx_attr_data.h"
#include "platform/data/vx_table.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_val_scale.h"

#include <set>

using namespace vx_bench;

namespace {
using text_set = std::set<std::wstring>;

text_set plain_set(Ivx_entity *entity, wchar_t const *field)
{
    text_set values;
    vx::owned<Ivx_table_files, &vx_table_files_close> const table(vx_table_files_open(entity, 1));
    int const column = vx_table_files_get_column_index_w(table.get(), field);
    unsigned const rows = vx_table_files_get_rows_count(table.get());
    for (unsigned row = 0; row < rows; ++row) {
        bool has_value = false;
        std::wstring text;
        {
            Tvx_std_wstring_adapter receiver(text);
            vx_table_files_get_wstring(table.get(), column, row, &has_value, receiver, 0);
        }
        if (has_value)
            values.insert(text);
    }
    return values;
}

text_set own_set(Ivx_entity *entity, wchar_t const *field, std::uint64_t limit)
{
    text_set values;
    if (!vx::task::value_scale_build_text_cache(field, limit).execute(entity, values))
        std::abort();
    return values;
}

void compare_tables(std::wstring const &source)
{
    std::printf(
        "Different texts of 1,000,000 cells in memory, against a wide string each in an ordered set\n");
    vx::owned<Ivx_attr_data, &vx_attr_data_release> const data(vx_attr_data_create(source.c_str()));
    Ivx_entity *const entity = vx_attr_data_safe_upcast(data.get());
    for (wchar_t const *field : {L"text200", L"text2000", L"text1m"}) {
        text_set plain;
        text_set own;
        auto const before = own_set(entity, field, vx::data::c_no_limit); // the column is in memory now
        auto const times = compare([&] { plain = plain_set(entity, field); },
                                   [&] { own = own_set(entity, field, vx::data::c_no_limit); }, 3);
        print(vx::text::wide_to_utf8(field).c_str(), times, 0.45);
        if (plain != own)
            std::abort();
        print("  limit 100, against no limit",
              compare([&] { return own_set(entity, field, vx::data::c_no_limit); },
                      [&] { return own_set(entity, field, 100); }, 3),
              0.05);
    }
}

void compare_default(std::wstring const &source)
{
    std::printf("Default value scale of 2,000 texts of 1,000,000 features, against reading the texts\n");
    auto const read = [&] {
        vx::data::generic_datasource data;
        text_set values;
        if (!data.open(source, vx::data::access_read) ||
            !data.field_unique_values(c_text_2000, vx::data::c_no_limit, values))
            std::abort();
        return values;
    };
    auto const make = [&] {
        vx::owned<void, &vx_stl_mngr_destroy> mngr(vx_stl_mngr_create("pnt_style"));
        vx::task::value_scale_default const task(vx::data::connection(source), L"text2000",
                                                 c_palette_different);
        task.init_scale(mngr.get());
        task.make_default_scale(mngr.get(), vx::data::c_no_limit);
        if (vx_val_scale_get_size(vx_stl_mngr_get_val_scale_ptr(mngr.get())) != 2000)
            std::abort();
        return mngr;
    };
    print("GeoPackage", compare(read, make), 1.5);
}
} // namespace

int main()
{
    GDALAllRegister();
    auto const source = vx::text::utf8_to_wide(sample_file("GPKG", "points.gpkg"));
    compare_tables(source);
    compare_default(source);
}
