#pragma once

#include "controls/forms/buttons.h"
#include "controls/forms/edits.h"
#include "controls/forms/panels.h"

/// A label and the button "..." that opens the editor of a complex style; 20 high.
class VX_API Tvx_cpx_stl_panel : public Tvx_panel
{
public:
    explicit Tvx_cpx_stl_panel(TComponent *owner);

    virtual void load_res();

    [[nodiscard]] UnicodeString get_caption() const;
    void set_caption(UnicodeString const &caption);
    [[nodiscard]] Tvx_button *get_button() const { return f_button; }

    /// The sender is the panel.
    TNotifyEvent on_click;

private:
    void on_button_click(TObject *sender);

    Tvx_label *f_label;
    Tvx_button *f_button;
};
