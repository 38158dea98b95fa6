#pragma once

#include "platform/base/export.h"

#include <string>

namespace vx::task {
/// Scales of a style manager in the files that `scale_path` names. `source` is the connection string of the
/// data source.
struct VX_API scale_save_load
{
    /// True when the scale of the manager now holds the file's content. False, with the scale as it was, when
    /// there is no such file, the source is virtual or the field empty, or the file cannot be read.
    [[nodiscard]] static bool load_value(std::wstring const &source, std::wstring const &field,
                                         void *stl_mngr);
    [[nodiscard]] static bool load_range(std::wstring const &source, std::wstring const &field,
                                         void *stl_mngr);
    [[nodiscard]] static bool load_rule(std::wstring const &source, std::wstring const &field,
                                        void *stl_mngr);
};

namespace detail {
/// The saving that the default scales share.
struct VX_API scale_save
{
    /// False, with nothing written, when there is no file name (a virtual source, an empty field), and when
    /// the field's name holds a separator: the file would lie in another folder, and the user is told so.
    /// True once the save was run; what goes wrong then the user is told by the storage.
    [[nodiscard]] static bool save_value(std::wstring const &source, std::wstring const &field,
                                         void const *stl_mngr);
    [[nodiscard]] static bool save_range(std::wstring const &source, std::wstring const &field,
                                         void const *stl_mngr);
};
} // namespace detail
} // namespace vx::task
