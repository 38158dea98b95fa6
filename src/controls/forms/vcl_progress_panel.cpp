#include "controls/forms/vcl_progress_panel.h"

#include "captions/forms.h"

#include "platform/basic/vx_res.h"
#include "platform/toolkit/core/new_on.h"

#include <algorithm>

Tvx_vcl_progress_panel::Tvx_vcl_progress_panel(TComponent *owner) : Tvx_vcl_panel(owner)
{
    SetHeight(50);
}

void Tvx_vcl_progress_panel::create()
{
    Tvx_vcl_panel::create();
    f_caption = vx_new_on<Tvx_vcl_label_panel>(this, this);
    f_caption->create();
    f_caption->SetHeight(22);
    f_caption->SetAlign(alTop);
    f_stop_btn = vx_new_on<Tvx_vcl_button>(this, this);
    f_stop_btn->SetWidth(92);
    f_stop_btn->SetAlign(alRight);
    f_stop_btn->OnClick = make_closure<&Tvx_vcl_progress_panel::on_stop_btn_click>(this);
    f_gauge = vx_new_on<Tvx_vcl_gauge>(this, this);
    f_gauge->SetMinValue(0);
    f_gauge->SetMaxValue(100);
    f_gauge->SetAlign(alClient);
}

void Tvx_vcl_progress_panel::load_rc()
{
    f_stop_btn->SetCaption(vx_res_get_wstr(c_caption_stop));
}

bool Tvx_vcl_progress_panel::get_all_visible() const
{
    return f_caption->GetVisible() && f_gauge->GetVisible() && f_stop_btn->GetVisible();
}

void Tvx_vcl_progress_panel::set_all_visible(bool visible)
{
    f_caption->SetVisible(visible);
    f_gauge->SetVisible(visible);
    f_stop_btn->SetVisible(visible);
}

UnicodeString Tvx_vcl_progress_panel::get_caption() const
{
    return f_caption->get_caption();
}

void Tvx_vcl_progress_panel::set_caption(UnicodeString const &caption)
{
    f_caption->set_caption(caption);
}

int Tvx_vcl_progress_panel::get_progress() const
{
    return f_gauge->GetProgress();
}

void Tvx_vcl_progress_panel::set_progress(int progress)
{
    f_gauge->SetProgress(std::clamp(progress, 0, 100));
}

void Tvx_vcl_progress_panel::on_stop_btn_click(TObject * /*sender*/)
{
    f_stop = true;
}
