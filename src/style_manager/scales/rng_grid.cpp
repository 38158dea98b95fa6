#include "style_manager/scales/rng_grid.h"

#include "captions/style_manager.h"
#include "scale_engine/range/range_scale_append_range.h"

#include "platform/base/string_adp.h"
#include "platform/base/strutil.h"
#include "platform/basic/vx_res.h"
#include "platform/styles/vx_rng_scale.h"
#include "platform/styles/vx_round_digits.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/toolkit/graphics/canvas.h"

#include <algorithm>
#include <cmath>

namespace {
enum : int
{
    c_min_col = 1,
    c_max_col,
    c_caption_col,
    c_text_cols = 3,
};
constexpr wchar_t const *c_blanks = L" \t\n\r\v\f";
constexpr wchar_t const *c_minus_infinity = L"-INDEF";
constexpr wchar_t const *c_plus_infinity = L"+INDEF";
} // namespace

Tvx_rng_grid::Tvx_rng_grid(TComponent *owner) : Tvx_scale_grid(owner, c_text_cols)
{
}

void Tvx_rng_grid::create()
{
    create_grid();
    get_ins_action()->OnUpdate = make_closure<&Tvx_rng_grid::on_ins_action_update>(this);
    get_ins_action()->Update();
    f_title_min = L"Min";
    f_title_max = L"Max";
    f_title_caption = L"Caption";
}

void Tvx_rng_grid::load_res()
{
    f_title_min = vx_res_get_wstr(c_scl_min);
    f_title_max = vx_res_get_wstr(c_scl_max);
    f_title_caption = vx_res_get_wstr(c_scl_caption);
    f_fmt_min_caption = vx_res_get_wstr(c_caption_range_below);
    f_fmt_max_caption = vx_res_get_wstr(c_caption_range_above);
    f_fmt_rng_caption = vx_res_get_wstr(c_caption_range_between);
    load_grid_res(vx_res_get_wstr(c_scl_ranges));
}

// ---- the rows

void *Tvx_rng_grid::scale_of(void *mngr) const
{
    return vx_stl_mngr_get_rng_scale_ptr(mngr);
}

unsigned Tvx_rng_grid::get_n_row() const
{
    return get_scale() ? vx_rng_scale_get_size(get_scale()) + 2 : 0;
}

Tvx_rng_grid::row_kind Tvx_rng_grid::kind_of(unsigned row) const
{
    unsigned const count = get_n_row();
    return row >= count ? row_kind::none
           : row == 0   ? row_kind::min
                        : (row + 1 == count ? row_kind::max : row_kind::range);
}

bool Tvx_rng_grid::get_row_rng(unsigned row, bool &is_min, bool &is_max, unsigned &index) const
{
    auto const kind = kind_of(row);
    is_min = kind == row_kind::min;
    is_max = kind == row_kind::max;
    if (kind == row_kind::range)
        index = row - 1;
    return kind != row_kind::none;
}

bool Tvx_rng_grid::get_row_marked(unsigned row) const
{
    switch (kind_of(row)) {
    case row_kind::min:
        return vx_rng_scale_get_min_marked(get_scale());
    case row_kind::max:
        return vx_rng_scale_get_max_marked(get_scale());
    default:
        return vx_rng_scale_get_marked(get_scale(), row - 1);
    }
}

void Tvx_rng_grid::set_row_marked(unsigned row, bool marked)
{
    switch (kind_of(row)) {
    case row_kind::min:
        return vx_rng_scale_set_min_marked(get_scale(), marked);
    case row_kind::max:
        return vx_rng_scale_set_max_marked(get_scale(), marked);
    default:
        return vx_rng_scale_set_marked(get_scale(), row - 1, marked);
    }
}

void Tvx_rng_grid::unmark_all()
{
    for (unsigned i = 0, count = get_n_row(); i < count; ++i)
        set_row_marked(i, false);
}

/// The outer rows cannot be deleted.
bool Tvx_rng_grid::can_delete() const
{
    for (unsigned i = 0, size = vx_rng_scale_get_size(get_scale()); i < size; ++i)
        if (vx_rng_scale_get_marked(get_scale(), i))
            return true;
    return false;
}

void *Tvx_rng_grid::get_row_scale_prm_ptr(unsigned row) const
{
    switch (kind_of(row)) {
    case row_kind::min:
        return vx_rng_scale_get_min_prm_ptr(get_scale());
    case row_kind::max:
        return vx_rng_scale_get_max_prm_ptr(get_scale());
    default:
        return vx_rng_scale_get_scale_prm_ptr(get_scale(), row - 1);
    }
}

