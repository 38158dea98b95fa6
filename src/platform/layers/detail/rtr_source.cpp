#include "platform/layers/detail/rtr_source.h"

#include "extension/binding/codes.h"
#include "extension/binding/grid_block_visitor.h"
#include "extension/binding/grid_palette.h"
#include "extension/binding/grid_palette_visitor.h"
#include "extension/binding/histogram_visitor.h"
#include "extension/binding/string_visitor.h"

#include "platform/base/whole_number_classes.h"
#include "platform/basic/vx_datasource.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vx::layers {
namespace {
/// More than any format has, and few enough to ask for each.
constexpr int c_most_bands = 1 << 16;

class text_receiver final : public vx::string_visitor_impl
{
public:
    void visit(wchar_t const *text) override { f_text = text ? text : L""; }
    std::wstring f_text;
};

class histogram_receiver final : public vx::histogram_visitor_impl
{
public:
    void visit(double low, double high, int count, long long *counts) override
    {
        f_low = low;
        f_high = high;
        f_counts.assign(counts, counts + std::max(count, 0));
    }
    double f_low = 0;
    double f_high = 0;
    std::vector<long long> f_counts;
};

class block_receiver final : public vx::grid_block_visitor_impl
{
public:
    void visit(vx::grid_block block) override { f_block = block; }
    vx::grid_block f_block;
};

class palette_receiver final : public vx::grid_palette_visitor_impl
{
public:
    void visit(vx::grid_palette palette) override
    {
        for (int i = 0; i < std::min(palette.color_count(), c_most_colors); ++i) {
            Tvx_color color;
            (void)palette.with_color(i, &color);
            f_colors.push_back(color);
        }
        vx_datasource_end(palette);
    }
    std::vector<Tvx_color> f_colors;

private:
    static constexpr int c_most_colors = 1 << 16;
};

// Numbers of the drivers.
constexpr int c_average = 5;
constexpr int c_nearest = 0;

raster_color color_of_number(int number)
{
    constexpr raster_color c_colors[] = {raster_color::none, raster_color::gray,  raster_color::none,
                                         raster_color::red,  raster_color::green, raster_color::blue,
                                         raster_color::alpha};
    return number >= 0 && number < static_cast<int>(std::size(c_colors))
               ? c_colors[static_cast<std::size_t>(number)]
               : raster_color::none;
}

/// Place of a value among classes of equal width, of which the last holds the upper bound.
std::size_t class_of(double value, double low, double high, std::size_t count)
{
    if (!(low < high))
        return 0;
    double const place = (value - low) * (static_cast<double>(count) / (high - low));
    return std::min(static_cast<std::size_t>(place), count - 1);
}

/// Classes between bounds from the counts of whole numbers; false when it has others.
bool from_whole_numbers(histogram_receiver const &of, double low, double high, std::vector<long long> &counts)
{
    bool const is_of_whole = !of.f_counts.empty() &&
                             of.f_high - of.f_low == static_cast<double>(of.f_counts.size()) &&
                             of.f_low + 0.5 == std::floor(of.f_low + 0.5);
    if (!is_of_whole)
        return false;
    std::ranges::fill(counts, 0);
    for (std::size_t i = 0; i < of.f_counts.size(); ++i) {
        double const value = of.f_low + 0.5 + static_cast<double>(i);
        if (value >= low && value <= high)
            counts[class_of(value, low, high, counts.size())] += of.f_counts[i];
    }
    return true;
}
} // namespace
} // namespace vx::layers

using namespace vx::layers;

Tvx_rtr_source::~Tvx_rtr_source()
{
    close();
}

void Tvx_rtr_source::close()
{
    for (auto const &[band, block] : f_blocks)
        if (block)
            vx_datasource_end(block);
    f_blocks.clear();
    f_shown_bounds.clear();
    f_used_numbers.clear();
    if (f_set)
        vx_datasource_end(f_set);
    f_set = {};
    f_stat = {};
}

template <class Call>
bool Tvx_rtr_source::attempt(Call call)
{
    try {
        return call();
    } catch (...) {
        vx_datasource_failed(f_set.handle().table);
        return false;
    }
}

