#include "support/memory_source.h"
#include "tests/platform/render/page.h"

#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_lr2d.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/render/vx_map_view.h"
#include "platform/render/vx_render_layer.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <random>

// A layer as a whole is drawn by ways that one geometry after the other is not: symbols from masks, outline
// and fill in one call, vertices that are left out.
namespace {
using namespace vx_test;
using owned_layer = vx::owned<Ivx_layer, &vx_lr2d_destroy>;

constexpr int c_side = 240;
constexpr Tvx_color c_clear_blue = vx_clr_init_rgba(0, 60, 200, 110);

void *add_layer(void *complex, char const *key)
{
    return vx_style_lrs_add_lr(vx_cpx_style_get_style_lrs_ptr(complex), key);
}

struct style_case
{
    char const *name;
    int geom_type;
    std::function<void(void *style)> set; ///< of a point, a line or an area, by the type of geometry
    /// What leaving vertices out may change in the mean, of 255, over the pixels that are drawn on.
    double most_change = 9;
    /// What drawing all at once may change in a pixel: thin lines are shaded by where they begin.
    int most_difference = 0;
};

void set_point(void *style, int figure, double size, Tvx_color color)
{
    void *const base = vx_pnt_style_get_bpnt_style_ptr(style);
    vx_bpnt_style_set_figure(base, figure);
    vx_bpnt_style_set_size(base, size);
    vx_bpnt_style_set_color(base, color);
}
void set_line(void *base, double width, Tvx_color color)
{
    vx_bpln_style_set_width(base, width);
    vx_bpln_style_set_color(base, color);
}
void set_area(void *style, Tvx_color fill, double width, Tvx_color rim)
{
    vx_bpgn_style_set_color(vx_pgn_style_get_bpgn_style_ptr(style), fill);
    set_line(vx_pgn_style_get_bpln_style_ptr(style), width, rim);
}
void *complex_line(void *base, char const *key)
{
    vx_bpln_style_set_use_complex(base, true);
    return add_layer(vx_bpln_style_get_complex_style(base), key);
}

std::vector<style_case> const &cases()
{
    static std::vector<style_case> const all{
        {"discs", 1, [](void *s) { set_point(s, 0, 1.8, c_red); }},
        {"clear squares", 1, [](void *s) { set_point(s, 2, 3, c_clear_blue); }},
        {"dots", 1, [](void *s) { set_point(s, 0, 0.1, c_red); }},
        {"large crosses", 1, [](void *s) { set_point(s, 5, 20, c_clear_blue); }},
        {"letters", 1,
         [](void *s) {
             void *const base = vx_pnt_style_get_bpnt_style_ptr(s);
             vx_bpnt_style_set_use_figure(base, false);
             vx_bpnt_style_set_symbol(base, 'R');
             vx_bpnt_style_set_size(base, 4);
         }},
        {"composed points", 1,
         [](void *s) {
             void *const base = vx_pnt_style_get_bpnt_style_ptr(s);
             vx_bpnt_style_set_use_complex(base, true);
             (void)add_layer(vx_bpnt_style_get_complex_style(base), "pnt_figr_slr");
         }},
        {"hair lines", 3, [](void *s) { set_line(vx_pln_style_get_bpln_style_ptr(s), 0.1, c_red); }, 12},
        {"clear wide lines", 3,
         [](void *s) { set_line(vx_pln_style_get_bpln_style_ptr(s), 2, c_clear_blue); }},
        {"dashed lines", 3,
         [](void *s) {
             void *const l = complex_line(vx_pln_style_get_bpln_style_ptr(s), "pln_tplt_slr");
             vx_pln_tplt_lr_set_template(l, "10120");
             vx_pln_tplt_lr_set_dash(l, 1.5);
             vx_pln_tplt_lr_set_gap(l, 1);
         },
         36},
        {"lines with symbols", 3,
         [](void *s) {
             void *const l = complex_line(vx_pln_style_get_bpln_style_ptr(s), "pln_tplt_slr");
             vx_pln_tplt_lr_set_template(l, "10400");
             vx_pln_tplt_lr_set_dash(l, 2);
             vx_pln_tplt_lr_set_gap(l, 1);
             (void)add_layer(vx_pln_tplt_lr_get_cpx_pnt_style_ptr(l), "pnt_figr_slr");
         },
         30},
        {"moved lines", 3,
         [](void *s) {
             vx_pln_line_lr_set_delta(complex_line(vx_pln_style_get_bpln_style_ptr(s), "pln_line_slr"), 1.5);
         },
         75},
        {"areas", 5, [](void *s) { set_area(s, c_red, 0.1, vx_clr_init_grey(40)); }},
        {"clear areas with wide rims", 5, [](void *s) { set_area(s, c_clear_blue, 1.2, c_clear_blue); }},
        {"areas with dashed rims", 5,
         [](void *s) {
             set_area(s, c_red, 0.1, c_red);
             void *const l = complex_line(vx_pgn_style_get_bpln_style_ptr(s), "pln_tplt_slr");
             vx_pln_tplt_lr_set_template(l, "10");
         },
         13},
        {"hatched areas", 5,
         [](void *s) {
             void *const base = vx_pgn_style_get_bpgn_style_ptr(s);
             vx_bpgn_style_set_use_complex(base, true);
             (void)add_layer(vx_bpgn_style_get_complex_style(base), "pgn_htch_slr");
         },
         9, 20},
        {"spotted areas", 5,
         [](void *s) {
             void *const base = vx_pgn_style_get_bpgn_style_ptr(s);
             vx_bpgn_style_set_use_complex(base, true);
             (void)add_layer(vx_bpgn_style_get_complex_style(base), "pgn_spot_slr");
         }},
    };
    return all;
}

/// Objects of every size, some beside the page, whose vertices are `step` pixels apart or more.
void fill_table(memory_table &table, int geom_type, double step, int count, unsigned seed)
{
    std::mt19937 random(seed);
    auto const in = [&](double low, double high) {
        return std::uniform_real_distribution(low, high)(random);
    };
    table.geom_type = geom_type;
    for (int i = 0; i < count; ++i) {
        Tvx_pnt_d2 const at{in(-20, c_side + 20), in(-20, c_side + 20)};
        memory_feature f{{}, geom_type, {}};
        int const parts = geom_type == 1 ? 1 : 1 + i % 3;
        for (int p = 0; p < parts; ++p) {
            std::vector<Tvx_pnt_d2> part;
            double const radius = step + std::exp(in(0, 4));
            int const vertices = geom_type == 1 ? 1 : 4 + static_cast<int>(random() % 12);
            for (int v = 0; v < vertices; ++v) {
                double const a = geom_type == 5 ? -2 * M_PI * v / vertices : in(0, 2 * M_PI);
                // Rings go round; lines go where they like.
                Tvx_pnt_d2 const next{at.x + p * 3 + radius * in(0.8, 1) * std::cos(a),
                                      at.y + radius * in(0.8, 1) * std::sin(a)};
                if (part.empty() || std::abs(next.x - part.back().x) > step ||
                    std::abs(next.y - part.back().y) > step)
                    part.push_back(next);
            }
            if (geom_type == 5 && i % 2)
                part.push_back(part.front());
            f.parts.push_back(part);
        }
        table.features.push_back(f);
    }
}

struct two_pictures
{
    int largest = 0; ///< difference of a channel
    double mean = 0;
    int ink = 0; ///< pixels that are not white
};

/// Draws the table both ways, `scale` pixels to the unit. The origin of the map, to which patterns are fixed,
/// is the upper left corner, where they begin without a map.
two_pictures compare(style_case const &with, memory_table table, int scale)
{
    Tvx_box_d2 const world = vx_box_d2_make_xy(0, -c_side, c_side, 0);
    for (memory_feature &f : table.features)
        for (auto &part : f.parts)
            for (Tvx_pnt_d2 &p : part)
                p.y -= c_side;
    memory_driver const driver(L"fast:", table);
    char const *const key = with.geom_type == 1   ? c_lr_key_shp_pnt
                            : with.geom_type == 3 ? c_lr_key_shp_pln
                                                  : c_lr_key_shp_pgn;
    owned_layer const layer(vx_shp_lr2d_create(key, L"fast:"));
    void *const prm = vx_stl_mngr_get_simple_sp_ptr(vx_shp_lr2d_get_stl_mngr_ptr(layer.get()));
    void *const style = with.geom_type == 1   ? vx_stl_prm_get_pnt_style_ptr(prm, false)
                        : with.geom_type == 3 ? vx_stl_prm_get_pln_style_ptr(prm, false)
                                              : vx_stl_prm_get_pgn_style_ptr(prm, false);
    with.set(style);
    int const side = c_side * scale;
    auto const page_of = [&] {
        vx::owned<void, &vx_bmp_dc_destroy> dc(vx_bmp_dc_create());
        vx_bmp_dc_set_nxy(dc.get(), side, side);
        vx_bmp_dc_clear(dc.get(), c_white);
        vx_bmp_dc_set_mm2pxl(dc.get(), page::box(c_side / 4.0), {0, 0, side, side});
        return dc;
    };
    auto const fast = page_of();
    Tvx_map_view const view{world, side, side, 4.0 * scale, 4.0 * scale};
    EXPECT_TRUE(vx_render_layer(layer.get(), view, fast.get()));
    auto const plain = page_of();
    vx::owned<void, &vx_render_destroy> const render(vx_render_create());
    vx_render_init(render.get(), world, plain.get());
    for (memory_feature const &f : table.features) {
        std::vector<std::vector<Tvx_vtx_d2>> parts;
        for (auto const &part : f.parts) {
            parts.emplace_back();
            for (Tvx_pnt_d2 const &p : part)
                parts.back().push_back({p.x, p.y});
            if (with.geom_type == 5 && parts.back().front() != parts.back().back())
                parts.back().push_back(parts.back().front());
        }
        geometry const g(parts);
        if (with.geom_type == 1)
            vx_render_cr_bpnt(render.get(), g.list.get(), vx_pnt_style_get_bpnt_style_ptr(style));
        if (with.geom_type == 3)
            vx_render_cr_bpln(render.get(), g.list.get(), vx_pln_style_get_bpln_style_ptr(style));
        if (with.geom_type == 5) {
            vx_render_cr_bpgn(render.get(), g.list.get(), vx_pgn_style_get_bpgn_style_ptr(style));
            vx_render_cr_bpln(render.get(), g.list.get(), vx_pgn_style_get_bpln_style_ptr(style));
        }
    }
    two_pictures result;
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x) {
            Tvx_color const a = vx_bmp_dc_get_pixel(fast.get(), x, y);
            Tvx_color const b = vx_bmp_dc_get_pixel(plain.get(), x, y);
            int const by = std::max({std::abs(a.r - b.r), std::abs(a.g - b.g), std::abs(a.b - b.b)});
            result.largest = std::max(result.largest, by);
            result.mean += by;
            result.ink += b != c_white;
        }
    result.mean /= std::max(1, result.ink);
    return result;
}

