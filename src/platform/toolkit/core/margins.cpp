#include "platform/toolkit/core/margins.h"

#include <algorithm>

void TMargins::SetBounds(int left, int top, int right, int bottom)
{
    if (left == f_left && top == f_top && right == f_right && bottom == f_bottom)
        return;
    f_left = left;
    f_top = top;
    f_right = right;
    f_bottom = bottom;
    OnChange(this);
}

void TMargins::Assign(TPersistent const *source)
{
    if (auto const *other = dynamic_cast<TMargins const *>(source))
        SetBounds(other->f_left, other->f_top, other->f_right, other->f_bottom);
}

void TSizeConstraints::set(int &field, int value)
{
    value = std::max(value, 0);
    if (field == value)
        return;
    field = value;
    OnChange(this);
}

void TSizeConstraints::SetMinWidth(int value)
{
    set(f_min_width, value);
}

void TSizeConstraints::SetMinHeight(int value)
{
    set(f_min_height, value);
}

void TSizeConstraints::SetMaxWidth(int value)
{
    set(f_max_width, value);
}

void TSizeConstraints::SetMaxHeight(int value)
{
    set(f_max_height, value);
}

void TSizeConstraints::Assign(TPersistent const *source)
{
    auto const *other = dynamic_cast<TSizeConstraints const *>(source);
    if (!other)
        return;
    SetMinWidth(other->f_min_width);
    SetMinHeight(other->f_min_height);
    SetMaxWidth(other->f_max_width);
    SetMaxHeight(other->f_max_height);
}

void TSizeConstraints::Apply(int &width, int &height) const
{
    width = std::max(width, f_min_width);
    height = std::max(height, f_min_height);
    if (f_max_width > 0)
        width = std::min(width, f_max_width);
    if (f_max_height > 0)
        height = std::min(height, f_max_height);
}
