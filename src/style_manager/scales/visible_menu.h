#pragma once

#include "style_manager/scales/scale_menu.h"

/// Shows and hides the rows of a scale, all or the marked ones. Until the user has said which, that follows
/// the marks.
class VX_API Tvx_visible_menu : public Tvx_scale_menu
{
public:
    explicit Tvx_visible_menu(TComponent *owner);

    void load_res();
    void update_controls();

    void set_stl_mngr(void *mngr) override;
    [[nodiscard]] bool get_only_selected() const { return f_only_selected; }

private:
    void on_item_only_selected_click(TObject *sender);
    void on_item_click(TObject *sender);

    bool f_only_selected = false;
    bool f_only_selected_touched = false; ///< the user has set it for this manager
    Tvx_menu_item *f_only_selected_item;
};
