#include "platform/base/export.h"

VX_C_API int vxk_some_other_function()
{
    return 0;
}
