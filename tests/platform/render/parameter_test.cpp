#include "tests/platform/render/page.h"

#include <cmath>
#include <complex>
#include <gtest/gtest.h>
#include <numbers>
#include <numeric>
#include <string>

// Each parameter of each layer of a complex style changes the picture in the direction and by the measure
// that it says.

namespace {
using namespace vx_test;

constexpr int c_side_mm = 50;

/// A picture of one style layer, with measures in millimetres from its middle, y up.
class picture
{
public:
    picture(page const &p, double px_per_mm)
        : f_side(p.side), f_k(px_per_mm), f_ink(std::size_t(p.side * p.side)), f_columns(std::size_t(p.side)),
          f_rows(std::size_t(p.side))
    {
        for (int y = 0; y < f_side; ++y)
            for (int x = 0; x < f_side; ++x) {
                Tvx_color const c = vx_bmp_dc_get_pixel(p.dc.get(), x, y);
                double const ink = (255 - c.g) / 255.0;
                f_ink[std::size_t(y * f_side + x)] = ink;
                f_columns[std::size_t(x)] += ink;
                f_rows[std::size_t(y)] += ink;
                if (c.g < f_darkest.g)
                    f_darkest = c;
            }
    }

    [[nodiscard]] double ink(int x, int y) const { return f_ink[std::size_t(y * f_side + x)]; }
    [[nodiscard]] int side() const { return f_side; }
    [[nodiscard]] double k() const { return f_k; }
    [[nodiscard]] Tvx_color darkest() const { return f_darkest; }

    /// Square millimetres.
    [[nodiscard]] double area() const
    {
        return std::accumulate(f_rows.begin(), f_rows.end(), 0.0) / (f_k * f_k);
    }
    [[nodiscard]] double middle_x() const { return middle(f_columns, 1); }
    [[nodiscard]] double middle_y() const { return middle(f_rows, -1); }
    [[nodiscard]] double width() const { return extent(true); }
    [[nodiscard]] double height() const { return extent(false); }

    enum axis
    {
        along_x,
        along_y
    };
    /// How much of the ink goes along with a period.
    [[nodiscard]] double strength(axis a, double period) const { return std::abs(wave(a, period)); }
    /// Where in the period, from the middle to the right or up, the ink lies.
    [[nodiscard]] double place(axis a, double period) const
    {
        return std::arg(wave(a, period)) / (2 * std::numbers::pi) * period;
    }
    /// The one that fits best.
    [[nodiscard]] double period(axis a, double from, double to) const
    {
        double best = from;
        for (double p = from; p <= to; p += 0.02)
            if (strength(a, p) > strength(a, best))
                best = p;
        return best;
    }
    /// Of the edges, degrees counter-clockwise, from -90 to 90.
    [[nodiscard]] double direction() const
    {
        double xx = 0;
        double yy = 0;
        double xy = 0;
        for (int y = 1; y + 1 < f_side; ++y)
            for (int x = 1; x + 1 < f_side; ++x) {
                double const gx = ink(x + 1, y) - ink(x - 1, y);
                double const gy = ink(x, y - 1) - ink(x, y + 1);
                xx += gx * gx;
                yy += gy * gy;
                xy += gx * gy;
            }
        double const across = std::atan2(2 * xy, xx - yy) / 2 * 180 / std::numbers::pi;
        return std::remainder(across + 90, 180);
    }

private:
    /// From the middle, of a column or, with `sign` -1, a row.
    [[nodiscard]] double at(std::size_t i, int sign) const
    {
        return sign * (static_cast<double>(i) + 0.5 - f_side / 2.0) / f_k;
    }
    [[nodiscard]] double middle(std::vector<double> const &profile, int sign) const
    {
        double sum = 0;
        for (std::size_t i = 0; i < profile.size(); ++i)
            sum += profile[i] * at(i, sign);
        return sum / (area() * f_k * f_k);
    }
    [[nodiscard]] std::complex<double> wave(axis a, double period) const
    {
        auto const &profile = a == along_x ? f_columns : f_rows;
        std::complex<double> sum = 0;
        for (std::size_t i = 0; i < profile.size(); ++i)
            sum += std::polar(profile[i], 2 * std::numbers::pi * at(i, a == along_x ? 1 : -1) / period);
        return sum;
    }
    [[nodiscard]] double extent(bool columns) const
    {
        double all = 0;
        for (int a = 0; a < f_side; ++a) {
            double most = 0;
            for (int b = 0; b < f_side; ++b)
                most = std::max(most, columns ? ink(a, b) : ink(b, a));
            all += most;
        }
        return all / f_k;
    }

