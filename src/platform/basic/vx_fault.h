#pragma once

#include "platform/base/export.h"
#include "platform/base/fault.h"

#include <string>
#include <string_view>

/// Texts of failures, in the language of the captions.
///
/// Wherever the engine hands a failure on as one text, the text is a *reason*: the first line is a sentence
/// for the user, in the language of the captions; the lines behind it, if any, are what the system or a
/// format's library said, in its own words. Who shows a reason shows the sentence, and the rest only when it
/// is asked for: `vx_show_reason` (platform/dialogs/vx_msgs.h) does so. Functions that make or show reasons
/// mask the passwords of connection strings in them.
struct Tvx_reason
{
    std::wstring sentence;
    std::wstring details; ///< lines, none at the end; empty when there is no more to say
};

/// What the user is told: the caption of the fault and, where the system's error number has one, its caption.
/// Empty for no fault.
[[nodiscard]] VX_API std::wstring vx_fault_sentence(vx::fault const &fault);
/// The sentence, and behind it what the system and libraries said.
[[nodiscard]] VX_API std::wstring vx_fault_reason(vx::fault const &fault);

/// One text of a sentence and further lines. Line breaks in the sentence become spaces. A text that says
/// nothing but details gets the sentence that this is all that is known.
[[nodiscard]] VX_API std::wstring vx_reason_make(std::wstring_view sentence, std::wstring_view details);
[[nodiscard]] VX_API Tvx_reason vx_reason_split(std::wstring_view reason);
/// Writes the details to the error output, under their sentence; nothing when there are none.
VX_API void vx_reason_print(Tvx_reason const &reason);

using Tvx_reason_handler = void (*)(wchar_t const *reason);
/// Who tells the user what went wrong in calls that have no result to say it with: a file that could not be
/// saved, a driver that failed. The dialogs put their messages in place while they load. Gives the handler
/// before; null tells nobody.
VX_API Tvx_reason_handler vx_reason_set_handler(Tvx_reason_handler handler);
/// Tells the user a reason through the handler.
VX_API void vx_reason_report(wchar_t const *reason);

/// The text with the passwords of connection strings in it replaced by "***": what follows `password=`,
/// `passwd=`, `pwd=` or `pass=` without regard to case, and what stands between the user and the "@" of an
/// address.
[[nodiscard]] VX_API std::wstring vx_mask_passwords(std::wstring_view text);
