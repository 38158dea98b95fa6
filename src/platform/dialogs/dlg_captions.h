#pragma once

/// Caption numbers of the common dialogs, 550 to 599.
enum Tvx_dlg_caption : int
{
    c_dlg_ok = 550,
    c_dlg_cancel,
    c_dlg_yes,
    c_dlg_no,
    c_dlg_stop,
    c_dlg_stopping,

    c_dlg_color = 558,
    c_dlg_color_field,
    c_dlg_hue_strip,
    c_dlg_opacity_strip,
    c_dlg_hue,
    c_dlg_saturation,
    c_dlg_value,
    c_dlg_red,
    c_dlg_green,
    c_dlg_blue,
    c_dlg_opacity,
    c_dlg_code,
    c_dlg_swatches,

    c_dlg_font = 574,
    c_dlg_family,
    c_dlg_find_hint,
    c_dlg_bold,
    c_dlg_italic,
    c_dlg_underline,
    c_dlg_strikeout,
    c_dlg_sample,
    c_dlg_sample_text,

    c_dlg_charmap = 584,
    c_dlg_charmap_font,
    c_dlg_charmap_find,
    c_dlg_charmap_hint,
    c_dlg_charmap_none,
    c_dlg_charmap_grid,

    c_dlg_open = 592,
    c_dlg_save,
    c_dlg_open_button,
    c_dlg_save_button,
    c_dlg_all_files,
    c_dlg_files_of, ///< "%1": the suffix
    c_dlg_replace,  ///< "%1": the name of the file
    c_dlg_no_file,  ///< the same
};
