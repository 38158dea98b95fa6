#include "platform/base/owned.h"
#include "platform/calculator/vx_calc_filter.h"

#include <cmath>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <variant>
#include <vector>

namespace {
using owned_filter = vx::owned<void, &vx_calc_filter_destroy>;
using cell_value = std::variant<std::monostate, double, std::wstring>;

/// One object with named attributes.
class row final : public Ivx_calc_row
{
public:
    explicit row(std::map<std::wstring, cell_value> cells)
    {
        for (auto &[name, value] : cells) {
            f_names.push_back(name);
            f_cells.push_back(value);
        }
    }
    [[nodiscard]] int field_index(std::wstring_view name) const override
    {
        for (std::size_t i = 0; i < f_names.size(); ++i)
            if (f_names[i] == name)
                return static_cast<int>(i);
        return -1;
    }
    [[nodiscard]] Tvx_calc_cell cell(int field, bool text_needed) override
    {
        Tvx_calc_cell out;
        auto const &value = f_cells[static_cast<std::size_t>(field)];
        if (auto const *number = std::get_if<double>(&value)) {
            out = {true, true, *number, {}};
            if (text_needed) {
                f_text = std::to_wstring(std::lround(*number));
                out.text = f_text;
            }
        } else if (auto const *text = std::get_if<std::wstring>(&value)) {
            out = {true, false, 0, *text};
        }
        return out;
    }

private:
    std::vector<std::wstring> f_names;
    std::vector<cell_value> f_cells;
    std::wstring f_text;
};

template <class Get>
std::wstring text_from(Get get)
{
    std::wstring text;
    Tvx_std_wstring_adapter adapter(text);
    get(adapter);
    return text;
}
std::wstring stored(void const *f)
{
    return text_from([&](Ivx_string_adp *adp) { vx_calc_filter_to_str(f, adp); });
}
std::wstring pretty(void const *f)
{
    return text_from([&](Ivx_string_adp *adp) { vx_calc_filter_pretty_print(f, adp); });
}
owned_filter read(std::wstring const &text)
{
    owned_filter f(vx_calc_filter_create());
    EXPECT_TRUE(vx_calc_filter_from_str(f.get(), text.c_str())) << std::string(text.begin(), text.end());
    return f;
}

constexpr wchar_t const *c_relations[] = {
    L"EQUAL",       L"IS CLOSE",  L"NOT EQUAL", L"LESS",         L"LESS EQUAL", L"GREATER", L"GREATER EQUAL",
    L"BEGINS WITH", L"ENDS WITH", L"CONTAINS",  L"NOT CONTAINS", L"NULL",       L"NOT NULL"};

struct condition
{
    int in_force;
    std::wstring field;
    std::wstring relation;
    std::wstring value;
    std::wstring logic;
    int match_case;
    bool operator==(condition const &) const = default;
};
condition condition_of(void const *f, unsigned i)
{
    condition c{-1, {}, {}, {}, {}, -1};
    Tvx_std_wstring_adapter field(c.field);
    Tvx_std_wstring_adapter relation(c.relation);
    Tvx_std_wstring_adapter value(c.value);
    Tvx_std_wstring_adapter logic(c.logic);
    vx_calc_filter_get(f, i, &c.in_force, field, relation, value, logic, &c.match_case);
    return c;
}

TEST(filter, every_condition_comes_back_from_its_text)
{
    wchar_t const *const texts[] = {L"",       L"plain",       L"with space", L"\"quoted\" \"\"", L"\"",
                                    L"AND",    L"NULL",        L"OFF",        L"NOCASE",          L"NOT",
                                    L"имя №5", L"\x1F30D\n\t", L"a=b&c|d",    L"EQUAL",           L" ends "};
    wchar_t const *const logics[] = {L"", L"AND", L"OR"};
    owned_filter const all(vx_calc_filter_create());
    std::vector<condition> expected;
    int n = 0;
    for (auto const *relation : c_relations)
        for (auto const *field : texts)
            for (auto const *value : texts) {
                condition const c{n % 3 ? 1 : 0, field, relation, value, logics[n % 3], n % 5 ? 1 : 0};
                ASSERT_TRUE(vx_calc_filter_add(all.get(), c.in_force, field, relation, value, c.logic.c_str(),
                                               c.match_case));
                expected.push_back(c);
                ++n;
                // By itself, too: the last condition has nothing behind it.
                owned_filter const one(vx_calc_filter_create());
                vx_calc_filter_add(one.get(), c.in_force, field, relation, value, c.logic.c_str(),
                                   c.match_case);
                auto const again = read(stored(one.get()));
                ASSERT_EQ(1u, vx_calc_filter_get_size(again.get()));
                EXPECT_EQ(c, condition_of(again.get(), 0));
            }
    auto const again = read(stored(all.get()));
    ASSERT_EQ(expected.size(), vx_calc_filter_get_size(again.get()));
    for (unsigned i = 0; i < expected.size(); ++i)
        ASSERT_EQ(expected[i], condition_of(again.get(), i)) << i;
    EXPECT_EQ(stored(all.get()), stored(again.get()));
}

TEST(filter, texts_by_hand_and_texts_that_are_none)
{
    struct
    {
        wchar_t const *text;
        wchar_t const *stored; ///< null for a text that is no filter
    } const cases[] = {
        {L"", L""},
        {L"  \t ", L""},
        {L"A equal 5", L"\"A\" EQUAL \"5\""},
        {L"A Less Equal 5 and \"B C\" null or D not contains x",
         L"\"A\" LESS EQUAL \"5\" AND \"B C\" NULL OR \"D\" NOT CONTAINS \"x\""},
        {L"A NULL \"B\" EQUAL 1", L"\"A\" NULL \"B\" EQUAL \"1\""},
        {L"off A EQUAL nocase x", L"OFF \"A\" EQUAL NOCASE \"x\""},
        {L"A", nullptr},
        {L"A EQUAL", nullptr},
        {L"A SAME 5", nullptr},
        {L"A EQUAL \"open", nullptr},
        {L"A EQUAL \"x\"y", nullptr},
        {L"A EQUAL 5 AND", L"\"A\" EQUAL \"5\" AND"},
        {L"A EQUAL 5 AND OR", nullptr},
        {L"OFF", nullptr},
        {L"\"A\" \"EQUAL\" \"5\"", nullptr},
    };
    for (auto const &c : cases) {
        owned_filter const f(vx_calc_filter_create());
        vx_calc_filter_add(f.get(), 1, L"kept", L"NULL", L"", L"", 1);
        bool const good = vx_calc_filter_from_str(f.get(), c.text);
        EXPECT_EQ(c.stored != nullptr, good);
        EXPECT_EQ(c.stored ? c.stored : L"\"kept\" NULL", stored(f.get()));
    }
}

TEST(filter, takes_known_words_only)
{
    owned_filter const f(vx_calc_filter_create());
    EXPECT_FALSE(vx_calc_filter_add(f.get(), 1, L"A", L"LIKE", L"1", L"", 1));
    EXPECT_FALSE(vx_calc_filter_add(f.get(), 1, L"A", L"EQUAL", L"1", L"XOR", 1));
    EXPECT_FALSE(vx_calc_filter_add(f.get(), 1, L"A", nullptr, L"1", L"", 1));
    EXPECT_TRUE(vx_calc_filter_add(f.get(), 1, L"A", L"not equal", L"1", nullptr, 1));
    EXPECT_EQ(L"\"A\" NOT EQUAL \"1\"", stored(f.get()));
    vx_calc_filter_clear(f.get());
    EXPECT_EQ(L"", stored(f.get()));
}

TEST(filter, prints_with_the_signs)
{
    struct
    {
        wchar_t const *text;
        wchar_t const *pretty;
    } const cases[] = {
        {L"", L""},
        {L"A EQUAL 5", L"A = 5"},
        {L"A NOT EQUAL road", L"A != \"road\""},
        {L"A GREATER 1.5 AND A LESS EQUAL 3", L"A > 1.5 & A <= 3"},
        {L"A LESS -1 OR A GREATER EQUAL 1e6", L"A < -1 | A >= 1e6"},
        {L"A NULL OR B NOT NULL", L"A NULL | B NOT NULL"},
        {L"A IS CLOSE 5 B BEGINS WITH \"a \"\"b\"\"\"", L"A IS CLOSE 5 & B BEGINS WITH \"a \"\"b\"\"\""},
        {L"A EQUAL \"\"", L"A = \"\""},
        {L"A EQUAL 1 AND OFF B EQUAL 2 OR C EQUAL 3", L"A = 1 | C = 3"},
        {L"OFF A EQUAL 1 OR B EQUAL 2", L"B = 2"},
    };
    for (auto const &c : cases)
        EXPECT_EQ(c.pretty, pretty(read(c.text).get()));
}

TEST(filter, compares_with_the_cells_of_a_row)
{
    row object({{L"N", 5.0},
                {L"T", std::wstring(L"Main Road")},
                {L"D", std::wstring(L" 12.50 ")},
                {L"E", std::wstring()},
                {L"Z", cell_value()},
                {L"DATE", std::wstring(L"2024-03-01")}});
    struct
    {
        wchar_t const *text;
        bool holds;
    } const cases[] = {
        {L"N EQUAL 5", true},
        {L"N EQUAL 5.0", true},
        {L"N EQUAL \" 5 \"", true},
        {L"N EQUAL five", false},
        {L"N NOT EQUAL five", true},
        {L"N LESS 5", false},
        {L"N LESS EQUAL 5", true},
        {L"N GREATER 4.999", true},
        {L"N GREATER EQUAL 5.001", false},
        {L"N LESS inf", true},
        {L"N LESS x", true}, // "5" stands before "x"
        {L"N IS CLOSE 5.000000001", true},
        {L"N IS CLOSE 5.00001", false},
        {L"N IS CLOSE inf", false},
        {L"N BEGINS WITH 5", true},
        {L"T EQUAL \"Main Road\"", true},
        {L"T EQUAL \"  Main Road \"", true},
        {L"T EQUAL \"main road\"", false},
        {L"T EQUAL NOCASE \"main road\"", true},
        {L"T NOT EQUAL NOCASE \"main road\"", false},
        {L"T IS CLOSE \"MAIN ROAD\"", true},
        {L"T BEGINS WITH Main", true},
        {L"T BEGINS WITH main", false},
        {L"T BEGINS WITH NOCASE main", true},
        {L"T ENDS WITH Road", true},
        {L"T ENDS WITH NOCASE road", true},
        {L"T ENDS WITH Main", false},
        {L"T CONTAINS \"n R\"", true},
        {L"T CONTAINS NOCASE \"N r\"", true},
        {L"T CONTAINS \"\"", true},
        {L"T NOT CONTAINS x", true},
        {L"T LESS 5", false}, // no number
        {L"T GREATER 5", false},
        {L"D LESS 100", true}, // as a number, not as a text
        {L"D EQUAL 12.5", false},
        {L"D IS CLOSE 12.5", true},
        {L"DATE GREATER \"2024-02-29\"", true},
        {L"DATE LESS \"2024-02-29\"", false},
        {L"E EQUAL \"\"", true},
        {L"E NULL", false},
        {L"Z NULL", true},
        {L"Z NOT NULL", false},
        {L"Z EQUAL \"\"", false},
        {L"Z IS CLOSE \"\"", false},
        {L"Z BEGINS WITH \"\"", false},
        {L"Z NOT EQUAL \"\"", true},
        {L"Z NOT EQUAL x", true},
        {L"Z NOT CONTAINS x", true},
        {L"Z LESS 5", false},
        {L"Z GREATER EQUAL \"\"", false},
        {L"MISSING NULL", true},
        {L"MISSING EQUAL 5", false},
        {L"", false},
        {L"OFF N EQUAL 5", false},
        {L"N EQUAL 5 AND T EQUAL x OR N LESS 9", true},
        {L"N LESS 9 OR T EQUAL x AND N EQUAL 6", true}, // AND first
        {L"N EQUAL 6 OR OFF N EQUAL 5", false},
        {L"N EQUAL 5 T BEGINS WITH Main", true},
    };
    for (auto const &c : cases)
        EXPECT_EQ(c.holds, vx_calc_filter_matches(read(c.text).get(), object))
            << std::string(c.text, c.text + std::wcslen(c.text));
}

TEST(filter, null_filters_do_nothing)
{
    row object({});
    EXPECT_FALSE(vx_calc_filter_add(nullptr, 1, L"A", L"NULL", L"", L"", 1));
    EXPECT_FALSE(vx_calc_filter_from_str(nullptr, L""));
    EXPECT_FALSE(vx_calc_filter_matches(nullptr, object));
    EXPECT_EQ(L"", stored(nullptr));
    EXPECT_EQ(L"", pretty(nullptr));
    vx_calc_filter_clear(nullptr);
    vx_calc_filter_destroy(nullptr);
}
} // namespace
