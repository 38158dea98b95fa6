#pragma once

#include "platform/base/export.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vx::odb {
/// One object of an object database: its class and its attributes in the order of the file. A name may stand
/// several times. Values are the text behind the colon, quoted strings with their quotes.
struct record
{
    std::string type;
    std::vector<std::pair<std::string, std::string>> attributes;

    /// The first value of that name; null without one. Names compare exactly.
    [[nodiscard]] std::string const *find(std::string_view name) const;
    [[nodiscard]] bool has(std::string_view name) const { return find(name) != nullptr; }
    /// A decimal or hexadecimal number; `absent` without the attribute, nothing where the text is no finite
    /// number.
    [[nodiscard]] std::optional<double> number(std::string_view name, double absent = 0) const;
    /// A whole number from 0 to 2^32 - 1, under the same rules.
    [[nodiscard]] std::optional<std::uint32_t> whole(std::string_view name, std::uint32_t absent = 0) const;
    /// A quoted string with its escapes resolved; empty without the attribute, nothing where it is no string.
    [[nodiscard]] std::optional<std::string> text(std::string_view name) const;
    /// All values of a name that may be repeated.
    [[nodiscard]] std::vector<std::string_view> all(std::string_view name) const;
};

/// Objects by their number.
using database = std::map<std::uint32_t, record>;

/// Reads the text form of an object database: a first line "/3.0" to "/3.3", then records "(Class.id",
/// attribute lines, ")". Lines end in LF, CRLF or CR. A value that is longer than a line goes on in the next
/// lines. Nothing where the text is no such database, an object number stands twice, or it was cut off.
[[nodiscard]] VX_API std::optional<database> read(std::string_view text);

/// A decimal number, or a hexadecimal one behind "0x"; nothing for anything else and for what is not finite.
[[nodiscard]] std::optional<double> to_number(std::string_view text);
[[nodiscard]] std::optional<std::uint32_t> to_whole(std::string_view text);
/// A quoted string without its quotes and escapes; nothing for anything else.
[[nodiscard]] std::optional<std::string> to_text(std::string_view text);
} // namespace vx::odb
