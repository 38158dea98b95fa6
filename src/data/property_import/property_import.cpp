#include "data/property_import/property_import.h"

#include "captions/engine.h"
#include "data/grid/grid_datasource.h"

#include "platform/base/matrix.h"
#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/basic/vx_datasource.h"
#include "platform/basic/vx_fault.h"
#include "platform/data/vx_attr_data.h"
#include "platform/data/vx_file_tos4.h"
#include "platform/data/vx_shape_files.h"
#include "platform/winapi/file.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>
#include <memory>
#include <set>

namespace vx::data {
namespace {
using writer_ptr = vx::owned<Ivx_tos4_writer, &vx_tos4_writer_destroy>;

constexpr double c_no_value = std::numeric_limits<double>::quiet_NaN();
constexpr std::size_t c_longest_name = 200; ///< with room for a number that tells two apart
constexpr std::uint64_t c_cells_at_once = 1 << 18;
constexpr int c_slice_ms = 10;
constexpr std::chrono::milliseconds c_between_questions{20};
/// Of the cosine between rows and columns that are at right angles, which was worked out from rounded
/// numbers.
constexpr double c_most_shear = 1e-6;

/// What an import goes on by: the reason once it failed, and the one who is asked some 50 times a second
/// whether to go on. Its functions give false where the work ends.
class import_work
{
public:
    explicit import_work(property_import::progress goes_on) : f_goes_on(goes_on) {}

    bool fail(int code, std::wstring const &subject)
    {
        reason = vx_fault_reason({code, subject, 0, {}});
        return false;
    }
    bool written(bool good)
    {
        if (!good)
            vx_tos4_get_werror(Tvx_std_wstring_adapter(reason));
        return good;
    }
    /// So much is done, from 0 to 1.
    bool tell(double done)
    {
        auto const now = std::chrono::steady_clock::now();
        if (!f_goes_on || now - f_last < c_between_questions)
            return true;
        is_given_up = !f_goes_on(std::clamp(done, 0.0, 1.0));
        f_last = std::chrono::steady_clock::now();
        return !is_given_up;
    }

    std::wstring reason;
    bool is_given_up = false;

private:
    property_import::progress f_goes_on;
    std::chrono::steady_clock::time_point f_last{};
};

/// Names that properties can have, each once.
class property_names
{
public:
    void take(std::wstring const &name) { f_taken.insert(name); }
    [[nodiscard]] bool has(std::wstring const &name) const { return f_taken.contains(name); }
    [[nodiscard]] std::wstring next(std::wstring const &wanted, std::wstring const &otherwise)
    {
        std::wstring const base = (wanted.empty() ? otherwise : wanted).substr(0, c_longest_name);
        std::wstring name = base;
        for (int i = 2; !f_taken.insert(name).second; ++i)
            name = base + L" " + std::to_wstring(i);
        return name;
    }

private:
    std::set<std::wstring> f_taken;
};

/// The file that is made: a new one, or one that begins with the properties of the former file of its name.
class made_file
{
public:
    made_file(std::wstring name, bool adds, import_work &work)
        : f_name(std::move(name)), f_adds(adds), f_work(work)
    {
    }

    /// What was there before, where that stays.
    bool open()
    {
        if (!f_adds)
            return true;
        f_former.reset(vx_tos4_file_open_w(f_name.c_str(), true));
        for (unsigned i = 0; i < vx_tos4_get_prop_count(f_former.get()); ++i) {
            std::wstring name;
            vx_tos4_get_prop_name_w(f_former.get(), i, Tvx_std_wstring_adapter(name));
            names.take(name);
        }
        return f_work.written(f_former != nullptr);
    }
    /// The objects of `source`; those of a former file have to be the same.
    bool begin(Tvx_tos4_grid objects, std::wstring proj4, std::wstring const &source)
    {
        if (f_former) {
            Tvx_tos4_grid place;
            vx_tos4_get_grid(f_former.get(), &place);
            if (!is_same(objects, place))
                return f_work.fail(c_capt_import_other_objects, source);
            objects = place;
            proj4.clear();
            vx_tos4_get_proj4(f_former.get(), Tvx_std_wstring_adapter(proj4));
        }
        f_writer.reset(vx_tos4_writer_create_w(f_name.c_str(), &objects, proj4.c_str()));
        return f_work.written(f_writer &&
                              (!f_former || vx_tos4_writer_take_props(f_writer.get(), f_former.get())));
    }
    bool finish() { return f_work.written(vx_tos4_writer_finish(f_writer.get())); }
    [[nodiscard]] Ivx_tos4_writer *writer() const { return f_writer.get(); }

