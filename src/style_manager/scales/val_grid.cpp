#include "style_manager/scales/val_grid.h"

#include "captions/style_manager.h"
#include "style_manager/scales/rule_import_menu.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/base/strutil.h"
#include "platform/basic/vx_res.h"
#include "platform/calculator/vx_calc_filter.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_val_scale.h"
#include "platform/toolkit/core/screen.h"

#include <algorithm>

namespace {
enum : int
{
    c_text_col = 1,
    c_caption_col,
    c_text_cols = 2,
};
constexpr wchar_t const *c_blanks = L" \t\n\r\v\f";

using owned_filter = vx::owned<void, &vx_calc_filter_destroy>;

/// The filter as people write it.
std::wstring pretty_filter(std::wstring const &text)
{
    if (text.empty())
        return text;
    owned_filter const filter(vx_calc_filter_create());
    vx_calc_filter_from_str(filter.get(), text.c_str());
    std::wstring result;
    Tvx_std_wstring_adapter adapter(result);
    vx_calc_filter_pretty_print(filter.get(), adapter);
    return result;
}
} // namespace

Tvx_val_grid::Tvx_val_grid(TComponent *owner, bool rule) : Tvx_scale_grid(owner, c_text_cols), f_rule(rule)
{
}

void Tvx_val_grid::create()
{
    create_grid();
    OnDblClick = make_closure<&Tvx_val_grid::on_double_click>(this);
    f_title_value = f_rule ? L"rule" : L"value";
    f_title_caption = L"caption";
}

void Tvx_val_grid::load_res()
{
    f_title_value = vx_res_get_wstr(f_rule ? c_scl_rule : c_scl_value);
    f_title_caption = vx_res_get_wstr(c_scl_caption);
    if (f_rule_import_menu)
        f_rule_import_menu->load_res();
    load_grid_res(vx_res_get_wstr(f_rule ? c_scl_rules : c_scl_values));
}

// ---- the rows

void *Tvx_val_grid::scale_of(void *mngr) const
{
    return f_rule ? vx_stl_mngr_get_rule_scale_ptr(mngr) : vx_stl_mngr_get_val_scale_ptr(mngr);
}

unsigned Tvx_val_grid::get_n_row() const
{
    return vx_val_scale_get_size(get_scale());
}

bool Tvx_val_grid::get_row_marked(unsigned row) const
{
    return vx_val_scale_get_marked(get_scale(), row);
}

void Tvx_val_grid::set_row_marked(unsigned row, bool marked)
{
    vx_val_scale_set_marked(get_scale(), row, marked);
}

void Tvx_val_grid::unmark_all()
{
    for (unsigned i = 0, size = get_n_row(); i < size && can_delete(); ++i)
        set_row_marked(i, false);
}

bool Tvx_val_grid::can_delete() const
{
    return vx_val_scale_get_marked_count(get_scale()) > 0;
}

void *Tvx_val_grid::get_row_scale_prm_ptr(unsigned row) const
{
    return vx_val_scale_get_scale_prm_ptr(get_scale(), row);
}

bool Tvx_val_grid::move_entry(int from, int to)
{
    int const entry = row_at(from);
    if (entry < 0)
        return false;
    int const place = std::clamp(to - 1, 0, static_cast<int>(get_n_row()) - 1);
    vx_val_scale_move(get_scale(), static_cast<unsigned>(entry), static_cast<unsigned>(place));
    return true;
}

void Tvx_val_grid::run_gradient(Tvx_gradient_kind kind, unsigned first, unsigned last, bool sel)
{
    auto *const apply = kind == c_gradient_color          ? &vx_val_scale_clr_gradient
                        : kind == c_gradient_transparency ? &vx_val_scale_transparency_gradient
                                                          : &vx_val_scale_size_gradient;
    apply(get_scale(), first, last, sel);
}

// ---- the texts

UnicodeString Tvx_val_grid::title(int col) const
{
    return col == c_text_col ? f_title_value : f_title_caption;
}

