#pragma once

#include "platform/base/closure.h"
#include "platform/base/export.h"
#include "platform/toolkit/controls/spin_edit.h"

/// A spin edit that keeps the last number; a text that is none on its way to one is left alone.
class VX_API Tvx_vcl_spin_edit : public TSpinEdit
{
public:
    using TSpinEdit::TSpinEdit;

    [[nodiscard]] int get_value() const { return f_value; }
    /// Held within the limits.
    void set_value(int value);
    /// The limits hold while the least and the largest number differ; the value follows them.
    [[nodiscard]] int get_min() const { return GetMinValue(); }
    void set_min(int min);
    [[nodiscard]] int get_max() const { return GetMaxValue(); }
    void set_max(int max);

    /// The user changed the number, pressed Enter or left the edit.
    closure<void(TObject *)> on_changed;

protected:
    void Change() override;
    void KeyPress(wchar_t &key) override;
    void DoExit() override;

private:
    void on_edit_change();
    void take_value();
    void settle();

    int f_value = 0;
    bool f_quiet = false;
};
