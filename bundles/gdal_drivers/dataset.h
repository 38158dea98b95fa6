#pragma once

#include "connection_text.h"
#include "extension/binding/string_visitor.h"
#include "gdal_errors.h"
#include "new_tables.h"
#include "private_copy.h"
#include "whole_file.h"

#include "platform/base/string_adp.h"

#include <gdal_priv.h>

#include <memory>
#include <optional>
#include <string>

namespace vx::gdal {
/// An open GDAL data set with what it was opened by, and the answers that need no table or grid.
class dataset
{
public:
    /// Null with the reason in `error`. Only regular files, folders that a driver knows, and sources that are
    /// no path are opened: a pipe or a device would block, also one that lies beside a file or that a file
    /// names. A file on the disk sends no requests to servers unless the connection has the option
    /// "network=yes". Opened read-only, nothing on disk is changed or made.
    [[nodiscard]] static std::unique_ptr<dataset> open(std::wstring const &connection, bool read_only,
                                                       std::wstring &error);
    /// A new, empty data set of the kind `driver_type`; a file in the way is an error. A set for a grid is a
    /// promise until `make_grid`: its size has to be known to make the file.
    [[nodiscard]] static std::unique_ptr<dataset> create(std::wstring const &connection, int driver_type,
                                                         std::wstring &error);

    [[nodiscard]] GDALDataset &gdal() const { return *f_gdal; }
    [[nodiscard]] connection_text const &connection() const { return f_connection; }
    /// The table whose name is all that stands behind "layer=" was found.
    void take_layer_tail() { f_connection.take_layer_tail(); }
    [[nodiscard]] bool read_only() const { return f_read_only; }
    [[nodiscard]] std::wstring &error() { return f_error; }
    /// Counts the changes of cells, so that what was worked out from them is known to be old.
    [[nodiscard]] unsigned long long changes() const { return f_changes; }
    void note_change() { ++f_changes; }
    /// Another GDAL data set over the same file, for a thread or a walk of its own: of grids, or of tables as
    /// `flags` say. Null unless the file is a regular one that was opened for reading, of a format that may
    /// be read by several threads and is opened in no time.
    [[nodiscard]] GDALDatasetUniquePtr open_again(unsigned flags = GDAL_OF_RASTER) const;

    /// Another connection to a database server; null with GDAL's errors.
    [[nodiscard]] GDALDatasetUniquePtr connect_apart() const;
    /// Opens a database server anew, over another connection; what is held of the former one ends. False,
    /// with all as it was, when that fails.
    [[nodiscard]] bool reconnect();

    /// True between `create` of a set for a grid and `make_grid`.
    [[nodiscard]] bool awaits_grid() const { return f_grid_driver != nullptr; }
    /// Makes the file of an awaited grid, all cells 0; `type` is a `cell_type`. `name` brings options of the
    /// driver's beside those of the connection. Errors are GDAL's.
    [[nodiscard]] bool make_grid(std::wstring const &name, int width, int height, int bands, int type);

    /// A new table. Null with GDAL's errors when the format takes none of this kind.
    [[nodiscard]] OGRLayer *create_table(std::string const &name, OGRSpatialReference *system,
                                         OGRwkbGeometryType type, CPLStringList const &options);
    /// Has to be called when all fields of a new table are made. False, with the table gone, when the format
    /// refuses it.
    [[nodiscard]] bool finish_table(OGRLayer *table, bool is_good);
    /// Has to be called before a change.
    void touch() { f_is_touched = true; }
    /// Brings all changes to the disk, and looks whether they are there. False with a reason.
    [[nodiscard]] bool save(error_guard &guard);
    /// The change of a table can be taken back.
    [[nodiscard]] bool can_roll_back() const;

    [[nodiscard]] int driver_id() const;
    [[nodiscard]] bool is_driver(char const *name) const;
    [[nodiscard]] int vector_count() const;
    /// Nothing is visited past the end.
    void vector_source(int index, vx::string_visitor visitor) const;
    void vector_name(int index, vx::string_visitor visitor) const;
    [[nodiscard]] int grid_count() const;
    void grid_source(int index, vx::string_visitor visitor) const;
    void grid_name(int index, vx::string_visitor visitor) const;
    void with_name(vx::string_visitor visitor) const;
    void with_description(vx::string_visitor visitor) const;
    void with_files(vx::string_visitor visitor) const;

private:
    dataset(GDALDatasetUniquePtr gdal, connection_text connection, bool read_only)
        : f_gdal(std::move(gdal)), f_connection(std::move(connection)), f_read_only(read_only)
    {
    }
    [[nodiscard]] char const *subdataset(int index, char const *what) const;
    [[nodiscard]] char const *driver_name() const;
    /// Makes the file of new tables in memory.
    [[nodiscard]] bool write_new_tables();
    /// The files of the table are as long as their heads say.
    [[nodiscard]] bool is_on_disk(OGRLayer &table) const;

    std::unique_ptr<private_copy> f_copy; ///< what is read instead of the source; outlives the data set
    std::unique_ptr<whole_file> f_whole;  ///< null: GDAL works on the disk; outlives the data set
    GDALDatasetUniquePtr f_gdal;
    connection_text f_connection;
    bool f_read_only;
    char const *f_grid_driver = nullptr;
    unsigned long long f_changes = 0;
    std::optional<new_tables> f_new_tables; ///< GDAL holds them in memory
    char const *f_new_driver = nullptr;     ///< of the new tables
    bool f_is_touched = false;
    std::wstring f_error;
};

/// Visits UTF-8 text; null visits nothing.
void visit_utf8(vx::string_visitor visitor, char const *text);
} // namespace vx::gdal
