#include "host/gallery/gallery_page.h"
#include "host/gallery/squares.h"
#include "style_manager/shell/typed_stl_mngr_edits.h"

#include "platform/base/owned.h"
#include "platform/styles/vx_rng_scale.h"
#include "platform/styles/vx_scale_prm.h"
#include "platform/styles/vx_stl_mngr.h"

// The editor of range scales, with much room and with little.

namespace {
constexpr int c_edge = 16;
constexpr int c_gap = 12;
constexpr int c_wide = 520;
constexpr int c_narrow = 280;
constexpr int c_height = 400;

using owned_mngr = vx::owned<void, &vx_stl_mngr_destroy>;

template <class Edit>
void add_edit(TWinControl *page, int left, int width, void *mngr)
{
    auto *edit = new Edit(page);
    edit->SetParent(page);
    edit->SetBounds(left, c_edge, width, c_height);
    edit->create();
    edit->load_res();
    edit->set_data_events(squares::events());
    vx_stl_mngr_set_mode(mngr, c_stl_mngr_mode_range);
    vx_stl_mngr_set_rng_prop_name_w(mngr, L"AREA");
    void *const scale = vx_stl_mngr_get_rng_scale_ptr(mngr);
    vx_scale_prm_set_visible(vx_rng_scale_get_other_prm_ptr(scale), true);
    vx_rng_scale_set_other_caption_w(scale, L"?");
    edit->set_stl_mngr(mngr);
    edit->update_controls();
    edit->get_rng_edit()->generate_default_scale();
    edit->get_rng_edit()->generate_default_scale_with_clr();
    vx_rng_scale_set_marked(scale, 3, true);
    vx_rng_scale_set_marked(scale, 4, true);
    vx_scale_prm_set_visible(vx_rng_scale_get_scale_prm_ptr(scale, 7), false);
    edit->update_controls();
    edit->get_rng_edit()->get_grid()->SetRow(3);
}

void fill(TWinControl *page)
{
    // They live as long as the program.
    static owned_mngr const areas(vx_stl_mngr_create("pgn_style"));
    static owned_mngr const lines(vx_stl_mngr_create("pln_style"));
    add_edit<Tvx_pgn_stl_mngr_edit>(page, c_edge, c_wide, areas.get());
    add_edit<Tvx_pln_stl_mngr_edit>(page, c_edge + c_wide + c_gap, c_narrow, lines.get());
}

gallery_page const g_page(51, L"Range scales", &fill);
} // namespace
