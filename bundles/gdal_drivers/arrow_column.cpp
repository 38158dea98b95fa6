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

/// The batches of a stream.
class arrow_walk final : public column_walk
{
public:
    explicit arrow_walk(std::shared_ptr<GDALDataset> set) : f_set(std::move(set)) {}

    [[nodiscard]] bool begin(OGRLayer &layer, char const *field, char const *const *options)
    {
        if (!layer.TestCapability(OLCFastGetArrowStream))
            return false;
        layer.ResetReading();
        if (!layer.GetArrowStream(f_stream.get(), options))
            return false;
        released<ArrowSchema> schema;
        if (f_stream->get_schema(f_stream.get(), schema.get()) != 0)
            return false;
        while (f_place < schema->n_children && std::strcmp(schema->children[f_place]->name, field) != 0)
            ++f_place;
        return f_place < schema->n_children && !schema->children[f_place]->dictionary &&
               f_taker.accept(schema->children[f_place]->format);
    }

    step_result step(column_sink const &sink) override
    {
        released<ArrowArray> batch;
        if (f_stream->get_next(f_stream.get(), batch.get()) != 0)
            return c_broken;
        return batch->release && f_taker.take(*batch->children[f_place], sink) ? c_more : c_end;
    }

private:
    std::shared_ptr<GDALDataset> f_set; ///< null: somebody else's
    released<ArrowArrayStream> f_stream;
    column_taker f_taker;
    std::int64_t f_place = 0;
};
} // namespace

column_result read_arrow_column(OGRLayer &layer, char const *field, column_sink const &sink)
{
    char const *const options[] = {"INCLUDE_FID=NO", nullptr};
    arrow_walk walk(nullptr);
    if (!walk.begin(layer, field, options))
        return column_result::not_offered;
    column_walk::step_result result = column_walk::c_more;
    while (result == column_walk::c_more)
        result = walk.step(sink);
    return result == column_walk::c_broken ? column_result::failed : column_result::done;
}

std::unique_ptr<column_walk> walk_arrow_column(std::shared_ptr<GDALDataset> set, OGRLayer &layer,
                                               char const *field)
{
    // Some milliseconds each.
    char const *const options[] = {"INCLUDE_FID=NO", "MAX_FEATURES_IN_BATCH=8192", nullptr};
    auto walk = std::make_unique<arrow_walk>(std::move(set));
    return walk->begin(layer, field, options) ? std::move(walk) : nullptr;
}
} // namespace vx::gdal