TEST(fast_drawing, gives_the_pixels_of_one_geometry_after_the_other)
{
    for (style_case const &with : cases())
        for (int const scale : {1, 2}) {
            SCOPED_TRACE(std::string(with.name) + " at " + std::to_string(scale));
            memory_table table;
            fill_table(table, with.geom_type, 1, 150, 11);
            two_pictures const seen = compare(with, table, scale);
            EXPECT_GT(seen.ink, 100);
            // A mask is mixed with its colour in another order than a path is filled.
            EXPECT_LE(seen.largest, with.geom_type == 1 ? 3 : with.most_difference);
        }
}

TEST(fast_drawing, one_line_in_several_layers_is_drawn_as_ever)
{
    style_case const cased{"cased lines", 3, [](void *s) {
                               void *const base = vx_pln_style_get_bpln_style_ptr(s);
                               void *const casing = complex_line(base, "pln_line_slr");
                               vx_pln_line_lr_set_width(casing, 2.5);
                               vx_pln_line_lr_set_color(casing, c_clear_blue);
                               void *const dashes = complex_line(base, "pln_tplt_slr");
                               vx_pln_tplt_lr_set_template(dashes, "120");
                               vx_pln_tplt_lr_set_width(dashes, 1.5);
                               void *const beside = complex_line(base, "pln_line_slr");
                               vx_pln_line_lr_set_delta(beside, 1);
                               vx_pln_line_lr_set_color(beside, c_red);
                           }};
    for (unsigned seed = 1; seed < 8; ++seed) {
        SCOPED_TRACE(seed);
        memory_table table;
        fill_table(table, 3, 1, 1, seed);
        EXPECT_EQ(compare(cased, table, 2).largest, 0);
    }
}

