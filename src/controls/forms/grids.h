#pragma once

#include "platform/base/export.h"
#include "platform/toolkit/grids/color_grid.h"
#include "platform/toolkit/grids/draw_grid.h"
#include "platform/toolkit/grids/string_grid.h"

/// A grid with hints. A notch of the mouse wheel moves the top row by one, within the movable rows.
class VX_API Tvx_custom_grid : public TCustomGrid
{
public:
    explicit Tvx_custom_grid(TComponent *owner);

protected:
    bool DoMouseWheelDown(TShiftState shift, TPoint const &mouse_pos) override;
    bool DoMouseWheelUp(TShiftState shift, TPoint const &mouse_pos) override;
};

/// With the mouse wheel of `Tvx_custom_grid`.
class VX_API Tvx_string_grid : public TStringGrid
{
public:
    using TStringGrid::TStringGrid;

protected:
    bool DoMouseWheelDown(TShiftState shift, TPoint const &mouse_pos) override;
    bool DoMouseWheelUp(TShiftState shift, TPoint const &mouse_pos) override;
};

class VX_API Tvx_vcl_string_grid : public TStringGrid
{
public:
    using TStringGrid::TStringGrid;
};

class VX_API Tvx_draw_grid : public TDrawGrid
{
public:
    using TDrawGrid::TDrawGrid;
};

class VX_API Tvx_color_grid : public TColorGrid
{
public:
    using TColorGrid::TColorGrid;
};
