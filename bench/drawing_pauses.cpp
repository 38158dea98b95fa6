// How long a drawing that is to end goes on: the longest time of the processor between two questions whether
// to, inside one object of a million vertices, on a picture of 1600 by 1000 pixels. Objects from a coast to
// pure noise in every kind of style, first with the reading of them, then again. The least of some runs.
//
//     bench_drawing_pauses [part of a row's name [runs]]

#include "platform/base/owned.h"
#include "platform/basic/vx_bundle.h"
#include "platform/layers/vx_lr2d.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/render/vx_bmp_dc.h"
#include "platform/render/vx_map_view.h"
#include "platform/render/vx_render_layer.h"
#include "platform/styles/vxk_styles.h"

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {
using owned_layer = vx::owned<Ivx_layer, &vx_lr2d_destroy>;
using owned_dc = vx::owned<void, &vx_bmp_dc_destroy>;

constexpr int c_width = 1600;
constexpr int c_height = 1000;
constexpr int c_vertices = 1'000'000;
constexpr double c_bound_ms = 30;
int runs = 3;

double processor_ms()
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

// ---- objects, in pixels

struct object_case
{
    char const *name;
    std::function<Tvx_pnt_d2(int)> vertex;
};

std::vector<object_case> objects()
{
    auto const at_random = [](int i, unsigned salt, double size) {
        std::minstd_rand random(static_cast<unsigned>(i) * 2654435761U + salt);
        random.discard(3);
        return std::uniform_real_distribution<double>(0, size)(random);
    };
    auto const round = [](int i, double radius) {
        double const a = -2 * M_PI * i / c_vertices;
        return Tvx_pnt_d2{c_width / 2.0 + 1.5 * radius * std::cos(a), c_height / 2.0 + radius * std::sin(a)};
    };
    return {
        {"coast",
         [=](int i) {
             double radius = 320;
             for (int wave = 3; wave < 400'000; wave *= 3)
                 radius += 250.0 / std::pow(wave, 0.8) *
                           std::sin(2 * M_PI * wave * (double(i) / c_vertices) + wave);
             return round(i, radius);
         }},
        {"crowded coast", [=](int i) { return round(i, 430 + at_random(i, 1, 40)); }},
        {"comb",
         [=](int i) {
             return Tvx_pnt_d2{double(i) * c_width / c_vertices, i % 2 ? c_height - 10.0 : 10.0};
         }},
        {"far comb",
         [=](int i) {
             return Tvx_pnt_d2{double(i) * c_width / c_vertices, i % 2 ? 1e5 : -1e5};
         }},
        {"steps",
         [=](int i) {
             return Tvx_pnt_d2{double(i / 1000) * 1.6, (i % 1000) * (i / 1000 % 2 ? 1.0 : 0.999)};
         }},
        {"noise",
         [=](int i) {
             return Tvx_pnt_d2{at_random(i, 1, c_width), at_random(i, 7, c_height)};
         }},
    };
}

std::string file_of(object_case const &object, bool is_area)
{
    auto const folder = std::filesystem::path(VX_BINARY_DIR) / "bench_data";
    std::filesystem::create_directories(folder);
    auto const file =
        (folder / (std::string("pauses_") + object.name + (is_area ? "_area.shp" : "_line.shp"))).string();
    if (std::filesystem::exists(file))
        return file;
    std::unique_ptr<GDALDataset> const set(GetGDALDriverManager()
                                               ->GetDriverByName("ESRI Shapefile")
                                               ->Create(file.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    auto *const layer =
        set ? set->CreateLayer("map", nullptr, is_area ? wkbPolygon : wkbLineString) : nullptr;
    if (!layer)
        std::abort();
    OGRFieldDefn number("number", OFTInteger);
    (void)layer->CreateField(&number);
    auto const add = [&](OGRSimpleCurve &line) {
        line.setNumPoints(c_vertices);
        for (int i = 0; i < c_vertices; ++i) {
            Tvx_pnt_d2 const p = object.vertex(i);
            line.setPoint(i, p.x, c_height - p.y);
        }
    };
    OGRFeature feature(layer->GetLayerDefn());
    if (is_area) {
        auto ring = std::make_unique<OGRLinearRing>();
        add(*ring);
        ring->closeRings();
        OGRPolygon polygon;
        polygon.addRingDirectly(ring.release());
        feature.SetGeometry(&polygon);
    } else {
        OGRLineString line;
        add(line);
        feature.SetGeometry(&line);
    }
    if (layer->CreateFeature(&feature) != OGRERR_NONE)
        std::abort();
    return file;
}

// ---- styles

void *add_layer(void *complex, char const *key)
{
    return vx_style_lrs_add_lr(vx_cpx_style_get_style_lrs_ptr(complex), key);
}
void *complex_line(void *base, char const *key)
{
    vx_bpln_style_set_use_complex(base, true);
    return add_layer(vx_bpln_style_get_complex_style(base), key);
}
void *complex_area(void *style, char const *key)
{
    vx_pgn_style_set_pln_visible(style, false);
    void *const base = vx_pgn_style_get_bpgn_style_ptr(style);
    vx_bpgn_style_set_use_complex(base, true);
    return add_layer(vx_bpgn_style_get_complex_style(base), key);
}

struct style_case
{
    char const *name;
    bool is_area;
    std::function<void(void *style)> set;
};

std::vector<style_case> styles()
{
    auto const line_of = [](void *style) { return vx_pln_style_get_bpln_style_ptr(style); };
    return {
        {"thin line", false, [](void *) {}},
        {"wide clear line", false,
         [=](void *s) {
             vx_bpln_style_set_width(line_of(s), 3);
             vx_bpln_style_set_color(line_of(s), vx_clr_init_rgba(0, 60, 200, 110));
         }},
        {"dashes", false,
         [=](void *s) {
             void *const l = complex_line(line_of(s), "pln_cart_slr");
             double const dashes[] = {2, 1};
             vx_pln_cart_lr_set_width(l, 1);
             vx_pln_cart_lr_set_dashes(l, dashes, 2);
         }},
        {"template", false,
         [=](void *s) {
             void *const l = complex_line(line_of(s), "pln_tplt_slr");
             vx_pln_tplt_lr_set_template(l, "10120");
             vx_pln_tplt_lr_set_dash(l, 1.5);
             vx_pln_tplt_lr_set_gap(l, 1);
         }},
        {"moved line", false,
         [=](void *s) { vx_pln_line_lr_set_delta(complex_line(line_of(s), "pln_line_slr"), 1.5); }},
        {"symbols at vertices", false, [](void *s) { vx_pln_style_set_pnt_visible(s, true); }},
        {"plain area", true, [](void *s) { vx_pgn_style_set_pln_visible(s, false); }},
        {"area and outline", true, [](void *) {}},
        {"hatch", true, [](void *s) { vx_pgn_htch_lr_set_delta(complex_area(s, "pgn_htch_slr"), 1); }},
        {"spots", true, [](void *s) { (void)complex_area(s, "pgn_spot_slr"); }},
    };
}

// ---- measuring

class pauses
{
public:
    void begin()
    {
        f_longest = f_total = 0;
        f_count = 0;
        f_begun = f_last = processor_ms();
    }
    bool ask()
    {
        take();
        ++f_count;
        return false;
    }
    void end()
    {
        take();
        f_total = f_last - f_begun;
    }
    double f_longest = 0, f_total = 0;
    int f_count = 0;

private:
    void take()
    {
        double const now = processor_ms();
        f_longest = std::max(f_longest, now - f_last);
        f_last = now;
    }
    double f_begun = 0, f_last = 0;
};

void measure(object_case const &object, style_case const &style, double zoom, std::string const &name)
{
    std::string const file = file_of(object, style.is_area);
    std::wstring const source(file.begin(), file.end());
    double first = 1e9, again = 1e9, total = 0;
    for (int run = 0; run < runs; ++run) {
        owned_layer const layer(
            vx_shp_lr2d_create(style.is_area ? "shp_pgn_lr2d" : "shp_pln_lr2d", source.c_str()));
        void *const prm = vx_stl_mngr_get_simple_sp_ptr(vx_shp_lr2d_get_stl_mngr_ptr(layer.get()));
        style.set(style.is_area ? vx_stl_prm_get_pgn_style_ptr(prm, false)
                                : vx_stl_prm_get_pln_style_ptr(prm, false));
        owned_dc const dc(vx_bmp_dc_create());
        vx_bmp_dc_set_nxy(dc.get(), c_width, c_height);
        Tvx_map_view view;
        view.width = c_width;
        view.height = c_height;
        view.mm2px_x = view.mm2px_y = 4;
        double const w = c_width / zoom / 2, h = c_height / zoom / 2;
        double const x = zoom == 1 ? c_width / 2.0 : c_width / 2.0 + 600, y = c_height / 2.0;
        view.world.add(x - w, y - h);
        view.world.add(x + w, y + h);
        for (bool const is_first : {true, false}) {
            vx_bmp_dc_clear(dc.get(), vx_clr_init_rgb(255, 255, 255));
            pauses asked;
            asked.begin();
            if (!vx_render_layer(layer.get(), view, dc.get(), make_closure<&pauses::ask>(&asked)))
                std::abort();
            asked.end();
            (is_first ? first : again) = std::min(is_first ? first : again, asked.f_longest);
            total = asked.f_total;
        }
    }
    std::printf("%-44s first %6.1f  again %6.1f  of %8.0f ms  %s\n", name.c_str(), first, again, total,
                std::max(first, again) <= c_bound_ms ? "" : "above 30");
    std::fflush(stdout);
}
} // namespace

int main(int argc, char **argv)
{
    GDALAllRegister();
    vx_bundles_load();
    if (argc > 2)
        runs = std::max(1, std::atoi(argv[2]));
    for (object_case const &object : objects())
        for (style_case const &style : styles())
            for (double const zoom : {1.0, 20.0}) {
                auto const name = std::string(object.name) + ", " + style.name + (zoom > 1 ? ", zoomed" : "");
                if (argc < 2 || name.find(argv[1]) != std::string::npos)
                    measure(object, style, zoom, name);
            }
}
