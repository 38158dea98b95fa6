#include "host/map_scene.h"

#include "host/captions.h"
#include "host/layer_files.h"
#include "host/layer_style.h"

#include "platform/base/string_adp.h"
#include "platform/basic/vx_fault.h"
#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_rtr_lr2d.h"
#include "platform/layers/vx_scn_2d.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/layers/vx_tos_lr2d.h"
#include "platform/storage/vx_scn_2d_file.h"

#include <QDir>
#include <QFileInfo>
#include <QMap>

namespace {
using scene_ptr = vx::owned<Ivx_scn_2d, &vx_scn_2d_destroy>;
using xml_ptr = vx::owned<Ivx_xml_data, &vx_xml_data_destroy>;

constexpr QLatin1String c_suffix("_.sn");
constexpr QLatin1String c_short_suffix(".sn");
constexpr QLatin1String c_password_place("***");

QString source_of(Ivx_layer const *layer)
{
    std::wstring source;
    vx_lr2d_get_wfilename(layer, Tvx_std_wstring_adapter(source));
    return QString::fromStdWString(source);
}

/// Only what is no file of this computer has a password.
bool wants_password(QString const &source)
{
    return source.contains(c_password_place) && !source.startsWith('/') && !source.startsWith("*/");
}

void miss(Tvx_scene_layer &layer, QString const &reason)
{
    layer.mark = c_mark_missing;
    layer.reason = reason;
}

void open_vector(Tvx_scene_layer &scene, std::optional<Tvx_box_d2> const &view)
{
    std::wstring error;
    Tvx_layer_list::layer_ptr opened(vx_shp_lr2d_open(source_of(scene.layer.get()).toStdWString().c_str(),
                                                      Tvx_std_wstring_adapter(error)));
    if (!opened)
        return miss(scene, QString::fromStdWString(error));
    vx_lr2d_set_wcaption(opened.get(), vx_layer_name(scene.layer.get()).toStdWString().c_str());
    vx_lr2d_set_visible(opened.get(), vx_lr2d_get_visible(scene.layer.get()));
    if (!vx_layer_copy_style(opened.get(), scene.layer.get())) {
        vx_layer_set_default_style(opened.get());
        scene.reason = vx_map_caption(c_map_err_other_kind);
    }
    scene.layer = std::move(opened);
    scene.unit = vx_layer_files_read(scene.layer.get(), view);
}

void open_properties(Tvx_scene_layer &scene)
{
    std::wstring error, projection;
    if (!vx_tos_lr2d_attach(scene.layer.get(), Tvx_std_wstring_adapter(error)))
        return miss(scene, QString::fromStdWString(error));
    vx_tos_lr2d_get_proj4(scene.layer.get(), Tvx_std_wstring_adapter(projection));
    scene.unit = vx_map_unit_from_proj4(projection);
}

std::wstring absolute(QString const &path)
{
    return QFileInfo(path).absoluteFilePath().toStdWString();
}

scene_ptr make_scene(Tvx_layer_list const &layers, Tvx_canvas_view const &view,
                     Tvx_scene_layouts const &layouts)
{
    // The name is in the file for the frames of its layouts alone: a map is called as its file.
    bool const has_layouts = vx_scns_2d_get_count(layouts.layouts) > 0;
    scene_ptr scene(vx_scn_2d_create(has_layouts ? layouts.map_name.toStdWString().c_str() : L""));
    vx_scn_2d_set_view(scene.get(), view.center(), view.units_per_pixel());
    for (int row = layers.count() - 1; row >= 0; --row) {
        Tvx_layer_list::layer_ptr copy(vx_lr2d_clone(layers.layer_at(row)));
        if (vx_scn_2d_insert(scene.get(), vx_scn_2d_get_count(scene.get()), copy.get()))
            static_cast<void>(copy.release());
    }
    return scene;
}
} // namespace

bool vx_map_scene_is_name(QString const &path)
{
    return path.endsWith(c_short_suffix, Qt::CaseInsensitive);
}

QString vx_map_scene_with_suffix(QString const &path)
{
    return vx_map_scene_is_name(path) ? path : path + c_suffix;
}

