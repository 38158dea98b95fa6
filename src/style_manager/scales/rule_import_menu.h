#pragma once

#include "style_manager/scales/scale_menu.h"

/// Makes the rules of a manager anew from its value scale or its range scale.
class VX_API Tvx_rule_import_menu : public Tvx_scale_menu
{
public:
    using Tvx_scale_menu::Tvx_scale_menu;

    void create();
    void load_res();
    /// Only scales that have a field can be imported.
    void update_controls();

private:
    void on_item_click(TObject *sender);

    Tvx_menu_item *f_values = nullptr;
    Tvx_menu_item *f_ranges = nullptr;
};
