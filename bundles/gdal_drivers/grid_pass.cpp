#include "grid_pass.h"

#include "cell_transfer.h"
#include "gdal_errors.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <exception>
#include <limits>
#include <mutex>
#include <sched.h>
#include <thread>

namespace vx::gdal {
namespace {
/// Cells of one piece of the work, where blocks are smaller.
constexpr long long c_piece_cells = 1 << 20;
/// Blocks above this are read in windows: a file may claim blocks of any size.
constexpr long long c_largest_block = 1 << 24;
/// So few cells are not worth a second thread.
constexpr long long c_cells_for_threads = 1 << 22;
constexpr int c_most_threads = 8;
/// Cells that are worked on at a time: what lies in the first level of the processor's memory.
constexpr std::size_t c_chunk = 1024;
constexpr std::size_t c_lanes = 4; ///< sums that run side by side

/// The way from a value to its class.
class class_finder
{
public:
    explicit class_finder(histogram_span const &span) : f_span(span)
    {
        double const range = span.high - span.low;
        // The half of a range that is too wide for a number, and of its values, gives the same classes.
        f_factor = std::isfinite(range) ? 1.0 : 0.5;
        f_start = span.low * f_factor;
        f_range = span.high * f_factor - f_start;
        f_scale = f_range > 0 ? span.count / f_range : 0;
        f_is_plain = std::isfinite(f_scale);
        f_last = span.count - 1;
    }
    /// Its class, or the number of classes for a value outside the span.
    [[nodiscard]] std::size_t operator()(double value) const
    {
        double const from_start = value * f_factor - f_start;
        double const place = f_is_plain ? from_start * f_scale : from_start / f_range * f_span.count;
        auto const inside = static_cast<int>(std::min(std::max(place, 0.0), f_last));
        return static_cast<std::size_t>(value >= f_span.low && value <= f_span.high ? inside : f_span.count);
    }

private:
    histogram_span f_span;
    double f_factor, f_start, f_range, f_scale, f_last;
    bool f_is_plain;
};

/// What one thread counts.
class tally
{
public:
    explicit tally(histogram_span const *span)
        : f_finder(span ? *span : histogram_span{0, 0, 1}), f_has_span(span != nullptr),
          f_classes(span ? static_cast<std::size_t>(span->count) + 1 : 0),
          f_tables(std::min<std::size_t>(f_classes, 1) * (f_classes <= c_small ? c_lanes : 1)),
          f_counts(f_classes * f_tables)
    {
    }

    /// Cells that have a value.
    void add(double const *values, std::size_t count, band_stat &stat)
    {
        if (count == 0)
            return;
        stat.add(stat_of(values, count));
        if (!f_has_span)
            return;
        // Neighbours fall in the same class often: with a table for each lane they do not wait for each
        // other.
        for (std::size_t i = 0; i < count; ++i)
            ++f_counts[f_finder(values[i]) + i % f_tables * f_classes];
    }

    void add_to(std::vector<long long> &counts) const
    {
        for (std::size_t table = 0; table < f_tables; ++table)
            for (std::size_t i = 0; i < counts.size(); ++i)
                counts[i] += f_counts[table * f_classes + i];
    }

private:
    static constexpr std::size_t c_small = 4096;

    static band_stat stat_of(double const *values, std::size_t count)
    {
        std::array<double, c_lanes> low{}, high{}, sum{}, squares{};
        low.fill(values[0]);
        high.fill(values[0]);
        // Sums of the distances from one of the values: equal cells give their exact mean.
        double const start = values[0];
        std::size_t const even = count - count % c_lanes;
        for (std::size_t i = 0; i < even; i += c_lanes)
            for (std::size_t lane = 0; lane < c_lanes; ++lane) {
                double const value = values[i + lane];
                low[lane] = std::min(low[lane], value);
                high[lane] = std::max(high[lane], value);
                sum[lane] += value - start;
            }
        for (std::size_t i = even; i < count; ++i) {
            low[0] = std::min(low[0], values[i]);
            high[0] = std::max(high[0], values[i]);
            sum[0] += values[i] - start;
        }
        band_stat stat;
        auto const number = static_cast<double>(count);
        double const distance = sum[0] + sum[1] + sum[2] + sum[3];
        stat.minimum = *std::min_element(low.begin(), low.end());
        stat.maximum = *std::max_element(high.begin(), high.end());
        stat.mean = start + distance / number;
        stat.sum = start * number + distance;
        stat.count = static_cast<long long>(count);
        for (std::size_t i = 0; i < even; i += c_lanes)
            for (std::size_t lane = 0; lane < c_lanes; ++lane) {
                double const away = values[i + lane] - stat.mean;
                squares[lane] += away * away;
            }
        for (std::size_t i = even; i < count; ++i)
            squares[0] += (values[i] - stat.mean) * (values[i] - stat.mean);
        stat.squares = squares[0] + squares[1] + squares[2] + squares[3];
        return stat;
    }

