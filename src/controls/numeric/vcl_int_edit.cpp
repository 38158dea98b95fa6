#include "controls/numeric/vcl_int_edit.h"

#include "captions/numeric.h"
#include "controls/forms/event_off.h"
#include "controls/numeric/detail/number_text.h"
#include "controls/numeric/edit_keys_priv.h"
#include "controls/numeric/number_message_priv.h"

#include <utility>

Tvx_vcl_int_edit::Tvx_vcl_int_edit(TComponent *owner) : Tvx_vcl_edit(owner)
{
    SetText(UnicodeString(0));
}

void Tvx_vcl_int_edit::set_value(int value)
{
    f_value = value;
    set_quiet_text(UnicodeString(value));
}

void Tvx_vcl_int_edit::set_edit_enabled(bool enabled)
{
    f_edit_enabled = enabled;
    SetReadOnly(!enabled);
    SetColor(enabled ? clWindow : clBtnFace);
}

bool Tvx_vcl_int_edit::str2int(UnicodeString const &text, int &value)
{
    return vx::str_to_int(text.str(), value);
}

void Tvx_vcl_int_edit::KeyDown(Word &key, TShiftState shift)
{
    Tvx_vcl_edit::KeyDown(key, shift);
    vx::edit_keys::command const command = vx::edit_keys::command_of_key(key, shift);
    if (command == vx::edit_keys::command::none)
        return;
    key = 0;
    vx::edit_keys::run_command(*this, command);
}

void Tvx_vcl_int_edit::KeyPress(wchar_t &key)
{
    Tvx_vcl_edit::KeyPress(key);
    wchar_t const typed = key;
    if (typed == 0)
        return;
    vx::edit_keys::command const command = vx::edit_keys::command_of_character(typed);
    bool const passes = vx::edit_keys::is_digit(typed) || typed == L'-' || vx::edit_keys::is_edit_key(typed);
    if (!passes)
        key = 0;
    if (command != vx::edit_keys::command::none)
        vx::edit_keys::run_command(*this, command);
    else if (typed == vx::edit_keys::c_enter && txt2int())
        vx::edit_keys::press_default_button(*this);
}

void Tvx_vcl_int_edit::DoEnter()
{
    f_entered = true;
    Tvx_vcl_edit::DoEnter();
}

void Tvx_vcl_int_edit::DoExit()
{
    // The focus may only have come by on its way back to another edit: then there is nothing to take over.
    if (std::exchange(f_entered, false)) {
        if (GetText().IsEmpty() && !GetReadOnly())
            set_quiet_text(UnicodeString(0));
        if (!txt2int())
            return;
    }
    Tvx_vcl_edit::DoExit();
}

bool Tvx_vcl_int_edit::txt2int()
{
    if (GetReadOnly())
        return true;
    int number = 0;
    if (!str2int(GetText(), number)) {
        vx::show_number_message(c_caption_wrong_number, GetText());
        SetFocus();
        return false;
    }
    if (!test_min(number)) {
        refuse_limit(c_caption_number_greater, f_min);
        return false;
    }
    if (!test_max(number)) {
        refuse_limit(c_caption_number_less, f_max);
        return false;
    }
    f_value = number;
    on_change(this);
    return true;
}

void Tvx_vcl_int_edit::refuse_limit(int message, int limit)
{
    vx::show_number_message(message, UnicodeString(limit));
    set_quiet_text(UnicodeString(limit));
    SetFocus();
}

void Tvx_vcl_int_edit::set_quiet_text(UnicodeString const &text)
{
    vx::event_off const quiet(OnChange);
    SetText(text);
}
