#include "data_types.h"
#include "shape_walk.h"
#include "sql_names.h"

#include <ogrsf_frmts.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <limits>
#include <sqlite3.h>

namespace vx::gdal {
namespace {
constexpr int c_at_once = 512;        ///< rows in one step
constexpr int c_found_at_once = 4096; ///< entries of the index in one step
constexpr int c_cells_at_once = 2048; ///< of a column

struct statement_closer
{
    void operator()(sqlite3_stmt *statement) const { sqlite3_finalize(statement); }
};
using statement = std::unique_ptr<sqlite3_stmt, statement_closer>;

statement prepared(sqlite3 *base, std::string const &sql)
{
    sqlite3_stmt *made = nullptr;
    if (sqlite3_prepare_v2(base, sql.c_str(), -1, &made, nullptr) != SQLITE_OK)
        return nullptr;
    return statement(made);
}

/// The one number that a query gives.
bool number_of(sqlite3 *base, std::string const &sql, long long &number)
{
    statement const query = prepared(base, sql);
    if (!query || sqlite3_step(query.get()) != SQLITE_ROW)
        return false;
    number = sqlite3_column_int64(query.get(), 0);
    return true;
}

/// The parts of a geometry in its binary form, as far as it is of one of the plain kinds in the usual byte
/// order and lies whole in its bytes.
class plain_wkb
{
public:
    /// False for what is not read here.
    [[nodiscard]] bool parse(unsigned char const *bytes, std::size_t size)
    {
        f_at = bytes;
        f_left = size;
        f_counts.clear();
        f_runs.clear();
        std::uint32_t type = 0;
        if (!head(type))
            return false;
        switch (type) {
        case 1:
            kind = geom_point;
            return take(1);
        case 2:
            kind = geom_polyline;
            return line();
        case 3:
            kind = geom_polygon;
            return rings();
        case 4:
            kind = geom_multipoint;
            return all_of(1, &plain_wkb::place);
        case 5:
            kind = geom_polyline;
            return all_of(2, &plain_wkb::line);
        case 6:
            kind = geom_polygon;
            return all_of(3, &plain_wkb::rings);
        default:
            return false;
        }
    }

    /// Adds the shape that was parsed.
    void add_to(shape_run &run, unsigned long long record) const
    {
        if (f_counts.empty())
            return run.add_none(record);
        if (kind == geom_point) {
            double place[2];
            std::memcpy(place, f_runs.front(), sizeof place);
            return run.add_point(place[0], place[1], record);
        }
        double *to = run.add_shape(kind, f_counts.data(), f_counts.size(), record);
        for (std::size_t part = 0; part < f_counts.size(); ++part) {
            unsigned char const *from = f_runs[part];
            if (f_numbers == 2) {
                std::memcpy(to, from, std::size_t{f_counts[part]} * 16);
                to += 2 * std::size_t{f_counts[part]};
                continue;
            }
            for (unsigned v = 0; v < f_counts[part]; ++v, to += 2, from += f_numbers * 8)
                std::memcpy(to, from, 16);
        }
    }

private:
    [[nodiscard]] bool number(std::uint32_t &value)
    {
        if (f_left < 4)
            return false;
        std::memcpy(&value, f_at, 4);
        f_at += 4;
        f_left -= 4;
        return true;
    }
    /// Byte order and type, with the third and the fourth number of a vertex in its thousands.
    [[nodiscard]] bool head(std::uint32_t &type)
    {
        static_assert(std::endian::native == std::endian::little,
                      "numbers are copied as they lie in the file");
        if (f_left < 5 || *f_at != 1)
            return false;
        ++f_at;
        --f_left;
        if (!number(type) || type >= 4000)
            return false;
        static constexpr std::size_t c_numbers[] = {2, 3, 3, 4};
        f_numbers = c_numbers[type / 1000];
        type %= 1000;
        return true;
    }
    /// A run of vertices; one without any is no part.
    [[nodiscard]] bool take(std::uint32_t count)
    {
        if (count > f_left / (8 * f_numbers))
            return false;
        if (count > 0) {
            f_counts.push_back(count);
            f_runs.push_back(f_at);
        }
        f_at += count * 8 * f_numbers;
        f_left -= count * 8 * f_numbers;
        return true;
    }
    [[nodiscard]] bool place() { return take(1); }
    [[nodiscard]] bool line()
    {
        std::uint32_t count = 0;
        return number(count) && take(count);
    }
    [[nodiscard]] bool rings()
    {
        std::uint32_t count = 0;
        if (!number(count))
            return false;
        for (std::uint32_t i = 0; i < count; ++i)
            if (!line())
                return false;
        return true;
    }
    [[nodiscard]] bool all_of(std::uint32_t wanted, bool (plain_wkb::*read)())
    {
        std::uint32_t count = 0;
        if (!number(count))
            return false;
        std::size_t const numbers = f_numbers;
        for (std::uint32_t i = 0; i < count; ++i) {
            std::uint32_t type = 0;
            if (!head(type) || type != wanted || f_numbers != numbers || !(this->*read)())
                return false;
        }
        return true;
    }

