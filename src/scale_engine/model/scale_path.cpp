#include "scale_engine/model/scale_path.h"

#include "data/connection/connection_params.h"
#include "data/filesystem/filesystem.h"

namespace vx::task {
namespace fs = vx::filesystem;

namespace {
/// A database server, an address, or a path that only drivers understand; a drive letter is none of these.
bool is_no_file(std::wstring const &source)
{
    if (source.empty() || source.front() == L'<' || source.starts_with(L"/vsi"))
        return true;
    auto const mark = source.find(L':');
    bool const is_scheme =
        mark != source.npos && mark > 1 && source.find_first_of(fs::all_directory_separators) > mark;
    return is_scheme && !fs::path_exist(source);
}

/// "&" begins the options, and is a lawful character of a file name too.
bool has_options(std::wstring const &source)
{
    if (source.find(L'|') != source.npos)
        return true;
    auto const mark = source.find(L'&');
    return mark != source.npos && source.find(L'=', mark) != source.npos && !fs::path_exist(source);
}

std::wstring escaped(std::wstring const &name)
{
    constexpr std::wstring_view c_marks = L".%/\\|&";
    constexpr std::wstring_view c_digits = L"0123456789ABCDEF";
    std::wstring result;
    for (wchar_t const c : name) {
        auto const code = static_cast<unsigned long>(c);
        if (code >= L' ' && c_marks.find(c) == c_marks.npos)
            result += c;
        else
            (result += L'%').append({c_digits[code / 16], c_digits[code % 16]});
    }
    return result;
}
} // namespace

std::wstring scale_path::of_source(std::wstring const &source)
{
    if (fs::is_virtual(source) || is_no_file(source))
        return {};
    if (!has_options(source))
        return source;
    vx::data::vector_connection_params const parts(source);
    if (parts.layer.empty() || parts.layer == fs::basename(parts.source))
        return parts.source;
    // The extension is what the name of a scale cuts off.
    return parts.source + L"." + escaped(parts.layer) + L".layer";
}

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