    class_finder f_finder;
    bool f_has_span;
    std::size_t f_classes; ///< with one for what lies outside
    std::size_t f_tables;
    std::vector<long long> f_counts;
};

/// Takes the cells that have a value out of a run of any type.
class cell_filter
{
public:
    explicit cell_filter(no_data_test const &test) : f_test(test)
    {
        f_low = test.low();
        f_high = test.high();
    }

    template <class T>
    std::size_t operator()(T const *cells, std::size_t count, double *values) const
    {
        std::size_t kept = 0;
        bool is_infinite = false;
        for (std::size_t i = 0; i < count; ++i) {
            auto const value = static_cast<double>(cells[i]);
            values[kept] = value;
            // Neither holds for what is not a number.
            kept += value < f_low || value > f_high;
            if constexpr (std::is_floating_point_v<T>)
                is_infinite |= std::fabs(value) > std::numeric_limits<double>::max();
        }
        if (is_infinite && f_test.is_finite_only())
            kept = static_cast<std::size_t>(
                std::remove_if(values, values + kept, [](double value) { return std::isinf(value); }) -
                values);
        return kept;
    }

private:
    no_data_test f_test;
    double f_low, f_high;
};

/// The blocks of a band, or windows of the same use where blocks are too large.
struct block_layout
{
    explicit block_layout(GDALRasterBand &band)
        : width(band.GetXSize()), height(band.GetYSize()), type(cell_type_of(band))
    {
        band.GetBlockSize(&across, &down);
        across = std::max(across, 1);
        down = std::max(down, 1);
        is_whole = static_cast<long long>(across) * down <= c_largest_block &&
                   !GDALDataTypeIsComplex(band.GetRasterDataType());
        if (!is_whole) {
            across =
                static_cast<int>(std::clamp<long long>(across, 1, std::min<long long>(width, c_piece_cells)));
            down = static_cast<int>(std::clamp<long long>(down, 1, std::max(1LL, c_piece_cells / across)));
        }
        columns = (width + across - 1LL) / across;
        rows = (height + down - 1LL) / down;
    }

    int width, height;
    int type;
    int across = 0, down = 0; ///< cells of a block
    bool is_whole = true;     ///< blocks are the file's own
    long long columns = 0, rows = 0;
};

/// Reads blocks of one band and works on them.
class block_reader
{
public:
    block_reader(GDALRasterBand &band, block_layout const &layout, bool is_read_only,
                 no_data_test const &test)
        : f_band(band), f_layout(layout), f_is_direct(is_read_only && layout.is_whole), f_filter(test),
          f_cells(static_cast<std::size_t>(layout.across) * static_cast<std::size_t>(layout.down) *
                  static_cast<std::size_t>(cell_size(layout.type)))
    {
    }

    /// `take(values, count)` for each run of cells that have a value.
    template <class Take>
    bool read(long long block, Take take)
    {
        auto const column = static_cast<int>(block % f_layout.columns);
        auto const row = static_cast<int>(block / f_layout.columns);
        int const x = column * f_layout.across;
        int const y = row * f_layout.down;
        int const across = std::min(f_layout.across, f_layout.width - x);
        int const down = std::min(f_layout.down, f_layout.height - y);
        // A set that may be written has cells in GDAL's cache that the file has not got yet.
        if (f_is_direct) {
            if (f_band.ReadBlock(column, row, f_cells.data()) != CE_None)
                return false;
        } else {
            GSpacing const cell = cell_size(f_layout.type);
            cell_window const window{x,      y,    across,        down, f_cells.data(),
                                     across, down, f_layout.type, cell, cell * f_layout.across};
            if (transfer_cells(f_band, GF_Read, window, GRIORA_NearestNeighbour) != transfer_done)
                return false;
        }
        switch (f_layout.type) {
        case cells_uint8:
            return work<std::uint8_t>(across, down, take);
        case cells_int8:
            return work<std::int8_t>(across, down, take);
        case cells_int16:
            return work<std::int16_t>(across, down, take);
        case cells_uint16:
            return work<std::uint16_t>(across, down, take);
        case cells_int32:
            return work<std::int32_t>(across, down, take);
        case cells_uint32:
            return work<std::uint32_t>(across, down, take);
        case cells_int64:
            return work<std::int64_t>(across, down, take);
        case cells_uint64:
            return work<std::uint64_t>(across, down, take);
        case cells_float32:
            return work<float>(across, down, take);
        case cells_float64:
            return work<double>(across, down, take);
        default:
            return false;
        }
    }

private:
    template <class T, class Take>
    bool work(int across, int down, Take take)
    {
        std::array<double, c_chunk> values;
        auto const line = static_cast<std::size_t>(f_layout.across);
        // Rows that lie side by side are one run.
        bool const is_dense = across == f_layout.across;
        std::size_t const runs = is_dense ? 1 : static_cast<std::size_t>(down);
        std::size_t const length =
            static_cast<std::size_t>(across) * (is_dense ? static_cast<std::size_t>(down) : 1);
        for (std::size_t run = 0; run < runs; ++run) {
            auto const *const cells = reinterpret_cast<T const *>(f_cells.data()) + run * line;
            for (std::size_t at = 0; at < length; at += c_chunk) {
                std::size_t const kept = f_filter(cells + at, std::min(c_chunk, length - at), values.data());
                if (kept > 0 && !take(values.data(), kept))
                    return false;
            }
        }
        return true;
    }