    int kind = geom_none;
    unsigned char const *f_at = nullptr;
    std::size_t f_left = 0;
    std::size_t f_numbers = 2;
    std::vector<unsigned> f_counts;
    std::vector<unsigned char const *> f_runs;
};

/// Where the binary form begins behind the head of a geometry's cell; 0 for what is not read here, and with
/// `is_empty` for a geometry that is said to have no vertices.
std::size_t head_of(unsigned char const *cell, std::size_t size, bool &is_empty)
{
    constexpr std::size_t c_fixed = 8;
    static constexpr std::size_t c_boxes[] = {0, 32, 48, 48, 64, 0, 0, 0};
    if (size < c_fixed || cell[0] != 'G' || cell[1] != 'P' || cell[2] != 0)
        return 0;
    unsigned const flags = cell[3];
    unsigned const box = flags >> 1 & 7;
    bool const is_extended = (flags & 0x20) != 0;
    if (box > 4 || is_extended || size < c_fixed + c_boxes[box])
        return 0;
    is_empty = (flags & 0x10) != 0;
    return c_fixed + c_boxes[box];
}

class geopackage_walk : public shape_walk
{
protected:
    geopackage_walk(OGRLayer &layer) : f_layer(layer) {}

    /// The geometry in a column of the row.
    void add(shape_run &run, sqlite3_stmt *row, int column, long long fid, unsigned long long record)
    {
        if (sqlite3_column_type(row, column) == SQLITE_NULL)
            return run.add_none(record);
        auto const *const cell = static_cast<unsigned char const *>(sqlite3_column_blob(row, column));
        auto const size = static_cast<std::size_t>(sqlite3_column_bytes(row, column));
        bool is_empty = false;
        std::size_t const begin = cell ? head_of(cell, size, is_empty) : 0;
        if (begin > 0 && is_empty)
            return run.add_none(record);
        if (begin > 0 && f_wkb.parse(cell + begin, size - begin))
            return f_wkb.add_to(run, record);
        OGRFeatureUniquePtr const feature(f_layer.GetFeature(fid));
        run.add(feature ? feature->GetGeometryRef() : nullptr, record);
    }

private:
    OGRLayer &f_layer;
    plain_wkb f_wkb;
};

class whole_walk final : public geopackage_walk
{
public:
    whole_walk(OGRLayer &layer, statement rows) : geopackage_walk(layer), f_rows(std::move(rows)) {}

    step_result step(shape_run &run) override
    {
        for (int i = 0; i < c_at_once && !run.is_large(); ++i) {
            int const result = sqlite3_step(f_rows.get());
            if (result != SQLITE_ROW)
                return result == SQLITE_DONE ? c_end : c_broken;
            add(run, f_rows.get(), 1, sqlite3_column_int64(f_rows.get(), 0), 0);
        }
        return c_more;
    }

private:
    statement f_rows;
};

/// First the index tells which rows it is about; they are read in their own order then.
class window_walk final : public geopackage_walk
{
public:
    window_walk(OGRLayer &layer, statement lock, statement index, statement row, long long first_fid,
                long long last_fid)
        : geopackage_walk(layer), f_lock(std::move(lock)), f_index(std::move(index)), f_row(std::move(row)),
          f_first_fid(first_fid), f_last_fid(last_fid)
    {
        (void)sqlite3_step(f_lock.get());
    }

