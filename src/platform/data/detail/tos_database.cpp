#include "platform/data/detail/tos_database.h"

#include "captions/engine.h"

#include "platform/base/text_codec.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vx::tos {
namespace {
constexpr int c_page = 16384;
constexpr int c_longest_value = 64 << 10; ///< bytes of a row; ours have less
constexpr int c_longest_words = 8 << 10;
constexpr int c_most_tables = 32;
constexpr int c_cache_kb = 4096;
constexpr int c_patience_ms = 2000; ///< for another writer, whose writing takes some milliseconds
/// Steps of the database's machine between two looks, and looks that a statement of ours may take.
constexpr int c_steps = 100'000;
constexpr int c_most_looks = 1000;

// ---- the head of the file, which every database begins with

constexpr std::size_t c_head = 108; ///< bytes, with the head of the first page
constexpr char c_magic[] = "SQLite format 3";
enum head_place : std::size_t
{
    head_page = 16,
    head_write_form = 18,
    head_read_form = 19,
    head_changes = 24,
    head_pages = 28,
    head_encoding = 56,
    head_version = 60,
    head_application = 68,
    head_pages_of_change = 92,
    head_kind_of_page = 100,
    head_cells = 103,
};
constexpr unsigned char c_leaf = 0x0D; ///< the list of tables in one page

std::uint32_t number_at(unsigned char const *head, std::size_t at, std::size_t bytes)
{
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < bytes; ++i)
        value = value << 8 | head[at + i];
    return value;
}

vx::fault make_fault(int code, std::string const &path, int system = 0)
{
    return {code, vx::text::utf8_to_wide(path), system, {}};
}

/// What the first bytes of a property file say; 0 when they are right, else the caption of what is wrong.
int check_head(unsigned char const *head, std::uint64_t size)
{
    if (std::memcmp(head, c_magic, sizeof c_magic) != 0 ||
        number_at(head, head_application, 4) != c_application)
        return c_capt_file_other;
    if (number_at(head, head_version, 4) > c_version)
        return c_capt_file_newer;
    std::uint64_t page = number_at(head, head_page, 2);
    page = page == 1 ? 65536 : page;
    bool const is_right = number_at(head, head_version, 4) == c_version && head[head_write_form] == 1 &&
                          head[head_read_form] == 1 && number_at(head, head_encoding, 4) == 1 &&
                          number_at(head, head_changes, 4) == number_at(head, head_pages_of_change, 4) &&
                          number_at(head, head_pages, 4) * page == size &&
                          head[head_kind_of_page] == c_leaf &&
                          number_at(head, head_cells, 2) <= c_most_tables;
    return is_right ? 0 : c_capt_tos_damaged;
}

/// Looks at the file before the database's library does, which would take any database for good.
bool check_file(std::string const &path, vx::fault &fault)
{
    int const file = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    struct stat info
    {
    };
    if (file < 0 || fstat(file, &info) != 0) {
        fault = make_fault(c_capt_file_not_opened, path, errno);
        if (file >= 0)
            ::close(file);
        return false;
    }
    unsigned char head[c_head] = {};
    bool const is_regular = S_ISREG(info.st_mode);
    ssize_t const got = is_regular ? pread(file, head, c_head, 0) : 0;
    ::close(file);
    int const code = !is_regular ? c_capt_no_regular_file
                     : got < 0   ? c_capt_file_not_read
                     : got < static_cast<ssize_t>(c_head)
                         ? c_capt_file_other
                         : check_head(head, static_cast<std::uint64_t>(info.st_size));
    if (code != 0)
        fault = make_fault(code, path);
    return code == 0;
}

/// The path as an address; what is special in one is written in hexadecimal digits.
std::string address_of(std::string const &path)
{
    constexpr char c_digits[] = "0123456789abcdef";
    std::string address = "file:";
    for (char const c : path)
        if (c == '%' || c == '?' || c == '#') {
            address += '%';
            address += c_digits[static_cast<unsigned char>(c) >> 4];
            address += c_digits[c & 15];
        } else {
            address += c;
        }
    return address;
}

int on_progress(void *looks)
{
    return ++*static_cast<int *>(looks) > c_most_looks;
}

