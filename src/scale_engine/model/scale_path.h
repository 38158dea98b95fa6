#pragma once

#include "platform/base/export.h"
#include "platform/storage/file_names.h"

#include <string>

namespace vx::task {
/// Names of scale files. `path` is the file name of a layer's data source, `field` the attribute that the
/// scale classifies.
struct VX_API scale_path
{
    /// `path` with its extension replaced by "." `field` and `ext`: "C:\maps\roads.shp" with "TYPE" and
    /// "._vl" gives "C:\maps\roads.TYPE._vl". The field's name is used as it is. Of a path without extension
    /// the field itself is the extension that goes: "roads" gives "roads._vl".
    ///
    /// Empty, so without a file, for an empty path, a virtual one, and an empty field.
    [[nodiscard]] static std::wstring make(std::wstring const &path, std::wstring const &field,
                                           std::wstring const &ext);
    [[nodiscard]] static std::wstring make_value(std::wstring const &path, std::wstring const &field);
    [[nodiscard]] static std::wstring make_range(std::wstring const &path, std::wstring const &field);
    [[nodiscard]] static std::wstring make_rule(std::wstring const &path, std::wstring const &field);
};
} // namespace vx::task
