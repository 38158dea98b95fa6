#pragma once

/// Numbers of the captions of the layer page set.
enum Tvx_page_set_caption : int
{
    c_caption_style_tab = 301,
    c_caption_text_tab = 302,
    c_caption_text_mngr_tab = 303,
    c_caption_slice_prop_tab = 304,
    c_caption_2crd_prop_tab = 305,
    c_caption_pages = 306, ///< accessible name of the tab control
};
