#include "scale_engine/value/detail/kept_texts.h"

#include <algorithm>

namespace vx::task::detail {
namespace {
constexpr std::size_t c_block_chars = 16'384;

/// A text with the first characters behind what all texts have in common, as one number that compares as they
/// do.
struct sort_key
{
    std::uint64_t first = 0;
    std::wstring_view text;
};

std::size_t common_prefix(std::vector<std::wstring_view> const &texts)
{
    std::wstring_view common = texts.front();
    for (auto const &text : texts)
        common = common.substr(
            0, static_cast<std::size_t>(std::ranges::mismatch(common, text).in1 - common.begin()));
    return common.size();
}

std::vector<sort_key> sorted(std::vector<std::wstring_view> const &texts)
{
    std::size_t const from = common_prefix(texts);
    std::uint32_t greatest = 0;
    for (auto const &text : texts)
        for (wchar_t const c : text)
            greatest = std::max(greatest, static_cast<std::uint32_t>(c));
    // One is added to each character, so that an end comes first. The wide comparison has a sign: a character
    // that is negative leaves no room for the trick, and the texts are compared alone.
    unsigned const bits = greatest < 0xff ? 8 : greatest < 0xffff ? 16 : greatest < 0x7fffffff ? 32 : 0;
    std::vector<sort_key> keys;
    keys.reserve(texts.size());
    for (auto const &text : texts) {
        std::uint64_t first = 0;
        for (unsigned at = 0; bits && at < 64 / bits; ++at)
            first = (first << bits) |
                    (from + at < text.size() ? static_cast<std::uint32_t>(text[from + at]) + 1U : 0U);
        keys.push_back({first, text});
    }
    std::ranges::sort(keys, [](sort_key const &a, sort_key const &b) {
        return a.first != b.first ? a.first < b.first : a.text < b.text;
    });
    return keys;
}
} // namespace

std::wstring_view kept_texts::store(std::wstring_view text)
{
    if (text.size() > f_left) {
        std::size_t const chars = std::max(c_block_chars, text.size());
        f_blocks.push_back(std::make_unique_for_overwrite<wchar_t[]>(chars));
        f_free = f_blocks.back().get();
        f_left = chars;
    }
    std::wstring_view const stored(f_free, text.size());
    std::ranges::copy(text, f_free);
    f_free += text.size();
    f_left -= text.size();
    return stored;
}

void kept_texts::move_to(std::set<std::wstring> &values)
{
    if (f_seen.texts().empty())
        return;
    for (auto const &key : sorted(f_seen.texts()))
        values.emplace_hint(values.end(), key.text);
}
} // namespace vx::task::detail
