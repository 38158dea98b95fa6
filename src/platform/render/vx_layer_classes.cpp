#include "platform/render/vx_layer_classes.h"

#include "captions/map.h"
#include "captions/style_manager.h"

#include "platform/basic/vx_options.h"
#include "platform/basic/vx_res.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/layers/vx_tos_lr2d.h"
#include "platform/render/detail/color_classes.h"
#include "platform/render/vx_scale_rows.h"
#include "platform/styles/vxk_styles.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace {
using vx::render::color_class;
using vx::render::color_classes;

constexpr int c_draw_by_scale = 0; ///< of a grid

/// The manager that a layer of a property file is drawn by; null for a grid by channels and for others.
void *only_manager(Ivx_layer *layer)
{
    if (void *const colors = vx_tos_grid_lr2d_get_clr_stl_mngr_ptr(layer))
        return vx_tos_grid_lr2d_get_draw_type(layer) == c_draw_by_scale ? colors : nullptr;
    void *const curve = vx_tos_grid_1d_lr2d_get_stl_mngr_ptr(layer);
    return curve ? curve : vx_tos_2crd_lr2d_get_stl_mngr(layer);
}

/// One class: a row of a manager.
struct class_row
{
    void *mngr = nullptr;
    unsigned manager = 0;
    unsigned row = 0;

    [[nodiscard]] bool is_of_scale() const
    {
        unsigned const mode = vx_stl_mngr_get_mode(mngr);
        return mode == c_stl_mngr_mode_value || mode == c_stl_mngr_mode_range || mode == c_stl_mngr_mode_rule;
    }
    /// The scale of entries in force; null for ranges and for one style.
    [[nodiscard]] void *entries() const
    {
        switch (vx_stl_mngr_get_mode(mngr)) {
        case c_stl_mngr_mode_value:
            return vx_stl_mngr_get_val_scale_ptr(mngr);
        case c_stl_mngr_mode_rule:
            return vx_stl_mngr_get_rule_scale_ptr(mngr);
        default:
            return nullptr;
        }
    }
    /// The same row of another manager, whatever is in force there; null for none.
    [[nodiscard]] void *scale_prm_in(void *other) const;
    [[nodiscard]] void *ranges() const
    {
        return vx_stl_mngr_get_mode(mngr) == c_stl_mngr_mode_range ? vx_stl_mngr_get_rng_scale_ptr(mngr)
                                                                   : nullptr;
    }
    /// Null for one style.
    [[nodiscard]] void *scale_prm() const
    {
        if (void *const scale = entries())
            return row < vx_val_scale_get_size(scale) ? vx_val_scale_get_scale_prm_ptr(scale, row)
                                                      : vx_val_scale_get_other_prm_ptr(scale);
        void *const scale = ranges();
        unsigned const size = vx_rng_scale_get_size(scale);
        if (!scale)
            return nullptr;
        if (row == 0)
            return vx_rng_scale_get_min_prm_ptr(scale);
        if (row <= size)
            return vx_rng_scale_get_scale_prm_ptr(scale, row - 1);
        return row == size + 1 ? vx_rng_scale_get_max_prm_ptr(scale) : vx_rng_scale_get_other_prm_ptr(scale);
    }
};

unsigned rows_of(Ivx_layer *layer, unsigned manager)
{
    void *const mngr = vx_layer_classes_get_mngr_ptr(layer, manager);
    bool const alone = vx_layer_classes_get_mngr_count(layer) == 1;
    return alone && !class_row{mngr}.is_of_scale() ? 0 : vx_scale_rows_get_count(mngr);
}

/// The manager that is listed at a place: lists of layers begin at the top or at the bottom, as the user
/// likes.
unsigned listed_manager(Ivx_layer *layer, unsigned place)
{
    return vx_options_get_invert_layers() ? vx_layer_classes_get_mngr_count(layer) - 1 - place : place;
}

/// A class without a manager for a place outside.
class_row find_class(Ivx_layer *layer, unsigned index)
{
    for (unsigned place = 0; place < vx_layer_classes_get_mngr_count(layer); ++place) {
        unsigned const i = listed_manager(layer, place);
        unsigned const rows = rows_of(layer, i);
        if (index < rows)
            return {vx_layer_classes_get_mngr_ptr(layer, i), i, index};
        index -= rows;
    }
    return {};
}

