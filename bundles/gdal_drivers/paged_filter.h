#pragma once

#include <string>

namespace vx::gdal {
/// An attribute filter taken apart: `expression LIMIT n OFFSET m`, each of the three parts optional.
struct paged_filter
{
    std::wstring expression; ///< without the page, trimmed
    long long limit = -1;    ///< -1: none
    long long offset = 0;

    explicit paged_filter(std::wstring const &text);
};

/// True for `FID >= 0` with the name of the identifier, in any case and with any blanks.
[[nodiscard]] bool selects_all_identifiers(std::wstring const &expression, std::wstring_view name = L"FID");
} // namespace vx::gdal
