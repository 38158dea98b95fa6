#include "platform/data/vx_dbf.h"

#include "platform/base/text_codec.h"
#include "platform/data/detail/vx_dbf_header.h"
#include "platform/winapi/codepage.h"
#include "platform/winapi/file.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <deque>
#include <fcntl.h>
#include <filesystem>
#include <limits>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {
constexpr unsigned c_dos_page = 866;
constexpr unsigned c_western_page = 1252;
constexpr char c_deleted = '*';

struct file_closer
{
    void operator()(std::FILE *file) const { std::fclose(file); }
};
using open_file = std::unique_ptr<std::FILE, file_closer>;

/// A regular file for reading; a pipe does not block.
open_file open_regular(char const *path, struct stat &info)
{
    int const descriptor = open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0)
        return nullptr;
    if (fstat(descriptor, &info) == 0 && S_ISREG(info.st_mode))
        if (auto *file = fdopen(descriptor, "rb"))
            return open_file(file);
    close(descriptor);
    return nullptr;
}

/// First line of the file beside the table that names its code page; empty if there is none.
std::string page_mark(std::string const &path)
{
    constexpr std::size_t c_longest_mark = 500;
    for (char const *ending : {".cpg", ".CPG"}) {
        struct stat info = {};
        auto const file = open_regular(std::filesystem::path(path).replace_extension(ending).c_str(), info);
        if (!file)
            continue;
        std::string mark(c_longest_mark, '\0');
        mark.resize(std::fread(mark.data(), 1, mark.size(), file.get()));
        return mark.substr(0, mark.find_first_of(std::string_view("\r\n\0", 3)));
    }
    return {};
}

unsigned marked_page(std::string const &path, unsigned char driver)
{
    auto const mark = page_mark(path);
    return mark.empty() ? vx::dbf::code_page_of_driver(driver) : vx::dbf::code_page_of(mark);
}

// ---- deleted records

/// Numbers of the deleted records, ascending, and of the records that could be looked at.
struct deletions
{
    std::vector<int> records;
    int readable = 0;
};
using kept_deletions = std::shared_ptr<deletions const>;

deletions find_deleted(std::FILE *file, vx::dbf::header const &header)
{
    constexpr std::size_t c_block = std::size_t{1} << 20;
    auto const step = static_cast<std::size_t>(header.record_length);
    std::size_t const in_block = std::max<std::size_t>(1, c_block / step);
    std::vector<char> block(in_block * step);
    deletions found;
    if (fseeko(file, static_cast<off_t>(header.length), SEEK_SET) != 0)
        return found;
    while (found.readable < header.records) {
        auto const wanted = std::min(in_block, static_cast<std::size_t>(header.records - found.readable));
        auto const got = std::fread(block.data(), step, wanted, file);
        for (std::size_t i = 0; i < got; ++i, ++found.readable)
            if (block[i * step] == c_deleted)
                found.records.push_back(found.readable);
        if (got < wanted)
            break;
    }
    return found;
}

bool same_time(timespec const &a, timespec const &b)
{
    return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

/// The deletions of the tables used last. A file counts as the same while its place, size and times are.
class deletion_store
{
public:
    kept_deletions get(std::FILE *file, struct stat const &info, vx::dbf::header const &header)
    {
        for (auto it = f_entries.begin(); it != f_entries.end(); ++it)
            if (it->is(info)) {
                std::rotate(f_entries.begin(), it, it + 1);
                return f_entries.front().found;
            }
        auto found = std::make_shared<deletions const>(find_deleted(file, header));
        // A file that was just written may change again without a change of its times.
        if (std::time(nullptr) - info.st_mtim.tv_sec >= c_settle_seconds) {
            f_entries.push_front({info, found});
            if (f_entries.size() > c_kept)
                f_entries.pop_back();
        }
        return found;
    }

private:
    static constexpr std::size_t c_kept = 8;
    static constexpr std::time_t c_settle_seconds = 2;

    struct entry
    {
        struct stat info;
        kept_deletions found;

        [[nodiscard]] bool is(struct stat const &other) const
        {
            return info.st_dev == other.st_dev && info.st_ino == other.st_ino &&
                   info.st_size == other.st_size && same_time(info.st_mtim, other.st_mtim) &&
                   same_time(info.st_ctim, other.st_ctim);
        }
    };
    std::deque<entry> f_entries; ///< the one used last first
};

deletion_store &store()
{
    static deletion_store object;
    return object;
}

// ---- text

std::string_view trimmed(std::string_view text, bool front)
{
    constexpr std::string_view blanks(" \0", 2);
    auto const last = text.find_last_not_of(blanks);
    text = text.substr(0, last == std::string_view::npos ? 0 : last + 1);
    if (front)
        text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    return text;
}

bool is_ascii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<signed char>(c) >= 0; });
}