QString vx_map_scene_name(QString const &path)
{
    QString name = QFileInfo(path).fileName();
    for (QLatin1String const suffix : {c_suffix, c_short_suffix})
        if (name.size() > suffix.size() && name.endsWith(suffix, Qt::CaseInsensitive))
            return name.chopped(suffix.size());
    return name;
}

Tvx_loaded_scene vx_map_scene_load(QString const &path, Ivx_scns_2d *layouts, Ivx_scns_2d *other_scenes)
{
    Tvx_loaded_scene result;
    scene_ptr const scene(vx_scn_2d_create(L""));
    xml_ptr const xml(vx_xml_save_style_create());
    if (!vx_xml_data_load_scn2d_layouts_w(xml.get(), absolute(path).c_str(), scene.get(), layouts,
                                          other_scenes)) {
        std::wstring error;
        vx_xml_data_get_error_w(xml.get(), Tvx_std_wstring_adapter(error));
        result.error = QString::fromStdWString(error);
        return result;
    }
    std::wstring name;
    vx_scn_2d_get_wcaption(scene.get(), Tvx_std_wstring_adapter(name));
    result.name = QString::fromStdWString(name);
    Tvx_pnt_d2 center{};
    double pixel = 0;
    if (vx_scn_2d_get_view(scene.get(), &center, &pixel)) {
        Tvx_canvas_view view;
        view.set_center(center);
        view.set_units_per_pixel(pixel);
        result.view = view;
    }
    while (vx_scn_2d_get_count(scene.get()) > 0)
        result.layers.push_back({Tvx_layer_list::layer_ptr(vx_scn_2d_extract(scene.get(), 0))});
    return result;
}

void vx_map_scene_ask_passwords(std::vector<Tvx_scene_layer> &layers, Tvx_password_question const &ask)
{
    QMap<QString, std::optional<QString>> known;
    for (Tvx_scene_layer &scene : layers) {
        QString source = source_of(scene.layer.get());
        if (!wants_password(source))
            continue;
        QString const server = source.section('|', 0, 0);
        if (!known.contains(server))
            known.insert(server, ask(server));
        if (std::optional<QString> const password = known.value(server)) {
            source.replace(c_password_place, *password);
            vx_lr2d_set_wfilename(scene.layer.get(), source.toStdWString().c_str());
        }
    }
}

void vx_map_scene_open_layer(Tvx_scene_layer &scene, std::optional<Tvx_box_d2> const &view)
{
    QString const source = source_of(scene.layer.get());
    if (source.isEmpty())
        return;
    if (wants_password(source))
        return miss(scene, vx_map_caption(c_map_err_password));
    if (vx_lr2d_is_shp(scene.layer.get()))
        return open_vector(scene, view);
    if (vx_lr2d_is_tos(scene.layer.get()))
        return open_properties(scene);
    if (vx_lr2d_get_lr_type(scene.layer.get()) != std::string_view(c_lr_key_rtr))
        return;
    QString error, flaw;
    scene.unit = vx_layer_files_raster_unit(source, error, flaw);
    if (!error.isEmpty())
        return miss(scene, error);
    if (flaw.isEmpty())
        return;
    scene.mark = c_mark_damaged;
    scene.flaw = flaw;
}

bool vx_map_scene_save(QString const &path, Tvx_layer_list const &layers, Tvx_canvas_view const &view,
                       Tvx_scene_layouts const &layouts)
{
    scene_ptr const scene = make_scene(layers, view, layouts);
    xml_ptr const xml(vx_xml_save_style_create());
    return vx_xml_data_save_scn2d_layouts_w(xml.get(), absolute(path).c_str(), scene.get(), layouts.layouts,
                                            layouts.other_scenes);
}

std::string vx_map_scene_bytes(QString const &path, Tvx_layer_list const &layers, Tvx_canvas_view const &view,
                               Tvx_scene_layouts const &layouts)
{
    return vx_scn2d_layouts_bytes_w(absolute(path).c_str(), make_scene(layers, view, layouts).get(),
                                    layouts.layouts, layouts.other_scenes);
}
