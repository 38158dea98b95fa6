#pragma once

#include "platform/base/export.h"

/// Root of the objects that are not seen on the screen. It holds nothing.
class VX_API Tvx_basic_obj
{
public:
    Tvx_basic_obj() = default;
    Tvx_basic_obj(Tvx_basic_obj const &) = default;
    Tvx_basic_obj &operator=(Tvx_basic_obj const &) = default;
    virtual ~Tvx_basic_obj();
};