/// The text without a UTF-8 sequence that its end cuts.
std::string_view without_cut_tail(std::string_view text)
{
    constexpr std::size_t longest = 4;
    for (std::size_t back = 1; back < longest && back <= text.size(); ++back) {
        auto const c = static_cast<unsigned char>(text[text.size() - back]);
        if ((c & 0xC0U) == 0x80U)
            continue;
        std::size_t const length = c >= 0xF0 ? 4 : c >= 0xE0 ? 3 : c >= 0xC0 ? 2 : 1;
        return length > back ? text.substr(0, text.size() - back) : text;
    }
    return text;
}

/// Where nothing says what the texts are; 0 for UTF-8, which each text may still not be.
unsigned guessed_page(std::FILE *file)
{
    constexpr std::size_t c_looked_at = 1 << 22;
    constexpr off_t c_head = 32; // has no text
    std::string bytes(c_looked_at, '\0');
    auto const read = pread(fileno(file), bytes.data(), bytes.size(), c_head);
    bytes.resize(read > 0 ? static_cast<std::size_t>(read) : 0);
    unsigned const page = vx_guess_code_page(bytes);
    return page == CP_UTF8 ? 0 : page;
}

bool is_utf8(std::string_view text)
{
    constexpr wchar_t replacement = 0xFFFD;
    return text.find("\xEF\xBF\xBD") != std::string_view::npos ||
           vx::text::utf8_to_wide(text).find(replacement) == std::wstring::npos;
}

/// `filled`: the text reaches to the end of its field, which may have cut it. Page 0: there is no mark.
std::wstring decode(std::string_view text, unsigned page, bool filled)
{
    unsigned const taken = page ? page : vx_get_system_code_page();
    if (taken != CP_UTF8)
        return vx_bytes_to_wide(text, taken);
    auto const whole = filled ? without_cut_tail(text) : text;
    if (page == CP_UTF8 || (is_utf8(whole) && (whole.size() == text.size() || !is_ascii(whole))))
        return vx::text::utf8_to_wide(whole);
    return vx_bytes_to_wide(text, c_western_page);
}

// ---- values in bytes, low byte first

template <class T>
T value_at(std::string_view bytes)
{
    std::uint64_t raw = 0;
    for (std::size_t i = sizeof(T); i-- > 0;)
        raw = raw << 8 | static_cast<unsigned char>(bytes[i]);
    T value{};
    if constexpr (sizeof(T) == sizeof raw)
        std::memcpy(&value, &raw, sizeof value);
    else
        value = static_cast<T>(static_cast<std::uint32_t>(raw));
    return value;
}

template <class T>
std::string number_text(T value)
{
    std::array<char, 40> buffer;
    auto const result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return {buffer.data(), result.ptr};
}

/// Ten thousandths, as an amount with four digits behind the point.
std::string currency_text(std::int64_t value)
{
    constexpr std::uint64_t unit = 10000;
    auto const size = value < 0 ? 0 - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value);
    std::string const part = number_text(size % unit);
    return (value < 0 ? "-" : "") + number_text(size / unit) + '.' + std::string(4 - part.size(), '0') + part;
}

