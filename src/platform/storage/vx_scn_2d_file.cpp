#include "platform/storage/vx_scn_2d_file.h"

#include "platform/base/owned.h"
#include "platform/layers/vx_lr2d.h"
#include "platform/layers/vx_scn_2d.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/layers/vx_tld_lr2d.h"
#include "platform/layers/vx_tos_lr2d.h"
#include "platform/storage/detail/cell_xml.h"
#include "platform/storage/detail/mngr_xml.h"
#include "platform/storage/detail/storage_state.h"
#include "platform/storage/detail/stored_source.h"
#include "platform/storage/detail/tld_xml.h"
#include "platform/storage/detail/xml_element.h"
#include "platform/styles/vx_txt_settings.h"

#include <string>
#include <vector>

using namespace vx::storage;

namespace {
constexpr char const *c_scene_root = "vx_scene";
constexpr char const *c_layer = "layer";
constexpr char const *c_view = "view";
constexpr char const *c_styles = "managers";
constexpr char const *c_texts = "texts";
constexpr char const *c_raster = "raster";
constexpr char const *c_properties = "properties";
constexpr char const *c_labels = "labels";
/// 2 knows the view, the managers and how rasters are drawn, 3 the labels, 4 channels and layers of property
/// files.
constexpr int c_version = 4;
/// More layers than a map is made of.
constexpr std::size_t c_most_layers = 10'000;

using layer_ptr = vx::owned<Ivx_layer, &vx_lr2d_destroy>;

template <class Get>
std::wstring text_of(Get get)
{
    std::wstring text;
    Tvx_std_wstring_adapter adapter(text);
    get(adapter);
    return text;
}

// ---- parts of a layer

vx::styles::stl_mngr_list *styles_of(Ivx_layer *layer)
{
    return static_cast<vx::styles::stl_mngr_list *>(vx_shp_lr2d_get_style_mngr_list_ptr(layer));
}

vx::styles::stl_mngr_list *texts_of(Ivx_layer *layer)
{
    void *const of_shape = vx_shp_lr2d_get_txt_settings(layer);
    return static_cast<vx::styles::stl_mngr_list *>(
        vx_txt_settings_get_stl_mngr_list(of_shape ? of_shape : vx_tos_2crd_lr2d_get_txt_settings(layer)));
}

/// The text layer inside a layer, or a layer that is one; null for others.
Ivx_layer *labels_of(Ivx_layer *layer)
{
    if (vx_dtld_lr2d_count_text_class(layer) > 0)
        return layer;
    auto *const of_shape = vx_shp_lr2d_get_text_layer_ptr(layer);
    return of_shape ? of_shape : vx_tos_2crd_lr2d_get_text_layer_ptr(layer);
}

// ---- layers

/// `parent` is the number of the layer that a text layer belongs to, -1 for none.
void write_layer(xml_out element, Ivx_layer *layer, std::wstring const &folder, int parent)
{
    element.field("type", std::string(vx_lr2d_get_lr_type(layer)));
    element.field("caption", text_of([&](Ivx_string_adp *text) { vx_lr2d_get_wcaption(layer, text); }));
    element.field(
        "source",
        stored_source(text_of([&](Ivx_string_adp *text) { vx_lr2d_get_wfilename(layer, text); }), folder));
    element.field("visible", vx_lr2d_get_visible(layer));
    element.field("own_selected_style", vx_lr_get_own_selected_style_flag(layer));
    if (vx_lr2d_is_shp(layer))
        write_mngr_list(element.child(c_styles), *styles_of(layer));
    if (auto const *const texts = texts_of(layer); texts && (texts->visible || !is_new(*texts)))
        write_mngr_list(element.child(c_texts), *texts);
    if (is_raster(layer))
        write_raster(element.child(c_raster), layer);
    if (vx_lr2d_is_tos(layer))
        write_properties(element.child(c_properties), layer);
    if (auto *const labels = labels_of(layer); labels && !has_new_text_classes(labels))
        write_text_layer(element.child(c_labels), labels, parent);
    element.finish();
}

/// What stands in a file of version 1 is optional; null, and the reading has failed, for a layer of no kind.
layer_ptr read_layer(xml_in element, std::wstring const &folder, int &parent)
{
    std::string type;
    std::wstring caption;
    std::wstring source;
    bool visible = true;
    bool own_selected_style = false;
    element.field("type", type);
    element.field("caption", caption);
    element.field("source", source);
    element.field("visible", visible);
    element.field("own_selected_style", own_selected_style);
    layer_ptr layer(vx_lr2d_create(type.c_str()));
    if (!layer) {
        element.fail();
        return layer;
    }
    vx_lr2d_set_wcaption(layer.get(), caption.c_str());
    vx_lr2d_set_wfilename(layer.get(), found_source(source, folder).c_str());
    vx_lr2d_set_visible(layer.get(), visible);
    vx_lr_set_own_selected_style_flag(layer.get(), own_selected_style);
    if (vx_lr2d_is_shp(layer.get()) && element.at(c_styles)) {
        xml_in styles = element.child(c_styles);
        read_mngr_list(styles, *styles_of(layer.get()));
    }
    if (auto *const texts = texts_of(layer.get()); texts && element.at(c_texts)) {
        xml_in styles = element.child(c_texts);
        read_mngr_list(styles, *texts);
    }
    if (is_raster(layer.get()) && element.at(c_raster))
        read_raster(element.child(c_raster), layer.get());
    if (vx_lr2d_is_tos(layer.get()) && element.at(c_properties))
        read_properties(element.child(c_properties), layer.get());
    if (auto *const labels = labels_of(layer.get()); labels && element.at(c_labels))
        read_text_layer(element.child(c_labels), labels, parent);
    element.finish();
    return layer;
}

// ---- scenes

std::string scene_bytes(Ivx_scn_2d const *scene, std::wstring const &folder)
{
    xml_file file;
    xml_out root = file.make(c_scene_root, c_version);
    root.field("caption", text_of([&](Ivx_string_adp *text) { vx_scn_2d_get_wcaption(scene, text); }));
    root.field("izotropic", vx_scn_2d_get_izotropic(scene));
    Tvx_pnt_d2 center{};
    double pixel = 0;
    if (vx_scn_2d_get_view(scene, &center, &pixel)) {
        xml_out view = root.child(c_view);
        view.field("x", center.x);
        view.field("y", center.y);
        view.field("pixel", pixel);
        view.finish();
    }
    for (int i = 0; i < vx_scn_2d_get_count(scene); ++i)
        write_layer(
            root.child(c_layer), vx_scn_2d_get_layer(scene, i), folder,
            vx_scn_2d_get_index(scene, vx_dtld_lr2d_get_parent_lr2d_ptr(vx_scn_2d_get_layer(scene, i))));
    root.finish();
    return file.bytes();
}

struct scene_record
{
    std::wstring caption;
    bool izotropic = true;
    Tvx_pnt_d2 center{};
    double pixel = 0;
    std::vector<layer_ptr> layers;
    std::vector<int> parents; ///< of text layers: numbers of layers, -1 for none
};

xml_fault read_scene(std::string bytes, std::wstring const &folder, scene_record &scene)
{
    xml_file file;
    if (auto fault = file.parse(std::move(bytes), c_scene_root, c_version))
        return fault;
    reading state;
    xml_in root = file.root(state);
    root.field("caption", scene.caption);
    root.field("izotropic", scene.izotropic);
    if (root.at(c_view)) {
        xml_in view = root.child(c_view);
        view.field("x", scene.center.x);
        view.field("y", scene.center.y);
        view.field("pixel", scene.pixel);
        if (!(scene.pixel > 0))
            view.fail();
        view.finish();
    }
    while (state.good && root.at(c_layer)) {
        scene.layers.push_back(read_layer(root.child(c_layer), folder, scene.parents.emplace_back(-1)));
        if (scene.layers.size() > c_most_layers)
            root.fail();
    }
    root.finish();
    return file.outcome(state);
}

void fill(Ivx_scn_2d *scene, scene_record &record)
{
    while (vx_scn_2d_get_count(scene) > 0)
        vx_lr2d_destroy(vx_scn_2d_extract(scene, 0));
    if (!record.caption.empty())
        vx_scn_2d_set_wcaption(scene, record.caption.c_str());
    vx_scn_2d_set_izotropic(scene, record.izotropic);
    vx_scn_2d_set_view(scene, record.center, record.pixel);
    for (std::size_t i = 0; i < record.layers.size(); ++i)
        if (int const parent = record.parents[i]; parent >= 0 && parent < int(record.layers.size()))
            vx_dtld_lr2d_set_parent(record.layers[i].get(), record.layers[std::size_t(parent)].get());
    for (layer_ptr &layer : record.layers)
        if (vx_scn_2d_insert(scene, vx_scn_2d_get_count(scene), layer.get()))
            static_cast<void>(layer.release());
}
} // namespace

bool vx_xml_data_load_scn2d_w(Ivx_xml_data *xml, wchar_t const *file, Ivx_scn_2d *scene)
{
    if (!scene)
        return done(xml, fault_text({xml_fault::other}, file ? file : L""));
    std::wstring error;
    auto bytes = file_bytes(file, error);
    if (!bytes)
        return done(xml, error);
    scene_record record;
    auto const fault = read_scene(std::move(*bytes), folder_of(file), record);
    if (!fault)
        fill(scene, record);
    return done(xml, fault_text(fault, file));
}

bool vx_xml_data_save_scn2d_w(Ivx_xml_data *xml, wchar_t const *file, Ivx_scn_2d const *scene)
{
    if (!scene)
        return saved(xml, fault_text({xml_fault::other}, file ? file : L""));
    return saved(xml, save_bytes(file, scene_bytes(scene, folder_of(file ? file : L""))));
}