bool Tvx_rtr_source::open()
{
    if (f_set)
        return true;
    t_vx_data_source_interface handle;
    vx_datasource_open(f_name.c_str(), true, &handle);
    f_set = vx::data_source(handle);
    if (!f_set)
        return false;
    f_stat = vx::stat_source(vx_stat_source_interface_specialize(vx_data_source_interface_generalize(f_set)));
    bool const has_cells = f_stat && attempt([&] {
                               f_bands.clear();
                               int const count = f_set.grid_count() > 0 ? f_set.field_count() : 0;
                               for (int i = 0; i < std::min(count, c_most_bands); ++i) {
                                   text_receiver name;
                                   f_set.field_name(i, name);
                                   f_bands.push_back(name.f_text);
                               }
                               return !f_bands.empty();
                           });
    if (!has_cells)
        close();
    return has_cells;
}

std::vector<std::wstring> const &Tvx_rtr_source::bands()
{
    if (f_bands.empty())
        (void)open();
    return f_bands;
}

bool Tvx_rtr_source::compute_stat(unsigned band, Tvx_stat_data *stat)
{
    close();
    if (!open() || band >= f_bands.size())
        return false;
    int const field = static_cast<int>(band);
    double minimum = 0, maximum = 0, average = 0, deviation = 0;
    long long count = 0;
    bool const good = attempt([&] {
        return f_stat.compute_stats(field, true) && f_stat.count_nonnull(field, &count) && count > 0 &&
               f_stat.minimum(field, &minimum) && f_stat.maximum(field, &maximum) &&
               f_stat.average(field, &average) && f_stat.stdev(field, &deviation);
    });
    if (!good || !std::isfinite(minimum) || !std::isfinite(maximum))
        return false;
    vx_stat_set_minimum(stat, minimum);
    vx_stat_set_maximum(stat, maximum);
    vx_stat_set_average(stat, average);
    vx_stat_set_stddev(stat, deviation);
    vx_stat_set_histogramm(stat, false);
    return true;
}

/// Bytes are counted once, each value by itself, and any other classes are made of that.
bool Tvx_rtr_source::count_cells(int band, double low, double high, std::vector<long long> &counts)
{
    if (is_bytes(static_cast<unsigned>(band))) {
        histogram_receiver values;
        if (f_stat.with_default_histogram(band, true, values) &&
            from_whole_numbers(values, low, high, counts))
            return true;
    }
    if (low < high)
        return f_stat.with_custom_histogram(band, low, high, static_cast<int>(counts.size()), counts.data(),
                                            true);
    // Classes without a width: the driver has none, and all cells of the value are in the first.
    double const next = std::nextafter(high, HUGE_VAL);
    std::vector<long long> one(1);
    std::ranges::fill(counts, 0);
    bool const good = f_stat.with_custom_histogram(band, low, next, 1, one.data(), true);
    counts[0] = one[0];
    return good;
}

bool Tvx_rtr_source::has_whole_numbers(unsigned band)
{
    using namespace vx::codes;
    int type = plain::cells_none;
    bool const is_known = attempt([&] {
        vx::grid_source const cells(
            vx_grid_source_interface_specialize(vx_data_source_interface_generalize(f_set)));
        type = cells.field_datatype(static_cast<int>(band));
        return true;
    });
    return is_known && type >= plain::cells_uint8 && type <= plain::cells_uint64;
}

bool Tvx_rtr_source::compute_histogram(unsigned band, Tvx_stat_data *stat, double low, double high)
{
    if (!std::isfinite(low) || !std::isfinite(high) || !(low <= high) || !open() || band >= f_bands.size())
        return false;
    int const classes =
        has_whole_numbers(band) ? vx::whole_number_classes(low, high, c_raster_classes) : c_raster_classes;
    std::vector<long long> counts(static_cast<std::size_t>(classes));
    if (!attempt([&] { return count_cells(static_cast<int>(band), low, high, counts); }))
        return false;
    auto *const histogram = vx_stat_get_histogramm(stat, nullptr);
    auto const count = static_cast<unsigned>(counts.size());
    vx_histogramm_set_params(histogram, count, low, high);
    for (unsigned i = 0; i < count; ++i)
        vx_histogramm_set(histogram, i, static_cast<double>(counts[i]));
    vx_stat_set_histogramm(stat, true);
    return true;
}

bool Tvx_rtr_source::quick_bounds(unsigned band, double &low, double &high)
{
    int const field = static_cast<int>(band);
    return open() && band < f_bands.size() && attempt([&] {
               return f_stat.has_stat(field) && f_stat.minimum(field, &low) && f_stat.maximum(field, &high);
           });
}

