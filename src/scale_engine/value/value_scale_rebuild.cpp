#include "scale_engine/value/value_scale_rebuild.h"

#include "data/filesystem/tutils.h"
#include "scale_engine/value/value_scale_build_cache.h"
#include "scale_engine/value/value_scale_build_text_cache.h"

#include "platform/styles/vx_val_scale.h"

#include <utility>

namespace vx::task {
value_scale_rebuild::value_scale_rebuild(std::wstring field, std::uint64_t limit)
    : f_text_field(field), f_capt_field(std::move(field)), f_limit(limit)
{
}

value_scale_rebuild::value_scale_rebuild(std::wstring text_field, std::wstring capt_field,
                                         std::uint64_t limit)
    : f_text_field(std::move(text_field)), f_capt_field(std::move(capt_field)), f_limit(limit)
{
}

void value_scale_rebuild::execute(void *scale, Ivx_entity *source) const
{
    fill(scale, source);
}

void value_scale_rebuild::execute(void *scale, vx::data::connection const &source) const
{
    fill(scale, source);
}

template <class Source>
void value_scale_rebuild::fill(void *scale, Source const &source) const
{
    vx_val_scale_set_size(scale, 0);
    unsigned at = 0;
    auto const put = [&](std::wstring const &text, std::wstring const &caption) {
        vx_val_scale_set_text_w(scale, at, Tutils::str_trim(text).c_str());
        vx_val_scale_set_caption_w(scale, at, Tutils::str_trim(caption).c_str());
        ++at;
    };
    if (f_text_field == f_capt_field) {
        std::set<std::wstring> texts;
        if (!value_scale_build_text_cache(f_text_field, f_limit).execute(source, texts))
            return;
        vx_val_scale_set_size(scale, static_cast<unsigned>(texts.size()));
        for (auto const &text : texts)
            put(text, text);
    } else {
        std::map<std::wstring, std::wstring> captions;
        if (!value_scale_build_cache(f_text_field, f_capt_field, f_limit).execute(source, captions))
            return;
        vx_val_scale_set_size(scale, static_cast<unsigned>(captions.size()));
        for (auto const &[text, caption] : captions)
            put(text, caption);
    }
}
} // namespace vx::task
