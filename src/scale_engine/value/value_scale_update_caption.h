#pragma once

#include "platform/base/export.h"

#include <string>
#include <utility>

struct Ivx_entity;

namespace vx::task {
struct VX_API value_scale_update_caption
{
    /// Each entry's text becomes its caption.
    static void text(void *scale);
};

/// Takes captions from a field of a table.
class VX_API value_scale_modify_caption
{
public:
    value_scale_modify_caption() = default;
    value_scale_modify_caption(std::wstring text_field, std::wstring capt_field);

    /// Captions of the values that the table has, as far as they are among its first 1000 different ones;
    /// other entries keep theirs, and all do if the table cannot be read.
    void execute(void *scale, Ivx_entity *entity) const;
    /// The same with a map of texts to captions.
    template <class Map>
    void execute(void *scale, Map &captions) const
    {
        for (unsigned i = 0; i < entry_count(scale); ++i)
            if (auto const found = captions.find(trimmed_text(scale, i)); found != captions.end())
                set_caption(scale, i, found->second);
    }

private:
    [[nodiscard]] static unsigned entry_count(void const *scale);
    [[nodiscard]] static std::wstring trimmed_text(void const *scale, unsigned index);
    static void set_caption(void *scale, unsigned index, std::wstring const &caption);

    std::wstring f_text_field;
    std::wstring f_capt_field;
};
} // namespace vx::task