    step_result step(shape_run &run) override { return f_index ? find() : read(run); }

private:
    step_result find()
    {
        for (int i = 0; i < c_found_at_once; ++i) {
            int const result = sqlite3_step(f_index.get());
            if (result == SQLITE_ROW) {
                long long const fid = sqlite3_column_int64(f_index.get(), 0);
                if (fid >= f_first_fid && fid <= f_last_fid)
                    f_found.push_back(fid);
                continue;
            }
            f_index.reset();
            if (result != SQLITE_DONE)
                return c_broken;
            std::sort(f_found.begin(), f_found.end());
            f_found.erase(std::unique(f_found.begin(), f_found.end()), f_found.end());
            break;
        }
        return c_more;
    }
    step_result read(shape_run &run)
    {
        for (int i = 0; i < c_at_once && !run.is_large(); ++i, ++f_next) {
            if (f_next == f_found.size())
                return c_end;
            long long const fid = f_found[f_next];
            sqlite3_reset(f_row.get());
            sqlite3_bind_int64(f_row.get(), 1, fid);
            int const result = sqlite3_step(f_row.get());
            if (result == SQLITE_ROW)
                add(run, f_row.get(), 0, fid, static_cast<unsigned long long>(fid - f_first_fid));
            else if (result != SQLITE_DONE)
                return c_broken;
        }
        return c_more;
    }

    /// Stands in the middle of a query, so that the file is locked once, not anew for each row.
    statement f_lock;
    statement f_index; ///< null once it was read
    statement f_row;
    long long f_first_fid;
    long long f_last_fid;
    std::vector<long long> f_found;
    std::size_t f_next = 0;
};

class cell_walk final : public column_walk
{
public:
    cell_walk(statement rows, column_batch::cell_kind kind)
        : f_rows(std::move(rows)), f_kind(kind), f_builder(kind, f_forward)
    {
    }

    step_result step(column_sink const &sink) override
    {
        f_sink = &sink;
        for (int i = 0; i < c_cells_at_once; ++i) {
            int const result = sqlite3_step(f_rows.get());
            if (result != SQLITE_ROW) {
                f_builder.finish();
                return result == SQLITE_DONE ? c_end : c_broken;
            }
            bool goes_on = true;
            if (!add(goes_on))
                return c_broken;
            if (!goes_on)
                return c_end;
        }
        return c_more;
    }

private:
    /// False for a cell of another kind than its column's.
    [[nodiscard]] bool add(bool &goes_on)
    {
        sqlite3_stmt *const row = f_rows.get();
        int const type = sqlite3_column_type(row, 0);
        if (type == SQLITE_NULL) {
            goes_on = f_builder.add_null();
            return true;
        }
        switch (f_kind) {
        case column_batch::texts: {
            if (type != SQLITE_TEXT)
                return false;
            auto const *const text = reinterpret_cast<char const *>(sqlite3_column_text(row, 0));
            goes_on = f_builder.add_text({text, static_cast<std::size_t>(sqlite3_column_bytes(row, 0))});
            return text != nullptr;
        }
        case column_batch::floatings:
            if (type != SQLITE_FLOAT && type != SQLITE_INTEGER)
                return false;
            goes_on = f_builder.add_floating(sqlite3_column_double(row, 0));
            return true;
        default: {
            long long const value = sqlite3_column_int64(row, 0);
            bool const is_narrow = f_kind == column_batch::integers;
            if (type != SQLITE_INTEGER || (is_narrow && (value < std::numeric_limits<std::int32_t>::min() ||
                                                         value > std::numeric_limits<std::int32_t>::max())))
                return false;
            goes_on = f_builder.add_whole(value);
            return true;
        }
        }
    }

