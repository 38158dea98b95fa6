#include "platform/toolkit/bridge/detail/control_link.h"
#include "platform/toolkit/core/dock_manager.h"
#include "platform/toolkit/core/win_control.h"

#include <algorithm>

// Layout in the toolkit's order: the bars at the top, bottom, left and right take their slices of the client
// area, the client gets the rest, and what is not aligned follows its anchors.

namespace {
/// How often a layout starts anew because a handler changed something below it; a cycle of handlers ends
/// here.
constexpr int c_layout_rounds = 4;
} // namespace

void TWinControl::padding_changed(TObject *)
{
    Realign();
}

void TWinControl::Realign()
{
    AlignControl(nullptr);
}

void TWinControl::EnableAlign()
{
    if (f_align_level > 0 && --f_align_level == 0 && f_align_needed)
        Realign();
}

void TWinControl::AlignControl(TControl *control)
{
    if (IsDestroying())
        return;
    if (f_align_level > 0) {
        f_align_needed = true;
        return;
    }
    vx_control_guard const life(this);
    for (int round = 0; round < c_layout_rounds; ++round) {
        ++f_align_level;
        f_align_needed = false;
        TRect rect = GetClientRect();
        AlignControls(round == 0 ? control : nullptr, rect);
        if (life.expired())
            return;
        --f_align_level;
        if (!f_align_needed)
            break;
    }
    f_align_needed = false;
}

void TWinControl::AdjustClientRect(TRect &rect)
{
    rect.Left += f_padding.GetLeft();
    rect.Top += f_padding.GetTop();
    rect.Right -= f_padding.GetRight();
    rect.Bottom -= f_padding.GetBottom();
}

bool TWinControl::stands_before(TControl const *a, TControl const *b, TAlign align) const
{
    // Until the window exists, bars stand by the places that the program gave them; those that got none
    // follow in the order in which they came. Later they stand by the places that they have.
    auto const bounds = [this](TControl const *control) {
        TRect const r = control->GetBoundsRect();
        if (f_handle_allocated)
            return r;
        return Bounds(control->f_explicit_pos.X, control->f_explicit_pos.Y, r.Width(), r.Height());
    };
    TRect const first = bounds(a);
    TRect const second = bounds(b);
    switch (align) {
    case alTop:
        return first.Top < second.Top;
    case alBottom:
        return first.Bottom >= second.Bottom;
    case alLeft:
        return first.Left < second.Left;
    case alRight:
        return first.Right >= second.Right;
    default:
        return false;
    }
}

bool TWinControl::takes_part(TControl const *control, TAlign align)
{
    return control->f_align == align && (align == alNone || control->f_visible);
}

std::vector<TControl *> TWinControl::sorted_for(TAlign align, TControl *control) const
{
    std::vector<TControl *> sorted;
    sorted.reserve(f_controls.size());
    // The control that changed goes first among equals once the window exists: it was put there just now.
    bool const ahead =
        f_handle_allocated && control && control->f_parent == this && takes_part(control, align);
    if (ahead)
        sorted.push_back(control);
    for (TControl *const child : f_controls) {
        if (!takes_part(child, align) || (ahead && child == control))
            continue;
        auto const place = std::find_if(sorted.begin(), sorted.end(), [&](TControl const *other) {
            return stands_before(child, other, align);
        });
        sorted.insert(place, child);
    }
    return sorted;
}

void TWinControl::AlignControls(TControl *control, TRect &rect)
{
    AdjustClientRect(rect);
    // Handlers of `OnResize` may free or move away any control, this one too.
    vx_control_guard const life(this);
    auto const stands = [this](TControl const *child) {
        return std::find(f_controls.begin(), f_controls.end(), child) != f_controls.end();
    };
    auto const put = [&](TControl *child, TAlign align) {
        if (align == alNone)
            place_by_anchors(child);
        else
            place(child, rect);
    };
    // Most parents have one child of a kind, or none. What stands fast at the left and top has its place.
    // What a handler changes on the way is for the next round.
    struct
    {
        TControl *last = nullptr;
        int count = 0;
    } kinds[alCustom + 1];
    for (TControl *const child : f_controls)
        if (takes_part(child, child->f_align) &&
            (child->f_align != alNone || child->f_anchors != TAnchors{akLeft, akTop})) {
            kinds[child->f_align].last = child;
            ++kinds[child->f_align].count;
        }
    for (TAlign const align : {alTop, alBottom, alLeft, alRight, alClient, alNone}) {
        if (kinds[align].count == 1 && stands(kinds[align].last))
            put(kinds[align].last, align);
        else if (kinds[align].count > 1)
            for (TControl *const child : sorted_for(align, control)) {
                if (stands(child))
                    put(child, align);
                if (life.expired())
                    return;
            }
        if (life.expired())
            return;
    }
    if (f_use_dock_manager && f_dock_manager)
        f_dock_manager->ResetBounds();
    ControlsAligned();
    if (GetAutoSize())
        AdjustSize();
}

