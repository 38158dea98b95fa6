#include "extension/plugin/plugin_lr_edit.h"

#include <memory>
#include <utility>
#include <vector>

namespace {
constexpr int c_field_text = 2;
constexpr int c_field_number = 4;
/// The last element of the data, by which plug-ins know its form.
constexpr int c_data_form = 2;
} // namespace

Tvx_plugin_lr_edit::Tvx_plugin_lr_edit(TComponent *owner) : Tvx_panel(owner)
{
}

Tvx_plugin_lr_edit::~Tvx_plugin_lr_edit()
{
    // The plug-ins go while what they were given is still there.
    delete f_pages;
}

void Tvx_plugin_lr_edit::load_res()
{
    if (f_pages) {
        for (int i = 0; i < f_pages->GetPageCount(); ++i)
            if (auto *const page = sheet(i))
                page->SetCaption(page->get_plugin()->get_caption());
        return;
    }
    f_pages = new TPageControl(this);
    f_pages->SetParent(this);
    f_pages->SetAlign(alClient);
    auto const &modules = vx_get_style_edit_plugin_module_set();
    for (unsigned i = 0; i < modules.get_plugin_count(); ++i) {
        auto *const page = new Tvx_plugin_lr_tabsheet(f_pages, modules.get_plugin(i));
        page->SetPageControl(f_pages);
        page->SetTabVisible(false);
        page->on_commit = make_closure<&Tvx_plugin_lr_edit::on_sheet_commit>(this);
        page->on_focus = make_closure<&Tvx_plugin_lr_edit::on_sheet_focus>(this);
    }
    set_stl_mgr(f_stl_mgr);
}

void Tvx_plugin_lr_edit::set_stl_mgr(void *manager)
{
    f_stl_mgr = manager;
    if (!manager || !f_pages)
        return;
    for (int i = 0; i < f_pages->GetPageCount(); ++i) {
        auto *const page = sheet(i);
        if (!page)
            continue;
        bool const supported = page->supports(manager);
        page->SetTabVisible(supported);
        if (!supported)
            continue;
        page->attach(manager, &plugin_style_editor_get_data, this);
        page->update_controls();
    }
    for (int i = 0; !f_pages->GetActivePage() && i < f_pages->GetPageCount(); ++i)
        if (f_pages->GetPages(i)->GetTabVisible())
            f_pages->SetActivePage(f_pages->GetPages(i));
}

void Tvx_plugin_lr_edit::update_controls()
{
    for (int i = 0; f_pages && i < f_pages->GetPageCount(); ++i)
        if (auto *const page = sheet(i))
            page->update_controls();
    set_stl_mgr(f_stl_mgr);
}

bool Tvx_plugin_lr_edit::has_tabs() const
{
    for (int i = 0; f_pages && i < f_pages->GetPageCount(); ++i)
        if (f_pages->GetPages(i)->GetTabVisible())
            return true;
    return false;
}

Tvx_plugin_lr_tabsheet *Tvx_plugin_lr_edit::sheet(int index) const
{
    return dynamic_cast<Tvx_plugin_lr_tabsheet *>(f_pages->GetPages(index));
}

void Tvx_plugin_lr_edit::on_sheet_commit(TObject * /*sender*/)
{
    on_commit(this);
}

void Tvx_plugin_lr_edit::on_sheet_focus(TObject *sender)
{
    auto *const page = static_cast<TTabSheet *>(sender);
    if (page->GetTabVisible())
        f_pages->SetActivePage(page);
}

// ---- the data

namespace {
/// Asks for a table. Windows are worked while a long one is read, so the panel may end meanwhile: the events
/// are a copy, and nothing of the panel's is touched before it is known to live.
class table_reading
{
public:
    table_reading(Tvx_plugin_lr_edit &panel, Tvx_attrib_any_data &data)
        : f_panel(&panel), f_life(panel.Life()), f_events(panel.get_data_events()), f_data(data)
    {
    }

    void run()
    {
        if (!f_events.open(f_panel))
            return;
        bool whole = false;
        try {
            whole = fill_fields() && fill_records();
        } catch (...) { // no exception may pass through the plug-in, which may be written in C
        }
        if (whole)
            any_assign_integer(tuple_get(&f_data, 2), c_data_form);
        else
            tuple_resize(&f_data, 0);
        if (is_alive())
            f_events.close(f_panel);
    }

    [[nodiscard]] bool is_alive() const { return !f_life.expired(); }

private:
    /// The rows of a new table in an element of the data.
    Tvx_any *make_table(unsigned element, unsigned count)
    {
        Tvx_any_table table;
        table_init(&table);
        table_resize(&table, count);
        any_assign_table(tuple_get(&f_data, element), &table);
        return any_get_table(tuple_get(&f_data, element))->rows;
    }

    bool fill_fields()
    {
        auto const count = f_events.get_np(f_panel);
        tuple_resize(&f_data, 3);
        auto *const rows = make_table(0, count);
        for (unsigned i = 0; i < count; ++i) {
            bool usable = false;
            bool numeric = false;
            auto const *name = f_events.get_prop(f_panel, i, usable, numeric);
            f_numeric.push_back(numeric);
            tuple_resize(&rows[i], 2);
            any_assign_string(tuple_get(&rows[i], 0), name);
            any_assign_integer(tuple_get(&rows[i], 1), numeric ? c_field_number : c_field_text);
        }
        return true;
    }

    /// False when the user has stopped the reading: there are no records any more then.
    bool fill_records()
    {
        auto const field_count = static_cast<unsigned>(f_numeric.size());
        auto const count = field_count > 0 ? f_events.get_no(f_panel) : 0;
        auto *const rows = make_table(1, count);
        for (unsigned r = 0; r < count; ++r)
            tuple_resize(&rows[r], field_count);
        for (unsigned i = 0; i < field_count; ++i) {
            bool asks = true;
            for (unsigned r = 0; r < count; ++r) {
                auto *const cell = tuple_get(&rows[r], i);
                bool ok = false;
                if (f_numeric[i])
                    any_assign_floating(cell, f_events.get_val(f_panel, i, r, ok));
                else
                    any_assign_string(cell, f_events.get_str(f_panel, i, r, ok));
                if (!ok) {
                    any_clear(cell);
                    // Asked once for a run of cells without a value.
                    if (asks && (!is_alive() || f_events.get_no(f_panel) != count))
                        return false;
                }
                asks = ok;
            }
        }
        return true;
    }

    Tvx_plugin_lr_edit *f_panel;
    std::weak_ptr<void const> f_life;
    Tvx_data_events f_events;
    Tvx_attrib_any_data &f_data;
    std::vector<bool> f_numeric;
};
} // namespace

Tvx_attrib_any_data &plugin_style_editor_get_data(void *panel)
{
    static auto &none = *attrib_any_data_create();
    auto *const self = static_cast<Tvx_plugin_lr_edit *>(panel);
    if (!self)
        return none;
    vx::owned<Tvx_attrib_any_data, &attrib_any_data_destroy> data(attrib_any_data_create());
    table_reading reading(*self, *data);
    try {
        reading.run();
    } catch (...) {
        tuple_resize(data.get(), 0);
    }
    if (!reading.is_alive())
        return none;
    self->f_data = std::move(data);
    return *self->f_data;
}