    property_names names;

private:
    /// Up to what is lost when a place is written as text. Slices of rasters lie anywhere.
    static bool is_same(Tvx_tos4_grid const &a, Tvx_tos4_grid const &b)
    {
        constexpr double c_part_of_cell = 1e-3;
        bool same = a.dimensions == b.dimensions && std::ranges::equal(a.count, b.count);
        for (int i = 0; same && i < std::min(a.dimensions, 2); ++i) {
            double const cell = std::fabs(b.spacing[i]);
            same = std::fabs(a.origin[i] - b.origin[i]) <= c_part_of_cell * cell &&
                   std::fabs(a.spacing[i] - b.spacing[i]) * static_cast<double>(a.count[i]) <=
                       c_part_of_cell * cell;
        }
        return same && (a.dimensions < 2 || std::fabs(std::remainder(a.azimuth - b.azimuth, 360)) < 1e-6);
    }

    std::wstring f_name;
    bool f_adds;
    import_work &f_work;
    vx::owned<Ivx_tos4_file, &vx_tos4_file_close> f_former;
    writer_ptr f_writer;
};

// ---- rasters

/// Where the cells of a raster lie, and that they lie in right angles.
bool find_place(grid_datasource const &grid, std::size_t slices, Tvx_tos4_grid &place)
{
    auto const dims = grid.dimensions();
    place.count[0] = dims.x;
    place.count[1] = dims.y;
    place.count[2] = slices;
    place.dimensions = slices > 1 ? 3 : dims.y > 1 ? 2 : 1;
    auto const origin = grid.origin();
    auto const spacing = grid.spacing();
    place.origin[0] = origin.x;
    place.origin[1] = origin.y;
    place.spacing[0] = spacing.x;
    place.spacing[1] = spacing.y;
    place.azimuth = grid.azimuth();
    Tvx_matrix3x3 m;
    if (!grid.geotransform(m))
        return true;
    double const columns[] = {m.m[0][0], m.m[1][0]};
    double const rows[] = {m.m[0][1], m.m[1][1]};
    double const cosine = columns[0] * rows[0] + columns[1] * rows[1];
    return std::fabs(cosine) <=
           c_most_shear * std::hypot(columns[0], columns[1]) * std::hypot(rows[0], rows[1]);
}

std::unique_ptr<grid_datasource> open_grid(std::wstring const &source)
{
    auto grid = std::make_unique<grid_datasource>();
    if (!grid->open(source, access_read))
        return nullptr;
    return grid->obj_count() > 0 && grid->field_count() > 0 ? std::move(grid) : nullptr;
}

/// Rasters of the same cells and channels, one over the other.
class slices
{
public:
    slices(std::vector<std::wstring> const &sources, import_work &work) : f_sources(sources), f_work(work) {}

    bool import_into(made_file &target)
    {
        f_grid = open_grid(f_sources.front());
        if (!f_grid)
            return f_work.fail(c_capt_file_not_read, f_sources.front());
        f_dims = f_grid->dimensions();
        f_channels = f_grid->field_count();
        Tvx_tos4_grid place;
        if (!find_place(*f_grid, f_sources.size(), place))
            return f_work.fail(c_capt_import_sheared, f_sources.front());
        if (!target.begin(place, f_grid->projection(), f_sources.front()))
            return false;
        for (field_index_type field = 0; field < f_channels; ++field) {
            if (!go_to(0))
                return false;
            auto const name = target.names.next(f_grid->field_name(field), std::to_wstring(field + 1));
            if (!f_work.written(vx_tos4_writer_add_prop_w(target.writer(), name.c_str(), nullptr)))
                return false;
            for (std::size_t i = 0; i < f_sources.size(); ++i)
                if (!go_to(i) || !append(target.writer(), field))
                    return false;
        }
        return target.finish();
    }

private:
    /// Opens a slice; it has to be like the first one.
    bool go_to(std::size_t slice)
    {
        if (slice == f_slice)
            return true;
        f_slice = slice;
        f_grid = open_grid(f_sources[slice]);
        return (f_grid && f_grid->dimensions() == f_dims && f_grid->field_count() == f_channels) ||
               f_work.fail(c_capt_import_slices, f_sources[slice]);
    }

