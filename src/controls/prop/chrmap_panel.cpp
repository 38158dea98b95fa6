#include "controls/prop/chrmap_panel.h"

#include "captions/prop.h"
#include "controls/prop/color_convert.h"
#include "controls/prop/detail/action_name.h"
#include "controls/prop/detail/sample_frame.h"

#include "platform/basic/vx_res.h"
#include "platform/dialogs/vx_dlgs.h"
#include "platform/toolkit/core/new_on.h"

namespace {
constexpr int c_height = 20;
constexpr int c_symbol_width = 20;
constexpr int c_button_width = 20;
constexpr int c_font_height = 20;
constexpr unsigned c_first_character = 0x20;
constexpr unsigned c_first_surrogate = 0xD800;
constexpr unsigned c_last_surrogate = 0xDFFF;
constexpr unsigned c_last_character = 0x10FFFF;

bool is_character(unsigned code)
{
    return code >= c_first_character && code <= c_last_character &&
           (code < c_first_surrogate || code > c_last_surrogate);
}
} // namespace

Tvx_chrmap_panel::Tvx_chrmap_panel(TComponent *owner)
    : Tvx_caption_panel(owner), f_frame(vx_new_for<Tvx_sample_frame>(this, this)),
      f_symbol_label(new Tvx_label(this)), f_button(vx_new_for<Tvx_button>(this, this))
{
    SetHeight(c_height);
    f_button->SetParent(this);
    f_button->SetBounds(GetWidth() - c_button_width, 0, c_button_width, c_height);
    f_button->SetAlign(alRight);
    f_button->SetCaption(L"...");
    f_button->OnClick = make_closure<&Tvx_chrmap_panel::on_button_click>(this);
    f_frame->SetParent(this);
    f_frame->SetBounds(GetWidth() - c_button_width - c_symbol_width, 0, c_symbol_width, c_height);
    f_frame->SetAlign(alRight);
    f_symbol_label->SetParent(f_frame);
    f_symbol_label->SetAutoSize(false);
    f_symbol_label->SetShowAccelChar(false);
    f_symbol_label->SetAlignment(taCenter);
    f_symbol_label->SetLayout(tlCenter);
    f_symbol_label->SetAlign(alClient);
    f_symbol_label->OnClick = make_closure<&Tvx_chrmap_panel::on_button_click>(this);
    set_focus_control(f_button);
    show_font();
    load_res();
}

void Tvx_chrmap_panel::load_res()
{
    UnicodeString const action = vx_res_get_wstr(c_caption_choose_symbol);
    f_button->SetHint(action);
    f_button->SetShowHint(true);
    f_button->SetAccessibleName(vx_action_name(get_caption(), action));
}

void Tvx_chrmap_panel::set_caption(UnicodeString const &caption)
{
    Tvx_caption_panel::set_caption(caption);
    load_res();
}

void Tvx_chrmap_panel::set_font(vx_fnt_type const *font)
{
    vx_fnt_type_assign(&f_font, font);
    show_font();
}

void Tvx_chrmap_panel::show_font()
{
    fnt_type_2_font(&f_font, f_symbol_label->GetFont(), 0);
    f_symbol_label->GetFont()->SetHeight(c_font_height);
}

void Tvx_chrmap_panel::set_symbol(unsigned code)
{
    f_symbol = code;
    f_symbol_label->SetCaption(is_character(code) ? UnicodeString(std::wstring(1, static_cast<wchar_t>(code)))
                                                  : UnicodeString());
}

void Tvx_chrmap_panel::on_button_click(TObject * /*sender*/)
{
    TPoint const corner = f_button->ClientToScreen({0, f_button->GetHeight()});
    auto symbol = static_cast<int>(f_symbol);
    if (!vx_charmap_dialog(GetHandle(), corner.X, corner.Y, &f_font, &symbol))
        return;
    show_font();
    set_symbol(static_cast<unsigned>(symbol));
    on_changed(this);
}
