#include "styles/label/label_style_edit_dlg.h"

#include "captions/labels.h"
#include "controls/forms/misc.h"
#include "styles/label/label_dlg_parts_priv.h"

#include "platform/basic/vx_res.h"
#include "platform/data/vx_tld_data.h"
#include "platform/layers/vx_tld_lr2d.h"
#include "platform/toolkit/core/new_on.h"
#include "platform/toolkit/core/strings.h"

using namespace vx::label_dlg;

namespace {
constexpr int c_width = 480;
constexpr int c_height = 395;
constexpr int c_rows = 4;
constexpr int c_half = 50; ///< percent
constexpr int c_ways = 3;
constexpr int c_line_ways = 4;
constexpr int c_item_height = 20; ///< of a radio button
constexpr int c_group_frame = 20; ///< caption and edges of a group
constexpr int c_scale_edit_width = 100;

constexpr int group_height(int items)
{
    return items * c_item_height + c_group_frame;
}
} // namespace

Tvx_label_style_edit_dlg::Tvx_label_style_edit_dlg(TComponent *owner) : Tvx_dlg_form(owner)
{
    SetBorderStyle(bsDialog);
    SetBounds(0, 0, c_width, c_height);
}

void Tvx_label_style_edit_dlg::create_controls()
{
    if (f_range_group)
        return;
    DisableAlign();
    auto *const grid = vx_new_on<TGridPanel>(get_content_panel(), this);
    grid->SetBevelOuter(bvNone);
    grid->SetAlign(alClient);
    grid->SetRowCount(c_rows);
    for (int i = 0; i < c_rows; ++i)
        grid->SetRow(i, ssAuto, 0);
    grid->SetColumn(0, ssPercent, c_half);
    grid->SetColumn(1, ssPercent, c_half);

    auto const add_cell = [&](int column, int row, int columns) {
        auto *const cell = vx_new_on<Tvx_panel>(grid, this);
        grid->SetCell(cell, column, row, columns);
        cell->SetAlign(alTop);
        return cell;
    };
    auto const add_group = [&](int column, int items) {
        auto *const cell = add_cell(column, 0, 1);
        rows only(this, cell);
        auto *const group = only.add<Tvx_radio_group>(group_height(items));
        cell->SetHeight(only.height());
        return group;
    };
    f_range_group = add_group(0, c_ways);
    f_duplicates_group = add_group(1, c_ways);
    f_sides[0] = add_cell(0, 1, 1);
    f_sides[1] = add_cell(1, 1, 1);
    rows left(this, f_sides[0]);
    f_delta_x = left.add_number(true);
    f_text_pos_x_group = left.add<Tvx_radio_group>(group_height(c_ways));
    f_line_type_group = left.add<Tvx_radio_group>(group_height(c_line_ways));
    f_line_type_group->SetVisible(false);
    f_line_type_group->OnClick = make_closure<&Tvx_label_style_edit_dlg::on_layout_line_clicked>(this);
    f_line_direction_panel = left.add<Tvx_panel>();
    f_line_direction_check = vx_new_on<Tvx_check_box>(f_line_direction_panel, this);
    f_line_direction_check->SetAlign(alClient);
    rows right(this, f_sides[1]);
    f_delta_y = right.add_number(true);
    f_text_pos_y_group = right.add<Tvx_radio_group>(group_height(c_ways));
    create_scales(add_cell(0, 2, 2));
    EnableAlign();
}

void Tvx_label_style_edit_dlg::create_scales(TWinControl *cell)
{
    rows only(this, cell);
    f_scales_box = only.add<Tvx_group_box>();
    rows lines(this, f_scales_box);
    auto const add_line = [&](Tvx_check_box *&box, Tvx_size_panel *&number) {
        auto *const line = lines.add<Tvx_panel>();
        number = new Tvx_size_panel(this);
        box = vx_new_on<Tvx_check_box>(line, this);
        number->SetParent(line);
        number->set_precision(c_decimals);
        number->set_trim_trailing_zeros(true);
        number->set_min(0);
        number->set_has_label(false);
        number->SetWidth(c_scale_edit_width);
        number->SetAlign(alRight);
        box->SetAlign(alClient);
    };
    add_line(f_use_min_scale_check, f_min_scale);
    add_line(f_use_max_scale_check, f_max_scale);
    f_use_min_scale_check->OnClick = make_closure<&Tvx_label_style_edit_dlg::on_use_min_scale_clicked>(this);
    f_use_max_scale_check->OnClick = make_closure<&Tvx_label_style_edit_dlg::on_use_max_scale_clicked>(this);
    f_scales_box->SetHeight(lines.height() + c_group_frame);
    cell->SetHeight(f_scales_box->GetHeight() + 2 * c_row_margin);
}

