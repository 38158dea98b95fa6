#pragma once

#include "controls/forms/buttons.h"
#include "controls/forms/panels.h"

/// The strip at the bottom of a form with the buttons Apply, Cancel and Help, right-aligned in this order; a
/// hidden one takes no room. Help starts hidden. Other controls on the strip are laid out by their own
/// alignment.
class VX_API Tvx_bottom_panel : public Tvx_panel
{
public:
    explicit Tvx_bottom_panel(TComponent *owner);

    /// Fills in the three captions.
    void load_res();

    [[nodiscard]] Tvx_button *get_apply_btn() const { return f_apply_btn; }
    [[nodiscard]] Tvx_button *get_cancel_btn() const { return f_cancel_btn; }
    [[nodiscard]] Tvx_button *get_help_btn() const { return f_help_btn; }

    static constexpr int c_height = 40;
    static constexpr int c_button_width = 92;

protected:
    void AlignControls(TControl *control, TRect &rect) override;

private:
    Tvx_button *make_button();

    Tvx_button *f_apply_btn;
    Tvx_button *f_cancel_btn;
    Tvx_button *f_help_btn;
};
