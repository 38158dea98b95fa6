#pragma once

/// Numbers of the captions of forms and dialogs.
enum Tvx_forms_caption : int
{
    c_caption_apply = 100,
    c_caption_cancel = 101,
    c_caption_help = 102,
    c_caption_update = 103,
    c_caption_stop = 106,
    // For buttons of 70 pixels.
    c_caption_short_apply = 107,
    c_caption_short_save = 108,
    c_caption_short_load = 109,
};
