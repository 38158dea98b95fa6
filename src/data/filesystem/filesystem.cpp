#include "data/filesystem/filesystem.h"

#include "data/filesystem/strutil.h"

#include "platform/base/ascii_case.h"
#include "platform/base/virtual_mark.h"
#include "platform/winapi/case_map.h"
#include "platform/winapi/collation.h"

#include <algorithm>

namespace vx::filesystem {
namespace {
constexpr std::wstring_view c_refused_in_path(L"<>:\"|?*\0", 8);
constexpr std::wstring_view c_refused_in_name(L"\\<>:\"|?*//\0", 11);
constexpr wchar_t c_replacement = L'_';

bool is_separator(wchar_t c)
{
    return c == L'\\' || c == L'/';
}

bool has_drive(std::wstring const &path)
{
    return path.size() >= 2 && path[1] == L':' &&
           ((path[0] >= L'a' && path[0] <= L'z') || (path[0] >= L'A' && path[0] <= L'Z'));
}

/// Place of the first character of the file name.
template <class String>
std::size_t name_start(String const &path)
{
    for (std::size_t i = path.size(); i > 0; --i)
        if (path[i - 1] == '\\' || path[i - 1] == '/')
            return i;
    return 0;
}

/// Place of the dot that begins the last extension, counted in the path; npos without one.
template <class String>
std::size_t extension_start(String const &path)
{
    auto const name = name_start(path);
    auto const dot = path.rfind('.');
    return dot == path.npos || dot <= name ? path.npos : dot;
}

template <class String>
String with_extension(String cut, String const &ext)
{
    if (ext.empty())
        return cut;
    if (ext[0] != '.')
        cut += '.';
    return cut + ext;
}

/// Cuts at `dot` unless it lies before the file name or is the first character of the path.
template <class String>
String cut_at_dot(String const &path, std::size_t dot)
{
    return dot == path.npos || dot < name_start(path) || dot == 0 ? path : path.substr(0, dot);
}

std::size_t valid_from(std::wstring const &path)
{
    return path.size() >= 2 && path[1] == L':' ? 2 : 0;
}

bool same_text(std::wstring const &a, std::wstring const &b)
{
    return lstrcmpiW(a.c_str(), b.c_str()) == 0;
}

std::vector<std::wstring> pieces_of(std::wstring const &path)
{
    return strutil::split_any(path, all_directory_separators, strutil::split_skip_empty);
}

std::wstring joined(std::vector<std::wstring> const &pieces)
{
    std::wstring out;
    for (auto const &piece : pieces) {
        if (!out.empty())
            out += L'\\';
        out += piece;
    }
    return out;
}
} // namespace

bool is_absolute(std::wstring const &path)
{
    return !path.empty() && (is_separator(path[0]) || (path.size() >= 2 && path[1] == L':'));
}

bool is_relative(std::wstring const &path)
{
    return !is_absolute(path);
}

std::wstring drive(std::wstring const &path)
{
    return has_drive(path) ? path.substr(0, 2) : std::wstring();
}

std::wstring directory(std::wstring const &path)
{
    return path.substr(0, name_start(path));
}

std::wstring filename(std::wstring const &path)
{
    return path.substr(name_start(path));
}

std::string filename(std::string const &path)
{
    return path.substr(name_start(path));
}

std::wstring basename(std::wstring const &path)
{
    auto const name = name_start(path);
    auto const dot = extension_start(path);
    return dot == path.npos ? path.substr(name) : path.substr(name, dot - name);
}

std::wstring extension(std::wstring const &path)
{
    auto const dot = extension_start(path);
    return dot == path.npos ? std::wstring() : vx_lower_w(path.substr(dot));
}

std::string extension(std::string const &path)
{
    auto const dot = extension_start(path);
    return dot == path.npos ? std::string() : text::ascii_lower(path.substr(dot));
}

std::wstring full_extension(std::wstring const &path)
{
    auto const name = name_start(path);
    auto const dot = path.find(L'.', name);
    return dot == path.npos || dot == name ? std::wstring() : vx_lower_w(path.substr(dot));
}

std::wstring change_extension(std::wstring const &path, std::wstring const &ext)
{
    return with_extension(cut_at_dot(path, path.rfind(L'.')), ext);
}

std::string change_extension(std::string const &path, std::string const &ext)
{
    return with_extension(cut_at_dot(path, path.rfind('.')), ext);
}

std::wstring change_full_extension(std::wstring const &path, std::wstring const &ext)
{
    return with_extension(cut_at_dot(path, path.find(L'.', name_start(path))), ext);
}

std::wstring change_filename(std::wstring const &path, std::wstring const &name)
{
    return combine(directory(path), name);
}

std::wstring change_basename(std::wstring const &path, std::wstring const &base)
{
    return directory(path) + base + extension(path);
}

std::wstring add_suffix(std::wstring const &path, std::wstring const &suffix)
{
    return change_basename(path, basename(path) + suffix);
}

std::wstring change_directory(std::wstring const &path, std::wstring const &dir)
{
    return combine(dir, filename(path));
}

std::wstring mangle_filename(std::wstring const &name)
{
    return name;
}

std::wstring native_path(std::wstring const &path)
{
    std::wstring out = path;
    std::replace(out.begin(), out.end(), L'/', L'\\');
    return out;
}

std::wstring include_directory_separator(std::wstring const &path)
{
    return path.empty() || is_separator(path.back()) ? path : path + L'\\';
}

std::wstring combine(std::wstring const &a, std::wstring const &b)
{
    if (b.empty())
        return a;
    if (a.empty() || is_absolute(b))
        return b;
    return include_directory_separator(a) + b;
}

std::wstring combine(std::initializer_list<std::wstring> parts)
{
    std::wstring out;
    for (auto const &part : parts)
        out = combine(out, part);
    return out;
}

std::wstring clean_path(std::wstring const &path)
{
    if (path.empty())
        return {};
    auto pieces = pieces_of(path);
    std::wstring out;
    if (has_drive(path)) {
        // "C:name" stays in one piece: it is no path from the root of the drive.
        out = pieces.front() + L"\\";
        pieces.erase(pieces.begin());
    } else {
        for (std::size_t i = 0; i < 2 && i < path.size() && is_separator(path[i]); ++i)
            out += L'\\';
    }
    std::vector<std::wstring> kept;
    for (auto &piece : pieces) {
        if (piece == L".")
            continue;
        if (piece == L".." && !kept.empty() && kept.back() != L"..")
            kept.pop_back();
        else
            kept.push_back(std::move(piece));
    }
    for (auto const &piece : kept)
        out += piece + L"\\";
    if (!out.empty())
        out.pop_back();
    return out;
}

std::wstring absolute_path(std::wstring const &base, std::wstring const &path)
{
    return clean_path(is_absolute(path) ? path : combine(directory(base), path));
}

std::wstring relative_path(std::wstring const &base, std::wstring const &path)
{
    std::wstring from = clean_path(directory(base));
    std::wstring to = clean_path(path);
    if (is_relative(from) || is_relative(to))
        return path;
    if (has_drive(from) && has_drive(to) && !same_text(drive(from), drive(to)))
        return path;
    if (has_drive(from))
        from.erase(0, 2);
    if (has_drive(to))
        to.erase(0, 2);
    auto const from_pieces = pieces_of(from);
    auto const to_pieces = pieces_of(to);
    std::size_t same = 0;
    while (same < from_pieces.size() && same < to_pieces.size() &&
           same_text(from_pieces[same], to_pieces[same]))
        ++same;
    std::vector<std::wstring> way(from_pieces.size() - same, L"..");
    way.insert(way.end(), to_pieces.begin() + static_cast<std::ptrdiff_t>(same), to_pieces.end());
    return joined(way);
}

std::wstring common_directory(std::vector<std::wstring> const &paths)
{
    if (paths.empty())
        return {};
    if (paths.size() == 1)
        return directory(paths[0]);
    bool const absolute = is_absolute(paths[0]);
    std::vector<std::wstring> common = pieces_of(directory(paths[0]));
    for (auto const &path : paths) {
        if (is_absolute(path) != absolute)
            return {};
        auto const pieces = pieces_of(directory(path));
        std::size_t same = 0;
        while (same < common.size() && same < pieces.size() && common[same] == pieces[same])
            ++same;
        common.resize(same);
    }
    return (is_separator(paths[0].empty() ? L'x' : paths[0][0]) ? L"\\" : L"") + joined(common);
}

bool is_valid(wchar_t c)
{
    return c_refused_in_path.find(c) == std::wstring_view::npos;
}

bool is_valid_file_name(wchar_t c)
{
    return c_refused_in_name.find(c) == std::wstring_view::npos;
}

bool is_valid(std::wstring const &path)
{
    return std::all_of(path.begin() + static_cast<std::ptrdiff_t>(valid_from(path)), path.end(),
                       [](wchar_t c) { return is_valid(c); });
}

bool is_valid_file_name(std::wstring const &name)
{
    return std::all_of(name.begin(), name.end(), [](wchar_t c) { return is_valid_file_name(c); });
}

std::wstring make_valid(std::wstring const &path)
{
    std::wstring out = path;
    std::replace_if(
        out.begin() + static_cast<std::ptrdiff_t>(valid_from(path)), out.end(),
        [](wchar_t c) { return !is_valid(c); }, c_replacement);
    return out;
}

std::wstring make_valid_filename(std::wstring const &name)
{
    std::wstring out = name;
    std::replace_if(
        out.begin(), out.end(), [](wchar_t c) { return !is_valid_file_name(c); }, c_replacement);
    return out;
}

bool is_virtual(std::wstring const &path)
{
    return path.starts_with(c_virtual_mark);
}

std::wstring make_virtual(std::wstring const &path)
{
    return is_virtual(path) ? path : c_virtual_mark + path;
}

std::wstring from_virtual(std::wstring const &path)
{
    return std::wstring(without_virtual_mark(path));
}

bool is_equal(std::wstring const &a, std::wstring const &b)
{
    return same_text(clean_path(a), clean_path(b));
}
} // namespace vx::filesystem
