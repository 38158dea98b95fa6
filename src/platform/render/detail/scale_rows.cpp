#include "platform/render/detail/scale_rows.h"

#include "platform/base/owned.h"
#include "platform/calculator/vx_calc_filter.h"
#include "platform/data/vx_attr_data.h"
#include "platform/render/detail/tos_table.h"
#include "platform/render/vx_scale_rows.h"
#include "platform/styles/vx_stl_mngr.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace vx::render {
namespace {
using namespace vx::styles;

int field_index(row_table const &table, std::wstring const &name)
{
    return name.empty() ? -1 : table.field_index(name);
}
} // namespace

struct row_source::rules
{
    using filter = vx::owned<void, &vx_calc_filter_destroy>;
    using prepared = vx::owned<void, &vx_calc_prepared_destroy>;

    rules(val_scale const &scale, row_table &of) : table(of)
    {
        filter const f(vx_calc_filter_create());
        tests.resize(scale.size());
        for (unsigned i = 0; i < scale.size(); ++i)
            if (vx_calc_filter_from_str(f.get(), scale.at(i)->text.c_str()))
                tests[i].reset(vx_calc_filter_prepare(f.get(), table.row_of(0)));
    }
    unsigned find(unsigned record)
    {
        auto &row = table.row_of(record);
        auto const it = std::ranges::find_if(
            tests, [&row](prepared const &t) { return t && vx_calc_prepared_matches(t.get(), row); });
        return static_cast<unsigned>(it - tests.begin());
    }

    row_table &table;
    std::vector<prepared> tests; ///< null for a text that is no filter
};

row_source::row_source(stl_mngr const &mngr, row_table &table) : f_mngr(mngr), f_table(table)
{
    if (mngr.mode == c_stl_mngr_mode_value)
        f_field = field_index(table, mngr.val_prop_name);
    else if (mngr.mode == c_stl_mngr_mode_range)
        f_field = field_index(table, mngr.rng_prop_name);
    else if (mngr.mode == c_stl_mngr_mode_rule)
        f_rules = std::make_unique<rules>(mngr.rules, table);
    if (mngr.rotate_flag || mngr.rotate_spot_flag || mngr.rotate_hatch_flag)
        f_rotate_field = field_index(table, mngr.rotate_prop_name);
}

row_source::~row_source() = default;

bool row_source::read_on(int milliseconds)
{
    auto const read = [&](int field) { return field >= 0 && f_table.read_on(field, milliseconds); };
    return read(f_field) || read(f_rotate_field) ||
           (f_rules && std::ranges::any_of(f_table.filter_fields(), read));
}

val_scale const *row_source::entries() const
{
    if (f_mngr.mode == c_stl_mngr_mode_value)
        return &f_mngr.values;
    return f_mngr.mode == c_stl_mngr_mode_rule ? &f_mngr.rules : nullptr;
}

unsigned row_source::row_count() const
{
    if (val_scale const *scale = entries())
        return scale->size() + 1;
    return f_mngr.mode == c_stl_mngr_mode_range ? f_mngr.ranges.other_row() + 1 : 1;
}

unsigned row_source::row_of_text(unsigned record) const
{
    auto const find = [&] {
        bool known = false;
        auto const text = f_table.text(f_field, record, known);
        int const row = known ? f_mngr.values.find(text) : -1;
        return row < 0 ? static_cast<int>(f_mngr.values.size()) : row;
    };
    // A text that comes again is looked up once.
    int const number = f_table.text_number(f_field, record);
    if (number < 0)
        return static_cast<unsigned>(find());
    auto const place = static_cast<std::size_t>(number);
    if (place >= f_known_rows.size())
        f_known_rows.resize(place + place / 2 + 16, -1);
    int &row = f_known_rows[place];
    if (row < 0)
        row = find();
    return static_cast<unsigned>(row);
}

unsigned row_source::row_of(unsigned record) const
{
    switch (f_mngr.mode) {
    case c_stl_mngr_mode_value:
        return f_field < 0 ? f_mngr.values.size() : row_of_text(record);
    case c_stl_mngr_mode_range: {
        if (f_field < 0)
            return f_mngr.ranges.other_row();
        bool known = false;
        double const value = f_table.number(f_field, record, known);
        return known ? f_mngr.ranges.find(value) : f_mngr.ranges.other_row();
    }
    case c_stl_mngr_mode_rule:
        return f_rules ? f_rules->find(record) : f_mngr.rules.size();
    default:
        return 0;
    }
}

