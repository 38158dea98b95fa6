#include "platform/base/detail/white_space.h"
#include "platform/calculator/detail/filter_model.h"
#include "platform/calculator/vx_calc_filter.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace vx::calc {
using text::is_space;
using text::trimmed;

namespace {
struct relation_words
{
    wchar_t const *word;
    wchar_t const *sign;
};
/// In the order of `relation`.
constexpr std::array<relation_words, 13> c_relations{{
    {c_calc_filter_rel_equal, c_calc_filter_pretty_equal},
    {c_calc_filter_rel_is_close, nullptr},
    {c_calc_filter_rel_not_equal, c_calc_filter_pretty_not_equal},
    {c_calc_filter_rel_less, c_calc_filter_pretty_less},
    {c_calc_filter_rel_less_eq, c_calc_filter_pretty_less_eq},
    {c_calc_filter_rel_greater, c_calc_filter_pretty_greater},
    {c_calc_filter_rel_greater_eq, c_calc_filter_pretty_greater_eq},
    {c_calc_filter_rel_begins_with, nullptr},
    {c_calc_filter_rel_ends_with, nullptr},
    {c_calc_filter_rel_contains, nullptr},
    {c_calc_filter_rel_not_contains, nullptr},
    {c_calc_filter_rel_is_null, nullptr},
    {c_calc_filter_rel_not_null, nullptr},
}};
constexpr std::array<wchar_t const *, 3> c_logics{c_calc_filter_logic_empty, c_calc_filter_logic_and,
                                                  c_calc_filter_logic_or};
constexpr wchar_t const *c_off = L"OFF";
constexpr wchar_t const *c_nocase = L"NOCASE";
constexpr std::size_t c_longest_number = 400; ///< characters; more are no number that somebody wrote

wchar_t upper(wchar_t c)
{
    return c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - L'a' + L'A') : c;
}

bool same_word(std::wstring_view a, std::wstring_view b)
{
    return std::ranges::equal(a, b, {}, upper, upper);
}

bool has_value(relation r)
{
    return r != relation::is_null && r != relation::not_null;
}

std::wstring quoted(std::wstring_view text)
{
    std::wstring out = L"\"";
    for (wchar_t const c : text) {
        if (c == L'"')
            out += c;
        out += c;
    }
    return out += L'"';
}

/// A word or a quoted text.
struct token
{
    std::wstring text;
    bool quoted = false;
    [[nodiscard]] bool is(std::wstring_view word) const { return !quoted && same_word(text, word); }
};

/// Nothing when a quote is left open, or text hangs on a closing one.
std::optional<std::vector<token>> split(std::wstring_view text)
{
    std::vector<token> tokens;
    std::size_t i = 0;
    while (true) {
        while (i < text.size() && is_space(text[i]))
            ++i;
        if (i == text.size())
            return tokens;
        token t;
        t.quoted = text[i] == L'"';
        if (!t.quoted) {
            while (i < text.size() && !is_space(text[i]) && text[i] != L'"')
                t.text += text[i++];
        } else {
            for (++i;; ++i) {
                if (i == text.size())
                    return std::nullopt;
                if (text[i] == L'"') {
                    if (i + 1 == text.size() || text[i + 1] != L'"')
                        break;
                    ++i;
                }
                t.text += text[i];
            }
            ++i;
        }
        if (i < text.size() && !is_space(text[i]))
            return std::nullopt;
        tokens.push_back(std::move(t));
    }
}

/// Reads conditions off a row of tokens.
class reader
{
public:
    explicit reader(std::vector<token> const &tokens) : f_tokens(tokens) {}
    [[nodiscard]] bool at_end() const { return f_at == f_tokens.size(); }

