#include "rows_page.h"

#include "captions/layout_elements.h"
#include "captions/units.h"
#include "controls/forms/event_off.h"
#include "controls/prop/clr_vsb_panel.h"
#include "controls/prop/fnt_panel.h"

#include "platform/basic/vx_res.h"
#include "platform/layers/vx_layout_lr2d.h"
#include "platform/toolkit/core/strings.h"

namespace vx::layout_elements {
namespace {
constexpr int c_side_margin = 6;
constexpr int c_row_margin = 2;
constexpr int c_number_width = 90;
constexpr int c_choice_width = 200;
constexpr int c_button_width = 150;
constexpr int c_color_width = 40;
constexpr int c_unit_width = 28;
constexpr int c_writing_height = 104;
constexpr int c_size_decimals = 2;

void set_margins(TControl *control)
{
    control->SetAlignWithMargins(true);
    control->GetMargins()->SetBounds(c_side_margin, c_row_margin, c_side_margin, c_row_margin);
}

constexpr value c_writing_size =
    field<&vx_layout_lr2d_get_writing, &vx_layout_lr2d_set_writing, &Tvx_layout_writing::size>;
} // namespace

rows_page::rows_page(TComponent *owner)
    : Tvx_basic_lr2d_edit(owner), f_area(new TScrollBox(this)), f_parent(f_area)
{
    f_area->SetBorderStyle(bsNone);
    f_area->SetParent(this);
    f_area->SetAlign(alClient);
}

/// Below what stands there.
void rows_page::place_row(TControl *row)
{
    int bottom = 0;
    for (int i = 0; i < f_parent->GetControlCount(); ++i) {
        TControl const *const above = f_parent->GetControls(i);
        bottom = std::max(bottom, above->GetTop() + above->GetHeight());
    }
    row->SetParent(f_parent);
    row->SetTop(bottom);
    set_margins(row);
    row->SetAlign(alTop);
}

void rows_page::place_page(Tvx_basic_lr2d_edit *edit)
{
    int const height = edit->GetHeight();
    place_row(edit);
    // The rows of the page have margins of their own.
    edit->GetMargins()->SetBounds(c_side_margin / 2, c_row_margin, c_side_margin / 2, 0);
    edit->create();
    edit->SetHeight(height);
    edit->on_changed = make_closure<&rows_page::on_page_changed>(this);
    f_pages.push_back(edit);
}

TWinControl *rows_page::add_group(int caption, int height)
{
    end_group();
    auto *const box = new Tvx_group_box(this);
    box->SetHeight(height);
    place_row(box);
    f_groups.push_back({box, caption});
    f_parent = box;
    return box;
}

void rows_page::add_row(TWinControl *control, int width, std::function<void()> load,
                        std::function<void()> show, std::function<void()> take, TObject *sender)
{
    auto *const strip = new Tvx_panel(this);
    strip->SetHeight(std::max(control->GetHeight(), c_row_height));
    place_row(strip);
    control->SetParent(strip);
    control->SetWidth(width > 0 ? width : strip->GetWidth());
    control->SetAlign(width > 0 ? alLeft : alClient);
    f_rows.push_back(
        {sender ? sender : control, control, strip, std::move(load), std::move(show), std::move(take)});
}

TNotifyEvent rows_page::row_changed()
{
    return make_closure<&rows_page::on_row_changed>(this);
}

Tvx_size_panel *rows_page::add_number(number_row const &row)
{
    auto *const panel = new Tvx_size_panel(this);
    panel->set_text_width(c_label_width);
    panel->set_precision(row.decimals);
    panel->set_trim_trailing_zeros(true);
    panel->set_min(row.is_negative ? -1 : 0);
    panel->set_end_caption_width(c_unit_width);
    panel->set_end_caption_visible(row.unit != 0);
    panel->on_changed = row_changed();
    panel->on_apply = make_closure<&rows_page::on_row_left>(this);
    auto const load = [panel, caption = row.caption, unit = row.unit] {
        panel->set_text(vx_res_get_wstr(caption));
        if (unit == 0)
            return;
        panel->set_end_caption(vx_res_get_wstr(unit));
        panel->SetWidth(c_label_width + c_number_width +
                        std::max(c_unit_width, panel->GetWidth() - panel->get_edit()->GetLeft() -
                                                   panel->get_edit()->GetWidth()));
    };
    add_row(
        panel, c_label_width + c_number_width + (row.unit != 0 ? c_unit_width : 0), load,
        [this, panel, what = row.what] { panel->set_size(what.get(f_lr2d)); },
        [this, panel, what = row.what] { what.set(f_lr2d, panel->get_size()); });
    return panel;
}

void rows_page::add_choice(choice_row const &row)
{
    auto *const panel = new Tvx_combo_box_panel(this);
    panel->set_caption_width(c_label_width);
    auto *const box = panel->get_combo_box();
    box->SetStyle(csDropDownList);
    box->OnChange = row_changed();
    auto const load = [panel, box, caption = row.caption, items = row.items] {
        panel->set_caption(vx_res_get_wstr(caption));
        int const chosen = box->GetItemIndex();
        box->GetItems()->SetText(vx_res_get_wstr(items));
        box->SetItemIndex(chosen);
    };
    add_row(
        panel, c_label_width + c_choice_width, load,
        [this, box, what = row.what] { box->SetItemIndex(static_cast<int>(what.get(f_lr2d))); },
        [this, box, what = row.what] { what.set(f_lr2d, box->GetItemIndex()); }, box);
}

void rows_page::add_flag(flag_row const &row)
{
    auto *const box = new Tvx_check_box(this);
    box->OnClick = row_changed();
    add_row(
        box, 0, [box, caption = row.caption] { box->SetCaption(vx_res_get_wstr(caption)); },
        [this, box, what = row.what] {
            vx::event_off const quiet(box->OnClick);
            box->SetChecked(what.get(f_lr2d) != 0);
        },
        [this, box, what = row.what] { what.set(f_lr2d, box->GetChecked() ? 1 : 0); });
}

Tvx_string_panel *rows_page::add_text(int caption, std::wstring (*get)(Ivx_layer const *layer),
                                      void (*set)(Ivx_layer *layer, wchar_t const *text))
{
    auto *const panel = new Tvx_string_panel(this);
    panel->set_caption_width(c_label_width);
    panel->on_changed = row_changed();
    add_row(
        panel, 0, [panel, caption] { panel->set_caption(vx_res_get_wstr(caption)); },
        [this, panel, get] { panel->set_string(get(f_lr2d).c_str()); },
        [this, panel, set] { set(f_lr2d, panel->get_wstring().c_str()); });
    return panel;
}

Tvx_button *rows_page::add_button(int caption, TNotifyEvent on_click)
{
    auto *const button = new Tvx_button(this);
    button->OnClick = on_click;
    add_row(
        button, c_button_width, [button, caption] { button->SetCaption(vx_res_get_wstr(caption)); }, [] {},
        [] {});
    return button;
}

void rows_page::add_writing()
{
    add_group(c_le_writing, c_writing_height);
    auto *const font = new Tvx_fnt_panel(this);
    font->set_capt_width(c_label_width);
    font->on_changed = row_changed();
    add_row(
        font, 0,
        [font] {
            font->set_caption(vx_res_get_wstr(c_le_font));
            font->load_res();
        },
        [this, font] {
            auto const writing = vx_layout_lr2d_get_writing(f_lr2d);
            font->set_font(&writing.font);
        },
        [this, font] {
            auto writing = vx_layout_lr2d_get_writing(f_lr2d);
            writing.font = *font->get_font();
            vx_layout_lr2d_set_writing(f_lr2d, writing);
        });
    add_number({c_le_letter_height, c_unit_mm, c_size_decimals, false, c_writing_size});
    auto *const color = new Tvx_clr_vsb_panel(this);
    color->set_can_visible(false);
    color->on_changed = row_changed();
    add_row(
        color, c_label_width + c_color_width,
        [color] {
            color->load_res();
            color->set_text(vx_res_get_wstr(c_le_color));
        },
        [this, color] { color->set_color(vx_layout_lr2d_get_writing(f_lr2d).color); },
        [this, color] {
            auto writing = vx_layout_lr2d_get_writing(f_lr2d);
            writing.color = color->get_color();
            vx_layout_lr2d_set_writing(f_lr2d, writing);
        });
    end_group();
}

void rows_page::set_row_visible(TControl const *control, bool visible)
{
    for (auto const &r : f_rows)
        if (r.control == control && r.strip->GetVisible() != visible) {
            r.strip->SetVisible(visible);
            // Where it was others stand meanwhile.
            int top = 0;
            for (auto const &each : f_rows)
                each.strip->SetTop(top++ * (c_row_height + c_row_height));
        }
}

void rows_page::load_res()
{
    for (auto const &g : f_groups)
        g.box->SetCaption(vx_res_get_wstr(g.caption));
    for (auto *const edit : f_pages)
        edit->load_res();
    for (auto const &r : f_rows)
        r.load();
}

void rows_page::update_controls()
{
    for (auto *const edit : f_pages) {
        edit->set_lr2d(f_lr2d);
        edit->update_controls();
    }
    if (!f_lr2d)
        return;
    show_rows();
    show_others();
}

void rows_page::end_edit(bool taken)
{
    for (auto *const edit : f_pages)
        edit->end_edit(taken);
    if (f_lr2d)
        show_rows();
}

void rows_page::show_rows(TObject const *typed)
{
    for (auto const &r : f_rows)
        if (r.sender != typed)
            r.show();
}

void rows_page::on_row_changed(TObject *sender)
{
    if (!f_lr2d)
        return;
    for (auto const &r : f_rows)
        if (r.sender == sender)
            r.take();
    show_rows(sender); // values that hang together
    call_changed();
}

void rows_page::on_row_left(TObject * /*sender*/)
{
    if (f_lr2d)
        show_rows();
}

void rows_page::on_page_changed(TObject * /*sender*/)
{
    if (!f_lr2d)
        return;
    show_rows();
    show_others();
    call_changed();
}
} // namespace vx::layout_elements