scale_prm const *row_source::entry(unsigned row) const
{
    if (val_scale const *scale = entries()) {
        val_entry const *e = scale->at(row);
        return e ? &e->prm : &scale->other.prm;
    }
    return f_mngr.mode == c_stl_mngr_mode_range ? f_mngr.ranges.row(row) : nullptr;
}

stl_prm const &row_source::style(unsigned row) const
{
    scale_prm const *e = entry(row);
    return e ? e->prm : f_mngr.simple;
}

bool row_source::visible(unsigned row) const
{
    scale_prm const *e = entry(row);
    return !e || e->visible;
}

double row_source::angle_of(unsigned record) const
{
    if (f_rotate_field < 0)
        return 0;
    bool known = false;
    double const value = f_table.number(f_rotate_field, record, known);
    if (!known || !std::isfinite(value))
        return 0;
    // A symbol that is not turned points north.
    return std::remainder(f_mngr.rotate_start * 90.0 - 90 + (f_mngr.rotate_dir ? -value : value), 360.0);
}
} // namespace vx::render

unsigned vx_scale_rows_get_count(void const *mngr)
{
    if (!mngr)
        return 0;
    vx::render::attr_table none(nullptr);
    return vx::render::row_source(*static_cast<vx::styles::stl_mngr const *>(mngr), none).row_count();
}

bool vx_scale_rows_count_objects(void const *mngr, Ivx_attr_data *data, unsigned *counts, unsigned size)
{
    if (!mngr || !counts)
        return false;
    vx::owned<Ivx_attr_files, &vx_attr_files_close> const files(vx_attr_files_open(data, 1, 0));
    if (!files)
        return false;
    vx::render::attr_table table(files.get());
    vx::render::row_source const rows(*static_cast<vx::styles::stl_mngr const *>(mngr), table);
    std::fill_n(counts, size, 0u);
    for (unsigned i = 0; i < vx_attr_files_get_no(files.get()); ++i) {
        unsigned const row = rows.row_of(i);
        if (row < size)
            ++counts[row];
    }
    return true;
}

struct Ivx_scale_rows
{
    using files_ptr = vx::owned<Ivx_attr_files, &vx_attr_files_close>;

    files_ptr files;
    vx::render::tos_file_ptr file;
    std::unique_ptr<vx::render::row_table> table;
    vx::render::row_source rows;

    Ivx_scale_rows(vx::styles::stl_mngr const &mngr, files_ptr opened)
        : files(std::move(opened)), table(std::make_unique<vx::render::attr_table>(files.get())),
          rows(mngr, *table)
    {
    }
    Ivx_scale_rows(vx::styles::stl_mngr const &mngr, vx::render::tos_file_ptr opened)
        : file(std::move(opened)), table(std::make_unique<vx::render::tos_table>(file.get())),
          rows(mngr, *table)
    {
    }
};

Ivx_scale_rows *vx_scale_rows_open(void const *mngr, Ivx_attr_data *data)
{
    Ivx_scale_rows::files_ptr files(mngr ? vx_attr_files_open(data, 1, 0) : nullptr);
    return files ? new Ivx_scale_rows(*static_cast<vx::styles::stl_mngr const *>(mngr), std::move(files))
                 : nullptr;
}

Ivx_scale_rows *vx_scale_rows_open_file_w(void const *mngr, wchar_t const *property_file)
{
    vx::render::tos_file_ptr file(mngr ? vx_tos4_file_open_w(property_file, true) : nullptr);
    return file ? new Ivx_scale_rows(*static_cast<vx::styles::stl_mngr const *>(mngr), std::move(file))
                : nullptr;
}

void vx_scale_rows_close(Ivx_scale_rows *rows)
{
    delete rows;
}

unsigned vx_scale_rows_find(Ivx_scale_rows const *rows, unsigned record)
{
    return rows ? rows->rows.row_of(record) : 0;
}
