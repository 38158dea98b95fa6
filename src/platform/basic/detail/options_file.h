#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// An options file in memory: lines `key=value` among lines that mean nothing here, which are kept as they
/// are. Spaces round key and value do not count. Of two lines with one key the last holds.
class options_file
{
public:
    /// Takes the file's content. Lines that cannot hold a setting (comments, sections) are kept.
    void parse(std::string_view text);
    [[nodiscard]] std::string text() const;

    [[nodiscard]] std::optional<std::string> get(std::string_view key) const;
    /// Line breaks in the value become spaces. Changes the line that holds, or adds one at the end.
    void set(std::string_view key, std::string_view value);

private:
    struct line
    {
        std::string text;
        std::string key; ///< empty for a line without a setting
        std::string value;
    };
    static line parse_line(std::string_view text);

    std::vector<line> f_lines;
};
