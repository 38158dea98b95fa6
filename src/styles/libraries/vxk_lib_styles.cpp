#include "styles/libraries/vxk_lib_styles.h"

#include "captions/libraries.h"
#include "styles/libraries/libs_select_panel.h"
#include "styles/libraries/style_libs_form.h"

#include "platform/base/string_adp.h"
#include "platform/basic/vx_res.h"
#include "platform/dialogs/vx_msgs.h"
#include "platform/styles/vx_global_lib_styles.h"
#include "platform/toolkit/core/screen.h"

#include <memory>
#include <string>

namespace {
/// The hourglass while it lives.
class wait_cursor
{
public:
    wait_cursor() : f_former(Screen->GetCursor()) { Screen->SetCursor(crHourGlass); }
    wait_cursor(wait_cursor const &) = delete;
    wait_cursor &operator=(wait_cursor const &) = delete;
    ~wait_cursor() { Screen->SetCursor(f_former); }

private:
    TCursor f_former;
};

/// Tells once of each reading what could not be read.
void show_faults()
{
    std::wstring faults;
    Tvx_std_wstring_adapter adapter(faults);
    vx_global_lib_styles_take_faults(adapter);
    if (!faults.empty())
        vx_show_wwarning(vx_res_format_w(c_lib_unreadable, faults).c_str());
}

// A host in C cannot take an exception: what goes wrong counts as not taken.
bool take_style(void *style, void (Tvx_style_libs_form::*set_target)(void *)) noexcept
{
    if (!style)
        return false;
    try {
        bool const loaded = vx_call_vx_global_lib_styles_load();
        show_faults();
        if (!loaded) {
            Tvx_style_libs_form::no_libs_message();
            return false;
        }
        auto const form = std::make_unique<Tvx_style_libs_form>(nullptr);
        ((*form).*set_target)(style);
        form->get_libs_panel()->set_index(Tvx_style_libs_form::fs_lib); // filled once, with what is seen
        form->update_controls();
        form->set_last_params();
        return form->show_modal() == mrOk;
    } catch (...) {
        return false;
    }
}
} // namespace

bool vx_call_vx_global_lib_styles_load()
{
    wait_cursor const wait;
    return vx_global_lib_styles_load();
}

bool vxk_lib_styles_get_pnt(void *style)
{
    return take_style(style, &Tvx_style_libs_form::set_pnt_style);
}

bool vxk_lib_styles_get_pln(void *style)
{
    return take_style(style, &Tvx_style_libs_form::set_pln_style);
}

bool vxk_lib_styles_get_pgn(void *style)
{
    return take_style(style, &Tvx_style_libs_form::set_pgn_style);
}
