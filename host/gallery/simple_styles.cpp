#include "host/gallery/gallery_page.h"
#include "styles/simple/pgn_stl_edit.h"
#include "styles/simple/pln_stl_edit.h"
#include "styles/simple/pnt_stl_edit.h"
#include "styles/simple/style_panels.h"

#include "platform/styles/vx_style.h"

// The editors of simple styles, and the panels with style buttons.

namespace {
constexpr int c_edge = 16;
constexpr int c_gap = 8;
constexpr int c_edit_width = 220;
constexpr int c_edit_height = 270;

template <class Edit>
Edit *add_edit(TWinControl *page, int place)
{
    auto *edit = new Edit(page);
    edit->SetParent(page);
    edit->SetBounds(c_edge + place * (c_edit_width + c_gap), c_edge, c_edit_width, c_edit_height);
    edit->load_res();
    edit->update_controls();
    return edit;
}

template <class Panel>
Panel *add_panel(TWinControl *page, int place, wchar_t const *caption)
{
    auto *panel = new Panel(page);
    panel->SetParent(page);
    panel->SetBounds(c_edge, c_edge + c_edit_height + c_gap + place * (panel->GetHeight() + c_gap),
                     c_edit_width, panel->GetHeight());
    panel->load_res();
    panel->set_caption(caption);
    panel->update_controls();
    return panel;
}

void fill(TWinControl *page)
{
    add_edit<Tvx_pnt_stl_edit>(page, 0);
    auto *lines = add_edit<Tvx_pln_stl_edit>(page, 1);
    vx_pln_style_set_pnt_visible(lines->get_pln_style(), true);
    lines->update_controls();
    add_edit<Tvx_pgn_stl_edit>(page, 2);
    add_panel<Tvx_pnt_style_panel>(page, 0, L"Points");
    add_panel<Tvx_pln_style_panel>(page, 1, L"Lines");
    add_panel<Tvx_pgn_style_panel>(page, 2, L"Polygons");
    auto *color = add_panel<Tvx_clr_style_panel>(page, 3, L"Selection");
    color->set_clr_style(vx_clr_init_rgba(220, 40, 40, 160));
    color->update_controls();
}

gallery_page const c_page(40, L"Simple styles", &fill);
} // namespace
