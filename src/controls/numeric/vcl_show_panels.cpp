#include "controls/numeric/vcl_show_panels.h"

#include "controls/numeric/detail/number_text.h"

#include "platform/toolkit/core/new_on.h"

namespace {
constexpr int c_inset = 5;
} // namespace

void Tvx_vcl_show_panel::create()
{
    Tvx_vcl_caption_panel::create();
    auto *sunken = vx_new_on<Tvx_vcl_panel>(get_data_panel(), this);
    sunken->create();
    sunken->SetBevelOuter(bvLowered);
    sunken->SetAlign(alClient);
    f_label = vx_new_on<Tvx_vcl_label>(sunken, sunken);
    f_label->SetAutoSize(false);
    f_label->SetShowAccelChar(false);
    f_label->SetLayout(tlCenter);
    f_label->GetMargins()->SetBounds(c_inset, 0, c_inset, 0);
    f_label->SetAlignWithMargins(true);
    f_label->SetAlign(alClient);
}

void Tvx_vcl_int_show_panel::create()
{
    Tvx_vcl_show_panel::create();
    set_value(f_value);
}

void Tvx_vcl_int_show_panel::set_value(int value)
{
    f_value = value;
    show_text(UnicodeString(value));
}

void Tvx_vcl_dbl_show_panel::create()
{
    Tvx_vcl_show_panel::create();
    show_value();
}

void Tvx_vcl_dbl_show_panel::set_value(double value)
{
    f_value = value;
    show_value();
}

void Tvx_vcl_dbl_show_panel::set_precision(int precision)
{
    f_precision = precision;
    show_value();
}

void Tvx_vcl_dbl_show_panel::set_digits(int digits)
{
    f_digits = digits;
    show_value();
}

void Tvx_vcl_dbl_show_panel::show_value()
{
    show_text(vx::float_to_str(f_value, f_precision, f_digits));
}
