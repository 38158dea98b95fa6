#include "extension/binding/docker.h"
#include "extension/binding/docker_visitor.h"
#include "extension/binding/layer_2d_editor_extension_service.h"
#include "extension/binding/layer_2d_editor_extension_service_visitor.h"
#include "extension/binding/polymorphic.h"
#include "extension/binding/service_factory.h"
#include "extension/binding/service_visitor.h"
#include "extension/binding/style_editor.h"
#include "extension/binding/style_editor_visitor.h"

/// An extension and a host of extensions in one, built apart: with the families of this tree, or with other
/// revisions of some.
namespace {
class peer_editor final : public vx::style_editor_impl
{
public:
    void with_caption(vx::string_visitor visitor) override { visitor.visit(L"peer styles"); }
};
class peer_docker final : public vx::docker_impl
{
public:
    void with_caption(vx::string_visitor visitor) override { visitor.visit(L"peer"); }
};
class peer_service final : public vx::layer_2d_editor_extension_service_impl
{
public:
    void with_style_editor(vx::style_editor_visitor visitor) override { visitor.visit(f_editor); }
    void with_docker(vx::docker_visitor visitor) override { visitor.visit(L"peer", f_docker); }

private:
    peer_editor f_editor;
    peer_docker f_docker;
};
class peer_services final : public vx::service_factory_impl
{
public:
    void with_services(vx::bundle_context, vx::service_visitor visitor) override
    {
        vx::layer_2d_editor_extension_service_visitor const receiver =
            vx_layer_2d_editor_extension_service_visitor_interface_specialize(
                vx_service_visitor_interface_generalize(visitor));
        receiver.visit(f_service);
    }

private:
    peer_service f_service;
};
class peer_host final : public vx::polymorphic<vx::service_visitor_impl>,
                        public vx::polymorphic<vx::layer_2d_editor_extension_service_visitor_impl>
{
public:
    int priorities = 0;
    void visit(vx::layer_2d_editor_extension_service service) override
    {
        service.set_layer(nullptr);
        priorities += service.priority();
    }
};
} // namespace

extern "C" t_vx_service_factory_interface peer_factory()
{
    static peer_services services;
    return services;
}

/// The sum of the priorities of the services that a foreign factory offers.
extern "C" int peer_ask(t_vx_service_factory_interface factory)
{
    peer_host host;
    vx::service_factory(factory).with_services({}, static_cast<vx::service_visitor_impl &>(host));
    return host.priorities;
}
