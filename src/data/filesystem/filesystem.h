#pragma once

#include "platform/base/export.h"

#include <initializer_list>
#include <string>
#include <vector>

/// Path arithmetic and file access on wide strings, with one set of path rules on every system: both "\" and
/// "/" separate, a drive is a letter and ":", and the separator of results is "\". File access turns a path
/// with either separator into the system's own form; names are compared as the file system does, so with
/// their case.
///
/// Functions report failure by their result: false, 0 or an empty string. Nothing is thrown, nothing is
/// shown.
namespace vx::filesystem {
inline constexpr wchar_t const *all_directory_separators = L"\\/";
inline constexpr wchar_t const *library_prefix = L"";
inline constexpr wchar_t const *library_extension = L".dll";
inline constexpr wchar_t const *application_extension = L".exe";

inline constexpr int c_find_directories = 1;
inline constexpr int c_find_files = 2;
inline constexpr int c_find_recursive = 4;

// ---- parts of a path; nothing here looks at the disk

/// Begins with a separator, or has ":" as its second character. The empty path is relative.
[[nodiscard]] VX_API bool is_absolute(std::wstring const &path);
[[nodiscard]] VX_API bool is_relative(std::wstring const &path);
/// The letter and ":", or empty.
[[nodiscard]] VX_API std::wstring drive(std::wstring const &path);
/// Up to and with the last separator; empty without one.
[[nodiscard]] VX_API std::wstring directory(std::wstring const &path);
/// Behind the last separator; the whole path without one.
[[nodiscard]] VX_API std::wstring filename(std::wstring const &path);
[[nodiscard]] VX_API std::string filename(std::string const &path);
/// The file name without its last extension; a dot at the start of the name is no extension.
[[nodiscard]] VX_API std::wstring basename(std::wstring const &path);
/// The last "." of the file name and what follows, in lower case; empty without a dot or when the only dot
/// comes first.
[[nodiscard]] VX_API std::wstring extension(std::wstring const &path);
/// The narrow form lowers ASCII letters only.
[[nodiscard]] VX_API std::string extension(std::string const &path);
/// From the first "." of the file name, in lower case; empty when the name has no dot or begins with one.
[[nodiscard]] VX_API std::wstring full_extension(std::wstring const &path);

/// Cuts the last extension and appends `ext`, with a "." in front if it has none; an empty `ext` only cuts.
[[nodiscard]] VX_API std::wstring change_extension(std::wstring const &path, std::wstring const &ext);
[[nodiscard]] VX_API std::string change_extension(std::string const &path, std::string const &ext);
/// The same, cut at the first "." of the file name.
[[nodiscard]] VX_API std::wstring change_full_extension(std::wstring const &path, std::wstring const &ext);
[[nodiscard]] VX_API std::wstring change_filename(std::wstring const &path, std::wstring const &name);
/// Directory, `base`, then the path's extension in lower case.
[[nodiscard]] VX_API std::wstring change_basename(std::wstring const &path, std::wstring const &base);
[[nodiscard]] VX_API std::wstring add_suffix(std::wstring const &path, std::wstring const &suffix);
[[nodiscard]] VX_API std::wstring change_directory(std::wstring const &path, std::wstring const &dir);
/// A file name that the file system takes: the name itself.
[[nodiscard]] VX_API std::wstring mangle_filename(std::wstring const &name);
/// Every "/" becomes "\".
[[nodiscard]] VX_API std::wstring native_path(std::wstring const &path);
/// Appends "\" unless the path is empty or ends in a separator.
[[nodiscard]] VX_API std::wstring include_directory_separator(std::wstring const &path);

/// `b` if it is absolute or `a` is empty, `a` if `b` is empty, else both with one separator between them.
[[nodiscard]] VX_API std::wstring combine(std::wstring const &a, std::wstring const &b);
/// Folds from the left; empty members are skipped, an absolute member starts anew.
[[nodiscard]] VX_API std::wstring combine(std::initializer_list<std::wstring> parts);
/// "." and ".." are worked off, separators become "\", one at the end goes: `C:/a/./b/../c/` gives `C:\a\c`.
/// A drive and the name that follows it without a separator stay together; the root directory gives the empty
/// path.
[[nodiscard]] VX_API std::wstring clean_path(std::wstring const &path);
/// `path` seen from the directory of the file `base`, cleaned.
[[nodiscard]] VX_API std::wstring absolute_path(std::wstring const &base, std::wstring const &path);
/// The way from the directory of the file `base` to `path`; `path` itself when there is none (other drive, or
/// one of the two is relative or the root directory).
[[nodiscard]] VX_API std::wstring relative_path(std::wstring const &base, std::wstring const &path);
/// The leading pieces that the directories of all paths share; empty for a mix of absolute and relative ones.
[[nodiscard]] VX_API std::wstring common_directory(std::vector<std::wstring> const &paths);

/// No refused character (any of <>:"|?* and NUL); a ":" in the second place is no fault of a path.
[[nodiscard]] VX_API bool is_valid(wchar_t c);
[[nodiscard]] VX_API bool is_valid(std::wstring const &path);
/// As above, and no separator.
[[nodiscard]] VX_API bool is_valid_file_name(wchar_t c);
[[nodiscard]] VX_API bool is_valid_file_name(std::wstring const &name);
/// A copy with "_" for each refused character.
[[nodiscard]] VX_API std::wstring make_valid(std::wstring const &path);
[[nodiscard]] VX_API std::wstring make_valid_filename(std::wstring const &name);

/// A virtual path has "*" as its first character: a source without a file of its own.
[[nodiscard]] VX_API bool is_virtual(std::wstring const &path);
[[nodiscard]] VX_API std::wstring make_virtual(std::wstring const &path);
[[nodiscard]] VX_API std::wstring from_virtual(std::wstring const &path);

/// Whether two paths are the same once cleaned, without regard to case.
[[nodiscard]] VX_API bool is_equal(std::wstring const &a, std::wstring const &b);

// ---- the system

/// The path in the form that the system's own calls take: separators turned, UTF-8. Empty, which names
/// nothing, for a path that holds NUL.
[[nodiscard]] VX_API std::string system_path(std::wstring const &path);

/// With a separator at the end.
[[nodiscard]] VX_API std::wstring current_path();
[[nodiscard]] VX_API std::wstring temp_directory();
/// Makes an empty file of a new name in `dir`, or in the directory for temporary files if `dir` is empty.
[[nodiscard]] VX_API std::wstring temp_filename(std::wstring const &dir, std::wstring const &prefix);
[[nodiscard]] VX_API std::wstring username();
[[nodiscard]] VX_API std::wstring hostname();

[[nodiscard]] VX_API bool is_directory(std::wstring const &path);
/// True for anything that exists and is no directory.
[[nodiscard]] VX_API bool is_file(std::wstring const &path);
[[nodiscard]] VX_API bool path_exist(std::wstring const &path);
/// Seconds since 1970, UTC; 0 on failure.
[[nodiscard]] VX_API long long file_mtime(std::wstring const &path);
/// Bytes; 0 on failure.
[[nodiscard]] VX_API long long file_size(std::wstring const &path);
/// Whether the file could be opened for reading, or for reading and writing. Nothing is changed and nothing
/// blocks: a pipe without a peer counts as not readable.
[[nodiscard]] VX_API bool file_readable(std::wstring const &path);
[[nodiscard]] VX_API bool file_writable(std::wstring const &path);

VX_API bool copy_file(std::wstring const &from, std::wstring const &to, bool overwrite);
/// Works across devices, too.
VX_API bool move_file(std::wstring const &from, std::wstring const &to, bool overwrite);
VX_API bool remove_file(std::wstring const &path);
/// True if the path exists, whatever it is, else whether it could be made.
VX_API bool make_directory(std::wstring const &path);
/// Makes all missing levels; true if the path is a directory at the end.
VX_API bool make_path(std::wstring const &path);
/// Removes an empty directory.
VX_API bool remove_directory(std::wstring const &path);
/// Removes a file or a directory with all below it; links are removed, not followed. The number of things
/// removed.
VX_API int remove_path(std::wstring const &path);
/// Copies all below `from`, links to directories as links. False if `from` is no directory, if `to` exists
/// and `replace` is false, or if any step failed; a file that exists is only written over when `overwrite` is
/// true.
VX_API bool copy_directory(std::wstring const &from, std::wstring const &to, bool replace, bool overwrite);
/// As `copy_directory`, with an existing `to` removed first when `overwrite` is true. `from` is removed only
/// when all of it has arrived. A move below itself is refused.
VX_API bool move_directory(std::wstring const &from, std::wstring const &to, bool replace, bool overwrite);

/// Entries of `dir` whose names fit the pattern ("*" any text, "?" any character, "*.*" any name), with `dir`
/// in front, in order of their names; under `c_find_recursive` those of all directories below follow, a
/// directory's entries after those of the directories in it. "." and ".." are left out, and so is a name that
/// holds a "\", which would read as a path to somewhere else. Links to directories are listed but not walked.
[[nodiscard]] VX_API std::vector<std::wstring> find(std::wstring const &dir, std::wstring const &pattern,
                                                    int flags);
/// The last piece of the path is the pattern; an empty one means "*".
[[nodiscard]] VX_API std::vector<std::wstring> find(std::wstring const &path, int flags);
} // namespace vx::filesystem
