#pragma once

#include "support/memory_source.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/data/vx_attr_data.h"
#include "platform/data/vx_shape_files.h"
#include "platform/data/vx_tld_data.h"
#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_lr2d.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/layers/vx_tld_lr2d.h"
#include "platform/render/vx_bmp_dc.h"
#include "platform/render/vx_labels.h"

#include <array>
#include <cmath>
#include <string>
#include <vector>

/// A map whose labels are placed and looked at.
namespace vx_test {
using quad = std::array<Tvx_pnt_d2, 4>;
struct drawn_label
{
    std::wstring text;
    Tvx_label_view view;
    std::vector<quad> quads; ///< in pixels of the view
    /// The middle of its box, in map units.
    Tvx_pnt_d2 place;
};

/// Whether two rectangles share more than a border, by their corners alone.
inline bool quads_overlap(quad const &a, quad const &b)
{
    for (quad const &q : {a, b})
        for (int i = 0; i < 2; ++i) {
            Tvx_pnt_d2 const axis{q[i + 1].x - q[i].x, q[i + 1].y - q[i].y};
            double low[2] = {1e300, 1e300};
            double high[2] = {-1e300, -1e300};
            for (int k = 0; k < 2; ++k)
                for (Tvx_pnt_d2 const p : k == 0 ? a : b) {
                    double const at = p.x * axis.x + p.y * axis.y;
                    low[k] = std::min(low[k], at);
                    high[k] = std::max(high[k], at);
                }
            double const slack = 1e-6 * (axis.x * axis.x + axis.y * axis.y);
            if (high[0] <= low[1] + slack || high[1] <= low[0] + slack)
                return false;
        }
    return true;
}

struct label_page
{
    using layer_ptr = vx::owned<Ivx_layer, &vx_lr2d_destroy>;

    std::vector<layer_ptr> layers; ///< from the top
    vx::owned<Ivx_labels, &vx_labels_destroy> labels{vx_labels_create()};
    Tvx_map_view view;
    long long revision = 0;
    double scale = 0;

    /// A layer whose own text layer writes the property; the class is given back.
    void *add(Ivx_layer *layer, wchar_t const *property)
    {
        layers.emplace_back(layer);
        Ivx_layer *const text = vx_shp_lr2d_get_text_layer_ptr(layer);
        vx_lr2d_set_visible(text, true);
        void *const label = vx_dtld_lr2d_get_text_class(text);
        vx_textlr_info_set_property(label, 0, property);
        return label;
    }
    void *add(std::string const &file, wchar_t const *property)
    {
        auto const path = VX_EXAMPLE_DATA "/" + file;
        return add(vx_shp_lr2d_open(std::wstring(path.begin(), path.end()).c_str(), nullptr), property);
    }
    void show(Tvx_box_d2 const &box, int width, int height)
    {
        view = vx_map_view_fit(box, width, height);
        view.mm2px_x = view.mm2px_y = 4;
    }
    void show_all(int width = 900, int height = 600)
    {
        Tvx_box_d2 all;
        for (auto const &layer : layers)
            if (Tvx_box_d2 box; vx_attr_data_get_extent(vx_shp_lr2d_get_attr_data_ptr(layer.get()), &box))
                all.add(box);
        show(all, width, height);
    }
    /// Moves the map by so many pixels.
    void pan(double dx, double dy)
    {
        double const x = dx * view.world.width() / view.width;
        double const y = dy * view.world.height() / view.height;
        view.world = {view.world.min_x - x, view.world.min_y + y, view.world.max_x - x, view.world.max_y + y};
    }
    bool place(closure<bool()> cancelled = {})
    {
        std::vector<Tvx_labelled_layer> all;
        for (auto const &layer : layers)
            all.push_back({layer.get(), revision});
        return vx_labels_place(labels.get(), all.data(), unsigned(all.size()), view, scale, cancelled);
    }
    /// The labels of the map as it is now.
    std::vector<drawn_label> drawn()
    {
        ++revision;
        return seen();
    }
    /// The same, where nothing has changed but the view.
    std::vector<drawn_label> seen()
    {
        std::vector<drawn_label> all;
        if (!place())
            return all;
        for (unsigned i = 0; i < vx_labels_get_count(labels.get(), view); ++i) {
            drawn_label &label = all.emplace_back();
            vx_labels_get_text(labels.get(), view, i, Tvx_std_wstring_adapter(label.text));
            EXPECT_TRUE(vx_labels_get(labels.get(), view, i, &label.view));
            for (unsigned k = 0; k < label.view.quad_count; ++k)
                EXPECT_TRUE(vx_labels_get_quad(labels.get(), view, i, k, label.quads.emplace_back().data()));
            Tvx_box_d2 const &box = label.view.box;
            label.place = {view.px_to_world_x((box.min_x + box.max_x) / 2),
                           view.px_to_world_y((box.min_y + box.max_y) / 2)};
        }
        return all;
    }
    /// The page with the labels on white.
    vx::owned<void, &vx_bmp_dc_destroy> picture()
    {
        vx::owned<void, &vx_bmp_dc_destroy> dc(vx_bmp_dc_create());
        vx_bmp_dc_set_nxy(dc.get(), view.width, view.height);
        vx_bmp_dc_clear(dc.get(), vx_clr_init_rgb(255, 255, 255));
        ++revision;
        EXPECT_TRUE(place() && vx_labels_draw(labels.get(), view, dc.get()));
        return dc;
    }
};

/// Pixels of a colour.
inline int count_pixels(void *dc, Tvx_color color)
{
    int count = 0;
    for (int y = 0; y < vx_bmp_dc_get_height(dc); ++y)
        for (int x = 0; x < vx_bmp_dc_get_width(dc); ++x)
            count += vx_bmp_dc_get_pixel(dc, x, y) == color;
    return count;
}
} // namespace vx_test
