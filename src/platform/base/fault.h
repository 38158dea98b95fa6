#pragma once

#include <string>

namespace vx {
/// Why a call failed, as data. Modules below the captions fill it in; `vx_fault_sentence` and
/// `vx_fault_reason` (platform/basic/vx_fault.h) make texts of it.
struct fault
{
    int code = 0;         ///< number of the caption that says it; 0 when nothing failed
    std::wstring subject; ///< what "%1" in the caption stands for, mostly a path as the caller wrote it
    int system = 0;       ///< the system's error number; 0 when it is not known or none
    std::wstring details; ///< what a library said, in its own words and language; lines

    [[nodiscard]] explicit operator bool() const { return code != 0; }
};
} // namespace vx
