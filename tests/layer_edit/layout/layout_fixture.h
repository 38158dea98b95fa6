#pragma once

#include "tests/controls/prop/prop_form.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/layers/layout_keys.h"
#include "platform/layers/vx_layout_lr2d.h"
#include "platform/layers/vx_prj.h"

/// A project with two scenes, of which "Profile" is not isotropic, and a layout with two frames.
class layout_project : public prop_form
{
protected:
    using owned_layer = vx::owned<Ivx_layer, &vx_lr2d_destroy>;

    layout_project()
    {
        town = vx_scns_2d_add(scenes, L"Town");
        profile = vx_scns_2d_add(scenes, L"Profile");
        vx_scn_2d_set_izotropic(profile, false);
        layout = vx_scns_2d_add(layouts, L"Sheet 1");
        vx_scns_2d_set_active_scn(layouts, layout);
        add_element(c_lr_key_layout_page, L"Page");
        add_element(c_lr_key_layout_scene_frame, L"Left", L"Town");
        add_element(c_lr_key_layout_text, L"Title");
        add_element(c_lr_key_layout_scene_frame, L"Right", L"Profile");
    }
    ~layout_project() override
    {
        for (auto *const list : {scenes, layouts})
            while (vx_scns_2d_get_count(list) > 0)
                vx_scns_2d_erase(list, 0);
    }

    Ivx_layer *add_element(char const *key, wchar_t const *name, wchar_t const *file = L"")
    {
        auto *const layer = vx_lr2d_create(key);
        vx_lr2d_set_wcaption(layer, name);
        vx_lr2d_set_wfilename(layer, file);
        vx_scn_2d_insert(layout, vx_scn_2d_get_count(layout), layer);
        return layer;
    }
    static owned_layer make_element(char const *key, wchar_t const *file = L"")
    {
        owned_layer layer(vx_lr2d_create(key));
        vx_lr2d_set_wfilename(layer.get(), file);
        return layer;
    }
    static std::wstring file_of(owned_layer const &layer)
    {
        std::wstring name;
        vx_lr2d_get_wfilename(layer.get(), Tvx_std_wstring_adapter(name));
        return name;
    }
    static std::pair<double, double> scale_of(owned_layer const &layer)
    {
        std::pair<double, double> scale;
        vx_layout_scene_frame_lr2d_get_scale(layer.get(), &scale.first, &scale.second);
        return scale;
    }

    Ivx_prj *project = vx_prj_get_instance();
    Ivx_scns_2d *scenes = vx_prj_get_scns_2d_ptr(project);
    Ivx_scns_2d *layouts = vx_prj_get_layouts_data_ptr(project);
    Ivx_scn_2d *town;
    Ivx_scn_2d *profile;
    Ivx_scn_2d *layout;
};
