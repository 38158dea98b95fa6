#include "controls/numeric/fast_int_panel.h"

#include "controls/forms/event_off.h"

#include "platform/toolkit/core/new_on.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr int c_row_height = 20;
constexpr int c_ticks = 10;
constexpr int c_thumb_length = 10;
} // namespace

Tvx_fast_int_panel::Tvx_fast_int_panel(TComponent *owner)
    : Tvx_children_enabled_panel(owner), f_top(vx_new_for<Tvx_panel>(this, this)),
      f_size(new Tvx_size_panel(this)), f_updown(new Tvx_updown(this)),
      f_track(vx_new_for<Tvx_track_bar>(this, this))
{
    SetHeight(2 * c_row_height);
    f_top->SetParent(this);
    f_top->SetHeight(c_row_height);
    f_top->SetAlign(alTop);
    f_updown->SetParent(f_top);
    f_updown->SetAlign(alRight);
    f_size->SetParent(f_top);
    f_size->SetAlign(alClient);
    f_size->set_precision(0);
    f_track->SetParent(this);
    f_track->SetTickStyle(tsManual);
    f_track->SetShowSelRange(false);
    f_track->SetThumbLength(c_thumb_length);
    f_track->SetAlign(alClient);
    f_size->on_changed = make_closure<&Tvx_fast_int_panel::on_size_changed>(this);
    f_size->on_apply = make_closure<&Tvx_fast_int_panel::on_size_apply>(this);
    f_updown->OnClick = make_closure<&Tvx_fast_int_panel::on_updown_click>(this);
    f_track->OnChange = make_closure<&Tvx_fast_int_panel::on_track_change>(this);
    update_controls();
}

void Tvx_fast_int_panel::set_caption(UnicodeString const &caption)
{
    f_size->set_text(caption);
    f_track->SetAccessibleName(caption);
}

void Tvx_fast_int_panel::update_controls()
{
    vx::event_off const quiet_track(f_track->OnChange);
    vx::event_off const quiet_updown(f_updown->OnClick);
    // The user counts from 1: a least position of -1 is his 0.
    f_size->set_min(f_min < -1 ? f_min : 0);
    int const step = static_cast<int>((static_cast<long long>(f_max) - f_min) / c_ticks);
    f_track->SetMin(f_min);
    f_track->SetMax(f_max);
    f_track->SetFrequency(step);
    f_track->SetPageSize(std::max(step, 1));
    f_updown->SetMin(f_min);
    f_updown->SetMax(f_max);
    show_position();
}

void Tvx_fast_int_panel::show_position()
{
    vx::event_off const quiet_track(f_track->OnChange);
    f_size->set_size(f_position + 1.0);
    f_track->SetPosition(f_position);
    f_updown->SetPosition(f_position);
}

void Tvx_fast_int_panel::take_position(int position)
{
    if (position == f_position)
        return;
    f_position = position;
    show_position();
    call_changed();
}

void Tvx_fast_int_panel::on_updown_click(TObject * /*sender*/, TUDBtnType /*button*/)
{
    take_position(f_updown->GetPosition());
}

void Tvx_fast_int_panel::on_track_change(TObject * /*sender*/)
{
    take_position(f_track->GetPosition());
}

void Tvx_fast_int_panel::on_size_changed(TObject * /*sender*/)
{
    double const size = f_size->get_size();
    // A sign alone is a number on its way.
    if (size == f_position + 1.0 || f_size->get_edit()->GetText() == L"-")
        return;
    // So is a number whose next digit may bring it into the range.
    bool const on_its_way = size >= 0 ? size - 1.0 < f_min : size - 1.0 > std::max(f_min, f_max);
    if (!on_its_way)
        take_size(size);
}

/// The nearest position that there is.
void Tvx_fast_int_panel::take_size(double size)
{
    double const least = f_min;
    double const largest = std::max(f_min, f_max);
    auto const taken = static_cast<int>(std::clamp(std::trunc(size) - 1.0, least, largest));
    if (taken == f_position)
        show_position();
    else
        take_position(taken);
}

void Tvx_fast_int_panel::on_size_apply(TObject * /*sender*/)
{
    // An edit that was left empty, or with a sign alone, shows the number again.
    if (f_size->is_empty() || f_size->get_edit()->GetText() == L"-")
        show_position();
    else
        take_size(f_size->get_size());
}
