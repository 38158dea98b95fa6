#pragma once

#include "controls/tree_view/model_index.h"

#include "platform/base/basic_obj.h"

/// What a model lets be done with one of its items.
class VX_API Tvx_abstract_item_action : public Tvx_basic_obj
{
public:
    virtual void action(Tvx_model_index const &index) = 0;
};
