#include "extension/plugin/lr_2d_edit_plugin_module.h"
#include "extension/plugin/style_edit_plugin.h"
#include "tests/support/temp_dir.h"

#include "platform/base/text_codec.h"
#include "platform/toolkit/core/application.h"
#include "platform/winapi/module_file.h"

#include <algorithm>
#include <cstdlib>
#include <elf.h>
#include <filesystem>
#include <gtest/gtest.h>

namespace fs = std::filesystem;
namespace {
using page_set = Tvx_plugin_module_set_impl<Tvx_lr_2d_edit_plugin_module>;
using style_set = Tvx_plugin_module_set_impl<Tvx_style_edit_plugin>;
using lines = std::vector<std::string>;

std::wstring wide(fs::path const &path)
{
    return vx::text::utf8_to_wide(path.string());
}

/// The names of the modules of a set without their folder.
template <class Set>
lines names(Set const &set)
{
    lines result;
    for (unsigned i = 0; i < set.get_plugin_count(); ++i) {
        auto const path = vx::text::wide_to_utf8(set.get_plugin(i)->get_path());
        result.push_back(path.substr(path.find_last_of("/\\") + 1));
    }
    return result;
}

fs::path const c_plugins = VX_TEST_PLUGINS;

class plugins : public testing::Test
{
public:
    plugins() { Application->OnException = make_closure<&plugins::on_exception>(this); }
    ~plugins() override { Application->OnException = {}; }
    void on_exception(TObject * /*sender*/, std::exception const *exception)
    {
        told.push_back(exception ? exception->what() : "?");
    }

    lines told;
    vx_test::temp_dir dir;
};
} // namespace

TEST_F(plugins, of_both_kinds_share_a_folder_and_stand_in_the_order_of_names)
{
    auto const mask = wide(c_plugins / "both/*.so");
    EXPECT_EQ(names(page_set(mask.c_str())), lines{"b_page.so"});
    EXPECT_EQ(names(style_set(mask.c_str())), lines{"a_style.so"});
    EXPECT_EQ(names(page_set(wide(c_plugins / "odd/*.so").c_str())),
              (lines{"a_null_caption.so", "b_null_instance.so", "c_throws.so", "d_throws_later.so"}));
    // Separators of either kind, as the path rules give them.
    auto turned = mask;
    std::ranges::replace(turned, L'/', L'\\');
    EXPECT_EQ(names(page_set(turned.c_str())), lines{"b_page.so"});
    // Two names of one file are two modules, and a name without a module is none.
    fs::create_symlink(c_plugins / "both/b_page.so", dir / "2.so");
    fs::create_symlink(c_plugins / "both/b_page.so", dir / "1.so");
    fs::create_symlink(dir / "nowhere", dir / "3.so");
    fs::copy_file(c_plugins / "both/b_page.so", dir / "4.so");
    EXPECT_EQ(names(page_set(wide(dir / "*.so").c_str())), (lines{"1.so", "2.so", "4.so"}));
}

TEST_F(plugins, nothing_comes_from_a_mask_that_finds_nothing_or_begins_nowhere)
{
    for (wchar_t const *mask :
         std::initializer_list<wchar_t const *>{nullptr, L"", L"*.so", L"./*.so", L"/no such folder/*.so"}) {
        EXPECT_EQ(page_set(mask).get_plugin_count(), 0U);
        EXPECT_EQ(style_set(mask).get_plugin_count(), 0U);
    }
    // The current folder counts for nothing.
    auto const before = fs::current_path();
    fs::current_path(c_plugins / "both");
    EXPECT_EQ(page_set(L"*.so").get_plugin_count(), 0U);
    EXPECT_FALSE(Tvx_lr_2d_edit_plugin_module(L"b_page.so").ok());
    fs::current_path(before);
}

TEST_F(plugins, without_one_of_their_entries_are_left_out)
{
    auto const mask = wide(c_plugins / "lacking/*.so");
    EXPECT_EQ(page_set(mask.c_str()).get_plugin_count(), 0U);
    EXPECT_EQ(style_set(mask.c_str()).get_plugin_count(), 0U);
    // Each is whole but for the one.
    for (int i = 0; i < 7; ++i) {
        auto const path = wide(c_plugins / ("lacking/page_" + std::to_string(i) + ".so"));
        Tvx_plugin_module const module(path.c_str());
        EXPECT_TRUE(module.ok());
        EXPECT_NE(module.get_proc_address("test_take_log"), nullptr);
        EXPECT_EQ(module.get_proc_address("plugin_lr_2d_editor_create") == nullptr, i == 0);
        EXPECT_EQ(module.get_proc_address("plugin_lr_2d_editor_setpos") == nullptr, i == 6);
    }
}

