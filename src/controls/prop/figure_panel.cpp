#include "controls/prop/figure_panel.h"

#include "captions/prop.h"
#include "controls/prop/detail/action_name.h"
#include "controls/prop/detail/sample_frame.h"
#include "controls/prop/figure_dialog_form.h"
#include "controls/prop/figure_style_priv.h"
#include "controls/prop/image_convert.h"
#include "styles/preview/style_example.h"

#include "platform/basic/vx_res.h"
#include "platform/toolkit/core/new_on.h"
#include "platform/toolkit/core/pixel_ratio.h"
#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/picture.h"

namespace {
constexpr int c_height = 20;
constexpr int c_sample_width = 20;
constexpr int c_button_width = 20;
constexpr int c_frame = 1;
constexpr double c_sample_size = 3.6; // mm
} // namespace

Tvx_basic_figure_panel::Tvx_basic_figure_panel(TComponent *owner)
    : Tvx_caption_panel(owner), f_frame(vx_new_for<Tvx_sample_frame>(this, this)),
      f_image(new Tvx_fading<Tvx_image>(this)), f_button(vx_new_for<Tvx_button>(this, this))
{
    SetHeight(c_height);
    f_button->SetParent(this);
    f_button->SetBounds(GetWidth() - c_button_width, 0, c_button_width, c_height);
    f_button->SetAlign(alRight);
    f_button->SetCaption(L"...");
    f_button->OnClick = make_closure<&Tvx_basic_figure_panel::on_button_click>(this);
    f_frame->SetParent(this);
    f_frame->SetColor(clWhite);
    f_frame->SetBounds(GetWidth() - c_button_width - c_sample_width, 0, c_sample_width, c_height);
    f_frame->SetAlign(alRight);
    f_image->SetParent(f_frame);
    f_image->SetStretch(true);
    f_image->SetAlign(alClient);
    f_image->OnClick = make_closure<&Tvx_basic_figure_panel::on_button_click>(this);
    set_focus_control(f_button);
    load_res();
}

void Tvx_basic_figure_panel::load_res()
{
    UnicodeString const action = vx_res_get_wstr(c_caption_choose_figure);
    f_button->SetHint(action);
    f_button->SetShowHint(true);
    f_button->SetAccessibleName(vx_action_name(get_caption(), action));
}

void Tvx_basic_figure_panel::update_controls()
{
    int const scale = vx_screen_pixel_scale();
    TBitmap sample((c_sample_width - 2 * c_frame) * scale, (c_height - 2 * c_frame) * scale);
    vx_bmp_fill_color(&sample, clWhite);
    draw(f_code, &sample);
    f_image->GetPicture()->SetBitmap(&sample);
}

void Tvx_basic_figure_panel::set_caption(UnicodeString const &caption)
{
    Tvx_caption_panel::set_caption(caption);
    load_res();
}

void Tvx_basic_figure_panel::on_button_click(TObject * /*sender*/)
{
    TPoint const corner = f_button->ClientToScreen({0, f_button->GetHeight()});
    int code = f_code;
    if (!ask(corner.X, corner.Y, &code))
        return;
    f_code = code;
    update_controls();
    on_change(this);
}

Tvx_figure_panel::Tvx_figure_panel(TComponent *owner) : Tvx_basic_figure_panel(owner)
{
    update_controls();
}

void Tvx_figure_panel::set_figure(int figure)
{
    f_code = figure;
    update_controls();
}

bool Tvx_figure_panel::ask(int x, int y, int *figure)
{
    return vx_figure_dialog(this, x, y, figure);
}

void Tvx_figure_panel::draw(int figure, TBitmap *bitmap)
{
    auto const style = vx::detail::make_figure_style(c_sample_size * vx_screen_pixel_scale());
    vx::detail::set_style_figure(style.get(), figure);
    vx_pnt_style_example_bmp(style.get(), bitmap);
}

Tvx_lr_figure_panel::Tvx_lr_figure_panel(TComponent *owner) : Tvx_basic_figure_panel(owner)
{
    update_controls();
}

void Tvx_lr_figure_panel::set_lr_figure(int figure)
{
    f_code = figure;
    update_controls();
}

bool Tvx_lr_figure_panel::ask(int x, int y, int *figure)
{
    return vx_lr_figure_dialog(this, x, y, figure);
}

void Tvx_lr_figure_panel::draw(int figure, TBitmap *bitmap)
{
    auto const style = vx::detail::make_lr_figure_style(c_sample_size * vx_screen_pixel_scale());
    vx::detail::set_style_lr_figure(style.get(), figure);
    vx_pnt_style_example_bmp(style.get(), bitmap);
}
