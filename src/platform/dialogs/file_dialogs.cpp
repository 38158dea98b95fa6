#include "platform/dialogs/file_dialogs.h"

#include "platform/dialogs/vx_file_dialog.h"

bool TOpenDialog::Execute(HWND parent)
{
    return ask(parent, false);
}

bool TOpenDialog::ask(HWND parent, bool save)
{
    Tvx_file_dialog_prm prm;
    prm.save = save;
    prm.several = f_options.Contains(ofAllowMultiSelect);
    prm.overwrite_prompt = f_options.Contains(ofOverwritePrompt);
    prm.filter_index = f_filter_index;
    prm.filter = f_filter;
    prm.default_ext = f_default_ext;
    prm.title = f_title;
    prm.file_name = f_file_name;
    if (!vx_file_dialog(parent, 0, 0, &prm))
        return false;
    f_file_name = prm.file_name;
    f_files.Clear();
    for (auto const &name : prm.file_names)
        f_files.Add(name);
    f_filter_index = prm.filter_index;
    return true;
}

bool TSaveDialog::Execute(HWND parent)
{
    return ask(parent, true);
}

bool TFileOpenDialog::Execute(HWND parent)
{
    Tvx_file_dialog_prm prm;
    prm.directory = f_options.Contains(fdoPickFolders);
    prm.title = f_title;
    prm.accept_caption = f_ok_button_label;
    bool const has_path = f_file_name.str().find(L'/') != std::wstring::npos;
    prm.file_name =
        has_path || f_default_folder.IsEmpty() ? f_file_name : f_default_folder + L"/" + f_file_name;
    if (!vx_file_dialog(parent, 0, 0, &prm))
        return false;
    f_file_name = prm.file_name;
    return true;
}
