#include "style_manager/shell/stl_mngr_edit.h"

#include "captions/style_manager.h"
#include "controls/prop/image_convert.h"
#include "style_manager/shell/shell_pictures_priv.h"
#include "style_manager/widgets/detail/open_data.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/basic/vx_res.h"
#include "platform/basic/vx_wstrings.h"
#include "platform/dialogs/vx_dlgs.h"
#include "platform/layers/vx_lr.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/toolkit/core/new_on.h"

namespace {
constexpr int c_top_height = 22;
} // namespace

template <class Edit, class... Args>
Edit *Tvx_stl_mngr_edit::add_edit(Args... args)
{
    auto *const edit = vx_new_on<Edit>(this, this, args...);
    edit->create();
    edit->SetAlign(alClient);
    edit->on_changed = make_closure<&Tvx_stl_mngr_edit::on_edit_changed>(this);
    return edit;
}

template <class Act>
void Tvx_stl_mngr_edit::each_scale_editor(Act const &act)
{
    act(f_val_edit, c_style_mode_value);
    act(f_rng_edit, c_style_mode_range);
    act(f_rule_edit, c_style_mode_rule);
}

template <class Act>
void Tvx_stl_mngr_edit::each_editor(Act const &act)
{
    act(f_smp_edit, c_style_mode_simple);
    each_scale_editor(act);
}

void Tvx_stl_mngr_edit::create()
{
    DisableAlign();
    f_top_panel = vx_new_on<Tvx_panel>(this, this);
    f_top_panel->SetHeight(c_top_height);
    f_top_panel->SetAlign(alTop);
    f_mode_edit = vx_new_on<Tvx_style_mode_edit>(f_top_panel, this);
    f_mode_edit->create();
    f_mode_edit->SetAlign(alClient);
    f_mode_edit->on_changed = make_closure<&Tvx_stl_mngr_edit::on_style_mode_changed>(this);
    f_rotate_btn = vx_new_on<Tvx_bitbtn>(f_top_panel, this);
    f_rotate_btn->SetWidth(c_top_height);
    f_rotate_btn->SetAlign(alRight);
    f_rotate_btn->SetShowHint(true);
    f_rotate_btn->OnClick = make_closure<&Tvx_stl_mngr_edit::on_rotate_button_click>(this);
    f_smp_edit = add_edit<Tvx_smp_edit>();
    f_val_edit = add_edit<Tvx_val_edit>(false);
    f_rng_edit = add_edit<Tvx_rng_edit>();
    f_rule_edit = add_edit<Tvx_val_edit>(true);
    set_data_events({});
    set_on_draw_style({});
    set_on_edit_style({});
    set_on_lib_symbol_style({});
    set_on_edit_value_item({});
    show_nothing();
    EnableAlign();
}

void Tvx_stl_mngr_edit::load_res()
{
    UnicodeString const action = vx_res_get_wstr(c_stl_advanced);
    f_rotate_btn->SetHint(action);
    f_rotate_btn->SetAccessibleName(action);
    vx_glyph_get_res(f_rotate_btn->GetGlyph(), c_picture_rotate);
    f_mode_edit->load_res();
    each_editor([](auto *edit, Tvx_style_mode) { edit->load_res(); });
}

void Tvx_stl_mngr_edit::update_controls()
{
    static_cast<void>(show_mngr());
}

bool Tvx_stl_mngr_edit::show_mngr()
{
    if (!f_stl_mngr) {
        show_nothing();
        return true;
    }
    Tvx_style_mode const mode = vx_stl_mngr_get_mode(f_stl_mngr);
    set_style_mode(mode);
    f_mode_edit->SetVisible(true);
    f_rotate_btn->SetVisible(can_rotate_flag());
    each_editor([this](auto *edit, Tvx_style_mode) { edit->set_stl_mngr(f_stl_mngr); });
    return mode > c_style_mode_none || show_editor(mode);
}

void Tvx_stl_mngr_edit::show_nothing()
{
    set_style_mode(c_style_mode_simple);
    f_mode_edit->SetVisible(false);
    f_rotate_btn->SetVisible(false);
    each_editor([](auto *edit, Tvx_style_mode) {
        edit->set_stl_mngr(nullptr);
        edit->update_controls();
        edit->SetVisible(false);
    });
}