/// A day counted as in astronomy and milliseconds of the day.
std::string date_time_text(std::uint32_t day, std::uint32_t milliseconds)
{
    using namespace std::chrono;
    constexpr std::uint32_t first_day = 1721426; // 1 January of the year 1
    constexpr std::uint32_t last_day = 5373484;  // 31 December 9999
    constexpr int epoch = 2440588;               // 1 January 1970
    if (day < first_day || day > last_day ||
        milliseconds >= duration_cast<std::chrono::milliseconds>(days(1)).count())
        return {};
    year_month_day const date = sys_days(days(static_cast<int>(day) - epoch));
    hh_mm_ss const time(floor<seconds>(std::chrono::milliseconds(milliseconds)));
    std::array<char, 40> text;
    int const length =
        std::snprintf(text.data(), text.size(), "%04d-%02u-%02u %02d:%02d:%02d",
                      static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                      static_cast<unsigned>(date.day()), static_cast<int>(time.hours().count()),
                      static_cast<int>(time.minutes().count()), static_cast<int>(time.seconds().count()));
    return {text.data(), static_cast<std::size_t>(length)};
}

bool is_true(char c)
{
    return c == 'T' || c == 't' || c == 'Y' || c == 'y';
}
bool is_false(char c)
{
    return c == 'F' || c == 'f' || c == 'N' || c == 'n';
}

bool read_number(std::string_view text, double &value)
{
    if (text.starts_with('+'))
        text.remove_prefix(1);
    double read = 0.0;
    auto const result = std::from_chars(text.data(), text.data() + text.size(), read);
    if (text.empty() || result.ec != std::errc() || result.ptr != text.data() + text.size() ||
        !std::isfinite(read))
        return false;
    value = read;
    return true;
}
} // namespace

struct Ivx_dbf
{
    struct names
    {
        std::string bytes;
        std::wstring wide;
    };

    vx::dbf::header header;
    std::vector<names> field_names;
    open_file file;
    kept_deletions deleted;
    unsigned page = 0; ///< 0: the file has no mark
    std::string text;
    std::wstring wide;
    mutable std::vector<char> record_bytes;
    mutable int record_place = -1; ///< of the record in `record_bytes`

    [[nodiscard]] int count() const { return deleted->readable - static_cast<int>(deleted->records.size()); }
    [[nodiscard]] vx::dbf::field const *field(int index) const
    {
        return index >= 0 && static_cast<std::size_t>(index) < header.fields.size()
                   ? &header.fields[static_cast<std::size_t>(index)]
                   : nullptr;
    }
    /// The place in the file of a record that is not deleted: it lies behind as many deleted records as have
    /// no more than `record` others before them.
    [[nodiscard]] int place_of(int record) const
    {
        auto const &gone = deleted->records;
        std::size_t low = 0;
        std::size_t high = gone.size();
        while (low < high) {
            auto const middle = low + (high - low) / 2;
            if (gone[middle] - static_cast<int>(middle) <= record)
                low = middle + 1;
            else
                high = middle;
        }
        return record + static_cast<int>(low);
    }
    /// The cell's bytes; empty if there is no such cell or it cannot be read.
    [[nodiscard]] std::string_view cell(vx::dbf::field const *field, int record) const
    {
        if (!field || record < 0 || record >= count())
            return {};
        if (!take_record(place_of(record)))
            return {};
        return {record_bytes.data() + field->offset, static_cast<std::size_t>(field->width)};
    }
    /// The record last asked for is kept.
    [[nodiscard]] bool take_record(int place) const
    {
        if (place == record_place)
            return true;
        record_place = -1;
        record_bytes.resize(static_cast<std::size_t>(header.record_length));
        auto const start = header.length + static_cast<std::uint64_t>(place) * header.record_length;
        if (pread(fileno(file.get()), record_bytes.data(), record_bytes.size(), static_cast<off_t>(start)) !=
            static_cast<ssize_t>(record_bytes.size()))
            return false;
        record_place = place;
        return true;
    }
    /// The value as the file has it, in the file's code page; empty for none. `filled` as in `decode`.
    [[nodiscard]] std::string value(vx::dbf::field const &field, int record, bool &filled) const
    {
        auto const bytes = cell(&field, record);
        filled = false;
        if (bytes.empty())
            return {};
        switch (field.type) {
        case c_dbf_memo:
        case c_dbf_binary:
            return {};
        case c_dbf_integer:
            return number_text(value_at<std::int32_t>(bytes));
        case c_dbf_double:
            return field.letter == 'Y' ? currency_text(value_at<std::int64_t>(bytes))
                                       : double_text(value_at<double>(bytes));
        case c_dbf_date_time:
            return date_time_text(value_at<std::uint32_t>(bytes), value_at<std::uint32_t>(bytes.substr(4)));
        case c_dbf_logical:
            return is_true(bytes[0]) || is_false(bytes[0]) ? std::string(1, bytes[0]) : std::string();
        case c_dbf_number: {
            auto const number = trimmed(bytes, true);
            return number.find('*') == std::string_view::npos ? std::string(number) : std::string();
        }
        default: {
            // Some programs end a text by NUL and leave the rest of the field as it was.
            auto const text = trimmed(bytes.substr(0, bytes.find('\0')), field.type == c_dbf_date);
            filled = text.size() == bytes.size();
            return std::string(text);
        }
        }
    }
    [[nodiscard]] static std::string double_text(double number)
    {
        return std::isfinite(number) ? number_text(number) : std::string();
    }
};

