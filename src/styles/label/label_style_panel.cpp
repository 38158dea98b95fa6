#include "styles/label/label_style_panel.h"

#include "captions/labels.h"
#include "controls/forms/event_off.h"
#include "controls/prop/detail/picture_button.h"
#include "styles/label/label_style_edit_dlg.h"
#include "styles/label/label_style_effects_dlg.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/data/vx_attr_data.h"
#include "platform/data/vx_tld_data.h"
#include "platform/dialogs/vx_dlgs.h"
#include "platform/dialogs/vx_msgs.h"
#include "platform/layers/vx_tld_lr2d.h"
#include "platform/storage/vx_xml_save_2d.h"
#include "platform/toolkit/core/new_on.h"
#include "platform/toolkit/core/strings.h"
#include "platform/toolkit/graphics/image_list.h"

#include <memory>
#include <string>

namespace {
constexpr int c_side_margin = 6;
constexpr int c_row_margin = 3;
constexpr int c_check_height = 20;
constexpr int c_class_height = 23;
constexpr int c_prop_height = 21;
constexpr int c_row_height = 20;
constexpr int c_bottom_height = 29;
constexpr int c_caption_width = 80;
constexpr int c_edit_width = 70;
constexpr int c_color_width = 120;
constexpr int c_tool_bar_width = 50;
constexpr int c_button_width = 100;
constexpr int c_gap = 12;
constexpr int c_unit_width = 20;
constexpr int c_decimals = 2;
constexpr int c_least_size = 1;
constexpr int c_greatest_angle = 360;
constexpr int c_priorities = 10;

// Numbers of the pictures on the buttons.
constexpr int c_picture_add = 141;
constexpr int c_picture_delete = 142;
constexpr int c_picture_save = 3010;
constexpr int c_picture_load = 3011;

constexpr wchar_t c_suffix[] = L"_ta";

using owned_xml = vx::owned<Ivx_xml_data, &vx_xml_save_2d_destroy>;

void set_margins(TControl *control, int rows)
{
    control->SetAlignWithMargins(true);
    control->GetMargins()->SetBounds(c_side_margin, rows, c_side_margin, rows);
}

void check_quietly(Tvx_check_box *box, bool checked)
{
    vx::event_off const quiet(box->OnClick);
    box->SetChecked(checked);
}

UnicodeString property_of(void const *info)
{
    std::wstring name;
    vx_textlr_info_get_property_name(info, Tvx_std_wstring_adapter(name));
    return name;
}
} // namespace

// ---- the controls

template <class Control>
Control *Tvx_label_style_panel::add_row(int height)
{
    auto *const control = vx_new_on<Control>(f_content, this);
    control->SetBounds(0, f_rows_bottom, f_content->GetClientWidth(), height);
    set_margins(control, c_row_margin);
    control->SetAlign(alTop);
    f_rows_bottom += height + 2 * c_row_margin;
    return control;
}

void Tvx_label_style_panel::create()
{
    DisableAlign();
    f_visible_check = vx_new_on<Tvx_check_box>(this, this);
    f_visible_check->SetBounds(0, 0, GetClientWidth(), c_check_height);
    set_margins(f_visible_check, c_row_margin);
    f_visible_check->SetAlign(alTop);
    f_visible_check->OnClick = make_closure<&Tvx_label_style_panel::on_visible_clicked>(this);
    f_content = vx_new_on<Tvx_children_enabled_panel>(this, this);
    f_content->SetAlign(alClient);

    create_class_row();
    f_prop_edit = add_row<Tvx_prop_edit>(c_prop_height);
    f_prop_edit->create();
    f_prop_edit->set_capt_width(c_caption_width);
    f_prop_edit->set_forbid_empty(true);
    f_prop_edit->on_changed = make_closure<&Tvx_label_style_panel::on_prop_changed>(this);
    // A list that lacks the class's property shows its first row when it drops down: to choose that counts.
    f_prop_edit->get_combo_box()->on_reselected = f_prop_edit->on_changed;
    create_font_rows();
    auto const add_choice = [this] {
        auto *const panel = add_row<Tvx_combo_box_panel>(c_row_height);
        panel->set_caption_width(c_caption_width);
        panel->get_combo_box()->SetStyle(csDropDownList);
        return panel;
    };
    f_encode_panel = add_choice();
    f_encode_panel->SetVisible(false);
    f_encode_panel->get_combo_box()->OnChange = make_closure<&Tvx_label_style_panel::on_encode_changed>(this);
    f_priority_panel = add_choice();
    for (int i = 1; i <= c_priorities; ++i)
        f_priority_panel->get_combo_box()->GetItems()->Add(std::to_wstring(i));
    f_priority_panel->get_combo_box()->OnChange =
        make_closure<&Tvx_label_style_panel::on_priority_changed>(this);
    f_overlap_check = add_row<Tvx_check_box>(c_check_height);
    f_overlap_check->OnClick = make_closure<&Tvx_label_style_panel::on_place_overlap_clicked>(this);
    f_scale_check = add_row<Tvx_check_box>(c_check_height);
    f_scale_check->OnClick = make_closure<&Tvx_label_style_panel::on_scale_clicked>(this);
    f_current_scale_check = add_row<Tvx_check_box>(c_check_height);
    f_current_scale_check->GetMargins()->SetBounds(3 * c_side_margin, c_row_margin, c_side_margin,
                                                   c_row_margin);
    f_current_scale_check->OnClick = make_closure<&Tvx_label_style_panel::on_current_scale_clicked>(this);
    create_bottom_row();
    f_content->set_enabled(false);
    EnableAlign();
}

