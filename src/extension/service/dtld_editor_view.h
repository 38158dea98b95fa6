#pragma once

#include "extension/binding/dtld_editor.h"
#include "extension/service/editor_view.h"
#include "styles/label/label_style_panel.h"

namespace vx {
struct dtld_edits
{
    Tvx_label_style_panel *panel = nullptr;
};
} // namespace vx

/// Shows the dynamic text layer that the model of an extension offers; the tab is hidden while it offers
/// none. The editor works on the layer, and the model hears of no change.
class VX_API Tvx_dtld_editor_view final : public Tvx_editor_view
{
public:
    Tvx_dtld_editor_view(TTabSheet *sheet, vx::dtld_editor editor);

    /// Every change goes into the layer as it is made.
    void end_edit(bool /*taken*/) override {}
    void leave_model(bool is_dead) override { f_impl.leave_model(is_dead); }
    [[nodiscard]] vx::dtld_edits const &get_edits() const { return f_impl.get_edits(); }

private:
    class impl final : public vx::editor_view_impl<vx::dtld_editor, vx::dtld_edits>
    {
    public:
        impl(TTabSheet *sheet, vx::dtld_editor editor);
        ~impl() = default;

    private:
        void show_model() override;
    };

    impl f_impl;
};
