#include "support.h"

#include "platform/basic/vx_fault.h"

#include <algorithm>

namespace vx_test {
namespace {
/// Saves that fail on purpose tell nobody: a message would wait for an answer.
[[maybe_unused]] Tvx_reason_handler const g_former = vx_reason_set_handler(nullptr);
} // namespace

void maker::layer(void *lr)
{
    if (!lr)
        return;
    // Functions of other layers than this one's do nothing.
    font(vx_pnt_symb_lr_get_fnt_type_ptr(lr));
    vx_pnt_symb_lr_set_symbol(lr, static_cast<unsigned>(below(70000)));
    vx_pnt_symb_lr_set_color(lr, color());
    vx_pnt_symb_lr_set_size(lr, number());
    vx_pnt_symb_lr_set_dx(lr, number());
    vx_pnt_symb_lr_set_dy(lr, number());
    vx_pnt_symb_lr_set_angle(lr, number());

    vx_pnt_figr_lr_set_lr_figure(lr, below(26));
    vx_pnt_figr_lr_set_color(lr, color());
    vx_pnt_figr_lr_set_size_x(lr, number());
    vx_pnt_figr_lr_set_size_y(lr, number());
    vx_pnt_figr_lr_set_dx(lr, number());
    vx_pnt_figr_lr_set_dy(lr, number());
    vx_pnt_figr_lr_set_angle(lr, number());
    vx_pnt_figr_lr_set_line_width(lr, number());

    vx_pnt_geom_lr_set_fill(lr, flag());
    vx_pnt_geom_lr_set_color(lr, color());
    vx_pnt_geom_lr_set_size(lr, number());
    vx_pnt_geom_lr_set_dx(lr, number());
    vx_pnt_geom_lr_set_dy(lr, number());
    vx_pnt_geom_lr_set_angle(lr, number());
    vx_pnt_geom_lr_set_line_width(lr, number());
    for (int part = below(3); part > 0; --part) {
        std::vector<Tvx_pnt_d2> points(static_cast<std::size_t>(1 + below(5)));
        for (auto &p : points)
            p = {below(100) / 100.0 - 0.5, below(100) / 100.0 - 0.5};
        vx_pnt_geom_lr_add_part(lr, points.data(), static_cast<unsigned>(points.size()));
    }

    font(vx_pnt_text_lr_get_fnt_type_ptr(lr));
    vx_pnt_text_lr_set_text_w(lr, text().c_str());
    vx_pnt_text_lr_set_color(lr, color());
    vx_pnt_text_lr_set_size(lr, number());
    vx_pnt_text_lr_set_dx(lr, number());
    vx_pnt_text_lr_set_dy(lr, number());
    vx_pnt_text_lr_set_angle(lr, number());

    vx_pln_line_lr_set_color(lr, color());
    vx_pln_line_lr_set_width(lr, number());
    vx_pln_line_lr_set_delta(lr, number());

    vx_pln_tplt_lr_set_color(lr, color());
    vx_pln_tplt_lr_set_width(lr, number());
    vx_pln_tplt_lr_set_dash(lr, number());
    vx_pln_tplt_lr_set_gap(lr, number());
    vx_pln_tplt_lr_set_shift(lr, number());
    vx_pln_tplt_lr_set_delta(lr, number());
    vx_pln_tplt_lr_set_template(lr, flag() ? "10204" : "");
    if (void *const nested = vx_pln_tplt_lr_get_cpx_pnt_style_ptr(lr))
        complex(nested);

    vx_pln_cart_lr_set_color(lr, color());
    vx_pln_cart_lr_set_width(lr, number());
    vx_pln_cart_lr_set_delta(lr, number());
    vx_pln_cart_lr_set_cap(lr, below(3));
    vx_pln_cart_lr_set_join(lr, below(3));
    vx_pln_cart_lr_set_casing_width(lr, number());
    vx_pln_cart_lr_set_casing_color(lr, color());
    std::vector<double> dashes(static_cast<std::size_t>(below(4)));
    std::ranges::generate(dashes, [this] { return below(100) / 8.0; });
    vx_pln_cart_lr_set_dashes(lr, dashes.data(), static_cast<unsigned>(dashes.size()));

    vx_pgn_fill_lr_set_color(lr, color());

    vx_pgn_htch_lr_set_delta(lr, number());
    vx_pgn_htch_lr_set_angle(lr, number());
    vx_pgn_htch_lr_set_shift(lr, number());
    if (void *const nested = vx_pgn_htch_lr_get_cpx_pln_style_ptr(lr))
        complex(nested);

    vx_pgn_spot_lr_set_spot_type(lr, below(2));
    vx_pgn_spot_lr_set_dx(lr, number());
    vx_pgn_spot_lr_set_dy(lr, number());
    vx_pgn_spot_lr_set_x0(lr, number());
    vx_pgn_spot_lr_set_y0(lr, number());
    vx_pgn_spot_lr_set_use_cpx_pnt(lr, flag());
    vx_pgn_spot_lr_set_point_clr(lr, color());
    vx_pgn_spot_lr_set_point_size(lr, number());
    vx_pgn_spot_lr_set_random_x(lr, flag());
    vx_pgn_spot_lr_set_random_y(lr, flag());
    vx_pgn_spot_lr_set_random_angle(lr, flag());
    if (void *const nested = vx_pgn_spot_lr_get_cpx_pnt_style_ptr(lr))
        complex(nested);
}

void maker::style(void *prm, bool sel)
{
    if (void *s = vx_stl_prm_get_pnt_style_ptr(prm, sel))
        return pnt(s);
    if (void *s = vx_stl_prm_get_pln_style_ptr(prm, sel))
        return pln(s);
    if (void *s = vx_stl_prm_get_pgn_style_ptr(prm, sel))
        return pgn(s);
    if (Tvx_color *s = vx_stl_prm_get_clr_style_ptr(prm, sel)) {
        *s = color();
        return;
    }
    if (void *s = vx_stl_prm_get_pnt3d_style_ptr(prm, sel)) {
        vx_bpnt3d_style_set_size(vx_pnt3d_style_get_bpnt3d_style_ptr(s), number());
        vx_bpnt3d_style_set_color(vx_pnt3d_style_get_bpnt3d_style_ptr(s), color());
        vx_pnt3d_style_set_pnt_visible(s, flag());
        return;
    }
    if (void *s = vx_stl_prm_get_pln3d_style_ptr(prm, sel)) {
        vx_bpln3d_style_set_width(vx_pln3d_style_get_bpln3d_style_ptr(s), number());
        vx_bpln3d_style_set_color(vx_pln3d_style_get_bpln3d_style_ptr(s), color());
        vx_bpnt3d_style_set_size(vx_pln3d_style_get_bpnt3d_style_ptr(s), number());
        vx_pln3d_style_set_pln_visible(s, flag());
        vx_pln3d_style_set_pnt_visible(s, flag());
        return;
    }
    if (void *s = vx_stl_prm_get_pgn3d_style_ptr(prm, sel)) {
        vx_bpgn3d_style_set_color(vx_pgn3d_style_get_bpgn3d_style_ptr(s), color());
        vx_bpln3d_style_set_width(vx_pgn3d_style_get_bpln3d_style_ptr(s), number());
        vx_bpnt3d_style_set_color(vx_pgn3d_style_get_bpnt3d_style_ptr(s), color());
        vx_pgn3d_style_set_pgn_visible(s, flag());
        vx_pgn3d_style_set_pln_visible(s, flag());
        vx_pgn3d_style_set_pnt_visible(s, flag());
        return;
    }
    void *s = vx_stl_prm_get_txt_pnt_style_ptr(prm, sel);
    if (!s)
        s = vx_stl_prm_get_txt_pln_style_ptr(prm, sel);
    if (!s)
        s = vx_stl_prm_get_txt_pgn_style_ptr(prm, sel);
    font(vx_txt_style_get_font_ptr(s));
    vx_txt_style_set_color(s, color());
    vx_txt_style_set_angle(s, number());
    vx_txt_style_set_font_size(s, number());
    vx_txt_style_set_outline(s, flag());
    vx_txt_style_set_outline_clr(s, color());
    vx_txt_style_set_outline_size(s, number());
    vx_txt_style_set_back(s, flag());
    vx_txt_style_set_back_clr(s, color());
    vx_txt_style_set_shadow(s, flag());
    vx_txt_style_set_shadow_clr(s, color());
    vx_txt_style_set_shadow_width(s, number());
    vx_txt_style_set_shadow_gap_x(s, number());
    vx_txt_style_set_shadow_gap_y(s, number());
    vx_txt_style_set_pos_x(s, below(3) - 1);
    vx_txt_style_set_pos_y(s, below(3) - 1);
    vx_txt_style_set_delta_x(s, number());
    vx_txt_style_set_delta_y(s, number());
    void *const lines = vx_txt_style_get_txt_stl_line(s);
    unsigned const count = static_cast<unsigned>(below(3));
    vx_txt_stl_line_add(lines, count);
    for (unsigned i = 0; i < count; ++i)
        vx_txt_stl_line_set_str(lines, text().c_str(), i);
}

std::vector<double> maker::opacity(std::vector<double> &positions)
{
    positions = {0};
    for (double at = 0.2; at < 1 && flag(); at += 0.3)
        positions.push_back(at);
    positions.push_back(1);
    std::vector<double> values(positions.size());
    std::ranges::generate(values, [this] { return below(101) / 100.0; });
    return values;
}

void maker::val_scale(void *scale, unsigned size)
{
    vx_val_scale_set_size(scale, size);
    for (unsigned i = 0; i < size; ++i) {
        vx_val_scale_set_text_w(scale, i, text().c_str());
        vx_val_scale_set_caption_w(scale, i, text().c_str());
        scale_prm(vx_val_scale_get_scale_prm_ptr(scale, i));
    }
    vx_val_scale_set_other_caption_w(scale, text().c_str());
    scale_prm(vx_val_scale_get_other_prm_ptr(scale));
    std::vector<double> positions;
    auto const values = opacity(positions);
    vx_val_scale_set_opacity_pts(scale, positions.data(), values.data(),
                                 static_cast<unsigned>(values.size()));
}

void maker::rng_scale(void *scale, unsigned size)
{
    vx_rng_scale_set_size(scale, size);
    for (unsigned i = 0; i < size; ++i) {
        vx_rng_scale_set_min(scale, i, bound());
        vx_rng_scale_set_max(scale, i, bound());
        vx_rng_scale_set_caption_w(scale, i, text().c_str());
        scale_prm(vx_rng_scale_get_scale_prm_ptr(scale, i));
    }
    vx_rng_scale_set_min_value(scale, bound());
    vx_rng_scale_set_max_value(scale, bound());
    vx_rng_scale_set_min_caption_w(scale, text().c_str());
    vx_rng_scale_set_max_caption_w(scale, text().c_str());
    vx_rng_scale_set_other_caption_w(scale, text().c_str());
    scale_prm(vx_rng_scale_get_min_prm_ptr(scale));
    scale_prm(vx_rng_scale_get_max_prm_ptr(scale));
    scale_prm(vx_rng_scale_get_other_prm_ptr(scale));
    vx_rng_scale_set_rng_type(scale, below(6));
    vx_rng_scale_set_round_digits(scale, below(21) - 10);
    vx_rng_scale_set_deviation_coeff(scale, number());
    std::vector<double> positions;
    auto const values = opacity(positions);
    vx_rng_scale_set_opacity_pts(scale, positions.data(), values.data(),
                                 static_cast<unsigned>(values.size()));
}
} // namespace vx_test
