#include "host/gallery/gallery_dialog.h"
#include "host/gallery/squares.h"
#include "scale_builders/range/rng_type_dlg.h"
#include "scale_builders/vxk_val_type_form.h"

#include "platform/base/owned.h"
#include "platform/styles/vxk_styles.h"

#include <string>

// The dialogs that build scales, in each of their kinds and modes.

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

// ---- values

/// A table of codes of counties and their names.
struct counties
{
    static constexpr unsigned c_count = 100;

    static bool open(void *, TObject *) { return true; }
    static void close(void *, TObject *) {}
    static unsigned count_fields(void *, TObject *) { return 2; }
    static unsigned count(void *, TObject *) { return c_count; }
    static char const *field(void *, TObject *, unsigned field, bool &usable, bool &numeric)
    {
        usable = true;
        numeric = field == 0;
        return field == 0 ? "FIPS" : "NAME";
    }
    static char const *text(void *, TObject *, unsigned field, unsigned object, bool &defined)
    {
        static std::string cell;
        defined = true;
        cell = field == 0 ? std::to_string(37001 + 2 * object) : "County " + std::to_string(object + 1);
        return cell.c_str();
    }
    static double value(void *, TObject *, unsigned, unsigned, bool &defined)
    {
        defined = false;
        return 0;
    }
};

/// Opens in a mode of its own.
class mode_form final : public Tvx_vcl_val_type_form
{
public:
    explicit mode_form(int mode) : Tvx_vcl_val_type_form(nullptr), f_mode(mode) {}

protected:
    bool prepare(void *stl_mngr, Tvx_data_events const &data) override
    {
        bool const is_read = Tvx_vcl_val_type_form::prepare(stl_mngr, data);
        auto *const panel = get_val_panel()->get_rescale_panel();
        panel->get_type_panel()->set_val_type(f_mode);
        panel->get_type_panel()->get_box()->call_on_change();
        auto *const file = panel->get_legend_panel()->get_dbf_open_panel();
        file->set_filename(VX_EXAMPLE_DATA "/nc_legend.dbf");
        file->get_on_changed()(file);
        panel->get_modify_panel()->get_capt_box()->SetChecked(true);
        return is_read;
    }

private:
    int f_mode;
};

void build_values(int mode)
{
    owned_mngr const mngr(vx_stl_mngr_create(c_pgn_style));
    vx_stl_mngr_set_val_prop_name_w(mngr.get(), L"FIPS");
    auto data = vx_gather_data({&counties::open, nullptr}, {&counties::close, nullptr},
                               {&counties::count_fields, nullptr}, {&counties::count, nullptr},
                               {&counties::field, nullptr}, {}, {&counties::text, nullptr},
                               {&counties::value, nullptr});
    mode_form form(mode);
    (void)form.dialog(0, 0, mngr.get(), data);
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
gallery_dialog const g_values(66, L"Values anew", [] { build_values(c_val_builder_rebuild); });
gallery_dialog const g_legend(68, L"Values by a legend",
                              [] { build_values(c_val_builder_rebuild_with_legend); });
gallery_dialog const g_update(69, L"Values brought up to date", [] { build_values(c_val_builder_modify); });
} // namespace
