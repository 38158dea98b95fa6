#include "controls/forms/apply_form.h"
#include "controls/forms/pages.h"
#include "extension/plugin/plugin_lr_edit.h"
#include "host/layer_editor.h"
#include "host/layer_list.h"
#include "host/map_window.h"
#include "host/tour.h"
#include "host/tour_controls.h"
#include "layer_edit/form/lr2d_edit_form.h"
#include "user_input/user_input.h"

#include "platform/basic/vx_options.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/toolkit/controls/button.h"

#include <QCoreApplication>
#include <QDir>

#include <algorithm>

namespace input = vx::user_input;

namespace {
void use_plugins(wchar_t const *mask)
{
    vx_options_set_lr_2d_editor_plugin_mask(mask);
    vx_options_set_style_editor_plugin_mask(mask);
}
} // namespace

void Tvx_tour::leave_out_plugins()
{
    use_plugins(nullptr);
}

/// The sample plug-ins: a page of its own, and a style editor below the library's, whose work Apply brings to
/// the map.
void Tvx_tour::show_plugins()
{
    QDir const samples(QDir(QCoreApplication::applicationDirPath()).absoluteFilePath(VX_MAP_SAMPLES));
    if (!samples.exists())
        return;
    f_window.editor().close();
    use_plugins(samples.absoluteFilePath("*.so").toStdWString().c_str());
    remove_all_layers();
    if (!open_example({"nc.shp"}))
        return;
    open_properties_of(0);
    auto *const form = f_window.editor().handle() ? f_window.editor().handle()->get_form() : nullptr;
    auto *const pages = form ? vx_tour_find<Tvx_page_control>(form) : nullptr;
    auto *const plugins = pages ? vx_tour_find<Tvx_plugin_lr_edit>(pages->GetActivePage()) : nullptr;
    if (!plugins)
        return check(false, "the style editor shows no plug-in");
    check(input::click(vx_tour_find<TButton>(plugins)), "the table cannot be read");
    check(input::click(vx_tour_find<TButton>(plugins)), "the ranges cannot be made");
    shoot_editor("plugin_style");
    apply();
    check(vx_stl_mngr_get_mode(vx_shp_lr2d_get_stl_mngr_ptr(f_window.layers().layer_at(0))) ==
              c_stl_mngr_mode_range,
          "Apply does not bring the plug-in's work to the map");
    int last = 0;
    for (int i = 0; i < pages->GetPageCount(); ++i)
        last = std::max(last, pages->GetPages(i)->GetTabIndex());
    check(last > 0 && input::click_tab(pages, last), "the plug-in has no tab");
    shoot_editor("plugin_page");
    f_window.editor().close();
    leave_out_plugins();
}