TEST_F(plugins, that_cannot_be_loaded_are_left_out)
{
    // A missing dependency, a later revision, initialisers that throw, end the process or crash.
    EXPECT_EQ(names(page_set(wide(c_plugins / "broken/*.so").c_str())), lines{});
    EXPECT_TRUE(told.empty());

    auto const whole = vx_test::read_file(c_plugins / "both/b_page.so");
    auto const foreign = [&](std::size_t at, char value) {
        auto copy = whole;
        copy[at] = value;
        return copy;
    };
    struct
    {
        char const *name;
        std::string bytes;
        Tvx_module_state state;
    } const cases[] = {
        {"empty.so", "", c_module_unreadable},
        {"text.so", "#!/bin/sh\nexit 1\n", c_module_no_module},
        {"magic.so", "\177ELF", c_module_no_module},
        {"class.so", foreign(EI_CLASS, ELFCLASS32), c_module_other_machine},
        {"order.so", foreign(EI_DATA, ELFDATA2MSB), c_module_other_machine},
        {"machine.so", foreign(offsetof(Elf64_Ehdr, e_machine), 8), c_module_other_machine},
        {"program.so", foreign(offsetof(Elf64_Ehdr, e_type), ET_EXEC), c_module_no_module},
        {"header.so", whole.substr(0, 40), c_module_cut},
        {"segments.so", whole.substr(0, 100), c_module_cut},
        {"quarter.so", whole.substr(0, whole.size() / 4), c_module_cut},
        {"half.so", whole.substr(0, whole.size() / 2), c_module_cut},
        {"last.so", whole.substr(0, whole.size() - 1), c_module_cut},
    };
    char const *const entry[] = {"plugin_lr_2d_editor_create"};
    for (auto const &c : cases) {
        vx_test::write_file(dir / c.name, c.bytes);
        EXPECT_EQ(vx_module_look(wide(dir / c.name).c_str(), entry), c.state) << c.name;
    }
    fs::create_directory(dir / "folder.so");
    EXPECT_EQ(vx_module_look(wide(dir / "folder.so").c_str(), entry), c_module_unreadable);
    EXPECT_EQ(vx_module_look(wide(dir / "none.so").c_str(), entry), c_module_unreadable);
    EXPECT_EQ(page_set(wide(dir / "*.so").c_str()).get_plugin_count(), 0U);
}

TEST_F(plugins, whose_file_lies_are_looked_at_without_harm)
{
    // Each byte of the headers and of the tables behind them once with its bits turned: whatever comes of it,
    // the look ends.
    auto const whole = vx_test::read_file(c_plugins / "both/b_page.so");
    char const *const entries[] = {"plugin_lr_2d_editor_create", "plugin_lr_2d_editor_setpos",
                                   "no such entry"};
    auto const path = wide(dir / "bent.so");
    for (std::size_t i = 0; i < 1500 && i < whole.size(); i += i < 64 ? 1 : 7) {
        auto bent = whole;
        bent[i] = static_cast<char>(~bent[i]);
        vx_test::write_file(dir / "bent.so", bent);
        bool found[3];
        (void)vx_module_look(path.c_str(), entries, found);
        EXPECT_FALSE(found[2]);
    }
}

TEST_F(plugins, of_others_are_not_run)
{
    auto const trace = dir / "trace";
    setenv("VX_TEST_FOREIGN_RAN", trace.c_str(), 1);
    for (int i = 0; i < 20; ++i)
        fs::copy_file(c_plugins / "other/foreign.so", dir / (std::to_string(i) + ".so"));
    auto const mask = wide(dir / "*.so");
    EXPECT_EQ(page_set(mask.c_str()).get_plugin_count(), 0U);
    EXPECT_EQ(style_set(mask.c_str()).get_plugin_count(), 0U);
    EXPECT_FALSE(fs::exists(trace));
    // It would be seen.
    EXPECT_TRUE(Tvx_plugin_module(wide(dir / "0.so").c_str()).ok());
    EXPECT_TRUE(fs::exists(trace));
    unsetenv("VX_TEST_FOREIGN_RAN");
}

TEST_F(plugins, that_throw_are_told_of_by_name_and_do_nothing)
{
    page_set const set(wide(c_plugins / "odd/*.so").c_str());
    ASSERT_EQ(set.get_plugin_count(), 4U);
    EXPECT_STREQ(set.get_plugin(0)->get_caption(), "a_null_caption");
    EXPECT_EQ(set.get_plugin(1)->create(nullptr, nullptr), nullptr);
    EXPECT_TRUE(told.empty());
    auto *const throws = set.get_plugin(2);
    EXPECT_EQ(throws->create(nullptr, nullptr), nullptr);
    ASSERT_EQ(told.size(), 1U);
    EXPECT_NE(told[0].find("c_throws.so"), std::string::npos) << told[0];
    EXPECT_NE(told[0].find("no tab today"), std::string::npos) << told[0];
    EXPECT_STREQ(throws->get_caption(), "c_throws") << "what is thrown is no caption";
    EXPECT_EQ(told.size(), 2U);

    auto *const later = set.get_plugin(3);
    auto *const instance = later->create(nullptr, nullptr);
    ASSERT_NE(instance, nullptr);
    for (auto *const each : {throws, later})
        for (void *const target : {instance, static_cast<void *>(nullptr)}) {
            if (each == throws && target)
                continue;
            each->set_parent(target, nullptr);
            each->attach(target, nullptr);
            each->update(target);
            each->set_pos(target, {});
            each->destroy(target);
        }
    EXPECT_EQ(told.size(), 7U) << "calls without an instance reach nobody";
}
