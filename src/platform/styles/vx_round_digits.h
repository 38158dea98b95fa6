#pragma once

#include "platform/base/export.h"
#include "platform/base/string_adp.h"

/// Hands out the text of a number under round digits, with "." as the decimal separator: rounded to a
/// multiple of 10^digits, halves away from zero, with -digits decimals below 0 and none otherwise. Digits of
/// -30 round nothing and give the shortest text that reads back as the number, but a number one step beside
/// one of 15 digits or less has the text of that: it is a bound that holds, or leaves out, the round number.
/// Other digits outside -10 to 10 count as -2. A negative zero has no sign.
VX_API void vx_round_digits_format_number(int digits, double value, Ivx_string_adp *adp);

/// The value rounded to a multiple of 10^digits, halves away from zero, as the text above shows it: what two
/// decimals leave of 0.346 is the number that "0.35" reads as. The value itself where that is out of range.
[[nodiscard]] VX_API double vx_round_digits_round(int digits, double value);
