#include "fuzz/memory_file.h"

#include "platform/base/owned.h"
#include "platform/layers/vx_layout_lr2d.h"
#include "platform/layers/vx_scn_2d.h"
#include "platform/storage/vx_scn_2d_file.h"

#include <cmath>
#include <fstream>
#include <iterator>

namespace {
using owned_scene = vx::owned<Ivx_scn_2d, &vx_scn_2d_destroy>;
using owned_scenes = vx::owned<Ivx_scns_2d, &vx_scns_2d_destroy>;

std::string bytes_of(saved_file const &file)
{
    std::wstring const path = file.path();
    std::ifstream in(std::string(path.begin(), path.end()), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// What is computed from an element's settings stays a number.
void check(Ivx_layer *element)
{
    Tvx_box_d2 const box = vx_layout_lr2d_get_box(element);
    if (!vx_layout_lr2d_is(element))
        return must(box.is_empty());
    must(box.width() > 0 && box.height() > 0);
    must(box.width() <= c_layout_longest_side * 1.001 && std::abs(box.min_x) <= c_layout_farthest_place);
    Tvx_box_d2 const world = vx_layout_scene_frame_lr2d_get_world(element);
    must(world.is_empty() || (std::isfinite(world.width()) && world.width() > 0 && world.height() > 0));
}
} // namespace

// What can be read as a scene with its layouts comes back from a file of our own, which is the same as the
// one that is then made of it.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const *data, std::size_t size)
{
    static memory_file file;
    static saved_file again;
    file.set(data, size);
    owned_scene const scene(vx_scn_2d_create(L"scene"));
    owned_scenes const layouts(vx_scns_2d_create());
    bool const loaded =
        vx_xml_data_load_scn2d_layouts_w(nullptr, file.path().c_str(), scene.get(), layouts.get());
    owned_scene const alone(vx_scn_2d_create(L"scene"));
    must(vx_xml_data_load_scn2d_w(nullptr, file.path().c_str(), alone.get()) == loaded);
    must(vx_scn_2d_get_count(alone.get()) == vx_scn_2d_get_count(scene.get()));
    if (!loaded)
        return 0;
    for (int i = 0; i < vx_scns_2d_get_count(layouts.get()); ++i) {
        auto *const layout = vx_scns_2d_get_scn(layouts.get(), i);
        for (int j = 0; j < vx_scn_2d_get_count(layout); ++j)
            check(vx_scn_2d_get_layer(layout, j));
    }
    must(vx_xml_data_save_scn2d_layouts_w(nullptr, again.path().c_str(), scene.get(), layouts.get()));
    std::string const first = bytes_of(again);
    must(vx_xml_data_load_scn2d_layouts_w(nullptr, again.path().c_str(), scene.get(), layouts.get()));
    must(vx_xml_data_save_scn2d_layouts_w(nullptr, again.path().c_str(), scene.get(), layouts.get()));
    must(bytes_of(again) == first);
    return 0;
}
