#include "txt_params_edit.h"

#include "captions/scene.h"

#include "platform/basic/vx_res.h"
#include "platform/toolkit/core/strings.h"

#include <string>

using namespace vx::scene_editor;

namespace {
constexpr int c_row_height = 22;
constexpr int c_side_margin = 6;
constexpr int c_row_margin = 2;
constexpr int c_tick_width = 20;
constexpr int c_unit_width = 28;
constexpr int c_decimals = 1;
constexpr int c_fine_decimals = 2;
constexpr int c_box_width = 170;
constexpr int c_places = 3; ///< each way

/// The nine places by rows from the upper left one.
int place_of(void const *style)
{
    return (1 - vx_txt_style_get_pos_y(style)) * c_places + vx_txt_style_get_pos_x(style) + 1;
}

void set_place(void *style, int place)
{
    vx_txt_style_set_pos_x(style, place % c_places - 1);
    vx_txt_style_set_pos_y(style, 1 - place / c_places);
}

/// Of millimetres that are tenths of others two decimals count.
int decimals_of(txt_field field)
{
    return field == txt_field::size || field == txt_field::angle ? c_decimals : c_fine_decimals;
}

bool is_effect(txt_field field)
{
    return field >= txt_field::outline;
}

int caption_of(txt_field field)
{
    for (txt_number const &number : txt_numbers())
        if (number.field == field)
            return number.caption;
    for (txt_color const &color : txt_colors())
        if (color.field == field)
            return color.caption;
    return field == txt_field::font ? c_scn_font : c_scn_place;
}
} // namespace

Tvx_txt_params_edit::Tvx_txt_params_edit(TComponent *owner, ticks with_ticks)
    : Tvx_basic_pnl(owner), f_style(vx_txt_style_create()), f_pages(new Tvx_page_control(this)),
      f_font_sheet(add_sheet(c_scn_tab_font)), f_effects_sheet(add_sheet(c_scn_tab_effects)),
      f_font(new Tvx_fnt_panel(this)), f_place(new Tvx_combo_box_panel(this)), f_with_ticks(with_ticks)
{
    f_pages->SetParent(this);
    f_pages->SetAlign(alClient);
    row_of(txt_field::font).control = f_font;
    row_of(txt_field::place).control = f_place;
    f_font->on_changed = make_closure<&Tvx_txt_params_edit::on_row_changed>(this);
    f_place->set_box_width(c_box_width);
    f_place->get_combo_box()->SetStyle(csDropDownList);
    f_place->get_combo_box()->OnChange = make_closure<&Tvx_txt_params_edit::on_place_change>(this);
    for (txt_number const &number : txt_numbers()) {
        auto *panel = new Tvx_size_panel(this);
        panel->set_precision(decimals_of(number.field));
        panel->set_min(number.negative ? -1 : 0);
        panel->set_end_caption_width(c_unit_width);
        panel->set_end_caption_visible(true);
        panel->on_changed = make_closure<&Tvx_txt_params_edit::on_row_changed>(this);
        row_of(number.field).control = panel;
    }
    for (txt_color const &color : txt_colors()) {
        auto *panel = new Tvx_clr_vsb_panel(this);
        panel->set_can_visible(color.get_on != nullptr);
        panel->on_changed = make_closure<&Tvx_txt_params_edit::on_row_changed>(this);
        row_of(color.field).control = panel;
    }
    for (std::size_t i = 0; i < c_txt_field_count; ++i) {
        auto const field = txt_field(i);
        add_row(is_effect(field) ? f_effects_sheet : f_font_sheet, field,
                static_cast<TWinControl *>(f_rows[i].control));
    }
}

Tvx_tab_sheet *Tvx_txt_params_edit::add_sheet(int caption)
{
    auto *sheet = new Tvx_tab_sheet(this);
    sheet->SetTag(caption);
    sheet->SetPageControl(f_pages);
    return sheet;
}

void Tvx_txt_params_edit::add_first_page(TControl *content, int caption)
{
    Tvx_tab_sheet *sheet = add_sheet(caption);
    sheet->SetPageIndex(0);
    f_pages->SetActivePage(sheet);
    content->SetParent(sheet);
    content->SetAlign(alClient);
}

