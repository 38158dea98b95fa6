#pragma once

#include "extension/plugin/style_edit_plugin.h"

#include "platform/base/closure.h"
#include "platform/toolkit/controls/page_control.h"

/// The tab of one style editor plug-in. Without an instance its calls do nothing.
class VX_API Tvx_plugin_lr_tabsheet : public TTabSheet
{
public:
    /// The module outlives the sheet. It gives the sheet its text, and its instance.
    Tvx_plugin_lr_tabsheet(TComponent *owner, Tvx_style_edit_plugin *plugin);
    ~Tvx_plugin_lr_tabsheet() override;

    void update_controls();
    [[nodiscard]] bool supports(void *style_manager) const;
    void attach(void *style_manager, Tvx_plugin_style_edit::data_function get_data, void *data);

    [[nodiscard]] Tvx_style_edit_plugin *get_plugin() const { return f_plugin; }
    /// Null when the module made no instance.
    [[nodiscard]] Tvx_plugin_style_edit *get_edit() const { return f_edit; }

    /// The plug-in tells that it has changed the style manager, or that its tab is to come to the front.
    /// Nothing else happens then; unset by default.
    closure<void(TObject *sender)> on_commit;
    closure<void(TObject *sender)> on_focus;

protected:
    void CreateWnd() override;
    void DestroyWnd() override;
    void Resize() override;

private:
    void place();

    Tvx_style_edit_plugin *f_plugin;
    Tvx_plugin_style_edit *f_edit = nullptr;
};
