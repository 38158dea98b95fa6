#pragma once

#include "platform/base/fault.h"
#include "platform/base/owned.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

/// The database that a property file is.
namespace vx::tos {
/// "vxps" as a number: what a property file is known by.
inline constexpr std::uint32_t c_application = 0x76787073;
inline constexpr std::uint32_t c_version = 1;

/// The tables, in the words by which they are made. A file whose tables were made in other words is none.
inline constexpr std::string_view c_tables[][2] = {
    {"tos_file", "CREATE TABLE tos_file(id INTEGER PRIMARY KEY, identity BLOB, objects INTEGER, dimensions "
                 "INTEGER, nx INTEGER, ny INTEGER, nz INTEGER, x REAL, y REAL, z REAL, dx REAL, dy REAL, dz "
                 "REAL, azimuth REAL, projection TEXT)"},
    {"tos_property", "CREATE TABLE tos_property(id INTEGER PRIMARY KEY, name TEXT, caption TEXT)"},
    {"tos_block", "CREATE TABLE tos_block(id INTEGER PRIMARY KEY, cells BLOB)"},
    {"tos_record", "CREATE TABLE tos_record(id INTEGER PRIMARY KEY, a BLOB, b BLOB)"},
};

/// Whether the file says that it is a property file, by its first bytes.
[[nodiscard]] bool has_property_head(std::string const &path);

void close_database(sqlite3 *base);
void end_statement(sqlite3_stmt *statement);

/// A statement of our own words. After a failure it gives no more rows until it is reset.
class statement
{
public:
    statement() = default;
    statement(sqlite3 *base, std::string_view words);

    [[nodiscard]] explicit operator bool() const { return bool(f_statement); }
    void bind(int place, std::int64_t value);
    void bind(int place, double value);
    void bind(int place, std::string_view text);
    void bind_blob(int place, std::string_view bytes);
    /// Goes to the next row; false when there is none, or `failed`.
    bool step();
    /// Runs a statement without rows, which can be run once more then. After a failure it never is again.
    bool run();
    [[nodiscard]] bool failed() const { return f_failed; }
    void reset();

    /// Of the present row; nothing when the value has another type. Texts and bytes are valid until the next
    /// step.
    [[nodiscard]] std::optional<std::int64_t> integer(int column) const;
    [[nodiscard]] std::optional<double> real(int column) const;
    [[nodiscard]] std::optional<std::string_view> text(int column) const;
    [[nodiscard]] std::optional<std::string_view> blob(int column) const;

private:
    vx::owned<sqlite3_stmt, &end_statement> f_statement;
    bool f_failed = false;
};

class database
{
public:
    /// A property file of somebody's, for reading its values: nothing is written, locked or waited for, and
    /// whoever writes records meanwhile is not noticed. Its head and tables are checked. Null, with the
    /// reason in `fault`, when that is no property file.
    [[nodiscard]] static std::optional<database> open(std::string const &path, vx::fault &fault);
    /// The same file, to write a record.
    [[nodiscard]] static std::optional<database> open_for_records(std::string const &path, vx::fault &fault);
    /// A new one in an empty file that nobody else knows of yet. Its work is one transaction, which ends with
    /// `commit`.
    [[nodiscard]] static std::optional<database> create(std::string const &path, vx::fault &fault);

    [[nodiscard]] statement prepare(std::string_view words) const { return {f_base.get(), words}; }
    [[nodiscard]] bool execute(char const *words) const;
    /// Overwrites the bytes of a row, which has just so many. False when it does not, too.
    [[nodiscard]] bool overwrite(char const *table, char const *column, std::int64_t row,
                                 std::string_view bytes) const;
    /// The file at the path is another one now.
    [[nodiscard]] bool has_moved() const;
    /// What failed last, with the error numbers of the system and of the database's library.
    [[nodiscard]] vx::fault fault(int code, std::string const &path) const;

private:
    explicit database(sqlite3 *base) : f_base(base) {}
    [[nodiscard]] static std::optional<database> open_file(std::string const &path, int flags,
                                                           vx::fault &fault);
    [[nodiscard]] bool has_tables() const;

    vx::owned<sqlite3, &close_database> f_base;
};
} // namespace vx::tos
