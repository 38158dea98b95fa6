#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"

// Reference and service core: families that are known by name only, with slot 0 and no more.

VX_BINDING_BARE_PASSED(bundle, 1)
VX_BINDING_BARE(bundle_context, 1)
VX_BINDING_BARE_PASSED(identity, 0)
VX_BINDING_BARE(localizer, 1)
VX_BINDING_BARE(localizer_client, 0)
VX_BINDING_BARE(localizer_service, 1)
VX_BINDING_BARE(localizer_service_visitor, 1)
VX_BINDING_BARE(localizer_visitor, 1)
VX_BINDING_BARE(proxy_target_service, 1)
VX_BINDING_BARE(proxy_target_service_visitor, 1)
VX_BINDING_BARE(service_registry_visitor, 0)
