#pragma once

#include "platform/base/color.h"
#include "platform/basic/vx_fnt_type.h"
#include "platform/styles/detail/cpx_model.h"
#include "platform/styles/detail/style_kind.h"

#include <array>
#include <memory>
#include <string>
#include <vector>

/// The styles behind the opaque pointers, as ordinary values. Sizes are in millimetres, angles in degrees.
namespace vx::styles {
/// Whether a style is the one of an object at rest or of a selected one.
enum class variant_of_style : unsigned char
{
    base,
    selected
};
[[nodiscard]] constexpr variant_of_style variant_of(bool selected)
{
    return selected ? variant_of_style::selected : variant_of_style::base;
}

struct bpnt_style
{
    bool use_figure = true;
    bool use_complex = false;
    int figure = 0;
    unsigned symbol = 0x25CF;
    Tvx_color color = vx_clr_init_rgb(56, 96, 152);
    double size = 2;
    vx_fnt_type font;
    cpx_slot complex{style_kind::pnt};
    bool operator==(bpnt_style const &) const = default;
};

struct bpln_style
{
    bool use_complex = false;
    Tvx_color color = vx_clr_init_rgb(72, 72, 72);
    double width = 0.25;
    cpx_slot complex{style_kind::pln};
    bool operator==(bpln_style const &) const = default;
};

struct bpgn_style
{
    bool use_complex = false;
    Tvx_color color = vx_clr_init_rgb(208, 220, 236);
    cpx_slot complex{style_kind::pgn};
    bool operator==(bpgn_style const &) const = default;
};

struct pnt_style
{
    bpnt_style bpnt;
    bool pnt_visible = true;
    bool operator==(pnt_style const &) const = default;
};

struct pln_style
{
    bpln_style bpln;
    bpnt_style bpnt; ///< at the vertices
    bpnt_style bend; ///< at the last vertex
    bpnt_style bbeg; ///< at the first vertex
    bool pln_visible = true;
    bool pnt_visible = false;
    bool end_visible = false;
    bool beg_visible = false;
    bool operator==(pln_style const &) const = default;
};

struct pgn_style
{
    bpgn_style bpgn;
    bpln_style bpln;
    bpnt_style bpnt; ///< at the vertices
    bool pgn_visible = true;
    bool pln_visible = true;
    bool pnt_visible = false;
    bool operator==(pgn_style const &) const = default;
};

struct clr_style
{
    Tvx_color color = vx_clr_init_rgb(128, 128, 128);
    bool operator==(clr_style const &) const = default;
};

struct bpnt3d_style
{
    Tvx_color color = vx_clr_init_rgb(56, 96, 152);
    double size = 2;
    bool operator==(bpnt3d_style const &) const = default;
};

/// The width of a line in space counts four times that of a line in the plane.
struct bpln3d_style
{
    Tvx_color color = vx_clr_init_rgb(72, 72, 72);
    double width = 1;
    bool operator==(bpln3d_style const &) const = default;
};

struct bpgn3d_style
{
    Tvx_color color = vx_clr_init_rgb(208, 220, 236);
    bool operator==(bpgn3d_style const &) const = default;
};

struct pnt3d_style
{
    bpnt3d_style bpnt3d;
    bool pnt_visible = true;
    bool operator==(pnt3d_style const &) const = default;
};

struct pln3d_style
{
    bpln3d_style bpln3d;
    bpnt3d_style bpnt3d;
    bool pln_visible = true;
    bool pnt_visible = false;
    bool operator==(pln3d_style const &) const = default;
};

struct pgn3d_style
{
    bpgn3d_style bpgn3d;
    bpln3d_style bpln3d;
    bpnt3d_style bpnt3d;
    bool pgn_visible = true;
    bool pln_visible = true;
    bool pnt_visible = false;
    bool operator==(pgn3d_style const &) const = default;
};

/// The lines of a label. A line that names a property is replaced by its value, any other text is written as
/// it is.
struct txt_stl_line
{
    std::vector<std::wstring> lines;
    bool operator==(txt_stl_line const &) const = default;
};

/// How a label is written: at a point, along a line, inside a polygon.
struct txt_style
{
    vx_fnt_type font;
    Tvx_color color = vx_clr_init_rgb(0, 0, 0);
    double angle = 0;
    double font_size = 3;
    bool outline = false;
    Tvx_color outline_clr = vx_clr_init_rgb(255, 255, 255);
    double outline_size = 0.3;
    bool back = false;
    Tvx_color back_clr = vx_clr_init_rgb(255, 255, 255);
    bool shadow = false;
    Tvx_color shadow_clr = vx_clr_init_rgb(128, 128, 128);
    double shadow_width = 0.3;
    double shadow_gap_x = 0.3;
    double shadow_gap_y = -0.3;
    int pos_x = 1; ///< side of the anchor on which the text stands: -1 left, 0 centred, 1 right
    int pos_y = 1; ///< -1 below, 0 centred, 1 above
    double delta_x = 0;
    double delta_y = 0;
    txt_stl_line lines;
    bool operator==(txt_style const &) const = default;
};

/// A composed style of any kind, on the heap and at one address.
class any_style
{
public:
    any_style() = default;
    any_style &operator=(any_style const &) = delete;
    virtual ~any_style() = default;

