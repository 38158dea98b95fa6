#include "platform/basic/vx_service_registry.h"

#include "captions/engine.h"
#include "captions/extensions.h"
#include "extension/binding/core_families.h"
#include "extension/binding/polymorphic.h"
#include "extension/binding/service_category_visitor.h"
#include "extension/binding/service_factory.h"
#include "extension/binding/service_registry.h"

#include "platform/base/text_codec.h"
#include "platform/basic/detail/guest_failure.h"
#include "platform/basic/vx_bundle.h"
#include "platform/basic/vx_fault.h"

#include <algorithm>
#include <dlfcn.h>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace {
struct registered_factory
{
    t_vx_service_factory_interface factory;
    unsigned long serial; ///< grows with each factory: a visit leaves out those that came after its start
};

struct registry
{
    std::map<std::wstring, std::vector<registered_factory>, std::less<>> categories;
    unsigned long next_serial = 0;
};

registry &all()
{
    static auto &r = *new registry; // never destroyed: modules leave it as late as they like
    return r;
}

std::vector<registered_factory> *find_category(wchar_t const *category)
{
    auto const at = all().categories.find(std::wstring_view(category));
    return at == all().categories.end() ? nullptr : &at->second;
}

auto same_as(t_vx_service_factory_interface factory)
{
    return [factory](registered_factory const &f) {
        return vx_service_factory_interface_compare(f.factory, factory) == 0;
    };
}

/// What factories get: one object for all bundles.
class registry_object final : public vx::polymorphic<vx::bundle_context_impl, vx::service_registry_impl>
{
public:
    void with_services(wchar_t const *category, vx::service_visitor visitor) override
    {
        vx_service_registry_with_services(category, visitor);
    }
};

registry_object &object()
{
    static auto &o = *new registry_object;
    return o;
}

/// The file of the module that a table lies in.
std::wstring module_file(void const *table)
{
    Dl_info found{};
    if (!table || dladdr(table, &found) == 0 || !found.dli_fname)
        return {};
    auto const file = vx::text::utf8_to_wide(found.dli_fname);
    return file.substr(file.rfind(L'/') + 1);
}
} // namespace

void vx_service_registry_with_services(wchar_t const *category, t_vx_service_visitor_interface visitor)
{
    if (!category || vx_service_visitor_interface_is_null(visitor))
        return;
    vx_bundles_load();
    auto const end = all().next_serial;
    unsigned long done = 0;
    // Looked up anew at each step, since a visited service may add and remove factories.
    for (;;) {
        auto *const factories = find_category(category);
        if (!factories)
            return;
        auto const next =
            std::find_if(factories->begin(), factories->end(),
                         [&](registered_factory const &f) { return f.serial >= done && f.serial < end; });
        if (next == factories->end())
            return;
        done = next->serial + 1;
        auto const factory = next->factory;
        try {
            vxk_framework_service_factory_with_services(
                factory, static_cast<vx::bundle_context_impl &>(object()), visitor);
        } catch (...) {
            vx_service_registry_remove_factory(category, factory);
            vx_service_failed(factory.table);
        }
    }
}

bool vx_service_registry_add_factory(wchar_t const *category, t_vx_service_factory_interface factory)
{
    if (!category || vx_service_factory_interface_is_null(factory))
        return false;
    auto &factories = all().categories[category];
    if (std::any_of(factories.begin(), factories.end(), same_as(factory)))
        return false;
    factories.push_back({factory, all().next_serial++});
    return true;
}

void vx_service_registry_remove_factory(wchar_t const *category, t_vx_service_factory_interface factory)
{
    if (auto *const factories = category ? find_category(category) : nullptr)
        std::erase_if(*factories, same_as(factory));
}

int vx_service_registry_get_factory_count(wchar_t const *category)
{
    auto const *const factories = category ? find_category(category) : nullptr;
    return factories ? static_cast<int>(factories->size()) : 0;
}

void vx_service_registry_get(t_vx_service_registry_interface *result)
{
    if (result)
        *result = static_cast<vx::service_registry_impl &>(object());
}

void vx_service_registry_with_categories(t_vx_service_category_visitor_interface visitor)
{
    vx_bundles_load();
    std::vector<std::wstring> names; // the visitor may add and remove factories
    for (auto const &[category, factories] : all().categories)
        if (!factories.empty())
            names.push_back(category);
    for (auto const &name : names)
        vxk_framework_service_category_visitor_visit(visitor, name.c_str());
}

void vx_service_failed(void const *table) noexcept
{
    try {
        auto const thrown = vx_guest_current_failure();
        int const code = thrown.is_memory ? static_cast<int>(c_capt_event_no_memory)
                                          : static_cast<int>(c_ext_service_failed);
        vx_guest_tell_later(vx_fault_reason({code, module_file(table), 0, thrown.details}));
    } catch (...) { // no memory to tell of it
    }
}
