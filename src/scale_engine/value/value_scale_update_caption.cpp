#include "scale_engine/value/value_scale_update_caption.h"

#include "data/filesystem/tutils.h"
#include "scale_engine/model/detail/scale_text.h"
#include "scale_engine/value/value_scale_build_cache.h"

#include "platform/styles/vx_val_scale.h"

namespace vx::task {
namespace {
constexpr std::uint64_t c_known_values = 1000;
}

void value_scale_update_caption::text(void *scale)
{
    unsigned const size = vx_val_scale_get_size(scale);
    for (unsigned i = 0; i < size; ++i)
        vx_val_scale_set_caption_w(scale, i, detail::scale_text(&vx_val_scale_get_text_w, scale, i).c_str());
}

value_scale_modify_caption::value_scale_modify_caption(std::wstring text_field, std::wstring capt_field)
    : f_text_field(std::move(text_field)), f_capt_field(std::move(capt_field))
{
}

void value_scale_modify_caption::execute(void *scale, Ivx_entity *entity) const
{
    std::unordered_map<std::wstring, std::wstring> captions;
    if (value_scale_build_cache(f_text_field, f_capt_field, c_known_values).execute(entity, captions))
        execute(scale, captions);
}

unsigned value_scale_modify_caption::entry_count(void const *scale)
{
    return vx_val_scale_get_size(scale);
}

std::wstring value_scale_modify_caption::trimmed_text(void const *scale, unsigned index)
{
    return Tutils::str_trim(detail::scale_text(&vx_val_scale_get_text_w, scale, index));
}

void value_scale_modify_caption::set_caption(void *scale, unsigned index, std::wstring const &caption)
{
    vx_val_scale_set_caption_w(scale, index, caption.c_str());
}
} // namespace vx::task
