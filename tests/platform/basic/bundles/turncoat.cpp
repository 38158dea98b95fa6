#include "extension/binding/data_source.h"

#include "platform/basic/vx_bundle.h"

#include <cstdlib>
#include <stdexcept>

/// Registers a driver and then does not want to, or throws when the environment says so.
namespace {
void open(void *, wchar_t const *, bool, t_vx_data_source_interface *, Ivx_string_adp *)
{
}

Tvx_datasource_driver const driver = {"turncoat", 2000, nullptr, nullptr, &open, nullptr};
} // namespace

VX_C_API bool vxk_bundle_entry(Tvx_bundle_context const *context)
{
    if (!context->add_driver(context->host, &driver))
        return true;
    if (std::getenv("VX_TEST_BUNDLE_THROWS"))
        throw std::runtime_error("no licence");
    return false;
}
