#pragma once

#include "layer_edit/page_set/lr2d_edit.h"

/// The panel that edits one element of a page layout. It is a layer's, without the tab of styles: what an
/// element has to set comes from extensions, looked up under L"vxk/layer/layout", and from plug-ins.
class VX_API Tvx_lr_layout_edit : public Tvx_lr2d_edit
{
public:
    explicit Tvx_lr_layout_edit(TComponent *owner);
    /// The same with other parts; what `parts` points to outlives the page set.
    Tvx_lr_layout_edit(TComponent *owner, vx::lr2d_edit_parts const &parts);

    void load_res() override;
    [[nodiscard]] std::wstring get_extension_category() const override;
};
