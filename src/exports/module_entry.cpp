#include "platform/base/export.h"

/// Entry point of the module: reports success and does nothing else, whatever the reason of the call. Loading
/// the library needs neither a display nor an application object.
VX_C_API int vxk_lr2d_edit_form_module_entry(void * /*module*/, unsigned /*reason*/, void * /*reserved*/)
{
    return 1;
}
