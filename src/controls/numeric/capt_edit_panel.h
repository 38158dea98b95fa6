#pragma once

#include "controls/numeric/label_edit_panel.h"

#include "platform/base/closure.h"

/// A label and an edit for a text, 20 high, laid out as a size panel.
class VX_API Tvx_capt_edit_panel : public Tvx_label_edit_panel
{
public:
    explicit Tvx_capt_edit_panel(TComponent *owner);

    /// Text of the label.
    [[nodiscard]] UnicodeString get_capt() const { return label_text(); }
    void set_capt(UnicodeString const &caption) { set_label_text(caption); }
    /// Fixes the label; the edit takes the rest.
    void set_capt_width(int width) { set_label_width(width); }
    [[nodiscard]] UnicodeString get_text() const { return get_edit()->GetText(); }
    void set_text(UnicodeString const &text);
    [[nodiscard]] bool get_readonly() const { return get_edit()->GetReadOnly(); }
    void set_readonly(bool readonly) { get_edit()->SetReadOnly(readonly); }
    /// Lays the panel out anew.
    void update_controls() { place(); }

    /// The user left the edit. The sender is the panel.
    closure<void(TObject *)> on_apply;

private:
    void on_edit_exit(TObject *sender);
};
