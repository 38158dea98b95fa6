#include "style_manager/widgets/style_panel.h"

#include "captions/style_manager.h"

#include "platform/basic/vx_res.h"
#include "platform/toolkit/core/new_on.h"

namespace {
constexpr int c_height = 26;
}

Tvx_style_panel::Tvx_style_panel(TComponent *owner) : Tvx_basic_pnl(owner)
{
    SetHeight(c_height);
}

void Tvx_style_panel::create()
{
    f_label = vx_new_on<Tvx_label>(this, this);
    f_label->SetLeft(2);
    f_label->SetTop(2);
    auto const add = [this](bool selected) {
        auto *const button = vx_new_on<Tvx_style_btn>(this, this);
        button->SetWidth(c_height);
        button->SetAlign(alRight);
        button->SetLeft(GetWidth()); // at the right of the one before
        button->selected = selected;
        return button;
    };
    f_btn = add(false);
    f_btn_s = add(true);
    f_btn->SetTabOrder(0);
    f_btn->on_changed = make_closure<&Tvx_style_panel::on_btn_changed>(this);
    f_btn_s->on_changed = make_closure<&Tvx_style_panel::on_btn_s_changed>(this);
}

void Tvx_style_panel::load_res()
{
    f_label->SetCaption(vx_res_get_wstr(c_stl_style));
    f_btn->load_res();
    f_btn_s->load_res();
}

void Tvx_style_panel::update_controls()
{
    f_btn->update_controls();
    f_btn_s->update_controls();
}

void Tvx_style_panel::set_caption(UnicodeString const &caption)
{
    f_label->SetCaption(caption);
}

void Tvx_style_panel::set_stl_prm(void *stl_prm)
{
    f_btn->stl_prm = stl_prm;
    f_btn_s->stl_prm = stl_prm;
}

void Tvx_style_panel::set_on_draw_style(Tvx_draw_style_event event)
{
    f_btn->on_draw_style = event;
    f_btn_s->on_draw_style = event;
}

void Tvx_style_panel::set_on_edit_style(Tvx_edit_style_event event)
{
    f_btn->on_edit_style = event;
    f_btn_s->on_edit_style = event;
}

void Tvx_style_panel::enable_selection_style(bool enabled)
{
    f_btn_s->SetVisible(enabled);
    if (enabled)
        f_btn_s->SetLeft(GetWidth());
}

void Tvx_style_panel::on_btn_changed(TObject * /*sender*/)
{
    call_changed();
}

void Tvx_style_panel::on_btn_s_changed(TObject * /*sender*/)
{
    call_changed();
}
