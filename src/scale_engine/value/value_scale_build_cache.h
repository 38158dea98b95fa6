#pragma once

#include "data/connection/connection.h"

#include "platform/base/export.h"

#include <cstdint>
#include <map>
#include <string>
#include <unordered_map>

struct Ivx_entity;

namespace vx::task {
/// Reads the different values of a field, each with the caption that stands beside it where it is first met.
///
/// Reading stops at `limit` values, with 0 after the first one. Texts lose the white space at their ends, and
/// what is the same then is one value. Cells without a value, and what is no number among numbers, are left
/// out. A caption field that is not there makes values their own captions.
///
/// False, with an empty container, when the source cannot be opened or has no such field.
class VX_API value_scale_build_cache
{
public:
    value_scale_build_cache(std::wstring text_field, std::wstring capt_field, std::uint64_t limit);

    /// From the table of an entity, in the order of its rows.
    bool execute(Ivx_entity *source, std::map<std::wstring, std::wstring> &values) const;
    bool execute(Ivx_entity *source, std::map<int, int> &values) const;
    bool execute(Ivx_entity *source, std::map<double, double> &values) const;
    bool execute(Ivx_entity *source, std::unordered_map<std::wstring, std::wstring> &values) const;
    bool execute(Ivx_entity *source, std::unordered_map<int, int> &values) const;
    bool execute(Ivx_entity *source, std::unordered_map<double, double> &values) const;

    /// From a data set. A value whose caption is empty is left out; of values that differ in white space the
    /// first in the order of the untrimmed ones counts.
    bool execute(vx::data::connection const &source, std::map<std::wstring, std::wstring> &values) const;
    bool execute(vx::data::connection const &source,
                 std::unordered_map<std::wstring, std::wstring> &values) const;

private:
    std::wstring f_text_field;
    std::wstring f_capt_field;
    std::uint64_t f_limit;
};
} // namespace vx::task
