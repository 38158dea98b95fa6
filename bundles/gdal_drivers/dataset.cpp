#include "dataset.h"

#include "data_types.h"
#include "grid_types.h"
#include "long_work.h"

#include "platform/base/text_codec.h"
#include "platform/base/virtual_mark.h"
#include "platform/basic/vx_res.h"

#include <cpl_string.h>
#include <ogrsf_frmts.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <sys/stat.h>

namespace vx::gdal {
namespace {
enum class path_kind
{
    file,
    folder,
    special, ///< a pipe, a socket, a device
    missing, ///< looks like a path and is not there
    no_path, ///< a database, an address: only the driver can tell
};

path_kind kind_of(std::wstring const &source)
{
    std::string const path = text::wide_to_utf8(source);
    struct stat info = {};
    if (stat(path.c_str(), &info) == 0) {
        if (S_ISREG(info.st_mode))
            return path_kind::file;
        return S_ISDIR(info.st_mode) ? path_kind::folder : path_kind::special;
    }
    bool const is_address =
        path.rfind("/vsi", 0) == 0 || path.find(':') != std::string::npos || path.front() == '<';
    return is_address && errno != EACCES ? path_kind::no_path : path_kind::missing;
}

/// The grammar takes "&" for the separator in a text without "|". A file whose name holds one is meant all
/// the same.
connection_text parse(std::wstring const &text)
{
    connection_text parsed(text);
    if (text.find(L'|') != std::wstring::npos || text.find(L'&') == std::wstring::npos)
        return parsed;
    std::wstring const whole(without_virtual_mark(text));
    if (kind_of(parsed.source.empty() ? L"?" : parsed.source) == path_kind::missing &&
        kind_of(whole) == path_kind::file) {
        connection_text file(L"");
        file.source = whole;
        return file;
    }
    return parsed;
}

/// Nothing stands at the place of a new data set.
bool is_free(std::wstring const &source)
{
    path_kind const kind = kind_of(source.empty() ? L"." : source);
    return kind == path_kind::missing || kind == path_kind::no_path;
}

CPLStringList options_of(connection_text const &connection)
{
    CPLStringList options;
    for (auto const &[key, value] : connection.options)
        options.SetNameValue(text::wide_to_utf8(key).c_str(), text::wide_to_utf8(value).c_str());
    return options;
}

/// Options of the driver's own by which it makes no files beside the source.
CPLStringList open_options(connection_text const &connection, char const *driver, bool read_only)
{
    CPLStringList options = options_of(connection);
    if (!read_only || !driver)
        return options;
    if (EQUAL(driver, "GML"))
        options.SetNameValue("WRITE_GFS", "NO");
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
    path_kind const kind = kind_of(parsed.source);
    if (kind == path_kind::missing) {
        error = reason_about(c_drv_file_missing, parsed.source, {});
        return nullptr;
    }
    if (kind == path_kind::special) {
        error = reason_about(c_drv_special_file, parsed.source, {});
        return nullptr;
    }

    std::wstring reason;
    std::unique_ptr<dataset> result;
    {
        error_guard guard(reason);
        std::string const path = text::wide_to_utf8(parsed.source);
        // A database may hold tables and rasters, each with a driver of its own: tables come first.
        GDALDriverH driver = GDALIdentifyDriverEx(path.c_str(), GDAL_OF_VECTOR, nullptr, nullptr);
        if (!driver)
            driver = GDALIdentifyDriverEx(path.c_str(), GDAL_OF_RASTER, nullptr, nullptr);
        char const *const driver_name = driver ? GDALGetDriverShortName(driver) : nullptr;
        CPLStringList options = open_options(parsed, driver_name, read_only);
        if (read_only && is_idle_write_ahead_database(path, driver_name))
            options.SetNameValue("IMMUTABLE", "YES");
        unsigned const flags =
            GDAL_OF_VECTOR | GDAL_OF_RASTER | (read_only ? GDAL_OF_READONLY : GDAL_OF_UPDATE);
        auto const open_with = [=](CPLStringList const &with) {
            char const *const only[] = {driver_name, nullptr};
            return GDALDatasetUniquePtr(
                GDALDataset::Open(path.c_str(), flags, driver_name ? only : nullptr, with.List()));
        };
        // A text could make that driver read any place of the process.
        bool const is_memory = is_driver_of_memory(driver_name);
        if (is_memory)
            guard.add(c_drv_memory_place);
        auto const opened = std::make_shared<GDALDatasetUniquePtr>();
        bool const is_over = attend_or_leave([=] {
            if (!is_memory)
                *opened = open_with(options);
            if (read_only && *opened && EQUAL(driver_name ? driver_name : "", "CSV") && !has_places(**opened))
                if (GDALDatasetUniquePtr points = open_with(as_points(options)))
                    *opened = std::move(points);
        });
        if (!is_over)
            return nullptr;
        GDALDatasetUniquePtr gdal = std::move(*opened);
        if (gdal)
            result.reset(new dataset(std::move(gdal), std::move(parsed), read_only));
        else
            parsed.source = text::utf8_to_wide(path);
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
    bool const is_file = driver_type != driver_memory && driver_type != driver_memory_grid;
    if (is_file && !is_free(parsed.source)) {
        error = reason_about(c_drv_place_taken, parsed.source, {});
        return nullptr;
    }
    std::wstring reason;
    std::unique_ptr<dataset> result;
    {
        error_guard guard(reason);
        bool const is_grid = driver_type == driver_geotiff || driver_type == driver_memory_grid;
        auto *const driver = GetGDALDriverManager()->GetDriverByName(is_grid ? "Memory" : driver_name);
        if (driver) {
            std::string const path = text::wide_to_utf8(parsed.source);
            GDALDatasetUniquePtr gdal(driver->Create(is_grid ? "" : path.c_str(), 0, 0, 0, GDT_Unknown,
                                                     is_grid ? nullptr : options_of(parsed).List()));
            if (gdal)
                result.reset(new dataset(std::move(gdal), parsed, false));
            if (result && is_grid)
                result->f_grid_driver = driver_name;
        }
    }
    if (!result)
        error = reason_about(c_drv_not_made, parsed.source, reason);
    return result;
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

GDALDatasetUniquePtr dataset::open_again() const
{
    char const *const only[] = {"GTiff", nullptr};
    if (!f_read_only || !is_driver(only[0]) || kind_of(f_connection.source) != path_kind::file)
        return {};
    GDALDatasetUniquePtr again(GDALDataset::Open(f_gdal->GetDescription(), GDAL_OF_RASTER | GDAL_OF_READONLY,
                                                 only, options_of(f_connection).List()));
    bool const is_same = again && again->GetRasterXSize() == f_gdal->GetRasterXSize() &&
                         again->GetRasterYSize() == f_gdal->GetRasterYSize() &&
                         again->GetRasterCount() == f_gdal->GetRasterCount();
    return is_same ? std::move(again) : GDALDatasetUniquePtr();
}

int dataset::driver_id() const
{
    if (f_grid_driver)
        return driver_id_of(f_grid_driver);
    GDALDriver const *const driver = f_gdal->GetDriver();
    return driver ? driver_id_of(GDALGetDriverShortName(f_gdal->GetDriver())) : driver_other;
}

bool dataset::is_driver(char const *name) const
{
    GDALDriver *const driver = f_gdal->GetDriver();
    return driver && std::strcmp(GDALGetDriverShortName(driver), name) == 0;
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
    std::wstring const name = text::utf8_to_wide(layer->GetName());
    // An option cannot hold this character; an only table needs no name.
    if (name.find(L'&') != std::wstring::npos && f_gdal->GetLayerCount() == 1)
        visitor.visit(f_connection.source.c_str());
    else
        visitor.visit(make_connection_text(f_connection.source, name, L"").c_str());
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
    visit_utf8(visitor, CPLGetBasename(f_gdal->GetDescription()));
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
    CPLStringList const files(f_gdal->GetFileList());
    for (int i = 0; i < files.Count(); ++i)
        visit_utf8(visitor, files[i]);
}
} // namespace vx::gdal
