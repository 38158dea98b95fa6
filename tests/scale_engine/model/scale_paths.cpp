#include "scale_engine/vxk_task.h"
#include "support/temp_dir.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_fault.h"
#include "platform/storage/vx_xml_data.h"
#include "platform/styles/vxk_styles.h"

#include <gtest/gtest.h>

namespace {
using namespace vx::task;
using owned_mngr = vx::owned<void, &vx_stl_mngr_destroy>;

std::wstring g_told;

class task_files : public testing::Test
{
protected:
    task_files()
        : f_mngr(vx_stl_mngr_create("pnt_style")), f_other(vx_stl_mngr_create("pnt_style")),
          f_before(vx_reason_set_handler([](wchar_t const *text) { g_told = text; }))
    {
        g_told.clear();
        vx_val_scale_set_size(vx_stl_mngr_get_val_scale_ptr(f_mngr.get()), 3);
        vx_rng_scale_set_size(vx_stl_mngr_get_rng_scale_ptr(f_mngr.get()), 4);
    }
    ~task_files() override { vx_reason_set_handler(f_before); }

    vx_test::temp_dir f_dir;
    owned_mngr f_mngr;
    owned_mngr f_other;

private:
    Tvx_reason_handler f_before;
};

TEST(scale_path, names)
{
    struct
    {
        wchar_t const *path;
        wchar_t const *field;
        wchar_t const *value;
    } const cases[] = {
        {L"C:\\maps\\roads.shp", L"TYPE", L"C:\\maps\\roads.TYPE._vl"},
        {L"/maps/a.b.shp", L"X", L"/maps/a.b.X._vl"},
        {L"roads.shp", L"TYPE", L"roads.TYPE._vl"},
        {L"roads.shp", L"A.B", L"roads.A.B._vl"},
        {L"roads", L"TYPE", L"roads._vl"},
        {L"roads", L"A.B", L"roads.A._vl"},
        {L"d.x/roads", L"TYPE", L"d.x/roads._vl"},
        {L".shp", L"X", L".shp._vl"},
        {L"*roads.shp", L"TYPE", L""},
        {L"", L"TYPE", L""},
        {L"roads.shp", L"", L""},
        {L"C:\\maps\\roads.shp", L"a/B", L"C:\\maps\\roads.a/B._vl"},
    };
    for (auto const &c : cases)
        EXPECT_EQ(c.value, scale_path::make_value(c.path, c.field));
    // Which path a source hands over.
    struct
    {
        wchar_t const *source;
        wchar_t const *value;
    } const sources[] = {
        {L"/maps/a.b.shp|layer=a.b", L"/maps/a.b.X._vl"},
        {L"/maps/roads.shp|geom_type=polyline&layer=roads", L"/maps/roads.X._vl"},
        {L"/maps/roads.csv|X_POSSIBLE_NAMES=a.b", L"/maps/roads.X._vl"},
        {L"/maps/q&a.shp", L"/maps/q&a.X._vl"},
        {L"/maps/q&a.shp|", L"/maps/q&a.X._vl"},
        {L"/maps/city.gpkg", L"/maps/city.X._vl"},
        {L"/maps/city.gpkg|layer=roads", L"/maps/city.gpkg.roads.X._vl"},
        {L"/maps/city.gpkg|layer=rivers", L"/maps/city.gpkg.rivers.X._vl"},
        {L"/maps/city.db|layer=roads", L"/maps/city.db.roads.X._vl"},
        {L"/maps/city.gpkg&layer=roads", L"/maps/city.gpkg.roads.X._vl"},
        {L"/maps/folder|layer=roads", L"/maps/folder.roads.X._vl"},
        {L"/maps/city.gpkg|layer=a.b", L"/maps/city.gpkg.a%2Eb.X._vl"},
        {L"/maps/city.gpkg|layer=../../up", L"/maps/city.gpkg.%2E%2E%2F%2E%2E%2Fup.X._vl"},
        {L"C:\\maps\\city.gpkg|layer=100%", L"C:\\maps\\city.gpkg.100%25.X._vl"},
        {L"*/maps/city.gpkg|layer=roads", L""},
        {L"PG:dbname=city|layer=public.roads", L""},
        {L"https://example.org/city.gpkg|layer=roads", L""},
        {L"/vsizip/city.zip/city.gpkg|layer=roads", L""},
    };
    for (auto const &c : sources)
        EXPECT_EQ(c.value, scale_path::make_value(scale_path::of_source(c.source), L"X")) << c.source;
    EXPECT_EQ(L"C:\\maps\\roads.TYPE._rg", scale_path::make_range(L"C:\\maps\\roads.shp", L"TYPE"));
    EXPECT_EQ(L"C:\\maps\\roads.TYPE._rl", scale_path::make_rule(L"C:\\maps\\roads.shp", L"TYPE"));
}

TEST_F(task_files, are_found_again_under_the_name_of_source_and_field)
{
    // The path rules of the system write "\".
    auto const source = f_dir.path().wstring() + L"\\nc.shp";
    EXPECT_FALSE(scale_save_load::load_value(source, L"NAME", f_other.get()));
    ASSERT_TRUE(detail::scale_save::save_value(source, L"NAME", f_mngr.get()));
    ASSERT_TRUE(detail::scale_save::save_range(source, L"AREA", f_mngr.get()));
    EXPECT_TRUE(std::filesystem::exists(f_dir / "nc.NAME._vl"));
    EXPECT_TRUE(std::filesystem::exists(f_dir / "nc.AREA._rg"));
    ASSERT_TRUE(scale_save_load::load_value(source, L"NAME", f_other.get()));
    ASSERT_TRUE(scale_save_load::load_range(source, L"AREA", f_other.get()));
    EXPECT_TRUE(vx_stl_mngr_equal(f_mngr.get(), f_other.get()));
    EXPECT_FALSE(scale_save_load::load_range(source, L"NAME", f_other.get()));
    EXPECT_FALSE(scale_save_load::load_rule(source, L"NAME", f_other.get()));
    std::filesystem::copy(f_dir / "nc.NAME._vl", f_dir / "nc.NAME._rl");
    EXPECT_FALSE(scale_save_load::load_rule(source, L"NAME", f_other.get())) << "a value scale";
    EXPECT_TRUE(vx_stl_mngr_equal(f_mngr.get(), f_other.get()));
    EXPECT_EQ(L"", g_told);
}

TEST_F(task_files, sources_without_a_file_name_are_passed_over)
{
    for (auto const &[path, field] : {std::pair{L"*nc.shp", L"NAME"}, {L"", L"NAME"}, {L"nc.shp", L""}}) {
        EXPECT_FALSE(detail::scale_save::save_value(path, field, f_mngr.get()));
        EXPECT_FALSE(detail::scale_save::save_range(path, field, f_mngr.get()));
        EXPECT_FALSE(scale_save_load::load_value(path, field, f_mngr.get()));
    }
    EXPECT_EQ(L"", g_told);
}

TEST_F(task_files, a_field_with_a_separator_is_refused_with_a_message)
{
    auto const source = f_dir.path().wstring() + L"/nc.shp";
    std::filesystem::create_directory(f_dir / "nc.");
    for (auto const *field : {L"/x", L"a\\b", L"/../../x"}) {
        g_told.clear();
        EXPECT_FALSE(detail::scale_save::save_value(source, field, f_mngr.get()));
        EXPECT_NE(std::wstring::npos, g_told.find(field));
        EXPECT_FALSE(detail::scale_save::save_range(source, field, f_mngr.get()));
    }
    EXPECT_EQ(1, f_dir.count());
}

TEST(scale_prm, takes_over_the_base_style_of_its_own_type)
{
    vx::owned<void, &vx_scale_prm_destroy> const prm(vx_scale_prm_create("pln_style"));
    vx::owned<void, &vx_pln_style_destroy> const line(vx_pln_style_create());
    vx::owned<void, &vx_pnt_style_destroy> const point(vx_pnt_style_create());
    vx_pln_style_set_end_visible(line.get(), true);
    detail::scale_prm::assign_pln_style(prm.get(), line.get());
    detail::scale_prm::assign_pnt_style(prm.get(), point.get());
    detail::scale_prm::assign_pln_style(nullptr, line.get());
    void *const stl = vx_scale_prm_get_stl_prm_ptr(prm.get());
    EXPECT_TRUE(vx_pln_style_equal(vx_stl_prm_get_pln_style_ptr(stl, false), line.get()));
    EXPECT_FALSE(vx_pln_style_get_end_visible(vx_stl_prm_get_pln_style_ptr(stl, true)));
}
} // namespace
