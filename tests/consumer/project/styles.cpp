// A program that uses the style dialogs without knowing who makes them: false while their module is not
// loaded, there once it is.
#include "exports/vxk_style_dialog_api.h"
#include "user_input/user_input.h"

#include "platform/styles/vx_global_lib_styles.h"
#include "platform/styles/vx_style.h"
#include "platform/styles/vx_style_lib.h"
#include "platform/winapi/library.h"

#include <cstdio>
#include <cstdlib>

namespace input = vx::user_input;

namespace {
void check(bool ok, char const *what)
{
    if (ok)
        return;
    std::fprintf(stderr, "%s\n", what);
    std::exit(1);
}
} // namespace

int main()
{
    check(vx_global_lib_styles_load(), "there are style libraries");
    check(vx_style_libs_get_size(vx_global_lib_styles_get_libs()) >= 4,
          "the starter libraries are installed");
    void *const style = vx_pnt_style_create();
    check(!vx_pnt_style_dialog(0, 0, style), "no module, no dialog");
    check(LoadLibraryW(L"vxk_scene2d_editor_bdl.dll") != nullptr, "the module is installed");

    input::on_next_modal([](input::modal_window const &window) { window.press_button(L"Cancel"); });
    check(!vx_pnt_style_dialog(0, 0, style), "Cancel is no");
    input::on_next_modal([](input::modal_window const &window) { window.press_button(L"Apply"); });
    check(vx_pnt_style_dialog(0, 0, style), "Apply is yes");
    check(input::pending_modals() == 0, "both dialogs came");
    vx_pnt_style_destroy(style);
    std::puts("styles: ok");
    return 0;
}
