#pragma once

/// Numbers of the pictures of the style manager editor.
enum Tvx_shell_picture : int
{
    c_picture_rotate = 680,
    c_picture_open_legend = 3011,
};