void Tvx_label_style_panel::create_class_row()
{
    auto *const row = add_row<Tvx_panel>(c_class_height);
    f_class_panel = vx_new_on<Tvx_combo_box_panel>(row, this);
    f_class_panel->SetAlign(alClient);
    f_class_panel->set_caption_width(c_caption_width);
    f_class_panel->get_combo_box()->SetStyle(csDropDownList);
    f_class_panel->get_combo_box()->OnChange = make_closure<&Tvx_label_style_panel::on_class_changed>(this);
    auto *const images = new TImageList(this);
    auto *const bar = vx_new_on<TToolBar>(row, this);
    bar->SetImages(images);
    bar->SetAlign(alRight);
    bar->SetWidth(c_tool_bar_width); // a bar that is turned changes sides
    auto const add = [&](int picture) {
        auto *const button = vx_new_on<Tvx_tool_btn>(bar, this);
        button->SetImageIndex(vx_image_list_get_res(images, picture));
        button->SetShowHint(true);
        return button;
    };
    f_class_add_btn = add(c_picture_add);
    f_class_add_btn->OnClick = make_closure<&Tvx_label_style_panel::on_class_add_click>(this);
    f_class_del_btn = add(c_picture_delete);
    f_class_del_btn->OnClick = make_closure<&Tvx_label_style_panel::on_class_del_click>(this);
}

void Tvx_label_style_panel::create_font_rows()
{
    auto *row = add_row<Tvx_panel>(c_row_height);
    f_font_panel = vx_new_on<Tvx_fnt_panel>(row, this);
    f_font_panel->set_capt_width(c_caption_width);
    f_font_panel->SetAlign(alClient);
    f_font_panel->on_changed = make_closure<&Tvx_label_style_panel::on_font_changed>(this);
    auto const add_number = [&](int least) {
        auto *const panel = vx_new_on<Tvx_size_panel>(row, this);
        panel->set_precision(c_decimals);
        panel->set_min(least);
        panel->set_end_caption_width(c_unit_width);
        panel->set_end_caption_visible(true);
        return panel;
    };
    f_size_panel = add_number(c_least_size);
    f_size_panel->set_has_label(false);
    f_size_panel->SetWidth(c_edit_width);
    f_size_panel->SetAlignWithMargins(true);
    f_size_panel->GetMargins()->SetBounds(c_side_margin, 0, 0, 0);
    f_size_panel->SetAlign(alRight);
    f_size_panel->on_changed = make_closure<&Tvx_label_style_panel::on_size_changed>(this);

    row = add_row<Tvx_panel>(c_row_height);
    f_clr_panel = vx_new_on<Tvx_clr_vsb_panel>(row, this);
    f_clr_panel->set_can_visible(false);
    f_clr_panel->SetWidth(c_color_width);
    f_clr_panel->SetAlign(alLeft);
    f_clr_panel->on_changed = make_closure<&Tvx_label_style_panel::on_colour_changed>(this);
    f_angle_panel = add_number(0);
    f_angle_panel->set_max(c_greatest_angle);
    f_angle_panel->set_text_width(c_caption_width);
    f_angle_panel->SetBounds(c_color_width, 0, c_caption_width + c_edit_width + c_unit_width, c_row_height);
    f_angle_panel->SetAlignWithMargins(true);
    f_angle_panel->GetMargins()->SetBounds(c_gap, 0, 0, 0);
    f_angle_panel->SetAlign(alLeft);
    f_angle_panel->on_changed = make_closure<&Tvx_label_style_panel::on_angle_changed>(this);
}

