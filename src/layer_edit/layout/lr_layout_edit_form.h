#pragma once

#include "layer_edit/form/lr2d_edit_form.h"

/// The record behind one edit window for elements of page layouts.
class VX_API Tvx_lr_layout_edit_form : public Tvx_lr2d_edit_form
{
public:
    using Tvx_lr2d_edit_form::Tvx_lr2d_edit_form;

    Tvx_lr2d_edit *create_lr2d_edit() override;
    void load_res() override;
};
