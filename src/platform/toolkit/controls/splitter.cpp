#include "platform/toolkit/controls/splitter.h"

#include "platform/toolkit/graphics/canvas.h"

#include <algorithm>

namespace {
constexpr int c_key_step = 8;
} // namespace

TSplitter::TSplitter(TComponent *owner) : TCustomControl(owner)
{
    SetTabStop(true);
    SetBounds(0, 0, 3, 100);
    SetAlign(alLeft);
    SetCursor(crHSplit);
}

bool TSplitter::upright() const
{
    return GetAlign() == alLeft || GetAlign() == alRight;
}

void TSplitter::SetMinSize(int size)
{
    f_min_size = std::max(size, 1);
}

TControl *TSplitter::find_control() const
{
    TWinControl const *parent = GetParent();
    if (!parent)
        return nullptr;
    TRect const own = GetBoundsRect();
    TControl *nearest = nullptr;
    int best = 0;
    for (int i = 0; i < parent->GetControlCount(); ++i) {
        TControl *control = parent->GetControls(i);
        if (control == this || !control->GetVisible() || control->GetAlign() != GetAlign())
            continue;
        TRect const other = control->GetBoundsRect();
        int distance = 0;
        switch (GetAlign()) {
        case alLeft:
            distance = own.Left - other.Right;
            break;
        case alRight:
            distance = other.Left - own.Right;
            break;
        case alTop:
            distance = own.Top - other.Bottom;
            break;
        case alBottom:
            distance = other.Top - own.Bottom;
            break;
        default:
            return nullptr;
        }
        if (distance >= 0 && (!nearest || distance < best)) {
            nearest = control;
            best = distance;
        }
    }
    return nearest;
}

void TSplitter::update_cursor()
{
    SetCursor(upright() ? crHSplit : crVSplit);
}

bool TSplitter::resize_by(int distance, bool apply)
{
    // A handler may have freed the control since the drag began.
    TWinControl const *parent = GetParent();
    bool found = false;
    for (int i = 0; parent && !found && i < parent->GetControlCount(); ++i)
        found = parent->GetControls(i) == f_control;
    if (!found)
        f_control = nullptr;
    if (!f_control)
        return false;
    bool const from_end = GetAlign() == alRight || GetAlign() == alBottom;
    int const current = upright() ? f_control->GetWidth() : f_control->GetHeight();
    // The client control, if there is one, is what gives way.
    int room = upright() ? GetParent()->GetClientWidth() : GetParent()->GetClientHeight();
    for (int i = 0; i < GetParent()->GetControlCount(); ++i) {
        TControl const *other = GetParent()->GetControls(i);
        bool const same_axis = upright() ? other->GetAlign() == alLeft || other->GetAlign() == alRight
                                         : other->GetAlign() == alTop || other->GetAlign() == alBottom;
        if (other != f_control && other->GetVisible() && same_axis)
            room -= upright() ? other->GetWidth() : other->GetHeight();
    }
    int size = f_start_size + (from_end ? -distance : distance);
    size = std::max(std::min(size, room - f_min_size), f_min_size);
    bool accept = true;
    auto const life = Life();
    OnCanResize(this, size, accept);
    if (life.expired() || !f_control || !accept || size == current)
        return false;
    f_pending = size;
    if (!apply)
        return false;
    TRect const at = f_control->GetBoundsRect();
    switch (GetAlign()) {
    case alLeft:
        f_control->SetWidth(size);
        break;
    case alTop:
        f_control->SetHeight(size);
        break;
    case alRight:
        f_control->SetBounds(at.Right - size, at.Top, size, at.Height());
        break;
    default:
        f_control->SetBounds(at.Left, at.Bottom - size, at.Width(), size);
        break;
    }
    return !life.expired();
}

void TSplitter::MouseDown(TMouseButton button, TShiftState shift, int x, int y)
{
    auto const life = Life();
    TCustomControl::MouseDown(button, shift, x, y);
    if (life.expired())
        return;
    if (button != mbLeft)
        return;
    update_cursor();
    f_control = find_control();
    if (!f_control)
        return;
    f_start_size = upright() ? f_control->GetWidth() : f_control->GetHeight();
    f_pending = f_start_size;
    f_down_point = ClientToScreen({x, y});
}

void TSplitter::MouseMove(TShiftState shift, int x, int y)
{
    auto const life = Life();
    TCustomControl::MouseMove(shift, x, y);
    if (life.expired())
        return;
    update_cursor();
    if (!f_control || !shift.Contains(ssLeft))
        return;
    // The bar moves with the control: only places on the screen can be compared.
    TPoint const at = ClientToScreen({x, y});
    resize_by(upright() ? at.X - f_down_point.X : at.Y - f_down_point.Y, f_resize_live);
}

void TSplitter::MouseUp(TMouseButton button, TShiftState shift, int x, int y)
{
    auto const life = Life();
    TCustomControl::MouseUp(button, shift, x, y);
    if (life.expired())
        return;
    if (button != mbLeft || !f_control)
        return;
    int const start = f_start_size;
    if (!f_resize_live) {
        TPoint const at = ClientToScreen({x, y});
        resize_by(upright() ? at.X - f_down_point.X : at.Y - f_down_point.Y, true);
        if (life.expired())
            return;
    }
    f_control = nullptr;
    if (f_pending != start)
        OnMoved(this);
}

bool TSplitter::WantsKey(Word key, TShiftState) const
{
    return key >= VK_LEFT && key <= VK_DOWN;
}

void TSplitter::KeyDown(Word &key, TShiftState shift)
{
    auto const life = Life();
    TCustomControl::KeyDown(key, shift);
    if (life.expired())
        return;
    int const back = upright() ? VK_LEFT : VK_UP;
    int const on = upright() ? VK_RIGHT : VK_DOWN;
    if (key != back && key != on)
        return;
    f_control = find_control();
    if (f_control) {
        f_start_size = upright() ? f_control->GetWidth() : f_control->GetHeight();
        bool const moved = resize_by(key == on ? c_key_step : -c_key_step, true);
        if (life.expired()) {
            key = 0;
            return;
        }
        f_control = nullptr;
        if (moved)
            OnMoved(this);
    }
    key = 0;
}

void TSplitter::DoEnter()
{
    auto const life = Life();
    TCustomControl::DoEnter();
    if (life.expired())
        return;
    Invalidate();
}

void TSplitter::DoExit()
{
    auto const life = Life();
    TCustomControl::DoExit();
    if (life.expired())
        return;
    Invalidate();
}

void TSplitter::Paint()
{
    TCanvas *canvas = GetCanvas();
    canvas->GetBrush()->SetColor(Focused() ? clHighlight : GetColor());
    canvas->FillRect(GetClientRect());
}
