#pragma once

#include "controls/forms/pages.h"
#include "controls/forms/panels.h"
#include "layer_edit/page_api/basic_lr2d_edit.h"
#include "layer_edit/page_api/lr2d_extensions.h"
#include "layer_edit/page_api/lr2d_pages.h"
#include "layer_edit/page_set/page_table.h"

#include "platform/base/closure.h"
#include "platform/base/export.h"
#include "platform/base/owned.h"
#include "platform/layers/vx_lr2d.h"
#include "platform/toolkit/core/list.h"

#include <array>
#include <memory>
#include <string>

struct Ivx_event_channel;
struct Tvx_table;

/// The panel of tabs and pages that edits one layer.
///
/// It is built once with every page that it may ever need, all hidden. The layer that it is given stays the
/// caller's: it is cloned, and pages, plug-ins and extensions work on the clone, the working copy. The type
/// of the working copy decides which tabs and pages are seen (`layer_edit/page_api/lr2d_pages.h`).
class VX_API Tvx_lr2d_edit : public Tvx_panel
{
public:
    /// Loads the native page plug-ins.
    explicit Tvx_lr2d_edit(TComponent *owner);
    /// The same with other parts; what `parts` points to outlives the page set.
    Tvx_lr2d_edit(TComponent *owner, vx::lr2d_edit_parts const &parts);
    ~Tvx_lr2d_edit() override;

    /// Fills in the captions of the fixed tabs and of all pages.
    virtual void load_res();
    /// The category under which extension services are looked up: a host name and a path, L"vxk/layer/2d"
    /// here. Bundles register their services under the same text.
    [[nodiscard]] virtual std::wstring get_extension_category() const;

    /// Builds tabs and pages. Called once, after the parent is set.
    void create();

    /// The working copy, or null. It is replaced by each `set_lr2d` and ends with the page set.
    [[nodiscard]] Ivx_layer *get_lr2d() const { return f_lr2d.get(); }
    /// Takes a copy of `layer` as the new working copy; null, or a layer that cannot be cloned, leaves none.
    /// The tab that is active stays active if the new layer has it.
    void set_lr2d(Ivx_layer *layer);
    /// Shows the state of the working copy afresh. Fires nothing.
    void update_controls();
    /// Shows, binds and refreshes the tabs and pages that the working copy calls for, and clears the others.
    /// The style tab stays as it is when there is no working copy.
    void update_tabs();
    /// Has the grid or raster page write its current scale to its store.
    void save_current_scl();

    void call_changed();
    /// The change handler of the pages.
    void on_lr2d_changed(TObject *sender);
    /// True only while a change travels up that the host must show at once.
    [[nodiscard]] bool get_notify_host() const { return f_notify_host; }

    [[nodiscard]] Tvx_page_control *get_pages() const { return f_pages; }
    /// The page of a place; null if the place is not taken, or before `create`.
    [[nodiscard]] Tvx_basic_lr2d_edit *get_page(vx::lr2d_page page) const;

    /// Client of the working copy's update channel; `self` is the page set. Refreshes it if the queue holds
    /// an update.
    static void vx_lr2d_edit_event_channel_callback_proc(Tvx_table *queue, void *self);

protected:
    using owned_layer = vx::owned<Ivx_layer, &vx_lr2d_destroy>;

    owned_layer f_lr2d;
    Tvx_page_control *f_pages = nullptr;
    Tvx_tab_sheet *f_prop_ts = nullptr;
    Tvx_tab_sheet *f_style_ts = nullptr;
    Tvx_tab_sheet *f_text_ts = nullptr;
    Tvx_tab_sheet *f_text_mngr = nullptr;
    /// One sheet for each plug-in, in the order of the set; its `Tag` keeps the plug-in's instance.
    std::unique_ptr<TComponentList> f_plugin_tabs;
    std::unique_ptr<Tvx_lr2d_page_plugin_set> f_plugins;
    std::unique_ptr<Tvx_lr2d_custom_pages> f_custom_pages;
    Tvx_basic_lr2d_edit *f_rtr_edit = nullptr;
    Tvx_basic_lr2d_edit *f_shp_pnt_edit = nullptr;
    Tvx_basic_lr2d_edit *f_shp_pln_edit = nullptr;
    Tvx_basic_lr2d_edit *f_shp_pgn_edit = nullptr;
    Tvx_basic_lr2d_edit *f_tos_grid_edit = nullptr;
    Tvx_basic_lr2d_edit *f_tos_slice_edit = nullptr;
    Tvx_basic_lr2d_edit *f_tos_2crd_edit = nullptr;
    Tvx_basic_lr2d_edit *f_tld_edit = nullptr;
    Tvx_basic_lr2d_edit *f_dtld_edit = nullptr;
    Tvx_basic_lr2d_edit *f_txt_pnt_edit = nullptr;
    Tvx_basic_lr2d_edit *f_txt_pln_edit = nullptr;
    Tvx_basic_lr2d_edit *f_txt_pgn_edit = nullptr;
    Tvx_basic_lr2d_edit *f_txt_tos_2crd_edit = nullptr;

public:
    /// A page reported a change. Set by the form.
    closure<void(TObject *)> on_changed;

protected:
    std::wstring f_slice_prop_caption;
    std::wstring f_2crd_prop_caption;
    Ivx_event_channel *f_update_channel = nullptr;
    bool f_show_style_tab = true; ///< what derives changes it in its constructor
    bool f_notify_host = false;

private:
    class refreshing_scope;
    using page_field = Tvx_basic_lr2d_edit *Tvx_lr2d_edit::*;
    static std::array<page_field, vx::c_lr2d_page_count> const &page_fields();

    void create_tabs();
    void create_page(vx::lr2d_page_place const &place);
    void create_plugin_tabs();
    void hand_to_extensions(Ivx_layer *layer);
    void attach_plugins(Ivx_layer *layer);
    [[nodiscard]] void *plugin_instance(int index) const;
    void take_lr2d(Ivx_layer *layer);
    /// False when this ended, or got another layer, while a page read.
    [[nodiscard]] bool show_tabs();
    void end_edit(bool taken);
    void refresh();
    /// One more refresh if an update event came during the last.
    void catch_up();
    void hook_update_channel();
    void unhook_update_channel();
    void update_prop_tab(vx::lr2d_page_row const &row);
    void update_page(vx::lr2d_page page, vx::lr2d_page_row const &row);
    void update_style_tab(vx::lr2d_page_row const &row);
    void clear_tabs();
    [[nodiscard]] Tvx_tab_sheet *tab(vx::lr2d_tab place) const;
    [[nodiscard]] Ivx_layer *text_layer(vx::lr2d_text_layer source) const;
    void keep_active_tab(TTabSheet *remembered);

    vx::lr2d_edit_parts f_parts;
    bool f_refreshing = false;
    bool f_update_missed = false; ///< an update event came during the refresh
};
