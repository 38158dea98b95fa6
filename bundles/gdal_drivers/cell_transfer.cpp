#include "cell_transfer.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <limits>
#include <vector>

namespace vx::gdal {
namespace {
/// Cells that are converted at a time, to bound the memory.
constexpr long long c_most_cells = 1 << 20;

std::int8_t to_signed_byte(std::int16_t value)
{
    using limits = std::numeric_limits<std::int8_t>;
    return static_cast<std::int8_t>(std::clamp<std::int16_t>(value, limits::min(), limits::max()));
}

/// A dense row of 16-bit numbers into a row of the buffer.
void put_row(std::vector<std::int16_t> const &row, cell_window const &to, void *line)
{
    auto *at = static_cast<char *>(line);
    if (to.type == cells_int8)
        for (std::int16_t const value : row) {
            *reinterpret_cast<std::int8_t *>(at) = to_signed_byte(value);
            at += to.pixel;
        }
    else
        GDALCopyWords64(row.data(), GDT_Int16, sizeof(std::int16_t), at, gdal_type_of(to.type),
                        static_cast<int>(to.pixel), static_cast<GPtrDiff_t>(row.size()));
}

void get_row(std::vector<std::int16_t> &row, cell_window const &from, void const *line)
{
    auto const *at = static_cast<char const *>(line);
    if (from.type == cells_int8)
        for (std::int16_t &value : row) {
            value = *reinterpret_cast<std::int8_t const *>(at);
            at += from.pixel;
        }
    else
        GDALCopyWords64(at, gdal_type_of(from.type), static_cast<int>(from.pixel), row.data(), GDT_Int16,
                        sizeof(std::int16_t), static_cast<GPtrDiff_t>(row.size()));
}

/// One piece through a dense buffer of the band's bytes, or of 16-bit numbers that hold every signed byte.
bool transfer_by_rows(GDALRasterBand &band, GDALRWFlag way, cell_window const &window,
                      GDALRIOResampleAlg resampling)
{
    bool const is_signed = has_signed_bytes(band);
    auto const across = static_cast<std::size_t>(window.buffer_width);
    auto const down = static_cast<std::size_t>(window.buffer_height);
    std::vector<std::int8_t> bytes(is_signed ? across * down : 0);
    std::vector<std::int16_t> numbers(is_signed ? 0 : across * down);
    std::vector<std::int16_t> row(across);
    auto const each_row = [&](auto work) {
        for (std::size_t y = 0; y < down; ++y)
            work(y * across, static_cast<char *>(window.buffer) + static_cast<GSpacing>(y) * window.line);
    };
    auto const move_all = [&] {
        GDALRasterIOExtraArg extra;
        INIT_RASTERIO_EXTRA_ARG(extra);
        extra.eResampleAlg = resampling;
        return band.RasterIO(way, window.x, window.y, window.width, window.height,
                             is_signed ? static_cast<void *>(bytes.data()) : numbers.data(),
                             window.buffer_width, window.buffer_height, is_signed ? GDT_Byte : GDT_Int16, 0,
                             0, &extra) == CE_None;
    };
    if (way == GF_Read) {
        if (!move_all())
            return false;
        each_row([&](std::size_t first, char *line) {
            if (is_signed)
                std::copy_n(bytes.begin() + static_cast<std::ptrdiff_t>(first), across, row.begin());
            else
                std::copy_n(numbers.begin() + static_cast<std::ptrdiff_t>(first), across, row.begin());
            put_row(row, window, line);
        });
        return true;
    }
    each_row([&](std::size_t first, char const *line) {
        get_row(row, window, line);
        if (is_signed)
            std::transform(row.begin(), row.end(), bytes.begin() + static_cast<std::ptrdiff_t>(first),
                           &to_signed_byte);
        else
            std::copy(row.begin(), row.end(), numbers.begin() + static_cast<std::ptrdiff_t>(first));
    });
    return move_all();
}
} // namespace

transfer_status transfer_cells(GDALRasterBand &band, GDALRWFlag way, cell_window const &window,
                               GDALRIOResampleAlg resampling)
{
    bool const is_signed = has_signed_bytes(band);
    bool const has_room = window.pixel <= std::numeric_limits<int>::max();
    if (window.type != cells_int8 && !is_signed) {
        GDALRasterIOExtraArg extra;
        INIT_RASTERIO_EXTRA_ARG(extra);
        extra.eResampleAlg = resampling;
        return band.RasterIO(way, window.x, window.y, window.width, window.height, window.buffer,
                             window.buffer_width, window.buffer_height, gdal_type_of(window.type),
                             window.pixel, window.line, &extra) == CE_None
                   ? transfer_done
                   : transfer_failed;
    }
    // GDAL would mix the bytes as unsigned ones.
    if (is_signed && !window.is_exact() && resampling != GRIORA_NearestNeighbour)
        return transfer_not_offered;
    try {
        if (!has_room)
            return transfer_failed;
        if (!window.is_exact())
            return transfer_by_rows(band, way, window, resampling) ? transfer_done : transfer_failed;
        int const rows =
            static_cast<int>(std::clamp<long long>(c_most_cells / window.width, 1, window.height));
        for (int done = 0; done < window.height; done += rows) {
            cell_window piece = window;
            piece.y += done;
            piece.height = piece.buffer_height = std::min(rows, window.height - done);
            piece.buffer = static_cast<char *>(window.buffer) + done * window.line;
            if (!transfer_by_rows(band, way, piece, resampling))
                return transfer_failed;
        }
        return transfer_done;
    } catch (std::exception const &) { // no memory for the conversion
        return transfer_failed;
    }
}
} // namespace vx::gdal
