#pragma once

#include "controls/forms/menus.h"

/// Base of the menus that open from the headers of a scale's grid, which owns them. What a command works on
/// goes by the mode that the style manager has when the command runs.
class VX_API Tvx_scale_menu : public Tvx_popup_menu
{
public:
    /// Not owned; null while nothing is bound.
    virtual void set_stl_mngr(void *mngr) { f_stl_mngr = mngr; }
    [[nodiscard]] void *get_stl_mngr() const { return f_stl_mngr; }
    void call_changed() { on_changed(this); }

    /// A command has written into the scale.
    TNotifyEvent on_changed;

protected:
    using Tvx_popup_menu::Tvx_popup_menu;

    /// A line at the end of `parent`; null stands for the menu itself. The menu owns it.
    Tvx_menu_item *add_item(TMenuItem *parent, UnicodeString const &text, TTag tag, TNotifyEvent click);
    Tvx_menu_item *add_separator(TMenuItem *parent);

private:
    void *f_stl_mngr = nullptr;
};