Ivx_dbf *vx_dbf_open(char const *name, int read_only, int dos_flag)
{
    return name ? vx_dbf_open_w(vx::text::to_wide(name).c_str(), read_only, dos_flag) : nullptr;
}

Ivx_dbf *vx_dbf_open_w(wchar_t const *name, int, int dos_flag)
{
    if (!name || !*name)
        return nullptr;
    std::string const path = vx_path_to_native(name);
    struct stat info = {};
    auto file = open_regular(path.c_str(), info);
    if (!file)
        return nullptr;
    std::string bytes(std::min<std::size_t>(vx::dbf::c_header_limit, static_cast<std::size_t>(info.st_size)),
                      '\0');
    if (std::fread(bytes.data(), 1, bytes.size(), file.get()) != bytes.size())
        return nullptr;
    auto header = vx::dbf::parse_header(bytes, static_cast<std::uint64_t>(info.st_size));
    if (!header)
        return nullptr;
    auto table = std::make_unique<Ivx_dbf>();
    table->deleted = store().get(file.get(), info, *header);
    table->header = std::move(*header);
    table->file = std::move(file);
    if (dos_flag)
        table->page = c_dos_page;
    else
        table->page = marked_page(path, table->header.driver);
    if (table->page == 0)
        table->page = guessed_page(table->file.get());
    for (auto const &field : table->header.fields) {
        auto wide = decode(field.name, table->page, false);
        auto narrow = vx::text::to_bytes(wide);
        table->field_names.push_back({std::move(narrow), std::move(wide)});
    }
    return table.release();
}

unsigned vx_dbf_find_code_page_w(wchar_t const *name)
{
    if (!name || !*name)
        return 0;
    std::string const path = vx_path_to_native(name);
    struct stat info = {};
    auto const file = open_regular(path.c_str(), info);
    char head[vx::dbf::c_driver_at + 1];
    if (!file || std::fread(head, 1, sizeof head, file.get()) != sizeof head)
        return 0;
    return marked_page(path, static_cast<unsigned char>(head[vx::dbf::c_driver_at]));
}

