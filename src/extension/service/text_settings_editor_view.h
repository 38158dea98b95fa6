#pragma once

#include "extension/binding/text_settings_editor.h"
#include "extension/service/editor_view.h"
#include "style_manager/lists/stl_mngr_list_edit.h"
#include "style_manager/shell/typed_stl_mngr_edits.h"

namespace vx {
/// The editors of a view of text settings: the strip of managers, and one editor for each type, of which one
/// is shown.
struct text_settings_edits
{
    Tvx_txt_stl_mngr_list_edit *list = nullptr;
    Tvx_txt_pgn_stl_mngr_edit *pgn = nullptr;
    Tvx_txt_pln_stl_mngr_edit *pln = nullptr;
    Tvx_txt_pnt_stl_mngr_edit *pnt = nullptr;
};
} // namespace vx

/// Shows the text settings that the model of an extension offers; the tab is hidden while it offers none. The
/// editors work on the settings, and the model hears of no change.
class VX_API Tvx_text_settings_editor_view final : public Tvx_editor_view
{
public:
    Tvx_text_settings_editor_view(TTabSheet *sheet, vx::text_settings_editor editor);

    void end_edit(bool taken) override { f_impl.end_edit(taken); }
    void leave_model(bool is_dead) override { f_impl.leave_model(is_dead); }
    [[nodiscard]] vx::text_settings_edits const &get_edits() const { return f_impl.get_edits(); }

private:
    class impl final : public vx::editor_view_impl<vx::text_settings_editor, vx::text_settings_edits>
    {
    public:
        impl(TTabSheet *sheet, vx::text_settings_editor editor);
        ~impl() = default;

        void end_edit(bool taken);
        void on_stl_mngr_list_active_changed(TObject *sender);

    private:
        template <class Edit>
        void add_text_edit(Edit *&field);
        void show_model() override;
        void show_manager(Tvx_txt_stl_mngr_edit *edit, void *manager, bool selection);
    };

    impl f_impl;
};