    [[nodiscard]] virtual std::unique_ptr<any_style> clone() const = 0;
    /// `other` is of the same kind. The components keep their addresses.
    virtual void assign(any_style const &other) = 0;
    [[nodiscard]] virtual bool equals(any_style const &other) const = 0;
    /// The style itself: `pnt_style` and so on by the kind; for colours the `Tvx_color`.
    [[nodiscard]] virtual void *value() = 0;
    [[nodiscard]] virtual void const *value() const = 0;

    /// The leading colour: that of the first visible component in the order fill, line, point; of the first
    /// component if none is visible. With a complex style, that of its first layer with a colour.
    [[nodiscard]] virtual Tvx_color color() const = 0;
    virtual void set_color(Tvx_color color) = 0;
    /// In all components and layers; of a text the letters alone.
    virtual void set_all_colors(Tvx_color color) = 0;
    /// Puts `by` where the style has the colour `of`, in parts and layers and whatever their opacity, which
    /// stays; in the leading colour if it has it nowhere.
    virtual void replace_color(Tvx_color of, Tvx_color by) = 0;
    /// The leading size: of a point its size, of a line its width, of a polygon its outline's width, of a
    /// text its font's size. A colour has none, and reads 0.
    [[nodiscard]] virtual double size() const = 0;
    virtual void set_size(double size) = 0;

protected:
    any_style(any_style const &) = default;
};

/// A style with the defaults of its kind. The default selection style is the base style in the selection
/// colour.
[[nodiscard]] std::unique_ptr<any_style> make_default_style(style_kind kind, variant_of_style variant);
/// The same as one shared object.
[[nodiscard]] any_style const &default_style(style_kind kind, variant_of_style variant);

/// Style parameters of one entry: a base and a selection style of one kind. A style that was never asked for
/// to be written is not stored and equals the default.
class stl_prm
{
public:
    explicit stl_prm(style_kind kind) : f_kind(kind) {}
    stl_prm(stl_prm const &other);
    stl_prm(stl_prm &&) noexcept = default;
    /// Takes over kind and both styles.
    stl_prm &operator=(stl_prm const &other);
    stl_prm &operator=(stl_prm &&) noexcept = delete;
    ~stl_prm() = default;

    [[nodiscard]] style_kind kind() const { return f_kind; }
    [[nodiscard]] any_style &get(variant_of_style variant);
    [[nodiscard]] any_style const &read(variant_of_style variant) const;
    /// Copies one of the two styles of `source`; nothing if the kinds differ.
    void assign_variant(stl_prm const &source, variant_of_style variant);
    friend bool operator==(stl_prm const &a, stl_prm const &b);

    /// The style of the kind's own type to write to, or null if this kind has none of it.
    template <class T>
    [[nodiscard]] T *edit(variant_of_style variant)
    {
        return holds<T>() ? static_cast<T *>(get(variant).value()) : nullptr;
    }
    /// The same to read.
    template <class T>
    [[nodiscard]] T const *as(variant_of_style variant) const
    {
        return holds<T>() ? static_cast<T const *>(read(variant).value()) : nullptr;
    }

private:
    template <class T>
    [[nodiscard]] bool holds() const;

    std::array<std::unique_ptr<any_style>, 2> f_styles;
    style_kind f_kind;
};

template <>
bool stl_prm::holds<pnt_style>() const;
template <>
bool stl_prm::holds<pln_style>() const;
template <>
bool stl_prm::holds<pgn_style>() const;
template <>
bool stl_prm::holds<pnt3d_style>() const;
template <>
bool stl_prm::holds<pln3d_style>() const;
template <>
bool stl_prm::holds<pgn3d_style>() const;
template <>
bool stl_prm::holds<Tvx_color>() const;
template <>
bool stl_prm::holds<txt_style>() const;

struct scale_prm
{
    explicit scale_prm(style_kind kind) : prm(kind) {}
    stl_prm prm;
    bool visible = true;
    friend bool operator==(scale_prm const &a, scale_prm const &b)
    {
        return a.visible == b.visible && a.prm == b.prm;
    }
};
} // namespace vx::styles