void Tvx_label_style_panel::create_bottom_row()
{
    auto *const row = vx_new_on<Tvx_panel>(f_content, this);
    row->SetHeight(c_bottom_height);
    set_margins(row, c_row_margin);
    row->SetAlign(alBottom);
    int left = 0;
    for (auto **const button : {&f_save_btn, &f_load_btn}) {
        *button = new Tvx_bitbtn(this);
        (*button)->SetParent(row);
        (*button)->SetBounds(left, 0, c_bottom_height, c_bottom_height);
        (*button)->SetAlign(alLeft);
        (*button)->SetShowHint(true);
        left += c_bottom_height;
    }
    left = row->GetClientWidth() - 2 * c_button_width;
    for (auto **const button : {&f_effects_btn, &f_advanced_btn}) {
        *button = new Tvx_button(this);
        (*button)->SetParent(row);
        (*button)->SetBounds(left, 0, c_button_width, c_bottom_height);
        (*button)->SetAlignWithMargins(true);
        (*button)->GetMargins()->SetBounds(c_side_margin, 0, 0, 0);
        (*button)->SetAlign(alRight);
        left += c_button_width;
    }
    f_save_btn->OnClick = make_closure<&Tvx_label_style_panel::on_save_btn_clicked>(this);
    f_load_btn->OnClick = make_closure<&Tvx_label_style_panel::on_load_btn_clicked>(this);
    f_effects_btn->OnClick = make_closure<&Tvx_label_style_panel::on_effects_btn_clicked>(this);
    f_advanced_btn->OnClick = make_closure<&Tvx_label_style_panel::on_advanced_btn_clicked>(this);
}

void Tvx_label_style_panel::load_res()
{
    f_visible_check->SetCaption(vx_res_get_wstr(c_lbl_visible));
    f_class_panel->set_caption(vx_res_get_wstr(c_lbl_class));
    auto const name = [](Tvx_tool_btn *button, int caption) {
        button->SetHint(vx_res_get_wstr(caption));
        button->SetAccessibleName(button->GetHint());
    };
    name(f_class_add_btn, c_lbl_class_add);
    name(f_class_del_btn, c_lbl_class_delete);
    f_prop_edit->set_caption(vx_res_get_wstr(c_lbl_property));
    f_font_panel->load_res();
    f_font_panel->set_caption(vx_res_get_wstr(c_lbl_font));
    f_size_panel->set_text(vx_res_get_wstr(c_lbl_size));
    f_size_panel->set_end_caption(vx_res_get_wstr(c_lbl_mm));
    f_clr_panel->load_res();
    f_clr_panel->set_text(vx_res_get_wstr(c_lbl_color));
    f_angle_panel->set_text(vx_res_get_wstr(c_lbl_angle));
    f_angle_panel->set_end_caption(vx_res_get_wstr(c_lbl_degree));
    f_encode_panel->set_caption(vx_res_get_wstr(c_lbl_encoding));
    auto *const encodings = f_encode_panel->get_combo_box();
    int const encoding = encodings->GetItemIndex();
    encodings->GetItems()->SetText(vx_res_get_wstr(c_lbl_encodings));
    encodings->SetItemIndex(encoding);
    f_priority_panel->set_caption(vx_res_get_wstr(c_lbl_priority));
    f_overlap_check->SetCaption(vx_res_get_wstr(c_lbl_overlap));
    f_scale_check->SetCaption(vx_res_get_wstr(c_lbl_scale));
    f_current_scale_check->SetCaption(vx_res_get_wstr(c_lbl_current_scale));
    vx_picture_button_load(f_save_btn, c_picture_save, c_lbl_save);
    vx_picture_button_load(f_load_btn, c_picture_load, c_lbl_load);
    f_effects_btn->SetCaption(vx_res_get_wstr(c_lbl_effects_btn));
    f_effects_btn->SetAccessibleName(vx_res_get_wstr(c_lbl_effects_title));
    f_advanced_btn->SetCaption(vx_res_get_wstr(c_lbl_advanced_btn));
    f_advanced_btn->SetAccessibleName(vx_res_get_wstr(c_lbl_edit_title));
}

// ---- what is shown

