#include "styles/complex/cpx_basic_edit.h"

#include "controls/forms/event_off.h"

#include "platform/basic/vx_res.h"

#include <algorithm>

namespace {
constexpr int c_row_height = 20;
constexpr int c_side_margin = 6;
constexpr int c_row_margin = 3;
constexpr int c_unit_width = 20;
} // namespace

void Tvx_cpx_basic_edit::place_row(TWinControl *parent, TWinControl *row)
{
    int top = 0;
    for (int i = 0; i < parent->GetControlCount(); ++i)
        top = std::max(top, parent->GetControls(i)->GetBoundsRect().Bottom);
    row->SetParent(parent);
    row->SetBounds(0, top, parent->GetClientWidth(), c_row_height);
    row->SetAlignWithMargins(true);
    row->GetMargins()->SetBounds(c_side_margin, c_row_margin, c_side_margin, c_row_margin);
    row->SetAlign(alTop);
}

void Tvx_cpx_basic_edit::put_below(TControl *row, TControl const *above, bool visible)
{
    row->SetVisible(visible);
    row->SetTop(above->GetBoundsRect().Bottom);
}

Tvx_size_panel *Tvx_cpx_basic_edit::add_size(TWinControl *parent, size_value const &value)
{
    auto *const panel = new Tvx_size_panel(this);
    place_row(parent, panel);
    panel->set_precision(value.decimals);
    panel->set_trim_trailing_zeros(value.decimals == c_free_decimals);
    panel->set_end_caption_width(c_unit_width);
    panel->set_end_caption_visible(true);
    panel->on_changed = make_closure<&Tvx_cpx_basic_edit::on_size_changed>(this);
    f_sizes.push_back({panel, value});
    return panel;
}

Tvx_clr_vsb_panel *Tvx_cpx_basic_edit::add_color(TWinControl *parent, Tvx_color (*get)(void const *layer),
                                                 void (*set)(void *layer, Tvx_color color), int caption)
{
    auto *const panel = new Tvx_clr_vsb_panel(this);
    place_row(parent, panel);
    panel->set_can_visible(false);
    panel->on_changed = make_closure<&Tvx_cpx_basic_edit::on_color_changed>(this);
    f_colors.push_back({panel, get, set, caption});
    return panel;
}

Tvx_check_box *Tvx_cpx_basic_edit::add_flag(TWinControl *parent, bool (*get)(void const *layer),
                                            void (*set)(void *layer, bool flag), int caption)
{
    auto *const box = new Tvx_check_box(this);
    place_row(parent, box);
    box->OnClick = make_closure<&Tvx_cpx_basic_edit::on_flag_click>(this);
    f_flags.push_back({box, get, set, caption});
    return box;
}

Tvx_cpx_style_btn_panel *Tvx_cpx_basic_edit::add_style(TWinControl *parent, void *(*get)(void *layer),
                                                       int caption)
{
    auto *const panel = new Tvx_cpx_style_btn_panel(this);
    place_row(parent, panel);
    panel->on_changed = make_closure<&Tvx_cpx_basic_edit::on_style_changed>(this);
    f_styles.push_back({panel, get, caption});
    return panel;
}

void Tvx_cpx_basic_edit::load_res()
{
    for (size_row const &row : f_sizes) {
        row.panel->set_text(UnicodeString(vx_res_get_wstr(row.value.caption)) + row.value.behind);
        row.panel->set_end_caption(vx_res_get_wstr(row.value.unit));
    }
    align_edits();
    for (color_row const &row : f_colors) {
        row.panel->load_res();
        row.panel->set_text(vx_res_get_wstr(row.caption));
    }
    for (flag_row const &row : f_flags)
        row.box->SetCaption(vx_res_get_wstr(row.caption));
    for (style_row const &row : f_styles)
        row.panel->set_caption(vx_res_get_wstr(row.caption));
}

/// Behind all numbers there is as much room as the longest unit needs.
void Tvx_cpx_basic_edit::align_edits()
{
    auto const room = [](Tvx_size_panel const *panel) {
        return panel->GetClientWidth() - panel->get_edit()->GetBoundsRect().Right;
    };
    int widest = c_unit_width;
    for (size_row const &row : f_sizes)
        widest = std::max(widest, room(row.panel));
    for (size_row const &row : f_sizes)
        row.panel->set_end_caption_width(widest);
}

void Tvx_cpx_basic_edit::update_controls()
{
    for (size_row const &row : f_sizes)
        row.panel->set_size(row.value.get(f_style_lr));
    for (color_row const &row : f_colors)
        row.panel->set_color(row.get(f_style_lr));
    for (flag_row const &row : f_flags) {
        vx::event_off const quiet(row.box->OnClick);
        row.box->SetChecked(row.get(f_style_lr));
    }
    for (style_row const &row : f_styles)
        row.panel->set_style(f_style_lr ? row.get(f_style_lr) : nullptr);
}

void Tvx_cpx_basic_edit::on_size_changed(TObject *sender)
{
    if (!f_style_lr)
        return;
    auto const row =
        std::ranges::find(f_sizes, sender, [](size_row const &r) -> TObject * { return r.panel; });
    row->value.set(f_style_lr, row->panel->get_size());
    call_changed();
}

void Tvx_cpx_basic_edit::on_color_changed(TObject *sender)
{
    if (!f_style_lr)
        return;
    auto const row =
        std::ranges::find(f_colors, sender, [](color_row const &r) -> TObject * { return r.panel; });
    row->set(f_style_lr, row->panel->get_color());
    call_changed();
}

void Tvx_cpx_basic_edit::on_flag_click(TObject *sender)
{
    if (!f_style_lr)
        return;
    auto const row = std::ranges::find(f_flags, sender, [](flag_row const &r) -> TObject * { return r.box; });
    row->set(f_style_lr, row->box->GetChecked());
    flag_changed(row->box);
    call_changed();
}

void Tvx_cpx_basic_edit::on_style_changed(TObject * /*sender*/)
{
    call_changed();
}
