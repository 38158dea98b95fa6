#pragma once

#include "controls/forms/panels.h"

/// Base of the panels that edit one style. A panel holds a private style: values go in and out by assignment,
/// so a caller's style is never touched. What is set shows at the next `update_controls`.
class VX_API Tvx_style_edit : public Tvx_basic_pnl
{
public:
    /// Shows the values of the private style; fires nothing.
    virtual void update_controls() = 0;
    virtual void load_res() = 0;

protected:
    using Tvx_basic_pnl::Tvx_basic_pnl;
};
