#pragma once

#include "controls/forms/caption_panels.h"
#include "controls/forms/dlg_form.h"

#include <string>

/// Asks for the name of a new text class.
class VX_API Tvx_label_style_new_class_dlg : public Tvx_dlg_form
{
public:
    explicit Tvx_label_style_new_class_dlg(TComponent *owner);

    void create_controls() override;
    void load_res() override;

    /// In the system code page; empty before `create_controls`.
    [[nodiscard]] std::string get_class_name() const;
    /// Null counts as empty.
    void set_class_name(char const *name);
    /// Null before `create_controls`.
    [[nodiscard]] Tvx_string_panel *get_name_panel() const { return f_name_panel; }

private:
    Tvx_string_panel *f_name_panel = nullptr;
};
