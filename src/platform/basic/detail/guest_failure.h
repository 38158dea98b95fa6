#pragma once

#include <string>

/// What the code of a foreign module threw.
struct guest_failure
{
    bool is_memory = false; ///< which is no fault of the module's
    std::wstring details;   ///< in its own words
};

/// Of the exception that is being handled.
[[nodiscard]] guest_failure vx_guest_current_failure();
/// Tells the user the reason when the main thread comes to it.
void vx_guest_tell_later(std::wstring reason);
