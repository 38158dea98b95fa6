#include "platform/layers/vx_prj.h"

#include "platform/layers/detail/scene.h"

#include <algorithm>
#include <string_view>

struct Ivx_prj
{
    Ivx_scns_2d scenes;
    Ivx_scns_2d layouts;
    std::vector<Ivx_scns_2d *> plugin_scenes; ///< not owned
};

namespace {
Ivx_scn_2d *find(Ivx_scns_2d const &list, std::wstring_view name)
{
    auto const at = std::find_if(list.scenes.begin(), list.scenes.end(),
                                 [&](auto const &scene) { return scene->caption == name; });
    return at == list.scenes.end() ? nullptr : at->get();
}
} // namespace

Ivx_prj *vx_prj_get_instance()
{
    // Never destroyed: at the end of the process the modules that its layers read by may be gone.
    static Ivx_prj *const one = new Ivx_prj;
    return one;
}

Ivx_scns_2d *vx_prj_get_scns_2d_ptr(Ivx_prj *project)
{
    return project ? &project->scenes : nullptr;
}

Ivx_scns_2d *vx_prj_get_layouts_data_ptr(Ivx_prj *project)
{
    return project ? &project->layouts : nullptr;
}

int vx_prj_get_plugin_scns_2d_count(Ivx_prj const *project)
{
    return project ? static_cast<int>(project->plugin_scenes.size()) : 0;
}

Ivx_scns_2d *vx_prj_get_plugin_scns_2d_ptr(Ivx_prj *project, int index)
{
    return index >= 0 && index < vx_prj_get_plugin_scns_2d_count(project)
               ? project->plugin_scenes[static_cast<std::size_t>(index)]
               : nullptr;
}

void vx_prj_add_plugin_scns_2d(Ivx_prj *project, Ivx_scns_2d *scenes)
{
    if (project && scenes &&
        std::ranges::find(project->plugin_scenes, scenes) == project->plugin_scenes.end())
        project->plugin_scenes.push_back(scenes);
}

void vx_prj_remove_plugin_scns_2d(Ivx_prj *project, Ivx_scns_2d *scenes)
{
    if (project)
        std::erase(project->plugin_scenes, scenes);
}

Ivx_scn_2d *vx_prj_find_scn_2d_w(Ivx_prj *project, wchar_t const *name)
{
    if (!project || !name || !*name)
        return nullptr;
    auto *found = find(project->scenes, name);
    for (std::size_t i = 0; !found && i < project->plugin_scenes.size(); ++i)
        found = find(*project->plugin_scenes[i], name);
    return found;
}
