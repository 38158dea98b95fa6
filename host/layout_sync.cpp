#include "host/layout_sync.h"

#include "host/layer_list.h"
#include "host/layout_elements.h"
#include "host/map_scene.h"

#include "platform/base/string_adp.h"
#include "platform/layers/layout_keys.h"
#include "platform/layers/vx_prj.h"
#include "platform/storage/vx_scn_2d_file.h"

#include <QGuiApplication>

#include <algorithm>
#include <utility>

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

QString file_of(Ivx_scn_2d const *scene)
{
    std::wstring file;
    vx_scn_2d_get_wfilename(scene, Tvx_std_wstring_adapter(file));
    return QString::fromStdWString(file);
}

/// Null for none.
Ivx_scn_2d *find(Ivx_scns_2d const *list, QString const &name)
{
    for (int i = 0; i < vx_scns_2d_get_count(list); ++i)
        if (caption_of(vx_scns_2d_get_scn(list, i)) == name)
            return vx_scns_2d_get_scn(list, i);
    return nullptr;
}

/// In all layouts of the project. True where there are some.
bool rename_in_frames(QString const &from, QString const &to)
{
    bool any = false;
    Ivx_scns_2d *const layouts = vx_prj_get_layouts_data_ptr(vx_prj_get_instance());
    for (int i = 0; i < vx_scns_2d_get_count(layouts); ++i) {
        Ivx_scn_2d *const layout = vx_scns_2d_get_scn(layouts, i);
        for (int place = 0; place < vx_scn_2d_get_count(layout); ++place) {
            Ivx_layer *const element = vx_scn_2d_get_layer(layout, place);
            if (!vx_layout_is(element, c_lr_key_layout_scene_frame) || vx_layout_file_of(element) != from)
                continue;
            vx_layout_set_file(element, to);
            any = true;
        }
    }
    return any;
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

std::vector<Tvx_layout_sync::renaming> Tvx_layout_sync::set_name(QString const &name)
{
    if (name == f_name)
        return {};
    std::vector<renaming> all = make_way(name);
    rename_in_frames(f_name, name);
    all.push_back({std::exchange(f_name, name), name});
    vx_scn_2d_set_wcaption(f_scene, name.toStdWString().c_str());
    return all;
}

QString Tvx_layout_sync::free_name(QString const &name) const
{
    QString free;
    int number = 2;
    do
        free = name + ' ' + QString::number(number++);
    while (free == f_name || find(f_absent.get(), free) ||
           vx_prj_find_scn_2d_w(vx_prj_get_instance(), free.toStdWString().c_str()));
    return free;
}

std::vector<Tvx_layout_sync::renaming> Tvx_layout_sync::make_way(QString const &name)
{
    std::vector<renaming> all;
    QString const free = free_name(name);
    for (Ivx_scns_2d *const list : {scenes(), f_absent.get()})
        for (int i = 0; i < vx_scns_2d_get_count(list); ++i) {
            Ivx_scn_2d *const scene = vx_scns_2d_get_scn(list, i);
            if (scene == f_scene || caption_of(scene) != name || is_leaving(scene))
                continue;
            vx_scn_2d_set_wcaption(scene, free.toStdWString().c_str());
            if (all.empty())
                all.push_back({name, free});
        }
    if (!all.empty())
        rename_in_frames(name, free);
    return all;
}

void Tvx_layout_sync::take_other_scenes(Ivx_scns_2d const &loaded)
{
    f_absent.reset(vx_scns_2d_create());
    for (int i = 0; i < vx_scns_2d_get_count(&loaded); ++i) {
        Ivx_scn_2d const *const scene = vx_scns_2d_get_scn(&loaded, i);
        vx_scn_2d_set_wfilename(vx_scns_2d_add(f_absent.get(), caption_of(scene).toStdWString().c_str()),
                                file_of(scene).toStdWString().c_str());
    }
    make_way(f_name);
    f_is_read = false;
}

Tvx_scene_list_ptr Tvx_layout_sync::other_scenes() const
{
    Tvx_scene_list_ptr all(vx_scns_2d_create());
    for (Ivx_scns_2d const *const list : {scenes(), f_absent.get()})
        for (int i = 0; i < vx_scns_2d_get_count(list); ++i) {
            Ivx_scn_2d *const scene = vx_scns_2d_get_scn(list, i);
            QString const file = file_of(scene);
            if (scene == f_scene || file.isEmpty() || is_leaving(scene))
                continue;
            vx_scn_2d_set_wfilename(vx_scns_2d_add(all.get(), caption_of(scene).toStdWString().c_str()),
                                    file.toStdWString().c_str());
        }
    return all;
}

void Tvx_layout_sync::forget_other_scenes()
{
    f_leaving.clear();
    for (int i = 0; i < vx_scns_2d_get_count(scenes()); ++i)
        if (Ivx_scn_2d *const scene = vx_scns_2d_get_scn(scenes(), i);
            scene != f_scene && !file_of(scene).isEmpty())
            f_leaving.push_back(scene);
    f_absent.reset(vx_scns_2d_create());
    f_is_read = true;
    f_failed.clear();
    if (!is_used())
        erase_leaving();
}

bool Tvx_layout_sync::is_leaving(Ivx_scn_2d const *scene) const
{
    return std::ranges::find(f_leaving, scene) != f_leaving.end();
}

void Tvx_layout_sync::erase_leaving()
{
    for (Ivx_scn_2d *const scene : std::exchange(f_leaving, {})) {
        std::erase(f_opened, scene);
        if (int const index = index_of(scenes(), scene); index >= 0)
            vx_scns_2d_erase(scenes(), index);
        ++f_revision;
    }
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
    erase_leaving();
    std::vector<face> faces = make_faces();
    Tvx_map_unit const unit = f_layers.map_unit();
    if (faces != f_faces || unit != f_unit) {
        copy_layers(std::move(faces));
        f_unit = unit;
        vx_scn_2d_set_unit(f_scene, unit.is_degree, unit.metres);
        vx_scn_2d_set_izotropic(f_scene, true);
        ++f_revision;
    }
    read_other_scenes();
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

void Tvx_layout_sync::read_other_scenes()
{
    if (std::exchange(f_is_read, true))
        return;
    for (int i = 0; i < vx_scns_2d_get_count(f_absent.get());) {
        Ivx_scn_2d const *const absent = vx_scns_2d_get_scn(f_absent.get(), i);
        std::wstring const file = file_of(absent).toStdWString();
        Ivx_scn_2d *const scene = vx_scns_2d_add(scenes(), L"");
        if (!vx_xml_data_load_scn2d_w(nullptr, file.c_str(), scene)) {
            vx_scns_2d_erase(scenes(), index_of(scenes(), scene));
            f_failed.append(file_of(absent));
            ++i;
            continue;
        }
        vx_scn_2d_set_wcaption(scene, caption_of(absent).toStdWString().c_str());
        vx_scn_2d_set_wfilename(scene, file.c_str());
        vx_scns_2d_erase(f_absent.get(), i);
    }
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
            if (opened.mark == c_mark_missing)
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
