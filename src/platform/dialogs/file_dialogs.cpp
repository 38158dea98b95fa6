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
    prm.overwrite_prompt = f_options.Contains(ofOverwritePrompt);
    prm.filter_index = f_filter_index;
    prm.filter = f_filter;
    prm.default_ext = f_default_ext;
    prm.title = f_title;
    prm.file_name = f_file_name;
    if (!vx_file_dialog(parent, 0, 0, &prm))
        return false;
    f_file_name = prm.file_name;
    f_filter_index = prm.filter_index;
    return true;
}

bool TSaveDialog::Execute(HWND parent)
{
    return ask(parent, true);
}
