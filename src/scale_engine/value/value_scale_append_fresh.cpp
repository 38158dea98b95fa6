#include "scale_engine/value/value_scale_append_fresh.h"

#include "data/filesystem/tutils.h"
#include "scale_engine/model/detail/scale_text.h"

#include "platform/styles/vx_val_scale.h"

#include <unordered_set>

namespace vx::task {
namespace {
std::wstring trimmed_text(void const *scale, unsigned index)
{
    return Tutils::str_trim(detail::scale_text(&vx_val_scale_get_text_w, scale, index));
}
} // namespace

void value_scale_append_fresh::execute(void *scale,
                                       std::unordered_map<std::wstring, std::wstring> const &cache)
{
    std::unordered_set<std::wstring> texts;
    unsigned const size = vx_val_scale_get_size(scale);
    for (unsigned i = 0; i < size; ++i)
        texts.insert(trimmed_text(scale, i));
    for (auto const &[key, caption] : cache) {
        if (texts.contains(key))
            continue;
        unsigned const index = vx_val_scale_add(scale) - 1;
        vx_val_scale_set_text_w(scale, index, key.c_str());
        vx_val_scale_set_caption_w(scale, index, key.c_str());
    }
}

void value_scale_remove_absent::execute(void *scale,
                                        std::unordered_map<std::wstring, std::wstring> const &cache)
{
    for (unsigned i = vx_val_scale_get_size(scale); i-- > 0;)
        if (!cache.contains(trimmed_text(scale, i)))
            vx_val_scale_del(scale, i);
}
} // namespace vx::task
