#include "grid_pass.h"

#include "cell_sums.h"
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
#include <optional>
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

    /// The same by lanes, into tables of their own or one; nothing for spans that are too wide or too narrow.
    [[nodiscard]] std::optional<run_classes> lanes_to(std::uint32_t *tables, std::size_t stride) const
    {
        if (!f_is_plain || f_factor != 1.0)
            return std::nullopt;
        return run_classes{f_span.low, f_span.high, f_scale, f_span.count, tables, stride};
    }

private:
    histogram_span f_span;
    double f_factor, f_start, f_range, f_scale, f_last;
    bool f_is_plain;
};

/// Takes the cells that have a value out of a run of any type.
class cell_filter
{
public:
    explicit cell_filter(no_data_test const &test) : f_none{test.low(), test.high()}, f_test(test) {}

    /// Into `values`, which has room for all; gives their number.
    template <class T>
    std::size_t operator()(T const *cells, std::size_t count, double *values) const
    {
        std::size_t kept = 0;
        for (std::size_t i = 0; i < count; ++i) {
            auto const value = static_cast<double>(cells[i]);
            values[kept] = value;
            kept += !std::isnan(value) && f_test.counts(value);
        }
        return kept;
    }
    /// All that is told by two comparisons: an infinite cell may count by them and yet have no value.
    [[nodiscard]] gap none() const { return f_none; }

private:
    gap f_none;
    no_data_test f_test;
};

/// What one thread counts.
class tally
{
public:
    tally(cell_filter const &filter, bool has_stat, histogram_span const *span)
        : f_filter(filter), f_has_stat(has_stat), f_finder(span ? *span : histogram_span{0, 0, 1}),
          f_classes(span ? static_cast<std::size_t>(span->count) + 1 : 0),
          f_tables(f_classes == 0         ? 0
                   : f_classes <= c_small ? lanes::c_step
                                          : 1),
          f_counts(f_classes * f_tables), f_totals(f_classes)
    {
    }

    template <class T>
    void add(T const *cells, std::size_t count, band_stat &stat)
    {
        std::size_t const even = count - count % lanes::c_step;
        if (!add_lanes(cells, even, stat))
            add_singly(cells, even, stat);
        add_singly(cells + even, count - even, stat);
    }

    /// Small counters into large ones; after each piece of the work.
    void finish_piece()
    {
        for (std::size_t i = 0; i < f_counts.size(); ++i)
            f_totals[i % f_classes] += f_counts[i];
        std::fill(f_counts.begin(), f_counts.end(), 0);
    }
    void add_to(std::vector<long long> &counts) const
    {
        for (std::size_t i = 0; i < counts.size(); ++i)
            counts[i] += f_totals[i];
    }

private:
    static constexpr std::size_t c_small = 4096;

    /// False, with nothing counted, where infinite cells have to be looked at one by one.
    template <class T>
    bool add_lanes(T const *cells, std::size_t count, band_stat &stat)
    {
        gap const none = f_filter.none();
        std::size_t first = 0;
        auto const is_passed = [&](double value) { return !(value < none.low || value > none.high); };
        while (first < count && is_passed(static_cast<double>(cells[first])))
            ++first;
        if (first == count)
            return true;
        // Sums of the distances from one of the cells: equal cells give their exact mean.
        auto const start = static_cast<double>(cells[first]);
        if (std::isinf(start))
            return false;
        if (f_has_stat && !add_stat(cells, count, start, stat))
            return false;
        if (f_classes == 0)
            return true;
        if (auto const to = f_finder.lanes_to(f_counts.data(), f_tables > 1 ? f_classes : 0))
            class_run(cells, count, none, *to);
        else
            for (std::size_t i = 0; i < count; ++i)
                if (!is_passed(static_cast<double>(cells[i])))
                    ++f_counts[f_finder(static_cast<double>(cells[i]))];
        return true;
    }

    template <class T>
    bool add_stat(T const *cells, std::size_t count, double start, band_stat &stat) const
    {
        gap const none = f_filter.none();
        run_sums const sums = sum_run(cells, count, none, start);
        if (std::isinf(sums.minimum) || std::isinf(sums.maximum) || !std::isfinite(sums.distance))
            return false;
        band_stat run;
        auto const number = static_cast<double>(sums.count);
        run.minimum = sums.minimum;
        run.maximum = sums.maximum;
        run.count = sums.count;
        run.mean = start + sums.distance / number;
        run.sum = start * number + sums.distance;
        double const squares = square_run(cells, count, none, run.mean);
        if (!std::isfinite(squares))
            return false;
        run.squares = squares;
        stat.add(run);
        return true;
    }

