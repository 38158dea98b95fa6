#include "extension/binding/service_factory.h"

#include "platform/basic/vx_bundle.h"

#include <csignal>
#include <stdexcept>

/// A bundle with a factory, or one that fails on the way to its entry.
namespace {
class empty_factory final : public vx::service_factory_impl
{
};

#ifdef THROWING_START
bool const g_started = [] {
    throw std::runtime_error("no licence");
    return true;
}();
#endif
#ifdef FAULTING_START
int const g_started = std::raise(SIGSEGV);
#endif
} // namespace

#ifdef WITHOUT_LIBRARY
extern "C" int vx_test_absent();
#endif

VX_C_API bool vxk_bundle_entry(Tvx_bundle_context const *context)
{
#ifdef WITHOUT_LIBRARY
    if (vx_test_absent() == 0)
        return false;
#endif
#ifdef CATEGORY
    static empty_factory factory;
    return context->add_service_factory(context->host, L"test/bundle", factory);
#else
    static empty_factory factory;
    return context->version == c_vx_bundle_version && vx_service_factory_interface_is_null(factory) == 0;
#endif
}
