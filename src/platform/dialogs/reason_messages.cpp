#include "platform/basic/vx_fault.h"
#include "platform/dialogs/vx_msgs.h"

// Where there are dialogs, the user hears of what has no result to say it with; a host may put another
// handler in place.
namespace {
[[maybe_unused]] Tvx_reason_handler const g_former = vx_reason_set_handler(&vx_show_reason);
}