void Tvx_rng_grid::set_row_stl_prm(unsigned row, void const *stl_prm, bool sel)
{
    switch (kind_of(row)) {
    case row_kind::min:
        return vx_rng_scale_set_min_style_prm(get_scale(), stl_prm, sel);
    case row_kind::max:
        return vx_rng_scale_set_max_style_prm(get_scale(), stl_prm, sel);
    default:
        return vx_rng_scale_set_stl_prm(get_scale(), row - 1, stl_prm, sel);
    }
}

bool Tvx_rng_grid::move_entry(int from, int to)
{
    int const size = static_cast<int>(vx_rng_scale_get_size(get_scale()));
    int const entry = from - 2; // behind the header and the min row
    if (entry < 0 || entry >= size)
        return false;
    vx_rng_scale_move(get_scale(), static_cast<unsigned>(entry),
                      static_cast<unsigned>(std::clamp(to - 2, 0, size - 1)));
    return true;
}

void Tvx_rng_grid::run_gradient(Tvx_gradient_kind kind, unsigned first, unsigned last, bool sel)
{
    auto *const apply = kind == c_gradient_color          ? &vx_rng_scale_clr_gradient
                        : kind == c_gradient_transparency ? &vx_rng_scale_transparency_gradient
                                                          : &vx_rng_scale_size_gradient;
    apply(get_scale(), first, last, sel);
}

// ---- the texts

std::wstring Tvx_rng_grid::dbl2str(double value) const
{
    std::wstring text;
    Tvx_std_wstring_adapter adapter(text);
    vx_round_digits_format_number(vx_rng_scale_get_round_digits(get_scale()), value, adapter);
    return text;
}

bool Tvx_rng_grid::str2dbl(char const *text, double &value)
{
    char *end = nullptr;
    double const number = vx::strutil::to_double(text, &end);
    if (end == text || !std::isfinite(number))
        return false;
    value = number;
    return true;
}

std::wstring Tvx_rng_grid::get_default_min_caption(void const *scale) const
{
    return vx::strutil::format(f_fmt_min_caption.c_str(), dbl2str(vx_rng_scale_get_min_value(scale)).c_str());
}

std::wstring Tvx_rng_grid::get_default_max_caption(void const *scale) const
{
    return vx::strutil::format(f_fmt_max_caption.c_str(), dbl2str(vx_rng_scale_get_max_value(scale)).c_str());
}

std::wstring Tvx_rng_grid::get_default_rng_caption(void const *scale, unsigned index) const
{
    return vx::strutil::format(f_fmt_rng_caption.c_str(), dbl2str(vx_rng_scale_get_min(scale, index)).c_str(),
                               dbl2str(vx_rng_scale_get_max(scale, index)).c_str());
}

UnicodeString Tvx_rng_grid::title(int col) const
{
    return col == c_min_col ? f_title_min : (col == c_max_col ? f_title_max : f_title_caption);
}

int Tvx_rng_grid::text_col_share(int col) const
{
    return col == c_caption_col ? 2 : 1;
}

/// Empty for the two infinities, which are drawn.
std::wstring Tvx_rng_grid::cell_text(unsigned row, int col) const
{
    auto *const scale = get_scale();
    auto const kind = kind_of(row);
    if (col == c_caption_col) {
        std::wstring text;
        Tvx_std_wstring_adapter adapter(text);
        if (kind == row_kind::min)
            vx_rng_scale_get_min_caption_w(scale, adapter);
        else if (kind == row_kind::max)
            vx_rng_scale_get_max_caption_w(scale, adapter);
        else
            vx_rng_scale_get_caption_w(scale, row - 1, adapter);
        return text;
    }
    return is_edit_cell(row, col) ? dbl2str(bound(row, col == c_min_col)) : std::wstring();
}

/// Of an outer row, whichever is asked for: it has one.
double Tvx_rng_grid::bound(unsigned row, bool lower) const
{
    auto *const scale = get_scale();
    switch (kind_of(row)) {
    case row_kind::min:
        return vx_rng_scale_get_min_value(scale);
    case row_kind::max:
        return vx_rng_scale_get_max_value(scale);
    default:
        return lower ? vx_rng_scale_get_min(scale, row - 1) : vx_rng_scale_get_max(scale, row - 1);
    }
}

