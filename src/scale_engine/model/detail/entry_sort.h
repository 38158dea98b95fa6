#pragma once

#include "scale_engine/model/scale_sort_types.h"

#include <string>
#include <vector>

/// The sorting that value and range tasks share. Items are sorted, not entries: the result is an order, the
/// old index of the entry for each new place.
namespace vx::task::detail {
struct scale_sort_numeric
{
    double value = 0;
    bool valid = false;
    unsigned index = 0;

    /// The number that all of the text spells, with "," as well as "."; else no valid one.
    [[nodiscard]] static scale_sort_numeric from_text(std::wstring const &text, unsigned index);
    /// Numbers by value, behind them what is none; the old order decides between equals.
    [[nodiscard]] static bool compare(scale_sort_numeric const &a, scale_sort_numeric const &b);
};

struct scale_sort_string
{
    std::wstring text;
    unsigned index = 0;

    /// In the order of texts for people, without regard to case; the old order decides between equals.
    [[nodiscard]] static bool compare(scale_sort_string const &a, scale_sort_string const &b);
};

/// Sorts the items and writes their indexes into a list of `vx_ints_create`.
void write_order(std::vector<scale_sort_numeric> &items, scale_sortord order, void *ints);
void write_order(std::vector<scale_sort_string> &items, scale_sortord order, void *ints);
/// The order of `size` entries; `number_of(i)` gives the numeric item of an entry, `text_of(i)` its text.
template <class Number, class Text>
void write_order(unsigned size, scale_sortas as, scale_sortord order, void *ints, Number number_of,
                 Text text_of)
{
    std::vector<scale_sort_numeric> numbers;
    std::vector<scale_sort_string> texts;
    for (unsigned i = 0; i < size; ++i)
        if (as == scale_sortas::numbers)
            numbers.push_back(number_of(i));
        else
            texts.push_back({text_of(i), i});
    if (as == scale_sortas::numbers)
        write_order(numbers, order, ints);
    else
        write_order(texts, order, ints);
}
} // namespace vx::task::detail
