#include "extension/binding/data_source.h"
#include "support/temp_dir.h"

#include "platform/base/string_adp.h"
#include "platform/basic/vx_bundle.h"
#include "platform/basic/vx_datasource.h"
#include "platform/basic/vx_fault.h"
#include "platform/basic/vx_service_registry.h"
#include "platform/winapi/file.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>

namespace {
struct source final : vx::data_source_impl
{
    int driver_id() override { return 77; }
};

/// A driver that tells what it is asked.
struct driver
{
    std::wstring claims;      ///< the sources that it says it can open begin with this
    bool gives = false;       ///< whether it does open them
    std::wstring error = L""; ///< what it says when it does not
    std::wstring asked = L"";
    bool read_only = false;
    source opened = {};
    Tvx_datasource_driver table = {};

    driver(char const *id, int priority, std::wstring claimed, bool opens, std::wstring refusal)
        : claims(std::move(claimed)), gives(opens), error(std::move(refusal))
    {
        table = {id, priority, this, &can_open, &open, nullptr};
        EXPECT_TRUE(vx_datasource_add_driver(&table));
    }
    driver(driver const &) = delete;
    driver &operator=(driver const &) = delete;
    ~driver() { vx_datasource_remove_driver(&table); }

    static bool can_open(void *context, wchar_t const *text)
    {
        return std::wstring_view(text).starts_with(static_cast<driver *>(context)->claims);
    }
    static void open(void *context, wchar_t const *text, bool read_only, t_vx_data_source_interface *result,
                     Ivx_string_adp *error)
    {
        auto *const self = static_cast<driver *>(context);
        self->asked = text;
        self->read_only = read_only;
        if (self->gives)
            *result = self->opened;
        else
            vx_string_adp_feed(error, self->error.c_str());
    }
};

vx::data_source open(wchar_t const *text, bool read_only = true)
{
    t_vx_data_source_interface handle{};
    vx_datasource_open(text, read_only, &handle);
    return handle;
}

std::wstring last_error()
{
    std::wstring error;
    vx_datasource_get_error(Tvx_std_wstring_adapter(error));
    return error;
}
} // namespace

TEST(datasource, asks_by_priority_and_claim)
{
    driver low("test_low", -1000, L"t:", true, L"");
    driver high("test_high", 2000, L"t:", false, L"high says no");
    driver other("test_other", 3000, L"u:", true, L"");
    auto const opened = open(L"t:x", false);
    ASSERT_TRUE(opened);
    EXPECT_EQ(77, opened.driver_id());
    EXPECT_EQ(L"t:x", high.asked);
    EXPECT_EQ(L"t:x", low.asked);
    EXPECT_FALSE(low.read_only);
    EXPECT_EQ(L"", other.asked);
    EXPECT_EQ(L"", last_error()) << "a success has no error";
    EXPECT_STREQ("test_other", vx_datasource_driver_id(0));
    EXPECT_STREQ("test_high", vx_datasource_driver_id(1));
    EXPECT_STREQ("", vx_datasource_driver_id(-1));
    EXPECT_STREQ("", vx_datasource_driver_id(vx_datasource_driver_count()));
}

TEST(datasource, the_first_reason_is_told)
{
    driver first("test_first", 5000, L"t:", false, L"first says no");
    driver second("test_second", 4000, L"t:", false, L"second says no");
    EXPECT_FALSE(open(L"t:x"));
    EXPECT_EQ(L"first says no", last_error());
    EXPECT_EQ(L"t:x", second.asked);
    EXPECT_FALSE(open(L""));
    EXPECT_NE(L"", last_error());
    EXPECT_FALSE(open(nullptr));
    EXPECT_NE(L"", last_error());
}

TEST(datasource, the_virtual_mark_is_not_passed_on)
{
    driver d("test_driver", 5000, L"t:", true, L"");
    EXPECT_TRUE(open(L"*t:x|layer=a"));
    EXPECT_EQ(L"t:x|layer=a", d.asked);
    EXPECT_TRUE(d.read_only);
}

