#include "column.h"

#include <algorithm>
#include <cstring>

namespace vx::gdal {
namespace {
constexpr std::size_t c_batch = 4096;          ///< cells; a batch stays in the processor's cache
constexpr std::size_t c_batch_bytes = 1 << 20; ///< of texts
} // namespace

column_builder::column_builder(column_batch::cell_kind kind, column_sink const &sink)
    : f_kind(kind), f_sink(sink), f_defined(c_batch / 8)
{
    if (kind == column_batch::texts)
        f_starts.push_back(0);
    else
        f_words.resize(c_batch);
}

bool column_builder::added(bool is_defined)
{
    if (is_defined)
        f_defined[f_count / 8] |= static_cast<std::uint8_t>(1u << (f_count % 8));
    else
        f_has_null = true;
    if (f_kind == column_batch::texts)
        f_starts.push_back(static_cast<std::int32_t>(f_bytes.size()));
    return ++f_count < c_batch && f_bytes.size() < c_batch_bytes ? true : hand_out();
}

bool column_builder::add_null()
{
    set_whole(0);
    return added(false);
}

void column_builder::set_whole(long long value)
{
    if (f_kind == column_batch::integers) {
        auto const narrow = static_cast<std::int32_t>(value);
        std::memcpy(reinterpret_cast<char *>(f_words.data()) + f_count * sizeof narrow, &narrow,
                    sizeof narrow);
    } else if (f_kind != column_batch::texts)
        f_words[f_count] = value;
}

bool column_builder::add_whole(long long value)
{
    set_whole(value);
    return added(true);
}

bool column_builder::add_floating(double value)
{
    std::memcpy(&f_words[f_count], &value, sizeof value);
    return added(true);
}

bool column_builder::add_text(std::string_view text)
{
    f_bytes.insert(f_bytes.end(), text.begin(), text.end());
    return added(true);
}

bool column_builder::hand_out()
{
    if (f_count == 0)
        return true;
    column_batch batch;
    batch.kind = f_kind;
    batch.count = f_count;
    if (f_kind == column_batch::texts) {
        batch.starts = f_starts.data();
        batch.bytes = f_bytes.data();
    } else
        batch.values = f_words.data();
    batch.defined = f_has_null ? f_defined.data() : nullptr;
    bool const goes_on = f_sink(batch);
    f_count = 0;
    f_has_null = false;
    std::fill(f_defined.begin(), f_defined.end(), std::uint8_t{0});
    f_bytes.clear();
    if (f_kind == column_batch::texts)
        f_starts.resize(1);
    return goes_on;
}

bool column_builder::finish()
{
    return hand_out();
}
} // namespace vx::gdal
