#pragma once

#include "scale_builders/common/builder_form.h"

class Tvx_vcl_rng_panel;

/// The dialog that builds a range scale anew. Nothing is remembered from one dialog to the next: each starts
/// from the scale.
class VX_API Tvx_vcl_rng_type_form : public Tvx_vcl_builder_form
{
public:
    explicit Tvx_vcl_rng_type_form(TComponent *owner);

    void create() override;
    void load_rc() override;

    /// Builds the form, shows it modally at a point of the screen and gives true if the scale was changed.
    /// (0, 0) is the middle of the screen. It is not shown, and the scale stays, when the user stops the
    /// reading of the statistics. Once for each form.
    [[nodiscard]] bool dialog(int x, int y, void *stl_mngr, Tvx_data_events const &data);

    [[nodiscard]] Tvx_vcl_rng_panel *get_rng_panel() const { return f_rng_panel; }

protected:
    bool prepare(void *stl_mngr, Tvx_data_events const &data) override;
    bool apply() override;

private:
    Tvx_vcl_rng_panel *f_rng_panel = nullptr;
};
