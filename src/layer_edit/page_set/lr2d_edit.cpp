#include "layer_edit/page_set/lr2d_edit.h"

#include "captions/layer_edit.h"

#include "platform/base/flag_scope.h"
#include "platform/basic/vx_event_channel.h"
#include "platform/basic/vx_options.h"
#include "platform/basic/vx_res.h"
#include "platform/layers/vx_layout_lr2d.h"
#include "platform/layers/vx_lr.h"
#include "platform/layers/vx_plugin_lr2d.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/layers/vx_tos_lr2d.h"
#include "platform/toolkit/core/new_on.h"

#include <algorithm>
#include <utility>

namespace {
/// Host name and path. Bundles that extend the layer editor register under the same text.
constexpr wchar_t c_extension_category[] = L"vxk/layer/2d";

void clear_page(Tvx_basic_lr2d_edit &page)
{
    page.SetVisible(false);
    if (!page.get_lr2d())
        return;
    // The refresh makes the page's editors let go of the objects of a layer that may have ended.
    page.set_lr2d(nullptr);
    page.update_controls();
}

void show_coordinate_panel(Tvx_basic_lr2d_edit &page, bool show)
{
    if (auto *panel = page.get_coordinate_panel())
        panel->SetVisible(show);
}
} // namespace

Tvx_lr2d_edit::Tvx_lr2d_edit(TComponent *owner) : Tvx_lr2d_edit(owner, vx::lr2d_edit_parts_of_library())
{
}

Tvx_lr2d_edit::Tvx_lr2d_edit(TComponent *owner, vx::lr2d_edit_parts const &parts)
    : Tvx_panel(owner), f_parts(parts)
{
    if (f_parts.load_plugins)
        f_plugins = f_parts.load_plugins(vx_options_get_lr_2d_editor_plugin_mask());
}

Tvx_lr2d_edit::~Tvx_lr2d_edit()
{
    // First of all: nothing that ends below may refresh the pages through the channel.
    unhook_update_channel();
    if (f_plugin_tabs) {
        for (int i = 0; i < f_plugin_tabs->GetCount(); ++i)
            if (void *instance = plugin_instance(i))
                f_plugins->get_plugin(static_cast<unsigned>(i))->destroy(instance);
    }
    end_edit(false);
    f_lr2d.reset();
    f_custom_pages.reset();
}

void Tvx_lr2d_edit::load_res()
{
    if (!f_pages)
        return;
    f_pages->SetAccessibleName(vx_res_get_wstr(c_caption_pages));
    f_2crd_prop_caption = vx_res_get_wstr(c_caption_2crd_prop_tab);
    f_slice_prop_caption = vx_res_get_wstr(c_caption_slice_prop_tab);
    f_style_ts->SetCaption(vx_res_get_wstr(c_caption_style_tab));
    f_text_ts->SetCaption(vx_res_get_wstr(c_caption_text_tab));
    f_text_mngr->SetCaption(vx_res_get_wstr(c_caption_text_mngr_tab));
    for (auto const field : page_fields())
        if (auto *page = this->*field)
            page->load_res();
}

std::wstring Tvx_lr2d_edit::get_extension_category() const
{
    return c_extension_category;
}

void Tvx_lr2d_edit::create()
{
    if (f_pages)
        return;
    create_tabs();
    for (auto const &place : vx::c_lr2d_page_places)
        create_page(place);
    create_plugin_tabs();
    if (f_parts.make_custom_pages)
        f_custom_pages = f_parts.make_custom_pages(f_pages, get_extension_category().c_str());
    f_pages->SetBounds(0, 0, GetClientWidth(), GetClientHeight());
    f_pages->SetAlign(alClient);
}

void Tvx_lr2d_edit::create_tabs()
{
    f_pages = vx_new_on<Tvx_page_control>(this, this);
    f_pages->DisableAlign();
    // The style tab alone shows without a layer, where there is one at all.
    auto const make_tab = [this](wchar_t const *name, bool visible = false) {
        auto *sheet = new Tvx_tab_sheet(this);
        sheet->SetName(name);
        sheet->SetTabVisible(visible);
        sheet->SetPageControl(f_pages);
        return sheet;
    };
    f_prop_ts = make_tab(L"f_prop_ts");
    f_style_ts = make_tab(L"f_style_ts", f_show_style_tab);
    f_text_ts = make_tab(L"f_text_ts");
    f_text_mngr = make_tab(L"f_text_mngr");
    f_pages->EnableAlign();
}

