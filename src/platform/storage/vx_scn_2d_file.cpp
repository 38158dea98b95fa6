#include "platform/storage/vx_scn_2d_file.h"

#include "platform/base/owned.h"
#include "platform/layers/vx_lr2d.h"
#include "platform/layers/vx_scn_2d.h"
#include "platform/storage/detail/storage_state.h"
#include "platform/storage/detail/xml_element.h"

#include <string>
#include <vector>

using namespace vx::storage;

namespace {
constexpr char const *c_scene_root = "vx_scene";
constexpr char const *c_layer = "layer";

struct layer_record
{
    std::string type;
    std::wstring caption;
    std::wstring source;
    bool visible = true;
    bool own_selected_style = false;
};

struct scene_record
{
    std::wstring caption;
    bool izotropic = true;
    std::vector<layer_record> layers;
};

/// One description for reading and writing.
template <class Element, class Layer>
void describe(Element &element, Layer &layer)
{
    element.field("type", layer.type);
    element.field("caption", layer.caption);
    element.field("source", layer.source);
    element.field("visible", layer.visible);
    element.field("own_selected_style", layer.own_selected_style);
    element.finish();
}

template <class Get>
std::wstring text_of(Get get)
{
    std::wstring text;
    Tvx_std_wstring_adapter adapter(text);
    get(adapter);
    return text;
}

scene_record record_of(Ivx_scn_2d const *scene)
{
    scene_record record;
    record.caption = text_of([&](Ivx_string_adp *text) { vx_scn_2d_get_wcaption(scene, text); });
    record.izotropic = vx_scn_2d_get_izotropic(scene);
    for (int i = 0; i < vx_scn_2d_get_count(scene); ++i) {
        Ivx_layer const *const layer = vx_scn_2d_get_layer(scene, i);
        record.layers.push_back({vx_lr2d_get_lr_type(layer),
                                 text_of([&](Ivx_string_adp *text) { vx_lr2d_get_wcaption(layer, text); }),
                                 text_of([&](Ivx_string_adp *text) { vx_lr2d_get_wfilename(layer, text); }),
                                 vx_lr2d_get_visible(layer), vx_lr_get_own_selected_style_flag(layer)});
    }
    return record;
}

std::string scene_bytes(scene_record const &scene)
{
    xml_file file;
    xml_out root = file.make(c_scene_root);
    root.field("caption", scene.caption);
    root.field("izotropic", scene.izotropic);
    for (layer_record const &layer : scene.layers) {
        xml_out element = root.child(c_layer);
        describe(element, layer);
    }
    root.finish();
    return file.bytes();
}

xml_fault read_scene(std::string_view bytes, scene_record &scene)
{
    xml_file file;
    if (auto const fault = file.parse(bytes, c_scene_root); fault != xml_fault::none)
        return fault;
    reading state;
    xml_in root = file.root(state);
    root.field("caption", scene.caption);
    root.field("izotropic", scene.izotropic);
    while (state.good && root.at(c_layer)) {
        xml_in element = root.child(c_layer);
        layer_record layer;
        describe(element, layer);
        if (layer.type.empty())
            element.fail();
        scene.layers.push_back(std::move(layer));
    }
    root.finish();
    return state.good ? xml_fault::none : xml_fault::damaged;
}

void fill(Ivx_scn_2d *scene, scene_record const &record)
{
    while (vx_scn_2d_get_count(scene) > 0)
        vx_lr2d_destroy(vx_scn_2d_extract(scene, 0));
    if (!record.caption.empty())
        vx_scn_2d_set_wcaption(scene, record.caption.c_str());
    vx_scn_2d_set_izotropic(scene, record.izotropic);
    for (layer_record const &from : record.layers) {
        vx::owned<Ivx_layer, &vx_lr2d_destroy> layer(vx_lr2d_create(from.type.c_str()));
        vx_lr2d_set_wcaption(layer.get(), from.caption.c_str());
        vx_lr2d_set_wfilename(layer.get(), from.source.c_str());
        vx_lr2d_set_visible(layer.get(), from.visible);
        vx_lr_set_own_selected_style_flag(layer.get(), from.own_selected_style);
        if (vx_scn_2d_insert(scene, vx_scn_2d_get_count(scene), layer.get()))
            static_cast<void>(layer.release());
    }
}
} // namespace

bool vx_xml_data_load_scn2d_w(Ivx_xml_data *xml, wchar_t const *file, Ivx_scn_2d *scene)
{
    if (!scene)
        return done(xml, fault_text(xml_fault::other, file ? file : L""));
    std::wstring error;
    auto const bytes = file_bytes(file, error);
    if (!bytes)
        return done(xml, error);
    scene_record record;
    auto const fault = read_scene(*bytes, record);
    if (fault == xml_fault::none)
        fill(scene, record);
    return done(xml, fault_text(fault, file));
}

bool vx_xml_data_save_scn2d_w(Ivx_xml_data *xml, wchar_t const *file, Ivx_scn_2d const *scene)
{
    if (!scene)
        return saved(xml, fault_text(xml_fault::other, file ? file : L""));
    return saved(xml, save_bytes(file, scene_bytes(record_of(scene))));
}
