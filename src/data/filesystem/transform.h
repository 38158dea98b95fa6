#pragma once

#include "platform/base/export.h"

#include <string>

namespace vx::filesystem {
/// Builds a path from another one step by step: `transform(p).dir(d).ext(L"dbf").get_unique()`.
class VX_API transform
{
public:
    explicit transform(std::wstring path) : f_path(std::move(path)) {}

    transform &dir(std::wstring const &directory);
    transform &base(std::wstring const &basename);
    transform &ext(std::wstring const &extension);
    /// Appends to the whole path, behind the extension it has.
    transform &ext_add(std::wstring const &extension);
    /// Puts the suffix behind the base name, before the extension.
    transform &suffix(std::wstring const &suffix);

    [[nodiscard]] std::wstring get() const { return f_path; }
    /// A path that does not exist yet: the path itself, else the first free one of `name_1.ext`,
    /// `name_2.ext`, ...
    [[nodiscard]] std::wstring get_unique() const;

private:
    std::wstring f_path;
};
} // namespace vx::filesystem
