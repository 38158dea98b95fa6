#pragma once

#include "platform/base/text_hash.h"

#include <algorithm>
#include <deque>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Tells different texts apart, each kept once.
class distinct_texts
{
public:
    [[nodiscard]] std::size_t size() const { return f_texts.size(); }

    /// True when the text was not there yet.
    bool add(std::string_view text)
    {
        if (2 * (f_texts.size() + 1) > f_slots.size())
            grow();
        std::uint32_t const hash = vx::text::seeded_hash(text, f_seed);
        slot &found = slot_of(hash, text);
        if (found.number != 0)
            return false;
        f_texts.emplace_back(text);
        found = {hash, static_cast<std::uint32_t>(f_texts.size())};
        return true;
    }

    /// In bytewise order; the texts end here.
    [[nodiscard]] std::vector<std::string> take_sorted()
    {
        // Most are told apart by their first bytes.
        std::vector<std::pair<std::uint64_t, std::string *>> order;
        order.reserve(f_texts.size());
        for (auto &text : f_texts)
            order.emplace_back(first_bytes(text), &text);
        std::ranges::sort(order, [](auto const &a, auto const &b) {
            return a.first != b.first ? a.first < b.first : *a.second < *b.second;
        });
        std::vector<std::string> sorted;
        sorted.reserve(order.size());
        for (auto const &[bytes, text] : order)
            sorted.push_back(std::move(*text));
        f_texts.clear();
        f_slots.clear();
        return sorted;
    }

private:
    struct slot
    {
        std::uint32_t hash = 0;
        std::uint32_t number = 0; ///< of the text, from 1
    };

    /// The first eight as a number, in their order.
    static std::uint64_t first_bytes(std::string_view text)
    {
        std::uint64_t bytes = 0;
        for (std::size_t i = 0; i < sizeof bytes; ++i)
            bytes = bytes << 8 | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0U);
        return bytes;
    }
    slot &slot_of(std::uint32_t hash, std::string_view text)
    {
        std::size_t const mask = f_slots.size() - 1;
        std::size_t place = hash & mask;
        while (f_slots[place].number != 0 &&
               (f_slots[place].hash != hash || f_texts[f_slots[place].number - 1] != text))
            place = (place + 1) & mask;
        return f_slots[place];
    }
    void grow()
    {
        std::vector<slot> former(std::max<std::size_t>(2 * f_slots.size(), 64));
        former.swap(f_slots);
        std::size_t const mask = f_slots.size() - 1;
        for (slot const &old : former) {
            std::size_t place = old.hash & mask;
            while (old.number != 0 && f_slots[place].number != 0)
                place = (place + 1) & mask;
            if (old.number != 0)
                f_slots[place] = old;
        }
    }

    std::uint64_t f_seed = vx::text::chance_seed();
    std::vector<slot> f_slots; ///< a power of two of them, at most half in use
    std::deque<std::string> f_texts;
};
