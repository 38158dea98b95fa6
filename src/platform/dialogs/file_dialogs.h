#pragma once

#include "platform/base/export.h"
#include "platform/toolkit/core/component.h"
#include "platform/toolkit/core/set_of.h"
#include "platform/toolkit/core/strings.h"

enum TOpenOption
{
    ofOverwritePrompt, ///< the user is asked before the name of an existing file is taken
    ofAllowMultiSelect ///< several files may be chosen
};
using TOpenOptions = set_of<TOpenOption>;

/// Asks for the name of a file that exists. Keeps what was chosen last, so that the next question begins
/// there.
class VX_API TOpenDialog : public TComponent
{
public:
    using TComponent::TComponent;

    /// Pairs of caption and masks between bars: L"Text|*.txt;*.log". Empty: all files.
    [[nodiscard]] UnicodeString const &GetFilter() const { return f_filter; }
    void SetFilter(UnicodeString const &filter) { f_filter = filter; }
    /// Number of the pair of the filter, from 1.
    [[nodiscard]] int GetFilterIndex() const { return f_filter_index; }
    void SetFilterIndex(int index) { f_filter_index = index; }
    /// Added to a name without extension where a file is saved, with or without its point.
    [[nodiscard]] UnicodeString const &GetDefaultExt() const { return f_default_ext; }
    void SetDefaultExt(UnicodeString const &ext) { f_default_ext = ext; }
    /// Empty: the usual one.
    [[nodiscard]] UnicodeString const &GetTitle() const { return f_title; }
    void SetTitle(UnicodeString const &title) { f_title = title; }
    /// The name to begin with; after `Execute` the chosen one, with its path.
    [[nodiscard]] UnicodeString const &GetFileName() const { return f_file_name; }
    void SetFileName(UnicodeString const &name) { f_file_name = name; }
    /// After `Execute`: all that was chosen.
    [[nodiscard]] TStrings const *GetFiles() const { return &f_files; }
    [[nodiscard]] TOpenOptions GetOptions() const { return f_options; }
    void SetOptions(TOpenOptions options) { f_options = options; }

    /// True when a name was chosen; else nothing has changed. A null parent is the application's window.
    [[nodiscard]] virtual bool Execute(HWND parent = nullptr);

protected:
    [[nodiscard]] bool ask(HWND parent, bool save);

private:
    UnicodeString f_filter;
    UnicodeString f_default_ext;
    UnicodeString f_title;
    UnicodeString f_file_name;
    TStringList f_files;
    int f_filter_index = 1;
    TOpenOptions f_options;
};

/// Asks for the name of a file to write.
class VX_API TSaveDialog : public TOpenDialog
{
public:
    using TOpenDialog::TOpenDialog;

    [[nodiscard]] bool Execute(HWND parent = nullptr) override;
};

enum TFileDialogOption
{
    fdoPickFolders,     ///< a directory is asked for, not a file
    fdoForceFileSystem, ///< what is no place of the file system cannot be chosen: always so
    fdoPathMustExist    ///< what does not exist cannot be chosen: always so
};
using TFileDialogOptions = set_of<TFileDialogOption>;

/// Asks for a file or a directory that exists.
class VX_API TFileOpenDialog : public TComponent
{
public:
    using TComponent::TComponent;

    [[nodiscard]] TFileDialogOptions GetOptions() const { return f_options; }
    void SetOptions(TFileDialogOptions options) { f_options = options; }
    /// Empty: the usual one, here and for the button.
    [[nodiscard]] UnicodeString const &GetTitle() const { return f_title; }
    void SetTitle(UnicodeString const &title) { f_title = title; }
    [[nodiscard]] UnicodeString const &GetOkButtonLabel() const { return f_ok_button_label; }
    void SetOkButtonLabel(UnicodeString const &label) { f_ok_button_label = label; }
    /// The directory to begin in where the name has none.
    [[nodiscard]] UnicodeString const &GetDefaultFolder() const { return f_default_folder; }
    void SetDefaultFolder(UnicodeString const &folder) { f_default_folder = folder; }
    /// The name to begin with; after `Execute` the chosen one, with its path.
    [[nodiscard]] UnicodeString const &GetFileName() const { return f_file_name; }
    void SetFileName(UnicodeString const &name) { f_file_name = name; }

    /// True when a name was chosen; else nothing has changed. A null parent is the application's window.
    [[nodiscard]] bool Execute(HWND parent = nullptr);

private:
    TFileDialogOptions f_options;
    UnicodeString f_title;
    UnicodeString f_ok_button_label;
    UnicodeString f_default_folder;
    UnicodeString f_file_name;
};