    GDALRasterBand &f_band;
    block_layout const &f_layout;
    bool f_is_direct;
    cell_filter f_filter;
    std::vector<unsigned char> f_cells;
};

/// Processors that this process may use.
int processors()
{
    cpu_set_t set;
    CPU_ZERO(&set);
    return sched_getaffinity(0, sizeof set, &set) == 0 ? CPU_COUNT(&set) : 1;
}
} // namespace

void band_stat::add(band_stat const &other)
{
    if (other.count == 0)
        return;
    if (count == 0) {
        *this = other;
        return;
    }
    minimum = std::min(minimum, other.minimum);
    maximum = std::max(maximum, other.maximum);
    auto const here = static_cast<double>(count);
    auto const there = static_cast<double>(other.count);
    double const away = other.mean - mean;
    mean += away * (there / (here + there));
    squares += other.squares + away * away * (here * (there / (here + there)));
    sum += other.sum;
    count += other.count;
}

bool histogram_span::is_valid() const
{
    return count > 0 && std::isfinite(low) && std::isfinite(high) && low <= high;
}

bool pass_over_cells(dataset const &set, int band, histogram_span const *span, pass_result &result)
{
    GDALRasterBand &first = *set.gdal().GetRasterBand(band);
    block_layout const layout(first);
    no_data_test const test = nodata_of(first).test();
    long long const blocks = layout.columns * layout.rows;
    long long const cells = static_cast<long long>(layout.width) * layout.height;
    long long const block_cells = static_cast<long long>(layout.across) * layout.down;
    // Pieces of the work: runs of blocks in the order of the file.
    long long const in_piece = std::max({1LL, c_piece_cells / block_cells, blocks / 65536});
    auto const pieces = static_cast<std::size_t>((blocks + in_piece - 1) / in_piece);
    std::vector<band_stat> stats(pieces);
    result = {};
    if (span)
        result.counts.assign(static_cast<std::size_t>(span->count), 0);

    std::atomic<std::size_t> next = 0;
    std::atomic<bool> has_failed = false;
    std::mutex joining;
    std::wstring errors;
    auto const work = [&](GDALRasterBand &of) {
        std::wstring failure;
        try {
            error_guard const guard(failure);
            tally counted(span);
            block_reader reader(of, layout, set.read_only(), test);
            for (std::size_t piece = next++; piece < pieces && !has_failed; piece = next++) {
                long long const end = std::min(blocks, (static_cast<long long>(piece) + 1) * in_piece);
                for (long long block = static_cast<long long>(piece) * in_piece; block < end; ++block)
                    if (!reader.read(block, [&](double const *values, std::size_t count) {
                            counted.add(values, count, stats[piece]);
                            return true;
                        })) {
                        has_failed = true;
                        break;
                    }
            }
            std::scoped_lock const lock(joining);
            counted.add_to(result.counts);
        } catch (std::exception const &) { // no memory for a block or the classes
            has_failed = true;
        }
        std::scoped_lock const lock(joining);
        errors += failure;
    };
    std::vector<std::thread> others;
    if (cells >= c_cells_for_threads)
        for (int i = 1; i < std::min({processors(), c_most_threads, static_cast<int>(pieces)}); ++i)
            if (std::shared_ptr<GDALDataset> again{set.open_again()})
                others.emplace_back([&, again] {
                    GDALRasterBand &of = *again->GetRasterBand(band);
                    if (cell_type_of(of) == layout.type)
                        work(of);
                });
    work(first);
    for (std::thread &other : others)
        other.join();
    if (has_failed) {
        std::wstring ignored;
        error_guard(ignored).add(errors);
        return false;
    }
    for (band_stat const &stat : stats)
        result.stat.add(stat);
    return true;
}

bool scan_cells(GDALRasterBand &band,
                std::function<bool(double const *cells, std::size_t count)> const &visit)
{
    block_layout const layout(band);
    try {
        block_reader reader(band, layout, false, nodata_of(band).test());
        bool goes_on = true;
        for (long long block = 0; block < layout.columns * layout.rows; ++block) {
            bool const good = reader.read(block, [&](double const *values, std::size_t count) {
                return goes_on = visit(values, count);
            });
            if (!goes_on)
                return true;
            if (!good)
                return false;
        }
        return true;
    } catch (std::exception const &) { // no memory for a block
        return false;
    }
}
} // namespace vx::gdal