TEST(fast_drawing, changes_little_where_vertices_are_left_out)
{
    // Rings and lines with vertices every tenth of a pixel or so, most of which are left out.
    for (int const geom_type : {3, 5}) {
        SCOPED_TRACE(geom_type);
        std::mt19937 random(5);
        auto const in = [&](double low, double high) {
            return std::uniform_real_distribution(low, high)(random);
        };
        memory_table table;
        table.geom_type = geom_type;
        for (int i = 0; i < 60; ++i) {
            Tvx_pnt_d2 const at{in(0, c_side), in(0, c_side)};
            double const radius = std::exp(in(0, 3.5));
            std::vector<Tvx_pnt_d2> part;
            int const vertices = static_cast<int>(2 * M_PI * radius / 0.1);
            for (int v = 0; v <= vertices; ++v) {
                double const a = 2 * M_PI * v / vertices;
                double const r = radius * (1 + 0.1 * std::sin(7 * a)) + in(0, 0.05);
                part.push_back({at.x + r * std::cos(a), at.y + r * std::sin(a)});
            }
            table.features.push_back({{}, geom_type, {part}});
        }
        for (style_case const &with : cases())
            for (int const scale : {1, 2}) {
                if (with.geom_type != geom_type)
                    continue;
                two_pictures const seen = compare(with, table, scale);
                EXPECT_LE(seen.mean, with.most_change) << with.name << " at " << scale;
                // Dashes and symbols lie elsewhere along a line that is shorter; a line that is moved has
                // none of the spikes of its smallest corners.
                if (with.most_change <= 12) {
                    EXPECT_LE(seen.largest, 140) << with.name << " at " << scale;
                }
            }
    }
}
/// An area that the painter would take long for is painted in pieces; its pixels are the painter's.
TEST(fast_drawing, paints_large_areas_as_the_painter_does)
{
    constexpr int c_vertices = 1500;
    for (int const scale : {1, 2})
        for (Tvx_color const color : {c_red, c_clear_blue})
            for (bool const is_beside : {false, true}) {
                SCOPED_TRACE(std::to_string(scale) + (color.a == 255 ? " opaque" : " clear"));
                std::mt19937 random(3);
                std::uniform_real_distribution radius(0.0, 40.0);
                std::vector<Tvx_pnt_d2> ring;
                for (int i = 0; i < c_vertices; ++i) {
                    double const a = -14 * M_PI * i / c_vertices;
                    double const r = (i % 2 ? 20 : 70) + radius(random);
                    ring.push_back({(is_beside ? 200 : 120) + r * std::cos(a), 120 + r * std::sin(a)});
                }
                int const side = c_side * scale;
                Tvx_map_view const view{page::box(c_side), side, side, 4.0 * scale, 4.0 * scale};
                QImage expected(side, side, QImage::Format_ARGB32_Premultiplied);
                expected.fill(Qt::white);
                QPainterPath path;
                for (Tvx_pnt_d2 const &p : ring) {
                    QPointF const at(view.world_to_px_x(p.x), view.world_to_px_y(p.y));
                    path.elementCount() ? path.lineTo(at) : path.moveTo(at);
                }
                path.closeSubpath();
                QPainter painter(&expected);
                painter.setRenderHint(QPainter::Antialiasing);
                painter.fillPath(path, QColor(color.r, color.g, color.b, color.a));
                painter.end();

                memory_table table;
                table.geom_type = 5;
                table.features = {{{}, 5, {ring}}};
                memory_driver const driver(L"fast:", table);
                owned_layer const layer(vx_shp_lr2d_create(c_lr_key_shp_pgn, L"fast:"));
                void *const style = vx_stl_prm_get_pgn_style_ptr(
                    vx_stl_mngr_get_simple_sp_ptr(vx_shp_lr2d_get_stl_mngr_ptr(layer.get())), false);
                vx_pgn_style_set_pln_visible(style, false);
                vx_bpgn_style_set_color(vx_pgn_style_get_bpgn_style_ptr(style), color);
                vx::owned<void, &vx_bmp_dc_destroy> const dc(vx_bmp_dc_create());
                vx_bmp_dc_set_nxy(dc.get(), side, side);
                vx_bmp_dc_clear(dc.get(), c_white);
                ASSERT_TRUE(vx_render_layer(layer.get(), view, dc.get()));
                int largest = 0;
                for (int y = 0; y < side; ++y)
                    for (int x = 0; x < side; ++x) {
                        Tvx_color const seen = vx_bmp_dc_get_pixel(dc.get(), x, y);
                        QRgb const wanted = expected.pixel(x, y);
                        largest =
                            std::max({largest, std::abs(seen.r - qRed(wanted)),
                                      std::abs(seen.g - qGreen(wanted)), std::abs(seen.b - qBlue(wanted))});
                    }
                // What lies beside the page is cut off, which moves an edge by the rounding of its new end.
                EXPECT_LE(largest, is_beside ? 8 : 0);
            }
}
} // namespace
