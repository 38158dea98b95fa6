#include "data/grid/grid_datasource.h"

#include "data/filesystem/tutils.h"
#include "data/grid/grid_block_iterator.h"

#include "platform/base/matrix.h"

#include <climits>
#include <cmath>

namespace vx::data {
namespace {
/// Hands out the cells of a field block by block, until `visit` gives false or a block cannot be read. Gives
/// the status of the last fetch; not offered when the field cannot be walked at all.
template <class Visit>
int walk_blocks(grid_datasource &source, field_index_type field, Visit visit)
{
    grid_block_iterator<double> cells(source, field);
    if (!cells.valid())
        return read_not_offered;
    no_data_test const test = cells.nodata().test();
    for (;;) {
        result_type const result = cells.fetch();
        if (!result.done() || result.count == 0)
            return result.status;
        if (!visit(cells.cells().data(), result.count, test))
            return result.status;
    }
}

/// The cells that have a value, all of them.
template <class Visit>
int walk_values(grid_datasource &source, field_index_type field, Visit visit)
{
    return walk_blocks(source, field,
                       [&](double const *cells, std::uint64_t count, no_data_test const &test) {
                           for (std::uint64_t i = 0; i < count; ++i)
                               if (test.counts(cells[i]))
                                   visit(cells[i]);
                           return true;
                       });
}

/// A negative zero reads as zero: they are one number.
std::wstring text_of(double value)
{
    return Tutils::dbl2wstr(value + 0.0);
}

std::vector<int> interface_indices(std::vector<field_index_type> const &fields)
{
    std::vector<int> numbers;
    numbers.reserve(fields.size());
    for (field_index_type const field : fields)
        numbers.push_back(interface_index(field));
    return numbers;
}

/// The distance from the first cell to the last along one axis.
double length_of(std::uint64_t count, double spacing)
{
    return (static_cast<double>(count) - 1) * spacing;
}
} // namespace

grid_datasource::~grid_datasource() = default;

bool grid_datasource::take_grid_handle()
{
    f_grid = vx_grid_source_interface_specialize(vx_data_source_interface_generalize(f_source));
    return static_cast<bool>(f_grid);
}

bool grid_datasource::open_data(std::wstring const & /*source*/, access_mode /*mode*/)
{
    return take_grid_handle();
}

void grid_datasource::close_data()
{
    f_grid = {};
}

bool grid_datasource::from_generic(generic_datasource const &source)
{
    return from_handle(source.handle());
}

bool grid_datasource::from_generic(vx::data_source source)
{
    return from_handle(source.handle());
}

bool grid_datasource::from_handle(t_vx_data_source_interface handle)
{
    vx::grid_source const grid =
        vx_grid_source_interface_specialize(vx_data_source_interface_generalize(handle));
    return grid && generic_datasource::from_handle(handle) && take_grid_handle();
}

bool grid_datasource::compute_stat_common(field_index_type field, statistic &stat)
{
    double minimum = std::numeric_limits<double>::max();
    double maximum = std::numeric_limits<double>::lowest();
    long double sum = 0; // has room for the sum of any numbers
    std::uint64_t quantity = 0;
    int const status = walk_values(*this, field, [&](double value) {
        if (value < minimum)
            minimum = value;
        if (value > maximum)
            maximum = value;
        sum += value;
        ++quantity;
    });
    if (status == read_not_offered)
        return false;
    // There may be cells without one that is a number.
    bool const has_span = minimum <= maximum;
    stat.minimum = has_span ? minimum : 0;
    stat.maximum = has_span ? maximum : 0;
    stat.average = quantity ? static_cast<double>(sum / static_cast<long double>(quantity)) : 0;
    stat.quantity = quantity;
    stat.common_done = true;
    return true;
}

bool grid_datasource::compute_stat_stdev(field_index_type field, statistic &stat)
{
    long double squares = 0;
    int const status = walk_values(*this, field, [&](double value) {
        long double const away = static_cast<long double>(value) - stat.average;
        squares += away * away;
    });
    if (status == read_not_offered)
        return false;
    stat.stdev = stat.quantity > 1
                     ? static_cast<double>(std::sqrt(squares / static_cast<long double>(stat.quantity - 1)))
                     : 0;
    stat.stdev_done = true;
    return true;
}

bool grid_datasource::compute_stat_distinct(field_index_type field, statistic &stat)
{
    std::set<double> values;
    stat.distinct_done = fetch_unique_values(field, c_no_limit, values);
    stat.distinct = values.size();
    return stat.distinct_done;
}

bool grid_datasource::fetch_values(field_index_type field, std::vector<double> &values)
{
    return walk_values(*this, field, [&](double value) { values.push_back(value); }) != read_not_offered;
}

bool grid_datasource::fetch_values(field_index_type field, std::vector<std::wstring> &values)
{
    return walk_values(*this, field, [&](double value) { values.push_back(text_of(value)); }) !=
           read_not_offered;
}

bool grid_datasource::fetch_unique_values(field_index_type field, std::uint64_t limit,
                                          std::set<double> &values)
{
    auto const visit = [&](double const *cells, std::uint64_t count, no_data_test const &test) {
        double last = std::numeric_limits<double>::quiet_NaN();
        for (std::uint64_t i = 0; i < count; ++i) {
            // Neighbours are often equal, and finding that out is cheap.
            if (cells[i] == last || std::isnan(cells[i]) || !test.counts(cells[i]))
                continue;
            last = cells[i];
            values.insert(last + 0.0);
        }
        return values.size() < limit;
    };
    return walk_blocks(*this, field, visit) == read_done;
}

bool grid_datasource::fetch_unique_values(field_index_type field, std::uint64_t limit,
                                          std::set<std::wstring> &values)
{
    std::set<double> numbers;
    bool const result = fetch_unique_values(field, limit, numbers);
    for (double const number : numbers)
        values.insert(text_of(number));
    return result;
}

bool grid_datasource::fetch_unique_values(field_index_type key, std::vector<field_index_type> const &fields,
                                          std::uint64_t limit,
                                          std::map<std::wstring, std::vector<std::wstring>> &values)
{
    std::vector<field_index_type> all{key};
    all.insert(all.end(), fields.begin(), fields.end());
    grid_block_multi_iterator<double> iterators(*this, all);
    if (key == c_no_field || !iterators.valid())
        return false;
    struct column
    {
        double const *cells;
        no_data_test test;
        [[nodiscard]] bool counts(std::uint64_t i) const
        {
            return !std::isnan(cells[i]) && test.counts(cells[i]);
        }
    };
    std::vector<column> columns;
    for (std::size_t i = 0; i < iterators.size(); ++i)
        if (auto const *const it = iterators.at(i))
            columns.push_back({it->cells().data(), it->nodata().test()});
    for (;;) {
        result_type const result = iterators.fetch();
        if (!result.done() || result.count == 0)
            return true;
        double last = std::numeric_limits<double>::quiet_NaN();
        for (std::uint64_t i = 0; i < result.count; ++i) {
            double const cell = columns.front().cells[i];
            if (cell == last || !columns.front().counts(i))
                continue;
            std::wstring name = text_of(cell);
            if (values.contains(name)) {
                last = cell;
                continue;
            }
            std::vector<std::wstring> row;
            for (std::size_t c = 1; c < columns.size(); ++c)
                if (columns[c].counts(i))
                    row.push_back(text_of(columns[c].cells[i]));
            if (row.empty())
                continue;
            values.emplace(std::move(name), std::move(row));
            last = cell;
            if (values.size() >= limit)
                return true;
        }
    }
}

bool grid_datasource::field_unique_values(field_index_type field, std::uint64_t limit,
                                          std::set<double> &values)
{
    return fetch_unique_values(field, limit, values);
}

bool grid_datasource::select_source(std::wstring const &name)
{
    return f_grid.select_grid(name.c_str());
}

bool grid_datasource::create_grid(std::wstring const &name, grid_type type, grid_dims const &dims,
                                  field_index_type field_count, data_type cells)
{
    if (dims.x > INT_MAX || dims.y > INT_MAX || dims.z > INT_MAX || field_count > INT_MAX)
        return false;
    int counts[3] = {static_cast<int>(dims.x), static_cast<int>(dims.y), static_cast<int>(dims.z)};
    return f_grid.create_grid(name.c_str(), type, counts, static_cast<int>(field_count),
                              static_cast<int>(cells));
}

bool grid_datasource::create_grid(std::wstring const &name, options const &o, grid_type type,
                                  grid_dims const &dims, field_index_type field_count, data_type cells)
{
    return create_grid(o.alter_source(name), type, dims, field_count, cells);
}

bool grid_datasource::geotransform(Tvx_matrix3x3 &matrix) const
{
    return f_grid.with_geotransform(&matrix);
}

bool grid_datasource::geotransform(Tvx_matrix4x4 &matrix) const
{
    if (f_grid.with_geotransform_z(&matrix))
        return true;
    Tvx_matrix3x3 plane;
    if (!f_grid.with_geotransform(&plane))
        return false;
    vx_matrix4x4_init_matrix3x3(&matrix, &plane);
    return true;
}

bool grid_datasource::set_geotransform(Tvx_matrix3x3 const &matrix)
{
    Tvx_matrix3x3 copy = matrix;
    return f_grid.set_geotransform(&copy);
}

bool grid_datasource::set_geotransform(Tvx_matrix4x4 const &matrix)
{
    Tvx_matrix4x4 copy = matrix;
    return f_grid.set_geotransform_z(&copy);
}

grid_type grid_datasource::gridtype() const
{
    return f_grid.grid_type();
}

bool grid_datasource::set_gridtype(grid_type type)
{
    return f_grid.set_grid_type(type);
}

grid_origin grid_datasource::origin() const
{
    double xyz[3] = {0, 0, 0};
    f_grid.with_origin(xyz);
    return {xyz[0], xyz[1], xyz[2]};
}

bool grid_datasource::set_origin(grid_origin const &place)
{
    double xyz[3] = {place.x, place.y, place.z};
    return f_grid.set_origin(xyz);
}

grid_spacing grid_datasource::spacing() const
{
    double xyz[3] = {1, 1, 1};
    f_grid.with_spacing(xyz);
    return {xyz[0], xyz[1], xyz[2]};
}

bool grid_datasource::set_spacing(grid_spacing const &distance)
{
    double xyz[3] = {distance.x, distance.y, distance.z};
    return f_grid.set_spacing(xyz);
}

grid_origin grid_datasource::ending() const
{
    grid_origin const first = origin();
    grid_spacing const distance = spacing();
    grid_dims const counts = dimensions();
    return {first.x + length_of(counts.x, distance.x), first.y + length_of(counts.y, distance.y),
            first.z + length_of(counts.z, distance.z)};
}

bool grid_datasource::set_ending(grid_origin const &place)
{
    grid_spacing const distance = spacing();
    grid_dims const counts = dimensions();
    return set_origin({place.x - length_of(counts.x, distance.x), place.y - length_of(counts.y, distance.y),
                       place.z - length_of(counts.z, distance.z)});
}

double grid_datasource::azimuth() const
{
    return f_grid.azimuth();
}

bool grid_datasource::set_azimuth(double angle)
{
    return f_grid.set_azimuth(angle);
}

std::uint64_t grid_datasource::xcount() const
{
    return dimensions().x;
}

std::uint64_t grid_datasource::ycount() const
{
    return dimensions().y;
}

std::uint64_t grid_datasource::zcount() const
{
    return dimensions().z;
}

std::uint64_t grid_datasource::obj_count() const
{
    grid_dims const counts = dimensions();
    std::uint64_t cells = 0;
    bool const is_too_many =
        __builtin_mul_overflow(counts.x, counts.y, &cells) || __builtin_mul_overflow(cells, counts.z, &cells);
    return is_too_many ? 0 : cells;
}

grid_dims grid_datasource::dimensions() const
{
    int counts[3] = {0, 0, 0};
    if (!f_grid.with_dimensions(counts) || counts[0] < 0 || counts[1] < 0 || counts[2] < 0)
        return {};
    return {static_cast<std::uint64_t>(counts[0]), static_cast<std::uint64_t>(counts[1]),
            static_cast<std::uint64_t>(counts[2])};
}

bool grid_datasource::dimensions(unsigned long long *counts) const
{
    grid_dims const dims = dimensions();
    if (!counts || dims == grid_dims{})
        return false;
    counts[0] = dims.x;
    counts[1] = dims.y;
    counts[2] = dims.z;
    return true;
}

bool grid_datasource::create_overviews(resampling method, std::vector<int> &levels,
                                       std::vector<field_index_type> const &fields, vx::monitor progress)
{
    std::vector<int> numbers = interface_indices(fields);
    return f_grid.create_overviews(method, levels.data(), static_cast<int>(levels.size()), numbers.data(),
                                   static_cast<int>(numbers.size()), progress);
}

bool grid_datasource::delete_overviews(std::vector<field_index_type> const &fields)
{
    std::vector<int> numbers = interface_indices(fields);
    return f_grid.delete_overviews(numbers.data(), static_cast<int>(numbers.size()));
}

field_index_type grid_datasource::create_field(std::wstring const &name, data_type cells)
{
    if (!f_grid)
        return c_no_field;
    return static_cast<field_index_type>(
        static_cast<std::int64_t>(f_grid.create_field(name.c_str(), static_cast<int>(cells))));
}

field_index_type grid_datasource::field_index(color_interp color) const
{
    for (field_index_type i = 0; i < field_count(); ++i)
        if (field_color(i) == color)
            return i;
    return c_no_field;
}

data_type grid_datasource::field_datatype(field_index_type i) const
{
    return static_cast<data_type>(f_grid.field_datatype(interface_index(i)));
}

cell_kind grid_datasource::field_datakind(field_index_type i) const
{
    return f_grid.field_kind(interface_index(i));
}

color_interp grid_datasource::field_color(field_index_type i) const
{
    return f_grid.field_color(interface_index(i));
}

bool grid_datasource::field_palette(field_index_type i, grid_palette &palette) const
{
    palette.init({});
    grid_palette_visitor visitor(palette);
    return f_grid.field_palette(interface_index(i), visitor) && palette.valid();
}

bool grid_datasource::fetch_block(field_index_type field, grid_block &block)
{
    grid_block_visitor visitor(this, field, block);
    return f_grid.with_block(interface_index(field), visitor) && visitor.was_called();
}

bool grid_datasource::fetch_index(grid_block &block)
{
    grid_block_visitor visitor(this, c_no_field, block);
    return f_grid.with_index(visitor) && visitor.was_called();
}
} // namespace vx::data
