#pragma once

#include "platform/toolkit/grids/custom_grid.h"

struct vx_native_widget;

/// What a grid has in the window system: its scroll bars and the timer of scrolling while the mouse is
/// outside.
struct TCustomGrid::native
{
    explicit native(TCustomGrid *grid);
    native(native const &) = delete;
    native &operator=(native const &) = delete;
    ~native();

    /// Thickness of the bars that are shown; 0 for one that is not.
    [[nodiscard]] int bar_width() const;
    [[nodiscard]] int bar_height() const;
    void set_timer(bool on);

    struct parts;
    std::unique_ptr<parts> p;
};
