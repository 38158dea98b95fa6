#pragma once

#include "platform/toolkit/core/win_control.h"

#include <utility>

/// While it stands, the next widget of a control is made in the client area of `parent`. Main thread only.
class VX_API vx_birth_place
{
public:
    explicit vx_birth_place(TWinControl *parent);
    vx_birth_place(vx_birth_place const &) = delete;
    vx_birth_place &operator=(vx_birth_place const &) = delete;
    ~vx_birth_place();

    /// The area for the widget that is about to be made; null if nobody told. Told once.
    [[nodiscard]] static vx_native_widget *take();

private:
    vx_native_widget *const f_former;
};

/// `new T(args...)`, the first of which is the owner, for a control whose next step is `SetParent(parent)`:
/// the widget is made where it will stay, which spares Qt the move.
template <class T, class... Args>
[[nodiscard]] T *vx_new_for(TWinControl *parent, Args &&...args)
{
    vx_birth_place const place(parent);
    return new T(std::forward<Args>(args)...);
}

/// The same with `SetParent(parent)`.
template <class T, class... Args>
T *vx_new_on(TWinControl *parent, Args &&...args)
{
    T *const control = vx_new_for<T>(parent, std::forward<Args>(args)...);
    control->SetParent(parent);
    return control;
}
