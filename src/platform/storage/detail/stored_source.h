#pragma once

#include <string>

namespace vx::storage {
/// A layer's source as it stands in a file of the folder `folder`, an absolute path. A file in this folder or
/// below it, and one that shares at least two levels of folders with it, is named from here, "./roads.shp" or
/// "../data/roads.shp", so that all can be moved together; other files keep their whole path. Passwords of
/// connection strings become "***".
[[nodiscard]] std::wstring stored_source(std::wstring const &source, std::wstring const &folder);
/// The source of a text that `stored_source` gave, with the file's folder as it is now.
[[nodiscard]] std::wstring found_source(std::wstring const &stored, std::wstring const &folder);
/// Folder of a file whose name may be relative to the working directory; of one that is a link, where the
/// link leads.
[[nodiscard]] std::wstring folder_of(std::wstring const &file);
} // namespace vx::storage
