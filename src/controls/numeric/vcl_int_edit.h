#pragma once

#include "controls/forms/edits.h"

#include "platform/base/closure.h"

/// An edit for a whole number. What the user types is taken over at Enter, which then presses the default
/// button of the form, and on leaving the edit; a text that is no number or lies beyond a limit gives a
/// message and the focus back in the edit.
///
/// A read-only edit takes nothing over and gives no message.
class VX_API Tvx_vcl_int_edit : public Tvx_vcl_edit
{
public:
    explicit Tvx_vcl_int_edit(TComponent *owner);

    /// The number last taken over or set.
    [[nodiscard]] int get_value() const { return f_value; }
    /// Sets number and text; no limit is looked at.
    void set_value(int value);
    [[nodiscard]] bool get_use_min() const { return f_use_min; }
    void set_use_min(bool use) { f_use_min = use; }
    [[nodiscard]] bool get_use_max() const { return f_use_max; }
    void set_use_max(bool use) { f_use_max = use; }
    /// The least number, in force with `use_min`.
    [[nodiscard]] int get_min() const { return f_min; }
    void set_min(int min) { f_min = min; }
    /// The largest number, in force with `use_max`.
    [[nodiscard]] int get_max() const { return f_max; }
    void set_max(int max) { f_max = max; }
    [[nodiscard]] bool get_edit_enabled() const { return f_edit_enabled; }
    /// False: read-only, in the colour of button faces.
    void set_edit_enabled(bool enabled);

    /// As `vx::str_to_int`.
    [[nodiscard]] static bool str2int(UnicodeString const &text, int &value);
    /// True when the limit is off or kept; the limit itself passes.
    [[nodiscard]] bool test_min(int value) const { return !f_use_min || value >= f_min; }
    [[nodiscard]] bool test_max(int value) const { return !f_use_max || value <= f_max; }

    /// The user's number was taken over, also when it is the same as before.
    closure<void(TObject *)> on_change;

protected:
    void KeyDown(Word &key, TShiftState shift) override;
    void KeyPress(wchar_t &key) override;
    void DoEnter() override;
    void DoExit() override;

private:
    [[nodiscard]] bool txt2int();
    void set_quiet_text(UnicodeString const &text);
    void refuse_limit(int message, int limit);

    int f_value = 0;
    int f_min = 0;
    int f_max = 0;
    bool f_use_min = false;
    bool f_use_max = false;
    bool f_edit_enabled = true;
    bool f_entered = false;
};