int Tvx_rtr_source::cell_type(unsigned band)
{
    int type = vx::codes::plain::cells_none;
    if (open())
        (void)attempt([&] {
            type = grid().field_datatype(static_cast<int>(band));
            return true;
        });
    return type;
}

bool Tvx_rtr_source::is_bytes(unsigned band)
{
    int const type = cell_type(band);
    return type == vx::codes::plain::cells_uint8 || type == vx::codes::plain::cells_int8;
}

bool Tvx_rtr_source::is_unsigned_bytes(unsigned band)
{
    return cell_type(band) == vx::codes::plain::cells_uint8;
}

// ---- cells

vx::grid_source Tvx_rtr_source::grid() const
{
    return vx::grid_source(vx_grid_source_interface_specialize(vx_data_source_interface_generalize(f_set)));
}

bool Tvx_rtr_source::is_coded(unsigned band)
{
    return open() && attempt([&] {
               return grid().field_kind(static_cast<int>(band)) == vx::codes::plain::cells_coded;
           });
}

bool Tvx_rtr_source::place(raster_place &place)
{
    return open() && attempt([&] {
               int counts[3] = {0, 0, 0};
               if (!grid().with_dimensions(counts) || counts[0] <= 0 || counts[1] <= 0)
                   return false;
               place = {};
               place.width = counts[0];
               place.height = counts[1];
               // Without a place of its own a raster lies in cells, with its first row on top.
               if (Tvx_matrix3x3 matrix; grid().with_geotransform(&matrix))
                   for (int i = 0; i < 3; ++i) {
                       place.x[i] = matrix.m[0][i];
                       place.y[i] = matrix.m[1][i];
                   }
               return true;
           });
}

raster_color Tvx_rtr_source::color_of(unsigned band)
{
    auto color = raster_color::none;
    if (open())
        (void)attempt([&] {
            color = color_of_number(grid().field_color(static_cast<int>(band)));
            return true;
        });
    return color;
}

std::vector<Tvx_color> Tvx_rtr_source::palette(unsigned band)
{
    palette_receiver receiver;
    bool const has =
        open() && attempt([&] { return grid().field_palette(static_cast<int>(band), receiver); });
    return has ? receiver.f_colors : std::vector<Tvx_color>();
}

vx::grid_block Tvx_rtr_source::block(int band)
{
    if (!open())
        return {};
    auto const known = f_blocks.find(band);
    if (known != f_blocks.end())
        return known->second;
    block_receiver receiver;
    (void)attempt([&] {
        return band == c_raster_mask ? grid().with_index(receiver) : grid().with_block(band, receiver);
    });
    return f_blocks[band] = receiver.f_block;
}

/// False when there are too many cells, or some cannot be read.
bool Tvx_rtr_source::note_numbers(unsigned band, std::vector<bool> &used)
{
    constexpr double c_most_cells = 4e6;
    constexpr int c_cells_at_once = 1 << 16;
    raster_place size;
    if (!place(size) || static_cast<double>(size.width) * size.height > c_most_cells)
        return false;
    std::vector<double> cells;
    int const rows = std::max(1, c_cells_at_once / size.width);
    for (int y = 0; y < size.height; y += rows) {
        int const height = std::min(rows, size.height - y);
        raster_window const window{0, y, size.width, height, size.width, height};
        cells.resize(window.buffer_cells());
        if (!read(static_cast<int>(band), window, cells.data()))
            return false;
        for (double const cell : cells)
            if (cell >= 0 && cell < static_cast<double>(used.size()))
                used[static_cast<std::size_t>(cell)] = true;
    }
    return true;
}

std::vector<bool> const &Tvx_rtr_source::used_numbers(unsigned band, std::size_t count)
{
    std::vector<bool> &used = f_used_numbers[band];
    if (used.size() != count) {
        used.assign(count, false);
        if (!note_numbers(band, used))
            used.assign(count, true);
    }
    return used;
}

vx::no_data_test Tvx_rtr_source::no_data(unsigned band)
{
    auto const cells = block(static_cast<int>(band));
    double value = 0;
    bool const has =
        cells && attempt([&] { return cells.with_nodata(vx::codes::plain::cells_float64, &value); });
    return has ? vx::no_data_test(value) : vx::no_data_test();
}

bool Tvx_rtr_source::has_mask()
{
    return static_cast<bool>(block(c_raster_mask));
}

