#include "platform/layers/detail/scene.h"

#include "platform/data/vx_attr_data.h"
#include "platform/layers/detail/tld_layer.h"
#include "platform/layers/vx_scn_2d.h"
#include "platform/layers/vx_shp_lr2d.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {
/// One degree of a great circle of the mean earth (radius 6371008.8 m).
constexpr double c_metres_per_degree = 111195.08;
constexpr double c_last_latitude = 89;
} // namespace

// ---- scene

Ivx_scn_2d *vx_scn_2d_create(wchar_t const *caption)
{
    auto *const scene = new Ivx_scn_2d;
    scene->caption = caption ? caption : L"";
    return scene;
}

Ivx_scn_2d *vx_scn_2d_clone(Ivx_scn_2d const *scene)
{
    if (!scene)
        return nullptr;
    auto copy = std::make_unique<Ivx_scn_2d>();
    copy->caption = scene->caption;
    copy->file_name = scene->file_name;
    copy->izotropic = scene->izotropic;
    copy->center = scene->center;
    copy->pixel = scene->pixel;
    copy->unit_is_degree = scene->unit_is_degree;
    copy->unit_metres = scene->unit_metres;
    for (auto const &layer : scene->layers)
        copy->layers.push_back(layer->clone());
    for (auto const &layer : copy->layers)
        if (auto *const text = vx::layers::as<vx::layers::dtld_layer>(layer.get()))
            if (int const parent = vx_scn_2d_get_index(scene, text->parent()); parent >= 0)
                text->set_parent(copy->layers[static_cast<std::size_t>(parent)].get());
    return copy.release();
}

void vx_scn_2d_destroy(Ivx_scn_2d *scene)
{
    delete scene;
}

void vx_scn_2d_get_wcaption(Ivx_scn_2d const *scene, Ivx_string_adp *caption)
{
    vx_string_adp_feed(caption, scene ? scene->caption.c_str() : nullptr);
}

void vx_scn_2d_set_wcaption(Ivx_scn_2d *scene, wchar_t const *caption)
{
    if (scene)
        scene->caption = caption ? caption : L"";
}

void vx_scn_2d_get_wfilename(Ivx_scn_2d const *scene, Ivx_string_adp *file)
{
    vx_string_adp_feed(file, scene ? scene->file_name.c_str() : nullptr);
}

void vx_scn_2d_set_wfilename(Ivx_scn_2d *scene, wchar_t const *file)
{
    if (scene)
        scene->file_name = file ? file : L"";
}

bool vx_scn_2d_get_izotropic(Ivx_scn_2d const *scene)
{
    return !scene || scene->izotropic;
}

void vx_scn_2d_set_izotropic(Ivx_scn_2d *scene, bool izotropic)
{
    if (scene)
        scene->izotropic = izotropic;
}

void vx_scn_2d_set_unit(Ivx_scn_2d *scene, bool is_degree, double metres)
{
    if (!scene)
        return;
    scene->unit_is_degree = is_degree;
    if (std::isfinite(metres) && metres > 0)
        scene->unit_metres = metres;
}

bool vx_scn_2d_get_unit_is_degree(Ivx_scn_2d const *scene)
{
    return scene && scene->unit_is_degree;
}

double vx_scn_2d_get_unit_metres(Ivx_scn_2d const *scene, Tvx_pnt_d2 at)
{
    return vx::layers::unit_metres(scene, at).x;
}

Tvx_pnt_d2 vx::layers::unit_metres(Ivx_scn_2d const *scene, Tvx_pnt_d2 at)
{
    if (!scene)
        return {1, 1};
    if (!scene->unit_is_degree)
        return {scene->unit_metres, scene->unit_metres};
    double const latitude = std::isfinite(at.y) ? std::clamp(at.y, -c_last_latitude, c_last_latitude) : 0;
    double const x = c_metres_per_degree * std::cos(latitude * std::numbers::pi / 180);
    return {x, scene->izotropic ? x : c_metres_per_degree};
}

bool vx_scn_2d_get_view(Ivx_scn_2d const *scene, Tvx_pnt_d2 *center, double *pixel)
{
    if (!scene || !center || !pixel || !(scene->pixel > 0))
        return false;
    *center = scene->center;
    *pixel = scene->pixel;
    return true;
}

void vx_scn_2d_set_view(Ivx_scn_2d *scene, Tvx_pnt_d2 center, double pixel)
{
    if (!scene)
        return;
    bool const good = std::isfinite(center.x) && std::isfinite(center.y) && std::isfinite(pixel) && pixel > 0;
    scene->center = good ? center : Tvx_pnt_d2{};
    scene->pixel = good ? pixel : 0;
}

