#include "controls/numeric/size_updown_panels.h"

#include "controls/forms/event_off.h"

#include "platform/toolkit/core/new_on.h"

Tvx_updown_panel::Tvx_updown_panel(TComponent *owner)
    : Tvx_size_panel(owner), f_updown(vx_new_for<Tvx_updown>(this, this))
{
    f_updown->SetParent(this);
    f_updown->OnClick = make_closure<&Tvx_updown_panel::on_updown_click>(this);
    set_side_control(f_updown);
}

void Tvx_updown_panel::on_updown_click(TObject * /*sender*/, TUDBtnType button)
{
    SetTag(GetTag() + (button == btNext ? 1 : -1));
    stepped();
    on_updown_changed(this);
}

Tvx_size_updown_panel::Tvx_size_updown_panel(TComponent *owner) : Tvx_updown_panel(owner)
{
    vx::event_off const quiet(get_edit()->OnChange);
    get_updown()->SetAssociate(get_edit());
    // Tying moved the buttons beside the edit as if they stood alone.
    place();
}

void Tvx_size_updown_panel::set_min_pos(int min)
{
    vx::event_off const quiet(get_edit()->OnChange);
    set_min(min);
    get_updown()->SetMin(min);
    read_text();
}

void Tvx_size_updown_panel::set_max_pos(int max)
{
    vx::event_off const quiet(get_edit()->OnChange);
    set_max(max);
    get_updown()->SetMax(max);
    read_text();
}

void Tvx_size_updown_panel::set_position(int position)
{
    vx::event_off const quiet(get_edit()->OnChange);
    get_updown()->SetPosition(position);
    read_text();
}

Tvx_edit_val_updown_panel::Tvx_edit_val_updown_panel(TComponent *owner) : Tvx_updown_panel(owner)
{
}

void Tvx_edit_val_updown_panel::set_position(int position)
{
    get_updown()->SetPosition(position);
    set_size(position);
}

void Tvx_edit_val_updown_panel::stepped()
{
    set_size(get_position());
    f_change_by_updown = true;
}
