#include "host/layout_printing.h"

#include "host/captions.h"
#include "host/layer_list.h"
#include "host/layout_sync.h"
#include "host/map_scene.h"

#include "platform/base/string_adp.h"
#include "platform/basic/vx_fault.h"
#include "platform/layers/vx_prj.h"
#include "platform/render/vx_layout_render.h"

#include <QStringList>

#include <cstdio>

namespace {
constexpr double c_raster_dpi = 300;

int fail(QString const &text)
{
    std::fprintf(stderr, "vx_map: %s\n", text.toLocal8Bit().constData());
    return 1;
}

int fail_for(QString const &reason)
{
    auto const parts = vx_reason_split(reason.toStdWString());
    return fail(QString::fromStdWString(parts.details.empty() ? parts.sentence
                                                              : parts.sentence + L"\n" + parts.details));
}

QString name_of(Ivx_scn_2d const *layout)
{
    std::wstring name;
    vx_scn_2d_get_wcaption(layout, Tvx_std_wstring_adapter(name));
    return QString::fromStdWString(name);
}

/// Null when there is none.
Ivx_scn_2d *find(Ivx_scns_2d const *layouts, QString const &name)
{
    int const count = vx_scns_2d_get_count(layouts);
    if (name.isEmpty() && count == 1)
        return vx_scns_2d_get_scn(layouts, 0);
    for (int i = 0; i < count; ++i)
        if (name_of(vx_scns_2d_get_scn(layouts, i)) == name)
            return vx_scns_2d_get_scn(layouts, i);
    return nullptr;
}
} // namespace

int vx_layout_print(QString const &map, QString const &layout, QString const &pdf)
{
    Ivx_scns_2d *const layouts = vx_prj_get_layouts_data_ptr(vx_prj_get_instance());
    Tvx_scene_list_ptr const others(vx_scns_2d_create());
    Tvx_loaded_scene scene = vx_map_scene_load(map, layouts, others.get());
    if (!scene.error.isEmpty())
        return fail_for(scene.error);
    Ivx_scn_2d *const page = find(layouts, layout);
    if (!page) {
        QStringList names;
        for (int i = 0; i < vx_scns_2d_get_count(layouts); ++i)
            names.append(name_of(vx_scns_2d_get_scn(layouts, i)));
        return fail(vx_layout_caption(c_lay_line_no_layout).arg(layout, map, names.join(", ")));
    }
    vx_scns_2d_set_active_scn(layouts, page);
    Tvx_layer_list layers;
    int result = 0;
    for (Tvx_scene_layer &opened : scene.layers) {
        vx_map_scene_open_layer(opened, {});
        if (!opened.reason.isEmpty())
            result = fail_for(opened.reason);
        layers.add(std::move(opened.layer), opened.unit);
    }
    Tvx_layout_sync sync(layers, scene.name);
    sync.take_other_scenes(*others);
    sync.refresh();
    if (QStringList const failed = sync.take_failed(); !failed.isEmpty())
        result = fail(vx_layout_caption(c_lay_scene_failed).arg(failed.join(", ")));
    std::wstring reason;
    if (vx_layout_save_pdf_w(page, pdf.toStdWString().c_str(), c_raster_dpi,
                             Tvx_std_wstring_adapter(reason)) != c_layout_written ||
        !reason.empty())
        result = fail_for(QString::fromStdWString(reason));
    return result;
}
