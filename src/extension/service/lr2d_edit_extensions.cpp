#include "extension/service/lr2d_edit_extensions.h"

#include "extension/binding/docker_visitor.h"
#include "extension/binding/dtld_editor_visitor.h"
#include "extension/binding/style_editor_visitor.h"
#include "extension/binding/style_list_editor_visitor.h"
#include "extension/binding/text_settings_editor_visitor.h"
#include "extension/service/dtld_editor_view.h"
#include "extension/service/style_editor_view.h"
#include "extension/service/text_settings_editor_view.h"
#include "layer_edit/page_api/basic_lr2d_edit.h"

#include "platform/basic/vx_service_registry.h"
#include "platform/dialogs/vx_dock_panels.h"
#include "platform/toolkit/controls/page_control.h"

#include <algorithm>
#include <new>
#include <utility>

namespace {
Tvx_editor_view *view_of(TTabSheet *sheet)
{
    for (int i = 0; i < sheet->GetComponentCount(); ++i)
        if (auto *const view = dynamic_cast<Tvx_editor_view *>(sheet->GetComponents(i)))
            return view;
    return nullptr;
}

/// Of editors, and of pages that a module shows for its docker.
void end_edit_on(TTabSheet *sheet, bool taken)
{
    if (auto *const view = view_of(sheet))
        view->end_edit(taken);
    for (int i = 0; i < sheet->GetControlCount(); ++i)
        if (auto *const page = dynamic_cast<Tvx_basic_lr2d_edit *>(sheet->GetControls(i)))
            page->end_edit(taken);
}
} // namespace

/// A service and its tabs. Its end is told here first.
class Tvx_lr2d_edit_extensions::custom_pages::held_service final : public service_ref
{
public:
    held_service(custom_pages &pages, vx::layer_2d_editor_extension_service service)
        : service_ref(service), f_pages(pages)
    {
    }

    void invalidate(vx::referent object) override
    {
        service_ref::invalidate(object);
        f_pages.leave_sheets(*this, true);
    }

    /// Those that were made; one that has ended since is not among the components of its owner.
    std::vector<TComponent *> sheets;

private:
    custom_pages &f_pages;
};

std::unique_ptr<Tvx_lr2d_custom_pages> Tvx_lr2d_edit_extensions::make(TPageControl *pages,
                                                                      wchar_t const *category)
{
    return std::make_unique<custom_pages>(pages, category);
}

Tvx_lr2d_edit_extensions::custom_pages::custom_pages(TPageControl *pages, wchar_t const *category)
    : f_pages(pages), f_owner(new TComponent(nullptr))
{
    vx_service_registry_with_services(category, static_cast<vx::service_visitor_impl &>(*this));
    create();
}

Tvx_lr2d_edit_extensions::custom_pages::~custom_pages()
{
    // While the sheets end, their models may call back and services may end.
    f_ends = true;
    delete f_owner;
    f_owner = nullptr;
    f_services.clear();
}

void Tvx_lr2d_edit_extensions::custom_pages::visit(vx::layer_2d_editor_extension_service service)
{
    if (!f_ends)
        f_services.emplace(service.priority(), std::make_unique<held_service>(*this, service));
}

/// Runs what calls a service, which is dropped when it throws.
template <class Call>
void Tvx_lr2d_edit_extensions::custom_pages::guarded(held_service &service, Call call)
{
    if (service.is_null())
        return;
    void const *const table = service.get().handle().table;
    try {
        call();
    } catch (std::bad_alloc const &) {
        throw;
    } catch (...) {
        vx_service_failed(table);
        leave_sheets(service, false);
        service.assign({});
    }
}

void Tvx_lr2d_edit_extensions::custom_pages::create()
{
    for (auto const &[priority, service] : f_services)
        guarded(*service, [&] { ask(*service); });
}

template <class Fill>
void Tvx_lr2d_edit_extensions::custom_pages::add_sheet(held_service &service, wchar_t const *name, Fill fill)
{
    // A visitor that was kept beyond its call, or a service that has ended in the middle of it.
    if (f_ends || service.is_null())
        return;
    auto *const sheet = new TTabSheet(f_owner);
    service.sheets.push_back(sheet);
    try {
        sheet->SetName(name ? name : L"");
        sheet->SetPageControl(f_pages);
        sheet->SetParent(f_pages);
        fill(sheet);
    } catch (...) {
        delete sheet;
        throw;
    }
    // It ended while its model was asked.
    if (service.is_null())
        leave_sheets(service, true);
}

