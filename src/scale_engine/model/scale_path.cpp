#include "scale_engine/model/scale_path.h"

#include "data/filesystem/filesystem.h"

namespace vx::task {
namespace fs = vx::filesystem;

std::wstring scale_path::make(std::wstring const &path, std::wstring const &field, std::wstring const &ext)
{
    if (path.empty() || fs::is_virtual(path) || field.empty())
        return {};
    auto const named = fs::change_basename(path, fs::basename(path) + L"." + field);
    return fs::change_extension(named, ext);
}

std::wstring scale_path::make_value(std::wstring const &path, std::wstring const &field)
{
    return make(path, field, c_val_scale_ext);
}

std::wstring scale_path::make_range(std::wstring const &path, std::wstring const &field)
{
    return make(path, field, c_rng_scale_ext);
}

std::wstring scale_path::make_rule(std::wstring const &path, std::wstring const &field)
{
    return make(path, field, c_rule_scale_ext);
}
} // namespace vx::task