std::wstring Tvx_rng_grid::row_hint(unsigned row) const
{
    auto const kind = kind_of(row);
    auto const text = [&](int col) { return vx::strutil::trim(cell_text(row, col), c_blanks); };
    return (kind == row_kind::min ? c_minus_infinity : text(c_min_col)) + L".." +
           (kind == row_kind::max ? c_plus_infinity : text(c_max_col)) + L" : " + text(c_caption_col);
}

bool Tvx_rng_grid::is_edit_col(int col) const
{
    return col >= c_min_col && col <= c_caption_col;
}

bool Tvx_rng_grid::is_edit_cell(unsigned row, int col) const
{
    auto const kind = kind_of(row);
    return !(kind == row_kind::min && col == c_min_col) && !(kind == row_kind::max && col == c_max_col);
}

/// A new caption is not reported.
bool Tvx_rng_grid::take_text(unsigned row, int col, char const *text)
{
    if (col != c_caption_col)
        return take_bound(row, col == c_min_col, text);
    auto const kind = kind_of(row);
    if (kind == row_kind::min)
        vx_rng_scale_set_min_caption(get_scale(), text);
    else if (kind == row_kind::max)
        vx_rng_scale_set_max_caption(get_scale(), text);
    else
        vx_rng_scale_set_caption(get_scale(), row - 1, text);
    return false;
}

bool Tvx_rng_grid::take_bound(unsigned row, bool lower, char const *text)
{
    double value = 0;
    if (!str2dbl(text, value) || value == bound(row, lower))
        return false;
    auto const kind = kind_of(row);
    if (kind == row_kind::min)
        vx_rng_scale_set_min_value(get_scale(), value);
    else if (kind == row_kind::max)
        vx_rng_scale_set_max_value(get_scale(), value);
    else if (lower)
        vx_rng_scale_set_min(get_scale(), row - 1, value);
    else
        vx_rng_scale_set_max(get_scale(), row - 1, value);
    return true;
}

// ---- painting

void Tvx_rng_grid::draw_text_cell(unsigned row, int col, TRect const &rect)
{
    if (is_edit_cell(row, col))
        Tvx_scale_grid::draw_text_cell(row, col, rect);
    else
        draw_indef(rect, col == c_max_col);
}

/// A sign and a lying eight of two rings that meet in the middle of the cell.
void Tvx_rng_grid::draw_indef(TRect const &rect, bool plus)
{
    auto *const canvas = GetCanvas();
    auto *const font = canvas->GetFont();
    int const size = std::abs(font->GetHeight()), quarter = size / 4;
    int const x = (rect.Left + rect.Right) / 2, y = (rect.Top + rect.Bottom) / 2;
    auto *const pen = canvas->GetPen();
    pen->SetColor(font->GetColor());
    pen->SetWidth(font->GetStyle().Contains(fsBold) ? 2 : 1);
    auto *const brush = canvas->GetBrush();
    auto const style = brush->GetStyle();
    brush->SetStyle(bsClear);
    int const top = y - size / 2;
    canvas->Ellipse(x - size, top, x, top + size);
    canvas->Ellipse(x, top, x + size, top + size);
    brush->SetStyle(style);
    int const end = x - size - quarter;
    canvas->MoveTo(end - quarter, y);
    canvas->LineTo(end, y);
    if (plus) {
        canvas->MoveTo(end, y - quarter);
        canvas->LineTo(end, y + quarter);
    }
}

// ---- commands

void Tvx_rng_grid::on_ins_action_execute(TObject * /*sender*/)
{
    if (!get_scale())
        return;
    vx::task::range_scale_append_range::execute(get_scale(), GetRow() - 2);
    update_controls();
    call_changed();
}

void Tvx_rng_grid::on_ins_action_update(TObject * /*sender*/)
{
    get_ins_action()->SetEnabled(get_scale() != nullptr);
}

void Tvx_rng_grid::on_del_action_execute(TObject * /*sender*/)
{
    vx_rng_scale_del_marked(get_scale());
    update_controls();
    call_changed();
}

// ---- menus

void Tvx_rng_grid::call_title_menu(int col, TPoint at)
{
    call_name_menu(at.X, at.Y, col == c_caption_col, col == c_min_col);
}

void Tvx_rng_grid::call_name_menu(int x, int y, bool caption, bool is_min)
{
    open_name_menu(x, y, caption, is_min);
}
