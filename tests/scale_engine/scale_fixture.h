#pragma once

#include "scale_engine/model/detail/scale_text.h"

#include "platform/base/owned.h"
#include "platform/styles/vxk_styles.h"

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

/// Scales of a manager for point styles, written and read as plain lists.
namespace scale_fixture {
using owned_mngr = vx::owned<void, &vx_stl_mngr_destroy>;
using bounds_list = std::vector<std::pair<double, double>>;
using text_list = std::vector<std::wstring>;
using vx::task::detail::scale_text;

struct scales
{
    owned_mngr mngr{vx_stl_mngr_create("pnt_style")};
    void *rng = vx_stl_mngr_get_rng_scale_ptr(mngr.get());
    void *val = vx_stl_mngr_get_val_scale_ptr(mngr.get());
    void *rule = vx_stl_mngr_get_rule_scale_ptr(mngr.get());
};

inline void fill_ranges(void *scale, bounds_list const &bounds)
{
    vx_rng_scale_set_size(scale, static_cast<unsigned>(bounds.size()));
    for (unsigned i = 0; i < bounds.size(); ++i) {
        vx_rng_scale_set_min(scale, i, bounds[i].first);
        vx_rng_scale_set_max(scale, i, bounds[i].second);
    }
    if (!bounds.empty()) {
        vx_rng_scale_set_min_value(scale, bounds.front().first);
        vx_rng_scale_set_max_value(scale, bounds.back().second);
    }
}

inline bounds_list bounds_of(void const *scale)
{
    bounds_list out;
    for (unsigned i = 0; i < vx_rng_scale_get_size(scale); ++i)
        out.emplace_back(vx_rng_scale_get_min(scale, i), vx_rng_scale_get_max(scale, i));
    return out;
}

inline std::pair<double, double> span_of(void const *scale)
{
    return {vx_rng_scale_get_min_value(scale), vx_rng_scale_get_max_value(scale)};
}

/// The min caption, those of the ranges, the max caption.
inline text_list captions_of(void const *scale)
{
    text_list out{scale_text(&vx_rng_scale_get_min_caption_w, scale)};
    for (unsigned i = 0; i < vx_rng_scale_get_size(scale); ++i)
        out.push_back(scale_text(&vx_rng_scale_get_caption_w, scale, i));
    out.push_back(scale_text(&vx_rng_scale_get_max_caption_w, scale));
    return out;
}

/// Texts and captions of entries.
inline void fill_values(void *scale, std::vector<std::pair<std::wstring, std::wstring>> const &entries)
{
    vx_val_scale_set_size(scale, static_cast<unsigned>(entries.size()));
    for (unsigned i = 0; i < entries.size(); ++i) {
        vx_val_scale_set_text_w(scale, i, entries[i].first.c_str());
        vx_val_scale_set_caption_w(scale, i, entries[i].second.c_str());
    }
}

inline text_list texts_of(void const *scale)
{
    text_list out;
    for (unsigned i = 0; i < vx_val_scale_get_size(scale); ++i)
        out.push_back(scale_text(&vx_val_scale_get_text_w, scale, i));
    return out;
}

inline text_list value_captions_of(void const *scale)
{
    text_list out;
    for (unsigned i = 0; i < vx_val_scale_get_size(scale); ++i)
        out.push_back(scale_text(&vx_val_scale_get_caption_w, scale, i));
    return out;
}

inline Tvx_color color_of(void *scale_prm, bool selection = false)
{
    return vx_stl_prm_get_color(vx_scale_prm_get_stl_prm_ptr(scale_prm), selection);
}

inline void set_color(void *scale_prm, Tvx_color color, bool selection = false)
{
    vx_stl_prm_clr_set_all(vx_scale_prm_get_stl_prm_ptr(scale_prm), color, selection);
}

/// Scale parameters of the min entry, the ranges, the max entry and the other entry.
inline std::vector<void *> range_prms(void *scale)
{
    std::vector<void *> out{vx_rng_scale_get_min_prm_ptr(scale)};
    for (unsigned i = 0; i < vx_rng_scale_get_size(scale); ++i)
        out.push_back(vx_rng_scale_get_scale_prm_ptr(scale, i));
    out.push_back(vx_rng_scale_get_max_prm_ptr(scale));
    out.push_back(vx_rng_scale_get_other_prm_ptr(scale));
    return out;
}

/// Scale parameters of the entries and the other entry.
inline std::vector<void *> value_prms(void *scale)
{
    std::vector<void *> out;
    for (unsigned i = 0; i < vx_val_scale_get_size(scale); ++i)
        out.push_back(vx_val_scale_get_scale_prm_ptr(scale, i));
    out.push_back(vx_val_scale_get_other_prm_ptr(scale));
    return out;
}

/// Colours the rows grey, with their number as level; gives the levels back after something happened.
inline void number_by_color(std::vector<void *> const &prms, bool selection = false)
{
    for (std::size_t i = 0; i < prms.size(); ++i)
        set_color(prms[i], vx_clr_init_grey(static_cast<int>(i)), selection);
}

inline std::vector<int> numbers_by_color(std::vector<void *> const &prms, bool selection = false)
{
    std::vector<int> out;
    for (void *const prm : prms)
        out.push_back(color_of(prm, selection).r);
    return out;
}
} // namespace scale_fixture
