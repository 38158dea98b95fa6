#pragma once

#include "controls/forms/panels.h"

/// Base of the panels of the complex style editor.
class VX_API Tvx_cpx_panel : public Tvx_panel
{
public:
    using Tvx_panel::Tvx_panel;

    /// Fills in the texts.
    virtual void load_res() {}
    /// Shows what the model holds; fires nothing.
    virtual void update_controls() {}
};
