#include "data/filesystem/filesystem.h"
#include "data/filesystem/strutil.h"

#include "platform/base/text_codec.h"
#include "platform/winapi/file.h"

#include <algorithm>
#include <fcntl.h>
#include <filesystem>
#include <pwd.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace vx::filesystem {
namespace {
namespace fs = std::filesystem;

std::wstring from_system(std::string_view path)
{
    return native_path(text::utf8_to_wide(path));
}

/// Follows links; all bits are 0 when nothing is there.
struct stat status_of(std::wstring const &path)
{
    struct stat s = {};
    if (!path.empty())
        (void)::stat(system_path(path).c_str(), &s);
    return s;
}

std::wstring without_last_separators(std::wstring path)
{
    while (path.size() > 1 && (path.back() == L'\\' || path.back() == L'/'))
        path.pop_back();
    return path;
}

/// With a separator at its end too, behind which the system would follow the link.
bool is_link(std::wstring const &path)
{
    std::error_code error;
    return fs::is_symlink(system_path(without_last_separators(path)), error);
}

bool can_open(std::wstring const &path, int mode)
{
    if (is_directory(path))
        return false;
    // Without O_NONBLOCK a pipe without a peer would hold us here for ever.
    int const file = ::open(system_path(path).c_str(), mode | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (file < 0)
        return false;
    ::close(file);
    return true;
}

/// `*` any text, `?` one character. Runs in steps of at most |name| times |pattern|.
bool fits(std::wstring_view name, std::wstring_view pattern)
{
    if (pattern == L"*.*")
        return true;
    std::size_t n = 0;
    std::size_t p = 0;
    std::size_t star = std::wstring_view::npos;
    std::size_t star_name = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == L'*') {
            star = p++;
            star_name = n;
        } else if (p < pattern.size() && (pattern[p] == L'?' || pattern[p] == name[n])) {
            ++p;
            ++n;
        } else if (star != std::wstring_view::npos) {
            p = star + 1;
            n = ++star_name;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == L'*')
        ++p;
    return p == pattern.size();
}

/// The entries of a directory, each with `dir` in front, in order of their names.
std::vector<std::wstring> entries_of(std::wstring const &dir)
{
    std::vector<std::wstring> entries;
    // Not combine(): a name such as "a:b" is no path of its own here.
    std::wstring const front = include_directory_separator(dir);
    std::error_code error;
    for (fs::directory_iterator at(dir.empty() ? "." : system_path(dir), error), end; !error && at != end;
         at.increment(error)) {
        std::wstring const name = text::utf8_to_wide(at->path().filename().native());
        if (name.find(L'\\') == name.npos)
            entries.push_back(front + name);
    }
    std::sort(entries.begin(), entries.end());
    return entries;
}

/// Adds the directories below `dir`, each after those below itself.
void collect_directories(std::wstring const &dir, std::vector<std::wstring> &out)
{
    for (auto const &path : entries_of(dir)) {
        // A link to a directory above would lead round for ever.
        if (!is_directory(path) || is_link(path))
            continue;
        collect_directories(path, out);
        out.push_back(path);
    }
}

bool copy_link(std::wstring const &from, std::wstring const &to)
{
    std::error_code error;
    fs::copy_symlink(system_path(from), system_path(to), error);
    return !error;
}

/// Whether `path` is `dir` or lies below it, as the disk has them.
bool lies_below(std::wstring const &path, std::wstring const &dir)
{
    std::error_code error;
    fs::path const inner = fs::weakly_canonical(system_path(path), error);
    if (error)
        return false;
    fs::path const outer = fs::weakly_canonical(system_path(dir), error);
    if (error)
        return false;
    auto const [in, out] = std::mismatch(inner.begin(), inner.end(), outer.begin(), outer.end());
    return out == outer.end();
}
} // namespace

std::string system_path(std::wstring const &path)
{
    // What stands before a NUL is another path.
    return path.find(L'\0') == path.npos ? vx_path_to_native(path) : std::string();
}

std::wstring current_path()
{
    std::error_code error;
    auto const path = fs::current_path(error);
    return error ? std::wstring() : include_directory_separator(from_system(path.native()));
}

std::wstring temp_directory()
{
    std::error_code error;
    auto const path = fs::temp_directory_path(error);
    return error ? std::wstring() : include_directory_separator(from_system(path.native()));
}

std::wstring temp_filename(std::wstring const &dir, std::wstring const &prefix)
{
    std::string name = system_path(combine(dir.empty() ? temp_directory() : dir, prefix + L"XXXXXX.tmp"));
    int const file = ::mkstemps(name.data(), 4);
    if (file < 0)
        return {};
    ::close(file);
    return from_system(name);
}

std::wstring username()
{
    char buffer[4096];
    passwd entry;
    passwd *found = nullptr;
    if (::getpwuid_r(::geteuid(), &entry, buffer, sizeof buffer, &found) != 0 || !found)
        return {};
    return text::utf8_to_wide(found->pw_name);
}

std::wstring hostname()
{
    char buffer[256] = {};
    if (::gethostname(buffer, sizeof buffer - 1) != 0)
        return {};
    return text::utf8_to_wide(buffer);
}

