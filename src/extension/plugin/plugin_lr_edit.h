#pragma once

#include "controls/forms/panels.h"
#include "extension/plugin/plugin_lr_tabsheet.h"
#include "style_manager/widgets/data_event_owner.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_attrib_any_data.h"

/// A panel with a tab for each style editor plug-in of the process that supports the style manager of the
/// moment. The plug-ins pull table data through the same events as the editor of a style manager.
class VX_API Tvx_plugin_lr_edit : public Tvx_panel, public Tvx_data_event_owner
{
public:
    explicit Tvx_plugin_lr_edit(TComponent *owner);
    ~Tvx_plugin_lr_edit() override;

    /// Makes the tabs; fetches their texts again when there are tabs.
    void load_res();
    [[nodiscard]] void *get_stl_mgr() const { return f_stl_mgr; }
    /// Not owned. The tabs of plug-ins that support the manager are shown, attached and refreshed, the others
    /// hidden. Null changes no tab: the plug-ins still know the manager before, so the panel is to be hidden
    /// then.
    void set_stl_mgr(void *manager);
    /// Has the plug-ins show the state of the manager, which is the one they know.
    void update_controls();
    /// Whether a tab is to be seen.
    [[nodiscard]] bool has_tabs() const;

    [[nodiscard]] TPageControl *get_pages() const { return f_pages; }

    /// A plug-in has changed the style manager.
    closure<void(TObject *sender)> on_commit;

private:
    friend VX_API Tvx_attrib_any_data &plugin_style_editor_get_data(void *panel);

    void data_events_changed() override {}
    [[nodiscard]] Tvx_plugin_lr_tabsheet *sheet(int index) const;
    void on_sheet_commit(TObject *sender);
    void on_sheet_focus(TObject *sender);

    void *f_stl_mgr = nullptr;
    TPageControl *f_pages = nullptr;
    vx::owned<Tvx_attrib_any_data, &attrib_any_data_destroy> f_data;
};

/// The table that plug-ins pull; `panel` is a `Tvx_plugin_lr_edit`. A tuple of three: the fields, a table
/// with a row of name and kind (4 number, 2 text) each; the records, a table with a row of one cell a field
/// each; and the integer 2. A cell without a value holds nothing. The tuple is empty for a null panel,
/// without data, and when reading was stopped. It is the panel's, and stays valid until the next call for it,
/// or the panel's end.
[[nodiscard]] VX_API Tvx_attrib_any_data &plugin_style_editor_get_data(void *panel);
