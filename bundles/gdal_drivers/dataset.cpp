#include "dataset.h"

#include "data_types.h"
#include "database_guard.h"
#include "grid_types.h"
#include "long_work.h"
#include "network_guard.h"
#include "source_check.h"

#include "platform/base/text_codec.h"
#include "platform/base/virtual_mark.h"
#include "platform/basic/vx_fault.h"
#include "platform/basic/vx_res.h"
#include "platform/data/vx_dbf.h"
#include "platform/winapi/codepage.h"

#include <cpl_string.h>
#include <ogrsf_frmts.h>

#include <algorithm>
#include <charconv>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <sys/stat.h>

namespace vx::gdal {
namespace {
path_kind kind_of_source(std::wstring const &source)
{
    return kind_of(text::wide_to_utf8(source));
}

/// Paths come with either separator; on the disk there is one.
std::wstring with_slashes(std::wstring source)
{
    if (source.find(L'\\') == std::wstring::npos || kind_of_source(source) != path_kind::missing)
        return source;
    std::wstring turned = source;
    std::replace(turned.begin(), turned.end(), L'\\', L'/');
    path_kind const kind = kind_of_source(turned);
    return kind == path_kind::no_path ? source : turned;
}

/// The grammar divides at the first "|", or "&" in a text without one. A file whose name holds one of them is
/// meant all the same.
connection_text parse(std::wstring const &text)
{
    connection_text first(text);
    first.source = with_slashes(first.source);
    if (first.source.empty() || kind_of_source(first.source) != path_kind::missing)
        return first;
    wchar_t const separator = text.find(L'|') == std::wstring::npos ? L'&' : L'|';
    for (std::size_t at = text.find(separator); at != std::wstring::npos;) {
        at = text.find(separator, at + 1);
        connection_text longer(text, at);
        longer.source = with_slashes(longer.source);
        if (kind_of_source(longer.source) == path_kind::file)
            return longer;
    }
    return first;
}

/// Nothing stands at the place of a new data set.
bool is_free(std::wstring const &source)
{
    path_kind const kind = kind_of_source(source.empty() ? L"." : source);
    return kind == path_kind::missing || kind == path_kind::no_path;
}

/// A server that takes the connection and says nothing would be waited for without end.
std::string with_time_limit(std::string const &source)
{
    constexpr char c_limit[] = "connect_timeout";
    bool const is_server = EQUALN(source.c_str(), "PG:", 3) && source.find("://") == std::string::npos;
    return is_server && source.find(c_limit) == std::string::npos ? source + " " + c_limit + "=10" : source;
}

CPLStringList options_of(connection_text const &connection)
{
    CPLStringList options;
    for (auto const &[key, value] : connection.options)
        options.SetNameValue(text::wide_to_utf8(key).c_str(), text::wide_to_utf8(value).c_str());
    return options;
}

/// Name under which GDAL converts texts of a code page; empty when it does not.
std::string encoding_of(unsigned page)
{
    constexpr unsigned c_iso_8859_pages = 28590;
    struct
    {
        unsigned page;
        char const *name;
    } constexpr c_names[] = {{CP_UTF8, "UTF-8"},           {20866, "KOI8-R"},    {21866, "KOI8-U"},
                             {20127, "US-ASCII"},          {10000, "MACINTOSH"}, {10007, "MAC-CYRILLIC"},
                             {10029, "MAC-CENTRALEUROPE"}, {54936, "GB18030"},   {51932, "EUC-JP"}};
    std::string name = "CP" + std::to_string(page);
    for (auto const &known : c_names)
        if (known.page == page)
            name = known.name;
    if (page > c_iso_8859_pages && page <= c_iso_8859_pages + 16)
        name = "ISO-8859-" + std::to_string(page - c_iso_8859_pages);
    return page != 0 && CPLCanRecode("a", name.c_str(), CPL_ENC_UTF8) ? name : std::string();
}

/// So much of a file tells its code page.
constexpr std::size_t c_looked_at = 1 << 22;

/// As much of the file as there is up to a bound.
std::string bytes_of(std::string const &path, std::size_t most)
{
    std::error_code problem;
    std::uintmax_t const size = std::filesystem::file_size(path, problem);
    if (problem)
        return {};
    std::string bytes(static_cast<std::size_t>(std::min<std::uintmax_t>(size, most)), '\0');
    std::ifstream file(path, std::ios::binary);
    bytes.resize(static_cast<std::size_t>(
        file.read(bytes.data(), static_cast<std::streamsize>(bytes.size())).gcount()));
    return bytes;
}

/// The code page of a shapefile's texts: found as whoever reads its table alone finds it, else guessed.
std::string encoding_of_shapefile(std::string const &path)
{
    constexpr std::size_t c_head = 32;
    for (char const *const ending : {"dbf", "DBF"}) {
        std::string const table = CPLResetExtension(path.c_str(), ending);
        if (unsigned const marked = vx_dbf_find_code_page_w(text::utf8_to_wide(table).c_str()))
            return encoding_of(marked);
        std::string const bytes = bytes_of(table, c_looked_at);
        unsigned const page =
            bytes.size() > c_head ? vx_guess_code_page(std::string_view(bytes).substr(c_head)) : CP_UTF8;
        if (page != CP_UTF8)
            return encoding_of(page);
    }
    return {};
}

/// The text of a table that is in another code page than UTF-8, in UTF-8; empty for any other.
std::string recoded_text(std::string const &path)
{
    constexpr std::uintmax_t c_most = 1 << 28;
    std::string const begin = bytes_of(path, c_looked_at);
    unsigned const page = vx_guess_code_page(begin);
    std::error_code problem;
    if (page == CP_UTF8 || begin.find('\0') != std::string::npos ||
        std::filesystem::file_size(path, problem) > c_most || problem)
        return {};
    return text::wide_to_utf8(vx_bytes_to_wide(bytes_of(path, c_most), page));
}

/// Options of the driver's own by which it makes no files beside the source.
CPLStringList open_options(connection_text const &connection, char const *driver, bool read_only)
{
    CPLStringList options = options_of(connection);
    // Closing the gaps of deleted records would change the identifiers under whoever knows them.
    if (driver && !read_only && EQUAL(driver, "ESRI Shapefile") && !options.FetchNameValue("AUTO_REPACK"))
        options.SetNameValue("AUTO_REPACK", "NO");
    if (driver && EQUAL(driver, "ESRI Shapefile") && !options.FetchNameValue("ENCODING"))
        if (std::string const encoding = encoding_of_shapefile(text::wide_to_utf8(connection.source));
            !encoding.empty())
            options.SetNameValue("ENCODING", encoding.c_str());
    if (!read_only || !driver)
        return options;
    if (EQUAL(driver, "GML")) {
        options.SetNameValue("WRITE_GFS", "NO");
        if (!connection.allows_network)
            options.SetNameValue("DOWNLOAD_SCHEMA", "NO");
    }
    return options;
}

/// The driver of rasters in memory.
bool is_driver_of_memory(char const *driver)
{
    return driver && EQUAL(driver, "MEM");
}

bool has_places(GDALDataset &tables)
{
    for (OGRLayer *table : tables.GetLayers())
        if (table->GetLayerDefn()->GetGeomFieldCount() > 0)
            return true;
    return false;
}

/// Options by which a table of text with columns of coordinates is one of points; the columns stay.
CPLStringList as_points(CPLStringList options)
{
    if (!options.FetchNameValue("X_POSSIBLE_NAMES") && !options.FetchNameValue("GEOM_POSSIBLE_NAMES")) {
        options.SetNameValue("X_POSSIBLE_NAMES", "lon,long,longitude,lng,x");
        options.SetNameValue("Y_POSSIBLE_NAMES", "lat,latitude,y");
    }
    return options;
}

/// What all texts of a column are so far.
struct column_form
{
    bool has_number = false;
    bool is_real = false;
    bool is_long = false; ///< past 32 bits

