#include "platform/styles/detail/style_model.h"

#include <utility>

namespace vx::styles {
namespace {
/// Colour of the default selection styles.
constexpr Tvx_color c_selection = vx_clr_init_rgb(230, 30, 30);

// ---- base styles: one colour, one size, or those of the complex style
template <class T>
Tvx_color color_of(T const &s)
{
    if constexpr (requires { s.complex; }) {
        if (s.use_complex) {
            cpx_style const *cpx = s.complex.find();
            if (auto color = cpx ? leading_color(*cpx) : std::nullopt)
                return *color;
        }
    }
    return s.color;
}

template <class T>
void put_color(T &s, Tvx_color color)
{
    if constexpr (requires { s.complex; }) {
        if (s.use_complex && s.complex.find() && leading_color(*s.complex.find())) {
            set_leading_color(s.complex.get(), color);
            return;
        }
    }
    s.color = color;
}

template <class T>
void put_all_colors(T &s, Tvx_color color)
{
    s.color = color;
    if constexpr (requires { s.complex; }) {
        if (s.complex.find())
            set_all_colors(s.complex.get(), color);
    }
}

template <class T>
bool swap_color(T &s, Tvx_color of, Tvx_color by)
{
    if constexpr (requires { s.complex; }) {
        if (s.use_complex)
            return s.complex.find() && replace_color(s.complex.get(), of, by);
    }
    return replace_color(s.color, of, by);
}

template <class T>
auto &own_size(T &s)
{
    if constexpr (requires { s.size; })
        return s.size;
    else
        return s.width;
}

template <class T>
double size_of(T const &s)
{
    if constexpr (requires { s.complex; }) {
        if (s.use_complex) {
            cpx_style const *cpx = s.complex.find();
            if (auto size = cpx ? leading_size(*cpx) : std::nullopt)
                return *size;
        }
    }
    return own_size(s);
}

template <class T>
void put_size(T &s, double size)
{
    if constexpr (requires { s.complex; }) {
        if (s.use_complex && s.complex.find() && leading_size(*s.complex.find())) {
            set_leading_size(s.complex.get(), size);
            return;
        }
    }
    own_size(s) = size;
}

// ---- composed styles
/// Runs `f` on the component that leads the style, for its colour.
template <class S, class F>
decltype(auto) with_leader(S &s, F f)
{
    if constexpr (requires { s.bpgn; }) {
        if (s.pgn_visible || (!s.pln_visible && !s.pnt_visible))
            return f(s.bpgn);
        return s.pln_visible ? f(s.bpln) : f(s.bpnt);
    } else if constexpr (requires { s.bpgn3d; }) {
        if (s.pgn_visible || (!s.pln_visible && !s.pnt_visible))
            return f(s.bpgn3d);
        return s.pln_visible ? f(s.bpln3d) : f(s.bpnt3d);
    } else if constexpr (requires { s.bpln; }) {
        return s.pln_visible || !s.pnt_visible ? f(s.bpln) : f(s.bpnt);
    } else if constexpr (requires { s.bpln3d; }) {
        return s.pln_visible || !s.pnt_visible ? f(s.bpln3d) : f(s.bpnt3d);
    } else if constexpr (requires { s.bpnt; }) {
        return f(s.bpnt);
    } else {
        return f(s.bpnt3d);
    }
}

/// The same for its size: a fill has none, so the line leads.
template <class S, class F>
decltype(auto) with_size_leader(S &s, F f)
{
    if constexpr (requires { s.bpln; })
        return s.pln_visible || !s.pnt_visible ? f(s.bpln) : f(s.bpnt);
    else if constexpr (requires { s.bpln3d; })
        return s.pln_visible || !s.pnt_visible ? f(s.bpln3d) : f(s.bpnt3d);
    else if constexpr (requires { s.bpnt; })
        return f(s.bpnt);
    else
        return f(s.bpnt3d);
}

template <class S, class F>
void for_each_component(S &s, F f)
{
    if constexpr (requires { s.bpgn; })
        f(s.bpgn);
    if constexpr (requires { s.bpln; })
        f(s.bpln);
    if constexpr (requires { s.bpnt; })
        f(s.bpnt);
    if constexpr (requires { s.bend; }) {
        f(s.bend);
        f(s.bbeg);
    }
    if constexpr (requires { s.bpgn3d; })
        f(s.bpgn3d);
    if constexpr (requires { s.bpln3d; })
        f(s.bpln3d);
    if constexpr (requires { s.bpnt3d; })
        f(s.bpnt3d);
}

template <class S>
class style_holder final : public any_style
{
public:
    S style;

