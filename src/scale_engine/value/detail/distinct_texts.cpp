#include "scale_engine/value/detail/distinct_texts.h"

#include <algorithm>
#include <functional>

namespace vx::task::detail {
namespace {
constexpr std::size_t c_first_slots = 64;
/// Runs of fewer equal beginnings are compared text by text.
constexpr std::ptrdiff_t c_few = 16;

/// Two units as one number of the same order; behind the end of the text stands what is less than any unit.
std::uint64_t two_units(std::wstring_view text, std::size_t at)
{
    auto const unit = [&](std::size_t i) {
        return i < text.size() ? std::uint64_t{static_cast<std::uint32_t>(text[i]) ^ 0x8000'0000U} : 0;
    };
    return unit(at) << 32 | unit(at + 1);
}
} // namespace

distinct_texts::distinct_texts() : f_slots(c_first_slots)
{
}

bool distinct_texts::add(std::wstring_view text)
{
    auto const hash = static_cast<std::uint32_t>(std::hash<std::wstring_view>()(text));
    std::size_t const mask = f_slots.size() - 1;
    std::size_t at = hash & mask;
    for (; f_slots[at].number_plus_1 != 0; at = (at + 1) & mask)
        if (f_slots[at].hash == hash && (*this)[f_slots[at].number_plus_1 - 1] == text)
            return false;
    f_spans.push_back({f_text.size(), text.size()});
    f_text.insert(f_text.end(), text.begin(), text.end());
    f_slots[at] = {static_cast<std::uint32_t>(f_spans.size()), hash};
    if (f_spans.size() * 2 > f_slots.size())
        grow();
    return true;
}

void distinct_texts::grow()
{
    std::vector<slot> slots(f_slots.size() * 4);
    std::size_t const mask = slots.size() - 1;
    for (slot const &taken : f_slots) {
        if (taken.number_plus_1 == 0)
            continue;
        std::size_t at = taken.hash & mask;
        while (slots[at].number_plus_1 != 0)
            at = (at + 1) & mask;
        slots[at] = taken;
    }
    f_slots.swap(slots);
}

std::vector<std::uint32_t> distinct_texts::sorted() const
{
    std::vector<sort_key> keys(size());
    for (std::uint32_t i = 0; i < keys.size(); ++i)
        keys[i].number = i;
    sort(keys.data(), keys.data() + keys.size(), 0);
    std::vector<std::uint32_t> numbers(keys.size());
    std::transform(keys.begin(), keys.end(), numbers.begin(), [](sort_key const &key) { return key.number; });
    return numbers;
}

void distinct_texts::sort(sort_key *first, sort_key *last, std::size_t depth) const
{
    while (last - first > c_few) {
        for (sort_key *key = first; key != last; ++key)
            key->units = two_units((*this)[key->number], depth);
        depth += 2;
        auto const by_units = [](sort_key const &a, sort_key const &b) { return a.units < b.units; };
        auto const differs = [first](sort_key const &key) { return key.units != first->units; };
        if (std::none_of(first, last, differs))
            continue; // all begin alike so far
        std::sort(first, last, by_units);
        for (sort_key *run = first; run != last;) {
            sort_key *const end = std::upper_bound(run, last, *run, by_units);
            if (end - run > 1)
                sort(run, end, depth);
            run = end;
        }
        return;
    }
    std::sort(first, last,
              [this](sort_key const &a, sort_key const &b) { return (*this)[a.number] < (*this)[b.number]; });
}
} // namespace vx::task::detail