    /// False for a text that is no number as programs write it: zeros in front mark a code, and digits of
    /// a long one would be lost.
    [[nodiscard]] bool take(std::string_view text)
    {
        constexpr std::size_t c_kept_digits = 18;
        constexpr int c_long_digits = 10;
        if (text.empty())
            return true;
        auto const is_digit = [](char c) { return c >= '0' && c <= '9'; };
        std::string_view const number = text.substr(text.front() == '-' ? 1 : 0);
        auto const whole = static_cast<std::size_t>(std::find_if_not(number.begin(), number.end(), is_digit) -
                                                    number.begin());
        if (whole == 0 || (whole > 1 && number.front() == '0') ||
            (whole == number.size() && whole > c_kept_digits))
            return false;
        double value = 0;
        auto const read = std::from_chars(text.data(), text.data() + text.size(), value);
        if (read.ec != std::errc() || read.ptr != text.data() + text.size())
            return false;
        has_number = true;
        is_real = is_real || whole < number.size();
        is_long = is_long || whole >= c_long_digits;
        return true;
    }
};

/// Columns of a text table that hold numbers and nothing else are columns of numbers: the format says of none
/// what it is. One pass over the file, which ends early where there is no such column.
void find_numbers(OGRLayer &table)
{
    OGRFeatureDefn &fields = *table.GetLayerDefn();
    std::map<int, column_form> columns;
    for (int i = 0; i < fields.GetFieldCount(); ++i)
        if (fields.GetFieldDefn(i)->GetType() == OFTString)
            columns.try_emplace(i);
    table.ResetReading();
    while (!columns.empty()) {
        OGRFeatureUniquePtr const record(table.GetNextFeature());
        if (!record)
            break;
        for (auto column = columns.begin(); column != columns.end();)
            if (record->IsFieldSetAndNotNull(column->first) &&
                !column->second.take(record->GetFieldAsString(column->first)))
                column = columns.erase(column);
            else
                ++column;
    }
    table.ResetReading();
    for (auto const &[i, form] : columns)
        if (form.has_number)
            fields.GetFieldDefn(i)->SetType(form.is_real   ? OFTReal
                                            : form.is_long ? OFTInteger64
                                                           : OFTInteger);
}

/// Whether a file beside the table says what its columns are.
bool has_column_types(std::string const &path)
{
    struct stat info = {};
    return stat(CPLResetExtension(path.c_str(), "csvt"), &info) == 0;
}

/// A database in write-ahead mode would get its side files even from a reader. While no writer has it open
/// there is no log, and it can be read as a file that does not change.
bool is_idle_write_ahead_database(std::string const &path, char const *driver)
{
    struct stat info = {};
    if (!driver || !(EQUAL(driver, "GPKG") || EQUAL(driver, "SQLite")) ||
        stat((path + "-wal").c_str(), &info) == 0)
        return false;
    // The versions of the format that readers and writers need: 2 is the write-ahead one.
    constexpr std::streamoff c_versions = 18;
    char versions[2] = {};
    std::ifstream file(path, std::ios::binary);
    file.seekg(c_versions).read(versions, sizeof versions);
    return file && versions[0] == 2 && versions[1] == 2;
}
bool is_one_of(char const *name, std::initializer_list<char const *> names)
{
    return name && std::any_of(names.begin(), names.end(), [&](char const *n) { return EQUAL(n, name); });
}

bool is_database_file(std::string const &path)
{
    constexpr std::string_view c_mark("SQLite format 3\0", 16);
    std::string head(c_mark.size(), ' ');
    std::ifstream file(path, std::ios::binary);
    return file.read(head.data(), static_cast<std::streamsize>(head.size())) && head == c_mark;
}

/// What is read of an archive: the shapefiles of its uppermost folder that has any, since they are sent round
/// so; else a raster.
struct archive
{
    /// Not of formats that name other files: those are looked at before they are opened.
    explicit archive(std::string const &path)
    {
        if (!EQUAL(CPLGetExtension(path.c_str()), "zip"))
            return;
        std::string const root = "/vsizip/{" + path + "}";
        CPLStringList const names(VSIReadDirRecursive(root.c_str()));
        for (int i = 0; i < names.Count(); ++i) {
            std::string const folder = root + "/" + CPLGetPath(names[i]);
            char const *const ending = CPLGetExtension(names[i]);
            bool const is_raster = EQUAL(ending, "tif") || EQUAL(ending, "tiff");
            // Some systems pack files of their own beside, of the same name.
            if (std::string_view(CPLGetFilename(names[i])).starts_with("._"))
                continue;
            if (EQUAL(ending, "shp") && (has_no_shapes() || folder.size() < opened.size())) {
                driver = "ESRI Shapefile";
                opened = folder;
            } else if (is_raster && !driver) {
                driver = "GTiff";
                opened = root + "/" + names[i];
            }
        }
    }

