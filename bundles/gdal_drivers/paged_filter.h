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
} // namespace vx::gdal
