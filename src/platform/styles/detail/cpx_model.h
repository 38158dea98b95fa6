#pragma once

#include "platform/base/color.h"
#include "platform/base/geometry.h"
#include "platform/basic/vx_fnt_type.h"
#include "platform/styles/detail/style_kind.h"

#include <memory>
#include <string>
#include <variant>
#include <vector>

/// Complex styles as ordinary values: an ordered stack of style layers. Lengths are in millimetres, angles in
/// degrees, counter-clockwise. The first layer is drawn first.
namespace vx::styles {
struct cpx_style;

/// Holder of a complex style that is made when it is first asked for; one that was never made equals an empty
/// one.
class cpx_slot
{
public:
    explicit cpx_slot(style_kind kind) : f_kind(kind) {}
    cpx_slot(cpx_slot const &other);
    cpx_slot(cpx_slot &&) noexcept = default;
    cpx_slot &operator=(cpx_slot const &other);
    cpx_slot &operator=(cpx_slot &&) noexcept = default;
    ~cpx_slot();

    [[nodiscard]] cpx_style &get();
    [[nodiscard]] cpx_style const *find() const { return f_style.get(); }
    friend bool operator==(cpx_slot const &a, cpx_slot const &b);

private:
    std::unique_ptr<cpx_style> f_style;
    style_kind f_kind;
};

/// The style in a holder, as plain functions hand it out; null for null.
[[nodiscard]] inline void *style_in(cpx_slot *slot)
{
    return slot ? &slot->get() : nullptr;
}

/// A font symbol.
struct pnt_symb_lr
{
    vx_fnt_type font;
    unsigned symbol = 0x25CF;
    Tvx_color color = vx_clr_init_rgb(0, 0, 0);
    double size = 4;
    double dx = 0;
    double dy = 0;
    double angle = 0;
    bool operator==(pnt_symb_lr const &) const = default;
};

/// One of the 26 figures.
struct pnt_figr_lr
{
    int figure = 0;
    Tvx_color color = vx_clr_init_rgb(0, 0, 0);
    double size_x = 3;
    double size_y = 3;
    double dx = 0;
    double dy = 0;
    double angle = 0;
    double line_width = 0.25;
    bool operator==(pnt_figr_lr const &) const = default;
};

/// A drawing of its own: parts of vertices in the square from (-0.5, -0.5) to (0.5, 0.5), x to the right, y
/// up, that `size` scales.
struct pnt_geom_lr
{
    std::vector<std::vector<Tvx_pnt_d2>> parts;
    bool fill = true;
    Tvx_color color = vx_clr_init_rgb(0, 0, 0);
    double size = 4;
    double dx = 0;
    double dy = 0;
    double angle = 0;
    double line_width = 0.25;
    bool operator==(pnt_geom_lr const &) const = default;
};

/// A text centred on the point.
struct pnt_text_lr
{
    vx_fnt_type font;
    std::wstring text;
    Tvx_color color = vx_clr_init_rgb(0, 0, 0);
    double size = 3;
    double dx = 0;
    double dy = 0;
    double angle = 0;
    bool operator==(pnt_text_lr const &) const = default;
};

/// A plain stroke, moved sideways by `delta`, to the left of the line's direction.
struct pln_line_lr
{
    Tvx_color color = vx_clr_init_rgb(0, 0, 0);
    double width = 0.25;
    double delta = 0;
    bool operator==(pln_line_lr const &) const = default;
};

/// A stroke by a template that repeats along the line. A dash goes on by `dash`, a gap by `gap`; points,
/// symbols and the dashes at an angle, which are `dash` long too, stand where the pattern has got to and take
/// no room. In a template without dashes and gaps each of them is followed by a gap. The pattern starts
/// `shift` behind the line's start and lies `delta` to its left.
struct pln_tplt_lr
{
    Tvx_color color = vx_clr_init_rgb(0, 0, 0);
    double width = 0.25;
    double dash = 2;
    double gap = 1;
    double shift = 0;
    double delta = 0;
    std::string tplt;
    cpx_slot cpx_pnt{style_kind::pnt};
    bool operator==(pln_tplt_lr const &) const = default;
};

/// A stroke with the means of map drawing: dashes of any lengths, kinds of ends and corners, and a casing on
/// both sides.
struct pln_cart_lr
{
    Tvx_color color = vx_clr_init_rgb(0, 0, 0);
    double width = 0.5;
    double delta = 0;
    int cap = 0;  ///< 0 flat, 1 square, 2 round
    int join = 1; ///< 0 mitre, 1 round, 2 bevel
    std::vector<double>
        dashes; ///< dash, gap, dash, gap, ...; an odd last dash is followed by a gap of its length
    double casing_width = 0; ///< of each side; 0 draws none
    Tvx_color casing_color = vx_clr_init_rgb(0, 0, 0);
    bool operator==(pln_cart_lr const &) const = default;
};

struct pgn_fill_lr
{
    Tvx_color color = vx_clr_init_rgb(200, 200, 200);
    bool operator==(pgn_fill_lr const &) const = default;
};

/// Parallel lines, `delta` apart, at `angle`, the first one `shift` from the origin of the map. Without
/// layers in the line style they are thin black lines.
struct pgn_htch_lr
{
    double delta = 2;
    double angle = 45;
    double shift = 0;
    cpx_slot cpx_pln{style_kind::pln};
    bool operator==(pgn_htch_lr const &) const = default;
};

/// Points scattered on a net: `spot_type` 0 in rows, 1 with every other row moved by half a step. `dx`, `dy`
/// are the steps, (`x0`, `y0`) the place of the first one; the random flags move each within its cell and
/// turn it.
struct pgn_spot_lr
{
    int spot_type = 0;
    double dx = 3;
    double dy = 3;
    double x0 = 0;
    double y0 = 0;
    bool use_cpx_pnt = false;
    Tvx_color point_clr = vx_clr_init_rgb(0, 0, 0);
    double point_size = 0.5;
    cpx_slot cpx_pnt{style_kind::pnt};
    bool random_x = false;
    bool random_y = false;
    bool random_angle = false;
    bool operator==(pgn_spot_lr const &) const = default;
};

/// One layer of a complex style, at one address for its life.
struct style_lr
{
    using data_t = std::variant<pnt_figr_lr, pnt_geom_lr, pnt_symb_lr, pnt_text_lr, pln_line_lr, pln_tplt_lr,
                                pln_cart_lr, pgn_fill_lr, pgn_htch_lr, pgn_spot_lr>;
    data_t data;

