#include "host/layout_sync.h"

#include "host/layer_list.h"
#include "host/layout_elements.h"
#include "host/map_scene.h"

#include "platform/base/string_adp.h"
#include "platform/layers/layout_keys.h"
#include "platform/layers/vx_prj.h"

#include <QGuiApplication>

#include <algorithm>

namespace {
QString caption_of(Ivx_scn_2d const *scene)
{
    std::wstring caption;
    vx_scn_2d_get_wcaption(scene, Tvx_std_wstring_adapter(caption));
    return QString::fromStdWString(caption);
}

Ivx_scns_2d *scenes()
{
    return vx_prj_get_scns_2d_ptr(vx_prj_get_instance());
}

int index_of(Ivx_scns_2d const *list, Ivx_scn_2d const *scene)
{
    for (int i = 0; i < vx_scns_2d_get_count(list); ++i)
        if (vx_scns_2d_get_scn(list, i) == scene)
            return i;
    return -1;
}
} // namespace

Tvx_layout_sync::Tvx_layout_sync(Tvx_layer_list const &layers, QString const &name)
    : f_layers(layers), f_scene(vx_scns_2d_add(scenes(), name.toStdWString().c_str())), f_name(name)
{
}

Tvx_layout_sync::~Tvx_layout_sync()
{
    if (int const index = index_of(scenes(), f_scene); index >= 0)
        vx_scns_2d_erase(scenes(), index);
}

bool Tvx_layout_sync::set_name(QString const &name)
{
    if (name == f_name)
        return false;
    bool any = false;
    Ivx_scns_2d *const layouts = vx_prj_get_layouts_data_ptr(vx_prj_get_instance());
    for (int i = 0; i < vx_scns_2d_get_count(layouts); ++i) {
        Ivx_scn_2d *const layout = vx_scns_2d_get_scn(layouts, i);
        for (int place = 0; place < vx_scn_2d_get_count(layout); ++place) {
            Ivx_layer *const element = vx_scn_2d_get_layer(layout, place);
            if (!vx_layout_is(element, c_lr_key_layout_scene_frame) || vx_layout_file_of(element) != f_name)
                continue;
            vx_layout_set_file(element, name);
            any = true;
        }
    }
    f_name = name;
    vx_scn_2d_set_wcaption(f_scene, name.toStdWString().c_str());
    return any;
}

void Tvx_layout_sync::set_view(Tvx_canvas_view const &view)
{
    vx_scn_2d_set_view(f_scene, view.center(), view.units_per_pixel());
}

QStringList Tvx_layout_sync::take_failed()
{
    return std::exchange(f_failed, {});
}

void Tvx_layout_sync::refresh()
{
    if (is_used())
        return;
    std::vector<face> faces = make_faces();
    Tvx_map_unit const unit = f_layers.map_unit();
    if (faces != f_faces || unit != f_unit) {
        copy_layers(std::move(faces));
        f_unit = unit;
        vx_scn_2d_set_unit(f_scene, unit.is_degree, unit.metres);
        vx_scn_2d_set_izotropic(f_scene, true);
        ++f_revision;
    }
    open_other_scenes();
}

std::vector<Tvx_layout_sync::face> Tvx_layout_sync::make_faces() const
{
    std::vector<face> faces;
    for (int row = f_layers.count() - 1; row >= 0; --row)
        faces.push_back({{f_layers.id_at(row), f_layers.revision_at(row)},
                         f_layers.is_visible(row),
                         f_layers.name_at(row)});
    return faces;
}

/// What has not changed is not cloned again: its clone is the same.
void Tvx_layout_sync::copy_layers(std::vector<face> faces)
{
    std::vector<Tvx_layer_list::layer_ptr> former;
    while (vx_scn_2d_get_count(f_scene) > 0)
        former.emplace_back(vx_scn_2d_extract(f_scene, 0));
    for (face const &f : faces) {
        auto const found = std::ranges::find(f_faces, f.layer, &face::layer);
        Tvx_layer_list::layer_ptr layer;
        if (found != f_faces.end())
            layer = std::move(former[std::size_t(found - f_faces.begin())]);
        if (!layer)
            layer.reset(vx_lr2d_clone(f_layers.layer_at(f_layers.row_of(f.layer.id))));
        vx_lr2d_set_visible(layer.get(), f.visible);
        vx_lr2d_set_wcaption(layer.get(), f.name.toStdWString().c_str());
        if (vx_scn_2d_insert(f_scene, vx_scn_2d_get_count(f_scene), layer.get()))
            static_cast<void>(layer.release());
    }
    f_faces = std::move(faces);
}

void Tvx_layout_sync::open_other_scenes()
{
    std::erase_if(f_opened, [](Ivx_scn_2d *scene) { return index_of(scenes(), scene) < 0; });
    for (int i = 0; i < vx_scns_2d_get_count(scenes()); ++i) {
        Ivx_scn_2d *const scene = vx_scns_2d_get_scn(scenes(), i);
        if (scene == f_scene || std::ranges::find(f_opened, scene) != f_opened.end())
            continue;
        f_opened.push_back(scene);
        // Two of one name could not be told apart in a frame.
        if (caption_of(scene) == f_name)
            vx_scn_2d_set_wcaption(scene, (f_name + " 2").toStdWString().c_str());
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        std::optional<Tvx_map_unit> unit;
        for (int place = 0; place < vx_scn_2d_get_count(scene); ++place) {
            Tvx_scene_layer opened{Tvx_layer_list::layer_ptr(vx_scn_2d_extract(scene, place))};
            vx_map_scene_open_layer(opened, {});
            if (!unit)
                unit = opened.unit;
            if (opened.mark != c_mark_none)
                f_failed.append(vx_layer_name(opened.layer.get()));
            if (vx_scn_2d_insert(scene, place, opened.layer.get()))
                static_cast<void>(opened.layer.release());
        }
        QGuiApplication::restoreOverrideCursor();
        Tvx_box_d2 extent;
        if (!unit && vx_scn_2d_get_extent(scene, &extent))
            unit = vx_map_unit_guess(extent);
        if (unit)
            vx_scn_2d_set_unit(scene, unit->is_degree, unit->metres);
        ++f_revision;
    }
}
