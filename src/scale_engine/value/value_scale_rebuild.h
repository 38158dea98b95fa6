#pragma once

#include "data/connection/connection.h"

#include "platform/base/export.h"

#include <cstdint>
#include <string>

struct Ivx_entity;

namespace vx::task {
/// Fills a value scale anew: one blank entry for each different value of a field, in the order of the values,
/// with its text and its caption. A read that fails leaves an empty scale.
class VX_API value_scale_rebuild
{
public:
    /// Values are their own captions. Reading stops at `limit` values.
    value_scale_rebuild(std::wstring field, std::uint64_t limit);
    value_scale_rebuild(std::wstring text_field, std::wstring capt_field, std::uint64_t limit);
    void execute(void *scale, Ivx_entity *source) const;
    void execute(void *scale, vx::data::connection const &source) const;

private:
    template <class Source>
    void fill(void *scale, Source const &source) const;

    std::wstring f_text_field;
    std::wstring f_capt_field;
    std::uint64_t f_limit;
};
} // namespace vx::task
