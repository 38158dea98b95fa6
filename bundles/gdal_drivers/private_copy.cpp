#include "private_copy.h"

#include <cstdlib>
#include <fstream>
#include <string>

namespace vx::gdal {
namespace fs = std::filesystem;

std::unique_ptr<private_copy> private_copy::begin(fs::path const &file)
{
    std::error_code problem;
    std::string folder = (fs::temp_directory_path(problem) / "vx_base_XXXXXX").string();
    if (problem || !mkdtemp(folder.data()))
        return nullptr;
    std::unique_ptr<private_copy> result(new private_copy);
    result->f_folder = folder;
    result->f_name = file.filename();
    return result;
}

std::unique_ptr<private_copy> private_copy::of_links(fs::path const &file)
{
    std::error_code problem;
    auto result = begin(file);
    fs::path const whole = fs::absolute(file, problem);
    for (fs::directory_iterator at(whole.parent_path(), problem), end; result && !problem && at != end;
         at.increment(problem))
        if (at->path().stem() == whole.stem() && at->is_regular_file(problem))
            fs::create_symlink(at->path(), result->f_folder / at->path().filename(), problem);
    return problem ? nullptr : std::move(result);
}

std::unique_ptr<private_copy> private_copy::make(fs::path const &base)
{
    std::error_code problem;
    auto result = begin(base);
    if (!result)
        return nullptr;
    if (!fs::copy_file(base, result->path(), problem) ||
        !fs::copy_file(base.string() + "-wal", result->path().string() + "-wal", problem))
        return nullptr;
    return result;
}

bool private_copy::put(std::string_view content) const
{
    std::error_code problem;
    fs::remove(path(), problem); // what it links to is somebody else's
    std::ofstream file(path(), std::ios::binary);
    return !problem && file.write(content.data(), static_cast<std::streamsize>(content.size())).flush();
}

private_copy::~private_copy()
{
    std::error_code ignored;
    if (!f_folder.empty())
        fs::remove_all(f_folder, ignored);
}
} // namespace vx::gdal
