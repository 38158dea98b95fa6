#include "platform/basic/detail/options_file.h"

#include <algorithm>

namespace {
constexpr std::string_view c_blanks = " \t\r";
constexpr std::string_view c_byte_order_mark = "\xEF\xBB\xBF";

std::string_view trimmed(std::string_view text)
{
    auto const first = text.find_first_not_of(c_blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(c_blanks) - first + 1);
}
} // namespace

options_file::line options_file::parse_line(std::string_view text)
{
    line parsed{std::string(text), {}, {}};
    if (parsed.text.ends_with('\r'))
        parsed.text.pop_back();
    auto const content = trimmed(text);
    if (content.empty() || content[0] == '#' || content[0] == ';' || content[0] == '[')
        return parsed;
    auto const equal = content.find('=');
    if (equal == std::string_view::npos)
        return parsed;
    parsed.key = trimmed(content.substr(0, equal));
    parsed.value = trimmed(content.substr(equal + 1));
    return parsed;
}

void options_file::parse(std::string_view text)
{
    f_lines.clear();
    if (text.starts_with(c_byte_order_mark))
        text.remove_prefix(c_byte_order_mark.size());
    while (!text.empty()) {
        auto const end = text.find('\n');
        f_lines.push_back(parse_line(text.substr(0, end)));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
}

std::string options_file::text() const
{
    std::string out;
    for (auto const &l : f_lines)
        out += l.text + '\n';
    return out;
}

std::optional<std::string> options_file::get(std::string_view key) const
{
    auto const at = std::find_if(f_lines.rbegin(), f_lines.rend(),
                                 [&](line const &l) { return !l.key.empty() && l.key == key; });
    return at == f_lines.rend() ? std::nullopt : std::optional(at->value);
}

void options_file::set(std::string_view key, std::string_view value)
{
    std::string one_line(value);
    std::replace_if(
        one_line.begin(), one_line.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
    auto made = parse_line(std::string(key) + '=' + one_line);
    auto const at =
        std::find_if(f_lines.rbegin(), f_lines.rend(), [&](line const &l) { return l.key == key; });
    if (at == f_lines.rend())
        f_lines.push_back(std::move(made));
    else
        *at = std::move(made);
}
