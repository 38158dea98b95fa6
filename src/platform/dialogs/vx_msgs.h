#pragma once

#include "platform/base/export.h"
#include "platform/base/unicode_string.h"

/// Messages and questions to the user: modal, with the application's window as parent, or the modal window
/// that is open at the moment.
///
/// The texts without `w` are in the system code page; null counts as the empty text. A message that is on the
/// screen is not shown a second time: the call then gives back at once. From another thread than the main one
/// a message is handed over to the main thread, which shows it soon; the caller goes on.

enum Tvx_msg_kind : int
{
    c_msg_message = 0,
    c_msg_warning = 1,
    c_msg_error = 2,
};

VX_API void vx_show_message(char const *text);
VX_API void vx_show_warning(char const *text);
VX_API void vx_show_error(char const *text);
VX_API void vx_show_wmessage(wchar_t const *text);
VX_API void vx_show_wwarning(wchar_t const *text);
VX_API void vx_show_werror(wchar_t const *text);

/// An error given as a reason (platform/basic/vx_fault.h): the message is its sentence; what stands behind
/// that is shown when the user asks for details, and written to the error output.
VX_API void vx_show_reason(wchar_t const *reason);

/// The same as `vx_show_wmessage`: the toolkit's word for it.
VX_API void ShowMessage(UnicodeString const &text);

/// Asks a question; true for yes. Esc and the close box mean no. Another thread waits for the answer, which
/// the main thread must be free to get.
[[nodiscard]] VX_API bool vx_yesno(wchar_t const *text);
/// The question with the text of this caption number.
[[nodiscard]] VX_API bool vx_yesno_res(int number);
