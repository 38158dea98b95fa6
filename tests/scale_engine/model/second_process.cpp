#include "scale_engine/model/scale_save_load.h"
#include "support/temp_dir.h"

#include "platform/base/owned.h"
#include "platform/data/vx_attr_data.h"
#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_lr2d.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/render/vx_bmp_dc.h"
#include "platform/render/vx_map_view.h"
#include "platform/render/vx_render_layer.h"
#include "platform/styles/vxk_styles.h"

#include <gtest/gtest.h>
#include <set>
#include <sys/wait.h>
#include <unistd.h>

namespace {
using namespace vx::task;
using owned_layer = vx::owned<Ivx_layer, &vx_lr2d_destroy>;

constexpr int c_width = 400;
constexpr int c_height = 150;

/// The counties of the example data in a folder of their own, as one layer.
struct counties
{
    std::wstring source;
    owned_layer layer;

    explicit counties(std::filesystem::path const &folder)
        : source((folder / "nc.shp").wstring()), layer(vx_shp_lr2d_create(c_lr_key_shp_pgn, source.c_str()))
    {
    }
    [[nodiscard]] void *mngr() const { return vx_shp_pgn_lr2d_get_stl_mngr_ptr(layer.get()); }

    /// The pixels of a map of the layer.
    [[nodiscard]] std::string picture() const
    {
        Tvx_map_view view;
        view.width = c_width;
        view.height = c_height;
        view.world.add(-84.4, 33.8);
        view.world.add(-75.4, 36.6);
        vx::owned<void, &vx_bmp_dc_destroy> const dc(vx_bmp_dc_create());
        vx_bmp_dc_set_nxy(dc.get(), c_width, c_height);
        vx_bmp_dc_clear(dc.get(), vx_clr_init_grey(255));
        if (!vx_render_layer(layer.get(), view, dc.get()))
            return {};
        std::string bytes;
        for (int y = 0; y < c_height; ++y)
            for (int x = 0; x < c_width; ++x) {
                Tvx_color const c = vx_bmp_dc_get_pixel(dc.get(), x, y);
                bytes += {static_cast<char>(c.r), static_cast<char>(c.g), static_cast<char>(c.b)};
            }
        return bytes;
    }

    void classify() const
    {
        vx_stl_mngr_set_mode(mngr(), c_stl_mngr_mode_value);
        vx_stl_mngr_set_val_prop_name_w(mngr(), L"NAME");
        void *const scale = vx_stl_mngr_get_val_scale_ptr(mngr());
        wchar_t const *const names[] = {L"Wake", L"Dare", L"Hyde", L"Ashe", L"Robeson"};
        for (wchar_t const *name : names) {
            unsigned const i = vx_val_scale_add(scale) - 1;
            vx_val_scale_set_text_w(scale, i, name);
            vx_stl_prm_set_color(vx_scale_prm_get_stl_prm_ptr(vx_val_scale_get_scale_prm_ptr(scale, i)),
                                 false, vx_clr_init_rgb(static_cast<int>(i) * 40, 0, 200));
        }
    }
};

TEST(second_process, finds_the_scale_beside_the_layers_file_and_draws_by_it)
{
    vx_test::temp_dir const dir;
    for (auto const *suffix : {"shp", "shx", "dbf", "prj"})
        std::filesystem::copy(std::string(VX_EXAMPLE_DATA "/nc.") + suffix, dir.path());
    pid_t const first = fork();
    if (first == 0) {
        counties const map(dir.path());
        map.classify();
        bool const saved = detail::scale_save::save_value(map.source, L"NAME", map.mngr());
        vx_test::write_file(dir / "picture", map.picture());
        _exit(saved ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(first, waitpid(first, &status, 0));
    ASSERT_EQ(0, status);
    ASSERT_TRUE(std::filesystem::exists(dir / "nc.NAME._vl"));

    counties const map(dir.path());
    auto const plain = map.picture();
    vx_stl_mngr_set_mode(map.mngr(), c_stl_mngr_mode_value);
    vx_stl_mngr_set_val_prop_name_w(map.mngr(), L"NAME");
    ASSERT_TRUE(scale_save_load::load_value(map.source, L"NAME", map.mngr()));
    auto const drawn = map.picture();
    EXPECT_EQ(std::size_t{3} * c_width * c_height, drawn.size());
    EXPECT_TRUE(drawn == vx_test::read_file(dir / "picture"));
    EXPECT_FALSE(drawn == plain);
    std::set<std::string> colors;
    for (std::size_t i = 0; i < drawn.size(); i += 3)
        colors.insert(drawn.substr(i, 3));
    for (int i = 0; i < 5; ++i)
        EXPECT_TRUE(colors.contains({static_cast<char>(i * 40), 0, static_cast<char>(200)})) << i;
}
} // namespace
