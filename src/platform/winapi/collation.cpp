#include "platform/winapi/collation.h"

#include "platform/base/text_codec.h"
#include "platform/winapi/detail/utf16.h"

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
