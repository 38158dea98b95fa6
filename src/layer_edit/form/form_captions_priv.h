#pragma once

/// Numbers of the captions of the edit form.
enum Tvx_edit_form_caption : int
{
    c_caption_edit_form_title = 300, ///< with one place "%s" for the layer's name
};

/// Help number of the edit form.
inline constexpr int c_help_edit_form = 23;
