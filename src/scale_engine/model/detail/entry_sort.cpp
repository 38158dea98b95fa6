#include "scale_engine/model/detail/entry_sort.h"

#include "data/filesystem/tutils.h"

#include "platform/basic/vx_ints.h"
#include "platform/winapi/collation.h"

#include <algorithm>
#include <cmath>

namespace vx::task::detail {
namespace {
template <class Item>
void write_order_of(std::vector<Item> &items, scale_sortord order, void *ints)
{
    std::sort(items.begin(), items.end(), &Item::compare);
    if (order == scale_sortord::descending)
        std::reverse(items.begin(), items.end());
    vx_ints_set_size(ints, static_cast<unsigned>(items.size()));
    for (unsigned i = 0; i < items.size(); ++i)
        vx_ints_set_int(ints, i, static_cast<int>(items[i].index));
}
} // namespace

scale_sort_numeric scale_sort_numeric::from_text(std::wstring const &text, unsigned index)
{
    bool is_number = false;
    double const value = Tutils::str2dbl(text, &is_number);
    return {value, is_number, index};
}

bool scale_sort_numeric::compare(scale_sort_numeric const &a, scale_sort_numeric const &b)
{
    // "nan" has no place among the numbers.
    bool const a_counts = a.valid && !std::isnan(a.value);
    bool const b_counts = b.valid && !std::isnan(b.value);
    if (a_counts != b_counts)
        return a_counts;
    if (a_counts && a.value != b.value)
        return a.value < b.value;
    return a.index < b.index;
}

bool scale_sort_string::compare(scale_sort_string const &a, scale_sort_string const &b)
{
    int const order = lstrcmpiW(a.text.c_str(), b.text.c_str());
    return order != 0 ? order < 0 : a.index < b.index;
}

void write_order(std::vector<scale_sort_numeric> &items, scale_sortord order, void *ints)
{
    write_order_of(items, order, ints);
}

void write_order(std::vector<scale_sort_string> &items, scale_sortord order, void *ints)
{
    write_order_of(items, order, ints);
}
} // namespace vx::task::detail