std::wstring Tvx_val_grid::cell_text(unsigned row, int col) const
{
    std::wstring text;
    Tvx_std_wstring_adapter adapter(text);
    if (col == c_caption_col) {
        vx_val_scale_get_caption_w(get_scale(), row, adapter);
        return text;
    }
    vx_val_scale_get_text_w(get_scale(), row, adapter);
    return f_rule ? pretty_filter(text) : text;
}

std::wstring Tvx_val_grid::row_hint(unsigned row) const
{
    return vx::strutil::trim(cell_text(row, c_text_col), c_blanks) + L" : " +
           vx::strutil::trim(cell_text(row, c_caption_col), c_blanks);
}

bool Tvx_val_grid::is_edit_col(int col) const
{
    return col == c_caption_col || (col == c_text_col && !f_rule);
}

bool Tvx_val_grid::take_text(unsigned row, int col, char const *text)
{
    auto *const set = col == c_caption_col ? &vx_val_scale_set_caption : &vx_val_scale_set_text;
    set(get_scale(), row, text);
    return true;
}

// ---- commands

void Tvx_val_grid::on_double_click(TObject * /*sender*/)
{
    if (f_rule && GetCol() == c_text_col && get_current_row() >= 0)
        call_value_click(static_cast<unsigned>(get_current_row()));
}

void Tvx_val_grid::call_value_click(unsigned entry)
{
    std::wstring text;
    Tvx_std_wstring_adapter adapter(text);
    vx_val_scale_get_text_w(get_scale(), entry, adapter);
    if (!on_edit_value_item || !on_edit_value_item(text))
        return;
    vx_val_scale_set_text_w(get_scale(), entry, text.c_str());
    InvalidateGrid();
    call_changed();
}

void Tvx_val_grid::on_ins_action_execute(TObject * /*sender*/)
{
    auto *const scale = get_scale();
    if (!scale)
        return;
    int const pos = get_n_row() == 0 ? 0 : get_current_row();
    if (pos < 0)
        return;
    auto const index = static_cast<unsigned>(pos);
    if (f_rule) {
        std::wstring text;
        if (!on_edit_value_item || !on_edit_value_item(text))
            return;
        vx_val_scale_ins(scale, index);
        vx_val_scale_set_text_w(scale, index, text.c_str());
        if (!text.empty())
            vx_val_scale_set_caption_w(scale, index, pretty_filter(text).c_str());
    } else {
        vx_val_scale_ins(scale, index);
    }
    update_controls();
    call_changed();
}

void Tvx_val_grid::on_del_action_execute(TObject * /*sender*/)
{
    vx_val_scale_del_marked(get_scale());
    update_controls();
    call_changed();
}

// ---- menus

void Tvx_val_grid::call_title_menu(int col, TPoint at)
{
    call_name_menu(at.X, at.Y, col == c_caption_col);
}

void Tvx_val_grid::call_name_menu(int x, int y, bool caption)
{
    if (!f_rule || caption)
        return open_name_menu(x, y, caption, false);
    if (!prepare_menu())
        return;
    auto *const menu = need_menu(f_rule_import_menu);
    menu->set_stl_mngr(get_stl_mngr());
    menu->update_controls();
    menu->Popup(x, y);
}

void Tvx_val_grid::release_menus()
{
    Tvx_scale_grid::release_menus();
    release_menu(f_rule_import_menu);
}

Tvx_lib_symbol_style_event Tvx_val_grid::lib_symbol_event()
{
    return on_lib_symbol_style ? make_closure<&Tvx_val_grid::on_menu_lib_symbol_style>(this)
                               : Tvx_lib_symbol_style_event();
}

bool Tvx_val_grid::on_menu_lib_symbol_style(TObject * /*sender*/, int lib_idx, int code, void *stl_prm,
                                            bool sel, std::wstring &caption)
{
    vx_wait_cursor const waiting;
    return on_lib_symbol_style(this, lib_idx, code, stl_prm, sel, caption);
}
