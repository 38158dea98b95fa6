#include "styles/simple/style_dialog.h"

#include "styles/simple/style_dlgs.h"

#include "platform/dialogs/vx_dlgs.h"
#include "platform/styles/vx_style.h"
#include "platform/toolkit/core/application.h"
#include "platform/winapi/library.h"

// A host in C cannot take an exception: what goes wrong in a dialog counts as not accepted.
namespace {
constexpr wchar_t const *c_editor_module = L"vxk_scene2d_editor_bdl.dll";

template <class... Args>
bool forward(char const *entry, Args... args) noexcept
{
    try {
        using function = bool (*)(Args...);
        auto const run = reinterpret_cast<function>(GetProcAddress(GetModuleHandleW(c_editor_module), entry));
        return run && run(args...);
    } catch (...) {
        return false;
    }
}

template <class Dialog, auto Assign>
bool edit(int x, int y, void *style) noexcept
{
    if (!style)
        return false;
    try {
        Dialog dialog(nullptr);
        dialog.set_style(style);
        if (dialog.show_pos(x, y) != mrOk)
            return false;
        Assign(style, dialog.get_style());
        return true;
    } catch (...) {
        return false;
    }
}
} // namespace

bool vx_pnt_style_dialog(int x, int y, void *style)
{
    return forward("vx_pnt_style_dialog__impl", x, y, style);
}

bool vx_pln_style_dialog(int x, int y, void *style)
{
    return forward("vx_pln_style_dialog__impl", x, y, style);
}

bool vx_pgn_style_dialog(int x, int y, void *style)
{
    return forward("vx_pgn_style_dialog__impl", x, y, style);
}

bool vx_txt_pnt_style_dialog(int x, int y, void *style, void *properties)
{
    return forward("vx_txt_pnt_style_dialog__impl", x, y, style, properties);
}

bool vx_txt_pln_style_dialog(int x, int y, void *style, void *properties)
{
    return forward("vx_txt_pln_style_dialog__impl", x, y, style, properties);
}

bool vx_txt_pgn_style_dialog(int x, int y, void *style, void *properties)
{
    return forward("vx_txt_pgn_style_dialog__impl", x, y, style, properties);
}

bool vx_txt_common_style_dialog(int x, int y, void *style)
{
    return forward("vx_txt_common_style_dialog__impl", x, y, style);
}

bool vx_stl_mngr_list_setting_dialog(int x, int y, void *list)
{
    return forward("vx_stl_mngr_list_setting_dialog__impl", x, y, list);
}

bool vx_clr_style_dialog(int x, int y, Tvx_color *color)
{
    try {
        return vx_color_dialog(Application->GetHandle(), x, y, color, c_color_format_rgba);
    } catch (...) {
        return false;
    }
}

bool vx_pnt_style_dialog_vcl(int x, int y, void *style)
{
    return edit<Tvx_pnt_style_dlg, &vx_pnt_style_assign>(x, y, style);
}

bool vx_pln_style_dialog_vcl(int x, int y, void *style)
{
    return edit<Tvx_pln_style_dlg, &vx_pln_style_assign>(x, y, style);
}

bool vx_pgn_style_dialog_vcl(int x, int y, void *style)
{
    return edit<Tvx_pgn_style_dlg, &vx_pgn_style_assign>(x, y, style);
}
