#pragma once

#include "platform/base/closure.h"
#include "platform/base/export.h"
#include "platform/base/unicode_string.h"
#include "platform/toolkit/core/types.h"

#include <vector>

/// Question to and answer of the file dialog.
struct Tvx_file_dialog_prm
{
    /// True: the name of a file to be written, which need not exist. False: a file that exists.
    bool save = false;
    /// Without `save`: a directory that exists; filter and extension then count for nothing.
    bool directory = false;
    /// Neither `save` nor `directory`: several files may be chosen. All of them are in `file_names`.
    bool several = false;
    /// With `save`: the user is asked before the name of an existing file is taken.
    bool overwrite_prompt = true;
    /// Number of the pair of `filter`, from 1; 0 or one that is not there is the first. Holds the user's
    /// choice afterwards.
    int filter_index = 1;
    /// Pairs of caption and masks, parted by bars; masks are parted by semicolons: L"Text|*.txt;*.log".
    /// Empty: all files.
    UnicodeString filter;
    /// Added to a name without extension, with or without its point; only with `save`.
    UnicodeString default_ext;
    /// Empty: the usual title.
    UnicodeString title;
    /// Empty: the usual caption of the button that takes the name.
    UnicodeString accept_caption;
    /// Name to begin with; its directory, where it has one that exists, is the one shown. Without one the
    /// directory is where the last dialog ended. Holds the chosen name, with its path, afterwards.
    UnicodeString file_name;
    /// Afterwards: what was chosen, with paths, in the order of the dialog. One name but for `several`.
    std::vector<UnicodeString> file_names;
    /// The user chose another pair of the filter while the dialog is open. `name` is the text of the name
    /// box; a changed one is put back into it.
    closure<void(int filter_index, UnicodeString &name)> on_filter_changed;
    /// With `save`: completes the name that was chosen, with its path, for example by a suffix. Runs before
    /// the user is asked about a file that exists, so that the question is about the name that counts, and
    /// must leave a complete name as it is.
    closure<void(int filter_index, UnicodeString &name)> on_complete_name;
};

/// Runs the dialog, by the rules of the common dialogs in `vx_dlgs.h`. True when a name was chosen; else
/// nothing in `prm` is changed.
[[nodiscard]] VX_API bool vx_file_dialog(HWND parent, int x, int y, Tvx_file_dialog_prm *prm);