bool vx_dbf_find_cells(void const *head, std::size_t head_size, std::uint64_t file_size, int field,
                       Tvx_dbf_cells *cells)
{
    auto const header = head && cells
                            ? vx::dbf::parse_header({static_cast<char const *>(head), head_size}, file_size)
                            : std::nullopt;
    if (!header || field < 0 || static_cast<std::size_t>(field) >= header->fields.size())
        return false;
    auto const &found = header->fields[static_cast<std::size_t>(field)];
    auto const &last = header->fields.back();
    cells->fields = static_cast<int>(header->fields.size());
    cells->records = header->records;
    cells->first_record = header->length;
    cells->record_length = static_cast<int>(header->record_length);
    cells->used_length = last.offset + last.width;
    cells->offset = found.offset;
    cells->width = found.width;
    cells->letter = found.letter;
    cells->wide = header->wide;
    return true;
}

void vx_dbf_close(Ivx_dbf *table)
{
    delete table;
}

int vx_dbf_get_nf(Ivx_dbf const *table)
{
    return table ? static_cast<int>(table->header.fields.size()) : 0;
}

int vx_dbf_get_nr(Ivx_dbf const *table)
{
    return table ? table->count() : 0;
}

char const *vx_dbf_get_field_name(Ivx_dbf const *table, int field)
{
    return table && table->field(field) ? table->field_names[static_cast<std::size_t>(field)].bytes.c_str()
                                        : "";
}

wchar_t const *vx_dbf_get_field_wname(Ivx_dbf const *table, int field)
{
    return table && table->field(field) ? table->field_names[static_cast<std::size_t>(field)].wide.c_str()
                                        : L"";
}

int vx_dbf_get_field_type(Ivx_dbf const *table, int field)
{
    auto const *found = table ? table->field(field) : nullptr;
    return found ? found->type : c_dbf_unknown;
}

int vx_dbf_get_field_width(Ivx_dbf const *table, int field)
{
    auto const *found = table ? table->field(field) : nullptr;
    return found ? found->width : 0;
}

int vx_dbf_get_field_decimals(Ivx_dbf const *table, int field)
{
    auto const *found = table ? table->field(field) : nullptr;
    return found ? found->decimals : 0;
}

namespace {
/// The value in the file's code page; `ok` as the public functions have it.
std::string read_value(Ivx_dbf *table, int field, int record, bool &filled, bool *ok)
{
    auto const *found = table ? table->field(field) : nullptr;
    filled = false;
    std::string value = found ? table->value(*found, record, filled) : std::string();
    if (ok)
        *ok = !value.empty();
    return value;
}
} // namespace

char const *vx_dbf_get_str(Ivx_dbf *table, int field, int record, bool *ok)
{
    bool filled = false;
    auto value = read_value(table, field, record, filled, ok);
    if (value.empty())
        return "";
    if (!is_ascii(value))
        value = vx::text::to_bytes(decode(value, table->page, filled));
    table->text = std::move(value);
    return table->text.c_str();
}

wchar_t const *vx_dbf_get_wstr(Ivx_dbf *table, int field, int record, bool *ok)
{
    bool filled = false;
    auto const value = read_value(table, field, record, filled, ok);
    if (value.empty())
        return L"";
    table->wide = decode(value, table->page, filled);
    return table->wide.c_str();
}

double vx_dbf_get_dbl(Ivx_dbf *table, int field, int record, bool *ok)
{
    bool filled = false;
    bool has_value = false;
    auto const value = read_value(table, field, record, filled, &has_value);
    double number = 0.0;
    if (has_value) {
        if (vx_dbf_get_field_type(table, field) == c_dbf_logical)
            number = is_true(value[0]) ? 1.0 : 0.0;
        else
            has_value = read_number(trimmed(value, true), number);
    }
    if (ok)
        *ok = has_value;
    return number;
}

int vx_dbf_get_int(Ivx_dbf *table, int field, int record, bool *ok)
{
    bool good = false;
    double const number = std::trunc(vx_dbf_get_dbl(table, field, record, &good));
    good = good && number >= std::numeric_limits<int>::min() && number <= std::numeric_limits<int>::max();
    if (ok)
        *ok = good;
    return good ? static_cast<int>(number) : 0;
}
