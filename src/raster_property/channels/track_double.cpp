#include "raster_property/channels/track_double.h"

#include "controls/forms/event_off.h"

#include "platform/toolkit/core/new_on.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr int c_height = 50;
constexpr int c_edit_width = 90;
constexpr int c_steps = 1000;
constexpr int c_start = 50;
constexpr int c_thumb_length = 18;
constexpr int c_border = 2;
constexpr int c_line = 5; // of an arrow key: the thumb is seen to move
constexpr int c_page = 50;
constexpr double c_no_span = 1e-6;
/// A position that was made a value and comes back is the same position.
constexpr double c_rounding = 1e-6;
} // namespace

Tvx_track_double::Tvx_track_double(TComponent *owner) : Tvx_panel(owner)
{
    SetHeight(c_height);
    SetBorderWidth(c_border);
}

void Tvx_track_double::create()
{
    f_size = vx_new_on<Tvx_size_panel>(this, this);
    f_size->SetAlign(alTop);
    f_size->set_trim_trailing_zeros(true);
    f_size->set_edt_ctrl_width(c_edit_width);
    f_size->on_changed = make_closure<&Tvx_track_double::on_size_panel_change>(this);
    f_size->on_apply = make_closure<&Tvx_track_double::on_size_panel_apply>(this);
    f_track = vx_new_on<Tvx_track_bar>(this, this);
    f_track->SetTickStyle(tsNone);
    f_track->SetShowSelRange(false);
    f_track->SetThumbLength(c_thumb_length);
    f_track->SetMin(0);
    f_track->SetMax(c_steps);
    f_track->SetLineSize(c_line);
    f_track->SetPageSize(c_page);
    f_track->SetPosition(c_start);
    f_track->SetAlign(alClient);
    f_track->OnChange = make_closure<&Tvx_track_double::on_track_bar_change>(this);
    load_res();
}

void Tvx_track_double::load_res()
{
    set_caption(f_caption);
}

void Tvx_track_double::set_caption(UnicodeString const &caption)
{
    f_caption = caption;
    if (!f_size)
        return;
    f_size->set_text(caption);
    f_track->SetAccessibleName(caption);
}

void Tvx_track_double::update_controls()
{
    update_size_panel();
    update_track_bar();
}

void Tvx_track_double::update_track_bar()
{
    if (!f_track)
        return;
    double const span = f_max - f_min;
    double place = span > c_no_span ? (f_val - f_min) * c_steps / span : c_start;
    if (std::isinf(span)) // of two numbers that are far from 0 on both sides
        place = (f_val / 2 - f_min / 2) / (f_max / 2 - f_min / 2) * c_steps;
    if (!std::isfinite(place))
        place = c_start;
    vx::event_off const quiet(f_track->OnChange);
    f_track->SetPosition(static_cast<int>(std::clamp(place + c_rounding, 0.0, 1.0 * c_steps)));
}

void Tvx_track_double::update_size_panel()
{
    if (!f_size)
        return;
    vx::event_off const quiet(f_size->on_changed);
    f_size->set_size(f_val);
}

/// Bounds that came in the wrong order, or are no numbers, hold nothing back on their side.
double Tvx_track_double::held(double value) const
{
    if (value > f_max)
        value = f_max;
    return value < f_min ? f_min : value;
}

bool Tvx_track_double::take(double value)
{
    value = held(value);
    if (std::isnan(value) || value == f_val)
        return false;
    f_val = value;
    update_track_bar();
    on_val_changed(this);
    return true;
}

void Tvx_track_double::try_new_val(double value)
{
    (void)take(value);
    update_size_panel();
}

void Tvx_track_double::on_track_bar_change(TObject * /*sender*/)
{
    double const part = f_track->GetPosition() * 0.001;
    double const span = f_max - f_min;
    try_new_val(std::isfinite(span) ? f_min + part * span : f_min * (1 - part) + f_max * part);
    update_track_bar(); // also where the value cannot follow
}

void Tvx_track_double::on_size_panel_change(TObject * /*sender*/)
{
    (void)take(f_size->get_size());
}

void Tvx_track_double::on_size_panel_apply(TObject * /*sender*/)
{
    update_size_panel();
}
