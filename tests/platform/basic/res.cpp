#include "support/temp_dir.h"

#include "platform/base/text_codec.h"
#include "platform/basic/engine_captions.h"
#include "platform/basic/vx_options.h"
#include "platform/basic/vx_res.h"
#include "platform/winapi/codepage.h"

#include <charconv>
#include <gtest/gtest.h>
#include <map>
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

int count_marks(std::string const &text)
{
    int count = 0;
    for (std::size_t i = 0; i + 1 < text.size(); ++i)
        count += text[i] == '%' && text[i + 1] != '%' && (i == 0 || text[i - 1] != '%');
    return count;
}
} // namespace

TEST_F(res, catalogues_hold_the_same_captions)
{
    auto const english = read_catalogue("en");
    auto const russian = read_catalogue("ru");
    EXPECT_FALSE(english.empty());
    for (auto const &[number, text] : english) {
        auto const at = russian.find(number);
        ASSERT_NE(russian.end(), at) << number << " has no Russian text";
        EXPECT_EQ(count_marks(text), count_marks(at->second))
            << number << ": " << text << " and " << at->second;
        EXPECT_TRUE(vx_res_has(number)) << number;
    }
    EXPECT_EQ(english.size(), russian.size());
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
    EXPECT_EQ(23, vx_help_mngr_find_help_id(23));
    EXPECT_EQ(0, vx_help_mngr_find_help_id(-1));
}
