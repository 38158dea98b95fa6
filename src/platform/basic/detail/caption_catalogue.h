#pragma once

#include <string_view>

/// The catalogues that the build puts into the library.
namespace vx::captions {
struct catalogue_text
{
    std::string_view language; ///< name of the file without extension
    std::string_view text;     ///< its content
};
/// The language of the source: what is shown where another one lacks a text, and where none fits.
inline constexpr std::string_view c_base_language = "en";

extern catalogue_text const catalogue_texts[];
extern int const catalogue_count;

/// The catalogue of a language, empty when there is none.
[[nodiscard]] std::string_view find(std::string_view language);
} // namespace vx::captions
