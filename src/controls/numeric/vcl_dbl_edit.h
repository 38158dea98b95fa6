#pragma once

#include "controls/forms/edits.h"

#include "platform/base/closure.h"

namespace vx::edit_keys {
enum class command;
}

/// An edit for a number with decimals. What the user types is taken over at Enter and on leaving the edit; a
/// text that is no number or lies beyond a limit gives a message and the focus back in the edit, unless the
/// edit may be empty: then any text is left alone, and `on_change` tells that the user is done.
///
/// A read-only edit takes nothing over and gives no message.
class VX_API Tvx_vcl_dbl_edit : public Tvx_vcl_edit
{
public:
    explicit Tvx_vcl_dbl_edit(TComponent *owner);

    /// The number last taken over or set; NaN after `set_empty`.
    [[nodiscard]] double get_value() const { return f_value; }
    /// Sets number and text; no limit is looked at. In an edit that may be empty, NaN shows as the empty
    /// text.
    void set_value(double value);
    [[nodiscard]] bool get_use_min() const { return f_use_min; }
    void set_use_min(bool use) { f_use_min = use; }
    [[nodiscard]] bool get_use_max() const { return f_use_max; }
    void set_use_max(bool use) { f_use_max = use; }
    /// The least number, in force with `use_min`; from 0 on no minus sign can be typed where the key filter
    /// says so, whether in force or not.
    [[nodiscard]] double get_min() const { return f_min; }
    void set_min(double min) { f_min = min; }
    /// The largest number, in force with `use_max`.
    [[nodiscard]] double get_max() const { return f_max; }
    void set_max(double max) { f_max = max; }
    /// Significant digits that `set_value` shows while `format_digits` is not -1. 0: whole numbers only, no
    /// point can be typed.
    [[nodiscard]] int get_precision() const { return f_precision; }
    void set_precision(int precision) { f_precision = precision; }
    /// -1: numbers are shown with up to 15 digits. Otherwise with `precision` digits, and at least so many
    /// digits of an exponent.
    [[nodiscard]] int get_format_digits() const { return f_format_digits; }
    void set_format_digits(int digits) { f_format_digits = digits; }
    [[nodiscard]] bool get_edit_enabled() const { return f_edit_enabled; }
    /// False: read-only, in the colour of button faces.
    void set_edit_enabled(bool enabled);
    /// True puts the key filter for numbers with an exponent in place, false the plain one.
    void change_key_press(bool exponent) { f_exponent_keys = exponent; }
    [[nodiscard]] bool get_can_empty() const { return f_can_empty; }
    void set_can_empty(bool can_empty) { f_can_empty = can_empty; }
    /// True, in an edit that may be empty: clears the text, and the value becomes NaN. False does nothing.
    void set_empty(bool empty);
    /// The text is empty.
    [[nodiscard]] bool is_empty() const { return GetText().IsEmpty(); }

    /// As `vx::str_to_float`.
    [[nodiscard]] static bool str2dbl(UnicodeString const &text, double &value);
    /// True when the limit is off or kept; the limit itself passes, NaN does not.
    [[nodiscard]] bool test_min(double value) const { return !f_use_min || value >= f_min; }
    [[nodiscard]] bool test_max(double value) const { return !f_use_max || f_max >= value; }

    /// The user's number was taken over, also when it is the same as before; in an edit that may be empty
    /// also when the text is no number.
    closure<void(TObject *)> on_change;

protected:
    void KeyDown(Word &key, TShiftState shift) override;
    void KeyPress(wchar_t &key) override;
    void DoEnter() override;
    void DoExit() override;

private:
    [[nodiscard]] bool txt2dbl();
    [[nodiscard]] bool refuse(int message, UnicodeString const &text);
    [[nodiscard]] bool plain_key_passes(wchar_t key) const;
    [[nodiscard]] bool exponent_key_passes(wchar_t key) const;
    void run_command(vx::edit_keys::command command);
    void paste_text();
    void set_quiet_text(UnicodeString const &text);

    double f_value = 0.0;
    double f_min = -1e8;
    double f_max = 0.0;
    int f_precision = 2;
    int f_format_digits = -1;
    bool f_use_min = false;
    bool f_use_max = false;
    bool f_edit_enabled = true;
    bool f_can_empty = false;
    bool f_exponent_keys = false;
    bool f_entered = false;
};
