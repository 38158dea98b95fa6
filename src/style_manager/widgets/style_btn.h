#pragma once

#include "controls/forms/buttons.h"
#include "style_manager/api/style_events.h"

/// A button that shows an example of one of the two styles of style parameters, and opens their dialog below
/// itself.
class VX_API Tvx_style_btn : public Tvx_bitbtn
{
public:
    explicit Tvx_style_btn(TComponent *owner);

    void load_res();
    /// Paints the example anew; without parameters or the event the picture stays.
    void update_controls();

    bool selected = false;   ///< the style of selected objects
    void *stl_prm = nullptr; ///< not owned
    Tvx_draw_style_event on_draw_style;
    Tvx_edit_style_event on_edit_style;
    /// The user changed the style.
    TNotifyEvent on_changed;

private:
    void on_self_click(TObject *sender);
};
