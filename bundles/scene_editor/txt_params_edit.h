#pragma once

#include "controls/forms/buttons.h"
#include "controls/forms/caption_panels.h"
#include "controls/forms/pages.h"
#include "controls/numeric/size_panel.h"
#include "controls/prop/clr_vsb_panel.h"
#include "controls/prop/fnt_panel.h"
#include "txt_fields.h"

#include "platform/base/owned.h"
#include "platform/styles/vx_txt_style.h"

#include <array>

/// Edits the parameters of a text style on two pages, one for font and place, one for outline, background and
/// shadow. The rows can have a tick each, for editors that set some of the parameters only.
///
/// Holds a private style: values go in and out by assignment.
class Tvx_txt_params_edit final : public Tvx_basic_pnl
{
public:
    enum class ticks
    {
        no,
        yes
    };
    Tvx_txt_params_edit(TComponent *owner, ticks with_ticks);

    [[nodiscard]] void *get_txt_style() const { return f_style.get(); }
    void set_txt_style(void *style) { vx_txt_style_assign(f_style.get(), style); }
    /// Shows the values of the private style; ticks stay. Fires nothing.
    void update_controls();
    void load_res();
    /// What the user changes is ticked too.
    [[nodiscard]] bool is_ticked(vx::scene_editor::txt_field field) const;

    /// Its sheets may be joined by others.
    [[nodiscard]] Tvx_page_control *get_pages() const { return f_pages; }
    /// Puts a control of the owner's on a page ahead of the others.
    void add_first_page(TControl *content, int caption);

private:
    struct row
    {
        Tvx_check_box *tick = nullptr;
        TControl *control = nullptr;
    };

    Tvx_tab_sheet *add_sheet(int caption);
    void add_row(Tvx_tab_sheet *sheet, vx::scene_editor::txt_field field, TWinControl *control);
    [[nodiscard]] row &row_of(vx::scene_editor::txt_field field) { return f_rows[std::size_t(field)]; }
    void write(vx::scene_editor::txt_field field);
    void on_row_changed(TObject *sender);
    void on_place_change(TObject *sender);
    void take(vx::scene_editor::txt_field field);

    vx::owned<void, &vx_txt_style_destroy> f_style;
    Tvx_page_control *f_pages;
    Tvx_tab_sheet *f_font_sheet;
    Tvx_tab_sheet *f_effects_sheet;
    Tvx_fnt_panel *f_font;
    Tvx_combo_box_panel *f_place;
    std::array<row, vx::scene_editor::c_txt_field_count> f_rows;
    ticks f_with_ticks;
};
