#include "arrow_column.h"

#include <ogr_recordbatch.h>
#include <ogrsf_frmts.h>

#include <cstring>

namespace vx::gdal {
namespace {
/// A structure of the Arrow C interface, let go by its own function.
template <class T>
class released
{
public:
    released() = default;
    ~released()
    {
        if (f_value.release)
            f_value.release(&f_value);
    }
    released(released const &) = delete;
    released &operator=(released const &) = delete;
    T *get() { return &f_value; }
    T *operator->() { return &f_value; }
    T &operator*() { return f_value; }

private:
    T f_value{};
};

/// One format of a column and how its batches go on.
class column_taker
{
public:
    /// False for a format that is not read here.
    [[nodiscard]] bool accept(char const *format);
    [[nodiscard]] bool take(ArrowArray const &column, column_sink const &sink);

private:
    template <class From, class To>
    To const *widened(ArrowArray const &column, std::vector<To> &target);
    std::uint8_t const *bits(ArrowArray const &column);

    char f_format = 0;
    std::vector<std::int32_t> f_integers;
    std::vector<double> f_floatings;
    std::vector<std::uint8_t> f_bits;
};

bool column_taker::accept(char const *format)
{
    f_format = *format;
    return std::strlen(format) == 1 && std::strchr("silfgu", f_format);
}

template <class From, class To>
To const *column_taker::widened(ArrowArray const &column, std::vector<To> &target)
{
    auto const *const data = static_cast<From const *>(column.buffers[1]) + column.offset;
    target.assign(data, data + column.length);
    return target.data();
}

/// The validity bits from the first cell of the batch on.
std::uint8_t const *column_taker::bits(ArrowArray const &column)
{
    auto const *const all = static_cast<std::uint8_t const *>(column.buffers[0]);
    if (!all || column.null_count == 0)
        return nullptr;
    if (column.offset % 8 == 0)
        return all + column.offset / 8;
    f_bits.assign(static_cast<std::size_t>(column.length) / 8 + 1, 0);
    for (std::int64_t i = 0; i < column.length; ++i) {
        std::int64_t const at = i + column.offset;
        if (all[at / 8] >> (at % 8) & 1)
            f_bits[static_cast<std::size_t>(i / 8)] |= static_cast<std::uint8_t>(1u << (i % 8));
    }
    return f_bits.data();
}

bool column_taker::take(ArrowArray const &column, column_sink const &sink)
{
    column_batch batch;
    batch.count = static_cast<std::size_t>(column.length);
    if (batch.count == 0)
        return true;
    batch.defined = bits(column);
    switch (f_format) {
    case 's':
        batch.kind = column_batch::integers;
        batch.values = widened<std::int16_t>(column, f_integers);
        break;
    case 'i':
        batch.kind = column_batch::integers;
        batch.values = static_cast<std::int32_t const *>(column.buffers[1]) + column.offset;
        break;
    case 'l':
        batch.kind = column_batch::bigints;
        batch.values = static_cast<long long const *>(column.buffers[1]) + column.offset;
        break;
    case 'f':
        batch.kind = column_batch::floatings;
        batch.values = widened<float>(column, f_floatings);
        break;
    case 'g':
        batch.kind = column_batch::floatings;
        batch.values = static_cast<double const *>(column.buffers[1]) + column.offset;
        break;
    default:
        batch.kind = column_batch::texts;
        batch.starts = static_cast<std::int32_t const *>(column.buffers[1]) + column.offset;
        batch.bytes = static_cast<char const *>(column.buffers[2]);
        break;
    }
    return sink(batch);
}
} // namespace

column_result read_arrow_column(OGRLayer &layer, char const *field, column_sink const &sink)
{
    if (!layer.TestCapability(OLCFastGetArrowStream))
        return column_result::not_offered;
    layer.ResetReading();
    char const *const options[] = {"INCLUDE_FID=NO", nullptr};
    released<ArrowArrayStream> stream;
    if (!layer.GetArrowStream(stream.get(), options))
        return column_result::not_offered;
    released<ArrowSchema> schema;
    if (stream->get_schema(stream.get(), schema.get()) != 0)
        return column_result::not_offered;
    std::int64_t place = 0;
    while (place < schema->n_children && std::strcmp(schema->children[place]->name, field) != 0)
        ++place;
    column_taker taker;
    if (place == schema->n_children || schema->children[place]->dictionary ||
        !taker.accept(schema->children[place]->format))
        return column_result::not_offered;
    for (;;) {
        released<ArrowArray> batch;
        if (stream->get_next(stream.get(), batch.get()) != 0)
            return column_result::failed;
        if (!batch->release || !taker.take(*batch->children[place], sink))
            return column_result::done;
    }
}
} // namespace vx::gdal
