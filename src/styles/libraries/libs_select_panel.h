#pragma once

#include "controls/forms/caption_panels.h"

/// Chooses one library of a list by its name.
class VX_API Tvx_libs_select_panel : public Tvx_combo_box_panel
{
public:
    explicit Tvx_libs_select_panel(TComponent *owner);

    void load_res();
    /// A list of libraries (platform/styles/vx_style_lib.h) or null; shown by `update_controls`.
    void set_libs(void *libs) { f_libs = libs; }
    /// Fills the box. A place outside the list becomes the first one, or -1 where there is none.
    void update_controls();
    /// From 0; -1 without a library.
    [[nodiscard]] int get_index() const { return f_index; }
    /// A negative place becomes the first one if there is a library.
    void set_index(int index);
    /// The library at the place, null if there is none.
    [[nodiscard]] void *get_lib() const;

    /// The user chose another library. The sender is the panel.
    closure<void(TObject *)> on_changed;

private:
    void on_box_change(TObject *sender);

    int f_index = -1;
    void *f_libs = nullptr;
};
