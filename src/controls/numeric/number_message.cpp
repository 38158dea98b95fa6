#include "controls/numeric/number_message_priv.h"

#include "platform/basic/vx_res.h"
#include "platform/dialogs/vx_msgs.h"

namespace {
/// A page that was pasted by mistake does not fill the screen.
constexpr int c_longest_text = 100;
} // namespace

void vx::show_number_message(int caption, UnicodeString const &text)
{
    UnicodeString shown = text;
    if (text.Length() > c_longest_text)
        shown = text.SubString(1, c_longest_text) + UnicodeString(L"\u2026");
    ShowMessage(vx_res_format_w(caption, shown.str()));
}
