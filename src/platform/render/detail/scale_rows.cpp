#include "platform/render/detail/scale_rows.h"

#include "platform/base/owned.h"
#include "platform/calculator/vx_calc_filter.h"
#include "platform/data/detail/attr_row.h"
#include "platform/data/vx_attr_data.h"
#include "platform/render/vx_scale_rows.h"
#include "platform/styles/vx_stl_mngr.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace vx::render {
namespace {
using namespace vx::styles;

int field_index(Ivx_attr_files *files, std::wstring const &name)
{
    return files && !name.empty() ? vx_attr_files_get_field_index_w(files, name.c_str()) : -1;
}
} // namespace

struct row_source::rules
{
    using filter = vx::owned<void, &vx_calc_filter_destroy>;
    using prepared = vx::owned<void, &vx_calc_prepared_destroy>;

    rules(val_scale const &scale, Ivx_attr_files *files) : row(files)
    {
        filter const f(vx_calc_filter_create());
        tests.resize(scale.size());
        for (unsigned i = 0; i < scale.size(); ++i)
            if (vx_calc_filter_from_str(f.get(), scale.at(i)->text.c_str()))
                tests[i].reset(vx_calc_filter_prepare(f.get(), row));
    }
    unsigned find(unsigned record)
    {
        row.go_to(record);
        auto const it = std::ranges::find_if(
            tests, [this](prepared const &t) { return t && vx_calc_prepared_matches(t.get(), row); });
        return static_cast<unsigned>(it - tests.begin());
    }

    attr::attr_row row;
    std::vector<prepared> tests; ///< null for a text that is no filter
};

row_source::row_source(stl_mngr const &mngr, Ivx_attr_files *files) : f_mngr(mngr), f_files(files)
{
    if (mngr.mode == c_stl_mngr_mode_value)
        f_field = field_index(files, mngr.val_prop_name);
    else if (mngr.mode == c_stl_mngr_mode_range)
        f_field = field_index(files, mngr.rng_prop_name);
    else if (mngr.mode == c_stl_mngr_mode_rule && files)
        f_rules = std::make_unique<rules>(mngr.rules, files);
    if (mngr.rotate_flag || mngr.rotate_spot_flag || mngr.rotate_hatch_flag)
        f_rotate_field = field_index(files, mngr.rotate_prop_name);
}

row_source::~row_source() = default;

bool row_source::read_on(int milliseconds)
{
    auto const read = [&](int field) {
        return field >= 0 && vx_attr_files_read_on(f_files, static_cast<unsigned>(field), milliseconds);
    };
    return read(f_field) || read(f_rotate_field) ||
           (f_rules && std::ranges::any_of(f_rules->row.fields(), read));
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
    auto const field = static_cast<unsigned>(f_field);
    auto const find = [&] {
        bool known = false;
        auto const text = vx_attr_files_get_utf8(f_files, field, record, &known);
        int const row = known ? f_mngr.values.find(text) : -1;
        return row < 0 ? static_cast<int>(f_mngr.values.size()) : row;
    };
    // A text that comes again is looked up once.
    int const number = vx_attr_files_get_text_number(f_files, field, record);
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
        double const value = vx_attr_files_get_dbl(f_files, static_cast<unsigned>(f_field), record, &known);
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
    double const value =
        vx_attr_files_get_dbl(f_files, static_cast<unsigned>(f_rotate_field), record, &known);
    if (!known || !std::isfinite(value))
        return 0;
    // A symbol that is not turned points north.
    return std::remainder(f_mngr.rotate_start * 90.0 - 90 + (f_mngr.rotate_dir ? -value : value), 360.0);
}
} // namespace vx::render

unsigned vx_scale_rows_get_count(void const *mngr)
{
    return mngr
               ? vx::render::row_source(*static_cast<vx::styles::stl_mngr const *>(mngr), nullptr).row_count()
               : 0;
}

bool vx_scale_rows_count_objects(void const *mngr, Ivx_attr_data *data, unsigned *counts, unsigned size)
{
    if (!mngr || !counts)
        return false;
    vx::owned<Ivx_attr_files, &vx_attr_files_close> const files(vx_attr_files_open(data, 1, 0));
    if (!files)
        return false;
    vx::render::row_source const rows(*static_cast<vx::styles::stl_mngr const *>(mngr), files.get());
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
    vx::owned<Ivx_attr_files, &vx_attr_files_close> files;
    vx::render::row_source rows;

    Ivx_scale_rows(vx::styles::stl_mngr const &mngr, Ivx_attr_files *opened)
        : files(opened), rows(mngr, opened)
    {
    }
};

Ivx_scale_rows *vx_scale_rows_open(void const *mngr, Ivx_attr_data *data)
{
    Ivx_attr_files *const files = mngr ? vx_attr_files_open(data, 1, 0) : nullptr;
    return files ? new Ivx_scale_rows(*static_cast<vx::styles::stl_mngr const *>(mngr), files) : nullptr;
}

void vx_scale_rows_close(Ivx_scale_rows *rows)
{
    delete rows;
}

unsigned vx_scale_rows_find(Ivx_scale_rows const *rows, unsigned record)
{
    return rows ? rows->rows.row_of(record) : 0;
}
