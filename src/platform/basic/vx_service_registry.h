#pragma once

#include "platform/base/export.h"

struct t_vx_service_category_visitor_interface;
struct t_vx_service_factory_interface;
struct t_vx_service_registry_interface;
struct t_vx_service_visitor_interface;

/// Services by category. The registry knows factories only; what a service is stays between the factory and
/// the visitor. Main thread only.
///
/// A factory gets a bundle context with the visitor: an object from which the registry can be reached by
/// `specialize`, so that a service may use those of other bundles without linking the engine.

/// Hands the visitor to each factory of the category, in the order of their registration, before it returns.
/// Loads the bundles on first use. Factories may come and go during the visit: one that goes is not called
/// any more, one that comes waits for the next visit. A null category or visitor: nothing.
VX_API void vx_service_registry_with_services(wchar_t const *category,
                                              t_vx_service_visitor_interface visitor);

/// False for a null handle or category, and for a factory that the category already has. The factory stays
/// its owner's, who removes it before it goes.
VX_API bool vx_service_registry_add_factory(wchar_t const *category, t_vx_service_factory_interface factory);
VX_API void vx_service_registry_remove_factory(wchar_t const *category,
                                               t_vx_service_factory_interface factory);
[[nodiscard]] VX_API int vx_service_registry_get_factory_count(wchar_t const *category);
/// The registry as an object, for modules that know it by its interface. Lives as long as the process.
VX_API void vx_service_registry_get(t_vx_service_registry_interface *result);
/// Visits the categories that have a factory, in the order of their texts. Loads the bundles on first use.
VX_API void vx_service_registry_with_categories(t_vx_service_category_visitor_interface visitor);

/// For a `catch` block round a call of a service or of what it offered: tells the user, once, when the main
/// thread comes to it, that the extension failed. `table` is the table of the object's handle and tells which
/// module that is. The caller asks the service no more.
VX_API void vx_service_failed(void const *table) noexcept;
