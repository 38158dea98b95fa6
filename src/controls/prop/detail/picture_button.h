#pragma once

#include "controls/forms/buttons.h"
#include "controls/prop/image_convert.h"

#include "platform/basic/vx_res.h"

/// Gives a button without a text the picture of a number, and a caption as its hint and accessible name.
inline void vx_picture_button_load(Tvx_bitbtn *button, int picture, int caption)
{
    vx_glyph_get_res(button->GetGlyph(), picture);
    UnicodeString const text = vx_res_get_wstr(caption);
    button->SetHint(text);
    button->SetAccessibleName(text);
}
