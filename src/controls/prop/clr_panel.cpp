#include "controls/prop/clr_panel.h"

#include "captions/prop.h"
#include "controls/prop/detail/action_name.h"
#include "controls/prop/detail/sample_frame.h"
#include "styles/preview/style_example.h"

#include "platform/basic/vx_res.h"
#include "platform/dialogs/vx_dlgs.h"
#include "platform/toolkit/core/new_on.h"
#include "platform/toolkit/graphics/canvas.h"

namespace {
constexpr int c_height = 20;
constexpr int c_width = 40;
constexpr int c_sample_width = 20;
constexpr int c_button_width = 20;
} // namespace

class Tvx_clr_panel::sample final : public Tvx_gr_ctrl
{
public:
    explicit sample(Tvx_clr_panel *panel) : Tvx_gr_ctrl(panel), f_panel(panel) {}

protected:
    void Paint() override
    {
        vx_clr_style_example_canvas(GetCanvas(), GetClientRect(), f_panel->f_color);
        vx_fade_disabled(*this, GetCanvas(), GetClientRect());
    }

private:
    Tvx_clr_panel *f_panel;
};

Tvx_clr_panel::Tvx_clr_panel(TComponent *owner)
    : Tvx_children_enabled_panel(owner), f_frame(vx_new_for<Tvx_panel>(this, this)), f_sample(nullptr),
      f_button(vx_new_for<Tvx_button>(this, this))
{
    SetBounds(0, 0, c_width, c_height);
    f_button->SetParent(this);
    f_button->SetBounds(c_sample_width, 0, c_button_width, c_height);
    f_button->SetAlign(alRight);
    f_button->SetCaption(L"...");
    f_button->OnClick = make_closure<&Tvx_clr_panel::on_button_click>(this);
    f_frame->SetParent(this);
    f_frame->SetBevelOuter(bvLowered);
    f_frame->SetBounds(0, 0, c_sample_width, c_height);
    f_frame->SetAlign(alRight);
    f_sample = vx_new_on<sample>(f_frame, this);
    f_sample->SetAlign(alClient);
    f_sample->OnMouseDown = make_closure<&Tvx_clr_panel::on_sample_mouse_down>(this);
    load_res();
}

void Tvx_clr_panel::load_res()
{
    UnicodeString const action = vx_res_get_wstr(c_caption_choose_color);
    f_button->SetHint(action);
    f_button->SetShowHint(true);
    f_button->SetAccessibleName(vx_action_name(f_accessible_text, action));
}

void Tvx_clr_panel::set_color(Tvx_color color)
{
    f_color = color;
    f_sample->Invalidate();
}

void Tvx_clr_panel::set_accessible_text(UnicodeString const &text)
{
    f_accessible_text = text;
    load_res();
}

TControl *Tvx_clr_panel::get_sample() const
{
    return f_sample;
}

void Tvx_clr_panel::on_button_click(TObject * /*sender*/)
{
    ask_color();
}

void Tvx_clr_panel::on_sample_mouse_down(TObject * /*sender*/, TMouseButton button, TShiftState /*shift*/,
                                         int /*x*/, int /*y*/)
{
    if (button == mbLeft)
        ask_color();
}

void Tvx_clr_panel::ask_color()
{
    TPoint const corner = f_sample->ClientToScreen({0, f_sample->GetHeight()});
    Tvx_color color = f_color;
    if (!vx_color_dialog(GetHandle(), corner.X, corner.Y, &color, f_format))
        return;
    set_color(color);
    on_changed(this);
}
