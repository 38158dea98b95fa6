#include "element_docker.h"
#include "extension/binding/docker_visitor.h"
#include "extension/binding/layer_2d_editor_extension_service.h"
#include "extension/binding/layer_2d_editor_extension_service_visitor.h"
#include "extension/binding/referent_object.h"
#include "extension/binding/service_factory.h"

#include "platform/basic/vx_bundle.h"

#include <memory>
#include <vector>

// The pages of the elements of page layouts.

namespace {
using namespace vx::layout_elements;

/// The service of one window of the editor. It lives as long as that holds it.
class elements_service final : public vx::layer_2d_editor_extension_service_impl, public vx::referent_object
{
public:
    elements_service()
    {
        for (auto const &kind : page_kinds())
            f_dockers.push_back(std::make_unique<element_docker>(kind));
    }

    vx::referent as_referent() override { return static_cast<vx::referent_object &>(*this); }
    void with_docker(vx::docker_visitor visitor) override
    {
        for (auto const &docker : f_dockers)
            visitor.visit(docker->name(), *docker);
    }
    void set_layer(Ivx_layer *layer) override
    {
        for (auto const &docker : f_dockers)
            docker->set_layer(layer);
    }

protected:
    void on_unreferenced() override { delete this; }

private:
    ~elements_service() = default;

    std::vector<std::unique_ptr<element_docker>> f_dockers;
};

class elements_factory final : public vx::service_factory_impl
{
public:
    void with_services(vx::bundle_context, vx::service_visitor visitor) override
    {
        vx::layer_2d_editor_extension_service_visitor const receiver =
            vx_layer_2d_editor_extension_service_visitor_interface_specialize(
                vx_service_visitor_interface_generalize(visitor));
        if (!receiver)
            return;
        // Held while it is handed on: it ends here if nobody wanted it.
        auto *const service = new elements_service;
        service->retain({});
        receiver.visit(static_cast<vx::layer_2d_editor_extension_service_impl &>(*service));
        service->release({});
    }
};
} // namespace

VX_C_API bool vxk_bundle_entry(Tvx_bundle_context const *context)
{
    static elements_factory factory;
    return context && context->version == c_vx_bundle_version &&
           context->add_service_factory(context->host, L"vxk/layer/layout", factory);
}
