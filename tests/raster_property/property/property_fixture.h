#pragma once

#include "data/property_import/property_import.h"
#include "raster_property/property/tos_2crd_lr2d_edit.h"
#include "raster_property/property/tos_grid_1d_lr2d_edit.h"
#include "raster_property/property/tos_grid_lr2d_edit.h"
#include "raster_property/property/tos_slice_lr2d_edit.h"
#include "support/temp_dir.h"
#include "tests/layer_edit/shape/shape_fixture.h"

#include "platform/base/text_codec.h"
#include "platform/data/vx_file_tos4.h"
#include "platform/layers/vx_tos_lr2d.h"
#include "platform/render/vx_bmp_dc.h"
#include "platform/render/vx_render_layer.h"

#include <memory>

/// The editor's window over a layer of property files made of the example rasters.
class property_fixture : public shape_fixture
{
public:
    /// Files that the tests share: none writes more than statistics into them.
    struct files
    {
        vx_test::temp_dir folder;
        std::wstring heights; ///< 111 by 111 cells of an elevation model
        std::wstring bands;   ///< 349 by 352 cells with six bands
        std::wstring slices;  ///< the first five bands one above the other
        std::wstring curve;   ///< the 56th row of the elevation model, of which "half" is the half
        std::wstring points;  ///< each 37th cell of the bands, with X, Y and a band

        files()
        {
            heights = name("heights.tos4");
            bands = name("bands.tos4");
            import(L"olinda_dem_utm25s.tif", heights);
            import(L"L7_ETMs.tif", bands);
            make_others();
        }

    private:
        [[nodiscard]] std::wstring name(char const *file) const
        {
            return vx::text::utf8_to_wide((folder / file).string());
        }
        static void import(wchar_t const *source, std::wstring const &target)
        {
            vx::data::property_import work;
            EXPECT_EQ(work.execute({std::wstring(L"" VX_EXAMPLE_DATA "/") + source}, target, {}),
                      vx::data::property_import::outcome::done);
        }
        void make_others()
        {
            Tvx_tos4_grid grid = grid_of(bands);
            auto const cells = grid.objects();
            grid.dimensions = 3;
            grid.count[2] = 5;
            slices = name("slices.tos4");
            std::vector<double> all;
            for (unsigned band = 0; band < 5; ++band)
                std::ranges::copy(values_of(bands, band), std::back_inserter(all));
            make(slices, grid, {{L"value", all}});
            Tvx_tos4_grid row;
            row.dimensions = 1;
            row.count[0] = 111;
            auto const model = values_of(heights, 0);
            std::vector<double> full(model.begin() + 55 * 111, model.begin() + 56 * 111), half;
            for (double const z : full)
                half.push_back(z / 2);
            curve = name("curve.tos4");
            make(curve, row, {{L"height", full}, {L"half", half}});
            std::vector<double> x, y, value;
            for (unsigned long long i = 0; i < cells; i += 37) {
                x.push_back(grid.origin[0] + grid.spacing[0] * static_cast<double>(i % grid.count[0]));
                y.push_back(grid.origin[1] + grid.spacing[1] * static_cast<double>(i / grid.count[0]));
                value.push_back(all[i]);
            }
            Tvx_tos4_grid set;
            set.count[0] = x.size();
            points = name("points.tos4");
            make(points, set, {{L"X", x}, {L"Y", y}, {L"value", value}});
        }
    };

protected:
    static files const &shared()
    {
        static std::unique_ptr<files> const all = [] {
            vx_bundles_load();
            return std::make_unique<files>();
        }();
        return *all;
    }

    [[nodiscard]] static Tvx_tos4_grid grid_of(std::wstring const &file)
    {
        Tvx_tos4_grid grid;
        vx::owned<Ivx_tos4_file, &vx_tos4_file_close> const opened(vx_tos4_file_open_w(file.c_str(), true));
        vx_tos4_get_grid(opened.get(), &grid);
        return grid;
    }
    [[nodiscard]] static std::vector<double> values_of(std::wstring const &file, unsigned prop)
    {
        vx::owned<Ivx_tos4_file, &vx_tos4_file_close> const opened(vx_tos4_file_open_w(file.c_str(), true));
        vx::owned<Ivx_tos4_prop, &vx_tos4_prop_close> const p(vx_tos4_prop_open(opened.get(), prop));
        std::vector<double> values(vx_tos4_get_object_count_64(opened.get()));
        EXPECT_EQ(vx_tos4_prop_get_values(p.get(), 0, values.size(), values.data()), values.size());
        return values;
    }
    static void make(std::wstring const &file, Tvx_tos4_grid const &grid,
                     std::vector<std::pair<std::wstring, std::vector<double>>> const &props)
    {
        vx::owned<Ivx_tos4_writer, &vx_tos4_writer_destroy> const writer(
            vx_tos4_writer_create_w(file.c_str(), &grid, L""));
        for (auto const &[name, values] : props)
            EXPECT_TRUE(vx_tos4_writer_add_prop_w(writer.get(), name.c_str(), L"") &&
                        vx_tos4_writer_append(writer.get(), values.data(), values.size()));
        EXPECT_TRUE(vx_tos4_writer_finish(writer.get()));
    }

    void open_file(std::wstring const &file)
    {
        layer.reset(vx_tos_lr2d_open(file.c_str(), nullptr));
        ASSERT_TRUE(layer);
        edit();
    }
    template <class Page>
    [[nodiscard]] Page *shown() const
    {
        return dialog_reader::find<Page>(record->get_form(), L"");
    }
    [[nodiscard]] TPageControl *tabs() const { return shown<TPageControl>(); }

    /// The host's layer, a pixel for each cell, the colours in the order of the cells.
    [[nodiscard]] std::vector<Tvx_color> picture(Tvx_color paper = vx_clr_init_rgb(255, 255, 255)) const
    {
        std::wstring name;
        vx_lr2d_get_wfilename(layer.get(), Tvx_std_wstring_adapter(name));
        Tvx_tos4_grid const grid = grid_of(name);
        Tvx_map_view view;
        EXPECT_TRUE(vx_tos_lr2d_get_extent(layer.get(), &view.world));
        view.width = static_cast<int>(grid.count[0]);
        view.height = static_cast<int>(grid.count[1]);
        std::vector<unsigned char> pixels;
        for (unsigned long long i = 0; i < grid.count[0] * grid.count[1]; ++i)
            pixels.insert(pixels.end(), {paper.b, paper.g, paper.r, 255});
        vx::owned<void, &vx_bmp_dc_destroy> const dc(vx_bmp_dc_create());
        vx_bmp_dc_set_pixels(dc.get(), pixels.data(), view.width, view.height, 4 * view.width);
        EXPECT_TRUE(vx_render_layer(layer.get(), view, dc.get()));
        std::vector<Tvx_color> colors;
        for (std::size_t i = 0; i < pixels.size(); i += 4)
            colors.push_back(vx_clr_init_rgb(pixels[i + 2], pixels[i + 1], pixels[i]));
        return colors;
    }
};
