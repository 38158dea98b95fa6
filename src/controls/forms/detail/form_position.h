#pragma once

#include "platform/toolkit/core/form.h"
#include "platform/toolkit/core/screen.h"

#include <utility>

/// The rules by which forms are put at a point of the primary screen. Left and upper edge are not guarded.
namespace vx::detail {
/// Back to the screen's edge, as far as the form's right and lower edges need.
inline void form_push_into_screen(TCustomForm &form, int x, int y)
{
    int const width = Screen->GetWidth();
    int const height = Screen->GetHeight();
    form.SetPosition(poDesigned);
    form.SetBounds(x + form.GetWidth() > width ? width - form.GetWidth() : x,
                   y + form.GetHeight() > height ? height - form.GetHeight() : y, form.GetWidth(),
                   form.GetHeight());
}

/// To the other side of the point, where the form would not fit on its right or below it.
inline void form_flip_into_screen(TCustomForm &form, int x, int y)
{
    form.SetPosition(poDesigned);
    form.SetBounds(x + form.GetWidth() > Screen->GetWidth() ? x - form.GetWidth() : x,
                   y + form.GetHeight() > Screen->GetHeight() ? y - form.GetHeight() : y, form.GetWidth(),
                   form.GetHeight());
}
/// Shows a tool form. At its first showing it is placed: (0, 0) is the middle of the screen, any other point
/// is pushed back to the screen's edge. Later it comes back where it was.
inline void form_show_placed_once(TCustomForm &form, bool &placed, int x, int y)
{
    if (!std::exchange(placed, true)) {
        if (x == 0 && y == 0)
            form.SetPosition(poScreenCenter);
        else
            form_push_into_screen(form, x, y);
    }
    form.Show();
    form.SetPosition(poDesigned);
}
} // namespace vx::detail
