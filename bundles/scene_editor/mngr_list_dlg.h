#pragma once

#include "controls/forms/caption_panels.h"
#include "controls/forms/dlg_form.h"
#include "controls/forms/lists.h"
#include "controls/forms/order_buttons.h"

#include "platform/base/owned.h"
#include "platform/styles/vx_stl_mngr_list.h"

/// The managers of a list: names, order, adding and deleting, and which one is active. Works on a copy of the
/// list: whoever runs it takes that over after `mrOk`.
class Tvx_mngr_list_dlg final : public Tvx_dlg_form
{
public:
    /// The list stays the caller's; not null.
    explicit Tvx_mngr_list_dlg(void const *list);

    void load_res() override;
    [[nodiscard]] void const *get_list() const { return f_list.get(); }

private:
    [[nodiscard]] int count() const;
    /// The rows stand in display order, which may be that of the list turned round.
    [[nodiscard]] int index_of_row(int row) const;
    [[nodiscard]] int current() const { return index_of_row(f_rows->GetItemIndex()); }
    [[nodiscard]] UnicodeString row_text(int index) const;
    void show_rows(int current);
    void show_current();
    void on_rows_click(TObject *sender);
    void on_name_changed(TObject *sender);
    void on_active_click(TObject *sender);
    void on_add_click(TObject *sender);
    void on_delete_click(TObject *sender);
    void on_move_click(TObject *sender, int by);

    vx::owned<void, &vx_stl_mngr_list_destroy> f_list;
    Tvx_list_box *f_rows;
    Tvx_order_buttons *f_buttons;
    Tvx_string_panel *f_name;
    Tvx_check_box *f_active;
    bool f_inverted;
};
