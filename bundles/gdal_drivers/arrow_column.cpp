#include "arrow_column.h"

#include <ogr_recordbatch.h>
#include <ogrsf_frmts.h>

#include <cstdint>
#include <cstring>
#include <vector>

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

private:
    T f_value{};
};

bool is_set(ArrowArray const &column, std::int64_t row)
{
    auto const *const bits = static_cast<std::uint8_t const *>(column.buffers[0]);
    std::int64_t const at = row + column.offset;
    return column.null_count == 0 || !bits || (bits[at / 8] >> (at % 8) & 1);
}

template <class T>
void take_numbers(ArrowArray const &column, std::vector<double> &values)
{
    auto const *const data = static_cast<T const *>(column.buffers[1]) + column.offset;
    for (std::int64_t row = 0; row < column.length; ++row)
        if (is_set(column, row))
            values.push_back(static_cast<double>(data[row]));
}

using number_taker = void (*)(ArrowArray const &column, std::vector<double> &values);

/// Null for a format that holds no plain numbers.
number_taker taker_of(char const *format)
{
    if (std::strlen(format) != 1)
        return nullptr;
    switch (*format) {
    case 's':
        return &take_numbers<std::int16_t>;
    case 'i':
        return &take_numbers<std::int32_t>;
    case 'l':
        return &take_numbers<std::int64_t>;
    case 'f':
        return &take_numbers<float>;
    case 'g':
        return &take_numbers<double>;
    default:
        return nullptr;
    }
}

/// Opens the stream and hands each batch of the column `field` to `visit`. `accept` looks at the column's
/// format first.
template <class Accept, class Visit>
column_result read_column(OGRLayer &layer, char const *field, Accept accept, Visit visit)
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
    if (place == schema->n_children || schema->children[place]->dictionary ||
        !accept(schema->children[place]->format))
        return column_result::not_offered;
    for (;;) {
        released<ArrowArray> batch;
        if (stream->get_next(stream.get(), batch.get()) != 0)
            return column_result::failed;
        if (!batch->release)
            return column_result::done;
        if (!visit(*batch->children[place]))
            return column_result::done;
    }
}
} // namespace

column_result read_numbers(OGRLayer &layer, char const *field,
                           std::function<bool(double const *values, std::size_t count)> const &visit)
{
    number_taker take = nullptr;
    std::vector<double> values;
    return read_column(
        layer, field, [&](char const *format) { return (take = taker_of(format)) != nullptr; },
        [&](ArrowArray const &column) {
            values.clear();
            take(column, values);
            return visit(values.data(), values.size());
        });
}

column_result read_texts(OGRLayer &layer, char const *field,
                         std::function<bool(std::string_view text)> const &visit)
{
    return read_column(
        layer, field, [](char const *format) { return std::strcmp(format, "u") == 0; },
        [&](ArrowArray const &column) {
            auto const *const ends = static_cast<std::int32_t const *>(column.buffers[1]) + column.offset;
            auto const *const text = static_cast<char const *>(column.buffers[2]);
            for (std::int64_t row = 0; row < column.length; ++row)
                if (is_set(column, row) &&
                    !visit({text + ends[row], static_cast<std::size_t>(ends[row + 1] - ends[row])}))
                    return false;
            return true;
        });
}
} // namespace vx::gdal
