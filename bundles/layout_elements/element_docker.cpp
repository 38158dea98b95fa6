#include "element_docker.h"

#include "platform/basic/vx_res.h"
#include "platform/dialogs/vx_dock_panels.h"
#include "platform/layers/vx_layout_lr2d.h"

#include <string_view>

namespace vx::layout_elements {
element_docker::element_docker(page_kind const &kind) : f_kind(kind)
{
    vx_dock_panels_offer_control(*this, make_closure<&element_docker::make>(this));
}

element_docker::~element_docker()
{
    vx_dock_panels_offer_control(*this, {});
}

void element_docker::with_caption(vx::string_visitor visitor)
{
    visitor.visit(vx_res_get_wstr(f_kind.caption));
}

void element_docker::set_layer(Ivx_layer *layer)
{
    bool const is_for =
        vx_layout_lr2d_is(layer) &&
        (!f_kind.key || std::string_view(vx_lr2d_get_lr_type(layer)) == std::string_view(f_kind.key));
    f_layer = is_for ? layer : nullptr;
    if (f_page && !f_page_life.expired()) {
        f_page->set_lr2d(f_layer);
        f_page->update_controls();
    }
    f_view.update_state();
}

TWinControl *element_docker::make(TWinControl *parent)
{
    std::unique_ptr<rows_page> page(f_kind.make(parent));
    page->SetParent(parent);
    page->create();
    page->load_res();
    page->set_lr2d(f_layer);
    page->update_controls();
    f_page = page.get();
    f_page_life = f_page->Life();
    return page.release();
}
} // namespace vx::layout_elements
