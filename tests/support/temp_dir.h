#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <string_view>

namespace vx_test {
/// A directory of its own for one test, removed with all that is in it.
class temp_dir
{
public:
    temp_dir()
    {
        std::random_device random;
        do
            f_path = std::filesystem::temp_directory_path() / ("vx_test_" + std::to_string(random()));
        while (!std::filesystem::create_directory(f_path));
    }
    temp_dir(temp_dir const &) = delete;
    temp_dir &operator=(temp_dir const &) = delete;
    ~temp_dir()
    {
        std::error_code ignored;
        std::filesystem::remove_all(f_path, ignored);
    }

    [[nodiscard]] std::filesystem::path const &path() const { return f_path; }
    [[nodiscard]] std::filesystem::path operator/(std::string_view name) const { return f_path / name; }
    /// Number of entries, hidden ones too.
    [[nodiscard]] int count() const
    {
        int n = 0;
        for ([[maybe_unused]] auto const &entry : std::filesystem::directory_iterator(f_path))
            ++n;
        return n;
    }

private:
    std::filesystem::path f_path;
};

inline void write_file(std::filesystem::path const &path, std::string_view bytes)
{
    std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

[[nodiscard]] inline std::string read_file(std::filesystem::path const &path)
{
    std::ostringstream out;
    out << std::ifstream(path, std::ios::binary).rdbuf();
    return out.str();
}
} // namespace vx_test
