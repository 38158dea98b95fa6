#include "platform/data/detail/cell_readers.h"

#include "platform/base/text_codec.h"
#include "platform/basic/vx_datasource.h"
#include "platform/data/vx_attr_data.h"

#include <algorithm>
#include <type_traits>

namespace vx::attr {
namespace {
template <class T>
T number_cell(vx::feature const &item, int field, bool *defined)
{
    if constexpr (std::is_same_v<T, double>)
        return item.get_numeric(field, defined);
    else if constexpr (std::is_same_v<T, std::int64_t>)
        return item.get_bigint(field, defined);
    else
        return item.get_integer(field, defined);
}
} // namespace

column empty_column(int type, std::size_t records)
{
    switch (type) {
    case c_attr_string:
    case c_attr_date:
    case c_attr_time:
    case c_attr_date_time:
        return text_cells(records);
    case c_attr_integer:
        return number_cells<std::int32_t>(records);
    case c_attr_bigint:
        return number_cells<std::int64_t>(records);
    case c_attr_numeric:
        return number_cells<double>(records);
    default:
        return {};
    }
}

void finish(column &cells)
{
    if (auto *const texts = std::get_if<text_cells>(&cells))
        texts->finish();
}

void feature_cells::visit(vx::feature item)
{
    struct ending
    {
        vx::feature const &item;
        ~ending() { vx_datasource_end(item); }
    } const ends{item};
    for (std::size_t i = 0; i < f_cells.size(); ++i)
        std::visit([&](auto &cells) { append(cells, item, f_fields[i]); }, f_cells[i]);
    ++f_size;
}

void feature_cells::append(text_cells &cells, vx::feature const &item, int field)
{
    bool defined = false;
    f_receiver.f_text.clear();
    item.get_string(field, &defined, f_receiver);
    if (defined)
        cells.append(vx::text::wide_to_utf8(f_receiver.f_text));
    else
        cells.append_none();
}

template <class T>
void feature_cells::append(number_cells<T> &cells, vx::feature const &item, int field)
{
    bool defined = false;
    auto const value = number_cell<T>(item, field, &defined);
    cells.append(value, defined);
}

bool column_cells::visit_texts(unsigned long long count, char const *bytes, int const *starts,
                               unsigned char const *defined)
{
    auto *const cells = std::get_if<text_cells>(&f_cells);
    if (!cells)
        return f_is_good = false;
    return for_each(count, defined, [&](std::size_t i, bool is_defined) {
        if (is_defined)
            cells->append({bytes + starts[i], static_cast<std::size_t>(starts[i + 1] - starts[i])});
        else
            cells->append_none();
    });
}

template <class Wanted, class T>
bool column_cells::take(unsigned long long count, T const *values, unsigned char const *defined)
{
    auto *const cells = std::get_if<Wanted>(&f_cells);
    if (!cells)
        return f_is_good = false;
    return for_each(count, defined,
                    [&](std::size_t i, bool is_defined) { cells->append(values[i], is_defined); });
}

template <class Append>
bool column_cells::for_each(unsigned long long count, unsigned char const *defined, Append append)
{
    auto const taken = std::min<std::size_t>(count, f_left);
    for (std::size_t i = 0; i < taken; ++i)
        append(i, !defined || (defined[i / 8] >> (i % 8) & 1) != 0);
    f_left -= taken;
    return f_left > 0;
}
} // namespace vx::attr
