#pragma once

#include <filesystem>
#include <memory>
#include <string_view>

namespace vx::gdal {
/// A stand-in for a file in a folder that nobody else reads, gone with the object.
class private_copy
{
public:
    /// A copy of a database with its log. Null when there is no room for it.
    [[nodiscard]] static std::unique_ptr<private_copy> make(std::filesystem::path const &base);
    /// Links to the file and to those beside it that have its name and other endings, so that more of them
    /// can be made. Null when there is no room.
    [[nodiscard]] static std::unique_ptr<private_copy> of_links(std::filesystem::path const &file);
    /// Another content in the place of the file. False when there is no room.
    [[nodiscard]] bool put(std::string_view content) const;
    ~private_copy();
    private_copy(private_copy const &) = delete;
    private_copy &operator=(private_copy const &) = delete;

    [[nodiscard]] std::filesystem::path path() const { return f_folder / f_name; }

private:
    private_copy() = default;
    /// An empty folder, and the file's name.
    [[nodiscard]] static std::unique_ptr<private_copy> begin(std::filesystem::path const &file);

    std::filesystem::path f_folder;
    std::filesystem::path f_name;
};
} // namespace vx::gdal
