#pragma once

#include "support/temp_dir.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_fnt_type.h"
#include "platform/storage/vx_xml_save_2d.h"
#include "platform/styles/vxk_styles.h"

#include <cmath>
#include <iterator>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace vx_test {
using owned_mngr = vx::owned<void, &vx_stl_mngr_destroy>;
using owned_xml = vx::owned<Ivx_xml_data, &vx_xml_data_destroy>;

inline constexpr char const *c_all_types[] = {
    "pnt_style",   "pln_style",   "pgn_style",     "clr_style",     "grid1d_clr_style", "pnt3d_style",
    "pln3d_style", "pgn3d_style", "txt_pnt_style", "txt_pln_style", "txt_pgn_style"};

[[nodiscard]] inline owned_mngr make_mngr(char const *type)
{
    return owned_mngr(vx_stl_mngr_create(type));
}

[[nodiscard]] inline std::wstring wide(std::filesystem::path const &path)
{
    return path.wstring();
}

/// The three kinds of scale files, by number.
struct scale_file
{
    char const *name;
    bool (*load)(Ivx_xml_data *, wchar_t const *, void *, char const *);
    bool (*save)(Ivx_xml_data *, wchar_t const *, void const *, char const *);
    void *(*scale)(void *);
    bool (*equal)(void const *, void const *);
};
inline constexpr scale_file c_scale_files[] = {
    {"s._vl", &vx_xml_data_load_val_scale_w, &vx_xml_data_save_val_scale_w, &vx_stl_mngr_get_val_scale_ptr,
     &vx_val_scale_equal},
    {"s._rg", &vx_xml_data_load_rng_scale_w, &vx_xml_data_save_rng_scale_w, &vx_stl_mngr_get_rng_scale_ptr,
     &vx_rng_scale_equal},
    {"s._rl", &vx_xml_data_load_rule_scale_w, &vx_xml_data_save_rule_scale_w, &vx_stl_mngr_get_rule_scale_ptr,
     &vx_val_scale_equal},
};

/// Makes styles and scales of any content, the same for a seed.
class maker
{
public:
    explicit maker(unsigned seed) : f_random(seed) {}

    int below(int count) { return std::uniform_int_distribution<int>(0, count - 1)(f_random); }
    bool flag() { return below(2) == 1; }
    double number()
    {
        double const some[] = {0, -0.0, 0.1, 1e-300, -1.7976931348623157e308, 4.9e-324, 123456.789, 2.5};
        int const pick = below(12);
        return pick < 8 ? some[pick] : std::uniform_real_distribution<double>(-1e6, 1e6)(f_random);
    }
    double bound()
    {
        double const some[] = {std::numeric_limits<double>::infinity(),
                               -std::numeric_limits<double>::infinity(),
                               std::numeric_limits<double>::quiet_NaN()};
        int const pick = below(20);
        return pick < 3 ? some[pick] : number();
    }
    Tvx_color color() { return vx_clr_init_rgba(below(256), below(256), below(256), below(256)); }
    std::wstring text()
    {
        std::wstring const some[] = {L"",
                                     L" both ends ",
                                     L"<a b=\"c\">&amp;'",
                                     L"two\nlines\r\nand\ttab",
                                     L"дорога ж/д №5",
                                     L"\x1F30D \x5730\x56FE",
                                     L"]]>--!<![CDATA[",
                                     L"C:\\maps\\new",
                                     L"\x1\x1F\x7F",
                                     L"%1 %s {0}",
                                     L"5",
                                     L"e\x301"};
        return some[below(static_cast<int>(std::size(some)))];
    }
    void font(vx_fnt_type *font)
    {
        vx_fnt_type_set_wname(font, flag() ? L"Noto Sans & <other>" : L"");
        vx_fnt_type_set_charset(font, below(256));
        vx_fnt_type_set_bold(font, flag());
        vx_fnt_type_set_italic(font, flag());
        vx_fnt_type_set_underline(font, flag());
        vx_fnt_type_set_strikeout(font, flag());
    }