void Tvx_lr2d_edit::create_page(vx::lr2d_page_place const &place)
{
    auto const factory = std::ranges::find(f_parts.pages, place.page, &vx::lr2d_page_factory::page);
    if (factory == f_parts.pages.end())
        return;
    auto *page = factory->make(this);
    this->*page_fields()[static_cast<std::size_t>(place.page)] = page;
    auto *const sheet = tab(place.tab);
    // A page gets its place when it is first shown.
    sheet->DisableAlign();
    page->SetParent(sheet);
    page->create();
    page->SetAlign(alClient);
    page->SetVisible(false);
    sheet->EnableAlign();
    if (auto *panel = page->get_coordinate_panel()) {
        panel->SetParent(f_prop_ts);
        panel->SetAlign(alClient);
        panel->SetVisible(false);
    }
    if (place.reports)
        page->on_changed = make_closure<&Tvx_lr2d_edit::on_lr2d_changed>(this);
}

void Tvx_lr2d_edit::create_plugin_tabs()
{
    if (!f_plugins)
        return;
    f_plugin_tabs = std::make_unique<TComponentList>(true);
    for (unsigned i = 0; i < f_plugins->get_plugin_count(); ++i) {
        auto *plugin = f_plugins->get_plugin(i);
        // The list owns the sheet from the start, so that each instance that exists is ended with its sheet.
        auto *sheet = new Tvx_tab_sheet(nullptr);
        f_plugin_tabs->Add(sheet);
        sheet->SetCaption(plugin->get_caption());
        sheet->SetPageControl(f_pages);
        sheet->SetTag(reinterpret_cast<TTag>(plugin->create(nullptr, this)));
        // A plug-in that gave no instance keeps its empty tab: tabs and plug-ins go by the same numbers.
        if (void *instance = plugin_instance(static_cast<int>(i)))
            plugin->set_parent(instance, sheet->GetHandle());
    }
}

void *Tvx_lr2d_edit::plugin_instance(int index) const
{
    return reinterpret_cast<void *>(f_plugin_tabs->GetItems(index)->GetTag());
}

/// Marks the page set as being refreshed, if it lives on to the end of that.
class Tvx_lr2d_edit::refreshing_scope
{
public:
    explicit refreshing_scope(Tvx_lr2d_edit &owner)
        : f_owner(owner), f_life(owner.Life()), f_before(std::exchange(owner.f_refreshing, true))
    {
    }
    refreshing_scope(refreshing_scope const &) = delete;
    refreshing_scope &operator=(refreshing_scope const &) = delete;
    ~refreshing_scope()
    {
        if (!f_life.expired())
            f_owner.f_refreshing = f_before;
    }

private:
    Tvx_lr2d_edit &f_owner;
    std::weak_ptr<void const> f_life;
    bool f_before;
};

void Tvx_lr2d_edit::set_lr2d(Ivx_layer *layer)
{
    if (!f_pages)
        return;
    auto const life = Life();
    take_lr2d(layer);
    if (!life.expired())
        catch_up();
}

void Tvx_lr2d_edit::take_lr2d(Ivx_layer *layer)
{
    refreshing_scope const refreshing(*this);
    auto *const remembered = f_pages->GetActivePage();
    owned_layer clone(layer ? vx_lr2d_clone(layer) : nullptr);
    hand_to_extensions(clone.get());
    attach_plugins(clone.get());
    end_edit(false);
    // The channel of a layer goes with its layer, so the client leaves first. A channel that outlives its
    // layer is as well served by this order.
    unhook_update_channel();
    f_lr2d = std::move(clone);
    hook_update_channel();
    if (show_tabs())
        keep_active_tab(remembered);
}

void Tvx_lr2d_edit::update_controls()
{
    if (!f_pages)
        return;
    auto const life = Life();
    refresh();
    if (!life.expired())
        catch_up();
}

void Tvx_lr2d_edit::catch_up()
{
    if (f_refreshing || !f_update_missed)
        return;
    auto const life = Life();
    refresh();
    // What is posted during this one is the doing of the pages that are refreshed: it would not end.
    if (!life.expired())
        f_update_missed = false;
}

