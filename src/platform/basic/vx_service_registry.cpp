#include "platform/basic/vx_service_registry.h"

#include "extension/binding/service_factory.h"

#include "platform/basic/vx_bundle.h"

#include <algorithm>
#include <map>
#include <string>
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
        vxk_framework_service_factory_with_services(factory, vx_bundle_context_interface_null(), visitor);
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
