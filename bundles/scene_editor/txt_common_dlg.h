#pragma once

#include "controls/forms/caption_panels.h"
#include "controls/forms/dlg_form.h"
#include "txt_params_edit.h"
#include "txt_preview.h"

/// What the texts of a manager have in common: its name, and the parameters that the user ticks, which are
/// set in the style of every row of it, whatever its mode. It begins with the values of the simple style.
class Tvx_txt_common_dlg final : public Tvx_dlg_form
{
public:
    Tvx_txt_common_dlg();

    void load_res() override;
    /// The manager stays the caller's and is read at once.
    void set_manager(void *mngr);
    /// Sets what the user made of it, in this manager.
    void write_to(void *mngr) const;

private:
    void on_params_changed(TObject *sender);

    Tvx_string_panel *f_name;
    Tvx_label *f_note;
    Tvx_txt_params_edit *f_params;
    Tvx_txt_preview *f_preview;
};
