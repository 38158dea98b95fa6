#include "platform/storage/vx_scn_2d_file.h"

#include "platform/base/owned.h"
#include "platform/layers/detail/layer.h"
#include "platform/layers/layout_keys.h"
#include "platform/layers/vx_layout_lr2d.h"
#include "platform/layers/vx_lr2d.h"
#include "platform/layers/vx_scn_2d.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/layers/vx_tld_lr2d.h"
#include "platform/layers/vx_tos_lr2d.h"
#include "platform/storage/detail/cell_xml.h"
#include "platform/storage/detail/layout_xml.h"
#include "platform/storage/detail/mngr_xml.h"
#include "platform/storage/detail/storage_state.h"
#include "platform/storage/detail/stored_source.h"
#include "platform/storage/detail/tld_xml.h"
#include "platform/storage/detail/xml_element.h"
#include "platform/styles/vx_txt_settings.h"

#include <algorithm>
#include <set>
#include <string>
#include <string_view>
#include <vector>

using namespace vx::storage;

namespace {
constexpr char const *c_scene_root = "vx_scene";
constexpr char const *c_layer = "layer";
constexpr char const *c_view = "view";
constexpr char const *c_unit = "unit";
constexpr char const *c_layouts = "layouts";
constexpr char const *c_layout = "layout";
constexpr char const *c_other_scene = "scene";
constexpr char const *c_element = "element";
constexpr char const *c_styles = "managers";
constexpr char const *c_texts = "texts";
constexpr char const *c_raster = "raster";
constexpr char const *c_properties = "properties";
constexpr char const *c_labels = "labels";
/// 2 knows the view, the managers and how rasters are drawn, 3 the labels, 4 channels and layers of property
/// files, 5 units and layouts.
constexpr int c_version = 5;
constexpr int c_version_without_layouts = 4;
/// More layers than a map is made of, and than all layouts together have.
constexpr std::size_t c_most_layers = 10'000;
constexpr std::size_t c_most_layouts = 1000;
constexpr std::size_t c_most_others = 1000;
constexpr std::size_t c_longest_name = 32'767;

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

/// An element of a layout without a name of its own goes on being called after what it shows.
std::wstring caption_of(Ivx_layer const *layer)
{
    if (vx_layout_lr2d_is(layer))
        return layer->caption;
    return text_of([&](Ivx_string_adp *text) { vx_lr2d_get_wcaption(layer, text); });
}

/// `parent` is the number of the layer that a text layer belongs to, -1 for none.
void write_layer(xml_out element, Ivx_layer *layer, std::wstring const &folder, int parent)
{
    element.field("type", std::string(vx_lr2d_get_lr_type(layer)));
    element.field("caption", caption_of(layer));
    std::wstring const source = text_of([&](Ivx_string_adp *text) { vx_lr2d_get_wfilename(layer, text); });
    element.field("source", has_source(layer) ? stored_source(source, folder) : source);
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
    if (vx_layout_lr2d_is(layer))
        write_layout_element(element.child(c_element), layer);
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
    vx_lr2d_set_wfilename(layer.get(),
                          (has_source(layer.get()) ? found_source(source, folder) : source).c_str());
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
    if (vx_layout_lr2d_is(layer.get()) && element.at(c_element))
        read_layout_element(element.child(c_element), layer.get());
    element.finish();
    return layer;
}

// ---- scenes

void write_unit(xml_out &element, Ivx_scn_2d const *scene)
{
    bool const is_degree = vx_scn_2d_get_unit_is_degree(scene);
    double const metres = is_degree ? 1 : vx_scn_2d_get_unit_metres(scene, {});
    if (!is_degree && metres == 1)
        return;
    xml_out unit = element.child(c_unit);
    unit.field("degree", is_degree);
    unit.field("metres", metres);
    unit.finish();
}

void write_scene(xml_out &element, Ivx_scn_2d const *scene, std::wstring const &folder)
{
    element.field("caption", text_of([&](Ivx_string_adp *text) { vx_scn_2d_get_wcaption(scene, text); }));
    element.field("izotropic", vx_scn_2d_get_izotropic(scene));
    Tvx_pnt_d2 center{};
    double pixel = 0;
    if (vx_scn_2d_get_view(scene, &center, &pixel)) {
        xml_out view = element.child(c_view);
        view.field("x", center.x);
        view.field("y", center.y);
        view.field("pixel", pixel);
        view.finish();
    }
    write_unit(element, scene);
    for (int i = 0; i < vx_scn_2d_get_count(scene); ++i)
        write_layer(
            element.child(c_layer), vx_scn_2d_get_layer(scene, i), folder,
            vx_scn_2d_get_index(scene, vx_dtld_lr2d_get_parent_lr2d_ptr(vx_scn_2d_get_layer(scene, i))));
}

/// A scene of another file.
struct other_scene
{
    std::wstring name;
    std::wstring file;