bool is_directory(std::wstring const &path)
{
    std::error_code error;
    return fs::is_directory(system_path(path), error);
}

bool is_file(std::wstring const &path)
{
    return path_exist(path) && !is_directory(path);
}

bool path_exist(std::wstring const &path)
{
    std::error_code error;
    return fs::exists(system_path(path), error);
}

long long file_mtime(std::wstring const &path)
{
    return status_of(path).st_mtime;
}

long long file_size(std::wstring const &path)
{
    return status_of(path).st_size;
}

bool file_readable(std::wstring const &path)
{
    return can_open(path, O_RDONLY);
}

bool file_writable(std::wstring const &path)
{
    return can_open(path, O_RDWR);
}

bool copy_file(std::wstring const &from, std::wstring const &to, bool overwrite)
{
    std::error_code error;
    auto const option = overwrite ? fs::copy_options::overwrite_existing : fs::copy_options::none;
    return fs::copy_file(system_path(from), system_path(to), option, error);
}

bool move_file(std::wstring const &from, std::wstring const &to, bool overwrite)
{
    std::string const source = system_path(from);
    std::string const target = system_path(to);
    unsigned const no_replace = overwrite ? 0 : RENAME_NOREPLACE;
    if (::renameat2(AT_FDCWD, source.c_str(), AT_FDCWD, target.c_str(), no_replace) == 0)
        return true;
    if (errno != EXDEV && errno != EINVAL)
        return false;
    // Another device, or a file system without the no-replace rename.
    if (!is_file(from) || is_link(from) || (!overwrite && path_exist(to)))
        return false;
    return copy_file(from, to, overwrite) && remove_file(from);
}

bool remove_file(std::wstring const &path)
{
    return ::unlink(system_path(path).c_str()) == 0;
}

bool make_directory(std::wstring const &path)
{
    std::error_code error;
    return path_exist(path) || fs::create_directory(system_path(path), error);
}

bool make_path(std::wstring const &path)
{
    if (path_exist(path))
        return is_directory(path);
    std::wstring level;
    if (!path.empty() && (path[0] == L'\\' || path[0] == L'/'))
        level = L"\\";
    for (auto const &piece : strutil::split_any(path, all_directory_separators, strutil::split_skip_empty)) {
        level += piece + L"\\";
        if (!make_directory(level))
            return false;
    }
    return is_directory(path);
}

bool remove_directory(std::wstring const &path)
{
    return ::rmdir(system_path(path).c_str()) == 0;
}

int remove_path(std::wstring const &path)
{
    if (is_link(path))
        return remove_file(without_last_separators(path)) ? 1 : 0;
    if (!is_directory(path))
        return remove_file(path) ? 1 : 0;
    int removed = 0;
    auto const entries = find(path, L"*", c_find_directories | c_find_files);
    for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry)
        removed += remove_path(*entry);
    return removed + (remove_directory(path) ? 1 : 0);
}

bool copy_directory(std::wstring const &from, std::wstring const &to, bool replace, bool overwrite)
{
    if (!is_directory(from) || (path_exist(to) && !replace))
        return false;
    // The whole list first: `to` may lie below `from`.
    auto const entries = find(from, L"*", c_find_directories | c_find_files | c_find_recursive);
    if (!make_path(to))
        return false;
    bool done = true;
    std::size_t const base = include_directory_separator(from).size();
    std::wstring const front = include_directory_separator(to);
    for (auto const &entry : entries) {
        std::wstring const target = front + entry.substr(base);
        if (is_directory(entry) && is_link(entry))
            done = make_path(directory(target)) && copy_link(entry, target) && done;
        else if (is_directory(entry))
            done = make_path(target) && done;
        else
            done = make_path(directory(target)) && copy_file(entry, target, overwrite) && done;
    }
    return done;
}

bool move_directory(std::wstring const &from, std::wstring const &to, bool replace, bool overwrite)
{
    if (!path_exist(from) || (path_exist(to) && !replace) || lies_below(to, from))
        return false;
    if (path_exist(to) && overwrite) {
        if (lies_below(from, to))
            return false;
        (void)remove_path(to);
        if (path_exist(to))
            return false;
    }
    if (::renameat2(AT_FDCWD, system_path(from).c_str(), AT_FDCWD, system_path(to).c_str(),
                    RENAME_NOREPLACE) == 0)
        return true;
    if (!copy_directory(from, to, true, overwrite))
        return false;
    (void)remove_path(from);
    return !path_exist(from);
}

std::vector<std::wstring> find(std::wstring const &dir, std::wstring const &pattern, int flags)
{
    std::wstring const top = native_path(dir);
    std::vector<std::wstring> directories = {top};
    if (flags & c_find_recursive)
        collect_directories(top, directories);
    std::wstring const names = native_path(pattern);
    std::vector<std::wstring> out;
    for (auto const &directory : directories)
        for (auto const &path : entries_of(directory))
            if ((flags & (is_directory(path) ? c_find_directories : c_find_files)) &&
                fits(filename(path), names))
                out.push_back(path);
    return out;
}

std::vector<std::wstring> find(std::wstring const &path, int flags)
{
    std::wstring const pattern = filename(path);
    return find(directory(path), pattern.empty() ? L"*" : pattern, flags);
}
} // namespace vx::filesystem
