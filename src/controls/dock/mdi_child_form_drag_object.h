#pragma once

#include "platform/base/export.h"
#include "platform/toolkit/core/drag_object.h"
#include "platform/toolkit/core/overlay_window.h"
#include "platform/toolkit/graphics/brush.h"

/// The drag of a document window: a frame where it would stand, above all windows, through which one sees and
/// clicks.
class VX_API Tvx_mdi_child_form_drag_object_ex : public TDragDockObject
{
public:
    explicit Tvx_mdi_child_form_drag_object_ex(TControl *control);

    [[nodiscard]] TBrush *GetBrush() { return &f_brush; }
    [[nodiscard]] int GetFrameWidth() const { return f_frame_width; }
    void SetFrameWidth(int width) { f_frame_width = width; }

    /// A picture is made only where the size has changed since the last one.
    void DrawDragDockImage() override;
    void EraseDragDockImage() override;
    [[nodiscard]] TOverlayWindow const &GetWindow() const { return f_window; }
    /// How many pictures have been made.
    [[nodiscard]] int GetDrawnCount() const { return f_drawn; }

private:
    TBrush f_brush;
    TOverlayWindow f_window;
    TSize f_size;
    int f_frame_width = 4;
    int f_drawn = 0;
};
