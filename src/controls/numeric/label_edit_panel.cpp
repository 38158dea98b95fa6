#include "controls/numeric/label_edit_panel.h"

#include "controls/forms/event_off.h"

#include "platform/toolkit/core/new_on.h"
#include "platform/toolkit/graphics/font.h"

#include <algorithm>

namespace {
constexpr int c_row_height = 20;
constexpr int c_edit_width = 70;
constexpr int c_end_width = 20;
/// Between the label's text and the edit, and between the edit and the end caption.
constexpr int c_gap = 3;
} // namespace

Tvx_label_edit_panel::Tvx_label_edit_panel(TComponent *owner)
    : Tvx_children_enabled_panel(owner), f_label(vx_new_for<Tvx_label>(this, this)),
      f_edit(vx_new_for<Tvx_edit>(this, this)), f_end_caption(vx_new_for<Tvx_label>(this, this)),
      f_fixed_width(c_edit_width), f_end_width(c_end_width)
{
    f_label->SetParent(this);
    f_label->SetAutoSize(false);
    f_label->SetLayout(tlCenter);
    f_label->SetFocusControl(f_edit);
    f_edit->SetParent(this);
    f_end_caption->SetParent(this);
    f_end_caption->SetAutoSize(false);
    f_end_caption->SetLayout(tlCenter);
    f_end_caption->SetShowAccelChar(false);
    f_end_caption->SetVisible(false);
    SetHeight(c_row_height);
    place();
}

void Tvx_label_edit_panel::Resize()
{
    Tvx_children_enabled_panel::Resize();
    place();
}

void Tvx_label_edit_panel::place()
{
    int const width = GetClientWidth();
    int const height = GetClientHeight();
    int const end_width = std::max(f_end_width, f_end_text_width + c_gap);
    int const end_room = f_end_caption->GetVisible() ? end_width : 0;
    // What stands behind the edit goes with it.
    int const room = std::max(width - end_room - f_side_width, 0);
    bool const above = f_has_label && f_top_location == 1;
    int const top = above ? std::min(c_row_height, height) : 0;
    int left = 0;
    int edit_width = room;
    if (above) {
        if (!f_label_fixed && f_fixed_width >= 0)
            edit_width = std::min(f_fixed_width, room);
        f_label->SetBounds(0, 0, width, top);
    } else if (f_has_label) {
        left = std::clamp(f_label_fixed ? f_fixed_width : room - f_fixed_width, 0, room);
        edit_width = room - left;
        f_label->SetBounds(0, 0, std::max(left - c_gap, 0), height);
    }
    f_label->SetVisible(f_has_label);
    f_edit->SetBounds(left, top, edit_width, height - top);
    int right = left + edit_width;
    if (f_side) {
        f_side->SetBounds(right, top, f_side_width, height - top);
        right += f_side_width;
    }
    f_end_caption->SetBounds(right + c_gap, top, end_width - c_gap, height - top);
}

int Tvx_label_edit_panel::get_edt_ctrl_width() const
{
    return f_edit->GetWidth();
}

void Tvx_label_edit_panel::set_edt_ctrl_width(int width)
{
    f_fixed_width = std::max(width, 0);
    f_label_fixed = false;
    place();
}

int Tvx_label_edit_panel::label_width() const
{
    return f_label_fixed ? f_fixed_width : f_edit->GetLeft();
}

void Tvx_label_edit_panel::set_label_width(int width)
{
    f_fixed_width = std::max(width, 0);
    f_label_fixed = true;
    place();
}

void Tvx_label_edit_panel::set_label_text(UnicodeString const &text)
{
    f_label->SetCaption(text);
    f_edit->SetAccessibleName(text);
}

UnicodeString Tvx_label_edit_panel::get_end_caption() const
{
    return f_end_caption->GetCaption();
}

void Tvx_label_edit_panel::set_end_caption(UnicodeString const &caption)
{
    f_end_caption->SetCaption(caption);
    f_end_caption->SetAutoSize(true);
    f_end_text_width = caption.IsEmpty() ? 0 : f_end_caption->GetWidth();
    f_end_caption->SetAutoSize(false);
    place();
}

bool Tvx_label_edit_panel::get_end_caption_visible() const
{
    return f_end_caption->GetVisible();
}

void Tvx_label_edit_panel::set_end_caption_visible(bool visible)
{
    f_end_caption->SetVisible(visible);
    place();
}

int Tvx_label_edit_panel::get_end_caption_width() const
{
    return f_end_width;
}

void Tvx_label_edit_panel::set_end_caption_width(int width)
{
    f_end_width = std::max(width, 0);
    place();
}

void Tvx_label_edit_panel::set_top_location(int location)
{
    if (location != 0 && location != 1)
        return;
    f_top_location = location;
    SetHeight(location == 1 ? 2 * c_row_height : c_row_height);
    place();
}

void Tvx_label_edit_panel::set_has_label(bool has_label)
{
    f_has_label = has_label;
    place();
}

TColor Tvx_label_edit_panel::get_font_color() const
{
    return f_edit->GetFont()->GetColor();
}

void Tvx_label_edit_panel::set_font_color(TColor color)
{
    f_edit->GetFont()->SetColor(color);
}

void Tvx_label_edit_panel::set_side_control(TWinControl *control)
{
    f_side = control;
    f_side_width = control->GetWidth();
    place();
}

void Tvx_label_edit_panel::set_side_width(int width)
{
    f_side_width = std::max(width, 0);
    place();
}

void Tvx_label_edit_panel::set_quiet_text(UnicodeString const &text)
{
    vx::event_off const quiet(f_edit->OnChange);
    f_edit->SetText(text);
}
