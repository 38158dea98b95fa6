#include "styles/libraries/style_libs_form.h"

#include "captions/libraries.h"
#include "styles/libraries/lib_panel.h"
#include "styles/libraries/libs_select_panel.h"

#include "platform/basic/vx_res.h"
#include "platform/dialogs/vx_msgs.h"
#include "platform/styles/vx_global_lib_styles.h"
#include "platform/styles/vx_style.h"
#include "platform/styles/vx_style_keys.h"
#include "platform/styles/vx_style_lib.h"

#include <string_view>

namespace {
constexpr int c_min_width = 640;
constexpr int c_min_height = 400;
constexpr int c_top_height = 32;

/// The style in an indexed style if that is of the kind of the key.
void *style_of_kind(void *idx_style, char const *key, void *(*style_ptr)(void *))
{
    char const *const type = vx_idx_style_get_type(idx_style);
    return type && std::string_view(type) == key ? style_ptr(idx_style) : nullptr;
}
} // namespace

bool Tvx_style_libs_form::fs_saved = false;
int Tvx_style_libs_form::fs_top = 0;
int Tvx_style_libs_form::fs_left = 0;
int Tvx_style_libs_form::fs_width = c_min_width;
int Tvx_style_libs_form::fs_height = c_min_height;
int Tvx_style_libs_form::fs_tree_width = 400;
int Tvx_style_libs_form::fs_lib = -1;
int Tvx_style_libs_form::fs_idx = -1;
int Tvx_style_libs_form::fs_ver = -1;

Tvx_style_libs_form::Tvx_style_libs_form(TComponent *owner)
    : Tvx_dlg_form(owner), f_top_panel(new Tvx_panel(this)), f_libs_panel(new Tvx_libs_select_panel(this)),
      f_lib_panel(new Tvx_lib_panel(this))
{
    if (fs_saved) {
        SetPosition(poDesigned);
        SetBounds(fs_left, fs_top, fs_width, fs_height);
    } else {
        SetPosition(poScreenCenter);
        SetBounds(0, 0, c_min_width, c_min_height);
    }
    GetConstraints()->SetMinWidth(c_min_width);
    GetConstraints()->SetMinHeight(c_min_height);
    f_top_panel->SetParent(get_content_panel());
    f_top_panel->SetHeight(c_top_height);
    f_top_panel->SetAlignWithMargins(true);
    f_top_panel->SetBevelOuter(bvLowered);
    f_top_panel->SetAlign(alTop);
    f_libs_panel->SetParent(f_top_panel);
    f_libs_panel->SetAlignWithMargins(true);
    f_libs_panel->SetAlign(alTop);
    f_libs_panel->on_changed = make_closure<&Tvx_style_libs_form::on_libs_changed>(this);
    f_lib_panel->SetParent(get_content_panel());
    f_lib_panel->SetAlign(alClient);
    f_lib_panel->set_tree_width(fs_tree_width);
    f_lib_panel->on_changed = make_closure<&Tvx_style_libs_form::on_lib_changed>(this);
}

Tvx_style_libs_form::~Tvx_style_libs_form()
{
    fs_saved = true;
    fs_top = GetTop();
    fs_left = GetLeft();
    fs_width = GetWidth();
    fs_height = GetHeight();
    fs_tree_width = f_lib_panel->get_tree_width();
    fs_lib = f_libs_panel->get_index();
    static_cast<void>(f_lib_panel->get_index_ver(fs_idx, fs_ver));
}

void Tvx_style_libs_form::load_res()
{
    Tvx_dlg_form::load_res();
    SetCaption(vx_res_get_wstr(c_lib_title));
    f_libs_panel->load_res();
    f_lib_panel->load_res();
}

void Tvx_style_libs_form::set_targets(void *pnt_style, void *pln_style, void *pgn_style)
{
    f_pnt_style = pnt_style;
    f_pln_style = pln_style;
    f_pgn_style = pgn_style;
}

void Tvx_style_libs_form::set_pnt_style(void *style)
{
    set_targets(style, nullptr, nullptr);
}

void Tvx_style_libs_form::set_pln_style(void *style)
{
    set_targets(nullptr, style, nullptr);
}

void Tvx_style_libs_form::set_pgn_style(void *style)
{
    set_targets(nullptr, nullptr, style);
}

void Tvx_style_libs_form::fill_lib_panel()
{
    f_lib_panel->set_lib(f_libs_panel->get_lib());
    f_lib_panel->load_res();
    f_lib_panel->update_controls();
    enable_disable();
}

void Tvx_style_libs_form::update_controls()
{
    f_libs_panel->set_libs(vx_global_lib_styles_get_libs());
    f_libs_panel->update_controls();
    fill_lib_panel();
}

void Tvx_style_libs_form::set_last_params()
{
    f_libs_panel->set_index(fs_lib);
    f_libs_panel->update_controls();
    // A large tree is not made twice.
    if (f_lib_panel->get_lib() != f_libs_panel->get_lib())
        fill_lib_panel();
    f_lib_panel->set_index_ver(fs_idx, fs_ver);
    enable_disable();
}

void Tvx_style_libs_form::no_libs_message()
{
    vx_show_wwarning(vx_res_get_wstr(c_lib_none));
}

void Tvx_style_libs_form::enable_disable()
{
    void *const active = f_lib_panel->get_active_style();
    get_apply_btn()->SetEnabled(
        (f_pnt_style && style_of_kind(active, c_pnt_style, &vx_idx_pnt_style_get_pnt_style_ptr)) ||
        (f_pln_style && style_of_kind(active, c_pln_style, &vx_idx_pln_style_get_pln_style_ptr)) ||
        (f_pgn_style && style_of_kind(active, c_pgn_style, &vx_idx_pgn_style_get_pgn_style_ptr)));
}

bool Tvx_style_libs_form::apply_click()
{
    void *const active = f_lib_panel->get_active_style();
    auto const take = [active](void *target, char const *key, void *(*style_ptr)(void *),
                               void (*assign)(void *, void const *)) {
        void *const style = target ? style_of_kind(active, key, style_ptr) : nullptr;
        if (style)
            assign(target, style);
        return style != nullptr;
    };
    return take(f_pnt_style, c_pnt_style, &vx_idx_pnt_style_get_pnt_style_ptr, &vx_pnt_style_assign) ||
           take(f_pln_style, c_pln_style, &vx_idx_pln_style_get_pln_style_ptr, &vx_pln_style_assign) ||
           take(f_pgn_style, c_pgn_style, &vx_idx_pgn_style_get_pgn_style_ptr, &vx_pgn_style_assign);
}

void Tvx_style_libs_form::on_libs_changed(TObject * /*sender*/)
{
    update_controls();
}

void Tvx_style_libs_form::on_lib_changed(TObject * /*sender*/)
{
    enable_disable();
}
