#include "style_manager/shell/style_avl_panel.h"

#include "captions/style_manager.h"
#include "controls/prop/image_convert.h"
#include "data/filesystem/filesystem.h"
#include "style_manager/shell/shell_pictures_priv.h"
#include "style_manager/shell/vx2gp_env.h"

#include "platform/base/ascii_case.h"
#include "platform/base/owned.h"
#include "platform/base/text_codec.h"
#include "platform/basic/vx_res.h"
#include "platform/dialogs/file_dialogs.h"
#include "platform/dialogs/vx_msgs.h"
#include "platform/storage/vx_gis_prg.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_style_keys.h"
#include "platform/toolkit/core/new_on.h"

#include <algorithm>

namespace {
constexpr int c_height = 22;
constexpr wchar_t c_suffix[] = L".avl";

/// The legend that was meant by the name that was chosen: a file ".AVL" is one too.
std::wstring legend_file(std::wstring const &chosen)
{
    auto const suffix = vx::text::wide_to_utf8(vx::filesystem::extension(chosen));
    return vx::text::ascii_same(suffix, ".avl") && vx::filesystem::path_exist(chosen)
               ? chosen
               : vx::filesystem::change_extension(chosen, c_suffix);
}

using owned_params = vx::owned<gp_avl_to_stlmgr_params, &gp_avl_to_stlmgr_params_destroy>;
} // namespace

Tvx_style_avl_panel::Tvx_style_avl_panel(TComponent *owner) : Tvx_caption_panel(owner)
{
    SetHeight(c_height);
}

void Tvx_style_avl_panel::create()
{
    f_btn = vx_new_on<Tvx_bitbtn>(this, this);
    f_btn->SetWidth(c_height);
    f_btn->SetAlign(alRight);
    f_btn->SetShowHint(true);
    f_btn->OnClick = make_closure<&Tvx_style_avl_panel::on_btn_click>(this);
    set_focus_control(f_btn);
}

void Tvx_style_avl_panel::load_res()
{
    UnicodeString const caption = vx_res_get_wstr(c_stl_load_avl);
    set_caption(caption);
    f_btn->SetHint(caption);
    f_btn->SetAccessibleName(caption);
    vx_glyph_get_res(f_btn->GetGlyph(), c_picture_open_legend);
}

void Tvx_style_avl_panel::update_controls()
{
    char const *const type = vx_stl_mngr_get_style_type(f_stl_mngr);
    SetVisible(type &&
               std::ranges::any_of(std::initializer_list{c_pnt_style, c_pln_style, c_pgn_style},
                                   [type](char const *key) { return vx::text::ascii_same(type, key); }));
}

void Tvx_style_avl_panel::on_btn_click(TObject * /*sender*/)
{
    if (!f_stl_mngr)
        return;
    TOpenDialog dialog(nullptr);
    dialog.SetDefaultExt(L"*.avl");
    dialog.SetFilter(vx_res_get_wstr(c_stl_avl_files));
    if (!dialog.Execute(GetHandle()))
        return;
    UnicodeString const file = legend_file(dialog.GetFileName().str());
    owned_params const params(gp_avl_to_stlmgr_params_create());
    gp_avl_to_stlmgr_params_set_filename(params.get(), file.to_bytes().c_str());
    gp_avl_to_stlmgr_params_set_stl_mngr(params.get(), f_stl_mngr);
    int result = c_gp_ok;
    {
        Tvx_vx2gp_env const environment;
        result = gp_avl_to_stlmngr_execute(params.get());
        vx_stl_mngr_set_just_loaded(f_stl_mngr, true);
    }
    if (result != c_gp_ok)
        vx_show_werror(vx_res_get_wstr(c_stl_avl_error));
    else
        on_changed(this);
}