TEST(datasource, ids_are_unique)
{
    driver d("test_driver", 1, L"t:", true, L"");
    auto twin = d.table;
    EXPECT_FALSE(vx_datasource_add_driver(&twin));
    EXPECT_FALSE(vx_datasource_add_driver(nullptr));
    twin.id = nullptr;
    EXPECT_FALSE(vx_datasource_add_driver(&twin));
    twin = {"test_without_open", 1, nullptr, nullptr, nullptr, nullptr};
    EXPECT_FALSE(vx_datasource_add_driver(&twin));
}

TEST(datasource, a_connection_opens_again_and_again)
{
    driver d("test_driver", 5000, L"t:", true, L"");
    auto *const connect = vx_datasource_connect_create(L"t:x");
    std::wstring text;
    vx_datasource_connect_get_source(connect, Tvx_std_wstring_adapter(text));
    EXPECT_EQ(L"t:x", text);
    for (int i = 0; i < 2; ++i) {
        t_vx_data_source_interface handle{};
        vx_datasource_connect_open(connect, true, &handle);
        EXPECT_FALSE(vx_data_source_interface_is_null(handle));
    }
    vx_datasource_connect_destroy(connect);
    t_vx_data_source_interface handle = d.opened;
    vx_datasource_connect_open(nullptr, true, &handle);
    EXPECT_TRUE(vx_data_source_interface_is_null(handle));
    vx_datasource_connect_destroy(nullptr);
}

// ---- bundles

namespace {
bool load(std::string const &name, std::wstring &error)
{
    error.clear();
    auto const file = vx_path_from_native(VX_TEST_BUNDLES "/lib" + name + ".so");
    return vx_bundle_load(file.c_str(), Tvx_std_wstring_adapter(error));
}
} // namespace

TEST(bundle, registers_a_driver_and_stays)
{
    std::wstring error;
    int const before = vx_bundles_get_count();
    ASSERT_TRUE(load("vx_test_bundle_good", error)) << vx_path_to_native(error);
    EXPECT_TRUE(load("vx_test_bundle_good", error)) << "already loaded";
    EXPECT_EQ(before + 1, vx_bundles_get_count());

    auto const opened = open(L"test bundle: 12");
    ASSERT_TRUE(opened);
    EXPECT_EQ(12, opened.driver_id());
    opened.detach();
    EXPECT_FALSE(open(L"test bundle: none"));
    EXPECT_EQ(L"The bundle has none.", last_error());

    t_vx_data_source_interface made{};
    vx_datasource_create(L"test bundle: 3", 99, &made);
    EXPECT_TRUE(vx_data_source_interface_is_null(made)) << "a kind that nobody makes";
    EXPECT_NE(L"", last_error());
    vx_datasource_create(L"test bundle: 3", 1, &made);
    ASSERT_FALSE(vx_data_source_interface_is_null(made));
    vxk_datasource_data_source_detach(made);
}

TEST(bundle, what_is_none_is_refused)
{
    vx_test::temp_dir const dir;
    vx_test::write_file(dir / "broken.so", "this is no library");
    std::wstring error;
    int const before = vx_bundles_get_count();
    EXPECT_FALSE(load("vx_test_bundle_refusing", error));
    EXPECT_NE(L"", error);
    EXPECT_FALSE(load("vx_test_bundle_without_entry", error));
    EXPECT_NE(L"", error);
    EXPECT_FALSE(load("no_such_bundle", error));
    EXPECT_NE(L"", error);
    EXPECT_FALSE(vx_bundle_load((dir / "broken.so").wstring().c_str(), nullptr));
    EXPECT_FALSE(vx_bundle_load(nullptr, nullptr));
    EXPECT_EQ(before, vx_bundles_get_count());
}

