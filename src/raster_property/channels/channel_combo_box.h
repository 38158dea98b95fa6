#pragma once

#include "controls/forms/caption_panels.h"
#include "raster_property/channels/channel_events.h"

#include <string>

/// The choice of the property that feeds a channel. The place in the list is the number of the property: all
/// properties of layers of cells can be chosen.
class VX_API Tvx_channel_combo_box : public Tvx_combo_box_panel
{
public:
    explicit Tvx_channel_combo_box(TComponent *owner);

    virtual void create();
    virtual void load_res();
    /// Reads the list anew and selects the property of `prop_name`, or nothing where there is none. The list
    /// is empty if an event is missing or the data cannot be opened.
    void update_controls();

    std::wstring prop_name;
    Tvx_data_open_event on_data_open;
    Tvx_data_close_event on_data_close;
    Tvx_data_get_np_event on_data_get_np;
    Tvx_data_get_wprop_event on_data_get_wprop;
    /// What is shown in place of the name, if set.
    Tvx_data_get_capt_wprop_event on_data_get_capt_wprop;
    /// The user chose a property; `prop_name` has its name, or is empty where the data could not be opened.
    TNotifyEvent on_changed;

private:
    void on_combo_box_changed(TObject *sender);
};
