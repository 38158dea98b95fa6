#pragma once

#include <string_view>

/// The drawings that the build puts into the library.
namespace vx::glyphs {
struct drawing
{
    int number;
    std::string_view svg;
};
extern drawing const drawings[];
extern int const drawing_count;
} // namespace vx::glyphs
