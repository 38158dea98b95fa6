#include "platform/basic/vx_bundle.h"

VX_C_API bool vxk_bundle_entry(Tvx_bundle_context const *)
{
    return false;
}
