#include <array>
#include <cstdio>
#include <gtest/gtest.h>
#include <string>
#include <sys/wait.h>

namespace {
/// What the checker prints, and what it ends with.
std::pair<std::string, int> run(std::string const &arguments)
{
    std::string output;
    auto *const pipe = popen((std::string(VX_PLUGIN_CHECK " ") + arguments + " 2>&1").c_str(), "r");
    std::array<char, 4096> buffer{};
    while (auto const got = std::fread(buffer.data(), 1, buffer.size(), pipe))
        output.append(buffer.data(), got);
    return {output, WEXITSTATUS(pclose(pipe))};
}

struct checked
{
    char const *module;
    int faults;          // 0: it passes
    char const *said[3]; // parts of what is printed
};

checked const c_modules[] = {
    {"both/b_page.so", 0, {"layer page plug-in", "revision 1", "Page \xD1\x8F"}},
    {"both/a_style.so", 0, {"style editor plug-in", "supports pgn_style", "it does not say"}},
    {"both/c_foreign.so", 1, {"no entry"}},
    {"odd/a_null_caption.so", 1, {"no text"}},
    {"odd/b_null_instance.so", 2, {"makes no instance"}},
    {"odd/d_throws_later.so", 2, {"throws while getting layers", "no tab today"}},
    {"odd_style/b_null_instance.so", 2, {"makes no instance", "supports no style manager"}},
    {"broken/later.so", 1, {"speaks revision 2", "left out"}},
    {"broken/needy.so", 1, {"libvx_test_absent.so"}},
    {"broken/start_0.so", 1, {"ends the process"}},
    {"broken/start_1.so", 1, {"ends the process"}},
    {"broken/start_2.so", 1, {"ends the process"}},
    {"lacking/page_3.so", 1, {"does not export plugin_lr_2d_editor_destroy."}},
    {"lacking/style_9.so", 1, {"does not export plugin_style_editor_select_next."}},
    {"no such module", 1, {"no such file"}},
};
} // namespace

TEST(plugin_check, names_what_is_wrong)
{
    for (auto const &c : c_modules) {
        auto const [output, code] = run(std::string(VX_TEST_PLUGINS "/") + "'" + c.module + "'");
        SCOPED_TRACE(output);
        EXPECT_EQ(code, c.faults > 0 ? 1 : 0);
        EXPECT_EQ(output.find(c.faults > 0 ? "It did not pass." : "It passed.") != output.npos, true);
        EXPECT_EQ(output.find("FAULT") != output.npos, c.faults > 0);
        for (auto const *part : c.said)
            if (part) {
                EXPECT_NE(output.find(part), output.npos) << part;
            }
    }
}

TEST(plugin_check, passes_the_samples_with_a_layer)
{
    auto const [output, code] = run("--layer " VX_EXAMPLE_DATA "/nc.shp " VX_SAMPLES
                                    "/field_summary.so " VX_SAMPLES "/usual_range.so");
    EXPECT_EQ(code, 0) << output;
    EXPECT_EQ(run("").second, 2);
    EXPECT_EQ(run("--help").second, 0);
    EXPECT_EQ(run("--no-such-option").second, 2);
}