    char const *driver = nullptr; ///< null for what is no such archive
    std::string opened;

private:
    [[nodiscard]] bool has_no_shapes() const { return !driver || EQUAL(driver, "GTiff"); }
};

/// Changes of such a file are written by writing all of it anew.
bool is_rewritten(char const *driver)
{
    return is_one_of(driver, {"GeoJSON", "GeoJSONSeq", "CSV", "LIBKML", "FlatGeobuf"});
}

/// What is made on the way to an open data set. It may be left on that way, and clears up by itself then.
struct opening_work
{
    std::unique_ptr<private_copy> copy;
    std::unique_ptr<whole_file> whole;
    GDALDatasetUniquePtr gdal;
    std::optional<new_tables> tables;
    bool is_spent = false;

    /// Takes the tables into memory; without a data set when one of them cannot be read to its end.
    void take_over(char const *format, CPLStringList const &options)
    {
        auto &drivers = *GetGDALDriverManager();
        GDALDatasetUniquePtr content(
            drivers.GetDriverByName("Memory")->Create("", 0, 0, 0, GDT_Unknown, nullptr));
        tables.emplace(*drivers.GetDriverByName(format), options);
        std::wstring problem;
        bool is_good = false;
        {
            error_guard const guard(problem);
            is_good = tables->read(*gdal, *content);
        }
        gdal = is_good && problem.empty() ? std::move(content) : nullptr;
    }
};

std::wstring reason_of(source_flaw const &flaw)
{
    std::wstring const name = text::utf8_to_wide(flaw.name);
    switch (flaw.kind) {
    case source_flaw::network:
        return vx_res_format_w(c_drv_asks_server, name);
    case source_flaw::too_deep:
        return vx_res_format_w(c_drv_leads_to_itself, name);
    default:
        return vx_res_format_w(c_drv_special_file, name);
    }
}

std::uintmax_t size_at(std::string const &path)
{
    std::error_code problem;
    std::uintmax_t const size = std::filesystem::file_size(path, problem);
    return problem ? 0 : size;
}

/// Bytes of a file from `at` on as a number; 0 at failure.
std::uintmax_t number_in(std::string const &path, std::streamoff at, int count, bool is_big_endian)
{
    std::ifstream file(path, std::ios::binary);
    std::uintmax_t value = 0;
    file.seekg(at);
    for (int i = 0; i < count; ++i) {
        auto const byte = static_cast<std::uintmax_t>(file.get()) & 0xFF;
        value = is_big_endian ? value << 8 | byte : value | byte << (8 * i);
    }
    return file ? value : 0;
}

bool put_number(std::string const &path, std::streamoff at, std::uintmax_t value, bool is_big_endian)
{
    std::fstream file(path, std::ios::binary | std::ios::in | std::ios::out);
    file.seekp(at);
    for (int i = 0; i < 4; ++i)
        file.put(static_cast<char>(value >> 8 * (is_big_endian ? 3 - i : i)));
    return file.flush().good();
}

/// The index of a shapefile and its table. A writer that was killed leaves an index whose head counts entries
/// that it did not come to write, and the format library opens none such.
class shapefile_index
{
public:
    explicit shapefile_index(std::string const &path)
    {
        for (char const *const ending : {"shx", "SHX"})
            if (std::string const file = CPLResetExtension(path.c_str(), ending);
                kind_of(file) == path_kind::file)
                f_index = file;
        for (char const *const ending : {"dbf", "DBF"})
            if (std::string const file = CPLResetExtension(path.c_str(), ending);
                kind_of(file) == path_kind::file)
                f_table = file;
    }
    [[nodiscard]] bool is_missing() const { return f_index.empty(); }
    [[nodiscard]] bool is_short() const
    {
        return size_at(f_index) >= c_head && number_in(f_index, c_length_at, 4, true) * 2 > size_at(f_index);
    }
    /// Leaves what index and table both have.
    [[nodiscard]] bool mend() const
    {
        std::uintmax_t entries = (size_at(f_index) - c_head) / c_entry;
        if (!f_table.empty())
            entries = std::min(entries, number_in(f_table, c_records_at, 4, false));
        return put_number(f_index, c_length_at, (c_head + entries * c_entry) / 2, true) &&
               (f_table.empty() || put_number(f_table, c_records_at, entries, false));
    }

private:
    static constexpr std::uintmax_t c_head = 100;
    static constexpr std::uintmax_t c_entry = 8;
    static constexpr std::streamoff c_length_at = 24; ///< in words of two bytes
    static constexpr std::streamoff c_records_at = 4;

