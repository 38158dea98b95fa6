#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace vx::task::detail {
/// Tells texts that were seen before from new ones. Looking one up makes no string; the texts themselves lie
/// with the caller, who keeps them where they are.
class seen_texts
{
public:
    seen_texts() : f_slots(c_first_slots) {}

    /// Runs `keep` for a text that is new, and true then; `keep` gives the text where it stays.
    template <class Keep>
    bool add(std::wstring_view text, Keep keep)
    {
        auto const hash = static_cast<std::uint32_t>(std::hash<std::wstring_view>()(text));
        std::size_t const mask = f_slots.size() - 1;
        std::size_t at = hash & mask;
        for (; f_slots[at].number; at = (at + 1) & mask)
            if (f_slots[at].hash == hash && f_texts[f_slots[at].number - 1] == text)
                return false;
        f_texts.push_back(keep());
        f_slots[at] = {hash, static_cast<std::uint32_t>(f_texts.size())};
        if (f_texts.size() * 2 > f_slots.size())
            grow();
        return true;
    }

    /// The texts in the order in which they came.
    [[nodiscard]] std::vector<std::wstring_view> &texts() { return f_texts; }

private:
    static constexpr std::size_t c_first_slots = 64;
    struct slot
    {
        std::uint32_t hash = 0;
        std::uint32_t number = 0; ///< of the text, from 1; 0 where the slot is free
    };

    void grow()
    {
        std::vector<slot> slots(f_slots.size() * 2);
        std::size_t const mask = slots.size() - 1;
        for (slot const &taken : f_slots) {
            if (!taken.number)
                continue;
            std::size_t at = taken.hash & mask;
            while (slots[at].number)
                at = (at + 1) & mask;
            slots[at] = taken;
        }
        f_slots.swap(slots);
    }

    std::vector<std::wstring_view> f_texts;
    std::vector<slot> f_slots; ///< a power of two of them, at most half taken
};
} // namespace vx::task::detail
