#include "data/filesystem/transform.h"

#include "data/filesystem/filesystem.h"

namespace vx::filesystem {
transform &transform::dir(std::wstring const &directory)
{
    f_path = change_directory(f_path, directory);
    return *this;
}

transform &transform::base(std::wstring const &basename)
{
    f_path = change_basename(f_path, basename);
    return *this;
}

transform &transform::ext(std::wstring const &extension)
{
    f_path = change_extension(f_path, extension);
    return *this;
}

transform &transform::ext_add(std::wstring const &extension)
{
    f_path += extension;
    return *this;
}

transform &transform::suffix(std::wstring const &suffix)
{
    f_path = add_suffix(f_path, suffix);
    return *this;
}

std::wstring transform::get_unique() const
{
    if (f_path.empty() || !path_exist(f_path))
        return f_path;
    for (long long n = 1;; ++n) {
        std::wstring const candidate = add_suffix(f_path, L"_" + std::to_wstring(n));
        if (!path_exist(candidate))
            return candidate;
    }
}
} // namespace vx::filesystem