    std::string f_index, f_table;
};
} // namespace

void visit_utf8(vx::string_visitor visitor, char const *text)
{
    if (text)
        visitor.visit(text::utf8_to_wide(text).c_str());
}

std::unique_ptr<dataset> dataset::open(std::wstring const &connection, bool read_only, std::wstring &error)
{
    connection_text parsed = connection.empty() ? connection_text(connection) : parse(connection);
    if (parsed.source.empty()) {
        error = vx_res_get_wstr(c_drv_no_name);
        return nullptr;
    }
    path_kind const kind = kind_of_source(parsed.source);
    if (kind == path_kind::missing) {
        error = reason_about(c_drv_file_missing, parsed.source, {});
        return nullptr;
    }
    if (kind == path_kind::special) {
        error = reason_about(c_drv_special_file, parsed.source, {});
        return nullptr;
    }
    std::string const path = text::wide_to_utf8(parsed.source);
    if (source_flaw const flaw = find_flaw(path, parsed.allows_network)) {
        error = reason_about(c_drv_not_opened, parsed.source, reason_of(flaw));
        return nullptr;
    }

    std::wstring reason;
    std::unique_ptr<dataset> result;
    {
        error_guard guard(reason);
        network_guard const local(kind != path_kind::no_path && !parsed.allows_network);
        std::string opened = with_time_limit(path);
        auto const work = std::make_shared<opening_work>();
        bool is_ready = true;
        bool lacks_index = false;
        // Before anybody asks the file what it is: some drivers open a database for that, and work off its
        // log.
        if (kind == path_kind::file && read_only && is_database_file(path) && has_abandoned_log(path)) {
            work->copy = private_copy::make(path);
            if (!work->copy) {
                error =
                    reason_about(c_drv_not_opened, parsed.source, vx_res_get_wstr(c_drv_no_room_for_copy));
                return nullptr;
            }
            opened = work->copy->path();
        }
        // A database may hold tables and rasters, each with a driver of its own: tables come first.
        GDALDriverH driver = GDALIdentifyDriverEx(opened.c_str(), GDAL_OF_VECTOR, nullptr, nullptr);
        if (!driver)
            driver = GDALIdentifyDriverEx(opened.c_str(), GDAL_OF_RASTER, nullptr, nullptr);
        archive const packed(driver || kind != path_kind::file || !read_only ? std::string() : path);
        if (packed.driver)
            opened = packed.opened;
        char const *const driver_name = driver ? GDALGetDriverShortName(driver) : packed.driver;
        // What lies beside an archive says nothing of what is in it.
        CPLStringList options = open_options(parsed, packed.driver ? nullptr : driver_name, read_only);
        if (read_only && !work->copy && is_idle_write_ahead_database(path, driver_name))
            options.SetNameValue("IMMUTABLE", "YES");
        if (kind == path_kind::file && !packed.driver && is_one_of(driver_name, {"ESRI Shapefile"})) {
            shapefile_index const index(path);
            lacks_index = index.is_missing() && EQUAL(CPLGetExtension(path.c_str()), "shp");
            if (index.is_short() && (read_only || !index.mend())) {
                guard.add(c_drv_not_closed);
                is_ready = false;
            }
        }
        if (lacks_index && read_only) {
            // It is made anew, but not in somebody's folder.
            work->copy = private_copy::of_links(path);
            if (work->copy)
                opened = work->copy->path();
        }
        if (kind == path_kind::file && !packed.driver && is_one_of(driver_name, {"CSV"}))
            if (std::string const recoded = recoded_text(path); !recoded.empty()) {
                work->copy = read_only ? private_copy::of_links(path) : nullptr;
                if (work->copy && work->copy->put(recoded))
                    opened = work->copy->path();
                else {
                    guard.add(read_only ? vx_res_get_wstr(c_drv_no_room_for_copy)
                                        : vx_res_get_wstr(c_drv_not_utf8));
                    is_ready = false;
                }
            }
        if (lacks_index && !work->copy) {
            guard.add(read_only ? c_drv_no_room_for_copy : c_drv_no_index);
            is_ready = false;
        }
        if (kind == path_kind::file && is_rewritten(driver_name) && !read_only && is_ready) {
            std::wstring refusal;
            work->whole = whole_file::load(parsed.source, refusal);
            is_ready = work->whole != nullptr;
            if (work->whole)
                opened = work->whole->work_path();
            error_guard::add_to_innermost(refusal);
        }
        // Written anew, this format puts its features into another order: its tables keep their own
        // meanwhile.
        bool const is_taken_over = work->whole && is_one_of(driver_name, {"FlatGeobuf"});
        bool const is_local = kind != path_kind::no_path && !parsed.allows_network;
        unsigned const flags = GDAL_OF_VECTOR | GDAL_OF_RASTER |
                               (read_only || is_taken_over ? GDAL_OF_READONLY : GDAL_OF_UPDATE);
        auto const open_with = [=](CPLStringList const &with) {
            char const *const only[] = {driver_name, nullptr};
            std::optional<CPLConfigOptionSetter> makes_index;
            if (lacks_index)
                makes_index.emplace("SHAPE_RESTORE_SHX", "YES", false);
            return GDALDatasetUniquePtr(
                GDALDataset::Open(opened.c_str(), flags, driver_name ? only : nullptr, with.List()));
        };
        // A text could make that driver read any place of the process.
        bool const is_memory = is_driver_of_memory(driver_name);
        if (is_memory)
            guard.add(c_drv_memory_place);
        bool const is_plain_table = kind == path_kind::file && read_only && is_one_of(driver_name, {"CSV"}) &&
                                    !options.FetchNameValue("AUTODETECT_TYPE") && !has_column_types(path);
        bool const is_over =
            is_memory || !is_ready || attend_or_leave([=] {
                network_guard const local_work(is_local);
                opening_budget const budget;
                work->gdal = open_with(options);
                work->is_spent = budget.is_spent();
                if (read_only && work->gdal && is_one_of(driver_name, {"CSV"}) && !has_places(*work->gdal))
                    if (GDALDatasetUniquePtr points = open_with(as_points(options)))
                        work->gdal = std::move(points);
                if (is_plain_table && work->gdal && work->gdal->GetLayerCount() == 1)
                    find_numbers(*work->gdal->GetLayer(0));
                if (work->gdal && is_taken_over)
                    work->take_over(driver_name, options_of(parsed));
            });
        if (!is_over)
            return nullptr;
        if (work->gdal) {
            result.reset(new dataset(std::move(work->gdal), parsed, read_only));
            result->f_copy = std::move(work->copy);
            result->f_whole = std::move(work->whole);
            if (work->tables) {
                result->f_new_tables = std::move(work->tables);
                result->f_new_driver = driver_name;
            }
        } else if (kind == path_kind::file && read_only && has_open_journal(path)) {
            guard.clear();
            guard.add(c_drv_not_closed);
        } else if (work->is_spent)
            guard.add(c_drv_endless_view);
        else if (lacks_index && is_ready)
            guard.add(c_drv_index_not_made);
    }
    if (!result)
        error = reason.empty() ? L"" : reason_about(c_drv_not_opened, parsed.source, reason);
    else if (result->vector_count() == 0 && result->grid_count() == 0) {
        error = reason_about(c_drv_nothing_inside, result->f_connection.source, {});
        result.reset();
    }
    return result;
}

std::unique_ptr<dataset> dataset::create(std::wstring const &connection, int driver_type, std::wstring &error)
{
    char const *const driver_name = driver_name_of(driver_type);
    if (!driver_name)
        return nullptr;
    connection_text parsed(connection);
    parsed.source = with_slashes(parsed.source);
    bool const is_file = driver_type != driver_memory && driver_type != driver_memory_grid;
    if (is_file && !is_free(parsed.source)) {
        error = reason_about(c_drv_place_taken, parsed.source, {});
        return nullptr;
    }
    std::wstring reason;
    std::unique_ptr<dataset> result;
    {
        error_guard guard(reason);
        std::string const path = text::wide_to_utf8(parsed.source);
        bool const is_grid = driver_type == driver_geotiff || driver_type == driver_memory_grid;
        std::unique_ptr<whole_file> whole;
        bool const is_whole = new_tables::is_for(driver_name, path);
        if (is_whole) {
            std::wstring refusal;
            whole = whole_file::make(parsed.source, refusal);
            error_guard::add_to_innermost(refusal);
        }
        bool const in_memory = is_grid || is_whole;
        auto *const format = GetGDALDriverManager()->GetDriverByName(driver_name);
        auto *const driver = in_memory ? GetGDALDriverManager()->GetDriverByName("Memory") : format;
        if (driver && format && (whole || !is_whole)) {
            GDALDatasetUniquePtr gdal(driver->Create(in_memory ? "" : path.c_str(), 0, 0, 0, GDT_Unknown,
                                                     in_memory ? nullptr : options_of(parsed).List()));
            if (gdal)
                result.reset(new dataset(std::move(gdal), parsed, false));
            if (result && is_grid)
                result->f_grid_driver = driver_name;
            if (result && is_whole) {
                result->f_whole = std::move(whole);
                result->f_new_tables.emplace(*format, options_of(parsed));
                result->f_new_driver = driver_name;
            }
        }
    }
    if (!result)
        error = reason_about(c_drv_not_made, parsed.source, reason);
    return result;
}

OGRLayer *dataset::create_table(std::string const &name, OGRSpatialReference *system, OGRwkbGeometryType type,
                                CPLStringList const &options)
{
    if (f_new_tables)
        return f_new_tables->add(*f_gdal, name, system, type, options);
    return f_gdal->CreateLayer(name.c_str(), system, type, CPLStringList(options).List());
}

bool dataset::finish_table(OGRLayer *table, bool is_good)
{
    f_is_touched = true;
    if (is_good && f_new_tables) {
        // What the format refuses shows when a file of it is made.
        is_good = write_new_tables();
    } else if (is_good && (is_driver("GPKG") || is_driver("SQLite"))) {
        // These put the making of a table off until somebody asks about it.
        std::wstring reason;
        {
            error_guard const inner(reason);
            (void)table->GetFeatureCount(FALSE);
        }
        is_good = reason.empty();
    }
    if (is_good)
        return true;
    if (f_new_tables)
        f_new_tables->drop_last(*f_gdal);
    else
        for (int i = f_gdal->GetLayerCount() - 1; i >= 0; --i)
            if (f_gdal->GetLayer(i) == table) {
                f_gdal->DeleteLayer(i);
                break;
            }
    return false;
}

bool dataset::write_new_tables()
{
    f_whole->clear();
    std::wstring reason;
    bool is_good = false;
    {
        error_guard const inner(reason);
        // Closing the file writes its last part, which counts as well.
        is_good = f_new_tables->write(f_whole->work_path());
    }
    return is_good && reason.empty();
}

bool dataset::save(error_guard &guard)
{
    if (f_read_only || !f_is_touched)
        return true;
    if (f_new_tables) {
        if (f_gdal->GetLayerCount() > 0 && (!write_new_tables() || !f_whole->publish(guard)))
            return false;
    } else {
        std::wstring reason;
        {
            error_guard const inner(reason);
            f_gdal->FlushCache();
        }
        if (!reason.empty() || (f_whole && !f_whole->publish(guard)))
            return false;
        for (OGRLayer *table : f_gdal->GetLayers())
            if (is_driver("ESRI Shapefile") && !is_on_disk(*table)) {
                guard.add(c_drv_disk_took_part);
                return false;
            }
    }
    f_is_touched = false;
    return true;
}

bool dataset::is_on_disk(OGRLayer &table) const
{
    std::string const source = text::wide_to_utf8(f_connection.source);
    std::string const file = kind_of(source) == path_kind::folder
                                 ? std::string(CPLFormFilename(source.c_str(), table.GetName(), "shp"))
                                 : source;
    auto const with_ending = [&](char const *ending) {
        return std::string(CPLResetExtension(file.c_str(), ending));
    };
    std::string const shapes = with_ending("shp");
    std::string const index = with_ending("shx");
    std::string const cells = with_ending("dbf");
    // Lengths are counted in words of two bytes.
    for (std::string const &path : {shapes, index})
        if (kind_of(path) == path_kind::file && number_in(path, 24, 4, true) * 2 != size_at(path))
            return false;
    std::uintmax_t const records = number_in(cells, 4, 4, false);
    std::uintmax_t const needed = number_in(cells, 8, 2, false) + records * number_in(cells, 10, 2, false);
    if (kind_of(cells) == path_kind::file && size_at(cells) < needed)
        return false;
    return kind_of(index) != path_kind::file || kind_of(cells) != path_kind::file ||
           (size_at(index) - 100) / 8 == records;
}

bool dataset::can_roll_back() const
{
    return !f_read_only && !f_new_tables && f_gdal->TestCapability(ODsCTransactions);
}

char const *dataset::driver_name() const
{
    if (f_grid_driver || f_new_driver)
        return f_grid_driver ? f_grid_driver : f_new_driver;
    return f_gdal->GetDriver() ? GDALGetDriverShortName(f_gdal->GetDriver()) : "";
}

bool dataset::make_grid(std::wstring const &name, int width, int height, int bands, int type)
{
    auto *const driver = f_grid_driver ? GetGDALDriverManager()->GetDriverByName(f_grid_driver) : nullptr;
    bool const is_file = !is_driver_of_memory(f_grid_driver);
    if (!driver || (is_file && !is_free(f_connection.source)))
        return false;
    CPLStringList options = options_of(f_connection);
    for (auto const &[key, value] : connection_text(name).options)
        options.SetNameValue(text::wide_to_utf8(key).c_str(), text::wide_to_utf8(value).c_str());
    if (is_file && type == cells_int8)
        options.SetNameValue("PIXELTYPE", "SIGNEDBYTE");
    // A packed file may turn out larger than its cells.
    if (is_file && !options.FetchNameValue("BIGTIFF"))
        options.SetNameValue("BIGTIFF", "IF_SAFER");
    std::string const path = is_file ? text::wide_to_utf8(f_connection.source) : std::string();
    GDALDatasetUniquePtr gdal(driver->Create(path.c_str(), width, height, bands,
                                             type == cells_int8 ? GDT_Byte : gdal_type_of(type),
                                             options.List()));
    if (!gdal)
        return false;
    for (int band = 1; !is_file && type == cells_int8 && band <= bands; ++band)
        set_signed_bytes(*gdal->GetRasterBand(band));
    f_gdal = std::move(gdal);
    f_grid_driver = nullptr;
    return true;
}

GDALDatasetUniquePtr dataset::open_again(unsigned flags) const
{
    char const *const only[] = {flags == GDAL_OF_RASTER ? "GTiff" : "FlatGeobuf", nullptr};
    if (!f_read_only || !is_driver(only[0]) || kind_of_source(f_connection.source) != path_kind::file)
        return {};
    GDALDatasetUniquePtr again(GDALDataset::Open(f_gdal->GetDescription(), flags | GDAL_OF_READONLY, only,
                                                 options_of(f_connection).List()));
    bool const is_same = again && again->GetRasterXSize() == f_gdal->GetRasterXSize() &&
                         again->GetRasterYSize() == f_gdal->GetRasterYSize() &&
                         again->GetRasterCount() == f_gdal->GetRasterCount();
    return is_same ? std::move(again) : GDALDatasetUniquePtr();
}

GDALDatasetUniquePtr dataset::connect_apart() const
{
    char const *const only[] = {driver_name(), nullptr};
    unsigned const flags = GDAL_OF_VECTOR | (f_read_only ? GDAL_OF_READONLY : GDAL_OF_UPDATE);
    return GDALDatasetUniquePtr(
        GDALDataset::Open(with_time_limit(text::wide_to_utf8(f_connection.source)).c_str(), flags, only,
                          options_of(f_connection).List()));
}

bool dataset::reconnect()
{
    GDALDatasetUniquePtr again = connect_apart();
    if (!again)
        return false;
    f_gdal = std::move(again);
    return true;
}

int dataset::driver_id() const
{
    return driver_id_of(driver_name());
}

bool dataset::is_driver(char const *name) const
{
    return std::strcmp(driver_name(), name) == 0;
}

// The tables of a folder are opened only when they are counted or asked for: a broken one is left out in
// silence.
int dataset::vector_count() const
{
    std::wstring ignored;
    error_guard const guard(ignored);
    return f_gdal->GetLayerCount();
}

void dataset::vector_source(int index, vx::string_visitor visitor) const
{
    std::wstring ignored;
    error_guard const guard(ignored);
    OGRLayer *const layer = f_gdal->GetLayer(index);
    if (!layer)
        return;
    visitor.visit(make_connection_text(f_connection, text::utf8_to_wide(layer->GetName())).c_str());
}

void dataset::vector_name(int index, vx::string_visitor visitor) const
{
    std::wstring ignored;
    error_guard const guard(ignored);
    if (OGRLayer *const layer = f_gdal->GetLayer(index))
        visit_utf8(visitor, layer->GetName());
}

char const *dataset::subdataset(int index, char const *what) const
{
    char **const list = f_gdal->GetMetadata("SUBDATASETS");
    return list ? CSLFetchNameValue(list, CPLSPrintf("SUBDATASET_%d_%s", index + 1, what)) : nullptr;
}

int dataset::grid_count() const
{
    if (f_gdal->GetRasterCount() > 0)
        return 1;
    int count = 0;
    while (subdataset(count, "NAME"))
        ++count;
    return count;
}

void dataset::grid_source(int index, vx::string_visitor visitor) const
{
    if (f_gdal->GetRasterCount() == 0)
        visit_utf8(visitor, subdataset(index, "NAME"));
    else if (index == 0)
        visitor.visit(f_connection.source.c_str());
}

void dataset::grid_name(int index, vx::string_visitor visitor) const
{
    if (f_gdal->GetRasterCount() == 0)
        visit_utf8(visitor, subdataset(index, "DESC"));
    else if (index == 0)
        with_name(visitor);
}

void dataset::with_name(vx::string_visitor visitor) const
{
    std::string const name = f_whole ? f_whole->work_path() : f_gdal->GetDescription();
    // Of a server it is a piece of the connection string.
    visitor.visit(vx_mask_passwords(text::utf8_to_wide(CPLGetBasename(name.c_str()))).c_str());
}

void dataset::with_description(vx::string_visitor visitor) const
{
    char const *text = f_gdal->GetMetadataItem("DESCRIPTION");
    if (!text)
        text = f_gdal->GetMetadataItem("TIFFTAG_IMAGEDESCRIPTION");
    if (!text && f_gdal->GetDriver())
        text = f_gdal->GetDriver()->GetMetadataItem(GDAL_DMD_LONGNAME);
    visit_utf8(visitor, text);
}

void dataset::with_files(vx::string_visitor visitor) const
{
    if (f_copy) {
        visitor.visit(f_connection.source.c_str());
        return;
    }
    CPLStringList const files(f_gdal->GetFileList());
    for (int i = 0; i < files.Count(); ++i)
        visit_utf8(visitor, f_whole ? f_whole->real_name(files[i]).c_str() : files[i]);
    if (f_new_tables)
        visitor.visit(f_connection.source.c_str());
}
} // namespace vx::gdal
