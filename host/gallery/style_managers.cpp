#include "host/gallery/gallery_page.h"
#include "host/gallery/sample_fields.h"
#include "style_manager/shell/typed_stl_mngr_edits.h"

#include "platform/base/owned.h"
#include "platform/styles/vx_scale_prm.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_stl_prm.h"
#include "platform/styles/vx_val_scale.h"

#include <array>

// The editors of style managers: a simple style, unique values, rules.

namespace {
constexpr int c_edge = 16;
constexpr int c_gap = 12;
constexpr int c_width = 266;
constexpr int c_height = 400;
constexpr std::array c_colors{vx_clr_init_rgb(60, 140, 60), vx_clr_init_rgb(190, 220, 120),
                              vx_clr_init_rgb(120, 170, 220)};

using owned_mngr = vx::owned<void, &vx_stl_mngr_destroy>;

template <class Edit>
Edit *add_edit(TWinControl *page, int place, void *mngr)
{
    auto *edit = new Edit(page);
    edit->SetParent(page);
    edit->SetBounds(c_edge + place * (c_width + c_gap), c_edge, c_width, c_height);
    edit->create();
    edit->load_res();
    edit->rule_enabled(true);
    edit->set_stl_mngr(mngr);
    edit->update_controls();
    return edit;
}

void fill_scale(void *scale, std::array<wchar_t const *, 3> const &texts)
{
    vx_val_scale_set_size(scale, texts.size());
    for (unsigned i = 0; i < texts.size(); ++i) {
        vx_val_scale_set_text_w(scale, i, texts[i]);
        vx_val_scale_set_caption_w(scale, i, texts[i]);
        void *const prm = vx_scale_prm_get_stl_prm_ptr(vx_val_scale_get_scale_prm_ptr(scale, i));
        vx_stl_prm_set_color(prm, false, c_colors[i]);
    }
}

// ---- the data of the unique values

constexpr sample_fields c_fields{"LAND", "AREA"};

void bind_data(Tvx_stl_mngr_edit *edit)
{
    c_fields.bind(edit);
    edit->update_controls();
}

void fill(TWinControl *page)
{
    // They live as long as the program.
    static owned_mngr const points(vx_stl_mngr_create("pnt_style"));
    static owned_mngr const areas(vx_stl_mngr_create("pgn_style"));
    static owned_mngr const lines(vx_stl_mngr_create("pln_style"));
    vx_stl_mngr_set_mode(areas.get(), c_stl_mngr_mode_value);
    vx_stl_mngr_set_val_prop_name_w(areas.get(), L"LAND");
    fill_scale(vx_stl_mngr_get_val_scale_ptr(areas.get()), {L"forest", L"meadow", L"water"});
    vx_stl_mngr_set_mode(lines.get(), c_stl_mngr_mode_rule);
    fill_scale(vx_stl_mngr_get_rule_scale_ptr(lines.get()), {L"", L"", L""});
    add_edit<Tvx_pnt_stl_mngr_edit>(page, 0, points.get());
    bind_data(add_edit<Tvx_pgn_stl_mngr_edit>(page, 1, areas.get()));
    add_edit<Tvx_pln_stl_mngr_edit>(page, 2, lines.get());
}

gallery_page const g_page(50, L"Style managers", &fill);
} // namespace
