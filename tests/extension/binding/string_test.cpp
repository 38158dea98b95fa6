#include "extension/binding/string_visitors.h"
#include "extension/binding/tstring.h"

#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

namespace {
TEST(string_receivers, keep_what_they_are_given)
{
    std::wstring text = L"old";
    vx::stdwstring_visitor one(text);
    vx::string_visitor const sink = one;
    sink.visit(L"Stra\u00dfe");
    EXPECT_EQ(text, L"Stra\u00dfe");
    sink.visit(nullptr);
    EXPECT_EQ(text, L"");

    std::vector<std::wstring> list;
    std::set<std::wstring> set;
    vx::stdwstring_list_visitor into_list(list);
    vx::stdwstring_set_visitor into_set(set);
    for (wchar_t const *const item : {L"b", static_cast<wchar_t const *>(nullptr), L"", L"a", L"b"}) {
        vx::string_visitor(static_cast<t_vx_string_visitor_interface>(into_list)).visit(item);
        vx::string_visitor(static_cast<t_vx_string_visitor_interface>(into_set)).visit(item);
    }
    EXPECT_EQ(list, (std::vector<std::wstring>{L"b", L"", L"a", L"b"}));
    EXPECT_EQ(set, (std::set<std::wstring>{L"", L"a", L"b"}));
}

TEST(string_receivers, convert_to_eight_bits)
{
    ASSERT_EQ(vx::c_string_encodings.size(), 19u);
    EXPECT_EQ(vx::c_string_encodings[7].code_page, 1250u);
    EXPECT_EQ(vx::c_string_encodings[15].code_page, 1258u);
    EXPECT_EQ(vx::c_string_encodings[16].code_page, 866u);
    EXPECT_STREQ(vx::c_string_encodings[18].name, "SYSTEM");
    std::string text = "old";
    vx::stdstring_visitor utf8(text, vx::c_encoding_utf8);
    utf8.visit(L"\u0434\u043e\u043c");
    EXPECT_EQ(text, "\xd0\xb4\xd0\xbe\xd0\xbc");
    utf8.visit(nullptr);
    EXPECT_EQ(text, "");
    struct
    {
        std::size_t encoding;
        wchar_t const *text;
        char const *bytes;
    } const cases[] = {
        {8, L"\u0434\u043e\u043c", "\xe4\xee\xec"},
        {9, L"\u00e9\u20ac", "\xe9\x80"},
        {16, L"\u0434\u043e\u043c", "\xa4\xae\xac"},
        {17, L"plain", "plain"},
        {1, L"\u00e9", "\xc3\xa9"},
        {vx::c_encoding_system, L"\u00e9", "\xc3\xa9"},
    };
    for (auto const &c : cases) {
        vx::stdstring_visitor visitor(text, c.encoding);
        visitor.visit(c.text);
        EXPECT_EQ(text, c.bytes) << vx::c_string_encodings[c.encoding].name;
    }
    vx::stdstring_visitor past_the_table(text, 1000);
    past_the_table.visit(L"x");
    EXPECT_EQ(text, "x");
}

TEST(tstring, takes_both_kinds_of_text)
{
    vxstd::ansi::Tvx_tstring<std::string> narrow;
    vx_string_adp_feed(narrow, L"\u00e9t\u00e9");
    EXPECT_EQ(narrow.str(), "\xc3\xa9t\xc3\xa9");
    vx_string_adp_feed_ansi(narrow, "plain");
    EXPECT_STREQ(narrow.c_str(), "plain");
    narrow.convert(L"abcdef", vx::text::c_cp_utf8, 3);
    EXPECT_EQ(narrow.str(), "abc");
    narrow.convert(L"\u0434\u043e\u043c", 1251, -1);
    EXPECT_EQ(narrow.str(), "\xe4\xee\xec") << "in place of the text before";
    vx_string_adp_feed(narrow, nullptr);
    EXPECT_TRUE(narrow.empty());

    vxstd::utf::Tvx_tstring<std::wstring> wide;
    vx_string_adp_feed_ansi(wide, "\xc3\xa9");
    EXPECT_EQ(wide.str(), L"\u00e9");
    vx_string_adp_feed(wide, L"text");
    EXPECT_STREQ(wide.c_str(), L"text");
    wide.convert("abcdef", vx::text::c_cp_utf8, 2);
    EXPECT_EQ(wide.str(), L"ab");
}
} // namespace
