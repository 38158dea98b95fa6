#pragma once

/// Numbers of the captions, pictures and cursors of the property, colour, file and font controls.
enum Tvx_prop_caption : int
{
    c_caption_add_scene = 2900,
    c_caption_open_scene = 2903,
    c_caption_scene_unreadable = 2904,
    c_caption_choose_color = 2905,
    c_caption_pick_color = 2906,
    c_caption_hide = 2907,
    c_caption_show = 2908,
    c_caption_choose_file = 2909,
    c_caption_show_full_name = 2910,
    c_caption_show_short_name = 2911,
    c_caption_copy_short_name = 2912,
    c_caption_copy_full_name = 2913,
    c_caption_choose_font = 2914,
    c_caption_use_current_font = 2915,
    c_caption_choose_symbol = 2916,
    c_caption_choose_figure = 2917,
    c_caption_figures = 2918,
    c_caption_histogram_menu_1 = 2919,
    c_caption_histogram_menu_2 = 2920,
    c_caption_histogram_menu_3 = 2921,
    c_caption_histogram = 2922,
    c_caption_font_name = 2923,
    c_caption_table = 2924,
};

enum Tvx_prop_picture : int
{
    c_picture_visible = 130,
    c_picture_hidden = 131,
    c_picture_color_picker = 132,
    c_picture_current_font = 133,
    c_cursor_color_picker = 135,
};
