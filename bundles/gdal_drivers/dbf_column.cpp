#include "dbf_column.h"

#include "data_types.h"

#include "platform/data/vx_dbf.h"

#include <cpl_string.h>
#include <cpl_vsi.h>
#include <ogrsf_frmts.h>

#include <algorithm>
#include <memory>
#include <unordered_map>

namespace vx::gdal {
namespace {
constexpr std::size_t c_longest_head = 0xFFFF; ///< bytes of the table's header
constexpr std::size_t c_block = 256 * 1024;    ///< bytes that are read at once; stays in the cache
constexpr std::size_t c_known_texts = 1 << 14; ///< converted texts that are kept
constexpr char c_deleted = '*';

struct file_closer
{
    void operator()(VSILFILE *file) const { VSIFCloseL(file); }
};
using file_holder = std::unique_ptr<VSILFILE, file_closer>;

bool find_cells(VSILFILE *file, int field, Tvx_dbf_cells &cells)
{
    VSIFSeekL(file, 0, SEEK_END);
    vsi_l_offset const size = VSIFTellL(file);
    VSIFSeekL(file, 0, SEEK_SET);
    std::vector<char> head(c_longest_head);
    head.resize(VSIFReadL(head.data(), 1, head.size(), file));
    return vx_dbf_find_cells(head.data(), head.size(), size, field, &cells);
}

/// False for a table that does not fit its file or the layer.
bool find_cells(VSILFILE *file, OGRLayer &layer, int field, Tvx_dbf_cells &cells)
{
    // GDAL takes all widths for single bytes.
    return find_cells(file, field, cells) && !cells.wide && cells.used_length == cells.record_length &&
           cells.fields == layer.GetLayerDefn()->GetFieldCount() &&
           cells.records == layer.GetFeatureCount(FALSE);
}

file_holder open_table(std::string const &path, OGRLayer &layer)
{
    VSIStatBufL info;
    if (VSIStatL(path.c_str(), &info) != 0)
        return nullptr;
    bool const is_folder = VSI_ISDIR(info.st_mode);
    for (char const *const ending : {"dbf", "DBF"}) {
        std::string const name = is_folder ? CPLFormFilename(path.c_str(), layer.GetName(), ending)
                                           : CPLResetExtension(path.c_str(), ending);
        if (VSIStatL(name.c_str(), &info) == 0 && VSI_ISREG(info.st_mode))
            return file_holder(VSIFOpenL(name.c_str(), "rb"));
    }
    return nullptr;
}

/// The cell as far as its text goes: up to a zero byte, without the blanks at both ends.
std::string_view trimmed(char const *cell, std::size_t width)
{
    while (width > 0 && *cell == ' ') {
        ++cell;
        --width;
    }
    while (width > 0 && cell[width - 1] == ' ')
        --width;
    std::string_view const text(cell, width);
    std::size_t const zero = text.find('\0');
    if (zero == std::string_view::npos)
        return text;
    return trimmed(cell, zero);
}

/// What the plain forms of a number spell; everything unusual is left to GDAL.
bool plain_whole(std::string_view text, std::size_t most_digits, long long &value)
{
    bool const is_negative = text.front() == '-';
    if (is_negative)
        text.remove_prefix(1);
    if (text.empty() || text.size() > most_digits)
        return false;
    value = 0;
    for (char const c : text) {
        if (c < '0' || c > '9')
            return false;
        value = value * 10 + (c - '0');
    }
    if (is_negative)
        value = -value;
    return true;
}

bool plain_floating(std::string_view text, double &value)
{
    // A quotient of two numbers that are stored exactly is rounded right.
    static constexpr double c_powers[] = {1,   1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                          1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    constexpr std::size_t c_exact_digits = 15;
    bool const is_negative = text.front() == '-';
    if (is_negative)
        text.remove_prefix(1);
    long long digits = 0;
    std::size_t count = 0;
    std::size_t behind_point = 0;
    bool has_point = false;
    for (char const c : text) {
        if (c == '.' && !has_point) {
            has_point = true;
            continue;
        }
        if (c < '0' || c > '9')
            return false;
        digits = digits * 10 + (c - '0');
        behind_point += has_point;
        if (++count > c_exact_digits)
            return false;
    }
    if (count == 0)
        return false;
    value = static_cast<double>(digits) / c_powers[behind_point];
    if (is_negative)
        value = -value;
    return true;
}

bool is_ascii(std::string_view text)
{
    return std::none_of(text.begin(), text.end(), [](char c) { return (c & 0x80) != 0; });
}

/// Brings the trimmed text of a cell into the form of its column.
class cell_reader
{
public:
    cell_reader(OGRLayer &layer, int field, column_builder &target)
        : f_field(field), f_type(layer.GetLayerDefn()->GetFieldDefn(field)->GetType()), f_target(target),
          f_scratch(OGRFeature::CreateFeature(layer.GetLayerDefn()))
    {
        char const *const encoding = layer.GetMetadataItem("SOURCE_ENCODING", "SHAPEFILE");
        if (encoding && !EQUAL(encoding, CPL_ENC_UTF8))
            f_encoding = encoding;
    }

    bool read(std::string_view text)
    {
        if (f_type == OFTString)
            return text.empty() ? f_target.add_null() : read_text(text);
        // A number that did not fit was stored as asterisks.
        if (text.empty() || text.front() == '*')
            return f_target.add_null();
        return f_type == OFTReal ? read_floating(text) : read_whole(text);
    }

private:
    bool read_text(std::string_view text)
    {
        if (f_encoding.empty() || is_ascii(text))
            return f_target.add_text(text);
        std::string const bytes(text);
        auto const known = f_converted.find(bytes);
        if (known != f_converted.end())
            return f_target.add_text(known->second);
        char *const converted = CPLRecode(bytes.c_str(), f_encoding.c_str(), CPL_ENC_UTF8);
        std::string const utf8 = converted;
        CPLFree(converted);
        if (f_converted.size() < c_known_texts)
            f_converted.emplace(bytes, utf8);
        return f_target.add_text(utf8);
    }

    bool read_whole(std::string_view text)
    {
        constexpr std::size_t c_digits_32 = 9;
        constexpr std::size_t c_digits_64 = 18;
        long long value = 0;
        if (plain_whole(text, f_type == OFTInteger ? c_digits_32 : c_digits_64, value))
            return f_target.add_whole(value);
        f_scratch->SetField(f_field, std::string(text).c_str());
        return f_target.add_whole(f_scratch->GetFieldAsInteger64(f_field));
    }

    bool read_floating(std::string_view text)
    {
        double value = 0;
        if (plain_floating(text, value))
            return f_target.add_floating(value);
        f_scratch->SetField(f_field, std::string(text).c_str());
        return f_target.add_floating(f_scratch->GetFieldAsDouble(f_field));
    }

    int f_field;
    OGRFieldType f_type;
    column_builder &f_target;
    OGRFeatureUniquePtr f_scratch; ///< reads what is no plain number, as GDAL would
    std::string f_encoding;        ///< empty: UTF-8, or unknown and taken for it
    std::unordered_map<std::string, std::string> f_converted;
};

bool is_read_here(char dbf_type, OGRFieldType type, column_batch::cell_kind &kind)
{
    bool const is_number = dbf_type == 'N' || dbf_type == 'F';
    switch (type) {
    case OFTString:
        kind = column_batch::texts;
        return dbf_type == 'C';
    case OFTInteger:
        kind = column_batch::integers;
        return is_number;
    case OFTInteger64:
        kind = column_batch::bigints;
        return is_number;
    case OFTReal:
        kind = column_batch::floatings;
        return is_number;
    default:
        return false;
    }
}
/// Through the blocks of a table. What is handed out goes to the sink of the step.
class dbf_walk final : public column_walk
{
public:
    dbf_walk(file_holder file, OGRLayer &layer, int field, Tvx_dbf_cells const &cells,
             column_batch::cell_kind kind)
        : f_file(std::move(file)), f_cells(cells), f_builder(kind, f_forward),
          f_reader(layer, field, f_builder), f_record_size(static_cast<std::size_t>(cells.record_length)),
          f_block(std::max<std::size_t>(1, c_block / f_record_size) * f_record_size)
    {
        VSIFSeekL(f_file.get(), cells.first_record, SEEK_SET);
    }

    step_result step(column_sink const &sink) override
    {
        f_sink = &sink;
        auto const records = static_cast<std::size_t>(f_cells.records);
        std::size_t const count = std::min(records - f_next, f_block.size() / f_record_size);
        if (VSIFReadL(f_block.data(), f_record_size, count, f_file.get()) != count)
            return c_broken;
        for (std::size_t i = 0; i < count; ++i) {
            char const *const record = &f_block[i * f_record_size];
            if (*record == c_deleted) {
                f_marked.push_back(static_cast<long long>(f_next + i));
                continue;
            }
            if (!f_reader.read(trimmed(record + f_cells.offset, static_cast<std::size_t>(f_cells.width))))
                return c_end;
        }
        f_next += count;
        if (f_next < records)
            return c_more;
        f_builder.finish();
        f_is_whole = true;
        return c_end;
    }
    /// Numbers of the deleted records; null unless all was read.
    [[nodiscard]] std::vector<long long> *marked() { return f_is_whole ? &f_marked : nullptr; }

private:
    file_holder f_file;
    Tvx_dbf_cells f_cells;
    column_sink const *f_sink = nullptr;
    column_sink f_forward = [this](column_batch const &batch) { return (*f_sink)(batch); };
    column_builder f_builder;
    cell_reader f_reader;
    std::size_t f_record_size;
    std::vector<char> f_block;
    std::size_t f_next = 0;
    std::vector<long long> f_marked;
    bool f_is_whole = false;
};

std::unique_ptr<dbf_walk> begin_walk(std::string const &path, OGRLayer &layer, int field)
{
    file_holder file = open_table(path, layer);
    Tvx_dbf_cells cells;
    column_batch::cell_kind kind = column_batch::texts;
    OGRFieldDefn const *const defn = layer.GetLayerDefn()->GetFieldDefn(field);
    if (!file || !find_cells(file.get(), layer, field, cells) || defn->GetSubType() != OFSTNone ||
        !is_read_here(cells.letter, defn->GetType(), kind))
        return nullptr;
    return std::make_unique<dbf_walk>(std::move(file), layer, field, cells, kind);
}
} // namespace

std::unique_ptr<column_walk> walk_dbf_column(std::string const &path, OGRLayer &layer, int field)
{
    return begin_walk(path, layer, field);
}

column_result read_dbf_column(std::string const &path, OGRLayer &layer, int field, column_sink const &sink,
                              std::optional<std::vector<long long>> &deleted)
{
    auto const walk = begin_walk(path, layer, field);
    if (!walk)
        return column_result::not_offered;
    column_walk::step_result result = column_walk::c_more;
    while (result == column_walk::c_more)
        result = walk->step(sink);
    if (result == column_walk::c_broken)
        return column_result::failed;
    if (!deleted && walk->marked())
        deleted = std::move(*walk->marked());
    return column_result::done;
}

std::vector<long long> read_deleted_records(std::string const &path, OGRLayer &layer)
{
    std::vector<long long> deleted;
    file_holder const file = open_table(path, layer);
    Tvx_dbf_cells cells;
    if (!file || !find_cells(file.get(), 0, cells))
        return deleted;
    auto const record_size = static_cast<std::size_t>(cells.record_length);
    auto const records = static_cast<std::size_t>(cells.records);
    VSIFSeekL(file.get(), cells.first_record, SEEK_SET);
    std::size_t const records_at_once = std::max<std::size_t>(1, c_block / record_size);
    std::vector<char> block(records_at_once * record_size);
    for (std::size_t first = 0; first < records;) {
        std::size_t const count =
            VSIFReadL(block.data(), record_size, std::min(records - first, records_at_once), file.get());
        if (count == 0)
            break;
        for (std::size_t i = 0; i < count; ++i)
            if (block[i * record_size] == c_deleted)
                deleted.push_back(static_cast<long long>(first + i));
        first += count;
    }
    return deleted;
}
} // namespace vx::gdal
