#pragma once

#include "scale_builders/common/builder_form.h"

class Tvx_vcl_val_panel;

/// The dialog that builds a value scale or brings one up to date. What was last accepted about legends is
/// remembered for the life of the process.
class VX_API Tvx_vcl_val_type_form : public Tvx_vcl_builder_form
{
public:
    explicit Tvx_vcl_val_type_form(TComponent *owner);

    void create() override;
    void load_rc() override;

    /// Builds the form, shows it modally at a point of the screen and gives true if it was applied. (0, 0) is
    /// the middle of the screen. It is not shown, and the scale stays, when the user stops the reading of the
    /// values. Once for each form.
    [[nodiscard]] bool dialog(int x, int y, void *stl_mngr, Tvx_data_events const &data);

    [[nodiscard]] Tvx_vcl_val_panel *get_val_panel() const { return f_val_panel; }

protected:
    bool prepare(void *stl_mngr, Tvx_data_events const &data) override;
    bool apply() override;

private:
    Tvx_vcl_val_panel *f_val_panel = nullptr;
};