template <class Get>
std::wstring text_of(Get get)
{
    std::wstring text;
    Tvx_std_wstring_adapter adapter(text);
    get(static_cast<Ivx_string_adp *>(adapter));
    return text;
}

std::wstring entry_text(void *scale, unsigned row)
{
    return text_of([&](Ivx_string_adp *to) { vx_val_scale_get_text_w(scale, row, to); });
}

void *entry_like(void *scale, void *other, unsigned row)
{
    if (row >= vx_val_scale_get_size(scale))
        return vx_val_scale_get_other_prm_ptr(other);
    std::wstring const text = entry_text(scale, row);
    unsigned const size = vx_val_scale_get_size(other);
    // Nearly always it has stayed where it was.
    for (unsigned i = 0; i <= size; ++i)
        if (unsigned const place = i == 0 ? row : i - 1; place < size && entry_text(other, place) == text)
            return vx_val_scale_get_scale_prm_ptr(other, place);
    return nullptr;
}

void *range_like(void *scale, void *other, unsigned row)
{
    unsigned const size = vx_rng_scale_get_size(scale);
    if (row == 0)
        return vx_rng_scale_get_min_prm_ptr(other);
    if (row > size)
        return row == size + 1 ? vx_rng_scale_get_max_prm_ptr(other) : vx_rng_scale_get_other_prm_ptr(other);
    for (unsigned i = 0; i < vx_rng_scale_get_size(other); ++i)
        if (vx_rng_scale_get_min(other, i) == vx_rng_scale_get_min(scale, row - 1) &&
            vx_rng_scale_get_max(other, i) == vx_rng_scale_get_max(scale, row - 1))
            return vx_rng_scale_get_scale_prm_ptr(other, i);
    return nullptr;
}

void *class_row::scale_prm_in(void *other) const
{
    switch (vx_stl_mngr_get_mode(mngr)) {
    case c_stl_mngr_mode_value:
        return entry_like(entries(), vx_stl_mngr_get_val_scale_ptr(other), row);
    case c_stl_mngr_mode_rule:
        return entry_like(entries(), vx_stl_mngr_get_rule_scale_ptr(other), row);
    case c_stl_mngr_mode_range:
        return range_like(ranges(), vx_stl_mngr_get_rng_scale_ptr(other), row);
    default:
        return nullptr;
    }
}

std::wstring bound(double value)
{
    constexpr int c_digits = 10;
    if (std::isfinite(value) && !std::isnormal(value)) // zero, or what lies next to it
        value = 0;
    char text[32];
    auto const end = std::to_chars(text, std::end(text), value, std::chars_format::general, c_digits);
    return {text, end.ptr};
}

std::wstring entry_caption(void *scale, unsigned row)
{
    if (row >= vx_val_scale_get_size(scale)) {
        std::wstring text = text_of([&](Ivx_string_adp *to) { vx_val_scale_get_other_caption_w(scale, to); });
        return text.empty() ? vx_res_get_wstr(c_stl_other) : text;
    }
    std::wstring text = text_of([&](Ivx_string_adp *to) { vx_val_scale_get_caption_w(scale, row, to); });
    if (text.empty())
        text = entry_text(scale, row);
    return text.empty() ? vx_res_get_wstr(c_map_class_empty) : text;
}

std::wstring range_caption(void *scale, unsigned row)
{
    unsigned const size = vx_rng_scale_get_size(scale);
    std::wstring text;
    if (row == 0) {
        text = text_of([&](Ivx_string_adp *to) { vx_rng_scale_get_min_caption_w(scale, to); });
        return text.empty() ? vx_res_format_w(c_map_class_below, bound(vx_rng_scale_get_min_value(scale)))
                            : text;
    }
    if (row <= size) {
        text = text_of([&](Ivx_string_adp *to) { vx_rng_scale_get_caption_w(scale, row - 1, to); });
        return text.empty() ? bound(vx_rng_scale_get_min(scale, row - 1)) + L" - " +
                                  bound(vx_rng_scale_get_max(scale, row - 1))
                            : text;
    }
    if (row == size + 1) {
        text = text_of([&](Ivx_string_adp *to) { vx_rng_scale_get_max_caption_w(scale, to); });
        return text.empty() ? vx_res_format_w(c_map_class_above, bound(vx_rng_scale_get_max_value(scale)))
                            : text;
    }
    text = text_of([&](Ivx_string_adp *to) { vx_rng_scale_get_other_caption_w(scale, to); });
    return text.empty() ? vx_res_get_wstr(c_stl_other) : text;
}

