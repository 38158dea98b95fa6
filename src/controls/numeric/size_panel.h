#pragma once

#include "controls/numeric/label_edit_panel.h"

#include "platform/base/closure.h"

namespace vx::edit_keys {
enum class command;
}

/// A light edit for sizes: it filters keys, follows each change of the text and never shows a message. Empty
/// is allowed, and counts as NaN. "," is typed as ".".
///
/// What a key would do is judged by the text that it leaves: a selection that it replaces does not count.
class VX_API Tvx_size_panel : public Tvx_label_edit_panel
{
public:
    explicit Tvx_size_panel(TComponent *owner);

    /// The last number that was set or typed; NaN while the text is empty.
    [[nodiscard]] double get_size() const { return f_size; }
    /// Shows the number with `precision` decimals; `get_size` gives it unrounded. NaN shows as the empty
    /// text.
    void set_size(double size);
    /// Text of the label.
    [[nodiscard]] UnicodeString get_text() const { return label_text(); }
    void set_text(UnicodeString const &text) { set_label_text(text); }
    [[nodiscard]] int get_text_width() const { return label_width(); }
    /// Fixes the label; the edit takes the rest.
    void set_text_width(int width) { set_label_width(width); }
    /// Decimals that are shown and can be typed; -1: six are shown, any number can be typed.
    [[nodiscard]] int get_precision() const { return f_precision; }
    void set_precision(int precision) { f_precision = precision; }
    /// Above 0: so many places left of the point are shown as zeros.
    [[nodiscard]] int get_precision_both_way() const { return f_precision_both_way; }
    void set_precision_both_way(int places) { f_precision_both_way = places; }
    [[nodiscard]] bool get_trim_trailing_zeros() const { return f_trim_trailing_zeros; }
    /// Whether zeros at the end of the decimals are left out; true trims the present text too.
    void set_trim_trailing_zeros(bool trim);
    /// Below 0 a minus sign can be typed; no more is made of it.
    [[nodiscard]] int get_min() const { return f_min; }
    void set_min(int min) { f_min = min; }
    /// Kept for its value.
    [[nodiscard]] int get_max() const { return f_max; }
    void set_max(int max) { f_max = max; }
    [[nodiscard]] bool is_empty() const { return get_edit()->GetText().IsEmpty(); }
    void set_empty();
    void set_enabled_edit(bool enabled) { get_edit()->SetEnabled(enabled); }

    // The sender is the panel.
    /// The user changed the text, and it is not empty.
    closure<void(TObject *)> on_changed;
    /// The edit got the focus.
    closure<void(TObject *)> on_enter;
    /// Enter, or the edit lost the focus.
    closure<void(TObject *)> on_apply;

protected:
    /// Reads size and place of the point from the text.
    void read_text();

private:
    void on_edit_key_down(TObject *sender, Word &key, TShiftState shift);
    void on_edit_key_press(TObject *sender, wchar_t &key);
    void on_edit_change(TObject *sender);
    void on_edit_enter(TObject *sender);
    void on_edit_exit(TObject *sender);
    [[nodiscard]] wchar_t filtered(wchar_t key) const;
    void run_command(vx::edit_keys::command command);
    void trim_trailing_zeros_inplace(std::wstring &text) const;
    void show_text(std::wstring const &text);

    double f_size = 0.0;
    int f_precision = -1;
    int f_precision_both_way = -10;
    int f_min = -2147483647;
    int f_max = 2147483647;
    int f_dot_position = 0;
    bool f_trim_trailing_zeros = false;
};