/// Sheets of editors are numbered through all page sets of the process.
template <class View, class Editor>
void Tvx_lr2d_edit_extensions::custom_pages::add_view(held_service &service, wchar_t const *name, int &count,
                                                      Editor editor)
{
    auto const numbered = name + std::to_wstring(count++);
    add_sheet(service, numbered.c_str(), [&](TTabSheet *sheet) { new View(sheet, editor); });
}

void Tvx_lr2d_edit_extensions::custom_pages::ask(held_service &service)
{
    static int style_editors = 0;
    static int style_list_editors = 0;
    static int dtld_editors = 0;
    static int text_settings_editors = 0;

    class style_editor_visitor final : public visitor_of<vx::style_editor_visitor_impl>
    {
    public:
        using visitor_of::visitor_of;
        void visit(vx::style_editor editor) override
        {
            pages.add_view<Tvx_style_editor_view>(service, L"_StyleEditor_", style_editors, editor);
        }
    };
    class style_list_editor_visitor final : public visitor_of<vx::style_list_editor_visitor_impl>
    {
    public:
        using visitor_of::visitor_of;
        void visit(vx::style_list_editor editor) override
        {
            pages.add_view<Tvx_style_list_editor_view>(service, L"_StyleListEditor_", style_list_editors,
                                                       editor);
        }
    };
    class dtld_editor_visitor final : public visitor_of<vx::dtld_editor_visitor_impl>
    {
    public:
        using visitor_of::visitor_of;
        void visit(vx::dtld_editor editor) override
        {
            pages.add_view<Tvx_dtld_editor_view>(service, L"_DTLDEditor_", dtld_editors, editor);
        }
    };
    class text_settings_editor_visitor final : public visitor_of<vx::text_settings_editor_visitor_impl>
    {
    public:
        using visitor_of::visitor_of;
        void visit(vx::text_settings_editor editor) override
        {
            pages.add_view<Tvx_text_settings_editor_view>(service, L"_TextSettingsEditor_",
                                                          text_settings_editors, editor);
        }
    };
    class docker_visitor final : public visitor_of<vx::docker_visitor_impl>
    {
    public:
        using visitor_of::visitor_of;
        void visit(wchar_t const *name, vx::docker docker) override
        {
            pages.add_sheet(service, name,
                            [&](TTabSheet *sheet) { vx_dock_panels_tabsheet_visit_docker(sheet, docker); });
        }
    };

    style_editor_visitor style_editor(*this, service);
    service->with_style_editor(style_editor);
    style_list_editor_visitor style_list_editor(*this, service);
    service->with_style_list_editor(style_list_editor);
    dtld_editor_visitor dtld_editor(*this, service);
    service->with_dtld_editor(dtld_editor);
    text_settings_editor_visitor text_settings_editor(*this, service);
    service->with_text_settings_editor(text_settings_editor);
    docker_visitor docker(*this, service);
    service->with_docker(docker);
}

void Tvx_lr2d_edit_extensions::custom_pages::set_layer(Ivx_layer *layer)
{
    for (auto const &[priority, service] : f_services)
        guarded(*service, [&] { (*service)->set_layer(layer); });
}

void Tvx_lr2d_edit_extensions::custom_pages::end_edit(bool taken)
{
    for (auto const &[priority, service] : f_services)
        guarded(*service, [&] {
            for (auto *const sheet : living_sheets(*service))
                end_edit_on(sheet, taken);
        });
}

std::vector<TTabSheet *>
Tvx_lr2d_edit_extensions::custom_pages::living_sheets(held_service const &service) const
{
    std::vector<TTabSheet *> result;
    for (int i = 0; f_owner && i < f_owner->GetComponentCount(); ++i)
        if (std::ranges::find(service.sheets, f_owner->GetComponents(i)) != service.sheets.end())
            result.push_back(static_cast<TTabSheet *>(f_owner->GetComponents(i)));
    return result;
}

void Tvx_lr2d_edit_extensions::custom_pages::leave_sheets(held_service const &service, bool is_dead)
{
    for (auto *const sheet : living_sheets(service)) {
        if (auto *const view = view_of(sheet))
            view->leave_model(is_dead);
        vx_dock_panels_tabsheet_leave_docker(sheet, is_dead);
    }
}