void *Tvx_label_style_panel::current_class() const
{
    return f_layer ? vx_dtld_lr2d_get_text_class(f_layer) : nullptr;
}

void Tvx_label_style_panel::update_controls()
{
    if (!f_layer)
        return;
    void *const info = current_class();
    bool const visible = vx_lr2d_get_visible(f_layer);
    check_quietly(f_visible_check, visible);
    f_content->set_enabled(visible);

    auto *const classes = f_class_panel->get_combo_box();
    classes->GetItems()->Clear();
    for (int i = 1; i <= vx_dtld_lr2d_count_text_class(f_layer); ++i)
        classes->GetItems()->Add(std::to_wstring(i));
    classes->SetItemIndex(vx_dtld_lr2d_get_text_class_index(f_layer));

    f_prop_edit->update_controls();
    set_prop_name(property_of(info));
    f_font_panel->set_font(vx_textlr_info_get_font_ptr(info));
    f_size_panel->set_size(vx_textlr_info_get_size(info));
    f_angle_panel->set_size(vx_textlr_info_get_angle(info));
    f_clr_panel->set_color(vx_textlr_info_get_color(info));
    f_encode_panel->get_combo_box()->SetItemIndex(vx_textlr_info_get_encoding(info));
    check_quietly(f_scale_check, vx_textlr_info_get_scale(info));
    f_priority_panel->get_combo_box()->SetItemIndex(vx_textlr_info_get_priority(info));
    check_quietly(f_overlap_check, vx_textlr_info_is_place_overlap(info));
    f_angle_panel->SetVisible(vx_textlr_info_get_hint(info) != c_textlr_hint_lines);
    vx_textlr_info_set_scale_init(info, true);
    check_quietly(f_current_scale_check, false);
    show_scale_choice();
    update_encoding();
}

void Tvx_label_style_panel::show_scale_choice()
{
    f_current_scale_check->SetEnabled(f_scale_check->GetEnabled() && f_scale_check->GetChecked());
}

void Tvx_label_style_panel::set_prop_name(UnicodeString const &name)
{
    if (!name.IsEmpty()) {
        f_prop_edit->set_prop_name(name.c_str());
        return;
    }
    f_prop_edit->set_prop_index(0);
    if (void *const info = current_class(); info && f_prop_edit->get_real_index() >= 0)
        vx_textlr_info_set_property(info, f_prop_edit->get_real_index(),
                                    f_prop_edit->get_wprop_name().c_str());
}

void Tvx_label_style_panel::update_encoding()
{
    Ivx_layer *const parent = f_layer ? vx_dtld_lr2d_get_parent_lr2d_ptr(f_layer) : nullptr;
    Ivx_attr_data *const data = parent ? vx_attr_data_safe_downcast(vx_lr2d_get_data_ptr(parent)) : nullptr;
    // Records are looked at for this, which a slow source takes long to give: not for a panel that nobody
    // sees.
    if (f_prop_edit->get_prop_index() < 0 || !data || !GetShowing())
        return;
    std::string const name = f_prop_edit->get_prop_name();
    int encoding = c_textlr_encoding_plain;
    if (vx_attr_data_is_field_unicode(data, name.c_str()))
        encoding = c_textlr_encoding_unicode;
    else if (vx_attr_data_is_field_morvel(data, name.c_str()))
        encoding = c_textlr_encoding_morvel;
    f_encode_panel->get_combo_box()->SetItemIndex(encoding);
}

// ---- what the user does

void Tvx_label_style_panel::on_visible_clicked(TObject * /*sender*/)
{
    if (!f_layer)
        return;
    bool const visible = f_visible_check->GetChecked();
    f_content->set_enabled(visible);
    show_scale_choice();
    vx_lr2d_set_visible(f_layer, visible);
}

void Tvx_label_style_panel::on_class_changed(TObject * /*sender*/)
{
    if (!f_layer)
        return;
    vx_dtld_lr2d_set_text_class_index(f_layer, f_class_panel->get_combo_box()->GetItemIndex());
    update_controls();
}

void Tvx_label_style_panel::on_class_add_click(TObject * /*sender*/)
{
    if (!f_layer)
        return;
    vx_dtld_lr2d_add_text_class(f_layer, nullptr);
    update_controls();
}

void Tvx_label_style_panel::on_class_del_click(TObject * /*sender*/)
{
    if (!f_layer)
        return;
    vx_dtld_lr2d_remove_text_class(f_layer);
    update_controls();
}