    [[nodiscard]] bool is_good() const
    {
        return !name.empty() && name.size() <= c_longest_name && !file.empty() &&
               file.size() <= c_longest_name;
    }
};

/// Those that frames name, the first of each name.
std::vector<other_scene> others_in_use(Ivx_scn_2d const *scene, Ivx_scns_2d const *layouts,
                                       Ivx_scns_2d const *others, std::wstring const &folder)
{
    std::set<std::wstring> wanted;
    for (int i = 0; i < vx_scns_2d_get_count(layouts); ++i) {
        Ivx_scn_2d const *const layout = vx_scns_2d_get_scn(layouts, i);
        for (int place = 0; place < vx_scn_2d_get_count(layout); ++place)
            if (Ivx_layer *const frame = vx_scn_2d_get_layer(layout, place);
                vx_lr2d_get_lr_type(frame) == std::string_view(c_lr_key_layout_scene_frame))
                wanted.insert(text_of([&](Ivx_string_adp *text) { vx_lr2d_get_wfilename(frame, text); }));
    }
    wanted.erase(text_of([&](Ivx_string_adp *text) { vx_scn_2d_get_wcaption(scene, text); }));
    std::vector<other_scene> found;
    for (int i = 0; i < vx_scns_2d_get_count(others); ++i) {
        Ivx_scn_2d const *const other = vx_scns_2d_get_scn(others, i);
        std::wstring name = text_of([&](Ivx_string_adp *text) { vx_scn_2d_get_wcaption(other, text); });
        std::wstring const file =
            text_of([&](Ivx_string_adp *text) { vx_scn_2d_get_wfilename(other, text); });
        if (!name.empty() && !file.empty() && wanted.erase(name) > 0)
            found.push_back({std::move(name), stored_source(file, folder)});
    }
    return found;
}

void write_layouts(xml_out element, Ivx_scns_2d const *layouts, std::vector<other_scene> const &others,
                   std::wstring const &folder)
{
    int active = 0;
    for (int i = 0; i < vx_scns_2d_get_count(layouts); ++i)
        if (vx_scns_2d_get_scn(layouts, i) == vx_scns_2d_get_active_scn(layouts))
            active = i;
    element.field("active", active);
    for (int i = 0; i < vx_scns_2d_get_count(layouts); ++i) {
        xml_out layout = element.child(c_layout);
        write_scene(layout, vx_scns_2d_get_scn(layouts, i), folder);
        layout.finish();
    }
    for (other_scene const &other : others) {
        xml_out scene = element.child(c_other_scene);
        scene.field("name", other.name);
        scene.field("file", other.file);
        scene.finish();
    }
    element.finish();
}

/// Whether a file of all could be read again.
bool within_limits(Ivx_scn_2d const *scene, Ivx_scns_2d const *layouts,
                   std::vector<other_scene> const &others)
{
    std::size_t elements = 0;
    for (int i = 0; i < vx_scns_2d_get_count(layouts); ++i)
        elements += std::size_t(vx_scn_2d_get_count(vx_scns_2d_get_scn(layouts, i)));
    return std::size_t(vx_scn_2d_get_count(scene)) <= c_most_layers &&
           std::size_t(vx_scns_2d_get_count(layouts)) <= c_most_layouts && elements <= c_most_layers &&
           others.size() <= c_most_others && std::ranges::all_of(others, &other_scene::is_good);
}

/// The version of the file: as before where nothing is new, so that what knows no layouts reads it too.
int version_for(Ivx_scn_2d const *scene, Ivx_scns_2d const *layouts)
{
    bool is_new = vx_scns_2d_get_count(layouts) > 0 || vx_scn_2d_get_unit_is_degree(scene) ||
                  vx_scn_2d_get_unit_metres(scene, {}) != 1;
    for (int i = 0; i < vx_scn_2d_get_count(scene); ++i)
        is_new = is_new || vx_layout_lr2d_is(vx_scn_2d_get_layer(scene, i));
    return is_new ? c_version : c_version_without_layouts;
}

/// Empty when a file of all could not be read again.
std::string scene_bytes(Ivx_scn_2d const *scene, Ivx_scns_2d const *layouts, Ivx_scns_2d const *all_others,
                        std::wstring const &folder)
{
    auto const others = others_in_use(scene, layouts, all_others, folder);
    if (!within_limits(scene, layouts, others))
        return {};
    xml_file file;
    xml_out root = file.make(c_scene_root, version_for(scene, layouts));
    write_scene(root, scene, folder);
    if (vx_scns_2d_get_count(layouts) > 0)
        write_layouts(root.child(c_layouts), layouts, others, folder);
    root.finish();
    return file.bytes();
}

struct scene_record
{
    std::wstring caption;
    bool izotropic = true;
    Tvx_pnt_d2 center{};
    double pixel = 0;
    bool unit_is_degree = false;
    double unit_metres = 1;
    std::vector<layer_ptr> layers;
    std::vector<int> parents; ///< of text layers: numbers of layers, -1 for none
};

struct file_record
{
    scene_record scene;
    std::vector<scene_record> layouts;
    std::vector<other_scene> others;
    int active = 0;
};

/// `room` is how many layers more may come.
void read_scene(xml_in &element, std::wstring const &folder, scene_record &scene, std::size_t &room)
{
    element.field("caption", scene.caption);
    element.field("izotropic", scene.izotropic);
    if (element.at(c_view)) {
        xml_in view = element.child(c_view);
        view.field("x", scene.center.x);
        view.field("y", scene.center.y);
        view.field("pixel", scene.pixel);
        if (!(scene.pixel > 0))
            view.fail();
        view.finish();
    }
    if (element.at(c_unit)) {
        xml_in unit = element.child(c_unit);
        unit.field("degree", scene.unit_is_degree);
        unit.field("metres", scene.unit_metres);
        if (!(scene.unit_metres > 0))
            unit.fail();
        unit.finish();
    }
    for (; element.good() && element.at(c_layer); --room) {
        if (room == 0)
            return element.fail();
        scene.layers.push_back(read_layer(element.child(c_layer), folder, scene.parents.emplace_back(-1)));
    }
}

void read_others(xml_in &element, std::wstring const &folder, file_record &record)
{
    std::set<std::wstring> names{record.scene.caption};
    while (element.good() && element.at(c_other_scene)) {
        xml_in scene = element.child(c_other_scene);
        other_scene other;
        scene.field("name", other.name);
        scene.field("file", other.file);
        scene.finish();
        if (record.others.size() == c_most_others || !other.is_good() || !names.insert(other.name).second)
            return element.fail();
        other.file = found_source(other.file, folder);
        record.others.push_back(std::move(other));
    }
}

void read_layouts(xml_in element, std::wstring const &folder, file_record &record)
{
    element.field("active", record.active);
    for (std::size_t room = c_most_layers; element.good() && element.at(c_layout);) {
        if (record.layouts.size() == c_most_layouts)
            return element.fail();
        xml_in layout = element.child(c_layout);
        read_scene(layout, folder, record.layouts.emplace_back(), room);
        layout.finish();
    }
    read_others(element, folder, record);
    if (record.active < 0 || record.active >= int(record.layouts.size()))
        element.fail();
    element.finish();
}

xml_fault read_file(std::string bytes, std::wstring const &folder, file_record &record)
{
    xml_file file;
    if (auto fault = file.parse(std::move(bytes), c_scene_root, c_version))
        return fault;
    reading state;
    xml_in root = file.root(state);
    std::size_t room = c_most_layers;
    read_scene(root, folder, record.scene, room);
    if (root.at(c_layouts))
        read_layouts(root.child(c_layouts), folder, record);
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
    vx_scn_2d_set_unit(scene, record.unit_is_degree, record.unit_metres);
    for (std::size_t i = 0; i < record.layers.size(); ++i)
        if (int const parent = record.parents[i]; parent >= 0 && parent < int(record.layers.size()))
            vx_dtld_lr2d_set_parent(record.layers[i].get(), record.layers[std::size_t(parent)].get());
    for (layer_ptr &layer : record.layers)
        if (vx_scn_2d_insert(scene, vx_scn_2d_get_count(scene), layer.get()))
            static_cast<void>(layer.release());
}

void clear(Ivx_scns_2d *scenes)
{
    for (int i = vx_scns_2d_get_count(scenes); i-- > 0;)
        vx_scns_2d_erase(scenes, i);
}

void fill_others(Ivx_scns_2d *others, file_record const &record)
{
    if (!others)
        return;
    clear(others);
    for (other_scene const &other : record.others)
        vx_scn_2d_set_wfilename(vx_scns_2d_add(others, other.name.c_str()), other.file.c_str());
}

void fill(Ivx_scns_2d *layouts, file_record &record)
{
    if (!layouts)
        return;
    clear(layouts);
    for (scene_record &layout : record.layouts)
        fill(vx_scns_2d_add(layouts, L""), layout);
    vx_scns_2d_set_active_scn(layouts, vx_scns_2d_get_scn(layouts, record.active));
}
} // namespace

