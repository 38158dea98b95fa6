#include "controls/files/vcl_file_panels.h"

#include "captions/files.h"
#include "captions/prop.h"
#include "controls/prop/detail/action_name.h"
#include "controls/prop/detail/path_view.h"
#include "controls/prop/detail/sample_frame.h"

#include "platform/basic/vx_res.h"
#include "platform/dialogs/file_dialogs.h"
#include "platform/toolkit/core/new_on.h"
#include "platform/toolkit/core/strings.h"

namespace {
constexpr int c_caption_width = 130;
constexpr int c_button_width = 22;
constexpr int c_text_inset = 3;
} // namespace

// ---- names

void Tvx_vcl_path_panel::create()
{
    Tvx_vcl_caption_panel::create();
    set_caption_width(c_caption_width);
    f_button = vx_new_on<Tvx_vcl_button>(get_data_panel(), this);
    f_button->SetWidth(c_button_width);
    f_button->SetAlign(alRight);
    f_button->SetCaption(L"...");
    f_button->SetShowHint(true);
    f_button->OnClick = make_closure<&Tvx_vcl_path_panel::on_button_click>(this);
    auto *const frame = vx_new_on<Tvx_sample_frame>(get_data_panel(), this);
    frame->SetAlign(alClient);
    frame->GetPadding()->SetBounds(c_text_inset, 0, c_text_inset, 0);
    f_view = vx_new_on<Tvx_path_view>(frame, this);
    f_view->SetAlign(alClient);
    set_focus_control(f_button);
}

void Tvx_vcl_path_panel::load_rc()
{
    f_button->SetHint(action());
    f_button->SetAccessibleName(vx_action_name(get_caption(), action()));
}

void Tvx_vcl_path_panel::set_caption(UnicodeString const &caption)
{
    Tvx_vcl_caption_panel::set_caption(caption);
    f_button->SetAccessibleName(vx_action_name(caption, action()));
}

void Tvx_vcl_path_panel::set_enabled(bool enabled)
{
    Tvx_vcl_caption_panel::set_enabled(enabled);
    f_view->SetEnabled(enabled);
}

TControl *Tvx_vcl_path_panel::get_name_view() const
{
    return f_view;
}

void Tvx_vcl_path_panel::show_path(UnicodeString const &path)
{
    f_view->SetCaption(path);
    // The whole name, where there is room for a part of it.
    f_view->SetHint(path);
    f_view->SetShowHint(!path.IsEmpty());
}

void Tvx_vcl_path_panel::on_button_click(TObject * /*sender*/)
{
    auto const life = Life();
    if (ask() && !life.expired())
        f_on_change(this);
}

// ---- files

void Tvx_vcl_file_panel::set_filename(UnicodeString const &name)
{
    f_filename = name;
    filename2control();
}

void Tvx_vcl_file_panel::filename2control()
{
    show_path(f_filename);
}

UnicodeString Tvx_vcl_file_panel::action() const
{
    return vx_res_get_wstr(c_caption_choose_file);
}

bool Tvx_vcl_file_panel::ask()
{
    TOpenDialog open(nullptr);
    TSaveDialog save(nullptr);
    TOpenDialog &dialog = f_save ? save : open;
    dialog.SetOptions({ofOverwritePrompt});
    dialog.SetFileName(f_filename);
    dialog.SetFilter(f_filter);
    dialog.SetDefaultExt(f_default_ext);
    auto const life = Life();
    if (!dialog.Execute(GetHandle()) || life.expired())
        return false;
    set_filename(dialog.GetFileName());
    return true;
}

// ---- directories

void Tvx_vcl_dir_panel::set_dirname(UnicodeString const &name)
{
    f_dirname = name;
    dirname2control();
}

void Tvx_vcl_dir_panel::dirname2control()
{
    show_path(f_dirname);
    SetHint(f_dirname);
    SetShowHint(!f_dirname.IsEmpty());
}

UnicodeString Tvx_vcl_dir_panel::action() const
{
    return vx_res_get_wstr(c_files_choose_directory);
}

bool Tvx_vcl_dir_panel::ask()
{
    TFileOpenDialog dialog(nullptr);
    dialog.SetOptions({fdoPickFolders, fdoForceFileSystem, fdoPathMustExist});
    dialog.SetTitle(vx_res_get_wstr(c_files_select_directory));
    dialog.SetOkButtonLabel(vx_res_get_wstr(c_files_select));
    dialog.SetDefaultFolder(f_dirname);
    dialog.SetFileName(f_dirname);
    auto const life = Life();
    if (!dialog.Execute(GetHandle()) || life.expired() ||
        vx_compare_text(dialog.GetFileName(), f_dirname) == 0)
        return false;
    set_dirname(dialog.GetFileName());
    return true;
}