void Tvx_label_style_edit_dlg::load_res()
{
    Tvx_dlg_form::load_res();
    SetCaption(vx_res_get_wstr(c_lbl_edit_title));
    if (!f_range_group)
        return;
    struct
    {
        Tvx_radio_group *group;
        int name;
        int items;
    } const groups[] = {{f_range_group, c_lbl_range, c_lbl_ranges},
                        {f_duplicates_group, c_lbl_duplicates, c_lbl_duplicates_items},
                        {f_text_pos_x_group, c_lbl_pos_x, c_lbl_pos_x_items},
                        {f_text_pos_y_group, c_lbl_pos_y, c_lbl_pos_y_items},
                        {f_line_type_group, c_lbl_line_type, c_lbl_line_types}};
    for (auto const &[group, name, items] : groups) {
        int const chosen = group->GetItemIndex();
        group->SetCaption(vx_res_get_wstr(name));
        group->GetItems()->SetText(vx_res_get_wstr(items));
        choose_quietly(group, chosen);
    }
    struct
    {
        Tvx_size_panel *panel;
        int name;
    } const deltas[] = {{f_delta_x, c_lbl_delta_x}, {f_delta_y, c_lbl_delta_y}};
    for (auto const &[panel, name] : deltas) {
        panel->set_text(vx_res_get_wstr(name));
        panel->set_end_caption(vx_res_get_wstr(c_lbl_mm));
    }
    f_line_direction_check->SetCaption(vx_res_get_wstr(c_lbl_line_direction));
    f_scales_box->SetCaption(vx_res_get_wstr(c_lbl_scales));
    f_use_min_scale_check->SetCaption(vx_res_get_wstr(c_lbl_use_min_scale));
    f_use_max_scale_check->SetCaption(vx_res_get_wstr(c_lbl_use_max_scale));
    f_min_scale->set_text(vx_res_get_wstr(c_lbl_min_scale));
    f_max_scale->set_text(vx_res_get_wstr(c_lbl_max_scale));
}

void Tvx_label_style_edit_dlg::update_controls()
{
    if (!f_layer)
        return;
    void const *const info = vx_dtld_lr2d_get_text_class(f_layer);
    choose_quietly(f_range_group, vx_textlr_info_get_range(info));
    choose_quietly(f_duplicates_group, vx_textlr_info_get_duplicates(info));
    choose_quietly(f_text_pos_x_group, vx_textlr_info_get_text_pos_x(info) + 1);
    choose_quietly(f_text_pos_y_group, vx_textlr_info_get_text_pos_y(info) + 1);
    choose_quietly(f_line_type_group, vx_textlr_info_get_line_type(info));
    check_quietly(f_line_direction_check, vx_textlr_info_is_line_direction(info));
    f_delta_x->set_size(vx_textlr_info_get_delta_x(info));
    f_delta_y->set_size(vx_textlr_info_get_delta_y(info));
    check_quietly(f_use_min_scale_check, vx_textlr_info_use_min_scale(info));
    check_quietly(f_use_max_scale_check, vx_textlr_info_use_max_scale(info));
    f_min_scale->set_size(vx_textlr_info_get_min_scale(info));
    f_max_scale->set_size(vx_textlr_info_get_max_scale(info));
    f_min_scale->set_enabled(f_use_min_scale_check->GetChecked());
    f_max_scale->set_enabled(f_use_max_scale_check->GetChecked());

    bool const along_lines = vx_textlr_info_get_hint(info) == c_textlr_hint_lines;
    show_deltas(!along_lines || f_line_type_group->GetItemIndex() == c_textlr_line_level);
    f_text_pos_x_group->SetVisible(!along_lines);
    f_line_type_group->SetVisible(along_lines);
    f_line_direction_check->SetVisible(along_lines);
    f_line_direction_panel->SetVisible(along_lines);
    int const row_gap = 2 * c_row_margin;
    for (Tvx_panel *const side : f_sides)
        side->SetHeight(c_row_height + row_gap +
                        (along_lines ? group_height(c_line_ways) + c_row_height + 2 * row_gap
                                     : group_height(c_ways) + row_gap));
    f_text_pos_y_group->SetCaption(vx_res_get_wstr(along_lines ? c_lbl_pos_off_line : c_lbl_pos_y));
}

void Tvx_label_style_edit_dlg::show_deltas(bool enabled)
{
    f_delta_x->set_enabled(enabled);
    f_delta_y->set_enabled(enabled);
}

void Tvx_label_style_edit_dlg::on_layout_line_clicked(TObject * /*sender*/)
{
    show_deltas(f_line_type_group->GetItemIndex() == c_textlr_line_level);
}

void Tvx_label_style_edit_dlg::on_use_min_scale_clicked(TObject * /*sender*/)
{
    f_min_scale->set_enabled(f_use_min_scale_check->GetChecked());
}

void Tvx_label_style_edit_dlg::on_use_max_scale_clicked(TObject * /*sender*/)
{
    f_max_scale->set_enabled(f_use_max_scale_check->GetChecked());
}

void Tvx_label_style_edit_dlg::return_controls()
{
    if (!f_layer)
        return;
    void *const info = vx_dtld_lr2d_get_text_class(f_layer);
    auto const side_of = [](Tvx_radio_group const *group) {
        return static_cast<signed char>(group->GetItemIndex() - 1);
    };
    vx_textlr_info_set_range(info, f_range_group->GetItemIndex());
    vx_textlr_info_set_duplicates(info, f_duplicates_group->GetItemIndex());
    vx_textlr_info_set_line_direction(info, f_line_direction_check->GetChecked());
    if (vx_textlr_info_get_hint(info) != c_textlr_hint_lines)
        vx_textlr_info_set_text_pos_x(info, side_of(f_text_pos_x_group));
    else
        vx_textlr_info_set_line_type(info, f_line_type_group->GetItemIndex());
    vx_textlr_info_set_text_pos_y(info, side_of(f_text_pos_y_group));
    vx_textlr_info_set_delta_x(info, number_or(f_delta_x, vx_textlr_info_get_delta_x(info)));
    vx_textlr_info_set_delta_y(info, number_or(f_delta_y, vx_textlr_info_get_delta_y(info)));
    vx_textlr_info_set_use_min_scale(info, f_use_min_scale_check->GetChecked());
    vx_textlr_info_set_min_scale(info, number_or(f_min_scale, vx_textlr_info_get_min_scale(info)));
    vx_textlr_info_set_use_max_scale(info, f_use_max_scale_check->GetChecked());
    vx_textlr_info_set_max_scale(info, number_or(f_max_scale, vx_textlr_info_get_max_scale(info)));
}