    /// A layer with default parameters, null for an unknown key.
    [[nodiscard]] static std::unique_ptr<style_lr> create(char const *key);
    [[nodiscard]] char const *key() const;
    /// Which kind of complex style may hold it.
    [[nodiscard]] style_kind holder_kind() const;
    bool operator==(style_lr const &) const = default;
};

struct cpx_style
{
    explicit cpx_style(style_kind k) : kind(k) {}
    cpx_style(cpx_style const &other);
    cpx_style(cpx_style &&) noexcept = default;
    /// The kind stays; layers that this kind may not hold are left out.
    cpx_style &operator=(cpx_style const &other);
    cpx_style &operator=(cpx_style &&) noexcept = delete;
    ~cpx_style() = default;

    style_kind kind; ///< pnt, pln or pgn
    std::vector<std::unique_ptr<style_lr>> lrs;

    friend bool operator==(cpx_style const &a, cpx_style const &b);
};

/// The leading colour is that of the first layer that has one; nothing is set without such a layer.
[[nodiscard]] std::optional<Tvx_color> leading_color(cpx_style const &style);
void set_leading_color(cpx_style &style, Tvx_color color);
/// In all layers, nested styles included.
void set_all_colors(cpx_style &style, Tvx_color color);
/// Whether the colour is `of`, whatever its opacity, which stays; it then becomes `by`.
bool replace_color(Tvx_color &color, Tvx_color of, Tvx_color by);
/// The same in all layers, nested styles and casings included; whether there was one.
bool replace_color(cpx_style &style, Tvx_color of, Tvx_color by);
/// The leading size is that of the first layer that has one; setting it scales the lengths of all layers
/// alike.
[[nodiscard]] std::optional<double> leading_size(cpx_style const &style);
void set_leading_size(cpx_style &style, double size);
} // namespace vx::styles