void Tvx_lr2d_edit::refresh()
{
    refreshing_scope const refreshing(*this);
    f_update_missed = false;
    auto *const remembered = f_pages->GetActivePage();
    hand_to_extensions(f_lr2d.get());
    if (show_tabs())
        keep_active_tab(remembered);
}

void Tvx_lr2d_edit::hand_to_extensions(Ivx_layer *layer)
{
    if (f_custom_pages)
        f_custom_pages->set_layer(layer);
}

void Tvx_lr2d_edit::attach_plugins(Ivx_layer *layer)
{
    if (!f_plugin_tabs)
        return;
    for (int i = 0; i < f_plugin_tabs->GetCount(); ++i) {
        static_cast<Tvx_tab_sheet *>(f_plugin_tabs->GetItems(i))->SetPageControl(f_pages);
        if (void *instance = plugin_instance(i))
            f_plugins->get_plugin(static_cast<unsigned>(i))->attach(instance, layer);
    }
}

void Tvx_lr2d_edit::hook_update_channel()
{
    f_update_channel = f_lr2d ? vx_lr_get_update_event_channel(f_lr2d.get()) : nullptr;
    if (f_update_channel)
        vx_event_channel_add_client(f_update_channel, &vx_lr2d_edit_event_channel_callback_proc, this);
}

void Tvx_lr2d_edit::unhook_update_channel()
{
    if (auto *channel = std::exchange(f_update_channel, nullptr))
        vx_event_channel_del_client(channel, &vx_lr2d_edit_event_channel_callback_proc, this);
}

void Tvx_lr2d_edit::vx_lr2d_edit_event_channel_callback_proc(Tvx_table *queue, void *self)
{
    if (vx_event_queue_count_update_events(queue) == 0)
        return;
    auto *page_set = static_cast<Tvx_lr2d_edit *>(self);
    // Pages that were refreshed already have not seen it: one more refresh follows.
    if (page_set->f_refreshing)
        page_set->f_update_missed = true;
    else
        page_set->update_controls();
}

void Tvx_lr2d_edit::update_tabs()
{
    static_cast<void>(show_tabs());
}

bool Tvx_lr2d_edit::show_tabs()
{
    if (!f_pages)
        return true;
    if (!f_lr2d) {
        clear_tabs();
        return true;
    }
    auto const life = Life();
    auto const *const layer = f_lr2d.get();
    auto const &row = vx::lr2d_page_row_find(vx_lr2d_get_lr_type(f_lr2d.get()));
    for (auto const page : vx::c_lr2d_page_update_order) {
        update_page(page, row);
        // A page that reads for a while lets the user close the editor, and the host show another layer in
        // it.
        if (life.expired() || f_lr2d.get() != layer)
            return false;
        if (page == vx::lr2d_page::dtld) {
            f_text_mngr->SetTabVisible(row.text_mngr_tab);
            f_text_ts->SetTabVisible(false);
            update_prop_tab(row);
        }
    }
    update_style_tab(row);
    return true;
}

void Tvx_lr2d_edit::clear_tabs()
{
    f_prop_ts->SetTabVisible(false);
    f_text_ts->SetTabVisible(false);
    f_text_mngr->SetTabVisible(false);
    for (auto const place : vx::c_lr2d_page_update_order) {
        auto *page = get_page(place);
        if (!page)
            continue;
        show_coordinate_panel(*page, false);
        clear_page(*page);
    }
}

void Tvx_lr2d_edit::update_prop_tab(vx::lr2d_page_row const &row)
{
    if (row.prop_tab == vx::lr2d_prop_tab::slice)
        f_prop_ts->SetCaption(f_slice_prop_caption);
    if (row.prop_tab == vx::lr2d_prop_tab::two_coordinates)
        f_prop_ts->SetCaption(f_2crd_prop_caption);
    f_prop_ts->SetTabVisible(row.prop_tab != vx::lr2d_prop_tab::hidden);
}

void Tvx_lr2d_edit::update_page(vx::lr2d_page place, vx::lr2d_page_row const &row)
{
    auto *page = get_page(place);
    if (!page)
        return;
    bool const shown = row.pages.has(place);
    show_coordinate_panel(*page, shown);
    if (!shown) {
        clear_page(*page);
        return;
    }
    page->SetVisible(true);
    page->set_lr2d(place == vx::lr2d_page::dtld ? text_layer(row.text_layer) : f_lr2d.get());
    page->update_controls();
}