void Tvx_txt_params_edit::add_row(Tvx_tab_sheet *sheet, txt_field field, TWinControl *control)
{
    auto *strip = new Tvx_panel(this);
    strip->SetParent(sheet);
    strip->SetBounds(0, static_cast<int>(field) * (c_row_height + 2 * c_row_margin), sheet->GetClientWidth(),
                     c_row_height);
    strip->SetAlignWithMargins(true);
    strip->GetMargins()->SetBounds(c_side_margin, c_row_margin, c_side_margin, c_row_margin);
    strip->SetAlign(alTop);
    if (f_with_ticks == ticks::yes) {
        auto *tick = new Tvx_check_box(this);
        tick->SetParent(strip);
        tick->SetWidth(c_tick_width);
        tick->SetAlign(alLeft);
        tick->SetShowHint(true);
        row_of(field).tick = tick;
    }
    control->SetParent(strip);
    control->SetAlign(alClient);
}

void Tvx_txt_params_edit::update_controls()
{
    void *const style = f_style.get();
    f_font->set_font(vx_txt_style_get_font_ptr(style));
    f_place->get_combo_box()->SetItemIndex(place_of(style));
    for (txt_number const &number : txt_numbers())
        static_cast<Tvx_size_panel *>(row_of(number.field).control)->set_size(number.get(style));
    for (txt_color const &color : txt_colors()) {
        auto *panel = static_cast<Tvx_clr_vsb_panel *>(row_of(color.field).control);
        panel->set_color(color.get(style));
        if (color.get_on)
            panel->set_visible(color.get_on(style));
    }
}

void Tvx_txt_params_edit::load_res()
{
    for (int i = 0; i < f_pages->GetPageCount(); ++i) {
        TTabSheet *sheet = f_pages->GetPages(i);
        sheet->SetCaption(vx_res_get_wstr(static_cast<int>(sheet->GetTag())));
    }
    f_font->load_res();
    f_font->set_caption(vx_res_get_wstr(c_scn_font));
    f_place->set_caption(vx_res_get_wstr(c_scn_place));
    TStrings *places = f_place->get_combo_box()->GetItems();
    places->SetText(vx_res_get_wstr(c_scn_places));
    f_place->get_combo_box()->SetItemIndex(place_of(f_style.get()));
    for (txt_number const &number : txt_numbers()) {
        auto *panel = static_cast<Tvx_size_panel *>(row_of(number.field).control);
        panel->set_text(vx_res_get_wstr(number.caption));
        panel->set_end_caption(vx_res_get_wstr(number.unit));
    }
    for (txt_color const &color : txt_colors()) {
        auto *panel = static_cast<Tvx_clr_vsb_panel *>(row_of(color.field).control);
        panel->load_res();
        panel->set_text(vx_res_get_wstr(color.caption));
    }
    for (std::size_t i = 0; i < c_txt_field_count; ++i) {
        if (!f_rows[i].tick)
            continue;
        UnicodeString const hint = vx_res_format_w(c_scn_in_all, vx_res_get_wstr(caption_of(txt_field(i))));
        f_rows[i].tick->SetHint(hint);
        f_rows[i].tick->SetAccessibleName(hint);
    }
}

bool Tvx_txt_params_edit::is_ticked(txt_field field) const
{
    Tvx_check_box const *tick = f_rows[std::size_t(field)].tick;
    return tick && tick->GetChecked();
}

void Tvx_txt_params_edit::write(txt_field field)
{
    void *const style = f_style.get();
    TControl *const control = row_of(field).control;
    if (field == txt_field::font)
        vx_txt_style_set_font(style, f_font->get_font());
    else if (field == txt_field::place)
        set_place(style, f_place->get_combo_box()->GetItemIndex());
    for (txt_number const &number : txt_numbers())
        if (number.field == field)
            number.set(style, static_cast<Tvx_size_panel *>(control)->get_size());
    for (txt_color const &color : txt_colors()) {
        if (color.field != field)
            continue;
        auto const *panel = static_cast<Tvx_clr_vsb_panel *>(control);
        color.set(style, panel->get_color());
        if (color.get_on)
            color.set_on(style, panel->get_visible());
    }
}

void Tvx_txt_params_edit::take(txt_field field)
{
    write(field);
    if (Tvx_check_box *tick = row_of(field).tick)
        tick->SetChecked(true);
    call_changed();
}

void Tvx_txt_params_edit::on_row_changed(TObject *sender)
{
    for (std::size_t i = 0; i < c_txt_field_count; ++i)
        if (f_rows[i].control == sender)
            take(txt_field(i));
}

void Tvx_txt_params_edit::on_place_change(TObject * /*sender*/)
{
    take(txt_field::place);
}
