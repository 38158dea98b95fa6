#include "platform/winapi/library.h"

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

TEST(library, finds_a_loaded_module_by_its_historical_name)
{
    auto *const module = GetModuleHandleW(L"vxk_platform.dll");
    ASSERT_NE(nullptr, module);
    EXPECT_EQ(module, GetModuleHandleW(L"VXK_Platform.DLL"));
    EXPECT_EQ(module,
              GetModuleHandleW((vx_library_get_own_directory() + std::wstring(L"vxk_platform.dll")).c_str()));
    EXPECT_EQ(nullptr, GetModuleHandleW(L"C:\\elsewhere\\vxk_platform.dll"));
    EXPECT_EQ(nullptr, GetModuleHandleW(L"no_such_module.dll"));
    EXPECT_EQ(nullptr, GetModuleHandleW(L".dll"));
    EXPECT_NE(nullptr, GetModuleHandleW(nullptr)) << "the program itself";
}

TEST(library, loads_from_the_bundle_folder_and_counts)
{
    EXPECT_EQ(nullptr, GetModuleHandleW(L"vx_test_module.dll")) << "looking does not load";
    auto *const module = LoadLibraryW(L"vx_test_module.dll");
    ASSERT_NE(nullptr, module) << "beside the test's library folder";
    EXPECT_FALSE(vx_library_get_fault());
    EXPECT_EQ(module, LoadLibraryW(L"VX_TEST_MODULE.dll"));
    EXPECT_EQ(module, GetModuleHandleW(L"vx_test_module.dll"));
    EXPECT_TRUE(FreeLibrary(module));
    EXPECT_EQ(module, GetModuleHandleW(L"vx_test_module.dll")) << "one reference is left";

    auto const function = reinterpret_cast<int (*)(int)>(GetProcAddress(module, "vx_test_module_twice"));
    ASSERT_NE(nullptr, function);
    EXPECT_EQ(14, function(7));
    EXPECT_EQ(nullptr, GetProcAddress(module, "no_such_function"));
    EXPECT_EQ(nullptr, GetProcAddress(module, "malloc")) << "what it depends on is not its own";
    EXPECT_EQ(nullptr, GetProcAddress(module, nullptr));
    EXPECT_EQ(nullptr, GetProcAddress(nullptr, "malloc"));
    EXPECT_TRUE(FreeLibrary(module));
    EXPECT_EQ(nullptr, GetModuleHandleW(L"vx_test_module.dll"));
}

TEST(library, tells_why_it_fails)
{
    EXPECT_EQ(nullptr, LoadLibraryW(L"no_such_module.dll"));
    EXPECT_NE(std::wstring::npos, vx_library_get_fault().subject.find(L"no_such_module"));
    EXPECT_EQ(nullptr, LoadLibraryW(L"libno_such_module.so"));
    EXPECT_TRUE(vx_library_get_fault());
    EXPECT_EQ(nullptr, LoadLibraryW(nullptr));
    EXPECT_EQ(nullptr, LoadLibraryW(L""));
    EXPECT_FALSE(FreeLibrary(nullptr));
}

// Run by the next test in a process of its own.
TEST(library, DISABLED_own_directory_of_another_current_folder)
{
    ASSERT_EQ(0, chdir("/"));
    EXPECT_EQ(std::wstring(L"" VX_BINARY_DIR "/lib/"), vx_library_get_own_directory());
}

TEST(library, own_directory_is_that_of_the_time_of_loading)
{
    auto const program = std::filesystem::read_symlink("/proc/self/exe").string();
    auto const line =
        "cd " VX_BINARY_DIR "/lib && LD_LIBRARY_PATH=. " + program +
        " --gtest_also_run_disabled_tests --gtest_filter='*DISABLED_own_directory*' > /dev/null";
    EXPECT_EQ(0, std::system(line.c_str()));
}
