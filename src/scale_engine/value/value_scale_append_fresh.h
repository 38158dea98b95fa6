#pragma once

#include "platform/base/export.h"

#include <string>
#include <unordered_map>

namespace vx::task {
/// Adds entries for the keys of a cache that the scale has no entry for, in the order of the cache, with the
/// key as text and caption. What the cache maps keys to is not used.
struct VX_API value_scale_append_fresh
{
    static void execute(void *scale, std::unordered_map<std::wstring, std::wstring> const &cache);
};

/// Removes the entries whose trimmed text is no key of a cache.
struct VX_API value_scale_remove_absent
{
    static void execute(void *scale, std::unordered_map<std::wstring, std::wstring> const &cache);
};
} // namespace vx::task
