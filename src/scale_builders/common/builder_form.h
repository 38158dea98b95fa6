#pragma once

#include "controls/forms/vcl_dialog_form.h"
#include "style_manager/api/data_events.h"

/// A dialog that builds a scale: the scale is read when it opens and written once, when it is accepted.
class VX_API Tvx_vcl_builder_form : public Tvx_vcl_dialog_form
{
public:
    /// Builds the scale and closes; stays open where that fails. Only closes when the editor that called the
    /// builder has gone, or has another manager.
    void call_apply() override;

protected:
    Tvx_vcl_builder_form(TComponent *owner, int width, int height);

    /// Builds the form and shows it modally at a point of the screen, (0, 0) for its middle. True if the
    /// scale was changed. Once for each form.
    [[nodiscard]] bool run(int x, int y, void *stl_mngr, Tvx_data_events const &data);

    /// Reads scale and data. False when the user stopped that: the form is not shown.
    [[nodiscard]] virtual bool prepare(void *stl_mngr, Tvx_data_events const &data) = 0;
    /// False: nothing was built, and the form stays open.
    [[nodiscard]] virtual bool apply() = 0;

private:
    bool f_applied = false;
};

/// All pull events of one source, as the plain functions of the builders get them.
[[nodiscard]] inline Tvx_data_events
vx_gather_data(Tvx_data_open_event open, Tvx_data_close_event close, Tvx_data_get_np_event get_np,
               Tvx_data_get_no_event get_no, Tvx_data_get_prop_event get_prop,
               Tvx_data_get_stat_event get_stat, Tvx_data_get_str_event get_str,
               Tvx_data_get_val_event get_val)
{
    Tvx_data_events data;
    data.open = open;
    data.close = close;
    data.get_np = get_np;
    data.get_no = get_no;
    data.get_prop = get_prop;
    data.get_stat = get_stat;
    data.get_str = get_str;
    data.get_val = get_val;
    return data;
}
