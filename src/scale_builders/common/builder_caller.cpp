#include "scale_builders/common/detail/builder_caller.h"

#include <utility>

namespace {
builder_caller *innermost = nullptr;
}

builder_caller::builder_caller(TControl *control, std::function<bool()> has_mngr)
    : f_control(control), f_life(control->Life()), f_has_mngr(std::move(has_mngr)),
      f_outer(std::exchange(innermost, this))
{
}

builder_caller::~builder_caller()
{
    innermost = f_outer;
}

bool builder_caller::is_there()
{
    return !innermost || (!innermost->f_life.expired() && innermost->f_has_mngr());
}

TControl *builder_caller::get_control()
{
    return innermost && !innermost->f_life.expired() ? innermost->f_control : nullptr;
}
