#include "controls/dock/mdi_child_form_drag_object.h"

#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/canvas.h"

namespace {
/// What is not part of the frame.
constexpr TColor c_hole = 0x0000FF00;
} // namespace

Tvx_mdi_child_form_drag_object_ex::Tvx_mdi_child_form_drag_object_ex(TControl *control)
    : TDragDockObject(control)
{
    f_brush.SetColor(clGray);
}

void Tvx_mdi_child_form_drag_object_ex::DrawDragDockImage()
{
    TRect const place = GetDockRect();
    if (place.IsEmpty())
        return EraseDragDockImage();
    TSize const size{place.Width(), place.Height()};
    if (size == f_size)
        return f_window.Move({place.Left, place.Top});
    TBitmap picture;
    picture.SetSize(size.cx, size.cy);
    picture.GetCanvas()->SetBrush(&f_brush);
    picture.GetCanvas()->FillRect(Rect(0, 0, size.cx, size.cy));
    TRect inside = Rect(0, 0, size.cx, size.cy);
    inside.Inflate(-f_frame_width, -f_frame_width);
    picture.GetCanvas()->GetBrush()->SetColor(c_hole);
    if (!inside.IsEmpty())
        picture.GetCanvas()->FillRect(inside);
    f_window.Update({place.Left, place.Top}, picture, c_hole);
    f_size = size;
    ++f_drawn;
}

void Tvx_mdi_child_form_drag_object_ex::EraseDragDockImage()
{
    f_window.Hide();
}
