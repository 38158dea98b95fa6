#include "styles/label/label_style_new_class_dlg.h"

#include "captions/labels.h"

#include "platform/basic/vx_res.h"
#include "platform/toolkit/core/new_on.h"

namespace {
constexpr int c_width = 200;
constexpr int c_height = 80;
constexpr int c_caption_width = 80;
constexpr int c_margin = 6;
constexpr int c_row_height = 21;
} // namespace

Tvx_label_style_new_class_dlg::Tvx_label_style_new_class_dlg(TComponent *owner) : Tvx_dlg_form(owner)
{
    SetBounds(0, 0, c_width, c_height);
}

void Tvx_label_style_new_class_dlg::create_controls()
{
    if (f_name_panel)
        return;
    f_name_panel = vx_new_on<Tvx_string_panel>(get_content_panel(), this);
    f_name_panel->SetHeight(c_row_height);
    f_name_panel->set_caption_width(c_caption_width);
    f_name_panel->SetAlignWithMargins(true);
    f_name_panel->GetMargins()->SetBounds(c_margin, c_margin, c_margin, c_margin);
    f_name_panel->SetAlign(alTop);
    SetActiveControl(f_name_panel->get_edit());
}

void Tvx_label_style_new_class_dlg::load_res()
{
    Tvx_dlg_form::load_res();
    SetCaption(vx_res_get_wstr(c_lbl_new_class_title));
    if (f_name_panel)
        f_name_panel->set_caption(vx_res_get_wstr(c_lbl_class_name));
}

std::string Tvx_label_style_new_class_dlg::get_class_name() const
{
    return f_name_panel ? f_name_panel->get_string() : std::string();
}

void Tvx_label_style_new_class_dlg::set_class_name(char const *name)
{
    if (f_name_panel)
        f_name_panel->set_string(name);
}
