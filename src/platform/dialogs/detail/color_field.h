#pragma once

#include "platform/base/color.h"
#include "platform/base/export.h"
#include "platform/toolkit/core/custom_control.h"
#include "platform/toolkit/graphics/bitmap.h"

#include <vector>

namespace vx::dialogs {
/// A colour by hue, saturation and value, each 0 to 1. Keeps the hue of a grey and the saturation of black.
struct hsv
{
    double h = 0.0;
    double s = 0.0;
    double v = 0.0;
};
/// Opaque. The hue circle begins and ends with red.
[[nodiscard]] VX_API Tvx_color to_color(hsv const &value);
/// `former` gives what the colour itself does not tell.
[[nodiscard]] VX_API hsv to_hsv(Tvx_color color, hsv const &former);

/// `color` over the check pattern that stands for what lies behind it, in cells of 6 pixels.
void fill_checked(TCanvas *canvas, TRect const &rect, Tvx_color color);

/// Base of the areas that are picked in: the left button, held and moved, or the arrow keys (with Ctrl a
/// tenth of the area at a time).
class pick_area : public TCustomControl
{
public:
    /// The user picked.
    TNotifyEvent on_pick;

protected:
    explicit pick_area(TComponent *owner);

    /// From the pointer, held within the area.
    virtual void pick_at(int x, int y) = 0;
    /// By steps, x to the right and y downwards.
    virtual void step(int x, int y) = 0;
    void MouseDown(TMouseButton button, TShiftState shift, int x, int y) override;
    void MouseMove(TShiftState shift, int x, int y) override;
    void MouseUp(TMouseButton button, TShiftState shift, int x, int y) override;
    void KeyDown(Word &key, TShiftState shift) override;
    [[nodiscard]] bool WantsKey(Word key, TShiftState shift) const override;
    void DoEnter() override;
    void DoExit() override;
    void paint_frame();

private:
    bool f_picking = false;
};

/// All colours of a hue: saturation to the right, value upwards.
class color_square final : public pick_area
{
public:
    explicit color_square(TComponent *owner) : pick_area(owner) {}

    void set_value(hsv const &value);
    [[nodiscard]] hsv const &get_value() const { return f_value; }

protected:
    void Paint() override;
    void pick_at(int x, int y) override;
    void step(int x, int y) override;

private:
    void render();

    hsv f_value;
    double f_rendered_hue = -1.0;
    TBitmap f_bitmap;
};

/// A number from 0, at the bottom, to 1, along a strip of the hues or of the opacities of a colour.
class color_strip final : public pick_area
{
public:
    color_strip(TComponent *owner, bool opacity) : pick_area(owner), f_opacity(opacity) {}

    /// `color` counts for a strip of opacities.
    void set_value(double value, Tvx_color color);
    [[nodiscard]] double get_value() const { return f_value; }

protected:
    void Paint() override;
    void pick_at(int x, int y) override;
    void step(int x, int y) override;

private:
    double f_value = 0.0;
    Tvx_color f_color;
    bool f_opacity;
};

/// Rows of ready-made colours, and a last one of those that were chosen before.
class color_swatches final : public pick_area
{
public:
    static constexpr int c_columns = 12;
    static constexpr int c_rows = 5;

    explicit color_swatches(TComponent *owner);

    /// The colour last picked.
    [[nodiscard]] Tvx_color get_color() const { return f_color; }
    /// Puts the colour first into the last row, for all dialogs to come.
    static void remember(Tvx_color color);

protected:
    void Paint() override;
    void pick_at(int x, int y) override;
    void step(int x, int y) override;
    void KeyDown(Word &key, TShiftState shift) override;
    [[nodiscard]] bool WantsKey(Word key, TShiftState shift) const override;

private:
    [[nodiscard]] TRect cell(int index) const;
    void choose(int index);

    static std::vector<Tvx_color> fs_recent;

    std::vector<Tvx_color> f_colors;
    Tvx_color f_color;
    int f_current = 0;
};
} // namespace vx::dialogs
