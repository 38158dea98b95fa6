#include "platform/storage/detail/stored_source.h"

#include "platform/base/virtual_mark.h"
#include "platform/basic/vx_fault.h"
#include "platform/winapi/file.h"

#include <algorithm>
#include <filesystem>
#include <string_view>

namespace vx::storage {
namespace {
constexpr wchar_t c_separator = L'/';
constexpr wchar_t c_option_mark = L'|';
constexpr wchar_t c_quote = L'"';
constexpr std::wstring_view c_here = L"./";
constexpr std::wstring_view c_up = L"../";
/// Levels of folders that a file and the scene must share, so that "../" leads to something that belongs to
/// both: below "/home" lies what is nobody's, below "/home/anna" what can be moved together.
constexpr std::size_t c_least_shared = 2;
constexpr int c_link_limit = 40;

bool is_letter(wchar_t c)
{
    return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z') || (c >= L'0' && c <= L'9') || c == L'_';
}

/// Where a path may begin: behind the virtual mark and behind the name of a format, `NETCDF:"/data/a.nc":t`.
std::size_t path_place(std::wstring_view source)
{
    std::size_t const first = source.size() - without_virtual_mark(source).size();
    auto const letters = static_cast<std::size_t>(
        std::find_if_not(source.begin() + static_cast<std::ptrdiff_t>(first), source.end(), is_letter) -
        source.begin());
    if (letters < first + 2 || letters >= source.size() || source[letters] != L':')
        return first;
    std::size_t const behind = letters + 1;
    return behind < source.size() && source[behind] == c_quote ? behind + 1 : behind;
}

/// Place behind the last of the folders that both share, and how many these are. Both are absolute paths,
/// `folder` with a separator at its end.
std::pair<std::size_t, std::size_t> shared_folders(std::wstring_view path, std::wstring_view folder)
{
    std::size_t end = 0;
    std::size_t count = 0;
    for (std::size_t i = 0; i < path.size() && i < folder.size() && path[i] == folder[i]; ++i)
        if (path[i] == c_separator) {
            end = i + 1;
            count += i > 0;
        }
    return {end, count};
}

std::wstring without_passwords(std::wstring const &source)
{
    // The name of a file holds no password, whatever it looks like.
    if (!without_virtual_mark(source).starts_with(c_separator))
        return vx_mask_passwords(source);
    auto const options = std::min(source.find(c_option_mark), source.size());
    return source.substr(0, options) + vx_mask_passwords(source.substr(options));
}

std::wstring with_end(std::wstring folder)
{
    if (!folder.ends_with(c_separator))
        folder += c_separator;
    return folder;
}
} // namespace

std::wstring stored_source(std::wstring const &source, std::wstring const &folder)
{
    std::wstring text = without_passwords(source);
    std::wstring const from = with_end(folder);
    std::size_t const place = path_place(text);
    std::wstring_view const path = std::wstring_view(text).substr(place);
    if (!path.starts_with(c_separator))
        return text;
    auto const [shared, levels] = shared_folders(path, from);
    if (shared < from.size() && levels < c_least_shared)
        return text;
    std::wstring way(shared == from.size() ? c_here : std::wstring_view());
    for (auto left = std::count(from.begin() + static_cast<std::ptrdiff_t>(shared), from.end(), c_separator);
         left > 0; --left)
        way += c_up;
    return text.replace(place, shared, way);
}

std::wstring found_source(std::wstring const &stored, std::wstring const &folder)
{
    std::size_t const place = path_place(stored);
    std::wstring_view path = std::wstring_view(stored).substr(place);
    if (!path.starts_with(c_here) && !path.starts_with(c_up))
        return stored;
    std::wstring from = with_end(folder);
    for (;;) {
        if (path.starts_with(c_here)) {
            path.remove_prefix(c_here.size());
        } else if (path.starts_with(c_up)) {
            path.remove_prefix(c_up.size());
            if (from.size() > 1)
                from.resize(from.rfind(c_separator, from.size() - 2) + 1);
        } else {
            return stored.substr(0, place) + from + std::wstring(path);
        }
    }
}

std::wstring folder_of(std::wstring const &file)
{
    std::error_code ignored;
    auto path = std::filesystem::absolute(vx_path_to_native(file), ignored).lexically_normal();
    // Folders that are links stay what the user calls them.
    for (int i = 0; i < c_link_limit && std::filesystem::is_symlink(path, ignored); ++i)
        path = (path.parent_path() / std::filesystem::read_symlink(path, ignored)).lexically_normal();
    return vx_path_from_native(path.parent_path().string());
}
} // namespace vx::storage
