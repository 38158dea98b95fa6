#pragma once

#include "platform/toolkit/controls/edit.h"
#include "platform/toolkit/core/key_codes.h"

#include <string>

/// What the number edits have in common in their handling of keys.
namespace vx::edit_keys {
inline constexpr wchar_t c_backspace = 8;
inline constexpr wchar_t c_tab = 9;
inline constexpr wchar_t c_enter = 13;

/// Keys that come as characters and pass every filter: corrections, what leaves the text as it is (Tab, Ctrl
/// with A) and Esc, which is the dialog's.
[[nodiscard]] inline bool is_edit_key(wchar_t key)
{
    constexpr wchar_t c_select_all = 1;
    constexpr wchar_t c_escape = 27;
    return key == c_backspace || key == c_tab || key == c_select_all || key == c_escape;
}

enum class command
{
    none,
    copy,
    cut,
    paste,
    undo
};

[[nodiscard]] inline bool is_digit(wchar_t key)
{
    return key >= L'0' && key <= L'9';
}

/// Of the letters of the keys, Latin and as the same keys give them in a Cyrillic layout.
[[nodiscard]] inline command command_of_letter(unsigned letter)
{
    switch (letter) {
    case 'C':
    case 'c':
    case 1057:
    case 1089:
        return command::copy;
    case 'X':
    case 'x':
    case 1063:
    case 1095:
        return command::cut;
    case 'V':
    case 'v':
    case 1052:
    case 1084:
        return command::paste;
    case 'Z':
    case 'z':
    case 1071:
    case 1103:
        return command::undo;
    default:
        return command::none;
    }
}

[[nodiscard]] inline command command_of_key(Word key, TShiftState shift)
{
    bool const control = shift.Contains(ssCtrl) && !shift.Contains(ssAlt);
    return control ? command_of_letter(key) : command::none;
}

/// Layouts without Latin letters may give the character of the command, or their letter, and no key.
[[nodiscard]] inline command command_of_character(wchar_t character)
{
    constexpr wchar_t c_copy = 3;
    constexpr wchar_t c_paste = 22;
    constexpr wchar_t c_cut = 24;
    constexpr wchar_t c_undo = 26;
    switch (character) {
    case c_copy:
        return command::copy;
    case c_paste:
        return command::paste;
    case c_cut:
        return command::cut;
    case c_undo:
        return command::undo;
    default:
        break;
    }
    bool const control = GetKeyState(VK_CONTROL) < 0 && GetKeyState(VK_MENU) >= 0;
    return control ? command_of_letter(static_cast<unsigned>(character)) : command::none;
}

/// What the commands do in any edit; the key filters take their keys from the edit itself.
inline void run_command(TCustomEdit &edit, command what)
{
    bool const read_only = edit.GetReadOnly();
    if (what == command::copy || (what == command::cut && read_only))
        edit.CopyToClipboard();
    else if (what == command::cut)
        edit.CutToClipboard();
    else if (what == command::paste && !read_only)
        edit.PasteFromClipboard();
    else if (what == command::undo && !read_only)
        edit.Undo();
}

/// Presses the default button of the form, as Enter does in an edit that leaves the key to it.
void press_default_button(TWinControl &edit);

/// The text without the selection, which a typed character replaces.
[[nodiscard]] inline std::wstring text_left(TCustomEdit const &edit)
{
    std::wstring text = edit.GetText().str();
    auto const start = static_cast<std::size_t>(edit.GetSelStart());
    if (start < text.size())
        text.erase(start, static_cast<std::size_t>(edit.GetSelLength()));
    return text;
}
} // namespace vx::edit_keys