TEST(bundle, broken_modules_are_left_out_of_a_folder_and_the_others_load)
{
    vx_test::temp_dir const dir;
    namespace fs = std::filesystem;
    fs::path const made = VX_TEST_BUNDLES;
    auto const whole = made / "libvx_test_bundle_good.so";
    // Each cut would end a process that maps it, or fail in some other way.
    for (auto const part : {0u, 10u, 60u, 1000u, 4096u})
        fs::resize_file((fs::copy_file(whole, dir / ("cut_" + std::to_string(part) + ".so")),
                         dir / ("cut_" + std::to_string(part) + ".so")),
                        part);
    fs::copy_file(whole, dir / "cut_end.so");
    fs::resize_file(dir / "cut_end.so", fs::file_size(whole) / 2);
    vx_test::write_file(dir / "text.so", "this is no library");
    fs::create_directory(dir / "folder.so");
    for (char const *name : {"throwing_start", "faulting_start", "without_library", "without_entry"})
        fs::copy_file(made / ("libvx_test_bundle_" + std::string(name) + ".so"),
                      dir / (std::string(name) + ".so"));
    fs::copy_file(made / "libvx_test_bundle_category.so", dir / "zz_good.so");
    int const before = vx_bundles_get_count();
    testing::internal::CaptureStderr();
    vx_bundles_load();
    vx_bundles_add_directory(fs::path(dir / ".").wstring().c_str());
    auto const said = testing::internal::GetCapturedStderr();
    EXPECT_EQ(before + 1, vx_bundles_get_count());
    EXPECT_EQ(1, vx_service_registry_get_factory_count(L"test/bundle"));
    for (char const *name : {"cut_10.so", "cut_end.so", "text.so", "throwing_start.so"})
        EXPECT_NE(said.find(name), said.npos) << name;
    EXPECT_EQ(said.find("without_entry.so"), said.npos) << "a module of another kind";
    vx_bundles_add_directory(fs::path(dir / ".").wstring().c_str());
    EXPECT_EQ(before + 1, vx_bundles_get_count());
}

TEST(bundle, nothing_is_loaded_by_a_name_that_depends_on_the_current_folder)
{
    namespace fs = std::filesystem;
    auto const before = fs::current_path();
    fs::current_path(VX_TEST_BUNDLES);
    for (wchar_t const *name :
         {L"libvx_test_bundle_here.so", L"./libvx_test_bundle_here.so", L"vx_test_bundle_here.dll"})
        EXPECT_FALSE(vx_bundle_load(name, nullptr));
    fs::current_path(before);
    // With the other kind of stroke a path is a path, too.
    std::wstring path = fs::path(VX_TEST_BUNDLES "/libvx_test_bundle_here.so").wstring();
    std::ranges::replace(path, L'/', L'\\');
    EXPECT_TRUE(vx_bundle_load(path.c_str(), nullptr));
}

TEST(bundle, what_it_registered_goes_with_its_refusal)
{
    int const drivers = vx_datasource_driver_count();
    for (bool const throws : {false, true}) {
        if (throws)
            setenv("VX_TEST_BUNDLE_THROWS", "1", 1);
        std::wstring error;
        EXPECT_FALSE(load("vx_test_bundle_turncoat", error));
        EXPECT_EQ(throws, error.find(L"no licence") != error.npos);
        EXPECT_EQ(drivers, vx_datasource_driver_count());
        EXPECT_FALSE(open(L"whatever the driver would be asked"));
    }
    unsetenv("VX_TEST_BUNDLE_THROWS");
}

TEST(datasource, a_driver_that_throws_is_dropped_and_the_user_told_once)
{
    static int told = 0;
    told = 0;
    auto const before = vx_reason_set_handler([](wchar_t const *reason) {
        ++told;
        EXPECT_NE(std::wstring_view::npos, std::wstring_view(reason).find(L"thrower"));
    });
    static auto const fail = [] { throw std::runtime_error("out of order"); };
    Tvx_datasource_driver const thrower = {
        "thrower",
        500,
        nullptr,
        [](void *, wchar_t const *) {
            fail();
            return true;
        },
        [](void *, wchar_t const *, bool, t_vx_data_source_interface *, Ivx_string_adp *) {},
        nullptr};
    driver good("good", 5, L"a", true, L"");
    ASSERT_TRUE(vx_datasource_add_driver(&thrower));
    EXPECT_TRUE(open(L"abc")) << "the next driver opens it";
    EXPECT_TRUE(open(L"abc"));
    EXPECT_EQ(1, told);
    vx_datasource_remove_driver(&thrower);
    vx_reason_set_handler(before);
}
