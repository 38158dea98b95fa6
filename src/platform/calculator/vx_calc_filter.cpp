#include "platform/calculator/vx_calc_filter.h"

#include "platform/base/detail/white_space.h"
#include "platform/base/shown_number.h"
#include "platform/calculator/detail/filter_model.h"
#include "platform/winapi/collation.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>

using namespace vx::calc;
using vx::text::trimmed;

namespace {
constexpr double c_close = 1e-9;

filter *filter_of(void *f)
{
    return static_cast<filter *>(f);
}
filter const *filter_of(void const *f)
{
    return static_cast<filter const *>(f);
}

/// Whether two numbers have the same digits as far as tables show them.
bool shown_alike(double a, double b)
{
    if (a == b)
        return true;
    constexpr double c_last_digit = 2e-14; // relative, and more than one of the last digit in any case
    if (!(std::abs(a - b) <= c_last_digit * std::max(std::abs(a), std::abs(b))))
        return false;
    vx::text::number_buffer a_room;
    vx::text::number_buffer b_room;
    return vx::text::shown_number(a, a_room) == vx::text::shown_number(b, b_room);
}

/// A condition ready to be put to rows.
struct test
{
    int field = -1;
    relation rel = relation::equal;
    bool match_case = true;
    std::wstring value;
    std::wstring_view plain; ///< the value without white space at its ends
    std::optional<double> number;
    std::optional<std::int64_t> whole;
    bool text_needed = true;

    test(condition const &c, Ivx_calc_row const &row)
        : field(row.field_index(c.field)), rel(c.rel), match_case(c.match_case), value(c.value),
          number(number_of(c.value)), whole(whole_of(c.value))
    {
        bool const by_text = rel == relation::begins_with || rel == relation::ends_with ||
                             rel == relation::contains || rel == relation::not_contains;
        text_needed = by_text || !number;
        plain = trimmed(value);
    }
    test(test const &) = delete; // `plain` looks into `value`
    test &operator=(test const &) = delete;

    [[nodiscard]] bool holds(Ivx_calc_row &row) const
    {
        auto const cell = field >= 0 ? row.cell(field, text_needed) : Tvx_calc_cell{};
        if (!cell.known)
            return rel == relation::is_null || rel == relation::not_equal || rel == relation::not_contains;
        switch (rel) {
        case relation::is_null:
            return false;
        case relation::not_null:
            return true;
        case relation::equal:
            return equals(cell);
        case relation::not_equal:
            return !equals(cell);
        case relation::is_close:
            return is_close(cell);
        case relation::less:
        case relation::less_eq:
        case relation::greater:
        case relation::greater_eq:
            return in_order(cell);
        case relation::begins_with:
        case relation::ends_with:
        case relation::contains:
            return has_part(cell.text);
        case relation::not_contains:
            return !has_part(cell.text);
        }
        return false;
    }

private:
    [[nodiscard]] bool equals(Tvx_calc_cell const &cell) const
    {
        if (cell.is_number && number)
            return cell.whole ? order_of_whole(*cell.whole) == 0 : shown_alike(cell.number, *number);
        auto const text = trimmed(cell.text);
        return match_case ? text == plain : vx_compare_text(text, plain) == 0;
    }

    /// Below, at or above 0 as the cell is to the number. No digit is lost: the wider type has room for all
    /// of 64 bits.
    [[nodiscard]] int order_of_whole(std::int64_t mine) const
    {
        static_assert(std::numeric_limits<long double>::digits >= 63);
        if (whole)
            return mine < *whole ? -1 : mine > *whole;
        auto const a = static_cast<long double>(mine);
        auto const b = static_cast<long double>(*number);
        return a < b ? -1 : a > b;
    }

    [[nodiscard]] bool is_close(Tvx_calc_cell const &cell) const
    {
        auto const mine = number_in(cell);
        if (mine && number) {
            double const gap = std::abs(*mine - *number);
            return *mine == *number ||
                   (std::isfinite(gap) && gap <= c_close * std::max(std::abs(*mine), std::abs(*number)));
        }
        return vx_compare_text(trimmed(cell.text), plain) == 0;
    }

    [[nodiscard]] bool in_order(Tvx_calc_cell const &cell) const
    {
        if (number && cell.whole)
            return ordered(order_of_whole(*cell.whole), 0);
        if (number) {
            auto const mine = number_in(cell);
            return mine && ordered(*mine, *number);
        }
        auto const text = trimmed(cell.text);
        return ordered(match_case ? text.compare(plain) : vx_compare_text(text, plain), 0);
    }

    template <class T>
    [[nodiscard]] bool ordered(T a, T b) const
    {
        switch (rel) {
        case relation::less:
            return a < b;
        case relation::less_eq:
            return a <= b;
        case relation::greater:
            return a > b;
        default:
            return a >= b;
        }
    }

