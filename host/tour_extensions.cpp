#include "controls/forms/apply_form.h"
#include "controls/forms/pages.h"
#include "exports/vxk_lr2d_edit_form_api.h"
#include "host/layer_editor.h"
#include "host/layer_list.h"
#include "host/map_window.h"
#include "host/tour.h"
#include "host/tour_controls.h"
#include "layer_edit/form/lr2d_edit_form.h"
#include "style_manager/shell/stl_mngr_edit.h"
#include "user_input/user_input.h"

#include "platform/basic/vx_bundle.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/toolkit/controls/button.h"
#include "platform/toolkit/core/form.h"
#include "platform/toolkit/core/key_codes.h"

#include <QCoreApplication>
#include <QDir>

namespace input = vx::user_input;

namespace {
/// Where the sample extensions lie, as seen from the program.
QString samples()
{
    return QDir(QCoreApplication::applicationDirPath()).absoluteFilePath(VX_MAP_SAMPLES);
}

/// The page whose component name begins so.
TTabSheet *find_page(TPageControl *pages, std::wstring_view name)
{
    for (int i = 0; pages && i < pages->GetPageCount(); ++i)
        if (std::wstring_view(pages->GetPages(i)->GetName().c_str()).starts_with(name))
            return pages->GetPages(i);
    return nullptr;
}
/// By the arrow keys, since not all tabs need have room.
bool walk_to(TPageControl *pages, TTabSheet *page)
{
    if (!input::click_tab(pages, 0))
        return false;
    for (int i = 0; i < pages->GetPageCount() && pages->GetActivePage() != page; ++i)
        input::press(VK_RIGHT);
    return pages->GetActivePage() == page;
}
} // namespace

/// The tabs that the sample extension adds: it is found, shows its fields, and what is edited there is the
/// layer's style.
void Tvx_tour::show_extensions()
{
    remove_all_layers();
    vx_bundles_add_directory(samples().toStdWString().c_str());
    if (!open_example({"world.shp"}))
        return;
    open_properties_of(0);
    auto *const form = f_window.editor().handle() ? f_window.editor().handle()->get_form() : nullptr;
    auto *const pages = form ? vx_tour_find<Tvx_page_control>(form) : nullptr;
    auto const open_tab = [&](wchar_t const *name) {
        TTabSheet *const page = find_page(pages, name);
        bool const is_open = page && page->GetTabVisible() && walk_to(pages, page);
        check(is_open, "the extension has no tab " + QString::fromWCharArray(name));
        return is_open ? page : nullptr;
    };
    auto *const fields = open_tab(L"_StyleEditor_");
    auto *const edit = fields ? vx_tour_find<Tvx_stl_mngr_edit>(fields) : nullptr;
    if (!edit)
        return check(false, "the extension shows no styles");
    check(input::choose_item(edit->get_mode_edit()->get_combo_box(), c_style_mode_value),
          "the mode cannot be chosen");
    check(input::choose_item(edit->get_val_edit()->get_prp_scale()->get_combo_box(), 1),
          "the extension offers no second field");
    shoot_editor("extension_fields");
    apply();
    check(vx_stl_mngr_get_mode(vx_shp_lr2d_get_stl_mngr_ptr(f_window.layers().layer_at(0))) ==
              c_style_mode_value,
          "Apply does not bring the extension's work to the map");
    for (auto const &[name, picture] :
         {std::pair(L"_DTLDEditor_", "extension_labels"),
          std::pair(L"_TextSettingsEditor_", "extension_texts"), std::pair(L"layer_desk", "extension_desk")})
        if (open_tab(name))
            shoot_editor(picture);
    auto *const put = vx_tour_find<TButton>(find_page(pages, L"layer_desk"));
    check(put && input::click(put), "the extension's panel has no button");
    if (open_tab(L"_StyleListEditor_"))
        shoot_editor("extension_shelf");
    f_window.editor().close();
}
