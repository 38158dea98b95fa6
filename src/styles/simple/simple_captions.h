#pragma once

/// Numbers of the captions and pictures of the simple style editors.
enum Tvx_simple_caption : int
{
    c_smp_use_symbol = 3000,
    c_smp_figure = 3001,
    c_smp_symbol = 3002,
    c_smp_color = 3003,
    c_smp_size = 3004,
    c_smp_width = 3005,
    c_smp_mm = 3006,
    c_smp_use_complex = 3007,
    c_smp_complex_style = 3008,
    c_smp_edit_complex = 3009,

    c_smp_save_file = 3010,
    c_smp_load_file = 3011,
    c_smp_library = 3012,
    c_smp_file_unreadable = 3013, ///< "%1": the name of the file

    c_smp_pnt_files = 3016, ///< filters of file dialogs: captions and masks between bars
    c_smp_pln_files = 3017,
    c_smp_pgn_files = 3018,

    c_smp_tab_line = 3020,
    c_smp_tab_vertices = 3021,
    c_smp_tab_end = 3022,
    c_smp_tab_begin = 3023,
    c_smp_tab_fill = 3024,
    c_smp_tab_outline = 3025,

    c_smp_dlg_bpnt = 3030,
    c_smp_dlg_bpln = 3031,
    c_smp_dlg_bpgn = 3032,
    c_smp_dlg_pnt = 3033,
    c_smp_dlg_pln = 3034,
    c_smp_dlg_pgn = 3035,

    c_smp_edit_style = 3040,
    c_smp_edit_color = 3041,
};

enum Tvx_simple_picture : int
{
    c_smp_picture_save = 3010,
    c_smp_picture_load = 3011,
};
