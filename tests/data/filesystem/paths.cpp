#include "data/vxk_data.h"

#include <clocale>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

using namespace vx::filesystem;

namespace {
struct one_path
{
    wchar_t const *in;
    wchar_t const *out;
};

template <class Function, std::size_t N>
void expect_all(Function function, one_path const (&table)[N])
{
    for (auto const &row : table)
        EXPECT_EQ(function(row.in), row.out) << std::string(row.in, row.in + std::wcslen(row.in));
}
} // namespace

TEST(paths, parts)
{
    expect_all([](std::wstring p) { return extension(p); }, {{L".profile", L""},
                                                             {L"a.B", L".b"},
                                                             {L"x.d/name", L""},
                                                             {L"a.tar.GZ", L".gz"},
                                                             {L"ДОМ.ШП", L".шп"}});
    expect_all([](std::wstring p) { return full_extension(p); },
               {{L"a.tar.GZ", L".tar.gz"}, {L".a.b", L""}, {L"d.x\\name", L""}});
    expect_all([](std::wstring p) { return basename(p); },
               {{L"d\\.profile", L".profile"}, {L"d/a.tar.gz", L"a.tar"}, {L"a", L"a"}, {L"d/", L""}});
    expect_all([](std::wstring p) { return directory(p); },
               {{L"a\\b/c", L"a\\b/"}, {L"c", L""}, {L"/", L"/"}, {L"C:x", L""}});
    expect_all([](std::wstring p) { return drive(p); }, {{L"C:\\x", L"C:"}, {L"1:\\x", L""}, {L"c", L""}});
    EXPECT_TRUE(is_absolute(L"/a") && is_absolute(L"\\\\srv") && is_absolute(L"C:a") && !is_absolute(L""));
    EXPECT_EQ(extension(std::string("d.e/A.SHP")), ".shp");
    EXPECT_EQ(filename(std::string("d\\e/f.g")), "f.g");
}

TEST(paths, changes)
{
    EXPECT_EQ(change_extension(L"d.x/a.b.c", L"dbf"), L"d.x/a.b.dbf");
    EXPECT_EQ(change_extension(L"d.x/a", L".dbf"), L"d.x/a.dbf");
    EXPECT_EQ(change_extension(L".profile", L"x"), L".profile.x");
    EXPECT_EQ(change_extension(L"d/a.b", L""), L"d/a");
    EXPECT_EQ(change_extension(std::string("a.b"), std::string("c")), "a.c");
    EXPECT_EQ(change_full_extension(L"d.x/a.tar.gz", L"zip"), L"d.x/a.zip");
    EXPECT_EQ(change_basename(L"d/a.SHP", L"b"), L"d/b.shp");
    EXPECT_EQ(add_suffix(L"d\\a.shp", L"_1"), L"d\\a_1.shp");
    EXPECT_EQ(change_directory(L"d/a.shp", L"e"), L"e\\a.shp");
    EXPECT_EQ(change_filename(L"d/a.shp", L"b"), L"d/b");
    EXPECT_EQ(combine({L"a", L"", L"b/", L"c"}), L"a\\b/c");
    EXPECT_EQ(combine({L"a", L"/b", L"c"}), L"/b\\c");
    EXPECT_EQ(make_virtual(L"*x"), L"*x");
    EXPECT_EQ(from_virtual(make_virtual(L"x")), L"x");
}

TEST(paths, cleaned)
{
    expect_all(clean_path, {{L"C:/a/./b/../c/", L"C:\\a\\c"},
                            {L"a/../../b", L"..\\b"},
                            {L"C:\\", L"C:"},
                            {L"C:a/./b", L"C:a\\b"},
                            {L"C:..", L"C:.."},
                            {L"\\\\srv\\a\\..\\b", L"\\\\srv\\b"},
                            {L"a\\..", L""},
                            {L".", L""},
                            {L"/a//b", L"\\a\\b"},
                            {L"../../a", L"..\\..\\a"}});
    EXPECT_TRUE(is_equal(L"C:\\Data\\x", L"c:/data/./X"));
    EXPECT_FALSE(is_equal(L"a", L"b"));
}

TEST(paths, ways_between)
{
    EXPECT_EQ(relative_path(L"C:\\a\\b\\f.x", L"c:\\A\\c\\g.y"), L"..\\c\\g.y");
    EXPECT_EQ(relative_path(L"/a/f", L"/a/g"), L"g");
    EXPECT_EQ(relative_path(L"/f", L"/g/h"), L"/g/h") << "there is no way from the root";
    EXPECT_EQ(relative_path(L"C:\\a\\", L"D:\\a\\x"), L"D:\\a\\x");
    EXPECT_EQ(relative_path(L"a/b", L"/x"), L"/x");
    EXPECT_EQ(absolute_path(L"C:\\a\\b.x", L"..\\c.y"), L"C:\\c.y");
    EXPECT_EQ(common_directory({L"/a/b/c", L"/a/b/d/e", L"/a/b/f"}), L"\\a\\b");
    EXPECT_EQ(common_directory({L"/a/b", L"c"}), L"");
    EXPECT_EQ(common_directory({L"a/b"}), L"a/");
    // Going there and back ends at the same place.
    std::mt19937 random(7);
    for (int i = 0; i < 500; ++i) {
        auto any = [&] {
            std::wstring p;
            for (unsigned n = random() % 5; n-- > 0;)
                p += std::wstring(L"/") + L"abcd"[random() % 4];
            return p + L"/f";
        };
        std::wstring const base = any();
        std::wstring const to = any();
        EXPECT_EQ(absolute_path(base, relative_path(base, to)), clean_path(to));
    }
}

