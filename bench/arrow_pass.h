#pragma once

#include "sample_table.h"

#include <ogr_recordbatch.h>

#include <cstdint>
#include <cstring>
#include <string_view>

/// The plain way to a column: one pass over GDAL's Arrow stream with the other fields ignored.
namespace vx_bench {
/// Opens the file and hands each batch of the column to `visit`, in order.
template <class Visit>
void arrow_pass(std::string const &file, int field, Visit visit)
{
    std::unique_ptr<GDALDataset> const set(GDALDataset::Open(file.c_str(), GDAL_OF_VECTOR));
    auto *const layer = set->GetLayer(0);
    keep_only(*layer, field);
    char const *const options[] = {"INCLUDE_FID=NO", nullptr};
    ArrowArrayStream stream{};
    if (!layer->GetArrowStream(&stream, options))
        std::abort();
    for (;;) {
        ArrowArray batch{};
        if (stream.get_next(&stream, &batch) != 0)
            std::abort();
        if (!batch.release)
            break;
        visit(*batch.children[0]);
        batch.release(&batch);
    }
    stream.release(&stream);
}

inline bool is_set(ArrowArray const &column, std::int64_t row)
{
    auto const *const bits = static_cast<std::uint8_t const *>(column.buffers[0]);
    std::int64_t const at = row + column.offset;
    return column.null_count == 0 || !bits || (bits[at / 8] >> (at % 8) & 1);
}

/// Calls `visit` with each number of a batch that is not null.
template <class T, class Visit>
void for_numbers(ArrowArray const &column, Visit visit)
{
    auto const *const data = static_cast<T const *>(column.buffers[1]) + column.offset;
    for (std::int64_t row = 0; row < column.length; ++row)
        if (is_set(column, row))
            visit(data[row]);
}

/// Calls `visit` with each text of a batch that is not null.
template <class Visit>
void for_texts(ArrowArray const &column, Visit visit)
{
    auto const *const ends = static_cast<std::int32_t const *>(column.buffers[1]) + column.offset;
    auto const *const text = static_cast<char const *>(column.buffers[2]);
    for (std::int64_t row = 0; row < column.length; ++row)
        if (is_set(column, row))
            visit(std::string_view(text + ends[row], static_cast<std::size_t>(ends[row + 1] - ends[row])));
}
} // namespace vx_bench