/// A file from a stranger gets nothing run and not much memory.
void defend(sqlite3 *base)
{
    sqlite3_db_config(base, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(base, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(base, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_db_config(base, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
    sqlite3_limit(base, SQLITE_LIMIT_LENGTH, c_longest_value);
    sqlite3_limit(base, SQLITE_LIMIT_SQL_LENGTH, c_longest_words);
    sqlite3_limit(base, SQLITE_LIMIT_ATTACHED, 0);
    sqlite3_limit(base, SQLITE_LIMIT_WORKER_THREADS, 0);
    sqlite3_exec(base, "PRAGMA cell_size_check = ON; PRAGMA mmap_size = 0; PRAGMA temp_store = MEMORY",
                 nullptr, nullptr, nullptr);
    sqlite3_exec(base, ("PRAGMA cache_size = -" + std::to_string(c_cache_kb)).c_str(), nullptr, nullptr,
                 nullptr);
}
} // namespace

bool has_property_head(std::string const &path)
{
    vx::fault fault;
    return check_file(path, fault) || fault.code == c_capt_tos_damaged || fault.code == c_capt_file_newer;
}

void close_database(sqlite3 *base)
{
    sqlite3_close_v2(base);
}

void end_statement(sqlite3_stmt *statement)
{
    sqlite3_finalize(statement);
}

// ---- statement

statement::statement(sqlite3 *base, std::string_view words)
{
    sqlite3_stmt *made = nullptr;
    f_failed = sqlite3_prepare_v3(base, words.data(), static_cast<int>(words.size()),
                                  SQLITE_PREPARE_PERSISTENT, &made, nullptr) != SQLITE_OK;
    f_statement.reset(made);
}

void statement::bind(int place, std::int64_t value)
{
    f_failed = f_failed || sqlite3_bind_int64(f_statement.get(), place, value) != SQLITE_OK;
}

void statement::bind(int place, double value)
{
    f_failed = f_failed || sqlite3_bind_double(f_statement.get(), place, value) != SQLITE_OK;
}

void statement::bind(int place, std::string_view text)
{
    f_failed = f_failed || sqlite3_bind_text(f_statement.get(), place, text.data(),
                                             static_cast<int>(text.size()), SQLITE_TRANSIENT) != SQLITE_OK;
}

void statement::bind_blob(int place, std::string_view bytes)
{
    f_failed = f_failed || sqlite3_bind_blob(f_statement.get(), place, bytes.data(),
                                             static_cast<int>(bytes.size()), SQLITE_TRANSIENT) != SQLITE_OK;
}

bool statement::step()
{
    if (f_failed)
        return false;
    int const code = sqlite3_step(f_statement.get());
    f_failed = code != SQLITE_ROW && code != SQLITE_DONE;
    return code == SQLITE_ROW;
}

bool statement::run()
{
    (void)step();
    bool const good = !f_failed;
    reset();
    f_failed = !good;
    return good;
}

void statement::reset()
{
    if (f_statement)
        sqlite3_reset(f_statement.get());
    f_failed = !f_statement;
}

std::optional<std::int64_t> statement::integer(int column) const
{
    if (sqlite3_column_type(f_statement.get(), column) != SQLITE_INTEGER)
        return std::nullopt;
    return sqlite3_column_int64(f_statement.get(), column);
}

std::optional<double> statement::real(int column) const
{
    if (sqlite3_column_type(f_statement.get(), column) != SQLITE_FLOAT)
        return std::nullopt;
    return sqlite3_column_double(f_statement.get(), column);
}

std::optional<std::string_view> statement::text(int column) const
{
    if (sqlite3_column_type(f_statement.get(), column) != SQLITE_TEXT)
        return std::nullopt;
    auto const *const text = sqlite3_column_text(f_statement.get(), column);
    return std::string_view(reinterpret_cast<char const *>(text),
                            static_cast<std::size_t>(sqlite3_column_bytes(f_statement.get(), column)));
}

std::optional<std::string_view> statement::blob(int column) const
{
    if (sqlite3_column_type(f_statement.get(), column) != SQLITE_BLOB)
        return std::nullopt;
    auto const *const bytes = sqlite3_column_blob(f_statement.get(), column);
    return std::string_view(static_cast<char const *>(bytes),
                            static_cast<std::size_t>(sqlite3_column_bytes(f_statement.get(), column)));
}

// ---- database

std::optional<database> database::open_file(std::string const &path, int flags, vx::fault &fault)
{
    sqlite3 *opened = nullptr;
    int const code = sqlite3_open_v2(
        path.c_str(), &opened, flags | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_PRIVATECACHE | SQLITE_OPEN_EXRESCODE,
        nullptr);
    database base(opened);
    if (code == SQLITE_OK)
        return base;
    fault = make_fault(c_capt_file_not_opened, path, opened ? sqlite3_system_errno(opened) : ENOMEM);
    return std::nullopt;
}

std::optional<database> database::open(std::string const &path, vx::fault &fault)
{
    fault = {};
    if (!check_file(path, fault))
        return std::nullopt;
    auto base = open_file(address_of(path) + "?immutable=1", SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, fault);
    if (!base) {
        fault.subject = vx::text::utf8_to_wide(path);
        return std::nullopt;
    }
    defend(base->f_base.get());
    // What the tables are made of is read once here, and is the one thing whose cost a stranger sets.
    int looks = 0;
    sqlite3_progress_handler(base->f_base.get(), c_steps, &on_progress, &looks);
    bool const good = base->has_tables();
    sqlite3_progress_handler(base->f_base.get(), 0, nullptr, nullptr);
    if (good)
        return base;
    fault = base->fault(c_capt_tos_damaged, path);
    return std::nullopt;
}

std::optional<database> database::open_for_records(std::string const &path, vx::fault &fault)
{
    fault = {};
    if (!check_file(path, fault))
        return std::nullopt;
    auto base = open_file(path, SQLITE_OPEN_READWRITE, fault);
    if (!base)
        return std::nullopt;
    if (sqlite3_db_readonly(base->f_base.get(), "main") != 0) {
        fault = make_fault(c_capt_file_not_written, path, EACCES);
        return std::nullopt;
    }
    defend(base->f_base.get());
    sqlite3_busy_timeout(base->f_base.get(), c_patience_ms);
    // A journal beside the file would have to be played back by readers, which write nothing.
    if (base->execute("PRAGMA journal_mode = MEMORY; PRAGMA synchronous = FULL") && base->has_tables())
        return base;
    fault = base->fault(c_capt_file_not_written, path);
    return std::nullopt;
}

std::optional<database> database::create(std::string const &path, vx::fault &fault)
{
    fault = {};
    auto base = open_file(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, fault);
    if (!base)
        return std::nullopt;
    auto const words =
        "PRAGMA page_size = " + std::to_string(c_page) +
        "; PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; PRAGMA locking_mode = EXCLUSIVE; "
        "PRAGMA auto_vacuum = 0; PRAGMA encoding = 'UTF-8'; PRAGMA temp_store = MEMORY; "
        "PRAGMA cache_size = -" +
        std::to_string(c_cache_kb) + "; BEGIN; PRAGMA application_id = " + std::to_string(c_application) +
        "; PRAGMA user_version = " + std::to_string(c_version);
    bool good = base->execute(words.c_str());
    for (auto const &table : c_tables)
        good = good && base->execute(std::string(table[1]).c_str());
    if (good)
        return base;
    fault = base->fault(c_capt_file_not_written, path);
    return std::nullopt;
}

bool database::has_tables() const
{
    auto schema = prepare("SELECT type, name, sql FROM sqlite_schema");
    std::size_t found = 0;
    while (schema.step()) {
        auto const name = schema.text(1);
        for (auto const &table : c_tables)
            if (name == table[0]) {
                if (schema.text(0) != "table" || schema.text(2) != table[1])
                    return false;
                ++found;
            }
    }
    return !schema.failed() && found == std::size(c_tables);
}

bool database::execute(char const *words) const
{
    return sqlite3_exec(f_base.get(), words, nullptr, nullptr, nullptr) == SQLITE_OK;
}

bool database::overwrite(char const *table, char const *column, std::int64_t row,
                         std::string_view bytes) const
{
    sqlite3_blob *blob = nullptr;
    bool good = sqlite3_blob_open(f_base.get(), "main", table, column, row, 1, &blob) == SQLITE_OK;
    int const size = static_cast<int>(bytes.size());
    good = good && sqlite3_blob_bytes(blob) == size &&
           sqlite3_blob_write(blob, bytes.data(), size, 0) == SQLITE_OK;
    return sqlite3_blob_close(blob) == SQLITE_OK && good;
}

bool database::has_moved() const
{
    int moved = 0;
    return sqlite3_file_control(f_base.get(), "main", SQLITE_FCNTL_HAS_MOVED, &moved) == SQLITE_OK &&
           moved != 0;
}

vx::fault database::fault(int code, std::string const &path) const
{
    vx::fault result = make_fault(code, path);
    int const number = sqlite3_errcode(f_base.get());
    if (number == SQLITE_OK || number == SQLITE_ROW || number == SQLITE_DONE)
        return result;
    switch (number & 0xFF) {
    case SQLITE_NOMEM:
        result.system = ENOMEM;
        break;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        result.system = EBUSY;
        break;
    case SQLITE_FULL:
        result.system = ENOSPC;
        break;
    case SQLITE_READONLY:
        result.system = EACCES;
        break;
    default:
        result.system = sqlite3_system_errno(f_base.get());
    }
    result.details = vx::text::utf8_to_wide(sqlite3_errmsg(f_base.get()));
    return result;
}
} // namespace vx::tos