    [[nodiscard]] bool read(condition &c)
    {
        c.in_force = !take(c_off);
        if (at_end())
            return false;
        c.field = f_tokens[f_at++].text;
        if (!read_relation(c.rel))
            return false;
        c.match_case = !take(c_nocase);
        if (has_value(c.rel) || value_follows()) {
            if (at_end())
                return false;
            c.value = f_tokens[f_at++].text;
        }
        c.next = take(c_calc_filter_logic_and)  ? logic::logic_and
                 : take(c_calc_filter_logic_or) ? logic::logic_or
                                                : logic::empty;
        return true;
    }

private:
    [[nodiscard]] bool take(std::wstring_view word)
    {
        if (at_end() || !f_tokens[f_at].is(word))
            return false;
        ++f_at;
        return true;
    }
    /// Only a quoted value stands behind a relation that needs none: a bare word goes on with the filter. A
    /// quoted one is a field's name where a relation follows it.
    [[nodiscard]] bool value_follows() const
    {
        if (at_end() || !f_tokens[f_at].quoted)
            return false;
        reader ahead(f_tokens);
        ahead.f_at = f_at + 1;
        relation ignored{};
        return !ahead.read_relation(ignored);
    }
    /// The longest relation that stands here: of one or two words.
    [[nodiscard]] bool read_relation(relation &r)
    {
        for (std::size_t words : {2u, 1u}) {
            if (f_at + words > f_tokens.size())
                continue;
            std::wstring name;
            bool plain = true;
            for (std::size_t i = f_at; i < f_at + words; ++i) {
                plain = plain && !f_tokens[i].quoted;
                name += (i > f_at ? L" " : L"") + f_tokens[i].text;
            }
            auto const found = plain ? relation_of(name) : std::nullopt;
            if (found) {
                r = *found;
                f_at += words;
                return true;
            }
        }
        return false;
    }

    std::vector<token> const &f_tokens;
    std::size_t f_at = 0;
};
} // namespace

namespace {
template <class T>
std::optional<T> read_number(std::wstring_view text)
{
    text = trimmed(text);
    if (text.starts_with(L'+') && text.size() > 1 && text[1] != L'-')
        text.remove_prefix(1);
    if (text.empty() || text.size() > c_longest_number)
        return std::nullopt;
    std::array<char, c_longest_number> narrow{};
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] < L'!' || text[i] > L'~')
            return std::nullopt;
        narrow[i] = static_cast<char>(text[i]);
    }
    T value = 0;
    auto const *const end = narrow.data() + text.size();
    auto const result = std::from_chars(narrow.data(), end, value);
    if (result.ptr != end || result.ec != std::errc())
        return std::nullopt;
    return value;
}
} // namespace

std::optional<double> number_of(std::wstring_view text)
{
    auto const value = read_number<double>(text);
    return value && std::isnan(*value) ? std::nullopt : value;
}

std::optional<std::int64_t> whole_of(std::wstring_view text)
{
    return read_number<std::int64_t>(text);
}

std::optional<relation> relation_of(std::wstring_view word)
{
    for (std::size_t i = 0; i < c_relations.size(); ++i)
        if (same_word(word, c_relations[i].word))
            return static_cast<relation>(i);
    return std::nullopt;
}

wchar_t const *word_of(relation r)
{
    return c_relations[static_cast<std::size_t>(r)].word;
}

wchar_t const *sign_of(relation r)
{
    auto const &words = c_relations[static_cast<std::size_t>(r)];
    return words.sign ? words.sign : words.word;
}

std::optional<logic> logic_of(std::wstring_view word)
{
    for (std::size_t i = 0; i < c_logics.size(); ++i)
        if (same_word(word, c_logics[i]))
            return static_cast<logic>(i);
    return std::nullopt;
}

wchar_t const *word_of(logic l)
{
    return c_logics[static_cast<std::size_t>(l)];
}

std::wstring to_text(filter const &f)
{
    std::wstring out;
    for (condition const &c : f.conditions) {
        if (!out.empty())
            out += L' ';
        if (!c.in_force)
            out += std::wstring(c_off) + L' ';
        out += quoted(c.field) + L' ' + word_of(c.rel);
        if (!c.match_case)
            out += std::wstring(L" ") + c_nocase;
        if (has_value(c.rel) || !c.value.empty())
            out += L' ' + quoted(c.value);
        if (c.next != logic::empty)
            out += std::wstring(L" ") + word_of(c.next);
    }
    return out;
}

std::optional<filter> from_text(std::wstring_view text)
{
    auto const tokens = split(text);
    if (!tokens)
        return std::nullopt;
    filter f;
    for (reader in(*tokens); !in.at_end();) {
        condition c;
        if (!in.read(c))
            return std::nullopt;
        f.conditions.push_back(std::move(c));
    }
    return f;
}

std::wstring pretty(filter const &f)
{
    std::wstring out;
    bool or_between = false; // also behind conditions that are left out
    for (condition const &c : f.conditions) {
        if (c.in_force) {
            if (!out.empty())
                out += std::wstring(L" ") +
                       (or_between ? c_calc_filter_pretty_logic_or : c_calc_filter_pretty_logic_and) + L' ';
            out += c.field + L' ' + sign_of(c.rel);
            if (has_value(c.rel))
                out += L' ' + (number_of(c.value) ? std::wstring(trimmed(c.value)) : quoted(c.value));
            or_between = false;
        }
        or_between = or_between || c.next == logic::logic_or;
    }
    return out;
}
} // namespace vx::calc
