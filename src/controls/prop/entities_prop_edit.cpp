#include "controls/prop/entities_prop_edit.h"

#include "captions/prop.h"
#include "data/filesystem/filesystem.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/basic/vx_fault.h"
#include "platform/basic/vx_res.h"
#include "platform/data/vx_entity.h"
#include "platform/dialogs/vx_dlgs.h"
#include "platform/dialogs/vx_msgs.h"
#include "platform/layers/vx_lr.h"
#include "platform/layers/vx_scn_2d.h"
#include "platform/storage/vx_scn_2d_file.h"
#include "platform/storage/vx_xml_save_2d.h"

#include <iterator>

namespace {
constexpr wchar_t c_scene_suffix[] = L"_.sn";

/// The file's name without path and suffix: the caption of a scene whose file names none.
std::wstring scene_name(std::wstring const &path)
{
    std::wstring name = vx::filesystem::filename(path);
    if (name.ends_with(c_scene_suffix))
        name.resize(name.size() - std::size(c_scene_suffix) + 1);
    return name;
}
std::wstring caption_of(Ivx_entity const *entity)
{
    std::wstring caption;
    Tvx_std_wstring_adapter adapter(caption);
    vx_entity_get_wcaption(entity, adapter);
    return caption;
}
} // namespace

wchar_t const *const Tvx_entities_prop_edit::c_add_scene_name = L"Добавить сцену...";

void Tvx_entities_prop_edit::create()
{
    Tvx_prop_edit::create();
    get_combo_box()->on_reselected = make_closure<&Tvx_entities_prop_edit::on_combo_box_reselected>(this);
}

void Tvx_entities_prop_edit::set_entities(Ivx_entities *list)
{
    f_lists.clear();
    add_entities(list);
    bind();
}

void Tvx_entities_prop_edit::add_entities(Ivx_entities *list)
{
    if (list)
        f_lists.push_back(list);
    bind();
}

void Tvx_entities_prop_edit::bind()
{
    set_on_data_open(make_closure<&Tvx_entities_prop_edit::on_open>(this));
    set_on_data_close(make_closure<&Tvx_entities_prop_edit::on_close>(this));
    set_on_data_get_np(make_closure<&Tvx_entities_prop_edit::on_get_np>(this));
    set_on_data_get_wprop(make_closure<&Tvx_entities_prop_edit::on_get_wprop>(this));
    set_on_data_get_capt_wprop(make_closure<&Tvx_entities_prop_edit::on_get_capt_wprop>(this));
}

void Tvx_entities_prop_edit::set_filter(char const *lr_type)
{
    f_filter = lr_type ? lr_type : "";
}

bool Tvx_entities_prop_edit::on_open(TObject * /*sender*/)
{
    return !f_lists.empty();
}

void Tvx_entities_prop_edit::on_close(TObject * /*sender*/)
{
}

unsigned Tvx_entities_prop_edit::on_get_np(TObject * /*sender*/)
{
    unsigned count = 1;
    for (Ivx_entities const *list : f_lists)
        count += static_cast<unsigned>(vx_entities_get_count(list));
    return count;
}

Ivx_entity *Tvx_entities_prop_edit::get_entity(unsigned prop) const
{
    auto index = static_cast<int>(prop) - 1;
    for (Ivx_entities const *list : f_lists) {
        int const count = vx_entities_get_count(list);
        if (index < count)
            return vx_entities_get_entity(list, index);
        index -= count;
    }
    return nullptr;
}

wchar_t const *Tvx_entities_prop_edit::on_get_wprop(TObject * /*sender*/, unsigned prop, bool &usable,
                                                    bool &numeric)
{
    numeric = false;
    if (prop == 0) {
        usable = f_can_add;
        return c_add_scene_name;
    }
    Ivx_entity *const entity = get_entity(prop);
    Ivx_layer const *const layer = vx_lr_safe_downcast(entity);
    usable = entity && (!layer || f_filter.empty() || vx_lr_get_lr_type(layer) == f_filter);
    if (!entity)
        return nullptr;
    Tvx_std_wstring_adapter name(f_name);
    vx_entity_get_wcaption(entity, name);
    return f_name.c_str();
}

wchar_t const *Tvx_entities_prop_edit::on_get_capt_wprop(TObject * /*sender*/, unsigned prop)
{
    // The row before has left the entity's caption there.
    return prop == 0 ? vx_res_get_wstr(c_caption_add_scene) : f_name.c_str();
}

void Tvx_entities_prop_edit::on_combo_box_reselected(TObject * /*sender*/)
{
    if (get_real_index() == 0)
        call_changed();
}

void Tvx_entities_prop_edit::call_changed()
{
    if (get_real_index() == 0 && !f_lists.empty() && !add_scene()) {
        set_prop_name(get_combo_box()->get_former_wname().c_str());
        return;
    }
    Tvx_prop_edit::call_changed();
}

bool Tvx_entities_prop_edit::add_scene()
{
    TPoint const corner = ClientToScreen({0, GetHeight()});
    UnicodeString const file = vx_open_file_dialog(GetHandle(), corner.X, corner.Y, c_scene_suffix,
                                                   vx_res_get_wstr(c_caption_open_scene), nullptr);
    if (file.IsEmpty())
        return false;
    Ivx_scns_2d *const scenes = vx_scns_2d_safe_downcast(f_lists.front());
    if (!scenes)
        return true;
    Ivx_scn_2d *const scene = vx_scns_2d_add(scenes, scene_name(file).c_str());
    vx::owned<Ivx_xml_data, &vx_xml_save_2d_destroy> const xml(vx_xml_save_2d_create());
    if (!vx_xml_data_load_scn2d_w(xml.get(), file.c_str(), scene)) {
        vx_scns_2d_erase(scenes, vx_scns_2d_get_count(scenes) - 1);
        std::wstring why;
        vx_xml_data_get_error_w(xml.get(), Tvx_std_wstring_adapter(why));
        vx_show_reason(vx_reason_make(vx_res_format_w(c_caption_scene_unreadable, file.str()), why).c_str());
        return false;
    }
    vx_scn_2d_set_wfilename(scene, file.c_str());
    int const row = vx_entities_get_count(f_lists.front());
    give_free_name(scene, static_cast<unsigned>(row));
    update_controls();
    set_real_index(row);
    return true;
}

void Tvx_entities_prop_edit::give_free_name(Ivx_scn_2d *scene, unsigned row)
{
    auto const is_taken = [&](std::wstring const &name) {
        for (unsigned i = 1; i < on_get_np(nullptr); ++i)
            if (i != row && caption_of(get_entity(i)) == name)
                return true;
        return false;
    };
    std::wstring const name = caption_of(get_entity(row));
    std::wstring free = name;
    for (int number = 2; is_taken(free); ++number)
        free = name + L' ' + std::to_wstring(number);
    vx_scn_2d_set_wcaption(scene, free.c_str());
}
