#pragma once

/// Numbers of the messages of the number edits. "%1" in them stands for the text or the limit.
enum Tvx_numeric_caption : int
{
    c_caption_number_less = 120,
    c_caption_number_greater = 121,
    c_caption_wrong_number = 122,
};