    template <class T>
    void add_singly(T const *cells, std::size_t count, band_stat &stat)
    {
        std::array<double, c_chunk> values;
        std::size_t const kept = f_filter(cells, count, values.data());
        for (std::size_t i = 0; i < kept; ++i) {
            if (f_has_stat)
                stat.add({values[i], values[i], values[i], values[i], 0, 1});
            if (f_classes > 0)
                ++f_counts[f_finder(values[i])];
        }
    }

    cell_filter f_filter;
    bool f_has_stat;
    class_finder f_finder;
    std::size_t f_classes; ///< with one for what lies outside
    std::size_t
        f_tables; ///< neighbours fall in the same class often: with one for each lane they need not wait
    std::vector<std::uint32_t> f_counts;
    std::vector<long long> f_totals;
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
        columns = (width - 1LL + across) / across; // blocks may be as large as a number can say
        rows = (height - 1LL + down) / down;
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
    block_reader(GDALRasterBand &band, block_layout const &layout, bool is_read_only)
        : f_band(band), f_layout(layout), f_is_direct(is_read_only && layout.is_whole),
          f_cells(static_cast<std::size_t>(layout.across) * static_cast<std::size_t>(layout.down) *
                  static_cast<std::size_t>(cell_size(layout.type)))
    {
    }

    /// `take(cells, count)` for runs of cells of the band's type, in the order of the block; false to stop.
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
        auto const line = static_cast<std::size_t>(f_layout.across);
        // Rows that lie side by side are one run.
        bool const is_dense = across == f_layout.across;
        std::size_t const runs = is_dense ? 1 : static_cast<std::size_t>(down);
        std::size_t const length =
            static_cast<std::size_t>(across) * (is_dense ? static_cast<std::size_t>(down) : 1);
        for (std::size_t run = 0; run < runs; ++run) {
            auto const *const cells = reinterpret_cast<T const *>(f_cells.data()) + run * line;
            for (std::size_t at = 0; at < length; at += c_chunk)
                if (!take(cells + at, std::min(c_chunk, length - at)))
                    return false;
        }
        return true;
    }

    GDALRasterBand &f_band;
    block_layout const &f_layout;
    bool f_is_direct;
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
    // The difference of two doubles may be beyond all doubles.
    long double const away = static_cast<long double>(other.mean) - mean;
    mean = static_cast<double>(mean + away * (there / (here + there)));
    squares += other.squares + away * away * (here * (there / (here + there)));
    sum += other.sum;
    count += other.count;
}

bool histogram_span::is_valid() const
{
    return count > 0 && std::isfinite(low) && std::isfinite(high) && low <= high;
}

bool pass_over_cells(dataset const &set, int band, bool has_stat, histogram_span const *span,
                     pass_result &result)
{
    GDALRasterBand &first = *set.gdal().GetRasterBand(band);
    block_layout const layout(first);
    cell_filter const filter(nodata_of(first).test());
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
            tally counted(filter, has_stat, span);
            block_reader reader(of, layout, set.read_only());
            for (std::size_t piece = next++; piece < pieces && !has_failed; piece = next++) {
                long long const end = std::min(blocks, (static_cast<long long>(piece) + 1) * in_piece);
                for (long long block = static_cast<long long>(piece) * in_piece; block < end; ++block)
                    if (!reader.read(block, [&](auto const *run, std::size_t count) {
                            counted.add(run, count, stats[piece]);
                            return true;
                        })) {
                        has_failed = true;
                        break;
                    }
                counted.finish_piece();
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
        block_reader reader(band, layout, false);
        cell_filter const filter(nodata_of(band).test());
        std::array<double, c_chunk> values;
        bool goes_on = true;
        for (long long block = 0; block < layout.columns * layout.rows; ++block) {
            bool const good = reader.read(block, [&](auto const *cells, std::size_t count) {
                std::size_t const kept = filter(cells, count, values.data());
                return goes_on = kept == 0 || visit(values.data(), kept);
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