    statement f_rows;
    column_batch::cell_kind f_kind;
    column_sink const *f_sink = nullptr;
    column_sink f_forward = [this](column_batch const &batch) { return (*f_sink)(batch); };
    column_builder f_builder;
};

bool is_table(sqlite3 *base, std::string const &name)
{
    statement const query =
        prepared(base, "SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = ?1 COLLATE NOCASE");
    if (!query)
        return false;
    sqlite3_bind_text(query.get(), 1, name.c_str(), -1, SQLITE_TRANSIENT);
    return sqlite3_step(query.get()) == SQLITE_ROW;
}
} // namespace

std::optional<fid_span> consecutive_fids(sqlite3 *base, OGRLayer &layer)
{
    std::string const fid = layer.GetFIDColumn();
    if (!base || fid.empty() || !is_table(base, layer.GetName()))
        return std::nullopt;
    std::string const table = quoted_name(layer.GetName());
    fid_span fids = {0, 0};
    if (!number_of(base, "SELECT min(" + quoted_name(fid) + ") FROM " + table, fids.first) ||
        !number_of(base, "SELECT max(" + quoted_name(fid) + ") FROM " + table, fids.last) ||
        fids.last < fids.first ||
        static_cast<unsigned long long>(fids.last) - static_cast<unsigned long long>(fids.first) + 1 !=
            static_cast<unsigned long long>(layer.GetFeatureCount(FALSE)))
        return std::nullopt;
    return fids;
}

std::unique_ptr<shape_walk> walk_geopackage(sqlite3 *base, OGRLayer &layer, shape_window const *window)
{
    std::string const fid = layer.GetFIDColumn();
    std::string const geom = layer.GetGeometryColumn();
    if (!base || fid.empty() || geom.empty() || !is_table(base, layer.GetName()))
        return nullptr;
    std::string const table = quoted_name(layer.GetName());
    std::string const columns = quoted_name(fid) + ", " + quoted_name(geom);
    if (!window) {
        // An index over the same columns would give them in an order of its own.
        statement rows = prepared(base, "SELECT " + columns + " FROM " + table + " NOT INDEXED");
        return rows ? std::make_unique<whole_walk>(layer, std::move(rows)) : nullptr;
    }
    if (!layer.TestCapability(OLCFastSpatialFilter))
        return nullptr;
    auto const fids = consecutive_fids(base, layer);
    if (!fids)
        return nullptr;
    statement index =
        prepared(base, "SELECT id FROM " + quoted_name("rtree_" + std::string(layer.GetName()) + "_" + geom) +
                           " WHERE maxx >= ?1 AND minx <= ?2 AND maxy >= ?3 AND miny <= ?4");
    statement row = prepared(base, "SELECT " + quoted_name(geom) + " FROM " + table + " WHERE " +
                                       quoted_name(fid) + " = ?1");
    statement lock = prepared(base, "SELECT 1 FROM sqlite_master");
    if (!index || !row || !lock)
        return nullptr;
    sqlite3_bind_double(index.get(), 1, window->min_x);
    sqlite3_bind_double(index.get(), 2, window->max_x);
    sqlite3_bind_double(index.get(), 3, window->min_y);
    sqlite3_bind_double(index.get(), 4, window->max_y);
    return std::make_unique<window_walk>(layer, std::move(lock), std::move(index), std::move(row),
                                         fids->first, fids->last);
}

std::unique_ptr<column_walk> walk_geopackage_column(sqlite3 *base, OGRLayer &layer, int field)
{
    OGRFieldDefn const &defn = *layer.GetLayerDefn()->GetFieldDefn(field);
    column_batch::cell_kind kind = column_batch::texts;
    switch (defn.GetType()) {
    case OFTString:
        break;
    case OFTInteger:
        kind = column_batch::integers;
        break;
    case OFTInteger64:
        kind = column_batch::bigints;
        break;
    case OFTReal:
        kind = column_batch::floatings;
        break;
    default:
        return nullptr;
    }
    if (!base || defn.GetSubType() != OFSTNone || *layer.GetFIDColumn() == 0 ||
        !is_table(base, layer.GetName()))
        return nullptr;
    statement rows = prepared(base, "SELECT " + quoted_name(defn.GetNameRef()) + " FROM " +
                                        quoted_name(layer.GetName()) + " NOT INDEXED");
    return rows ? std::make_unique<cell_walk>(std::move(rows), kind) : nullptr;
}
} // namespace vx::gdal
