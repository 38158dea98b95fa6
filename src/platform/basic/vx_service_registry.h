#pragma once

#include "platform/base/export.h"

struct t_vx_service_visitor_interface;
struct t_vx_service_factory_interface;

/// Services by category. The registry knows factories only; what a service is stays between the factory and
/// the visitor. Main thread only.

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
