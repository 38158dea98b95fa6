#pragma once

#include "controls/forms/buttons.h"
#include "controls/forms/caption_panels.h"

/// A caption and the button that reads a legend of the type `.avl` into a style manager; 22 high.
class VX_API Tvx_style_avl_panel : public Tvx_caption_panel
{
public:
    explicit Tvx_style_avl_panel(TComponent *owner);

    void create();
    void load_res();
    /// Shown only for managers of points, lines and polygons.
    void update_controls();

    [[nodiscard]] void *get_stl_mngr() const { return f_stl_mngr; }
    /// Not owned.
    void set_stl_mngr(void *mngr) { f_stl_mngr = mngr; }
    [[nodiscard]] Tvx_bitbtn *get_btn() const { return f_btn; }

    /// A legend was read.
    TNotifyEvent on_changed;

private:
    void on_btn_click(TObject *sender);

    Tvx_bitbtn *f_btn = nullptr;
    void *f_stl_mngr = nullptr;
};
