#include "distinct.h"

#include <algorithm>
#include <array>
#include <bit>
#include <functional>
#include <iterator>
#include <utility>

namespace vx::gdal {
namespace {
constexpr std::size_t c_key_bytes = 8;
constexpr std::size_t c_byte_values = 256;
constexpr std::uint64_t c_sign = std::uint64_t{1} << 63;

/// Sorts by one byte of the key after the other, the lowest first; in linear time. A byte that is the same in
/// all keys is passed over.
template <class Item, class KeyOf>
void sort_by_bytes(std::vector<Item> &items, KeyOf key_of)
{
    std::array<std::array<std::size_t, c_byte_values>, c_key_bytes> counts{};
    for (Item const &item : items)
        for (std::size_t b = 0; b < c_key_bytes; ++b)
            ++counts[b][key_of(item) >> (b * 8) & 0xFF];
    std::vector<Item> target(items.size());
    for (std::size_t b = 0; b < c_key_bytes; ++b) {
        if (std::find(counts[b].begin(), counts[b].end(), items.size()) != counts[b].end())
            continue;
        std::size_t start = 0;
        for (std::size_t &count : counts[b])
            start += std::exchange(count, start);
        for (Item const &item : items)
            target[counts[b][key_of(item) >> (b * 8) & 0xFF]++] = item;
        items.swap(target);
    }
}

struct keyed_place
{
    std::uint64_t key;
    std::uint32_t place;
};

/// The next eight bytes of the text, the first one highest; a text that ends has zeros.
std::uint64_t leading_bytes(std::string_view text)
{
    std::uint64_t key = 0;
    for (std::size_t i = 0; i < c_key_bytes; ++i)
        key = key << 8 | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0u);
    return key;
}

std::size_t shared_start(std::string_view a, std::string_view b)
{
    auto const end = std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first;
    return static_cast<std::size_t>(end - a.begin());
}
} // namespace

void place_table::grow()
{
    std::vector<entry> old(f_slots.size() * 2);
    old.swap(f_slots);
    for (entry const &e : old) {
        if (e.next_place == 0)
            continue;
        std::size_t at = slot(e.mark);
        while (f_slots[at].next_place != 0)
            at = (at + 1) & (f_slots.size() - 1);
        f_slots[at] = e;
    }
}

void distinct_keys::grow()
{
    std::vector<std::uint64_t> old(f_slots.size() * 2, c_free);
    old.swap(f_slots);
    for (std::uint64_t const key : old) {
        if (key == c_free)
            continue;
        std::size_t at = slot(key);
        while (f_slots[at] != c_free)
            at = (at + 1) & (f_slots.size() - 1);
        f_slots[at] = key;
    }
}

void distinct_keys::sort_unique(std::vector<std::uint64_t> &keys)
{
    if (!std::is_sorted(keys.begin(), keys.end()))
        sort_by_bytes(keys, [](std::uint64_t key) { return key; });
    keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
}

void distinct_keys::thin_out()
{
    sort_unique(f_collected);
    f_next_thinning = std::max(c_thinning, f_collected.size() * 2);
}

std::vector<std::uint64_t> distinct_keys::take()
{
    std::vector<std::uint64_t> result = std::move(f_collected);
    result.reserve(result.size() + size());
    std::copy_if(f_slots.begin(), f_slots.end(), std::back_inserter(result),
                 [](std::uint64_t key) { return key != c_free; });
    if (f_has_free)
        result.push_back(c_free);
    for (std::size_t word = 0; word < f_near.size(); ++word)
        for (std::uint64_t bits = f_near[word]; bits != 0; bits &= bits - 1)
            result.push_back(word * 64 + static_cast<unsigned>(std::countr_zero(bits)) - c_near / 2);
    return result;
}

std::uint64_t distinct_texts::hash(std::string_view text)
{
    return std::hash<std::string_view>()(text);
}

bool distinct_texts::insert(std::string_view text, std::uint64_t hash)
{
    std::size_t const place = size();
    if (f_table.find_or_add(hash, place, [&](std::size_t p) { return at(p) == text; }) != place)
        return false;
    f_bytes.insert(f_bytes.end(), text.begin(), text.end());
    f_starts.push_back(f_bytes.size());
    return true;
}

std::vector<std::uint32_t> distinct_texts::sorted() const
{
    // What all texts begin with tells nothing.
    std::size_t skipped = size() > 0 ? at(0).size() : 0;
    for (std::size_t place = 1; place < size() && skipped > 0; ++place)
        skipped = std::min(skipped, shared_start(at(0).substr(0, skipped), at(place)));
    std::vector<keyed_place> items(size());
    for (std::size_t place = 0; place < size(); ++place)
        items[place] = {leading_bytes(at(place).substr(skipped)), static_cast<std::uint32_t>(place)};
    sort_by_bytes(items, [](keyed_place const &i) { return i.key; });
    for (auto run = items.begin(); run != items.end();) {
        auto const end = std::find_if(run, items.end(), [&](auto const &i) { return i.key != run->key; });
        if (end - run > 1)
            std::sort(run, end, [&](auto const &a, auto const &b) { return at(a.place) < at(b.place); });
        run = end;
    }
    std::vector<std::uint32_t> places(items.size());
    std::transform(items.begin(), items.end(), places.begin(), [](auto const &i) { return i.place; });
    return places;
}

std::uint64_t key_of(double value)
{
    auto const bits = std::bit_cast<std::uint64_t>(value);
    return bits & c_sign ? ~bits : bits | c_sign;
}

double number_of_key(std::uint64_t key)
{
    return std::bit_cast<double>(key & c_sign ? key & ~c_sign : ~key);
}
} // namespace vx::gdal
