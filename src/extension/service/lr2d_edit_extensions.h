#pragma once

#include "extension/binding/layer_2d_editor_extension_service.h"
#include "extension/binding/layer_2d_editor_extension_service_visitor.h"
#include "extension/binding/polymorphic.h"
#include "extension/binding/ref.h"
#include "extension/binding/service_visitor.h"
#include "layer_edit/page_api/lr2d_extensions.h"

#include "platform/base/export.h"

#include <map>
#include <memory>
#include <vector>

class TComponent;
class TPageControl;
class TTabSheet;

/// Tabs of a layer page set that services of other modules add.
class VX_API Tvx_lr2d_edit_extensions
{
public:
    class custom_pages;

    /// What the library's page sets are put together from.
    [[nodiscard]] static std::unique_ptr<Tvx_lr2d_custom_pages> make(TPageControl *pages,
                                                                     wchar_t const *category);
};

/// Asks the services of a category, by ascending priority, for what they want to show, and makes a tab of
/// each offer. No tab comes later; the tab of an editor shows and hides itself by what its model has.
///
/// A service that ends early is not asked any more, and its tabs go. So do those of a service that throws,
/// which is told to the user.
class VX_API Tvx_lr2d_edit_extensions::custom_pages
    : public vx::polymorphic<vx::service_visitor_impl>,
      public vx::polymorphic<vx::layer_2d_editor_extension_service_visitor_impl>,
      public Tvx_lr2d_custom_pages
{
public:
    /// `pages` outlives the object.
    custom_pages(TPageControl *pages, wchar_t const *category);
    ~custom_pages() override;
    custom_pages(custom_pages const &) = delete;
    custom_pages &operator=(custom_pages const &) = delete;

    /// Holds the service. Of equal priorities the first that came is asked first.
    void visit(vx::layer_2d_editor_extension_service service) override;
    /// Asks the services for their offers.
    virtual void create();

    void set_layer(Ivx_layer *layer) override;
    void end_edit(bool taken) override;

private:
    using service_ref = vx::ref<vx::layer_2d_editor_extension_service, false,
                                vx::reftraits<vx::layer_2d_editor_extension_service>>;
    /// Knows of the tabs of its service, which end with it.
    class held_service;

    /// Base of the visitors that a service is offered.
    template <class Visitor>
    class visitor_of : public Visitor
    {
    public:
        visitor_of(custom_pages &pages_of_set, held_service &asked) : pages(pages_of_set), service(asked) {}

    protected:
        ~visitor_of() = default;
        custom_pages &pages;
        held_service &service;
    };

    template <class Call>
    void guarded(held_service &service, Call call);
    template <class Fill>
    void add_sheet(held_service &service, wchar_t const *name, Fill fill);
    template <class View, class Editor>
    void add_view(held_service &service, wchar_t const *name, int &count, Editor editor);
    void ask(held_service &service);
    [[nodiscard]] std::vector<TTabSheet *> living_sheets(held_service const &service) const;
    void leave_sheets(held_service const &service, bool is_dead);

    TPageControl *f_pages;
    TComponent *f_owner; ///< owns the sheets
    std::multimap<int, std::unique_ptr<held_service>> f_services;
    bool f_ends = false;
};