    [[nodiscard]] std::unique_ptr<any_style> clone() const override
    {
        return std::unique_ptr<any_style>(new style_holder(*this));
    }
    void assign(any_style const &other) override { style = static_cast<style_holder const &>(other).style; }
    [[nodiscard]] bool equals(any_style const &other) const override
    {
        return style == static_cast<style_holder const &>(other).style;
    }
    [[nodiscard]] void *value() override
    {
        if constexpr (std::is_same_v<S, clr_style>)
            return &style.color;
        else
            return &style;
    }
    [[nodiscard]] void const *value() const override { return const_cast<style_holder *>(this)->value(); }

    [[nodiscard]] Tvx_color color() const override
    {
        if constexpr (c_plain)
            return style.color;
        else
            return with_leader(style, [](auto const &part) { return color_of(part); });
    }
    void set_color(Tvx_color color) override
    {
        if constexpr (c_plain)
            style.color = color;
        else
            with_leader(style, [&](auto &part) { put_color(part, color); });
    }
    void set_all_colors(Tvx_color color) override
    {
        if constexpr (c_plain)
            style.color = color;
        else
            for_each_component(style, [&](auto &part) { put_all_colors(part, color); });
    }
    void replace_color(Tvx_color of, Tvx_color by) override
    {
        bool found = false;
        if constexpr (c_plain)
            found = styles::replace_color(style.color, of, by);
        else
            for_each_component(style, [&](auto &part) { found = swap_color(part, of, by) || found; });
        if (!found)
            set_color(vx_clr_init_rgba(by.r, by.g, by.b, color().a));
    }
    [[nodiscard]] double size() const override
    {
        if constexpr (std::is_same_v<S, clr_style>)
            return 0;
        else if constexpr (c_plain)
            return style.font_size;
        else
            return with_size_leader(style, [](auto const &part) { return size_of(part); });
    }
    void set_size(double size) override
    {
        if constexpr (std::is_same_v<S, clr_style>)
            return;
        else if constexpr (c_plain)
            style.font_size = size;
        else
            with_size_leader(style, [&](auto &part) { put_size(part, size); });
    }

private:
    static constexpr bool c_plain = std::is_same_v<S, clr_style> || std::is_same_v<S, txt_style>;
};

std::unique_ptr<any_style> make_style(style_kind kind)
{
    switch (kind) {
    case style_kind::pnt:
        return std::make_unique<style_holder<pnt_style>>();
    case style_kind::pln:
    case style_kind::grid1d_clr:
        return std::make_unique<style_holder<pln_style>>();
    case style_kind::pgn:
        return std::make_unique<style_holder<pgn_style>>();
    case style_kind::pnt3d:
        return std::make_unique<style_holder<pnt3d_style>>();
    case style_kind::pln3d:
        return std::make_unique<style_holder<pln3d_style>>();
    case style_kind::pgn3d:
        return std::make_unique<style_holder<pgn3d_style>>();
    case style_kind::txt_pnt:
    case style_kind::txt_pln:
    case style_kind::txt_pgn:
        return std::make_unique<style_holder<txt_style>>();
    case style_kind::clr:
        break;
    }
    return std::make_unique<style_holder<clr_style>>();
}

std::size_t index_of(variant_of_style variant)
{
    return static_cast<std::size_t>(variant);
}
} // namespace

std::unique_ptr<any_style> make_default_style(style_kind kind, variant_of_style variant)
{
    auto style = make_style(kind);
    // Labels beside a point; on lines and in polygons in the middle.
    if (kind == style_kind::txt_pln || kind == style_kind::txt_pgn) {
        auto *text = static_cast<txt_style *>(style->value());
        text->pos_x = 0;
        text->pos_y = 0;
    }
    if (variant == variant_of_style::selected)
        style->set_all_colors(c_selection);
    return style;
}

any_style const &default_style(style_kind kind, variant_of_style variant)
{
    static auto const styles = [] {
        std::array<std::array<std::unique_ptr<any_style>, 2>, c_style_kinds> all;
        for (int k = 0; k < c_style_kinds; ++k)
            for (auto v : {variant_of_style::base, variant_of_style::selected})
                all[static_cast<std::size_t>(k)][index_of(v)] =
                    make_default_style(static_cast<style_kind>(k), v);
        return all;
    }();
    return *styles[static_cast<std::size_t>(kind)][index_of(variant)];
}

stl_prm::stl_prm(stl_prm const &other) : f_kind(other.f_kind)
{
    for (std::size_t i = 0; i < f_styles.size(); ++i)
        if (other.f_styles[i])
            f_styles[i] = other.f_styles[i]->clone();
}

stl_prm &stl_prm::operator=(stl_prm const &other)
{
    if (this == &other)
        return *this;
    if (f_kind != other.f_kind) {
        for (auto &style : f_styles)
            style.reset();
        f_kind = other.f_kind;
    }
    assign_variant(other, variant_of_style::base);
    assign_variant(other, variant_of_style::selected);
    return *this;
}

any_style &stl_prm::get(variant_of_style variant)
{
    auto &style = f_styles[index_of(variant)];
    if (!style)
        style = make_default_style(f_kind, variant);
    return *style;
}

any_style const &stl_prm::read(variant_of_style variant) const
{
    auto const &style = f_styles[index_of(variant)];
    return style ? *style : default_style(f_kind, variant);
}

void stl_prm::assign_variant(stl_prm const &source, variant_of_style variant)
{
    if (this == &source || f_kind != source.f_kind)
        return;
    auto &mine = f_styles[index_of(variant)];
    auto const &theirs = source.f_styles[index_of(variant)];
    if (mine)
        mine->assign(source.read(variant)); // pointers handed out stay good
    else if (theirs)
        mine = theirs->clone();
}

bool operator==(stl_prm const &a, stl_prm const &b)
{
    if (a.f_kind != b.f_kind)
        return false;
    for (auto v : {variant_of_style::base, variant_of_style::selected})
        if ((a.f_styles[index_of(v)] || b.f_styles[index_of(v)]) && !a.read(v).equals(b.read(v)))
            return false;
    return true;
}

template <>
bool stl_prm::holds<pnt_style>() const
{
    return f_kind == style_kind::pnt;
}
template <>
bool stl_prm::holds<pln_style>() const
{
    return f_kind == style_kind::pln || f_kind == style_kind::grid1d_clr;
}
template <>
bool stl_prm::holds<pgn_style>() const
{
    return f_kind == style_kind::pgn;
}
template <>
bool stl_prm::holds<pnt3d_style>() const
{
    return f_kind == style_kind::pnt3d;
}
template <>
bool stl_prm::holds<pln3d_style>() const
{
    return f_kind == style_kind::pln3d;
}
template <>
bool stl_prm::holds<pgn3d_style>() const
{
    return f_kind == style_kind::pgn3d;
}
template <>
bool stl_prm::holds<Tvx_color>() const
{
    return f_kind == style_kind::clr;
}
template <>
bool stl_prm::holds<txt_style>() const
{
    return f_kind == style_kind::txt_pnt || f_kind == style_kind::txt_pln || f_kind == style_kind::txt_pgn;
}
} // namespace vx::styles