void Tvx_label_style_panel::on_prop_changed(TObject * /*sender*/)
{
    if (!f_layer)
        return;
    vx_textlr_info_set_property(current_class(), f_prop_edit->get_real_index(),
                                f_prop_edit->get_wprop_name().c_str());
    update_controls();
}

void Tvx_label_style_panel::on_font_changed(TObject * /*sender*/)
{
    vx_textlr_info_set_font(current_class(), f_font_panel->get_font());
}

void Tvx_label_style_panel::on_size_changed(TObject * /*sender*/)
{
    vx_textlr_info_set_size(current_class(), f_size_panel->get_size());
}

void Tvx_label_style_panel::on_colour_changed(TObject * /*sender*/)
{
    vx_textlr_info_set_color(current_class(), f_clr_panel->get_color());
}

void Tvx_label_style_panel::on_angle_changed(TObject * /*sender*/)
{
    vx_textlr_info_set_angle(current_class(), f_angle_panel->get_size());
}

void Tvx_label_style_panel::on_encode_changed(TObject * /*sender*/)
{
    vx_textlr_info_set_encoding(current_class(), f_encode_panel->get_combo_box()->GetItemIndex());
}

void Tvx_label_style_panel::on_priority_changed(TObject * /*sender*/)
{
    vx_textlr_info_set_priority(current_class(), f_priority_panel->get_combo_box()->GetItemIndex());
}

void Tvx_label_style_panel::on_place_overlap_clicked(TObject * /*sender*/)
{
    vx_textlr_info_set_place_overlap(current_class(), f_overlap_check->GetChecked());
}

void Tvx_label_style_panel::on_scale_clicked(TObject * /*sender*/)
{
    if (!f_layer)
        return;
    bool const checked = f_scale_check->GetChecked();
    vx_textlr_info_set_scale(current_class(), checked);
    show_scale_choice();
    // The class learns it by the event of that box.
    f_current_scale_check->SetChecked(checked);
}

void Tvx_label_style_panel::on_current_scale_clicked(TObject * /*sender*/)
{
    vx_textlr_info_set_scale_init(current_class(), !f_current_scale_check->GetChecked());
}

void Tvx_label_style_panel::on_save_btn_clicked(TObject * /*sender*/)
{
    if (!f_layer)
        return;
    UnicodeString const file =
        vx_save_file_dialog(nullptr, 0, 0, c_suffix, vx_res_get_wstr(c_lbl_save), nullptr);
    if (file.IsEmpty() || !f_layer)
        return;
    // The storage itself tells the user what goes wrong.
    owned_xml const xml(vx_xml_save_2d_create());
    static_cast<void>(vx_xml_data_save_lr2d_dtld(xml.get(), file.c_str(), f_layer));
}

void Tvx_label_style_panel::on_load_btn_clicked(TObject * /*sender*/)
{
    if (!f_layer)
        return;
    UnicodeString const file =
        vx_open_file_dialog(nullptr, 0, 0, c_suffix, vx_res_get_wstr(c_lbl_load), nullptr);
    if (file.IsEmpty() || !f_layer)
        return;
    owned_xml const xml(vx_xml_save_2d_create());
    if (vx_xml_data_load_lr2d_dtld(xml.get(), file.c_str(), f_layer)) {
        update_controls();
        return;
    }
    std::wstring reason;
    vx_xml_data_get_error_w(xml.get(), Tvx_std_wstring_adapter(reason));
    vx_show_reason(reason.c_str());
}

template <class Dialog>
void Tvx_label_style_panel::run_dialog(TWinControl *button)
{
    if (!f_layer)
        return;
    auto const life = Life();
    std::unique_ptr<Dialog> const dialog(std::make_unique<Dialog>(nullptr));
    TPoint const corner = button->ClientToScreen({0, 0});
    dialog->create_controls();
    dialog->load_res();
    dialog->set_layer(f_layer);
    dialog->update_controls();
    // What was shown may have gone meanwhile.
    if (dialog->show_pos(corner.X, corner.Y, false) == mrOk && !life.expired() &&
        dialog->get_layer() == f_layer)
        dialog->return_controls();
}

void Tvx_label_style_panel::on_effects_btn_clicked(TObject * /*sender*/)
{
    run_dialog<Tvx_label_style_effects_dlg>(f_effects_btn);
}

void Tvx_label_style_panel::on_advanced_btn_clicked(TObject * /*sender*/)
{
    run_dialog<Tvx_label_style_edit_dlg>(f_advanced_btn);
}
