#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The header of a dBase table, checked: whatever stands in it, the fields lie inside the record and the
/// records inside the file.
namespace vx::dbf {
struct field
{
    std::string name; ///< bytes in the file's code page
    int type = 0;     ///< a `Tvx_dbf_type`
    char letter = 0;  ///< the file's letter for the type
    int offset = 0;   ///< in the record, whose first byte is the deletion mark
    int width = 0;    ///< bytes
    int decimals = 0;
};

struct header
{
    std::uint64_t length = 0; ///< bytes before the first record
    std::uint64_t record_length = 0;
    int records = 0;          ///< those that the file holds wholly, deleted ones too
    unsigned char driver = 0; ///< mark of the language driver; 0 is none
    bool wide = false;        ///< character fields have widths of two bytes
    std::vector<field> fields;
};

inline constexpr std::size_t c_header_limit = 0xFFFF;
/// Where the mark of the language driver stands.
inline constexpr std::size_t c_driver_at = 29;

/// `bytes` are the first ones of the file, up to `c_header_limit`. Nothing for a header that is incomplete,
/// contradicts itself, or belongs to a version with another layout.
[[nodiscard]] std::optional<header> parse_header(std::string_view bytes, std::uint64_t file_size);

/// Code page of the mark in a .cpg file, such as "UTF-8", "OEM 866", "ISO 8859-5", "KOI8-R" or "Shift_JIS",
/// or "LDID/201" for the language driver 201. 0 for a mark that says nothing, or nothing known.
[[nodiscard]] unsigned code_page_of(std::string_view mark);
/// The same for the mark of a language driver.
[[nodiscard]] unsigned code_page_of_driver(unsigned driver);
} // namespace vx::dbf
