#pragma once

#include "extension/binding/style_editor.h"
#include "extension/binding/style_list_editor.h"
#include "extension/service/editor_view.h"
#include "style_manager/lists/stl_mngr_list_edit.h"
#include "style_manager/shell/typed_stl_mngr_edits.h"

#include <string>

namespace vx {
/// The manager editors of a view of styles: one for each type of symbols, of which one is shown.
struct style_edits
{
    Tvx_style_stl_mngr_list_edit *list = nullptr; ///< of views of lists only
    Tvx_pnt_stl_mngr_edit *pnt = nullptr;
    Tvx_pln_stl_mngr_edit *pln = nullptr;
    Tvx_pgn_stl_mngr_edit *pgn = nullptr;
};

/// What the views of one style manager and of a list have in common.
template <class Model>
class VX_API style_view_impl : public editor_view_impl<Model, style_edits>
{
public:
    void end_edit(bool taken);
    void on_style_changed(TObject *sender);
    /// Lets the user edit a filter over the model's table; false where there is none.
    bool on_edit_value_item(std::wstring &text);

protected:
    using editor_view_impl<Model, style_edits>::editor_view_impl;
    ~style_view_impl() = default;

    void add_style_edits();
    /// Shows the editor for managers of the type and clears the two others; nothing is touched when there is
    /// a manager of another type. `types` are the keys of points, lines and polygons.
    void show_manager(void *manager, char const *type, char const *const (&types)[3]);
    void show_tab_and_edits();

private:
    template <class Edit>
    void add_style_edit(Edit *&field);
    template <class Act>
    void each_edit(Act act);
};
} // namespace vx

/// Shows the style manager that the model of an extension offers; the tab is hidden while it offers none. The
/// model hears of each change by its `commit`.
class VX_API Tvx_style_editor_view final : public Tvx_editor_view
{
public:
    Tvx_style_editor_view(TTabSheet *sheet, vx::style_editor editor);

    void end_edit(bool taken) override { f_impl.end_edit(taken); }
    void leave_model(bool is_dead) override { f_impl.leave_model(is_dead); }
    [[nodiscard]] vx::style_edits const &get_edits() const { return f_impl.get_edits(); }

private:
    class impl final : public vx::style_view_impl<vx::style_editor>
    {
    public:
        impl(TTabSheet *sheet, vx::style_editor editor);
        ~impl() = default;

    private:
        void show_model() override;
    };

    impl f_impl;
};

/// The same for a list of style managers, whose active one is shown.
class VX_API Tvx_style_list_editor_view final : public Tvx_editor_view
{
public:
    Tvx_style_list_editor_view(TTabSheet *sheet, vx::style_list_editor editor);

    void end_edit(bool taken) override { f_impl.end_edit(taken); }
    void leave_model(bool is_dead) override { f_impl.leave_model(is_dead); }
    [[nodiscard]] vx::style_edits const &get_edits() const { return f_impl.get_edits(); }

private:
    class impl final : public vx::style_view_impl<vx::style_list_editor>
    {
    public:
        impl(TTabSheet *sheet, vx::style_list_editor editor);
        ~impl() = default;

        void on_stl_mngr_list_active_changed(TObject *sender);

    private:
        void show_model() override;
    };

    impl f_impl;
};
