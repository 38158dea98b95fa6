#pragma once

#include "controls/forms/buttons.h"
#include "controls/forms/caption_panels.h"

/// A label and the button "..." that opens the editor of a complex style; 20 high.
class VX_API Tvx_cpx_stl_panel : public Tvx_caption_panel
{
public:
    explicit Tvx_cpx_stl_panel(TComponent *owner);

    virtual void load_res();

    [[nodiscard]] Tvx_button *get_button() const { return f_button; }

    /// The sender is the panel.
    TNotifyEvent on_click;

private:
    void on_button_click(TObject *sender);

    Tvx_button *f_button;
};