    /// All cells of a channel of the slice, in pieces of whole rows.
    bool append(Ivx_tos4_writer *writer, field_index_type field)
    {
        grid_block cells;
        if (!f_grid->fetch_block(field, cells))
            return f_work.fail(c_capt_file_not_read, f_sources[f_slice]);
        auto const test = cells.nodata(data_type::float64).test();
        auto const block_rows = std::max<std::uint64_t>(1, cells.block_size().y);
        auto const fitting = std::max<std::uint64_t>(1, c_cells_at_once / f_dims.x);
        auto const rows =
            std::min(f_dims.y, fitting > block_rows ? fitting / block_rows * block_rows : fitting);
        std::vector<double> piece(rows * f_dims.x);
        for (std::uint64_t y = 0; y < f_dims.y; y += rows) {
            data_size const window{f_dims.x, std::min(rows, f_dims.y - y)};
            if (!cells.read2d({0, y}, window, piece.data(), window, data_type::float64).done())
                return f_work.fail(c_capt_file_not_read, f_sources[f_slice]);
            auto const count = window.x * window.y;
            for (std::uint64_t i = 0; i < count; ++i)
                if (!test.counts(piece[i]))
                    piece[i] = c_no_value;
            double const steps = static_cast<double>(f_channels * f_sources.size());
            double const step = static_cast<double>(field * f_sources.size() + f_slice) +
                                static_cast<double>(y) / static_cast<double>(f_dims.y);
            if (!f_work.written(vx_tos4_writer_append(writer, piece.data(), count)) ||
                !f_work.tell(step / steps))
                return false;
        }
        return true;
    }

    std::vector<std::wstring> const &f_sources;
    import_work &f_work;
    std::unique_ptr<grid_datasource> f_grid; ///< of the slice
    std::size_t f_slice = 0;
    grid_dims f_dims;
    field_index_type f_channels = 0;
};

// ---- points and tables

/// The records of a table, which may be points.
class table
{
public:
    table(std::wstring source, import_work &work)
        : f_source(std::move(source)), f_work(work), f_data(vx_attr_data_create(f_source.c_str()))
    {
    }

    bool import_into(made_file &target)
    {
        if (!open() || !read_points() || !find_columns())
            return false;
        // The same points need no second place.
        f_has_points = f_has_points && !(target.names.has(L"X") && target.names.has(L"Y"));
        std::size_t const properties = f_columns.size() + (f_has_points ? 2 : 0);
        if (properties == 0 || f_count == 0)
            return f_work.fail(c_capt_import_no_numbers, f_source);
        Tvx_tos4_grid objects;
        objects.count[0] = f_count;
        std::wstring proj4;
        vx_attr_data_get_proj4(f_data.get(), Tvx_std_wstring_adapter(proj4));
        f_step = 1 / static_cast<double>(properties);
        return target.begin(objects, proj4, f_source) && append_all(target) && target.finish();
    }

private:
    bool open()
    {
        f_files.reset(vx_attr_files_open(f_data.get(), 1, 0));
        f_count = vx_attr_files_get_no(f_files.get());
        if (f_files)
            return true;
        vx_attr_data_get_werror(f_data.get(), Tvx_std_wstring_adapter(f_work.reason));
        return f_work.reason.empty() ? f_work.fail(c_capt_import_no_numbers, f_source) : false;
    }

    /// The shapes, which have to be points where there are any.
    bool read_points()
    {
        f_shapes.reset(vx_shape_files_begin(f_data.get()));
        while (vx_shape_files_read_on(f_shapes.get(), c_slice_ms))
            if (!f_work.tell(0))
                return false;
        if (vx_shape_files_is_damaged(f_shapes.get()))
            return f_work.fail(c_capt_file_not_read, f_source);
        Tvx_shape_view view;
        for (unsigned i = 0; vx_shape_files_get(f_shapes.get(), i, &view); ++i) {
            if (view.kind == c_shape_polyline || view.kind == c_shape_polygon)
                return f_work.fail(c_capt_import_geometry, f_source);
            f_has_points = f_has_points || view.kind == c_shape_point;
        }
        auto const is_field = [&](wchar_t const *name) {
            return vx_attr_files_get_field_index_w(f_files.get(), name) >= 0;
        };
        f_has_points = f_has_points && !(is_field(L"X") && is_field(L"Y"));
        return true;
    }

    bool find_columns()
    {
        for (unsigned i = 0; i < vx_attr_files_get_np(f_files.get()); ++i) {
            int const type = vx_attr_files_get_field_type(f_files.get(), i);
            bool const is_number = type == c_attr_integer || type == c_attr_numeric || type == c_attr_bigint;
            if (!is_number && type != c_attr_string)
                continue;
            while (vx_attr_files_read_on(f_files.get(), i, c_slice_ms))
                if (!f_work.tell(0))
                    return false;
            if (is_number || spells_numbers(i))
                f_columns.push_back(i);
        }
        return true;
    }

