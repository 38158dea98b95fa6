#pragma once

/// Numbers of the pictures and cursors of the property, colour, file and font controls.
enum Tvx_prop_picture : int
{
    c_picture_visible = 130,
    c_picture_hidden = 131,
    c_picture_color_picker = 132,
    c_picture_current_font = 133,
    c_cursor_color_picker = 135,
};