TEST(paths, refused_characters)
{
    EXPECT_EQ(make_valid(L"C:\\a:b"), L"C:\\a_b");
    EXPECT_EQ(make_valid_filename(L"a/b\\c:d"), L"a_b_c_d");
    EXPECT_EQ(make_valid(std::wstring(L"a\0b", 3)), L"a_b");
    EXPECT_TRUE(is_valid(L"C:\\ä b"));
    EXPECT_FALSE(is_valid(L"a?"));
    EXPECT_FALSE(is_valid_file_name(L"a/b"));
}

TEST(numbers, comma_and_point)
{
    struct row
    {
        wchar_t const *text;
        double value;
        bool ok;
    };
    constexpr double inf = std::numeric_limits<double>::infinity();
    row const table[] = {{L"1,5", 1.5, true},
                         {L"1,5,6", 1.5, false},
                         {L"1.5", 1.5, true},
                         {L"", 0, false},
                         {L"  +2e3", 2000, true},
                         {L"-7x", -7, false},
                         {L"1e999", inf, false},
                         {L"-1e999", -inf, false},
                         {L"1e-999", 0, false},
                         {L"+-1", 0, false},
                         {L"1 ", 1, false},
                         {L"5€", 5, false},
                         {L"0x1F", 0, false},
                         {L" -0X1p3", 0, false},
                         {L"4.9e-324", std::numeric_limits<double>::denorm_min(), true}};
    std::wstring const zeros(400, L'0');
    std::wstring const long_texts[] = {L"1" + zeros, L"1" + zeros + L"e-5", L"0." + zeros + L"1",
                                       L"0." + zeros + L"1e5", L"0." + zeros + L"1e" + zeros + L"405"};
    double const their_values[] = {inf, inf, 0, 0, 1e4};
    for (std::size_t i = 0; i < std::size(long_texts); ++i)
        EXPECT_EQ(Tutils::str2dbl(long_texts[i]), their_values[i]) << i;
    char const *before = std::setlocale(LC_NUMERIC, nullptr);
    std::string const saved = before ? before : "C";
    for (char const *locale : {"C", "de_DE.UTF-8", "ru_RU.UTF-8"}) {
        std::setlocale(LC_NUMERIC, locale);
        for (auto const &r : table) {
            bool ok = !r.ok;
            EXPECT_EQ(Tutils::str2dbl(std::wstring(r.text), &ok), r.value);
            EXPECT_EQ(ok, r.ok);
        }
        EXPECT_EQ(Tutils::dbl2str(0.1), "0.1");
        EXPECT_EQ(Tutils::dbl2str(1e300), "1e+300");
        EXPECT_EQ(Tutils::dbl2wstr(123456789012345.0), L"123456789012345");
    }
    std::setlocale(LC_NUMERIC, saved.c_str());
}

TEST(text, utilities)
{
    EXPECT_EQ(Tutils::str_trim(std::wstring(L" \t\v x y\f\r\n")), L"x y");
    EXPECT_EQ(Tutils::trim_stricmp(std::wstring(L" Äa"), std::wstring(L"äA ")), 0);
    EXPECT_LT(Tutils::trim_stricmp(std::string("a"), std::string(" b")), 0);
    EXPECT_EQ(Tutils::wide_char_to_hex(L"AЯ\U0001F5FA"), "0041042FD83DDDFA");
    EXPECT_EQ(Tutils::hex_to_wide_char(" 0041042fD83DDDFA\n"), L"AЯ\U0001F5FA");
    EXPECT_EQ(Tutils::hex_to_wide_char("00410"), L"A");
    EXPECT_EQ(Tutils::str_dos2win("\x8F\xE0\xA8\xA2\xA5\xE2"), "Привет");
    EXPECT_EQ(Tutils::str_win2dos(Tutils::str_dos2win("\x8F\xE0")), "\x8F\xE0");
    EXPECT_EQ(Tutils::str_rus2eng_simple("\xCC\xEE\xF1\xEA\xE2\xE0 \xA8\xB8 \xDA"), "Moskva Ee _");
    EXPECT_EQ(vx::strutil::format(L"%s %ls %3s|%-3s|%hs%% %d%%s", L"Ж", L"b", L"c", L"d", "e", 7),
              L"Ж b   c|d  |e% 7%s");
    EXPECT_EQ(vx::strutil::format(L""), L"");
    using vx::strutil::split_any;
    EXPECT_EQ(split_any(std::string("a,;b,"), ",;"), (std::vector<std::string>{"a", "", "b", ""}));
    EXPECT_EQ(split_any(std::string("a,;b,"), ",;", 1), (std::vector<std::string>{"a", "b"}));
}
