#pragma once

#include "platform/base/export.h"

#include <string>
#include <string_view>

namespace vx {
/// Numbers as the number edits read and write them: with the decimal separator ".", whatever the process or
/// the system has set.

/// A whole number: blanks in front, a sign, then decimal digits, or "$" or "0x" and up to eight hexadecimal
/// digits, which give the bits of the number. False, and `value` untouched, for anything else and for what an
/// `int` cannot hold.
[[nodiscard]] VX_API bool str_to_int(std::wstring_view text, int &value);
/// A number with blanks around it: a sign, digits with "." anywhere among them, an exponent. False, and
/// `value` untouched, for anything else, for the names of no numbers and for what is too large for a double;
/// what is too small for one is 0.
[[nodiscard]] VX_API bool str_to_float(std::wstring_view text, double &value);
/// The number at the beginning of the text, after blanks; whatever follows it counts for nothing. 0 if there
/// is none, the largest double of its sign for a number that is too large.
[[nodiscard]] VX_API double read_float(std::wstring_view text);

/// In general form with 15 significant digits.
[[nodiscard]] VX_API std::wstring float_to_str(double value);
/// In general form: `precision` significant digits (1 to 18) without trailing zeros; with more than
/// `precision` digits before the point, or below 0.00001, as in "1.5E-7", with at least `digits` (0 to 4,
/// more than that is 0) digits of the exponent. What is no number gives "NAN", "INF" or "-INF".
[[nodiscard]] VX_API std::wstring float_to_str(double value, int precision, int digits);
/// With exactly so many decimals, 0 or more; "nan", "inf" or "-inf" for what is no number.
[[nodiscard]] VX_API std::wstring float_to_fixed(double value, int decimals);
} // namespace vx
