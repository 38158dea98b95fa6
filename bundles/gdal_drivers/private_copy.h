#pragma once

#include <filesystem>
#include <memory>

namespace vx::gdal {
/// A copy of a database with its log in a folder that nobody else reads, gone with the object.
class private_copy
{
public:
    /// Null when there is no room for it.
    [[nodiscard]] static std::unique_ptr<private_copy> make(std::filesystem::path const &base);
    ~private_copy();
    private_copy(private_copy const &) = delete;
    private_copy &operator=(private_copy const &) = delete;

    [[nodiscard]] std::filesystem::path path() const { return f_folder / f_name; }

private:
    private_copy() = default;

    std::filesystem::path f_folder;
    std::filesystem::path f_name;
};
} // namespace vx::gdal