Ivx_layer *Tvx_lr2d_edit::text_layer(vx::lr2d_text_layer source) const
{
    switch (source) {
    case vx::lr2d_text_layer::shape:
        return vx_shp_lr2d_get_text_layer_ptr(f_lr2d.get());
    case vx::lr2d_text_layer::two_coordinates:
        return vx_tos_2crd_lr2d_get_text_layer_ptr(f_lr2d.get());
    case vx::lr2d_text_layer::none:
        break;
    }
    return nullptr;
}

void Tvx_lr2d_edit::update_style_tab(vx::lr2d_page_row const &row)
{
    bool const has_plugin =
        vx_lr2d_get_plugin_interface(f_lr2d.get()) || vx_layout_lr2d_get_plugin_interface(f_lr2d.get());
    bool const shown = vx::lr2d_style_tab_shown(row, f_show_style_tab, has_plugin);
    f_style_ts->SetTabVisible(shown);
    // Of the sheets that have a tab only the active one is visible, and the page control sees to that.
    if (!shown)
        f_style_ts->SetVisible(false);
}

void Tvx_lr2d_edit::keep_active_tab(TTabSheet *remembered)
{
    auto *const active = f_pages->GetActivePage();
    if (active == remembered && (!active || active->GetTabVisible()))
        return;
    for (int i = 0; i < f_pages->GetPageCount(); ++i) {
        if (!f_pages->GetPages(i)->GetTabVisible())
            continue;
        f_pages->SetActivePage(f_pages->GetPages(i));
        return;
    }
}

void Tvx_lr2d_edit::save_current_scl()
{
    if (!f_lr2d)
        return;
    end_edit(true);
    auto const &row = vx::lr2d_page_row_find(vx_lr2d_get_lr_type(f_lr2d.get()));
    for (auto const place : {vx::lr2d_page::tos_grid, vx::lr2d_page::rtr}) {
        auto *page = get_page(place);
        if (page && row.pages.has(place))
            page->save_current_scl();
    }
}

/// While a page that has a layer has it still.
void Tvx_lr2d_edit::end_edit(bool taken)
{
    for (auto const field : page_fields())
        if (auto *page = this->*field; page && page->get_lr2d())
            page->end_edit(taken);
    if (f_custom_pages)
        f_custom_pages->end_edit(taken);
}

void Tvx_lr2d_edit::call_changed()
{
    on_changed(this);
}

void Tvx_lr2d_edit::on_lr2d_changed(TObject * /*sender*/)
{
    vx::flag_scope const notify(f_notify_host, f_tos_grid_edit && f_tos_grid_edit->get_notify_host());
    call_changed();
}

Tvx_basic_lr2d_edit *Tvx_lr2d_edit::get_page(vx::lr2d_page page) const
{
    return this->*page_fields()[static_cast<std::size_t>(page)];
}

Tvx_tab_sheet *Tvx_lr2d_edit::tab(vx::lr2d_tab place) const
{
    switch (place) {
    case vx::lr2d_tab::prop:
        return f_prop_ts;
    case vx::lr2d_tab::style:
        return f_style_ts;
    case vx::lr2d_tab::text:
        return f_text_ts;
    case vx::lr2d_tab::text_mngr:
        break;
    }
    return f_text_mngr;
}

std::array<Tvx_lr2d_edit::page_field, vx::c_lr2d_page_count> const &Tvx_lr2d_edit::page_fields()
{
    // In the order of vx::lr2d_page.
    static constexpr std::array<page_field, vx::c_lr2d_page_count> fields = {
        &Tvx_lr2d_edit::f_rtr_edit,          &Tvx_lr2d_edit::f_shp_pnt_edit,
        &Tvx_lr2d_edit::f_shp_pln_edit,      &Tvx_lr2d_edit::f_shp_pgn_edit,
        &Tvx_lr2d_edit::f_tos_grid_edit,     &Tvx_lr2d_edit::f_tos_slice_edit,
        &Tvx_lr2d_edit::f_tos_2crd_edit,     &Tvx_lr2d_edit::f_tld_edit,
        &Tvx_lr2d_edit::f_dtld_edit,         &Tvx_lr2d_edit::f_txt_pnt_edit,
        &Tvx_lr2d_edit::f_txt_pln_edit,      &Tvx_lr2d_edit::f_txt_pgn_edit,
        &Tvx_lr2d_edit::f_txt_tos_2crd_edit,
    };
    return fields;
}
