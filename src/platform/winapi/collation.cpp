#include "platform/winapi/collation.h"

#include "platform/base/text_codec.h"
#include "platform/winapi/detail/utf16.h"

#include <cstdint>
#include <memory>
#include <string>
#include <unicode/ucol.h>

namespace {
struct collator_closer
{
    void operator()(UCollator *collator) const { ucol_close(collator); }
};

// The root collation at the level of accents: case is below it. Comparing does not change a collator, so one
// serves every thread.
UCollator const *root_collator()
{
    static std::unique_ptr<UCollator, collator_closer> const collator = [] {
        UErrorCode status = U_ZERO_ERROR;
        std::unique_ptr<UCollator, collator_closer> made(ucol_open("", &status));
        if (U_FAILURE(status))
            return std::unique_ptr<UCollator, collator_closer>();
        ucol_setStrength(made.get(), UCOL_SECONDARY);
        status = U_ZERO_ERROR;
        ucol_setAttribute(made.get(), UCOL_NORMALIZATION_MODE, UCOL_ON, &status);
        return made;
    }();
    return collator.get();
}

template <class Char, class Compare>
int compare_pointers(Char const *a, Char const *b, Compare compare)
{
    if (!a || !b)
        return (a != nullptr) - (b != nullptr);
    return compare(a, b);
}
} // namespace

int vx_compare_text(std::wstring_view a, std::wstring_view b)
{
    if (a == b)
        return 0;
    auto const *const collator = root_collator();
    if (!collator)
        return a < b ? -1 : 1;
    auto const a16 = vx::text::wide_to_utf16(a);
    auto const b16 = vx::text::wide_to_utf16(b);
    return ucol_strcoll(collator, a16.data(), static_cast<int>(a16.size()), b16.data(),
                        static_cast<int>(b16.size()));
}

std::string vx_text_sort_key(std::wstring_view text)
{
    auto const *const collator = root_collator();
    if (!collator)
        return vx::text::wide_to_whole_utf8(text); // bytes stand in the order of the code points
    auto const units = vx::text::wide_to_utf16(text);
    std::string key(16 + 3 * units.size(), '\0');
    auto const fill = [&] {
        return static_cast<std::size_t>(
            ucol_getSortKey(collator, units.data(), static_cast<int>(units.size()),
                            reinterpret_cast<std::uint8_t *>(key.data()), static_cast<int>(key.size())));
    };
    if (std::size_t const size = fill(); size > key.size()) {
        key.resize(size);
        fill();
    } else {
        key.resize(size);
    }
    if (!key.empty())
        key.pop_back(); // its end is marked by a zero
    return key;
}

int lstrcmpiW(wchar_t const *a, wchar_t const *b)
{
    return compare_pointers(a, b, [](wchar_t const *x, wchar_t const *y) { return vx_compare_text(x, y); });
}

int lstrcmpiA(char const *a, char const *b)
{
    return compare_pointers(a, b, [](char const *x, char const *y) {
        return vx_compare_text(vx::text::to_wide(x), vx::text::to_wide(y));
    });
}
