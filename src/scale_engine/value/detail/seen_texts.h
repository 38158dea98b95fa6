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
        for (; f_slots[at].is_taken; at = (at + 1) & mask)
            if (f_slots[at].hash == hash && f_slots[at].text == text)
                return false;
        f_slots[at] = {keep(), hash, true};
        if (++f_count * 2 > f_slots.size())
            grow();
        return true;
    }

private:
    static constexpr std::size_t c_first_slots = 64;
    struct slot
    {
        std::wstring_view text;
        std::uint32_t hash = 0;
        bool is_taken = false;
    };

    void grow()
    {
        std::vector<slot> slots(f_slots.size() * 2);
        std::size_t const mask = slots.size() - 1;
        for (slot const &taken : f_slots) {
            if (!taken.is_taken)
                continue;
            std::size_t at = taken.hash & mask;
            while (slots[at].is_taken)
                at = (at + 1) & mask;
            slots[at] = taken;
        }
        f_slots.swap(slots);
    }

    std::vector<slot> f_slots; ///< a power of two of them, at most half taken
    std::size_t f_count = 0;
};
} // namespace vx::task::detail
