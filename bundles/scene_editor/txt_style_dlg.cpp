#include "txt_style_dlg.h"

#include "captions/scene.h"

#include "platform/basic/vx_res.h"

namespace {
constexpr int c_width = 400;
constexpr int c_height = 420;
constexpr int c_preview_height = 110;
constexpr int c_margin = 6;
} // namespace

Tvx_txt_style_dlg::Tvx_txt_style_dlg(int caption)
    : Tvx_dlg_form(nullptr), f_params(new Tvx_txt_params_edit(this, Tvx_txt_params_edit::ticks::no)),
      f_lines(new Tvx_txt_lines_edit(this)), f_preview(new Tvx_txt_preview(this)), f_caption(caption)
{
    SetBounds(GetLeft(), GetTop(), c_width, c_height);
    GetConstraints()->SetMinWidth(c_width);
    GetConstraints()->SetMinHeight(c_height);
    f_params->SetParent(get_content_panel());
    f_params->SetAlign(alClient);
    f_params->add_first_page(f_lines, c_scn_tab_text);
    f_preview->SetParent(get_content_panel());
    f_preview->SetHeight(c_preview_height);
    f_preview->SetAlignWithMargins(true);
    f_preview->GetMargins()->SetBounds(c_margin, c_margin, c_margin, 0);
    f_preview->SetAlign(alBottom);
    f_preview->set_txt_style(f_params->get_txt_style());
    f_params->on_changed = make_closure<&Tvx_txt_style_dlg::on_params_changed>(this);
    f_lines->on_changed = make_closure<&Tvx_txt_style_dlg::on_lines_changed>(this);
}

void Tvx_txt_style_dlg::load_res()
{
    Tvx_dlg_form::load_res();
    SetCaption(vx_res_get_wstr(f_caption));
    f_params->load_res();
    f_lines->load_res();
    show_sample();
}

void Tvx_txt_style_dlg::set_txt_style(void *style, void const *properties)
{
    f_lines->set_properties(properties);
    f_params->set_txt_style(style);
    f_params->update_controls();
    f_lines->read_lines(style);
    show_sample();
}

void Tvx_txt_style_dlg::get_txt_style(void *style) const
{
    vx_txt_style_assign(style, f_params->get_txt_style());
}

void Tvx_txt_style_dlg::on_lines_changed(TObject * /*sender*/)
{
    f_lines->write_lines(f_params->get_txt_style());
    show_sample();
}

void Tvx_txt_style_dlg::on_params_changed(TObject * /*sender*/)
{
    f_preview->Invalidate();
}

void Tvx_txt_style_dlg::show_sample()
{
    std::wstring const text = f_lines->get_text();
    bool const is_blank = text.find_first_not_of(L'\n') == text.npos;
    f_preview->set_sample(is_blank ? vx_res_get_wstr(c_scn_sample_text) : text);
    f_preview->Invalidate();
}
