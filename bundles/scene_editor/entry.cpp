#include "captions/scene.h"
#include "mngr_list_dlg.h"
#include "styles/simple/style_dialog.h"
#include "txt_common_dlg.h"
#include "txt_style_dlg.h"

#include "platform/basic/vx_bundle.h"
#include "platform/styles/vx_stl_mngr.h"

#include <string_view>

// The dialogs behind the exported style dialogs, found by name in this module. No exception leaves them, and
// what the caller gave changes only when the user accepted.

namespace {
template <class Run>
bool guarded(void *object, Run run) noexcept
{
    try {
        return object && run();
    } catch (...) {
        return false;
    }
}

bool edit_text(int caption, int x, int y, void *style, void *properties) noexcept
{
    return guarded(style, [=] {
        Tvx_txt_style_dlg dialog(caption);
        dialog.set_txt_style(style, properties);
        if (dialog.show_pos(x, y) != mrOk)
            return false;
        dialog.get_txt_style(style);
        return true;
    });
}
} // namespace

/// It offers dialogs only, so there is nothing to register.
VX_C_API bool vxk_bundle_entry(Tvx_bundle_context const *context)
{
    return context && context->version == c_vx_bundle_version;
}

VX_C_API bool vx_pnt_style_dialog__impl(int x, int y, void *style)
{
    return vx_pnt_style_dialog_vcl(x, y, style);
}

VX_C_API bool vx_pln_style_dialog__impl(int x, int y, void *style)
{
    return vx_pln_style_dialog_vcl(x, y, style);
}

VX_C_API bool vx_pgn_style_dialog__impl(int x, int y, void *style)
{
    return vx_pgn_style_dialog_vcl(x, y, style);
}

VX_C_API bool vx_txt_pnt_style_dialog__impl(int x, int y, void *style, void *properties)
{
    return edit_text(c_scn_dlg_txt_pnt, x, y, style, properties);
}

VX_C_API bool vx_txt_pln_style_dialog__impl(int x, int y, void *style, void *properties)
{
    return edit_text(c_scn_dlg_txt_pln, x, y, style, properties);
}

VX_C_API bool vx_txt_pgn_style_dialog__impl(int x, int y, void *style, void *properties)
{
    return edit_text(c_scn_dlg_txt_pgn, x, y, style, properties);
}

/// False for a manager of other styles than texts.
VX_C_API bool vx_txt_common_style_dialog__impl(int x, int y, void *style)
{
    return guarded(style, [=] {
        char const *const type = vx_stl_mngr_get_style_type(style);
        if (!type || !std::string_view(type).starts_with("txt_"))
            return false;
        Tvx_txt_common_dlg dialog;
        dialog.set_manager(style);
        if (dialog.show_pos(x, y) != mrOk)
            return false;
        dialog.write_to(style);
        return true;
    });
}

VX_C_API bool vx_stl_mngr_list_setting_dialog__impl(int x, int y, void *list)
{
    return guarded(list, [=] {
        Tvx_mngr_list_dlg dialog(list);
        if (dialog.show_pos(x, y) != mrOk)
            return false;
        vx_stl_mngr_list_assign(list, dialog.get_list());
        return true;
    });
}
