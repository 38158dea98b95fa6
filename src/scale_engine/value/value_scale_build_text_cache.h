#pragma once

#include "data/connection/connection.h"

#include "platform/base/export.h"

#include <cstdint>
#include <set>
#include <string>
#include <unordered_set>

struct Ivx_entity;

namespace vx::task {
/// Reads the different values of a field; see `value_scale_build_cache` for limit, white space and failure.
class VX_API value_scale_build_text_cache
{
public:
    value_scale_build_text_cache(std::wstring field, std::uint64_t limit);

    /// From the table of an entity, in the order of its rows.
    bool execute(Ivx_entity *source, std::set<std::wstring> &values) const;
    bool execute(Ivx_entity *source, std::set<int> &values) const;
    bool execute(Ivx_entity *source, std::set<double> &values) const;
    bool execute(Ivx_entity *source, std::unordered_set<std::wstring> &values) const;
    bool execute(Ivx_entity *source, std::unordered_set<int> &values) const;
    bool execute(Ivx_entity *source, std::unordered_set<double> &values) const;

    /// From a data set, as it hands them out: with their white space.
    bool execute(vx::data::connection const &source, std::set<std::wstring> &values) const;

private:
    std::wstring f_field;
    std::uint64_t f_limit;
};
} // namespace vx::task