std::wstring caption_of(class_row const &found)
{
    if (void *const scale = found.entries())
        return entry_caption(scale, found.row);
    if (void *const scale = found.ranges())
        return range_caption(scale, found.row);
    std::wstring const name = text_of([&](Ivx_string_adp *to) { vx_stl_mngr_get_name_w(found.mngr, to); });
    return name.empty() ? std::to_wstring(found.manager + 1) : name;
}

/// One without colours for layers with managers and for places outside.
color_class color_class_at(Ivx_layer *layer, unsigned index)
{
    if (vx_layer_classes_get_mngr_count(layer) > 0)
        return {};
    std::vector<color_class> rows = color_classes(layer);
    return index < rows.size() ? std::move(rows[index]) : color_class{};
}
} // namespace

unsigned vx_layer_classes_get_mngr_count(Ivx_layer *layer)
{
    return vx_lr2d_is_shp(layer) ? vx_stl_mngr_list_get_count(vx_shp_lr2d_get_style_mngr_list_ptr(layer))
                                 : (only_manager(layer) ? 1 : 0);
}

void *vx_layer_classes_get_mngr_ptr(Ivx_layer *layer, unsigned index)
{
    if (vx_lr2d_is_shp(layer))
        return vx_stl_mngr_list_get_mngr(vx_shp_lr2d_get_style_mngr_list_ptr(layer), index);
    return index == 0 ? only_manager(layer) : nullptr;
}

unsigned vx_layer_classes_get_count(Ivx_layer *layer)
{
    unsigned const managers = vx_layer_classes_get_mngr_count(layer);
    if (managers == 0)
        return static_cast<unsigned>(color_classes(layer).size());
    unsigned count = 0;
    for (unsigned i = 0; i < managers; ++i)
        count += rows_of(layer, i);
    return count;
}

void vx_layer_classes_get_caption_w(Ivx_layer *layer, unsigned index, Ivx_string_adp *caption)
{
    class_row const found = find_class(layer, index);
    std::wstring const text = found.mngr ? caption_of(found) : color_class_at(layer, index).caption;
    vx_string_adp_feed(caption, text.c_str());
}

void *vx_layer_classes_get_stl_prm_ptr(Ivx_layer *layer, unsigned index)
{
    class_row const found = find_class(layer, index);
    if (!found.mngr)
        return nullptr;
    void *const prm = found.scale_prm();
    return prm ? vx_scale_prm_get_stl_prm_ptr(prm) : vx_stl_mngr_get_simple_sp_ptr(found.mngr);
}

unsigned vx_layer_classes_get_colors(Ivx_layer *layer, unsigned index, Tvx_color *colors, unsigned size)
{
    std::vector<Tvx_color> const all = color_class_at(layer, index).colors;
    std::copy_n(all.begin(), std::min<std::size_t>(size, all.size()), colors);
    return static_cast<unsigned>(all.size());
}

void *vx_layer_classes_get_scale_prm_ptr(Ivx_layer *layer, unsigned index)
{
    class_row const found = find_class(layer, index);
    return found.mngr ? found.scale_prm() : nullptr;
}

void *vx_layer_classes_find_scale_prm_ptr(Ivx_layer *layer, Ivx_layer *like, unsigned index)
{
    class_row const found = find_class(like, index);
    void *const mngr = found.mngr ? vx_layer_classes_get_mngr_ptr(layer, found.manager) : nullptr;
    return mngr ? found.scale_prm_in(mngr) : nullptr;
}

int vx_layer_classes_find(Ivx_layer *layer, unsigned manager, unsigned row)
{
    if (manager >= vx_layer_classes_get_mngr_count(layer) || row >= rows_of(layer, manager))
        return -1;
    unsigned index = row;
    for (unsigned place = 0; listed_manager(layer, place) != manager; ++place)
        index += rows_of(layer, listed_manager(layer, place));
    return static_cast<int>(index);
}
