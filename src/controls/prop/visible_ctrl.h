#pragma once

#include "controls/forms/buttons.h"

/// An eye that is open or closed.
class VX_API Tvx_visible_ctrl : public Tvx_speed_btn
{
public:
    explicit Tvx_visible_ctrl(TComponent *owner);

    virtual void load_res();
    /// Turns the state round and fires, as a click of the user.
    void Click() override;

    /// True at first.
    [[nodiscard]] bool get_visible() const { return f_visible; }
    /// Fires nothing.
    void set_visible(bool visible);
    /// Names what is shown or hidden, for assistive use; empty: the action alone.
    void set_accessible_text(UnicodeString const &text);

    /// The user turned the state.
    TNotifyEvent on_changed;

private:
    void show_state();

    UnicodeString f_accessible_text;
    bool f_visible = true;
};
