#include "platform/winapi/collation.h"

#include "support/comma_locale.h"

#include <gtest/gtest.h>

namespace {
int sign(int value)
{
    return (value > 0) - (value < 0);
}

struct order_case
{
    wchar_t const *a;
    wchar_t const *b;
    int order;
};
order_case const cases[] = {
    {L"road", L"ROAD", 0}, {L"улица", L"УЛИЦА", 0}, {L"a", L"B", -1},      {L"б", L"А", 1},
    {L"é", L"e", 1},       {L"é", L"f", -1},        {L"10", L"9", -1},     {L"co-op", L"coop", -1},
    {L"", L"a", -1},       {L"", L"", 0},           {nullptr, nullptr, 0}, {nullptr, L"", -1},
    {L"a b", L"ab", -1},   {L"ё", L"е", 1},         {L"ё", L"ж", -1},      {L"z", L"а", -1},
    {L"e\x301", L"é", 0},
};
} // namespace

TEST(collation, orders_as_people_do)
{
    for (auto const &c : cases) {
        SCOPED_TRACE(testing::Message() << (c.a ? c.a : L"null") << L" and " << (c.b ? c.b : L"null"));
        EXPECT_EQ(c.order, sign(lstrcmpiW(c.a, c.b)));
        EXPECT_EQ(-c.order, sign(lstrcmpiW(c.b, c.a)));
        if (c.a && c.b) {
            EXPECT_EQ(c.order, sign(vx_text_sort_key(c.a).compare(vx_text_sort_key(c.b))));
        }
    }
}

TEST(collation, keys_of_any_length_order_as_the_texts)
{
    for (std::size_t size = 0; size < 400; size += 7)
        for (wchar_t const c : {L'a', L'я', L'\x1F600', L'\x301'}) {
            std::wstring const text = std::wstring(size, c) + L"b", next = std::wstring(size, c) + L"C";
            EXPECT_EQ(sign(vx_compare_text(text, next)),
                      sign(vx_text_sort_key(text).compare(vx_text_sort_key(next))))
                << size;
        }
}

TEST(collation, takes_8_bit_text_and_no_locale)
{
    vx_test::comma_locale const locale;
    EXPECT_EQ(0, lstrcmpiA("Улица", "уЛИЦА"));
    EXPECT_GT(0, lstrcmpiA("a", "b"));
    EXPECT_GT(0, lstrcmpiA(nullptr, ""));
    EXPECT_EQ(0, lstrcmpiA(nullptr, nullptr));
}
