#include "platform/storage/detail/odb_file.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace vx::odb {
namespace {
constexpr std::string_view c_blanks = " \t\r";
constexpr std::string_view c_versions[] = {"/3.0", "/3.1", "/3.2", "/3.3"};
constexpr std::string_view c_utf8_mark = "\xEF\xBB\xBF"; ///< editors put it before a text

std::string_view trimmed(std::string_view text)
{
    auto const first = text.find_first_not_of(c_blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(c_blanks) - first + 1);
}

bool is_name(std::string_view text)
{
    return !text.empty() && std::ranges::all_of(text, [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
    });
}

/// Whether the string that begins with a quote has its closing one, looked for from `at` on, which comes to
/// stand where the search goes on when the string grows.
bool is_closed(std::string_view quoted, std::size_t &at)
{
    for (; at < quoted.size(); ++at)
        if (quoted[at] == '\\')
            ++at;
        else if (quoted[at] == '"')
            return true;
    return false;
}

int hex_digit(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    c = static_cast<char>(c | 0x20);
    return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

/// The character behind a backslash at `at`, which comes to stand behind the escape.
char escaped(std::string_view text, std::size_t &at)
{
    char const c = text[at++];
    switch (c) {
    case 'n':
        return '\n';
    case 't':
        return '\t';
    case 'r':
        return '\r';
    case 'a':
        return '\a';
    case 'b':
        return '\b';
    case 'f':
        return '\f';
    case 'v':
        return '\v';
    default:
        break;
    }
    if (c == 'x' && at < text.size() && hex_digit(text[at]) >= 0) {
        int value = 0;
        for (int n = 0; n < 2 && at < text.size() && hex_digit(text[at]) >= 0; ++n)
            value = value * 16 + hex_digit(text[at++]);
        return static_cast<char>(value);
    }
    if (c < '0' || c > '7')
        return c;
    int value = c - '0';
    for (int n = 0; n < 2 && at < text.size() && text[at] >= '0' && text[at] <= '7'; ++n)
        value = value * 8 + (text[at++] - '0');
    return static_cast<char>(value);
}

class reader
{
public:
    explicit reader(std::string_view text) : f_rest(text)
    {
        if (f_rest.starts_with(c_utf8_mark))
            f_rest.remove_prefix(c_utf8_mark.size());
    }

    std::optional<database> run()
    {
        auto const first = next();
        if (!first || !std::ranges::count(c_versions, trimmed(*first)))
            return std::nullopt;
        database objects;
        while (auto const line = next()) {
            auto const head = trimmed(*line);
            if (head.empty())
                continue;
            auto const dot = head.rfind('.');
            if (head.front() != '(' || dot == std::string_view::npos)
                return std::nullopt;
            auto const type = trimmed(head.substr(1, dot - 1));
            auto const id = to_whole(head.substr(dot + 1));
            record object{std::string(type), {}};
            if (!is_name(type))
                return std::nullopt;
            if (!id || *id == 0 || !attributes(object) || !objects.emplace(*id, std::move(object)).second)
                return std::nullopt;
        }
        return objects;
    }

private:
    /// The next line; it ends in LF, CRLF or CR.
    std::optional<std::string_view> next()
    {
        if (f_rest.empty())
            return std::nullopt;
        auto const end = std::min(f_rest.find_first_of("\r\n"), f_rest.size());
        auto const line = f_rest.substr(0, end);
        f_rest.remove_prefix(end);
        f_rest.remove_prefix(f_rest.starts_with("\r\n") ? 2 : f_rest.empty() ? 0 : 1);
        return line;
    }

    /// The attribute lines up to the closing bracket; false without one.
    bool attributes(record &object)
    {
        while (auto const raw = next()) {
            auto const line = trimmed(*raw);
            if (line.empty())
                continue;
            if (line == ")")
                return true;
            auto const colon = line.find(':');
            auto const name = trimmed(line.substr(0, colon));
            if (colon != std::string_view::npos && is_name(name)) {
                std::string value(trimmed(line.substr(colon + 1)));
                if (!value.empty() && value.front() == '"' && !finish_string(value, *raw))
                    return false;
                object.attributes.emplace_back(std::string(name), std::move(value));
            } else if (object.attributes.empty())
                return false;
            else
                object.attributes.back().second.append(" ").append(line);
        }
        return false;
    }

    /// Appends the lines in which the string of `line` goes on.
    bool finish_string(std::string &value, std::string_view line)
    {
        std::size_t at = 1;
        if (is_closed(value, at))
            return true;
        value = line.substr(line.find('"')); // the blanks at the break belong to the string
        at = 1;
        while (!is_closed(value, at)) {
            auto const more = next();
            if (!more)
                return false;
            value.append(*more);
        }
        return true;
    }

    std::string_view f_rest;
};
} // namespace

std::string const *record::find(std::string_view name) const
{
    auto const at = std::ranges::find_if(attributes, [&](auto const &a) { return a.first == name; });
    return at == attributes.end() ? nullptr : &at->second;
}

std::optional<double> record::number(std::string_view name, double absent) const
{
    auto const *const value = find(name);
    return value ? to_number(*value) : absent;
}

std::optional<std::uint32_t> record::whole(std::string_view name, std::uint32_t absent) const
{
    auto const *const value = find(name);
    return value ? to_whole(*value) : absent;
}

std::optional<std::string> record::text(std::string_view name) const
{
    auto const *const value = find(name);
    return value ? to_text(*value) : std::string();
}

std::vector<std::string_view> record::all(std::string_view name) const
{
    std::vector<std::string_view> values;
    for (auto const &[key, value] : attributes)
        if (key == name)
            values.emplace_back(value);
    return values;
}

std::optional<double> to_number(std::string_view text)
{
    text = trimmed(text);
    if (text.size() > 2 && text[0] == '0' && (text[1] | 0x20) == 'x')
        return to_whole(text);
    if (text.size() > 1 && text.front() == '+' && text[1] != '-')
        text.remove_prefix(1);
    double value = 0;
    auto const [end, code] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (code != std::errc() || end != text.data() + text.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

std::optional<std::uint32_t> to_whole(std::string_view text)
{
    text = trimmed(text);
    int base = 10;
    if (text.size() > 2 && text[0] == '0' && (text[1] | 0x20) == 'x') {
        text.remove_prefix(2);
        base = 16;
    }
    std::uint32_t value = 0;
    auto const [end, code] = std::from_chars(text.data(), text.data() + text.size(), value, base);
    if (text.empty() || code != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return value;
}

std::optional<std::string> to_text(std::string_view text)
{
    if (text.empty() || text.front() != '"')
        return std::nullopt;
    std::string result;
    for (std::size_t i = 1; i < text.size();) {
        char const c = text[i++];
        if (c == '"') {
            // Strings that stand behind one another are one, as they are in C.
            auto const rest = trimmed(text.substr(i));
            if (rest.empty())
                return result;
            if (rest.front() != '"')
                return std::nullopt;
            i = text.size() - (text.end() - rest.begin()) + 1;
        } else if (c == '\\' && i < text.size())
            result += escaped(text, i);
        else
            result += c;
    }
    return std::nullopt;
}

std::optional<database> read(std::string_view text)
{
    return reader(text).run();
}
} // namespace vx::odb
