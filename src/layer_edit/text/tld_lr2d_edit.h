#pragma once

#include "layer_edit/page_api/basic_lr2d_edit.h"

/// The page of a plain text layer, which has nothing to set: it stays empty.
class VX_API Tvx_tld_lr2d_edit : public Tvx_basic_lr2d_edit
{
public:
    using Tvx_basic_lr2d_edit::Tvx_basic_lr2d_edit;

    void create() override {}
    void load_res() override {}
    void update_controls() override {}
    [[nodiscard]] Ivx_layer *get_tld_lr2d() const { return get_lr2d(); }
};
