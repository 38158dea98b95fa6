#pragma once

#include "platform/base/export.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace vx::task::detail {
/// Different texts in the order in which they were first met, all in one piece of memory.
class VX_API distinct_texts
{
public:
    distinct_texts();
    /// True when the text is new.
    bool add(std::wstring_view text);
    [[nodiscard]] std::size_t size() const { return f_spans.size(); }
    [[nodiscard]] std::wstring_view operator[](std::size_t i) const
    {
        return {f_text.data() + f_spans[i].start, f_spans[i].length};
    }
    /// Numbers of the texts, by the order of their code units.
    [[nodiscard]] std::vector<std::uint32_t> sorted() const;

private:
    struct span
    {
        std::size_t start;
        std::size_t length;
    };
    struct slot
    {
        std::uint32_t number_plus_1 = 0; ///< 0 is a free slot
        std::uint32_t hash = 0;
    };
    struct sort_key
    {
        std::uint64_t units; ///< two units of the text at some depth
        std::uint32_t number;
    };
    void grow();
    void sort(sort_key *first, sort_key *last, std::size_t depth) const;

    std::vector<wchar_t> f_text;
    std::vector<span> f_spans;
    std::vector<slot> f_slots; ///< a power of two of them, at most half taken
};
} // namespace vx::task::detail
