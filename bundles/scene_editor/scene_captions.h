#pragma once

/// Numbers of the captions of the scene editor's dialogs.
enum Tvx_scene_caption : int
{
    c_scn_dlg_txt_pnt = 3100,
    c_scn_dlg_txt_pln = 3101,
    c_scn_dlg_txt_pgn = 3102,
    c_scn_dlg_common = 3103,
    c_scn_dlg_managers = 3104,

    c_scn_tab_text = 3110,
    c_scn_tab_font = 3111,
    c_scn_tab_effects = 3112,

    c_scn_font = 3115,
    c_scn_color = 3116,
    c_scn_size = 3117,
    c_scn_angle = 3118,
    c_scn_place = 3119,
    c_scn_delta_x = 3120,
    c_scn_delta_y = 3121,
    c_scn_outline = 3122,
    c_scn_outline_size = 3123,
    c_scn_back = 3124,
    c_scn_shadow = 3125,
    c_scn_shadow_width = 3126,
    c_scn_shadow_gap_x = 3127,
    c_scn_shadow_gap_y = 3128,
    c_scn_mm = 3129,
    c_scn_degree = 3130,
    c_scn_places = 3131, ///< nine lines, from the upper left to the lower right one

    c_scn_line = 3135,
    c_scn_line_hint = 3136,
    c_scn_property = 3137, ///< "%1": the name of the property
    c_scn_empty_line = 3138,
    c_scn_lines = 3139,
    c_scn_sample_text = 3140,

    c_scn_common_name = 3145,
    c_scn_common_note = 3146,
    c_scn_in_all = 3147, ///< "%1": what is set in all texts

    c_scn_add = 3150,
    c_scn_delete = 3151,
    c_scn_up = 3152,
    c_scn_down = 3153,
    c_scn_name = 3154,
    c_scn_active = 3155,
    c_scn_active_item = 3156, ///< "%1": the name of the manager
    c_scn_managers = 3157,
};