void TWinControl::place(TControl *control, TRect &rect)
{
    bool const margins = control->f_align_with_margins;
    int const left = margins ? control->f_margins.GetLeft() : 0;
    int const top = margins ? control->f_margins.GetTop() : 0;
    int const across = left + (margins ? control->f_margins.GetRight() : 0);
    int const along = top + (margins ? control->f_margins.GetBottom() : 0);
    TAlign const align = control->f_align;

    int width = std::max(rect.Width() - across, 0);
    int height = std::max(rect.Height() - along, 0);
    if (align == alTop || align == alBottom)
        height = control->GetHeight();
    if (align == alLeft || align == alRight)
        width = control->GetWidth();
    int x = rect.Left + left;
    int y = rect.Top + top;
    if (align == alBottom)
        y = rect.Bottom - along + top - height;
    if (align == alRight)
        x = rect.Right - across + left - width;

    if (!set_in_layout(control, Bounds(x, y, width, height)) || control->f_parent != this)
        return;

    // A control that took another size than it was given keeps to its side.
    int const real_width = control->GetWidth();
    int const real_height = control->GetHeight();
    if ((align == alRight && real_width != width) || (align == alBottom && real_height != height)) {
        if (!set_in_layout(control,
                           Bounds(align == alRight ? x + width - real_width : x,
                                  align == alBottom ? y + height - real_height : y, real_width, real_height)))
            return;
    }
    switch (align) {
    case alTop:
        rect.Top += real_height + along;
        break;
    case alBottom:
        rect.Bottom -= real_height + along;
        break;
    case alLeft:
        rect.Left += real_width + across;
        break;
    case alRight:
        rect.Right -= real_width + across;
        break;
    default:
        break;
    }
}

void TWinControl::place_by_anchors(TControl *control)
{
    TAnchors const anchors = control->f_anchors;
    if (anchors == TAnchors{akLeft, akTop})
        return;
    TRect const client = GetClientRect();
    TRect const &at = control->f_anchor_bounds;
    TSize const from = control->f_anchor_parent_size;

    // One axis: its two anchors, the place at anchoring, the sizes of the parent then and now.
    auto const axis = [](bool low, bool high, int start, int size, int old_room, int room) {
        if (low)
            return std::pair(start, high ? std::max(size + room - old_room, 0) : size);
        if (high)
            return std::pair(start + room - old_room, size);
        if (old_room == 0)
            return std::pair(start, size);
        long const middle = (2L * start + size) * room / old_room;
        return std::pair(static_cast<int>((middle - size) / 2), size);
    };
    auto const [x, width] = axis(anchors.Contains(akLeft), anchors.Contains(akRight), at.Left, at.Width(),
                                 from.cx, client.Width());
    auto const [y, height] = axis(anchors.Contains(akTop), anchors.Contains(akBottom), at.Top, at.Height(),
                                  from.cy, client.Height());
    set_in_layout(control, Bounds(x, y, width, height));
}

bool TWinControl::set_in_layout(TControl *control, TRect const &rect)
{
    vx_control_guard const life(control);
    control->f_in_layout = true;
    control->SetBoundsRect(rect);
    if (life.expired())
        return false;
    control->f_in_layout = false;
    return true;
}

void TWinControl::SizeChanged()
{
    vx_control_guard const life(this);
    Realign();
    if (!life.expired())
        TControl::SizeChanged();
}

void TWinControl::AdjustSize()
{
    if (!GetAutoSize())
        return;
    vx_control_guard const life(this);
    ++f_align_level;
    TControl::AdjustSize();
    if (life.expired())
        return;
    --f_align_level;
    if (f_align_level == 0 && f_align_needed)
        Realign();
}

bool TWinControl::CanAutoSize(int &width, int &height)
{
    // What the bars need adds up; what is not aligned needs the room up to its far edge.
    int bars_x = 0;
    int bars_y = 0;
    int far_x = 0;
    int far_y = 0;
    bool any = false;
    for (TControl const *const child : f_controls) {
        if (!child->GetVisible() || child->f_align == alCustom)
            continue;
        bool const margins = child->f_align_with_margins;
        int const w =
            child->GetWidth() + (margins ? child->f_margins.GetLeft() + child->f_margins.GetRight() : 0);
        int const h =
            child->GetHeight() + (margins ? child->f_margins.GetTop() + child->f_margins.GetBottom() : 0);
        any = true;
        switch (child->f_align) {
        case alTop:
        case alBottom:
            bars_y += h;
            break;
        case alLeft:
        case alRight:
            bars_x += w;
            break;
        case alClient:
            break;
        default:
            if (!child->f_anchors.Contains(akRight))
                far_x = std::max(far_x, child->GetBoundsRect().Right);
            if (!child->f_anchors.Contains(akBottom))
                far_y = std::max(far_y, child->GetBoundsRect().Bottom);
        }
    }
    if (!any)
        return false;
    TRect inner = Bounds(0, 0, width, height);
    AdjustClientRect(inner);
    int const frame_x = width - inner.Width();
    int const frame_y = height - inner.Height();
    // Edges of loose children are measured from the corner of the client area, so they hold its near border
    // already.
    if (bars_x > 0 || far_x > 0)
        width = std::max(bars_x > 0 ? bars_x + frame_x : 0, far_x > 0 ? far_x + frame_x - inner.Left : 0);
    if (bars_y > 0 || far_y > 0)
        height = std::max(bars_y > 0 ? bars_y + frame_y : 0, far_y > 0 ? far_y + frame_y - inner.Top : 0);
    return true;
}
