#pragma once

#include "style_manager/scales/scale_menu.h"

/// Marks the rows of a scale.
class VX_API Tvx_select_menu : public Tvx_scale_menu
{
public:
    using Tvx_scale_menu::Tvx_scale_menu;

    void create();
    void load_res();
    /// Nothing to show anew: all commands serve every scale.
    void update_controls() {}

private:
    void on_item_click(TObject *sender);
};
