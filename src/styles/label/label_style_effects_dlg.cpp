#include "styles/label/label_style_effects_dlg.h"

#include "captions/labels.h"
#include "styles/label/label_dlg_parts_priv.h"

#include "platform/basic/vx_res.h"
#include "platform/data/vx_tld_data.h"
#include "platform/layers/vx_tld_lr2d.h"

using namespace vx::label_dlg;

namespace {
constexpr int c_width = 290;
constexpr int c_height = 320;
constexpr int c_indent = 14;

Tvx_clr_vsb_panel *add_color(rows &to)
{
    auto *const panel = to.add<Tvx_clr_vsb_panel>();
    panel->set_can_visible(false);
    return panel;
}
} // namespace

Tvx_label_style_effects_dlg::Tvx_label_style_effects_dlg(TComponent *owner) : Tvx_dlg_form(owner)
{
    SetBorderStyle(bsDialog);
    SetBounds(0, 0, c_width, c_height);
}

void Tvx_label_style_effects_dlg::create_controls()
{
    if (f_back_check)
        return;
    DisableAlign();
    rows all(this, get_content_panel());
    auto const add_panel = [&] {
        auto *const panel = all.add<Tvx_children_enabled_panel>();
        panel->GetMargins()->SetBounds(0, 0, 0, 0);
        return panel;
    };
    f_back_check = all.add<Tvx_check_box>();
    f_back_check->OnClick = make_closure<&Tvx_label_style_effects_dlg::on_back_changed>(this);
    f_back_clr = add_color(all);
    f_back_clr->GetMargins()->SetLeft(c_side_margin + c_indent);

    f_outline_check = all.add<Tvx_check_box>();
    f_outline_check->OnClick = make_closure<&Tvx_label_style_effects_dlg::on_outline_changed>(this);
    f_outline_panel = add_panel();
    rows outline(this, f_outline_panel, c_indent);
    f_outline_clr = add_color(outline);
    f_outline_width = outline.add_number(false);
    f_outline_panel->SetHeight(outline.height());

    f_shadow_check = all.add<Tvx_check_box>();
    // Rows are laid out by their tops: this one stands below the panel, which has grown.
    f_shadow_check->SetTop(f_outline_panel->GetTop() + outline.height());
    f_shadow_check->OnClick = make_closure<&Tvx_label_style_effects_dlg::on_shadow_changed>(this);
    f_shadow_panel = add_panel();
    f_shadow_panel->SetTop(f_shadow_check->GetTop() + c_row_height);
    rows shadow(this, f_shadow_panel, c_indent);
    f_shadow_clr = add_color(shadow);
    f_shadow_width = shadow.add_number(false);
    f_shadow_a = shadow.add_number(true);
    f_shadow_b = shadow.add_number(true);
    f_shadow_panel->SetHeight(shadow.height());
    EnableAlign();
}

void Tvx_label_style_effects_dlg::load_res()
{
    Tvx_dlg_form::load_res();
    SetCaption(vx_res_get_wstr(c_lbl_effects_title));
    if (!f_back_check)
        return;
    f_back_check->SetCaption(vx_res_get_wstr(c_lbl_back));
    f_outline_check->SetCaption(vx_res_get_wstr(c_lbl_outline));
    f_shadow_check->SetCaption(vx_res_get_wstr(c_lbl_shadow));
    struct
    {
        Tvx_clr_vsb_panel *panel;
        int name;
    } const colors[] = {{f_back_clr, c_lbl_back_color},
                        {f_outline_clr, c_lbl_outline_color},
                        {f_shadow_clr, c_lbl_shadow_color}};
    for (auto const &color : colors) {
        color.panel->load_res();
        color.panel->set_text(vx_res_get_wstr(color.name));
    }
    struct
    {
        Tvx_size_panel *panel;
        int name;
    } const numbers[] = {{f_outline_width, c_lbl_outline_width},
                         {f_shadow_width, c_lbl_shadow_width},
                         {f_shadow_a, c_lbl_shadow_right},
                         {f_shadow_b, c_lbl_shadow_up}};
    for (auto const &number : numbers) {
        number.panel->set_text(vx_res_get_wstr(number.name));
        number.panel->set_end_caption(vx_res_get_wstr(c_lbl_mm));
    }
}

void Tvx_label_style_effects_dlg::update_controls()
{
    if (!f_layer)
        return;
    void const *const info = vx_dtld_lr2d_get_text_class(f_layer);
    Tvx_color color{};
    double width = 0;
    double right = 0;
    double up = 0;
    check_quietly(f_back_check, vx_textlr_info_is_back(info));
    f_back_clr->set_color(vx_textlr_info_get_back_clr(info));
    check_quietly(f_outline_check, vx_textlr_info_get_outline(info, &color, &width));
    f_outline_clr->set_color(color);
    f_outline_width->set_size(width);
    check_quietly(f_shadow_check, vx_textlr_info_get_shadow(info, &color, &width, &right, &up));
    f_shadow_clr->set_color(color);
    f_shadow_width->set_size(width);
    f_shadow_a->set_size(right);
    f_shadow_b->set_size(up);
    show_enabled();
}

void Tvx_label_style_effects_dlg::show_enabled()
{
    f_back_clr->set_enabled(f_back_check->GetChecked());
    f_outline_panel->set_enabled(f_outline_check->GetChecked());
    f_shadow_panel->set_enabled(f_shadow_check->GetChecked());
    f_shadow_width->set_enabled(f_shadow_check->GetChecked() && f_outline_check->GetChecked());
}

void Tvx_label_style_effects_dlg::on_back_changed(TObject * /*sender*/)
{
    show_enabled();
}

void Tvx_label_style_effects_dlg::on_outline_changed(TObject * /*sender*/)
{
    show_enabled();
}

void Tvx_label_style_effects_dlg::on_shadow_changed(TObject * /*sender*/)
{
    show_enabled();
}

void Tvx_label_style_effects_dlg::return_controls()
{
    if (!f_layer)
        return;
    void *const info = vx_dtld_lr2d_get_text_class(f_layer);
    double outline = 0;
    double width = 0;
    double right = 0;
    double up = 0;
    static_cast<void>(vx_textlr_info_get_outline(info, nullptr, &outline));
    static_cast<void>(vx_textlr_info_get_shadow(info, nullptr, &width, &right, &up));
    vx_textlr_info_set_back(info, f_back_check->GetChecked(), f_back_clr->get_color());
    vx_textlr_info_set_outline(info, f_outline_check->GetChecked(), f_outline_clr->get_color(),
                               number_or(f_outline_width, outline));
    vx_textlr_info_set_shadow(info, f_shadow_check->GetChecked(), f_shadow_clr->get_color(),
                              number_or(f_shadow_width, width), number_or(f_shadow_a, right),
                              number_or(f_shadow_b, up));
}
