#pragma once

#include "controls/forms/buttons.h"
#include "controls/forms/edits.h"
#include "styles/complex/cpx_panel.h"

/// A label, and a button that opens the editor of a nested complex style.
class VX_API Tvx_cpx_style_btn_panel : public Tvx_cpx_panel
{
public:
    explicit Tvx_cpx_style_btn_panel(TComponent *owner);

    void load_res() override;

    [[nodiscard]] UnicodeString get_caption() const { return f_label->GetCaption(); }
    void set_caption(UnicodeString const &caption);
    /// The style is its owner's, and is changed in place. Null: the button does nothing.
    void set_style(void *style) { f_style = style; }
    [[nodiscard]] Tvx_button *get_button() const { return f_button; }

    /// The user changed the style.
    TNotifyEvent on_changed;

private:
    void on_button_click(TObject *sender);

    Tvx_label *f_label;
    Tvx_button *f_button;
    void *f_style = nullptr;
};