bool Tvx_stl_mngr_edit::show_editor(Tvx_style_mode mode)
{
    bool is_filled = true;
    // Only one of them takes the room at any time.
    each_editor([mode](auto *edit, Tvx_style_mode own) {
        if (mode != own)
            edit->SetVisible(false);
    });
    each_editor([mode](auto *edit, Tvx_style_mode own) {
        if (mode == own)
            edit->SetVisible(true);
    });
    if (mode == c_style_mode_range && vx_stl_mngr_get_need_scale(f_stl_mngr)) {
        auto const life = Life();
        auto *const mngr = f_stl_mngr;
        vx_stl_mngr_set_need_scale(mngr, false);
        is_filled = f_rng_edit->fill_scale();
        if (life.expired() || f_stl_mngr != mngr)
            return false;
        vx_stl_mngr_set_need_scale(mngr, !is_filled);
    }
    each_editor([mode](auto *edit, Tvx_style_mode own) {
        if (mode == own)
            edit->update_controls();
    });
    return is_filled;
}

void Tvx_stl_mngr_edit::set_style_mode(Tvx_style_mode mode)
{
    f_mode_edit->mode = mode;
    f_mode_edit->update_controls();
}

void Tvx_stl_mngr_edit::enable_selection_style(bool enabled)
{
    each_editor([enabled](auto *edit, Tvx_style_mode) { edit->enable_selection_style(enabled); });
}

void Tvx_stl_mngr_edit::set_mngr_style(char const *key)
{
    each_scale_editor([key](auto *edit, Tvx_style_mode) { edit->set_mngr_style(key); });
}

void Tvx_stl_mngr_edit::set_on_draw_style(Tvx_draw_style_event event)
{
    each_editor([event](auto *edit, Tvx_style_mode) { edit->set_on_draw_style(event); });
}

void Tvx_stl_mngr_edit::set_on_edit_style(Tvx_edit_style_event event)
{
    each_editor([event](auto *edit, Tvx_style_mode) { edit->set_on_edit_style(event); });
}

void Tvx_stl_mngr_edit::set_on_lib_symbol_style(Tvx_lib_symbol_style_event event)
{
    f_val_edit->set_on_lib_symbol_style(event);
    f_rule_edit->set_on_lib_symbol_style(event);
}

void Tvx_stl_mngr_edit::data_events_changed()
{
    each_scale_editor([this](auto *edit, Tvx_style_mode) { edit->set_data_events(get_data_events()); });
}

void Tvx_stl_mngr_edit::end_edit(bool taken)
{
    each_scale_editor([taken](auto *edit, Tvx_style_mode) { edit->get_grid()->end_edit(taken); });
}

void Tvx_stl_mngr_edit::save_current_scl()
{
    Tvx_style_mode const mode = vx_stl_mngr_get_mode(f_stl_mngr);
    each_scale_editor([mode](auto *edit, Tvx_style_mode own) {
        if (mode == own)
            edit->save_current_scl();
    });
}

void *Tvx_stl_mngr_edit::create_property_list()
{
    vx::owned<void, &vx_wstrings_destroy> names(vx_wstrings_create());
    Tvx_data_events const &data = get_data_events();
    if (!data.open || !data.get_np || !data.get_prop || !data.close)
        return names.release();
    open_data const opened(data, this);
    if (!opened)
        return names.release();
    unsigned const count = data.get_np(this);
    for (unsigned prop = 0; prop < count; ++prop) {
        bool usable = false;
        bool numeric = false;
        vx_wstrings_add(names.get(), UnicodeString(data.get_prop(this, prop, usable, numeric)).c_str());
    }
    return names.release();
}

void Tvx_stl_mngr_edit::on_rotate_button_click(TObject * /*sender*/)
{
    if (!f_stl_mngr)
        return;
    std::wstring file_name;
    if (f_lr)
        vx_lr_get_wfilename(f_lr, Tvx_std_wstring_adapter(file_name));
    vx_style_advansed_setting_dialog(f_stl_mngr, file_name.c_str());
}

void Tvx_stl_mngr_edit::on_style_mode_changed(TObject * /*sender*/)
{
    if (!f_stl_mngr)
        return;
    auto const life = Life();
    auto *const mngr = f_stl_mngr;
    Tvx_style_mode const former = vx_stl_mngr_get_mode(mngr);
    vx_stl_mngr_set_mode(mngr, f_mode_edit->mode);
    if (show_mngr())
        return call_changed();
    if (life.expired() || f_stl_mngr != mngr)
        return;
    // As if the mode had not been chosen.
    vx_stl_mngr_set_mode(mngr, former);
    update_controls();
}

void Tvx_stl_mngr_edit::on_edit_changed(TObject * /*sender*/)
{
    if (!f_stl_mngr)
        return;
    auto const life = Life();
    update_controls();
    if (!life.expired())
        call_changed();
}
