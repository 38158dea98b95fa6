#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

/// Sets of values that are filled by a pass over a column: told at once whether a value is new, sorted once
/// at the end.
namespace vx::gdal {
/// A hash table of the places of values in a list that the owner keeps. It has no values of its own.
class place_table
{
public:
    place_table() : f_slots(c_least) {}
    void prefetch(std::uint64_t hash) const { __builtin_prefetch(&f_slots[slot(hash)]); }
    /// The place at which `is_same` holds; when there is none, `place` is filed under the hash and given
    /// back. `place` must be the number of places that are filed.
    template <class IsSame>
    std::size_t find_or_add(std::uint64_t hash, std::size_t place, IsSame is_same)
    {
        std::size_t at = slot(hash);
        auto const mark = static_cast<std::uint32_t>(hash);
        for (; f_slots[at].next_place != 0; at = (at + 1) & (f_slots.size() - 1))
            if (f_slots[at].mark == mark && is_same(f_slots[at].next_place - 1))
                return f_slots[at].next_place - 1;
        f_slots[at] = {mark, static_cast<std::uint32_t>(place + 1)};
        if ((place + 1) * 2 > f_slots.size())
            grow();
        return place;
    }

private:
    static constexpr std::size_t c_least = 1024;
    struct entry
    {
        std::uint32_t mark = 0;       ///< the lower half of the hash
        std::uint32_t next_place = 0; ///< 0: free
    };

    [[nodiscard]] std::size_t slot(std::uint64_t hash) const
    {
        return static_cast<std::uint32_t>(hash) & (f_slots.size() - 1);
    }
    void grow();

    std::vector<entry> f_slots; ///< a power of two
};

/// Different 64-bit keys.
class distinct_keys
{
public:
    distinct_keys() : f_slots(c_least, c_free) {}
    void prefetch(std::uint64_t key) const { __builtin_prefetch(&f_slots[slot(key)]); }
    /// True for a new one.
    bool insert(std::uint64_t key)
    {
        if (key == c_free)
            return !std::exchange(f_has_free, true);
        std::size_t at = slot(key);
        for (; f_slots[at] != c_free; at = (at + 1) & (f_slots.size() - 1))
            if (f_slots[at] == key)
                return false;
        f_slots[at] = key;
        if (++f_count * 2 > f_slots.size())
            grow();
        return true;
    }
    /// As `insert`, for callers who need not know what is new: past many keys, sorting is faster than a
    /// table.
    void collect(std::uint64_t key)
    {
        if (f_count < c_sorted_from)
            insert(key);
        else {
            f_collected.push_back(key);
            if (f_collected.size() >= f_next_thinning)
                thin_out();
        }
    }
    /// As `insert`, for whole numbers, of which those near 0 take a shorter way.
    bool insert_whole(long long value)
    {
        auto const near = static_cast<std::uint64_t>(value) + c_near / 2;
        if (near >= c_near)
            return insert(static_cast<std::uint64_t>(value));
        if (f_near.empty())
            f_near.resize(c_near / 64);
        std::uint64_t &word = f_near[near / 64];
        std::uint64_t const bit = std::uint64_t{1} << (near % 64);
        if (word & bit)
            return false;
        word |= bit;
        ++f_near_count;
        return true;
    }
    [[nodiscard]] std::size_t size() const { return f_count + f_has_free + f_near_count; }
    /// Ascending as unsigned numbers; `map` is applied to each key first. Nothing is left behind.
    template <class Map>
    [[nodiscard]] std::vector<std::uint64_t> take_sorted(Map map)
    {
        std::vector<std::uint64_t> result = take();
        for (std::uint64_t &key : result)
            key = map(key);
        sort_unique(result);
        return result;
    }

private:
    static constexpr std::size_t c_least = 1024;
    static constexpr std::uint64_t c_free = ~std::uint64_t{0}; ///< a slot without a key
    static constexpr std::size_t c_sorted_from = 1 << 16;
    static constexpr std::size_t c_thinning = 1 << 22;
    static constexpr std::uint64_t c_near = 1 << 24; ///< numbers in the short way; two megabytes of bits

    [[nodiscard]] std::size_t slot(std::uint64_t key) const
    {
        key *= 0x9E3779B97F4A7C15u; // the golden ratio spreads what is close together
        return (key ^ (key >> 32)) & (f_slots.size() - 1);
    }
    void grow();
    void thin_out();
    [[nodiscard]] std::vector<std::uint64_t> take();
    static void sort_unique(std::vector<std::uint64_t> &keys);

    std::vector<std::uint64_t> f_slots; ///< a power of two
    std::size_t f_count = 0;
    bool f_has_free = false;
    std::vector<std::uint64_t> f_near;
    std::size_t f_near_count = 0;
    std::vector<std::uint64_t> f_collected; ///< may repeat
    std::size_t f_next_thinning = c_thinning;
};

/// Different texts, kept one after the other.
class distinct_texts
{
public:
    [[nodiscard]] static std::uint64_t hash(std::string_view text);
    void prefetch(std::uint64_t hash) const { f_table.prefetch(hash); }
    /// True for a new one. `hash` must be that of the text.
    bool insert(std::string_view text, std::uint64_t hash);
    bool insert(std::string_view text) { return insert(text, hash(text)); }
    [[nodiscard]] std::size_t size() const { return f_starts.size() - 1; }
    [[nodiscard]] std::string_view at(std::size_t place) const
    {
        return {f_bytes.data() + f_starts[place], f_starts[place + 1] - f_starts[place]};
    }
    /// Calls `visit` with each text in the order of their bytes, which in UTF-8 is that of the characters'
    /// numbers.
    template <class Visit>
    void visit_sorted(Visit visit) const
    {
        constexpr std::size_t c_ahead = 8;
        auto const places = sorted();
        for (std::size_t i = 0; i < places.size(); ++i) {
            // Texts lie in the order of their coming: each is far from the last one.
            if (i + 2 * c_ahead < places.size())
                __builtin_prefetch(&f_starts[places[i + 2 * c_ahead]]);
            if (i + c_ahead < places.size())
                __builtin_prefetch(at(places[i + c_ahead]).data());
            visit(at(places[i]));
        }
    }

private:
    [[nodiscard]] std::vector<std::uint32_t> sorted() const;

    place_table f_table;
    std::vector<char> f_bytes;
    std::vector<std::size_t> f_starts{0}; ///< and the end of the last one
};

/// Keys whose unsigned order is that of the numbers, and back.
[[nodiscard]] std::uint64_t key_of(double value);
[[nodiscard]] double number_of_key(std::uint64_t key);
} // namespace vx::gdal
