#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
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
        for (; f_slots[at].next_place != 0; at = (at + 1) & (f_slots.size() - 1))
            if (f_slots[at].hash == hash && is_same(f_slots[at].next_place - 1))
                return f_slots[at].next_place - 1;
        f_slots[at] = {hash, place + 1};
        if ((place + 1) * 2 > f_slots.size())
            grow();
        return place;
    }

private:
    static constexpr std::size_t c_least = 1024;
    struct entry
    {
        std::uint64_t hash = 0;
        std::size_t next_place = 0; ///< 0: free
    };

    [[nodiscard]] std::size_t slot(std::uint64_t hash) const { return hash & (f_slots.size() - 1); }
    void grow();

    std::vector<entry> f_slots; ///< a power of two
};

/// Different 64-bit keys.
class distinct_keys
{
public:
    void prefetch(std::uint64_t key) const { f_table.prefetch(hash(key)); }
    /// True for a new one.
    bool insert(std::uint64_t key)
    {
        std::size_t const place = f_keys.size();
        bool const is_new =
            f_table.find_or_add(hash(key), place, [&](std::size_t p) { return f_keys[p] == key; }) == place;
        if (is_new)
            f_keys.push_back(key);
        return is_new;
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
        f_near_values.push_back(static_cast<std::uint64_t>(value));
        return true;
    }
    [[nodiscard]] std::size_t size() const { return f_keys.size() + f_near_values.size(); }
    /// Moves the keys out, in no order.
    [[nodiscard]] std::vector<std::uint64_t> take();

private:
    static constexpr std::uint64_t c_near = 1 << 24; ///< numbers in the short way; two megabytes of bits

    static std::uint64_t hash(std::uint64_t key)
    {
        key *= 0x9E3779B97F4A7C15u; // the golden ratio spreads what is close together
        return key ^ (key >> 32);
    }

    place_table f_table;
    std::vector<std::uint64_t> f_keys;
    std::vector<std::uint64_t> f_near;
    std::vector<std::uint64_t> f_near_values;
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
    [[nodiscard]] std::size_t size() const { return f_texts.size(); }
    [[nodiscard]] std::string_view at(std::size_t place) const
    {
        return {f_bytes.data() + f_texts[place].start, f_texts[place].length};
    }
    /// Places in the order of the texts' bytes, which in UTF-8 is that of the characters' numbers.
    [[nodiscard]] std::vector<std::uint32_t> sorted() const;

private:
    struct span
    {
        std::size_t start;
        std::size_t length;
    };

    place_table f_table;
    std::vector<char> f_bytes;
    std::vector<span> f_texts;
};

struct keyed_place
{
    std::uint64_t key;
    std::uint32_t place;
};

/// Sorts by key, as unsigned numbers; equal keys keep their order. In linear time.
void sort_by_key(std::vector<keyed_place> &items);
void sort_keys(std::vector<std::uint64_t> &keys);

/// Keys whose unsigned order is that of the numbers, and back.
[[nodiscard]] std::uint64_t key_of(double value);
[[nodiscard]] double number_of_key(std::uint64_t key);
} // namespace vx::gdal
