#pragma once

#include "extension/plugin/plugin_lr_edit.h"

#include "platform/basic/vx_options.h"
#include "platform/toolkit/controls/splitter.h"

namespace vx {
/// A page of a style manager with the tabs of the style editor plug-ins below it, where there are such that
/// support the manager. They get the data of the page's editor and work on its manager; what they change the
/// page shows.
template <class Page>
class style_plugin_page : public Page
{
public:
    using Page::Page;

    void load_res() override
    {
        Page::load_res();
        if (f_plugins)
            f_plugins->load_res();
    }

    void update_controls() override
    {
        // Windows are worked while the page reads a long table, so it may end meanwhile.
        auto const life = this->Life();
        Page::update_controls();
        if (life.expired())
            return;
        void *const manager = this->get_stl_mngr_edit()->get_stl_mngr();
        if (manager && !f_plugins)
            create_plugins();
        if (!f_plugins)
            return;
        f_plugins->set_stl_mgr(manager);
        bool const shown = manager && f_plugins->has_tabs();
        f_plugins->SetVisible(shown);
        f_splitter->SetVisible(shown);
    }

private:
    static constexpr int c_height = 190;

    /// When there is first something to edit: an editor has a page for each geometry, of which it shows one.
    void create_plugins()
    {
        // Who wants none has none loaded.
        if (!vx_options_get_style_editor_plugin_mask() ||
            vx_get_style_edit_plugin_module_set().get_plugin_count() == 0)
            return;
        f_plugins = new Tvx_plugin_lr_edit(this);
        f_plugins->SetVisible(false);
        f_plugins->SetAlign(alBottom);
        f_plugins->SetHeight(c_height);
        f_plugins->SetParent(this);
        f_plugins->set_data_events(this->get_stl_mngr_edit()->get_data_events());
        f_plugins->on_commit = make_closure<&style_plugin_page::on_plugin_commit>(this);
        f_plugins->load_res();
        f_splitter = new TSplitter(this);
        f_splitter->SetVisible(false);
        f_splitter->SetAlign(alBottom);
        f_splitter->SetParent(this);
    }

    void on_plugin_commit(TObject * /*sender*/)
    {
        auto const life = this->Life();
        Page::update_controls();
        if (!life.expired())
            this->call_changed();
    }

    Tvx_plugin_lr_edit *f_plugins = nullptr;
    TSplitter *f_splitter = nullptr;
};
} // namespace vx
