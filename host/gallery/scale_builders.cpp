#include "host/gallery/gallery_dialog.h"
#include "host/gallery/squares.h"
#include "scale_builders/range/rng_type_dlg.h"

#include "platform/base/owned.h"
#include "platform/styles/vxk_styles.h"

// The dialog that builds a range scale, in each of its kinds.

namespace {
using owned_mngr = vx::owned<void, &vx_stl_mngr_destroy>;

void build_ranges(char const *style, int rng_type)
{
    vx_rng_type_set_offer_natural(true);
    owned_mngr const mngr(vx_stl_mngr_create(style));
    vx_stl_mngr_set_rng_prop_name_w(mngr.get(), L"AREA");
    void *const scale = vx_stl_mngr_get_rng_scale_ptr(mngr.get());
    vx_rng_scale_set_size(scale, 7);
    vx_rng_scale_set_max_value(scale, 10'000);
    vx_rng_scale_set_rng_type(scale, rng_type);
    auto const data = squares::events();
    (void)vx_rng_type_dlg(0, 0, mngr.get(), data.open, data.close, data.get_np, data.get_no, data.get_prop,
                          data.get_stat, data.get_str, data.get_val);
}

gallery_dialog const g_equal(60, L"Equal ranges", [] { build_ranges(c_pgn_style, c_rng_type_equal_ranges); });
gallery_dialog const g_deviation(61, L"Ranges by deviation",
                                 [] { build_ranges(c_pgn_style, c_rng_type_stdev); });
gallery_dialog const g_logarithm(62, L"Logarithmic ranges",
                                 [] { build_ranges(c_pgn_style, c_rng_type_log); });
gallery_dialog const g_colors(63, L"Logarithmic colours", [] { build_ranges(c_clr_style, c_rng_type_log); });
gallery_dialog const g_spacing(64, L"Logarithmic spacing",
                               [] { build_ranges(c_pgn_style, c_rng_type_log_space); });
gallery_dialog const g_natural(65, L"Natural breaks",
                               [] { build_ranges(c_pgn_style, c_rng_type_natural_breaks); });
} // namespace
