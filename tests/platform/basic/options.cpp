#include "support/comma_locale.h"
#include "support/temp_dir.h"

#include "platform/base/text_codec.h"
#include "platform/basic/vx_options.h"
#include "platform/winapi/library.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

namespace {
class options : public testing::Test
{
protected:
    ~options() override { vx_options_set_file(nullptr); }

    /// Reads the text as options file.
    void use(std::string_view text)
    {
        vx_test::write_file(f_file, text);
        reread();
    }
    void reread() { vx_options_set_file(vx::text::utf8_to_wide(f_file.string()).c_str()); }
    [[nodiscard]] std::string file_text() const { return vx_test::read_file(f_file); }

    vx_test::temp_dir f_dir;
    std::filesystem::path f_file = f_dir / "options.ini";
};

/// An environment variable for one test.
class variable
{
public:
    variable(char const *name, char const *value) : f_name(name)
    {
        if (auto const *const before = std::getenv(name))
            f_before = before;
        setenv(name, value, 1);
    }
    variable(variable const &) = delete;
    variable &operator=(variable const &) = delete;
    ~variable()
    {
        if (f_before.empty())
            unsetenv(f_name);
        else
            setenv(f_name, f_before.c_str(), 1);
    }

private:
    char const *f_name;
    std::string f_before;
};

constexpr double c_default_mm2px = 96 / 25.4;
} // namespace

TEST_F(options, defaults)
{
    for (auto const *text :
         {"", "# nothing\n[section]\nno setting here\n=\n=x\n\n", "mm2px_x=0\nmm2px_y=nan\n",
          "mm2px_x=-1\nmm2px_y=1001\n", "mm2px_x=3,5\nmm2px_y=4 px\n", "invert_layers=yes\n"}) {
        SCOPED_TRACE(text);
        use(text);
        auto const plugins = std::wstring(vx_library_get_own_directory()) + L"vxk_plugins/*.so";
        EXPECT_EQ(L'/', plugins[0]);
        EXPECT_EQ(plugins, vx_options_get_lr_2d_editor_plugin_mask());
        EXPECT_EQ(plugins, vx_options_get_style_editor_plugin_mask());
        EXPECT_DOUBLE_EQ(c_default_mm2px, vx_options_get_mm2px_x());
        EXPECT_DOUBLE_EQ(c_default_mm2px, vx_options_get_mm2px_y());
        EXPECT_FALSE(vx_options_get_invert_layers());
    }
}

TEST_F(options, reads_what_people_write)
{
    vx_test::comma_locale const locale;
    use("\xEF\xBB\xBFlr_2d_editor_plugin_mask = /опция/a=b*.so \r\n"
        "mm2px_x=5.25\n  mm2px_y  =  4\n"
        "invert_layers=0\ninvert_layers=1\nlanguage=ru");
    EXPECT_STREQ(L"/опция/a=b*.so", vx_options_get_lr_2d_editor_plugin_mask());
    EXPECT_EQ(5.25, vx_options_get_mm2px_x());
    EXPECT_EQ(4, vx_options_get_mm2px_y());
    EXPECT_TRUE(vx_options_get_invert_layers()) << "the last of two lines holds";
    EXPECT_STREQ("ru", vx_options_get_language());
}

TEST_F(options, save_keeps_foreign_lines_and_order)
{
    vx_test::comma_locale const locale;
    use("# mine\nfuture_option = 7\nmm2px_x=1\nstyle_editor_plugin_mask=/x/*.so\n");
    vx_options_set_mm2px(2.5, 3.125);
    vx_options_set_style_editor_plugin_mask(nullptr);
    vx_options_set_lr_2d_editor_plugin_mask(L"/я/*.so\nlanguage=xx");
    vx_options_set_invert_layers(true);
    ASSERT_TRUE(vx_options_save());
    EXPECT_EQ("# mine\nfuture_option = 7\nmm2px_x=2.5\nstyle_editor_plugin_mask=\nmm2px_y=3.125\n"
              "lr_2d_editor_plugin_mask=/я/*.so language=xx\ninvert_layers=1\n",
              file_text());
    reread();
    EXPECT_EQ(3.125, vx_options_get_mm2px_y());
    EXPECT_EQ(nullptr, vx_options_get_style_editor_plugin_mask()) << "none, and not the default";
    vx_options_set_mm2px(0, 1);
    vx_options_set_mm2px(1, 1e9);
    EXPECT_EQ(2.5, vx_options_get_mm2px_x()) << "values out of range are ignored";
    EXPECT_EQ(1, f_dir.count());
}

TEST_F(options, save_makes_the_directory)
{
    f_file = f_dir / "deep/er/options.ini";
    reread();
    vx_options_set_invert_layers(true);
    ASSERT_TRUE(vx_options_save());
    EXPECT_EQ("invert_layers=1\n", file_text());
}

TEST_F(options, a_file_that_cannot_be_read_is_not_overwritten)
{
    use(std::string(2 << 20, 'x'));
    vx_options_set_invert_layers(true);
    EXPECT_FALSE(vx_options_save());
    EXPECT_EQ(std::string(2 << 20, 'x'), file_text());
    f_file = f_dir.path();
    reread();
    EXPECT_FALSE(vx_options_save());
}

TEST_F(options, language_of_the_environment)
{
    struct
    {
        char const *all;
        char const *lang;
        char const *language;
    } const cases[] = {{"", "ru_RU.UTF-8", "ru"},
                       {"", "de_DE.UTF-8", "en"},
                       {"C", "ru_RU.UTF-8", "en"},
                       {"ru", "en_US", "ru"},
                       {"", "", "en"}};
    for (auto const &c : cases) {
        variable const all("LC_ALL", c.all);
        variable const messages("LC_MESSAGES", "");
        variable const lang("LANG", c.lang);
        use("language=klingon\n");
        EXPECT_STREQ(c.language, vx_options_get_language()) << c.all << " " << c.lang;
    }
}

TEST_F(options, lie_in_the_users_configuration_directory)
{
    variable const config("XDG_CONFIG_HOME", f_dir.path().c_str());
    vx_options_set_file(nullptr);
    vx_options_set_invert_layers(true);
    ASSERT_TRUE(vx_options_save());
    EXPECT_EQ("invert_layers=1\n", vx_test::read_file(f_dir / "vxk/options.ini"));
}
