#pragma once

#include "platform/toolkit/core/object.h"
#include "platform/toolkit/core/types.h"

/// The distances kept free round an aligned control (`Margins`, 3 each) or inside a parent (`Padding`, 0).
class VX_API TMargins : public TPersistent
{
public:
    explicit TMargins(int all = 3) : f_left(all), f_top(all), f_right(all), f_bottom(all) {}

    [[nodiscard]] int GetLeft() const { return f_left; }
    [[nodiscard]] int GetTop() const { return f_top; }
    [[nodiscard]] int GetRight() const { return f_right; }
    [[nodiscard]] int GetBottom() const { return f_bottom; }
    void SetLeft(int value) { SetBounds(value, f_top, f_right, f_bottom); }
    void SetTop(int value) { SetBounds(f_left, value, f_right, f_bottom); }
    void SetRight(int value) { SetBounds(f_left, f_top, value, f_bottom); }
    void SetBottom(int value) { SetBounds(f_left, f_top, f_right, value); }
    void SetBounds(int left, int top, int right, int bottom);
    void Assign(TPersistent const *source) override;

    /// Kept by the control that the distances belong to.
    TNotifyEvent OnChange;

private:
    int f_left;
    int f_top;
    int f_right;
    int f_bottom;
};
using TPadding = TMargins;

/// The sizes that a control may take, in pixels; 0 is no limit.
class VX_API TSizeConstraints : public TPersistent
{
public:
    [[nodiscard]] int GetMinWidth() const { return f_min_width; }
    [[nodiscard]] int GetMinHeight() const { return f_min_height; }
    [[nodiscard]] int GetMaxWidth() const { return f_max_width; }
    [[nodiscard]] int GetMaxHeight() const { return f_max_height; }
    void SetMinWidth(int value);
    void SetMinHeight(int value);
    void SetMaxWidth(int value);
    void SetMaxHeight(int value);
    void Assign(TPersistent const *source) override;
    /// The size next to the given one that the limits allow; the upper limit wins.
    void Apply(int &width, int &height) const;

    TNotifyEvent OnChange;

private:
    void set(int &field, int value);

    int f_min_width = 0;
    int f_min_height = 0;
    int f_max_width = 0;
    int f_max_height = 0;
};
