#pragma once

#include "platform/base/export.h"
#include "platform/toolkit/core/form.h"

/// Base of the forms whose constructor builds the controls and whose `load_res` fills in the texts.
class VX_API Tvx_form : public TCustomForm
{
public:
    using TCustomForm::TCustomForm;

    virtual void load_res() {}
};

/// Base of the forms that are built by `create`.
class VX_API Tvx_vcl_form : public TCustomForm
{
public:
    using TCustomForm::TCustomForm;
};
