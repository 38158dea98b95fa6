#pragma once

#include "platform/base/string_adp.h"

#include <string>

namespace vx::task::detail {
/// The text that an engine function hands out: `scale_text(&vx_val_scale_get_text_w, scale, i)`.
template <class Get, class... Arguments>
[[nodiscard]] std::wstring scale_text(Get get, Arguments... arguments)
{
    std::wstring text;
    {
        Tvx_std_wstring_adapter receiver(text);
        get(arguments..., receiver);
    }
    return text;
}
} // namespace vx::task::detail
