#include "platform/winapi/codepage.h"

#include "platform/base/unicode_string.h"

#include <gtest/gtest.h>
#include <string>

using namespace std::string_literals;

namespace {
struct page_case
{
    unsigned page;
    std::string bytes;
    std::wstring wide;
};

// From the published tables of the code pages.
page_case const pages[] = {
    {866, "\x8F\xE0\xA8\xA2\xA5\xE2", L"Привет"},
    {1250, "\x9E\xE8\xB3", L"žčł"},
    {1251, "\xCF\xF0\xE8\xE2\xE5\xF2\xB9", L"Привет№"},
    {1252, "\x80\xE9\xDF", L"€éß"},
    {1253, "\xE1\xE2\xF9", L"αβω"},
    {1254, "\xF0\xFD\xFE", L"ğış"},
    {1255, "\xE0\xE1", L"אב"},
    {1256, "\xC7\xC8", L"اب"},
    {1257, "\xE2\xF0", L"āš"},
    {1258, "\xF5\xFD", L"ơư"},
    {20127, "az~", L"az~"},
    {65001, "\xD0\x9F\xE2\x82\xAC\xF0\x9F\x98\x80", L"П€😀"},
    {1200, "A\0\xAC\x20\x3D\xD8\x00\xDE"s, L"A€😀"},
    {1201, "\0A\x20\xAC\xD8\x3D\xDE\x00"s, L"A€😀"},
    {12000, "A\0\0\0\x00\xF6\x01\x00"s, L"A😀"},
    {12001, "\0\0\0A\x00\x01\xF6\x00"s, L"A😀"},
};

int to_wide(unsigned page, std::string const &bytes, wchar_t *target, int capacity)
{
    return MultiByteToWideChar(page, 0, bytes.data(), static_cast<int>(bytes.size()), target, capacity);
}

/// The system code page as it was, when the test is over.
class code_page_guard
{
public:
    ~code_page_guard() { EXPECT_TRUE(vx_set_system_code_page(f_before)); }

private:
    unsigned f_before = vx_get_system_code_page();
};
} // namespace

TEST(codepage, converts_both_ways)
{
    for (auto const &c : pages) {
        SCOPED_TRACE(c.page);
        EXPECT_TRUE(vx_is_code_page(c.page));
        EXPECT_EQ(c.wide, vx_bytes_to_wide(c.bytes, c.page));
        EXPECT_EQ(c.bytes, vx_wide_to_bytes(c.wide, c.page));
    }
}

TEST(codepage, text_of_the_base_knows_the_pages_from_the_start)
{
    EXPECT_EQ(L"Да", vx::text::to_wide("\xC4\xE0", 1251));
    EXPECT_EQ("\x84\xA0", vx::text::to_bytes(L"Да", 866));
}

TEST(codepage, measures_then_converts)
{
    for (auto const &c : pages) {
        SCOPED_TRACE(c.page);
        int const size = to_wide(c.page, c.bytes, nullptr, 0);
        ASSERT_EQ(static_cast<int>(c.wide.size()), size);
        std::wstring target(c.wide.size(), L'#');
        EXPECT_EQ(0, to_wide(c.page, c.bytes, target.data(), size - 1));
        EXPECT_EQ(std::wstring(c.wide.size(), L'#'), target) << "a target that is too small is not touched";
        EXPECT_EQ(size, to_wide(c.page, c.bytes, target.data(), size));
        EXPECT_EQ(c.wide, target);
    }
}

TEST(codepage, counts_the_terminator_of_text_without_length)
{
    wchar_t wide[8] = {};
    EXPECT_EQ(3, MultiByteToWideChar(1251, 0, "\xC4\xE0", -1, nullptr, 0));
    EXPECT_EQ(3, MultiByteToWideChar(1251, 0, "\xC4\xE0", -1, wide, 8));
    EXPECT_STREQ(L"Да", wide);
    char bytes[8] = {};
    EXPECT_EQ(5, WideCharToMultiByte(65001, 0, L"Да", -1, bytes, 8, nullptr, nullptr));
    EXPECT_STREQ("Да", bytes);
}

TEST(codepage, refuses_what_makes_no_sense)
{
    wchar_t wide[8];
    char bytes[8];
    EXPECT_EQ(0, MultiByteToWideChar(1251, 0, nullptr, 2, wide, 8));
    EXPECT_EQ(0, MultiByteToWideChar(1251, 0, "ab", 0, wide, 8));
    EXPECT_EQ(0, MultiByteToWideChar(1251, 0, "ab", -2, wide, 8));
    EXPECT_EQ(0, MultiByteToWideChar(1251, 0, "ab", 2, nullptr, 8));
    EXPECT_EQ(0, MultiByteToWideChar(99999, 0, "ab", 2, wide, 8));
    EXPECT_EQ(0, WideCharToMultiByte(99999, 0, L"ab", 2, bytes, 8, nullptr, nullptr));
    EXPECT_FALSE(vx_is_code_page(99999));
}

TEST(codepage, marks_what_a_page_does_not_have)
{
    EXPECT_EQ("?a?", vx_wide_to_bytes(L"Яa€", 20127));
    EXPECT_EQ(L"a\xFFFD", vx_bytes_to_wide("a\xE9", 20127));
    EXPECT_EQ(L"\xFFFD", vx_bytes_to_wide("\xD8", 1200)) << "half a unit";
    EXPECT_EQ(L"\xFFFD", vx_bytes_to_wide("\x3D\xD8", 1200)) << "half a pair";

    bool used = false;
    char bytes[8] = {};
    EXPECT_EQ(2, WideCharToMultiByte(1251, 0, L"aαb", 3, bytes, 2, "", &used));
    EXPECT_TRUE(used);
    EXPECT_EQ("ab", std::string(bytes, 2));
    EXPECT_EQ(3, WideCharToMultiByte(1251, 0, L"aЯb", 3, bytes, 8, "!", &used));
    EXPECT_FALSE(used);
}

TEST(codepage, system_page_can_be_chosen)
{
    code_page_guard const guard;
    ASSERT_TRUE(vx_set_system_code_page(1251));
    EXPECT_EQ(L"Да", UnicodeString("\xC4\xE0").str());
    EXPECT_EQ("\xC4\xE0", UnicodeString(L"Да").to_bytes());
    EXPECT_FALSE(vx_set_system_code_page(1200)) << "a page of wide units is none for 8-bit text";
    EXPECT_FALSE(vx_set_system_code_page(99999));
    EXPECT_EQ(1251u, vx_get_system_code_page());
    EXPECT_TRUE(vx_set_system_code_page(0)) << "0 goes back to the default";
    EXPECT_EQ(65001u, vx_get_system_code_page());
}
