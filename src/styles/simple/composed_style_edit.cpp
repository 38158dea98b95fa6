#include "styles/simple/composed_style_edit.h"

#include "captions/dialogs.h"
#include "captions/simple.h"
#include "data/filesystem/filesystem.h"

#include "platform/basic/vx_res.h"
#include "platform/dialogs/file_dialogs.h"
#include "platform/dialogs/vx_msgs.h"
#include "platform/toolkit/core/new_on.h"
#include "platform/winapi/file.h"

namespace {
constexpr int c_side_margin = 6;
constexpr int c_lib_margin = 3;
} // namespace

Tvx_composed_style_edit::Tvx_composed_style_edit(TComponent *owner, composed_style const &style)
    : Tvx_style_edit(owner, style.type), f_functions(style),
      f_lib_panel(vx_new_for<Tvx_lib_stl_panel>(this, this)), f_open_dialog(new TOpenDialog(this)),
      f_save_dialog(new TSaveDialog(this))
{
    f_lib_panel->SetParent(this);
    f_lib_panel->SetAlignWithMargins(true);
    f_lib_panel->GetMargins()->SetBounds(c_side_margin, c_lib_margin, c_side_margin, 0);
    f_lib_panel->SetAlign(alBottom);
    f_lib_panel->set_on_click(make_closure<&Tvx_composed_style_edit::on_lib_click>(this));
    f_lib_panel->set_on_load_click(make_closure<&Tvx_composed_style_edit::on_load_click>(this));
    f_lib_panel->set_on_save_click(make_closure<&Tvx_composed_style_edit::on_save_click>(this));
    f_open_dialog->SetDefaultExt(style.suffix);
    f_save_dialog->SetDefaultExt(style.suffix);
    f_save_dialog->SetOptions({ofOverwritePrompt});
}

void Tvx_composed_style_edit::load_res()
{
    f_lib_panel->load_res();
    UnicodeString const filter = vx_res_get_wstr(f_functions.filter);
    f_open_dialog->SetFilter(filter);
    f_save_dialog->SetFilter(filter);
}

void Tvx_composed_style_edit::on_lib_click(TObject * /*sender*/)
{
    if (!f_functions.choose(get_style()))
        return;
    update_controls();
    call_changed();
}

void Tvx_composed_style_edit::on_load_click(TObject * /*sender*/)
{
    if (!f_open_dialog->Execute(GetHandle()))
        return;
    std::wstring const file =
        vx::filesystem::change_extension(f_open_dialog->GetFileName().str(), f_functions.suffix);
    if (f_functions.load(file.c_str(), get_style()))
        update_controls();
    else
        vx_show_werror(vx_res_format_w(c_smp_file_unreadable, file).c_str());
}

void Tvx_composed_style_edit::on_save_click(TObject * /*sender*/)
{
    if (!f_save_dialog->Execute(GetHandle()))
        return;
    std::wstring const chosen = f_save_dialog->GetFileName().str();
    std::wstring const file = vx::filesystem::change_extension(chosen, f_functions.suffix);
    // The dialog has asked about the name that was typed, not about the one that is written.
    if (file != chosen && vx_path_exists(file) && !vx_yesno(vx_res_format_w(c_dlg_replace, file).c_str()))
        return;
    // The storage itself tells the user what goes wrong.
    static_cast<void>(f_functions.save(file.c_str(), get_style()));
}