    [[nodiscard]] static std::optional<double> number_in(Tvx_calc_cell const &cell)
    {
        return cell.is_number ? std::optional(cell.number) : number_of(cell.text);
    }

    [[nodiscard]] bool has_part(std::wstring_view text) const
    {
        if (!match_case)
            return has_part_without_case(text);
        if (rel == relation::begins_with)
            return text.starts_with(value);
        if (rel == relation::ends_with)
            return text.ends_with(value);
        return text.find(value) != text.npos;
    }

    /// Place by place: letters that are equal without case are taken to be of equal length.
    [[nodiscard]] bool has_part_without_case(std::wstring_view text) const
    {
        std::size_t const n = value.size();
        if (text.size() < n)
            return false;
        std::size_t const first = rel == relation::ends_with ? text.size() - n : 0;
        std::size_t const last = rel == relation::begins_with ? 0 : text.size() - n;
        for (std::size_t i = first; i <= last; ++i)
            if (vx_compare_text(text.substr(i, n), value) == 0)
                return true;
        return false;
    }
};

/// Groups joined by OR, of conditions joined by AND.
struct prepared
{
    std::vector<std::vector<std::unique_ptr<test>>> groups;

    prepared(filter const &f, Ivx_calc_row const &row)
    {
        bool fresh = true;
        for (condition const &c : f.conditions) {
            if (fresh)
                groups.emplace_back();
            if (c.in_force)
                groups.back().push_back(std::make_unique<test>(c, row));
            fresh = c.next == logic::logic_or;
        }
        std::erase_if(groups, [](auto const &group) { return group.empty(); });
    }

    [[nodiscard]] bool matches(Ivx_calc_row &row) const
    {
        return std::ranges::any_of(groups, [&](auto const &group) {
            return std::ranges::all_of(group, [&](auto const &t) { return t->holds(row); });
        });
    }
};
} // namespace

Ivx_calc_row::~Ivx_calc_row() = default;

void *vx_calc_filter_create()
{
    return new filter;
}

void vx_calc_filter_destroy(void *f)
{
    delete filter_of(f);
}

void vx_calc_filter_clear(void *f)
{
    if (f)
        filter_of(f)->conditions.clear();
}

unsigned vx_calc_filter_get_size(void const *f)
{
    return f ? static_cast<unsigned>(filter_of(f)->conditions.size()) : 0;
}

bool vx_calc_filter_add(void *f, int in_force, wchar_t const *field, wchar_t const *rel, wchar_t const *value,
                        wchar_t const *logic_word, int match_case)
{
    auto const r = relation_of(rel ? rel : L"");
    auto const l = logic_of(logic_word ? logic_word : L"");
    if (!f || !r || !l)
        return false;
    filter_of(f)->conditions.push_back(
        {field ? field : L"", value ? value : L"", *r, *l, in_force != 0, match_case != 0});
    return true;
}

void vx_calc_filter_get(void const *f, unsigned index, int *in_force, Ivx_string_adp *field,
                        Ivx_string_adp *rel, Ivx_string_adp *value, Ivx_string_adp *logic_word,
                        int *match_case)
{
    if (index >= vx_calc_filter_get_size(f))
        return;
    condition const &c = filter_of(f)->conditions[index];
    if (in_force)
        *in_force = c.in_force ? 1 : 0;
    if (match_case)
        *match_case = c.match_case ? 1 : 0;
    vx_string_adp_feed(field, c.field.c_str());
    vx_string_adp_feed(rel, word_of(c.rel));
    vx_string_adp_feed(value, c.value.c_str());
    vx_string_adp_feed(logic_word, word_of(c.next));
}

void vx_calc_filter_to_str(void const *f, Ivx_string_adp *text)
{
    vx_string_adp_feed(text, f ? to_text(*filter_of(f)).c_str() : L"");
}

bool vx_calc_filter_from_str(void *f, wchar_t const *text)
{
    auto read = from_text(text ? text : L"");
    if (!f || !read)
        return false;
    *filter_of(f) = std::move(*read);
    return true;
}

void vx_calc_filter_pretty_print(void const *f, Ivx_string_adp *text)
{
    vx_string_adp_feed(text, f ? pretty(*filter_of(f)).c_str() : L"");
}

void *vx_calc_filter_prepare(void const *f, Ivx_calc_row const &row)
{
    return new prepared(f ? *filter_of(f) : filter{}, row);
}

void vx_calc_prepared_destroy(void *p)
{
    delete static_cast<prepared *>(p);
}

bool vx_calc_prepared_matches(void const *p, Ivx_calc_row &row)
{
    return p && static_cast<prepared const *>(p)->matches(row);
}

bool vx_calc_filter_matches(void const *f, Ivx_calc_row &row)
{
    return f && prepared(*filter_of(f), row).matches(row);
}
