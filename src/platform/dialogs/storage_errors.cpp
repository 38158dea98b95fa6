#include "platform/dialogs/vx_msgs.h"
#include "platform/storage/vx_xml_data.h"

// Where there are dialogs, the user hears of a file that could not be saved; a host may put another handler
// in place.
namespace {
[[maybe_unused]] Tvx_storage_error_handler const g_former = vx_storage_set_error_handler(&vx_show_werror);
}