int vx_scn_2d_get_count(Ivx_scn_2d const *scene)
{
    return scene ? scene->entity_count() : 0;
}

Ivx_layer *vx_scn_2d_get_layer(Ivx_scn_2d const *scene, int index)
{
    return scene && scene->has(index) ? scene->layers[static_cast<std::size_t>(index)].get() : nullptr;
}

int vx_scn_2d_get_index(Ivx_scn_2d const *scene, Ivx_layer const *layer)
{
    if (!scene)
        return -1;
    auto const at = std::find_if(scene->layers.begin(), scene->layers.end(),
                                 [&](auto const &held) { return held.get() == layer; });
    return at == scene->layers.end() ? -1 : static_cast<int>(at - scene->layers.begin());
}

bool vx_scn_2d_insert(Ivx_scn_2d *scene, int index, Ivx_layer *layer)
{
    if (!scene || !layer || vx_scn_2d_get_index(scene, layer) >= 0)
        return false;
    scene->layers.emplace(scene->layers.begin() + std::clamp(index, 0, scene->entity_count()), layer);
    return true;
}

Ivx_layer *vx_scn_2d_extract(Ivx_scn_2d *scene, int index)
{
    if (!scene || !scene->has(index))
        return nullptr;
    auto const at = scene->layers.begin() + index;
    auto *const layer = at->release();
    scene->layers.erase(at);
    return layer;
}

void vx_scn_2d_move(Ivx_scn_2d *scene, int from, int to)
{
    if (!scene || !scene->has(from))
        return;
    to = std::clamp(to, 0, scene->entity_count() - 1);
    auto const first = scene->layers.begin();
    if (from < to)
        std::rotate(first + from, first + from + 1, first + to + 1);
    else
        std::rotate(first + to, first + from, first + from + 1);
}

bool vx_scn_2d_get_extent(Ivx_scn_2d *scene, Tvx_box_d2 *box)
{
    if (!scene || !box)
        return false;
    *box = {};
    for (auto const &layer : scene->layers) {
        Tvx_box_d2 one;
        if (layer->visible && vx_attr_data_get_extent(vx_shp_lr2d_get_attr_data_ptr(layer.get()), &one))
            box->add(one);
    }
    return !box->is_empty();
}

Ivx_entities *vx_scn_2d_safe_upcast(Ivx_scn_2d *scene)
{
    return scene;
}

// ---- list of scenes

Ivx_scns_2d *vx_scns_2d_create()
{
    return new Ivx_scns_2d;
}

void vx_scns_2d_destroy(Ivx_scns_2d *scenes)
{
    delete scenes;
}

int vx_scns_2d_get_count(Ivx_scns_2d const *scenes)
{
    return scenes ? scenes->entity_count() : 0;
}

Ivx_scn_2d *vx_scns_2d_get_scn(Ivx_scns_2d const *scenes, int index)
{
    return index >= 0 && index < vx_scns_2d_get_count(scenes)
               ? scenes->scenes[static_cast<std::size_t>(index)].get()
               : nullptr;
}

Ivx_scn_2d *vx_scns_2d_add(Ivx_scns_2d *scenes, wchar_t const *caption)
{
    if (!scenes)
        return nullptr;
    return scenes->scenes.emplace_back(vx_scn_2d_create(caption)).get();
}

void vx_scns_2d_erase(Ivx_scns_2d *scenes, int index)
{
    if (!vx_scns_2d_get_scn(scenes, index))
        return;
    scenes->scenes.erase(scenes->scenes.begin() + index);
    if (index < scenes->active || scenes->active == scenes->entity_count())
        scenes->active = std::max(scenes->active - 1, 0);
}

Ivx_scn_2d *vx_scns_2d_get_active_scn(Ivx_scns_2d const *scenes)
{
    return scenes ? vx_scns_2d_get_scn(scenes, scenes->active) : nullptr;
}

void vx_scns_2d_set_active_scn(Ivx_scns_2d *scenes, Ivx_scn_2d const *scene)
{
    for (int i = 0; i < vx_scns_2d_get_count(scenes); ++i)
        if (vx_scns_2d_get_scn(scenes, i) == scene)
            scenes->active = i;
}

Ivx_entities *vx_scns_2d_safe_upcast(Ivx_scns_2d *scenes)
{
    return scenes;
}

Ivx_scns_2d *vx_scns_2d_safe_downcast(Ivx_entities *list)
{
    return dynamic_cast<Ivx_scns_2d *>(list);
}