    void complex(void *cpx)
    {
        char const *const keys[] = {c_pnt_figr_style_lr, c_pnt_geom_style_lr, c_pnt_symb_style_lr,
                                    c_pnt_text_style_lr, c_pln_line_style_lr, c_pln_tplt_style_lr,
                                    c_pln_cart_style_lr, c_pgn_fill_style_lr, c_pgn_htch_style_lr,
                                    c_pgn_spot_style_lr};
        void *const list = vx_cpx_style_get_style_lrs_ptr(cpx);
        for (int i = below(8); i > 0; --i)
            layer(vx_style_lrs_add_lr(list, keys[below(10)])); // of another kind: none is made
    }
    void bpnt(void *s)
    {
        vx_bpnt_style_set_use_figure(s, flag());
        vx_bpnt_style_set_figure(s, below(26));
        font(vx_bpnt_style_get_fnt_type_ptr(s));
        vx_bpnt_style_set_symbol(s, static_cast<unsigned>(below(0x10FFFF)));
        vx_bpnt_style_set_color(s, color());
        vx_bpnt_style_set_size(s, number());
        vx_bpnt_style_set_use_complex(s, flag());
        if (flag())
            complex(vx_bpnt_style_get_complex_style(s));
    }
    void bpln(void *s)
    {
        vx_bpln_style_set_color(s, color());
        vx_bpln_style_set_width(s, number());
        vx_bpln_style_set_use_complex(s, flag());
        if (flag())
            complex(vx_bpln_style_get_complex_style(s));
    }
    void bpgn(void *s)
    {
        vx_bpgn_style_set_color(s, color());
        vx_bpgn_style_set_use_complex(s, flag());
        if (flag())
            complex(vx_bpgn_style_get_complex_style(s));
    }
    void pnt(void *s)
    {
        bpnt(vx_pnt_style_get_bpnt_style_ptr(s));
        vx_pnt_style_set_pnt_visible(s, flag());
    }
    void pln(void *s)
    {
        bpln(vx_pln_style_get_bpln_style_ptr(s));
        bpnt(vx_pln_style_get_bpnt_style_ptr(s));
        bpnt(vx_pln_style_get_bend_style_ptr(s));
        bpnt(vx_pln_style_get_bbeg_style_ptr(s));
        vx_pln_style_set_pln_visible(s, flag());
        vx_pln_style_set_pnt_visible(s, flag());
        vx_pln_style_set_end_visible(s, flag());
        vx_pln_style_set_beg_visible(s, flag());
    }
    void pgn(void *s)
    {
        bpgn(vx_pgn_style_get_bpgn_style_ptr(s));
        bpln(vx_pgn_style_get_bpln_style_ptr(s));
        bpnt(vx_pgn_style_get_bpnt_style_ptr(s));
        vx_pgn_style_set_pgn_visible(s, flag());
        vx_pgn_style_set_pln_visible(s, flag());
        vx_pgn_style_set_pnt_visible(s, flag());
    }
    void style(void *prm, bool sel);
    void scale_prm(void *prm)
    {
        vx_scale_prm_set_visible(prm, flag());
        void *const stl = vx_scale_prm_get_stl_prm_ptr(prm);
        for (bool const sel : {false, true})
            if (below(3) > 0)
                style(stl, sel);
    }
    /// A value scale of `size` entries.
    void val_scale(void *scale, unsigned size);
    void rng_scale(void *scale, unsigned size);
    /// All three scales of a manager.
    void scales(void *mngr, unsigned size)
    {
        val_scale(vx_stl_mngr_get_val_scale_ptr(mngr), size);
        rng_scale(vx_stl_mngr_get_rng_scale_ptr(mngr), size);
        val_scale(vx_stl_mngr_get_rule_scale_ptr(mngr), size);
    }

private:
    void layer(void *lr);
    std::vector<double> opacity(std::vector<double> &positions);

    std::mt19937 f_random;
};
} // namespace vx_test