    int f_side;
    double f_k;
    std::vector<double> f_ink;
    std::vector<double> f_columns;
    std::vector<double> f_rows;
    Tvx_color f_darkest = c_white;
};

enum class geom
{
    point,
    line,
    area
};

/// A style of one layer, drawn on a page.
struct layer_sheet
{
    owned_bpnt bpnt{vx_bpnt_style_create()};
    owned_bpln bpln{vx_bpln_style_create()};
    owned_bpgn bpgn{vx_bpgn_style_create()};
    geom kind;
    void *layer;

    layer_sheet(geom g, char const *key) : kind(g)
    {
        vx_bpnt_style_set_use_complex(bpnt.get(), true);
        vx_bpln_style_set_use_complex(bpln.get(), true);
        vx_bpgn_style_set_use_complex(bpgn.get(), true);
        void *const style = g == geom::point  ? vx_bpnt_style_get_complex_style(bpnt.get())
                            : g == geom::line ? vx_bpln_style_get_complex_style(bpln.get())
                                              : vx_bpgn_style_get_complex_style(bpgn.get());
        layer = vx_style_lrs_add_lr(vx_cpx_style_get_style_lrs_ptr(style), key);
    }
    /// A point in the middle, a level line to the right through it, or the whole page.
    template <class Measure>
    [[nodiscard]] auto measured(double px_per_mm, Measure measure) const
    {
        int const side = static_cast<int>(c_side_mm * px_per_mm);
        double const s = side;
        page p(side, px_per_mm);
        if (kind == geom::point)
            p.draw_point(s / 2, s / 2, bpnt.get());
        else if (kind == geom::line)
            vx_render_cr_bpln(p.render.get(), geometry({{{0, s / 2}, {s, s / 2}}}).list.get(), bpln.get());
        else
            vx_render_cr_bpgn(p.render.get(), geometry({{{0, 0}, {0, s}, {s, s}, {s, 0}}}).list.get(),
                              bpgn.get());
        return measure(picture(p, px_per_mm));
    }
};

/// What a change of a number does to a measure of the picture.
struct parameter
{
    char const *name;
    geom kind;
    char const *key;
    void (*prepare)(void *layer);
    void (*set)(void *layer, double value);
    double from;
    double to;
    double (*measure)(picture const &p);
    double factor; ///< the measure grows by so much for one of the parameter; 0: in proportion to it
    double tolerance = 0.1;
    double modulo = 0; ///< the measure counts up to that
};

void black_line(void *cpx_pln, double width)
{
    void *const l = vx_style_lrs_add_lr(vx_cpx_style_get_style_lrs_ptr(cpx_pln), "pln_line_slr");
    vx_pln_line_lr_set_width(l, width);
}
void nothing(void *)
{
}
void letter(void *l)
{
    vx_pnt_symb_lr_set_symbol(l, L'L');
    vx_pnt_symb_lr_set_size(l, 10);
}
void bar(void *l) ///< a filled square, made long
{
    vx_pnt_figr_lr_set_lr_figure(l, 2);
    vx_pnt_figr_lr_set_size_x(l, 12);
    vx_pnt_figr_lr_set_size_y(l, 3);
}
void frame(void *l)
{
    vx_pnt_figr_lr_set_lr_figure(l, 3);
    vx_pnt_figr_lr_set_size_x(l, 20);
    vx_pnt_figr_lr_set_size_y(l, 20);
    vx_pnt_figr_lr_set_line_width(l, 1);
}
template <char const *text>
void tplt(void *l)
{
    vx_pln_tplt_lr_set_template(l, text);
    vx_pln_tplt_lr_set_width(l, 1);
    vx_pln_tplt_lr_set_dash(l, 3);
    vx_pln_tplt_lr_set_gap(l, 2);
}
constexpr char c_dashes[] = "10";
constexpr char c_points[] = "02";
constexpr char c_across[] = "03";
void hatch(void *l)
{
    vx_pgn_htch_lr_set_angle(l, 0);
    vx_pgn_htch_lr_set_delta(l, 2.5);
    black_line(vx_pgn_htch_lr_get_cpx_pln_style_ptr(l), 0.5);
}
void spots(void *l)
{
    vx_pgn_spot_lr_set_dx(l, 5);
    vx_pgn_spot_lr_set_dy(l, 5);
    vx_pgn_spot_lr_set_point_size(l, 2);
}

parameter const c_parameters[] = {
    {"size", geom::point, "pnt_symb_slr", letter, vx_pnt_symb_lr_set_size, 8, 16,
     [](picture const &p) { return p.height(); }, 0, 0.3},
    {"dx", geom::point, "pnt_symb_slr", letter, vx_pnt_symb_lr_set_dx, 0, 5,
     [](picture const &p) { return p.middle_x(); }, 1},
    {"dy", geom::point, "pnt_symb_slr", letter, vx_pnt_symb_lr_set_dy, 0, 5,
     [](picture const &p) { return p.middle_y(); }, 1},
    // The middle of an L lies to the left of and below the middle of its box; turned by 90 to the left it
    // lies to the right.
    {"angle", geom::point, "pnt_symb_slr", letter, vx_pnt_symb_lr_set_angle, 0, 90,
     [](picture const &p) { return p.middle_x() > 0.4    ? 90.0
                                   : p.middle_x() < -0.4 ? 0.0
                                                         : 45.0; }, 1},

    {"size x", geom::point, "pnt_figr_slr", bar, vx_pnt_figr_lr_set_size_x, 12, 20,
     [](picture const &p) { return p.width(); }, 0, 0.2},
    {"size y", geom::point, "pnt_figr_slr", bar, vx_pnt_figr_lr_set_size_y, 3, 9,
     [](picture const &p) { return p.height(); }, 0, 0.2},
    {"dx", geom::point, "pnt_figr_slr", bar, vx_pnt_figr_lr_set_dx, 0, -7,
     [](picture const &p) { return p.middle_x(); }, 1},
    {"dy", geom::point, "pnt_figr_slr", bar, vx_pnt_figr_lr_set_dy, 0, 7,
     [](picture const &p) { return p.middle_y(); }, 1},
    {"angle", geom::point, "pnt_figr_slr", bar, vx_pnt_figr_lr_set_angle, 0, 30,
     [](picture const &p) { return p.direction(); }, 1, 8}, // its short sides count too
    // Of a square frame, by its width and the ink.
    {"line width", geom::point, "pnt_figr_slr", frame, vx_pnt_figr_lr_set_line_width, 1, 2,
     [](picture const &p) { return (p.width() - std::sqrt(p.width() * p.width() - p.area())) / 2; }, 1},

    {"width", geom::line, "pln_line_slr", nothing, vx_pln_line_lr_set_width, 1, 4,
     [](picture const &p) { return p.height(); }, 1},
    {"delta", geom::line, "pln_line_slr", nothing, vx_pln_line_lr_set_delta, 0, 6,
     [](picture const &p) { return p.middle_y(); }, 1},

    {"width", geom::line, "pln_tplt_slr", tplt<c_dashes>, vx_pln_tplt_lr_set_width, 1, 3,
     [](picture const &p) { return p.height(); }, 1},
    {"size of points", geom::line, "pln_tplt_slr", tplt<c_points>, vx_pln_tplt_lr_set_width, 1, 1.8,
     [](picture const &p) { return p.height(); }, 1, 0.25},
    {"dash", geom::line, "pln_tplt_slr", tplt<c_dashes>, vx_pln_tplt_lr_set_dash, 3, 4.5,
     [](picture const &p) { return p.period(picture::along_x, 3.5, 9); }, 1},
    {"dash, of the ink", geom::line, "pln_tplt_slr", tplt<c_dashes>, vx_pln_tplt_lr_set_dash, 3, 8,
     [](picture const &p) { return p.area() / c_side_mm; }, 0.04, 0.02}, // 3 of 5, 8 of 10
    {"length of dashes across", geom::line, "pln_tplt_slr", tplt<c_across>, vx_pln_tplt_lr_set_dash, 3, 8,
     [](picture const &p) { return p.height(); }, 1},
    {"gap", geom::line, "pln_tplt_slr", tplt<c_dashes>, vx_pln_tplt_lr_set_gap, 2, 4,
     [](picture const &p) { return p.period(picture::along_x, 3.5, 9); }, 1},
    {"gap, of the ink", geom::line, "pln_tplt_slr", tplt<c_dashes>, vx_pln_tplt_lr_set_gap, 2, 7,
     [](picture const &p) { return p.area() / c_side_mm; }, -0.06, 0.02}, // 3 of 5, 3 of 10
    {"shift", geom::line, "pln_tplt_slr", tplt<c_dashes>, vx_pln_tplt_lr_set_shift, 0, 1.5,
     [](picture const &p) { return p.place(picture::along_x, 5); }, 1, 0.1, 5},
    {"delta", geom::line, "pln_tplt_slr", tplt<c_dashes>, vx_pln_tplt_lr_set_delta, 0, -6,
     [](picture const &p) { return p.middle_y(); }, 1},

    {"delta", geom::area, "pgn_htch_slr", hatch, vx_pgn_htch_lr_set_delta, 2.5, 4,
     [](picture const &p) { return p.period(picture::along_y, 2, 6); }, 1},
    {"angle", geom::area, "pgn_htch_slr", hatch, vx_pgn_htch_lr_set_angle, 0, 30,
     [](picture const &p) { return p.direction(); }, 1, 6},
    // To the right of the direction of the lines, here down.
    {"shift", geom::area, "pgn_htch_slr", hatch, vx_pgn_htch_lr_set_shift, 0, 0.8,
     [](picture const &p) { return p.place(picture::along_y, 2.5); }, -1, 0.1, 2.5},

    {"dx", geom::area, "pgn_spot_slr", spots, vx_pgn_spot_lr_set_dx, 5, 7,
     [](picture const &p) { return p.period(picture::along_x, 4.5, 9); }, 1},
    {"dy", geom::area, "pgn_spot_slr", spots, vx_pgn_spot_lr_set_dy, 5, 7,
     [](picture const &p) { return p.period(picture::along_y, 4.5, 9); }, 1},
    {"x0", geom::area, "pgn_spot_slr", spots, vx_pgn_spot_lr_set_x0, 0, 1.5,
     [](picture const &p) { return p.place(picture::along_x, 5); }, 1, 0.1, 5},
    {"y0", geom::area, "pgn_spot_slr", spots, vx_pgn_spot_lr_set_y0, 0, 1.5,
     [](picture const &p) { return p.place(picture::along_y, 5); }, -1, 0.1, 5},
    // The root of the ink of a spot.
    {"point size", geom::area, "pgn_spot_slr", spots, vx_pgn_spot_lr_set_point_size, 1.5, 3,
     [](picture const &p) { return std::sqrt(p.area()); }, 0, 2},
    {"type", geom::area, "pgn_spot_slr", spots,
     [](void *l, double v) { vx_pgn_spot_lr_set_spot_type(l, static_cast<int>(v)); }, 0, 1,
     // Every other row in between: columns lie half as far from each other.
     [](picture const &p) {
         return p.strength(picture::along_x, 2.5) > p.strength(picture::along_x, 5) ? 1.0 : 0.0;
     },
     1},
    {"random x", geom::area, "pgn_spot_slr", spots,
     [](void *l, double v) { vx_pgn_spot_lr_set_random_x(l, v > 0); }, 0, 1,
     [](picture const &p) {
         return p.strength(picture::along_y, 5) > 4 * p.strength(picture::along_x, 5)
                    ? 1.0
                    : 0.0; // rows without columns
     },
     1},
    {"random y", geom::area, "pgn_spot_slr", spots,
     [](void *l, double v) { vx_pgn_spot_lr_set_random_y(l, v > 0); }, 0, 1,
     [](picture const &p) {
         return p.strength(picture::along_x, 5) > 4 * p.strength(picture::along_y, 5) ? 1.0 : 0.0;
     },
     1},
};

TEST(layer_parameters, change_the_picture_by_the_measure_that_they_say)
{
    for (parameter const &c : c_parameters)
        for (double const k : {4.0, 8.0}) {
            SCOPED_TRACE(std::string(c.key) + " " + c.name + " at " + std::to_string(int(k)));
            layer_sheet const sheet(c.kind, c.key);
            c.prepare(sheet.layer);
            c.set(sheet.layer, c.from);
            double const before = sheet.measured(k, c.measure);
            c.set(sheet.layer, c.to);
            double const after = sheet.measured(k, c.measure);
            if (c.factor == 0) {
                EXPECT_NEAR(after, before * c.to / c.from, c.tolerance);
                continue;
            }
            double wrong = after - before - c.factor * (c.to - c.from);
            if (c.modulo > 0)
                wrong = std::remainder(wrong, c.modulo);
            EXPECT_NEAR(wrong, 0, c.tolerance) << "from " << before << " to " << after;
        }
}

TEST(layer_parameters, colours_symbols_and_nested_styles_show)
{
    Tvx_color const green = vx_clr_init_rgb(10, 120, 40);
    struct
    {
        geom kind;
        char const *key;
        void (*prepare)(void *);
        void (*set)(void *, Tvx_color);
    } const colors[] = {{geom::point, "pnt_symb_slr", letter, vx_pnt_symb_lr_set_color},
                        {geom::point, "pnt_figr_slr", bar, vx_pnt_figr_lr_set_color},
                        {geom::line, "pln_line_slr", [](void *l) { vx_pln_line_lr_set_width(l, 2); },
                         vx_pln_line_lr_set_color},
                        {geom::line, "pln_tplt_slr", tplt<c_dashes>, vx_pln_tplt_lr_set_color},
                        {geom::area, "pgn_fill_slr", nothing, vx_pgn_fill_lr_set_color},
                        {geom::area, "pgn_spot_slr", spots, vx_pgn_spot_lr_set_point_clr}};
    auto const color = [](picture const &p) { return p.darkest(); };
    auto const area = [](picture const &p) { return p.area(); };
    for (auto const &c : colors) {
        layer_sheet const sheet(c.kind, c.key);
        c.prepare(sheet.layer);
        c.set(sheet.layer, green);
        EXPECT_EQ(sheet.measured(4, color), green) << c.key;
    }

    // A character and a figure look like themselves: an I is narrower than an M, a ring emptier than a disc.
    layer_sheet const symbol(geom::point, "pnt_symb_slr");
    letter(symbol.layer);
    auto const width = [](picture const &p) { return p.width(); };
    vx_pnt_symb_lr_set_symbol(symbol.layer, L'I');
    double const narrow = symbol.measured(4, width);
    vx_pnt_symb_lr_set_symbol(symbol.layer, L'M');
    EXPECT_GT(symbol.measured(4, width), 2 * narrow);
    layer_sheet const figure(geom::point, "pnt_figr_slr");
    bar(figure.layer);
    vx_pnt_figr_lr_set_lr_figure(figure.layer, 0);
    double const disc = figure.measured(4, area);
    vx_pnt_figr_lr_set_lr_figure(figure.layer, 1);
    EXPECT_LT(figure.measured(4, area), disc / 2);

    // What is nested is drawn with its own values.
    auto const add_disc = [](void *cpx_pnt, double size) {
        void *const l = vx_style_lrs_add_lr(vx_cpx_style_get_style_lrs_ptr(cpx_pnt), "pnt_figr_slr");
        vx_pnt_figr_lr_set_size_x(l, size);
        vx_pnt_figr_lr_set_size_y(l, size);
    };
    layer_sheet const marks(geom::line, "pln_tplt_slr");
    vx_pln_tplt_lr_set_template(marks.layer, "0004");
    vx_pln_tplt_lr_set_gap(marks.layer, 2.5);
    EXPECT_EQ(marks.measured(4, area), 0) << "symbols without layers";
    add_disc(vx_pln_tplt_lr_get_cpx_pnt_style_ptr(marks.layer), 4);
    auto const height = [](picture const &p) { return p.height(); };
    EXPECT_NEAR(marks.measured(4, height), 4, 0.2);
    EXPECT_NEAR(marks.measured(4, [](picture const &p) { return p.period(picture::along_x, 6, 9); }), 7.5,
                0.1);
    layer_sheet const lines(geom::area, "pgn_htch_slr");
    hatch(lines.layer);
    EXPECT_NEAR(lines.measured(4, area), c_side_mm * c_side_mm * 0.5 / 2.5, 40);
    layer_sheet const points(geom::area, "pgn_spot_slr");
    spots(points.layer);
    add_disc(vx_pgn_spot_lr_get_cpx_pnt_style_ptr(points.layer), 4);
    double const plain = points.measured(4, area);
    vx_pgn_spot_lr_set_use_cpx_pnt(points.layer, true);
    EXPECT_NEAR(points.measured(4, area), 4 * plain, plain / 3) << "twice as large";

    // Bars that are turned at random show as many directions as there are.
    layer_sheet const bars(geom::area, "pgn_spot_slr");
    spots(bars.layer);
    vx_pgn_spot_lr_set_use_cpx_pnt(bars.layer, true);
    void *const l = vx_style_lrs_add_lr(
        vx_cpx_style_get_style_lrs_ptr(vx_pgn_spot_lr_get_cpx_pnt_style_ptr(bars.layer)), "pnt_figr_slr");
    vx_pnt_figr_lr_set_lr_figure(l, 2);
    vx_pnt_figr_lr_set_size_x(l, 4);
    vx_pnt_figr_lr_set_size_y(l, 0.5);
    // In the middle of a row of bars that all lie level there is ink, halfway between two rows none.
    auto const between = [](picture const &p) {
        double all = 0;
        for (int row = 1; row < 9; ++row)
            for (int x = 0; x < p.side(); ++x)
                all += p.ink(x, static_cast<int>((5 * row + 1.5) * p.k()));
        return all;
    };
    EXPECT_EQ(bars.measured(4, between), 0);
    vx_pgn_spot_lr_set_random_angle(bars.layer, true);
    EXPECT_GT(bars.measured(4, between), 20);
}
} // namespace