bool Tvx_rtr_source::read_as(int band, raster_window const &window, void *cells, int type)
{
    auto const from = block(band);
    if (!from || window.x < 0 || window.y < 0 || window.width <= 0 || window.height <= 0)
        return false;
    using counts = unsigned long long[2];
    counts const offset{static_cast<unsigned>(window.x), static_cast<unsigned>(window.y)};
    counts const size{static_cast<unsigned>(window.width), static_cast<unsigned>(window.height)};
    counts const buffer{static_cast<unsigned>(window.buffer_width),
                        static_cast<unsigned>(window.buffer_height)};
    return attempt([&] {
        auto const read = [&](int resampling) {
            unsigned long long done = 0;
            (void)from.set_resampling(resampling);
            return from.read2d(offset, size, cells, buffer, type, nullptr, &done);
        };
        int const averaged = window.averages ? read(c_average) : vx::codes::plain::transfer_not_offered;
        return (averaged == vx::codes::plain::transfer_not_offered ? read(c_nearest) : averaged) ==
               vx::codes::plain::transfer_done;
    });
}

bool Tvx_rtr_source::read(int band, raster_window const &window, unsigned char *cells)
{
    return read_as(band, window, cells, vx::codes::plain::cells_uint8);
}

bool Tvx_rtr_source::read(int band, raster_window const &window, double *cells)
{
    if (!read_as(band, window, cells, vx::codes::plain::cells_float64))
        return false;
    auto const test = no_data(static_cast<unsigned>(band));
    for (std::size_t i = 0; i < window.buffer_cells(); ++i)
        if (!test.counts(cells[i]) || !std::isfinite(cells[i]))
            cells[i] = std::nan("");
    return true;
}

/// Windows all over a raster, none of which reaches into a second block; all of a small one.
std::vector<raster_window> Tvx_rtr_source::samples(int band, raster_place const &size)
{
    constexpr int c_few = 512, c_longest = 256;
    constexpr long long c_large_block = 1 << 15; ///< takes a millisecond or two to unpack
    if (size.width <= c_few && size.height <= c_few)
        return {{0, 0, size.width, size.height, size.width, size.height}};
    unsigned long long counts[3] = {1, 1, 1};
    auto const cells = block(band);
    if (!cells || !attempt([&] { return cells.block_size(counts); }))
        return {};
    auto const length = [](unsigned long long count) {
        return static_cast<int>(std::clamp<unsigned long long>(count, 1, std::numeric_limits<int>::max()));
    };
    int const across = length(counts[0]), down = length(counts[1]);
    int const places = static_cast<long long>(across) * down < c_large_block ? 6 : 3;
    auto const start = [places](int i, int whole, int step) {
        return static_cast<int>((whole - 1LL) * i / (places - 1)) / step * step;
    };
    std::vector<raster_window> windows;
    for (int i = 0; i < places * places; ++i) {
        raster_window w;
        w.x = start(i % places, size.width, across);
        w.y = start(i / places, size.height, down);
        // Blocks as wide as the raster are looked at in other columns.
        if (across > c_longest)
            w.x = std::max(w.x, start(i % places, size.width - c_longest, 1));
        w.width = w.buffer_width = std::min({c_longest, across, size.width - w.x});
        w.height = w.buffer_height = std::min({c_longest, down, size.height - w.y});
        windows.push_back(w);
    }
    return windows;
}

bool Tvx_rtr_source::shown_bounds(unsigned band, double &low, double &high)
{
    if (auto const known = f_shown_bounds.find(band); known != f_shown_bounds.end()) {
        low = known->second.first;
        high = known->second.second;
        return low <= high;
    }
    raster_place size;
    if (!place(size) || band >= f_bands.size())
        return false;
    if (!quick_bounds(band, low, high) || !std::isfinite(low) || !std::isfinite(high)) {
        low = HUGE_VAL;
        high = -HUGE_VAL;
        std::vector<double> cells;
        for (auto const &window : samples(static_cast<int>(band), size)) {
            cells.resize(window.buffer_cells());
            if (!read(static_cast<int>(band), window, cells.data()))
                return false;
            for (double const cell : cells)
                if (!std::isnan(cell)) {
                    low = std::min(low, cell);
                    high = std::max(high, cell);
                }
        }
    }
    f_shown_bounds[band] = {low, high};
    return low <= high;
}
