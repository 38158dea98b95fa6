#include "controls/numeric/vcl_dbl_edit.h"

#include "captions/numeric.h"
#include "controls/forms/event_off.h"
#include "controls/numeric/detail/number_text.h"
#include "controls/numeric/edit_keys_priv.h"
#include "controls/numeric/number_message_priv.h"

#include "platform/toolkit/core/clipboard.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace keys = vx::edit_keys;

Tvx_vcl_dbl_edit::Tvx_vcl_dbl_edit(TComponent *owner) : Tvx_vcl_edit(owner)
{
    SetText(L"0");
}

void Tvx_vcl_dbl_edit::set_value(double value)
{
    f_value = value;
    if (std::isnan(value) && f_can_empty)
        set_quiet_text({});
    else if (f_format_digits == -1)
        set_quiet_text(vx::float_to_str(value));
    else if (f_precision == 0 && std::isfinite(value))
        // Adding 0 takes the sign from a zero.
        set_quiet_text(vx::float_to_fixed(std::trunc(value) + 0.0, 0));
    else
        set_quiet_text(vx::float_to_str(value, f_precision, f_format_digits));
}

void Tvx_vcl_dbl_edit::set_edit_enabled(bool enabled)
{
    f_edit_enabled = enabled;
    SetReadOnly(!enabled);
    SetColor(enabled ? clWindow : clBtnFace);
}

void Tvx_vcl_dbl_edit::set_empty(bool empty)
{
    if (!empty || !f_can_empty)
        return;
    f_value = std::numeric_limits<double>::quiet_NaN();
    set_quiet_text({});
}

bool Tvx_vcl_dbl_edit::str2dbl(UnicodeString const &text, double &value)
{
    return vx::str_to_float(text.str(), value);
}

void Tvx_vcl_dbl_edit::KeyDown(Word &key, TShiftState shift)
{
    Tvx_vcl_edit::KeyDown(key, shift);
    keys::command const command = keys::command_of_key(key, shift);
    if (command == keys::command::none)
        return;
    key = 0;
    run_command(command);
}

void Tvx_vcl_dbl_edit::KeyPress(wchar_t &key)
{
    Tvx_vcl_edit::KeyPress(key);
    wchar_t const typed = key;
    if (typed == 0)
        return;
    keys::command const command = keys::command_of_character(typed);
    bool const enter = typed == keys::c_enter;
    bool passes = false;
    if (enter)
        passes = f_exponent_keys;
    else if (keys::is_digit(typed) || keys::is_edit_key(typed))
        passes = true;
    else
        passes = f_exponent_keys ? exponent_key_passes(typed) : plain_key_passes(typed);
    if (!passes)
        key = 0;
    if (command != keys::command::none)
        run_command(command);
    if (!enter)
        return;
    // A refused number is not for the dialog either.
    if (!txt2dbl())
        key = 0;
    else if (!passes)
        keys::press_default_button(*this);
}

bool Tvx_vcl_dbl_edit::plain_key_passes(wchar_t key) const
{
    if (f_precision != 0)
        return key == L'-' || key == L'.';
    return key == L'-' && f_min < 0;
}

bool Tvx_vcl_dbl_edit::exponent_key_passes(wchar_t key) const
{
    if (f_precision == 0)
        return key == L'-' && f_min < 0;
    std::wstring const text = keys::text_left(*this);
    switch (key) {
    case L'-':
        // The number's and the exponent's.
        return f_min < 0 && std::count(text.begin(), text.end(), L'-') < 2;
    case L'.':
        return text.find(L'.') == std::wstring::npos;
    case L'e':
    case L'E':
        return text.find_first_of(L"eE") == std::wstring::npos;
    default:
        return false;
    }
}

/// The whole text is copied and pasted over.
void Tvx_vcl_dbl_edit::run_command(keys::command command)
{
    switch (command) {
    case keys::command::copy:
        return Clipboard()->SetAsText(GetText());
    case keys::command::paste:
        return paste_text();
    default:
        keys::run_command(*this, command);
    }
}

void Tvx_vcl_dbl_edit::paste_text()
{
    if (GetReadOnly() || !Clipboard()->HasText())
        return;
    SetText(Clipboard()->GetAsText());
    static_cast<void>(txt2dbl());
    set_value(f_value);
}

void Tvx_vcl_dbl_edit::DoEnter()
{
    f_entered = true;
    Tvx_vcl_edit::DoEnter();
}

void Tvx_vcl_dbl_edit::DoExit()
{
    // The focus may only have come by on its way back to another edit: then there is nothing to take over.
    if (std::exchange(f_entered, false) && !txt2dbl())
        return;
    Tvx_vcl_edit::DoExit();
}

bool Tvx_vcl_dbl_edit::txt2dbl()
{
    if (GetReadOnly())
        return true;
    double number = 0.0;
    bool const is_number = str2dbl(GetText(), number);
    if (!f_can_empty) {
        if (!is_number)
            return refuse(c_caption_wrong_number, GetText());
        if (!test_min(number))
            return refuse(c_caption_number_greater, vx::float_to_str(f_min));
        if (!test_max(number))
            return refuse(c_caption_number_less, vx::float_to_str(f_max));
    }
    if (is_number)
        f_value = number;
    on_change(this);
    return true;
}

bool Tvx_vcl_dbl_edit::refuse(int message, UnicodeString const &text)
{
    vx::show_number_message(message, text);
    SetFocus();
    return false;
}

void Tvx_vcl_dbl_edit::set_quiet_text(UnicodeString const &text)
{
    vx::event_off const quiet(OnChange);
    SetText(text);
}
