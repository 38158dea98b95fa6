#include "controls/numeric/vcl_spin_edit.h"

#include "controls/numeric/detail/number_text.h"
#include "controls/numeric/edit_keys_priv.h"

#include "platform/base/flag_scope.h"

void Tvx_vcl_spin_edit::set_value(int value)
{
    if (value == f_value)
        return;
    vx::flag_scope const quiet(f_quiet);
    SetValue(value);
    take_value();
}

void Tvx_vcl_spin_edit::set_min(int min)
{
    vx::flag_scope const quiet(f_quiet);
    SetMinValue(min);
    take_value();
}

void Tvx_vcl_spin_edit::set_max(int max)
{
    vx::flag_scope const quiet(f_quiet);
    SetMaxValue(max);
    take_value();
}

void Tvx_vcl_spin_edit::take_value()
{
    static_cast<void>(vx::str_to_int(GetText().str(), f_value));
}

/// What is shown from now on is the number that counts, within the limits and without what is no number.
void Tvx_vcl_spin_edit::settle()
{
    vx::flag_scope const quiet(f_quiet);
    take_value();
    SetValue(f_value);
    take_value();
}

void Tvx_vcl_spin_edit::Change()
{
    TSpinEdit::Change();
    if (!f_quiet)
        on_edit_change();
}

void Tvx_vcl_spin_edit::on_edit_change()
{
    int const former = f_value;
    take_value();
    if (f_value != former)
        on_changed(this);
}

void Tvx_vcl_spin_edit::KeyPress(wchar_t &key)
{
    TSpinEdit::KeyPress(key);
    if (key != vx::edit_keys::c_enter)
        return;
    settle();
    on_changed(this);
}

void Tvx_vcl_spin_edit::DoExit()
{
    settle();
    on_changed(this);
    TSpinEdit::DoExit();
}
