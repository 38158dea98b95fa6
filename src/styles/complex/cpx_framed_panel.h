#pragma once

#include "styles/complex/cpx_panel.h"

class TCustomLabel;

/// Base of the four quarters of the editor: a bold caption, and below it a lowered frame round one control.
class VX_API Tvx_cpx_framed_panel : public Tvx_cpx_panel
{
public:
    void load_res() override;

protected:
    /// `caption` is its number.
    Tvx_cpx_framed_panel(TComponent *owner, int caption);

    [[nodiscard]] Tvx_panel *get_frame() const { return f_frame; }

private:
    TCustomLabel *f_label;
    Tvx_panel *f_frame;
    int f_caption;
};
