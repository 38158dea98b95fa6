#include "peer.h"

#include "extension/binding/polymorphic.h"
#include "extension/binding/ref.h"
#include "extension/binding/referent_object.h"

#include <cwchar>
#include <memory>

namespace {
class peer_object final : public vx::polymorphic<vx::monitor_impl, vx::dict_impl>
{
public:
    bool has_stopped() override { return true; }
    void with_keys(vx::string_visitor visitor) override
    {
        visitor.visit(L"one");
        visitor.visit(L"two");
    }
    bool get_value(wchar_t const *key, vx::string_visitor visitor) override
    {
        if (std::wcscmp(key, L"one") != 0)
            return false;
        visitor.visit(L"1");
        return true;
    }
};

peer_object g_object;

class measure final : public vx::dict_item_visitor_impl
{
public:
    int length = 0;
    void visit(wchar_t const *key, wchar_t const *value) override
    {
        length += static_cast<int>(std::wcslen(key) + std::wcslen(value));
    }
};
class peer_service final : public vx::layer_2d_editor_extension_service_impl, public vx::referent_object
{
public:
    vx::referent as_referent() override { return static_cast<vx::referent_object &>(*this); }
    int priority() override { return 7; }
};

std::unique_ptr<peer_service> g_service;

vx::ref<vx::layer_2d_editor_extension_service, false, vx::reftraits<vx::layer_2d_editor_extension_service>>
    g_held;
} // namespace

extern "C" t_vx_layer_2d_editor_extension_service_interface peer_make_service()
{
    g_service = std::make_unique<peer_service>();
    return static_cast<vx::layer_2d_editor_extension_service_impl &>(*g_service);
}

extern "C" void peer_end_service()
{
    g_service.reset();
}

extern "C" void peer_hold(t_vx_layer_2d_editor_extension_service_interface service)
{
    g_held.hold(service);
}

extern "C" int peer_held_priority()
{
    return g_held->priority();
}

extern "C" bool peer_is_own_holder(t_vx_referrer_interface holder)
{
    return vx::referrer_impl::from_interface(holder) == &g_held;
}

extern "C" t_vx_interface peer_object_handle()
{
    return vx_dict_interface_generalize(g_object);
}

extern "C" int peer_consume(t_vx_interface general)
{
    vx::dict const values = vx_dict_interface_specialize(general);
    if (!values)
        return -1;
    measure all;
    values.with_items(all);
    return all.length;
}

extern "C" bool peer_report(t_vx_interface general, double done)
{
    // As code in the field does: no test of the handle, a mismatch is simply nobody there.
    vx::monitor const monitor = vx_monitor_interface_specialize(general);
    monitor.report(done);
    monitor.message(L"text");
    return !vx_monitor_interface_is_null(monitor) && monitor.has_stopped();
}

extern "C" bool peer_is_own(t_vx_dict_interface handle)
{
    return vx::dict_impl::from_interface(handle) != nullptr;
}

extern "C" void const *peer_table()
{
    return vx::dict_impl::family_table();
}