bool vx_xml_data_load_scn2d_layouts_w(Ivx_xml_data *xml, wchar_t const *file, Ivx_scn_2d *scene,
                                      Ivx_scns_2d *layouts, Ivx_scns_2d *others)
{
    if (!scene && !layouts)
        return done(xml, fault_text({xml_fault::other}, file ? file : L""));
    std::wstring error;
    auto bytes = file_bytes(file, error);
    if (!bytes)
        return done(xml, error);
    file_record record;
    auto const fault = read_file(std::move(*bytes), folder_of(file), record);
    if (!fault) {
        fill(scene, record.scene);
        fill(layouts, record);
        fill_others(others, record);
    }
    return done(xml, fault_text(fault, file));
}

bool vx_xml_data_save_scn2d_layouts_w(Ivx_xml_data *xml, wchar_t const *file, Ivx_scn_2d const *scene,
                                      Ivx_scns_2d const *layouts, Ivx_scns_2d const *others)
{
    if (!scene && !layouts)
        return saved(xml, fault_text({xml_fault::other}, file ? file : L""));
    return saved(xml, save_bytes(file, scene_bytes(scene, layouts, others, folder_of(file ? file : L""))));
}

std::string vx_scn2d_layouts_bytes_w(wchar_t const *file, Ivx_scn_2d const *scene, Ivx_scns_2d const *layouts,
                                     Ivx_scns_2d const *others)
{
    return scene || layouts ? scene_bytes(scene, layouts, others, folder_of(file ? file : L""))
                            : std::string();
}

bool vx_xml_data_load_scn2d_w(Ivx_xml_data *xml, wchar_t const *file, Ivx_scn_2d *scene)
{
    return vx_xml_data_load_scn2d_layouts_w(xml, file, scene, nullptr);
}

bool vx_xml_data_save_scn2d_w(Ivx_xml_data *xml, wchar_t const *file, Ivx_scn_2d const *scene)
{
    return vx_xml_data_save_scn2d_layouts_w(xml, file, scene, nullptr);
}
