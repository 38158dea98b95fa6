#include "captions/drivers.h"
#include "captions/engine.h"
#include "support/temp_dir.h"

#include "platform/base/text_codec.h"
#include "platform/basic/vx_options.h"
#include "platform/basic/vx_res.h"
#include "platform/winapi/codepage.h"

#include <cctype>
#include <charconv>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <sstream>
#include <string>

namespace {
/// English captions without the user's options, for one test.
class res : public testing::Test
{
protected:
    res() { vx_options_set_file(vx::text::utf8_to_wide((f_dir / "options.ini").string()).c_str()); }
    ~res() override { vx_options_set_file(nullptr); }

    void SetUp() override { ASSERT_TRUE(vx_options_set_language("en")); }

    vx_test::temp_dir f_dir;
};

/// Number and text of each caption of a catalogue file; fails on a line that is neither caption nor comment.
std::map<int, std::string> read_catalogue(std::string const &language)
{
    std::map<int, std::string> captions;
    std::istringstream lines(
        vx_test::read_file(std::string(VX_SOURCE_DIR "/resources/captions/") + language + ".txt"));
    for (std::string line; std::getline(lines, line);) {
        if (line.empty() || line[0] == '#')
            continue;
        int number = 0;
        auto const [end, code] = std::from_chars(line.data(), line.data() + line.size(), number);
        bool const well_formed = code == std::errc() && *end == '\t' && end[1] != '\0';
        EXPECT_TRUE(well_formed) << language << ": " << line;
        if (!well_formed)
            continue;
        EXPECT_TRUE(captions.emplace(number, end + 1).second)
            << language << ": " << number << " stands twice";
    }
    return captions;
}

/// The places "%1", "%s" of a text, in any order.
std::multiset<char> places(std::string const &text)
{
    std::multiset<char> found;
    for (std::size_t i = 0; i + 1 < text.size(); ++i)
        if (text[i] == '%' && (std::isdigit(static_cast<unsigned char>(text[i + 1])) || text[i + 1] == 's'))
            found.insert(text[i + 1]);
    return found;
}

/// The numbers that the catalogue names.
std::set<int> named_captions()
{
    std::set<int> numbers;
    std::istringstream lines(vx_test::read_file(VX_SOURCE_DIR "/resources/captions/catalogue.list"));
    for (std::string line; std::getline(lines, line);)
        if (int number = 0; std::from_chars(line.data(), line.data() + line.size(), number).ec == std::errc())
            numbers.insert(number);
    return numbers;
}
} // namespace

TEST_F(res, every_language_says_each_named_caption_with_the_same_places)
{
    auto const named = named_captions();
    auto const english = read_catalogue("en");
    EXPECT_GT(named.size(), 300u);
    int languages = 0;
    for (; char const *const language = vx_options_get_known_language(languages); ++languages) {
        auto texts = read_catalogue(language);
        for (int const number : named) {
            auto const text = texts.extract(number);
            ASSERT_FALSE(text.empty()) << number << " has no text in " << language;
            ASSERT_TRUE(english.contains(number)) << number;
            EXPECT_EQ(places(english.at(number)), places(text.mapped())) << number << ": " << text.mapped();
            EXPECT_TRUE(vx_res_has(number)) << number;
        }
        for (auto const &[number, text] : texts)
            ADD_FAILURE() << number << " of " << language << " has no name: " << text;
    }
    EXPECT_GE(languages, 2);
    EXPECT_EQ(nullptr, vx_options_get_known_language(-1));
}

TEST_F(res, language_decides)
{
    auto const *const english = vx_res_get_wstr(c_capt_no_file_name);
    EXPECT_STREQ(L"There is no file name.", english);
    ASSERT_TRUE(vx_options_set_language("ru"));
    EXPECT_STREQ(L"Имя файла не задано.", vx_res_get_wstr(c_capt_no_file_name));
    EXPECT_STREQ(L"There is no file name.", english) << "what was handed out stays";
    EXPECT_FALSE(vx_options_set_language("de"));
    EXPECT_FALSE(vx_options_set_language(nullptr));
    EXPECT_STREQ("ru", vx_options_get_language());
}

TEST_F(res, bytes_are_in_the_system_code_page)
{
    ASSERT_TRUE(vx_options_set_language("ru"));
    auto const *const utf8 = vx_res_get_str(c_capt_no_file_name);
    EXPECT_STREQ("Имя файла не задано.", utf8);
    ASSERT_TRUE(vx_set_system_code_page(1251));
    EXPECT_EQ("\xC8\xEC\xFF", std::string(vx_res_get_str(c_capt_no_file_name)).substr(0, 3));
    ASSERT_TRUE(vx_set_system_code_page(65001));
    EXPECT_EQ(utf8, vx_res_get_str(c_capt_no_file_name));
}

TEST_F(res, unknown_numbers)
{
    EXPECT_FALSE(vx_res_has(-7));
    auto const text = std::wstring(vx_res_get_wstr(-7));
    EXPECT_TRUE(text.empty() || text == L"#-7");
    EXPECT_EQ(text, std::wstring(vx_res_get_wstr(-7)));
    EXPECT_NE(nullptr, vx_res_get_str(1 << 30));
}

TEST_F(res, arguments_are_put_in_once)
{
    EXPECT_EQ(L"\"a%1b\" holds no vector data.", vx_res_format_w(c_capt_no_vector_data, L"a%1b"));
    EXPECT_EQ(L"There is no table “%2” in “%1”.", vx_res_format_w(c_drv_no_table, {L"%2", L"%1"}));
    EXPECT_EQ(L"There is no table “a” in “%2”.", vx_res_format_w(c_drv_no_table, {L"a"}));
    EXPECT_EQ(23, vx_help_mngr_find_help_id(23));
    EXPECT_EQ(0, vx_help_mngr_find_help_id(-1));
}
