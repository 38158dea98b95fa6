#include "style_manager/shell/typed_stl_mngr_edits.h"

#include "styles/preview/style_example.h"
#include "styles/simple/style_dialog.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_wstrings.h"
#include "platform/styles/vx_global_lib_styles.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_stl_prm.h"
#include "platform/styles/vx_style_keys.h"
#include "platform/styles/vx_style_lib.h"

namespace {
// A colour is a style like the others, behind a typed pointer.
void *get_color(void *stl_prm, bool sel)
{
    return vx_stl_prm_get_clr_style_ptr(stl_prm, sel);
}
void draw_color(void *style, TBitmap *bitmap)
{
    vx_clr_style_example_bmp(static_cast<Tvx_color *>(style), bitmap);
}
bool edit_color(int x, int y, void *style)
{
    return vx_clr_style_dialog(x, y, static_cast<Tvx_color *>(style));
}
} // namespace

void Tvx_typed_stl_mngr_edit::create()
{
    Tvx_stl_mngr_edit::create();
    set_mngr_style(f_type.mngr_style);
    set_on_draw_style(make_closure<&Tvx_typed_stl_mngr_edit::on_self_draw_style>(this));
    set_on_edit_style(make_closure<&Tvx_typed_stl_mngr_edit::on_self_edit_style>(this));
    if (f_type.get_symbol)
        set_on_lib_symbol_style(make_closure<&Tvx_typed_stl_mngr_edit::on_self_lib_symbol_style>(this));
}

void Tvx_typed_stl_mngr_edit::on_self_draw_style(TObject * /*sender*/, TBitmap *bitmap, void *stl_prm,
                                                 bool sel)
{
    f_type.draw(f_type.get(stl_prm, sel), bitmap);
}

bool Tvx_typed_stl_mngr_edit::on_self_edit_style(TObject * /*sender*/, int x, int y, void *stl_prm, bool sel)
{
    void *const style = f_type.get(stl_prm, sel);
    if (!f_type.edit_text)
        return f_type.edit(x, y, style);
    vx::owned<void, &vx_wstrings_destroy> const properties(create_property_list());
    return f_type.edit_text(x, y, style, properties.get());
}

bool Tvx_typed_stl_mngr_edit::on_self_lib_symbol_style(TObject * /*sender*/, int lib_idx, int code,
                                                       void *stl_prm, bool sel, std::wstring &caption)
{
    if (!f_type.get_symbol(lib_idx, code, f_type.get(stl_prm, sel)))
        return false;
    void const *const item = vx_global_lib_styles_get_spec_style_item(lib_idx, code);
    caption = item ? vx_style_item_get_caption_w(item) : L"";
    return true;
}

Tvx_pnt_stl_mngr_edit::Tvx_pnt_stl_mngr_edit(TComponent *owner)
    : Tvx_typed_stl_mngr_edit(owner,
                              {c_pnt_mngr_style, &vx_stl_prm_get_pnt_style_ptr, &vx_pnt_style_example_bmp,
                               &vx_pnt_style_dialog, nullptr, &vx_global_lib_styles_get_spec_pnt})
{
}

Tvx_pln_stl_mngr_edit::Tvx_pln_stl_mngr_edit(TComponent *owner)
    : Tvx_typed_stl_mngr_edit(owner,
                              {c_pln_mngr_style, &vx_stl_prm_get_pln_style_ptr, &vx_pln_style_example_bmp,
                               &vx_pln_style_dialog, nullptr, &vx_global_lib_styles_get_spec_pln})
{
}

Tvx_pgn_stl_mngr_edit::Tvx_pgn_stl_mngr_edit(TComponent *owner)
    : Tvx_typed_stl_mngr_edit(owner,
                              {c_pgn_mngr_style, &vx_stl_prm_get_pgn_style_ptr, &vx_pgn_style_example_bmp,
                               &vx_pgn_style_dialog, nullptr, &vx_global_lib_styles_get_spec_pgn})
{
}

Tvx_clr_stl_mngr_edit::Tvx_clr_stl_mngr_edit(TComponent *owner)
    : Tvx_typed_stl_mngr_edit(owner,
                              {c_clr_mngr_style, &get_color, &draw_color, &edit_color, nullptr, nullptr})
{
}

void Tvx_clr_stl_mngr_edit::set_style_mngr_mode(Tvx_style_mode mode)
{
    vx_clr_stl_mngr_set_style_mngr_mode(get_clr_stl_mngr(), mode);
}

void Tvx_txt_stl_mngr_edit::on_common_click(TObject * /*sender*/)
{
    if (void *const mngr = get_txt_stl_mngr())
        vx_txt_common_style_dialog(0, 0, mngr);
}

Tvx_txt_pnt_stl_mngr_edit::Tvx_txt_pnt_stl_mngr_edit(TComponent *owner)
    : Tvx_txt_stl_mngr_edit(owner, {c_txt_pnt_mngr_style, &vx_stl_prm_get_txt_pnt_style_ptr,
                                    &vx_txt_style_example_bmp, nullptr, &vx_txt_pnt_style_dialog, nullptr})
{
}

Tvx_txt_pln_stl_mngr_edit::Tvx_txt_pln_stl_mngr_edit(TComponent *owner)
    : Tvx_txt_stl_mngr_edit(owner, {c_txt_pln_mngr_style, &vx_stl_prm_get_txt_pln_style_ptr,
                                    &vx_txt_style_example_bmp, nullptr, &vx_txt_pln_style_dialog, nullptr})
{
}

Tvx_txt_pgn_stl_mngr_edit::Tvx_txt_pgn_stl_mngr_edit(TComponent *owner)
    : Tvx_txt_stl_mngr_edit(owner, {c_txt_pgn_mngr_style, &vx_stl_prm_get_txt_pgn_style_ptr,
                                    &vx_txt_style_example_bmp, nullptr, &vx_txt_pgn_style_dialog, nullptr})
{
}

Tvx_txt_tos_2crd_stl_mngr_edit::Tvx_txt_tos_2crd_stl_mngr_edit(TComponent *owner)
    : Tvx_txt_stl_mngr_edit(owner, {c_txt_pnt_mngr_style, &vx_stl_prm_get_txt_pnt_style_ptr,
                                    &vx_txt_style_example_bmp, nullptr, &vx_txt_pnt_style_dialog, nullptr})
{
}
