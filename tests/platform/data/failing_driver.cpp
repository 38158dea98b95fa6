#include "support/memory_source.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_fault.h"
#include "platform/basic/vx_options.h"
#include "platform/data/vx_attr_data.h"
#include "platform/data/vx_shape_files.h"
#include "platform/winapi/detail/main_thread.h"

#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <sys/resource.h>
#include <vector>

namespace {
using attr_data = vx::owned<Ivx_attr_data, &vx_attr_data_release>;
using attr_files = vx::owned<Ivx_attr_files, &vx_attr_files_close>;
using shape_files = vx::owned<Ivx_shape_files, &vx_shape_files_close>;

std::vector<std::wstring> g_told;

/// All that is read of a data set.
void use_all()
{
    attr_data const data(vx_attr_data_create(L"*memory:a"));
    if (!vx_attr_data_open(data.get()))
        return;
    (void)vx_attr_data_get_geom_type(data.get());
    Tvx_box_d2 box;
    (void)vx_attr_data_get_extent(data.get(), &box);
    attr_files const files(vx_attr_files_open(data.get(), 1, 0));
    bool ok = false;
    for (unsigned field = 0; field < vx_attr_files_get_np(files.get()); ++field)
        (void)vx_attr_files_get_wstr(files.get(), field, 0, &ok);
    shape_files const shapes(vx_shape_files_open(data.get()));
}
} // namespace

// Whatever call of an open data set throws: nothing comes out, the driver is dropped, the user is told once.
TEST(failing_driver, throws_on_an_open_data_set)
{
    vx_options_set_language("en");
    EXPECT_FALSE(vx_attr_data_open(attr_data(vx_attr_data_create(L"/none")).get()))
        << "the bundles are loaded";
    auto const former = vx_reason_set_handler([](wchar_t const *reason) { g_told.emplace_back(reason); });
    for (std::string_view const call :
         {"feature_count", "with_extent", "with_next_feature", "cell", "feature.detach", "detach"})
        for (bool const is_memory : {false, true}) {
            SCOPED_TRACE(std::string(call) + (is_memory ? " lacks memory" : ""));
            vx_test::memory_table table;
            table.fields = {{L"text", 1}, {L"number", 2}};
            table.features = {{{std::wstring(L"a"), 1.5}, 1, {{{2, 3}}}}};
            table.throws_at = call;
            table.throws_memory = is_memory;
            vx_test::memory_driver const driver(L"memory:", table);
            int const drivers = vx_datasource_driver_count();
            g_told.clear();
            EXPECT_NO_THROW(use_all());
            vx_main_thread_pump();
            EXPECT_EQ(table.opened, 0);
            EXPECT_EQ(table.held_features, 0);
            ASSERT_FALSE(g_told.empty());
            if (is_memory) {
                EXPECT_EQ(vx_datasource_driver_count(), drivers) << "which is not its fault";
                EXPECT_NE(g_told[0].find(L"not enough memory"), std::wstring::npos);
            } else {
                EXPECT_EQ(vx_datasource_driver_count(), drivers - 1);
                EXPECT_EQ(g_told.size(), 1U);
                EXPECT_EQ(g_told[0], L"The data driver \"vx_test_memory\" failed and is not used any more.\n"
                                     L"out of order");
            }
        }
    vx_reason_set_handler(former);
}

// What a driver claims to have makes nobody take memory for it.
TEST(failing_driver, claims_more_records_than_it_has)
{
    vx_test::memory_table table;
    table.fields = {{L"text", 1}, {L"number", 2}, {L"whole", 3}, {L"big", 4}};
    table.features.resize(5000, {{std::wstring(L"a"), 1.5, 3, 4LL}, 1, {{{2, 3}}}});
    for (std::size_t i = 0; i < table.features.size(); ++i)
        table.features[i].cells[0] = std::to_wstring(i);
    table.missing_features = 2'000'000'000;
    vx_test::memory_driver const driver(L"memory:", table);
    attr_data const data(vx_attr_data_create(L"*memory:a"));
    ASSERT_TRUE(vx_attr_data_open(data.get()));
    rlimit before{};
    getrlimit(RLIMIT_AS, &before);
    std::ifstream statm("/proc/self/statm");
    rlim_t pages = 0;
    statm >> pages;
#if !defined(__SANITIZE_ADDRESS__) // which takes its shadow memory out of the address space
    rlimit const limit{pages * 4096 + (rlim_t{512} << 20), before.rlim_max};
    setrlimit(RLIMIT_AS, &limit);
#endif
    attr_files const files(vx_attr_files_open(data.get(), 1, 0));
    bool ok = false;
    for (unsigned field = 0; field < 4; ++field) {
        EXPECT_NE(vx_attr_files_get_wstr(files.get(), field, 4999, &ok), nullptr);
        EXPECT_TRUE(ok) << field;
    }
    shape_files const shapes(vx_shape_files_open(data.get()));
    EXPECT_TRUE(vx_shape_files_is_damaged(shapes.get()));
    EXPECT_GE(vx_shape_files_get_count(shapes.get()), 5000U);
    setrlimit(RLIMIT_AS, &before);
}
