#pragma once

#include <string>

/// A look at a source before the format library sees it: that opens what is named or lies beside without
/// asking what it is, and a pipe or a device makes it wait for ever.
namespace vx::gdal {
enum class path_kind
{
    file,
    folder,
    special, ///< a pipe, a socket, a device
    missing, ///< looks like a path and is not there
    no_path, ///< a database, an address: only the driver can tell
};
[[nodiscard]] path_kind kind_of(std::string const &path);

/// What keeps a file or a folder from being opened.
struct source_flaw
{
    enum flaw_kind
    {
        none,
        special_file, ///< beside the file, in the folder, or named by a description of data kept elsewhere
        network,      ///< named by a description
        too_deep,     ///< descriptions that name each other without end
    };
    flaw_kind kind = none;
    std::string name; ///< of the file, or the address

    explicit operator bool() const { return kind != none; }
};
/// Looks at what lies beside a file of the same stem, at all that a folder holds, and at what a description
/// of data kept elsewhere names. With `allows_network` addresses pass.
[[nodiscard]] source_flaw find_flaw(std::string const &path, bool allows_network);

/// A writer of the database at `path` was killed: a log is left that nobody works on.
[[nodiscard]] bool has_abandoned_log(std::string const &path);
/// A writer was killed within a transaction: what it changed has to be taken back before anybody reads.
[[nodiscard]] bool has_open_journal(std::string const &path);
} // namespace vx::gdal
