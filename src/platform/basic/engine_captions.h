#pragma once

#include "platform/base/export.h"

#include <string>
#include <string_view>

/// Caption numbers of the engine.
enum Tvx_engine_caption : int
{
    c_capt_no_file_name = 1,
    c_capt_file_missing = 2,
    c_capt_no_driver_opens = 3,
    c_capt_no_driver_loaded = 4,
    c_capt_no_vector_data = 5,
    c_capt_no_driver_makes = 6,
    c_capt_too_many_records = 7,
    c_capt_file_damaged = 20,
    c_capt_file_newer = 21,
    c_capt_file_other = 22,
    c_capt_name_has_separator = 23,
    c_capt_too_large_to_save = 24,
    c_capt_no_bounds_to_save = 25,
};

/// The caption with "%1" replaced by `argument`.
[[nodiscard]] VX_API std::wstring vx_res_format_w(int number, std::wstring_view argument);