    /// Whether a field of texts has numbers and nothing else.
    [[nodiscard]] bool spells_numbers(unsigned field) const
    {
        bool has_number = false;
        for (unsigned record = 0; record < f_count; ++record) {
            bool has_text = false, is_number = false;
            if (vx_attr_files_get_utf8(f_files.get(), field, record, &has_text).empty() || !has_text)
                continue;
            (void)vx_attr_files_get_dbl(f_files.get(), field, record, &is_number);
            if (!is_number)
                return false;
            has_number = true;
        }
        return has_number;
    }

    bool append_all(made_file &target)
    {
        if (f_has_points)
            for (int axis = 0; axis < 2; ++axis)
                if (!append(target, axis == 0 ? L"X" : L"Y",
                            [&](unsigned record) { return coordinate(record, axis); }))
                    return false;
        for (unsigned const field : f_columns)
            if (!append(target, vx_attr_files_get_field_name_w(f_files.get(), field),
                        [&](unsigned record) { return cell(field, record); }))
                return false;
        return true;
    }

    [[nodiscard]] double coordinate(unsigned record, int axis) const
    {
        Tvx_shape_view view;
        if (!vx_shape_files_get(f_shapes.get(), record, &view) || view.part_count == 0)
            return c_no_value;
        auto const &point = view.points[view.part_starts[0]];
        return axis == 0 ? point.x : point.y;
    }

    [[nodiscard]] double cell(unsigned field, unsigned record) const
    {
        bool ok = false;
        double const value = vx_attr_files_get_dbl(f_files.get(), field, record, &ok);
        return ok ? value : c_no_value;
    }

    template <class Value>
    bool append(made_file &target, std::wstring const &name, Value value)
    {
        Ivx_tos4_writer *const writer = target.writer();
        if (!f_work.written(
                vx_tos4_writer_add_prop_w(writer, target.names.next(name, L"?").c_str(), nullptr)))
            return false;
        std::vector<double> piece;
        for (unsigned record = 0; record < f_count; ++record) {
            piece.push_back(value(record));
            if (piece.size() < c_cells_at_once && record + 1 < f_count)
                continue;
            if (!f_work.written(vx_tos4_writer_append(writer, piece.data(), piece.size())) ||
                !f_work.tell(f_done + f_step * record / f_count))
                return false;
            piece.clear();
        }
        f_done += f_step;
        return true;
    }

    std::wstring f_source;
    import_work &f_work;
    vx::owned<Ivx_attr_data, &vx_attr_data_release> f_data;
    vx::owned<Ivx_attr_files, &vx_attr_files_close> f_files;
    vx::owned<Ivx_shape_files, &vx_shape_files_close> f_shapes;
    unsigned f_count = 0;
    bool f_has_points = false;
    std::vector<unsigned> f_columns;
    double f_step = 1; ///< what a property is of all
    double f_done = 0;
};

bool import_all(std::vector<std::wstring> const &sources, std::wstring const &target, bool adds,
                import_work &work)
{
    if (sources.empty())
        return work.fail(c_capt_no_file_name, {});
    // Nobody's raster ends by a slip of the hand.
    if (vx_path_exists(target) && !vx_tos4_is_file_w(target.c_str()))
        return work.fail(c_capt_file_other, target);
    generic_datasource first;
    if (!first.open(sources.front(), access_read)) {
        vx_datasource_get_error(Tvx_std_wstring_adapter(work.reason));
        return false;
    }
    bool const is_raster = first.grid_count() > 0;
    first.close();
    made_file made(target, adds, work);
    if (!made.open())
        return false;
    if (is_raster)
        return slices(sources, work).import_into(made);
    if (sources.size() > 1)
        return work.fail(c_capt_import_slices, sources.front());
    return table(sources.front(), work).import_into(made);
}
} // namespace

property_import::outcome property_import::execute(std::vector<std::wstring> const &sources,
                                                  std::wstring const &target, progress goes_on)
{
    return run(sources, target, false, goes_on);
}

property_import::outcome property_import::add(std::vector<std::wstring> const &sources,
                                              std::wstring const &target, progress goes_on)
{
    return run(sources, target, true, goes_on);
}

property_import::outcome property_import::run(std::vector<std::wstring> const &sources,
                                              std::wstring const &target, bool adds, progress goes_on)
{
    import_work work(goes_on);
    bool const is_done = import_all(sources, target, adds, work);
    f_error = is_done || work.is_given_up ? std::wstring() : work.reason;
    return is_done ? outcome::done : work.is_given_up ? outcome::given_up : outcome::failed;
}
} // namespace vx::data
