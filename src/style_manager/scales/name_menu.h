#pragma once

#include "style_manager/scales/scale_menu.h"

/// Sorts a scale by the column that it was opened over. The outer rows of a range scale stay where they are.
class VX_API Tvx_name_menu : public Tvx_scale_menu
{
public:
    using Tvx_scale_menu::Tvx_scale_menu;

    void create();
    void load_res();
    /// Bounds of ranges are not offered to be sorted as text.
    void update_controls();

    /// It is opened over the captions, else over the texts or bounds.
    void set_caption_flag(bool caption) { f_caption_flag = caption; }
    /// It is opened over the lower bounds of a range scale.
    void set_is_min_flag(bool is_min) { f_is_min_flag = is_min; }

private:
    void on_item_click(TObject *sender);

    bool f_caption_flag = false;
    bool f_is_min_flag = false;
    Tvx_menu_item *f_sort_str = nullptr;
    Tvx_menu_item *f_sort_num = nullptr;
};
