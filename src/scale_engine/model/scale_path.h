#pragma once

#include "platform/base/export.h"
#include "platform/storage/file_names.h"

#include <string>

namespace vx::task {
/// Names of scale files. `path` is what `of_source` gives for a layer's data source, `field` the attribute
/// that the scale classifies.
struct VX_API scale_path
{
    /// The path that a data source hands to the names below; no file is looked at but for "&" in a name.
    ///
    /// A plain file hands itself, whatever options follow it. A layer inside a container, so one whose name
    /// is another than the container's without its extension, hands the container's whole name followed by
    /// "." and its own: the field TYPE of the layer "roads" of "/maps/city.gpkg" has its value scale in
    /// "/maps/city.gpkg.roads.TYPE._vl". In the name of the layer, the characters . % / \ | & and those below
    /// a blank stand as "%" and their code in two hexadecimal digits, so that no two layers share a file.
    ///
    /// Empty for what is no file on disk: a virtual source, a database server, an address, a path of a
    /// driver.
    [[nodiscard]] static std::wstring of_source(std::wstring const &source);

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
