#include "host/gallery/parameter_pictures.h"

#include "styles/preview/style_example.h"

#include "platform/base/owned.h"
#include "platform/styles/vxk_styles.h"
#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/canvas.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <system_error>

namespace {
constexpr int c_width = 78; ///< of a sample, in logical pixels
constexpr int c_height = 46;
constexpr int c_gap = 6;
constexpr int c_scale = 2;
constexpr int c_steps = 3;
constexpr Tvx_color c_ink = vx_clr_init_rgb(30, 90, 170);
constexpr Tvx_color c_other = vx_clr_init_rgb(200, 60, 40);
constexpr Tvx_color c_third = vx_clr_init_rgb(50, 140, 70);
constexpr Tvx_color c_guide = vx_clr_init_grey(190);
constexpr Tvx_color c_colors[c_steps] = {c_ink, c_other, c_third};

enum class geom
{
    point,
    line,
    area
};

/// Adds the layers of the sample number `step`, from 0.
using add_layers = void (*)(void *layers, int step);

struct picture
{
    char const *name;
    geom kind;
    add_layers add;
};

void *list_of(void *cpx_style)
{
    return vx_cpx_style_get_style_lrs_ptr(cpx_style);
}

void *add_figure(void *layers, int figure, double x, double y, Tvx_color color = c_ink)
{
    void *const l = vx_style_lrs_add_lr(layers, c_pnt_figr_style_lr);
    vx_pnt_figr_lr_set_lr_figure(l, figure);
    vx_pnt_figr_lr_set_size_x(l, x);
    vx_pnt_figr_lr_set_size_y(l, y);
    vx_pnt_figr_lr_set_color(l, color);
    return l;
}

/// The place of the point itself.
void add_cross(void *layers)
{
    vx_pnt_figr_lr_set_line_width(add_figure(layers, 6, 9, 9, c_guide), 0.25);
}

void *figure(void *layers)
{
    add_cross(layers);
    return add_figure(layers, 2, 4.5, 4.5);
}

void *symbol(void *layers)
{
    add_cross(layers);
    void *const l = vx_style_lrs_add_lr(layers, c_pnt_symb_style_lr);
    vx_pnt_symb_lr_set_symbol(l, L'R');
    vx_pnt_symb_lr_set_size(l, 6);
    vx_pnt_symb_lr_set_color(l, c_ink);
    return l;
}

void add_line(void *layers, double width, Tvx_color color)
{
    void *const l = vx_style_lrs_add_lr(layers, c_pln_line_style_lr);
    vx_pln_line_lr_set_width(l, width);
    vx_pln_line_lr_set_color(l, color);
}

/// Over the line itself.
void *stroke(void *layers)
{
    add_line(layers, 0.25, c_guide);
    void *const l = vx_style_lrs_add_lr(layers, c_pln_line_style_lr);
    vx_pln_line_lr_set_width(l, 0.6);
    vx_pln_line_lr_set_color(l, c_ink);
    return l;
}

void *tplt(void *layers, char const *text = "10")
{
    add_line(layers, 0.25, c_guide);
    void *const l = vx_style_lrs_add_lr(layers, c_pln_tplt_style_lr);
    vx_pln_tplt_lr_set_template(l, text);
    vx_pln_tplt_lr_set_width(l, 0.8);
    vx_pln_tplt_lr_set_dash(l, 2);
    vx_pln_tplt_lr_set_gap(l, 1.5);
    vx_pln_tplt_lr_set_color(l, c_ink);
    return l;
}

/// Of elements: a gap before each.
void element(void *layers, int step, char const *text)
{
    void *const l = tplt(layers, text);
    vx_pln_tplt_lr_set_gap(l, 1 + step);
    add_figure(list_of(vx_pln_tplt_lr_get_cpx_pnt_style_ptr(l)), 7, 2.2, 2.2, c_other);
}

void *white_fill(void *layers)
{
    void *const l = vx_style_lrs_add_lr(layers, c_pgn_fill_style_lr);
    vx_pgn_fill_lr_set_color(l, vx_clr_init_grey(255));
    return l;
}

void *add_hatch(void *layers, double delta, double angle, double width, Tvx_color color)
{
    void *const l = vx_style_lrs_add_lr(layers, c_pgn_htch_style_lr);
    vx_pgn_htch_lr_set_delta(l, delta);
    vx_pgn_htch_lr_set_angle(l, angle);
    add_line(list_of(vx_pgn_htch_lr_get_cpx_pln_style_ptr(l)), width, color);
    return l;
}

void *hatch(void *layers)
{
    white_fill(layers);
    return add_hatch(layers, 2, 45, 0.4, c_ink);
}

/// Over the net itself.
void *spots(void *layers)
{
    constexpr double c_net = 4;
    white_fill(layers);
    add_hatch(layers, c_net, 0, 0.2, c_guide);
    add_hatch(layers, c_net, 90, 0.2, c_guide);
    void *const l = vx_style_lrs_add_lr(layers, c_pgn_spot_style_lr);
    vx_pgn_spot_lr_set_dx(l, c_net);
    vx_pgn_spot_lr_set_dy(l, c_net);
    vx_pgn_spot_lr_set_x0(l, c_net / 2);
    vx_pgn_spot_lr_set_y0(l, c_net / 2);
    vx_pgn_spot_lr_set_point_size(l, 1.4);
    vx_pgn_spot_lr_set_point_clr(l, c_ink);
    add_figure(list_of(vx_pgn_spot_lr_get_cpx_pnt_style_ptr(l)), 7, 2, 2.6);
    return l;
}

void point_of_layers(void *cpx_point, int layers)
{
    add_figure(list_of(cpx_point), 0, 2.6, 2.6, c_ink);
    if (layers > 0)
        add_figure(list_of(cpx_point), 2, 1.4, 1.4, vx_clr_init_grey(255));
    if (layers > 1)
        add_figure(list_of(cpx_point), 0, 0.7, 0.7, c_other);
}

picture const c_pictures[] = {
    {"pnt_symb_symbol", geom::point,
     [](void *l, int step) { vx_pnt_symb_lr_set_symbol(symbol(l), static_cast<unsigned>(L"R@7"[step])); }},
    {"pnt_symb_color", geom::point,
     [](void *l, int step) { vx_pnt_symb_lr_set_color(symbol(l), c_colors[step]); }},
    {"pnt_symb_size", geom::point,
     [](void *l, int step) { vx_pnt_symb_lr_set_size(symbol(l), 4 + 3 * step); }},
    {"pnt_symb_dx", geom::point, [](void *l, int step) { vx_pnt_symb_lr_set_dx(symbol(l), 3 * step - 3); }},
    {"pnt_symb_dy", geom::point, [](void *l, int step) { vx_pnt_symb_lr_set_dy(symbol(l), 2 * step - 2); }},
    {"pnt_symb_angle", geom::point,
     [](void *l, int step) { vx_pnt_symb_lr_set_angle(symbol(l), 45 * step); }},

    {"pnt_figr_figure", geom::point,
     [](void *l, int step) {
         constexpr int c_figures[] = {2, 3, 7};
         vx_pnt_figr_lr_set_lr_figure(figure(l), c_figures[step]);
     }},
    {"pnt_figr_color", geom::point,
     [](void *l, int step) { vx_pnt_figr_lr_set_color(figure(l), c_colors[step]); }},
    {"pnt_figr_size_x", geom::point,
     [](void *l, int step) { vx_pnt_figr_lr_set_size_x(figure(l), 3 + 3 * step); }},
    {"pnt_figr_size_y", geom::point,
     [](void *l, int step) { vx_pnt_figr_lr_set_size_y(figure(l), 3 + 3 * step); }},
    {"pnt_figr_dx", geom::point, [](void *l, int step) { vx_pnt_figr_lr_set_dx(figure(l), 3 * step - 3); }},
    {"pnt_figr_dy", geom::point, [](void *l, int step) { vx_pnt_figr_lr_set_dy(figure(l), 2 * step - 2); }},
    {"pnt_figr_angle", geom::point,
     [](void *l, int step) { vx_pnt_figr_lr_set_angle(figure(l), 20 * step); }},
    {"pnt_figr_line_width", geom::point,
     [](void *l, int step) {
         void *const frame = figure(l);
         vx_pnt_figr_lr_set_lr_figure(frame, 3);
         vx_pnt_figr_lr_set_line_width(frame, 0.25 + 0.4 * step);
     }},

    {"pln_line_color", geom::line,
     [](void *l, int step) { vx_pln_line_lr_set_color(stroke(l), c_colors[step]); }},
    {"pln_line_width", geom::line,
     [](void *l, int step) { vx_pln_line_lr_set_width(stroke(l), 0.3 + 0.6 * step); }},
    {"pln_line_delta", geom::line,
     [](void *l, int step) { vx_pln_line_lr_set_delta(stroke(l), 1.2 * step - 1.2); }},

    {"pln_tplt_color", geom::line,
     [](void *l, int step) { vx_pln_tplt_lr_set_color(tplt(l), c_colors[step]); }},
    {"pln_tplt_width", geom::line,
     [](void *l, int step) { vx_pln_tplt_lr_set_width(tplt(l), 0.4 + 0.5 * step); }},
    {"pln_tplt_dash", geom::line, [](void *l, int step) { vx_pln_tplt_lr_set_dash(tplt(l), 1 + step); }},
    {"pln_tplt_gap", geom::line, [](void *l, int step) { vx_pln_tplt_lr_set_gap(tplt(l), 0.7 + step); }},
    {"pln_tplt_shift", geom::line, [](void *l, int step) { vx_pln_tplt_lr_set_shift(tplt(l), 1.2 * step); }},
    {"pln_tplt_delta", geom::line,
     [](void *l, int step) { vx_pln_tplt_lr_set_delta(tplt(l), 1.2 * step - 1.2); }},
    {"pln_tplt_point_style", geom::line,
     [](void *l, int step) { point_of_layers(vx_pln_tplt_lr_get_cpx_pnt_style_ptr(tplt(l, "0040")), step); }},
    {"pln_tplt_template", geom::line,
     [](void *l, int step) {
         constexpr char const *c_texts[] = {"10", "1020", "110010"};
         (void)tplt(l, c_texts[step]);
     }},
    {"element_gap_dash", geom::line, [](void *l, int step) { element(l, step, "10"); }},
    {"element_dash90", geom::line, [](void *l, int step) { element(l, step, "03"); }},
    {"element_point", geom::line, [](void *l, int step) { element(l, step, "02"); }},
    {"element_symbol", geom::line, [](void *l, int step) { element(l, step + 1, "04"); }},
    {"element_dash45", geom::line, [](void *l, int step) { element(l, step, "05"); }},
    {"element_dash135", geom::line, [](void *l, int step) { element(l, step, "06"); }},

    {"pgn_fill_color", geom::area,
     [](void *l, int step) { vx_pgn_fill_lr_set_color(white_fill(l), c_colors[step]); }},

    {"pgn_htch_delta", geom::area, [](void *l, int step) { vx_pgn_htch_lr_set_delta(hatch(l), 1.2 + step); }},
    {"pgn_htch_angle", geom::area, [](void *l, int step) { vx_pgn_htch_lr_set_angle(hatch(l), 30 * step); }},
    {"pgn_htch_shift", geom::area,
     [](void *l, int step) {
         white_fill(l);
         add_hatch(l, 3, 45, 0.2, c_guide);
         vx_pgn_htch_lr_set_shift(add_hatch(l, 3, 45, 0.6, c_ink), step);
     }},
    {"pgn_htch_line_style", geom::area,
     [](void *l, int step) {
         void *const h = hatch(l);
         void *const lines = list_of(vx_pgn_htch_lr_get_cpx_pln_style_ptr(h));
         vx_pgn_htch_lr_set_delta(h, 3);
         if (step == 0)
             return;
         vx_style_lrs_del_lr(lines, 0);
         void *const dashes = vx_style_lrs_add_lr(lines, c_pln_tplt_style_lr);
         vx_pln_tplt_lr_set_template(dashes, step == 1 ? "10" : "10400");
         vx_pln_tplt_lr_set_color(dashes, c_ink);
         vx_pln_tplt_lr_set_width(dashes, 0.4);
         add_figure(list_of(vx_pln_tplt_lr_get_cpx_pnt_style_ptr(dashes)), 0, 1.2, 1.2, c_other);
     }},

    {"pgn_spot_type", geom::area, [](void *l, int step) { vx_pgn_spot_lr_set_spot_type(spots(l), step); }},
    {"pgn_spot_dx", geom::area, [](void *l, int step) { vx_pgn_spot_lr_set_dx(spots(l), 2 + 2 * step); }},
    {"pgn_spot_dy", geom::area, [](void *l, int step) { vx_pgn_spot_lr_set_dy(spots(l), 2 + 2 * step); }},
    {"pgn_spot_x0", geom::area, [](void *l, int step) { vx_pgn_spot_lr_set_x0(spots(l), step); }},
    {"pgn_spot_y0", geom::area, [](void *l, int step) { vx_pgn_spot_lr_set_y0(spots(l), step); }},
    {"pgn_spot_use_cpx_pnt", geom::area,
     [](void *l, int step) { vx_pgn_spot_lr_set_use_cpx_pnt(spots(l), step > 0); }},
    {"pgn_spot_point_clr", geom::area,
     [](void *l, int step) { vx_pgn_spot_lr_set_point_clr(spots(l), c_colors[step]); }},
    {"pgn_spot_point_size", geom::area,
     [](void *l, int step) { vx_pgn_spot_lr_set_point_size(spots(l), 0.8 + step); }},
    {"pgn_spot_point_style", geom::area,
     [](void *l, int step) {
         void *const s = spots(l);
         vx_pgn_spot_lr_set_use_cpx_pnt(s, true);
         void *const nested = vx_pgn_spot_lr_get_cpx_pnt_style_ptr(s);
         vx_style_lrs_del_lr(list_of(nested), 0);
         point_of_layers(nested, step);
     }},
    {"pgn_spot_random_x", geom::area,
     [](void *l, int step) { vx_pgn_spot_lr_set_random_x(spots(l), step > 0); }},
    {"pgn_spot_random_y", geom::area,
     [](void *l, int step) { vx_pgn_spot_lr_set_random_y(spots(l), step > 0); }},
    {"pgn_spot_random_angle", geom::area,
     [](void *l, int step) {
         void *const s = spots(l);
         vx_pgn_spot_lr_set_use_cpx_pnt(s, true);
         vx_pgn_spot_lr_set_random_angle(s, step > 0);
     }},
};

/// Two samples for what is on or off.
int samples_of(picture const &p)
{
    std::string const name = p.name;
    bool const is_choice =
        name == "pgn_spot_type" || name == "pgn_spot_use_cpx_pnt" || name.rfind("pgn_spot_random_", 0) == 0;
    return is_choice ? 2 : c_steps;
}

void draw(picture const &p, int step, TBitmap &bitmap)
{
    vx_style_example_bmp_set_size(&bitmap, c_width, c_height, c_scale);
    bitmap.SetTransparentColor(clWhite);
    if (p.kind == geom::point) {
        vx::owned<void, &vx_pnt_style_destroy> const style(vx_pnt_style_create());
        void *const base = vx_pnt_style_get_bpnt_style_ptr(style.get());
        vx_bpnt_style_set_use_complex(base, true);
        p.add(list_of(vx_bpnt_style_get_complex_style(base)), step);
        vx_pnt_style_example_bmp(style.get(), &bitmap);
    } else if (p.kind == geom::line) {
        vx::owned<void, &vx_pln_style_destroy> const style(vx_pln_style_create());
        void *const base = vx_pln_style_get_bpln_style_ptr(style.get());
        vx_bpln_style_set_use_complex(base, true);
        p.add(list_of(vx_bpln_style_get_complex_style(base)), step);
        vx_pln_style_example_bmp(style.get(), &bitmap);
    } else {
        vx::owned<void, &vx_pgn_style_destroy> const style(vx_pgn_style_create());
        vx_pgn_style_set_pln_visible(style.get(), false);
        void *const base = vx_pgn_style_get_bpgn_style_ptr(style.get());
        vx_bpgn_style_set_use_complex(base, true);
        p.add(list_of(vx_bpgn_style_get_complex_style(base)), step);
        vx_pgn_style_example_bmp(style.get(), &bitmap);
    }
}
} // namespace

int write_parameter_pictures(std::filesystem::path const &directory)
{
    std::error_code ignored; // a directory that is not there shows when a picture is written
    std::filesystem::create_directories(directory, ignored);
    for (picture const &p : c_pictures) {
        int const count = samples_of(p);
        int const step = (c_width + c_gap) * c_scale;
        TBitmap strip(count * step - c_gap * c_scale, c_height * c_scale);
        for (int i = 0; i < count; ++i) {
            TBitmap sample;
            draw(p, i, sample);
            TRect const place = Bounds(i * step, 0, c_width * c_scale, c_height * c_scale);
            strip.GetCanvas()->StretchDraw(place, &sample);
            strip.GetCanvas()->GetBrush()->SetColor(clBtnFace);
            strip.GetCanvas()->FrameRect(place);
        }
        std::filesystem::path const file = directory / (std::string(p.name) + ".png");
        if (!strip.SaveToFile(file.wstring().c_str())) {
            std::fprintf(stderr, "%s cannot be written\n", file.c_str());
            return EXIT_FAILURE;
        }
    }
    return EXIT_SUCCESS;
}
