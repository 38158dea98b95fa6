#include "captions/dialogs.h"
#include "captions/standard.h"

#include "platform/basic/detail/caption_catalogue.h"
#include "platform/basic/vx_options.h"
#include "platform/basic/vx_res.h"
#include "platform/toolkit/core/standard_texts_priv.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <QtCore/QString>
#include <QtCore/QTranslator>

#include <string_view>

namespace vx::toolkit {
namespace {
struct part
{
    std::string_view context;
    std::string_view source;
    int caption;
};
constexpr std::string_view c_dialog = "QFileDialog";
constexpr std::string_view c_model = "QFileSystemModel";
constexpr std::string_view c_icons = "QAbstractFileIconProvider";
constexpr std::string_view c_buttons = "QPlatformTheme";
constexpr std::string_view c_edit = "QLineEdit";
constexpr std::string_view c_text = "QWidgetTextControl";
constexpr std::string_view c_spin = "QAbstractSpinBox";
constexpr std::string_view c_scroll = "QScrollBar";
constexpr std::string_view c_window = "QMdiSubWindow";
constexpr std::string_view c_message = "QMessageBox";

constexpr part c_parts[] = {
    {c_dialog, "Look in:", c_file_look_in},
    {c_dialog, "File &name:", c_file_name},
    {c_dialog, "Directory:", c_file_directory},
    {c_dialog, "Files of type:", c_file_types},
    {c_dialog, "&Open", c_dlg_open_button}, // of the save button while a folder is chosen
    {c_dialog, "Back", c_file_back},
    {c_dialog, "Go back", c_file_back},
    {c_dialog, "Forward", c_file_forward},
    {c_dialog, "Go forward", c_file_forward},
    {c_dialog, "Parent Directory", c_file_parent},
    {c_dialog, "Go to the parent directory", c_file_parent},
    {c_dialog, "Create New Folder", c_file_create_folder},
    {c_dialog, "Create a New Folder", c_file_create_folder},
    {c_dialog, "List View", c_file_list_view},
    {c_dialog, "Change to list view mode", c_file_list_view},
    {c_dialog, "Detail View", c_file_detail_view},
    {c_dialog, "Change to detail view mode", c_file_detail_view},
    {c_dialog, "&Rename", c_file_rename},
    {c_dialog, "&Delete", c_file_delete},
    {c_dialog, "Show &hidden files", c_file_show_hidden},
    {c_dialog, "&New Folder", c_file_new_folder},
    {c_dialog, "New Folder", c_file_new_folder_name},
    {c_dialog, "Sidebar", c_file_places},
    {c_dialog, "List of places and bookmarks", c_file_places},
    {c_dialog, "My Computer", c_file_computer},
    {c_dialog, "Delete", c_file_deletion},
    {c_dialog, "Are you sure you want to delete '%1'?", c_file_ask_delete},
    {"QSidebar", "Remove", c_file_remove_place},
    {c_model, "Name", c_file_column_name},
    {c_model, "Size", c_file_column_size},
    {c_model, "Type", c_file_column_type},
    {c_model, "Date Modified", c_file_column_date},
    {c_model, "My Computer", c_file_computer},
    {c_model, "Computer", c_file_computer},
    {c_icons, "Folder", c_file_folder},
    {c_icons, "%1 File", c_file_kind},
    {c_icons, "File", c_file_file},
    {c_buttons, "&Yes", c_dlg_yes},
    {c_buttons, "&No", c_dlg_no},
    {c_buttons, "OK", c_dlg_ok},
    {c_buttons, "Cancel", c_dlg_cancel},
    {c_edit, "&Undo", c_std_undo},
    {c_text, "&Undo", c_std_undo},
    {c_edit, "&Redo", c_std_redo},
    {c_text, "&Redo", c_std_redo},
    {c_edit, "Cu&t", c_std_cut},
    {c_text, "Cu&t", c_std_cut},
    {c_edit, "&Copy", c_std_copy},
    {c_text, "&Copy", c_std_copy},
    {c_text, "Copy &Link Location", c_std_copy_link},
    {c_edit, "&Paste", c_std_paste},
    {c_text, "&Paste", c_std_paste},
    {c_edit, "Delete", c_std_delete_text},
    {c_text, "Delete", c_std_delete_text},
    {c_edit, "Select All", c_std_select_all},
    {c_text, "Select All", c_std_select_all},
    {c_spin, "&Select All", c_std_spin_select_all},
    {c_spin, "&Step up", c_std_step_up},
    {c_spin, "Step &down", c_std_step_down},
    {c_scroll, "Scroll here", c_std_scroll_here},
    {c_scroll, "Left edge", c_std_scroll_left_edge},
    {c_scroll, "Top", c_std_scroll_top},
    {c_scroll, "Right edge", c_std_scroll_right_edge},
    {c_scroll, "Bottom", c_std_scroll_bottom},
    {c_scroll, "Page left", c_std_page_left},
    {c_scroll, "Page up", c_std_page_up},
    {c_scroll, "Page right", c_std_page_right},
    {c_scroll, "Page down", c_std_page_down},
    {c_scroll, "Scroll left", c_std_scroll_left},
    {c_scroll, "Scroll up", c_std_scroll_up},
    {c_scroll, "Scroll right", c_std_scroll_right},
    {c_scroll, "Scroll down", c_std_scroll_down},
    {c_buttons, "Save", c_std_save_button},
    {c_buttons, "Save All", c_std_save_all},
    {c_buttons, "Open", c_std_open_button},
    {c_buttons, "Yes to &All", c_std_yes_to_all},
    {c_buttons, "N&o to All", c_std_no_to_all},
    {c_buttons, "Abort", c_std_abort},
    {c_buttons, "Retry", c_std_retry},
    {c_buttons, "Ignore", c_std_ignore},
    {c_buttons, "Close", c_std_close},
    {c_buttons, "Discard", c_std_discard},
    {c_buttons, "Help", c_std_help},
    {c_buttons, "Apply", c_std_apply},
    {c_buttons, "Reset", c_std_reset},
    {c_buttons, "Restore Defaults", c_std_restore_defaults},
    {c_window, "Menu", c_std_window_menu},
    {c_window, "Close", c_std_window_close},
    {c_window, "Minimize", c_std_window_minimize},
    {c_window, "Restore", c_std_window_restore},
    {c_window, "Restore Down", c_std_window_restore},
    {c_window, "&Restore", c_std_menu_restore},
    {c_window, "&Move", c_std_menu_move},
    {c_window, "&Size", c_std_menu_size},
    {c_window, "Mi&nimize", c_std_menu_minimize},
    {c_window, "Ma&ximize", c_std_menu_maximize},
    {c_window, "Stay on &Top", c_std_menu_on_top},
    {c_window, "&Close", c_std_menu_close},
    {c_message, "Show Details...", c_std_show_details},
    {c_message, "Hide Details...", c_std_hide_details},
};

class part_translator final : public QTranslator
{
public:
    using QTranslator::QTranslator;

    [[nodiscard]] bool isEmpty() const override { return false; }
    [[nodiscard]] QString translate(char const *context, char const *source, char const *, int) const override
    {
        // The base language is what the parts say by themselves.
        if (!context || !source || vx_options_get_language() == vx::captions::c_base_language)
            return {};
        for (auto const &[where, text, caption] : c_parts)
            if (where == context && text == source)
                return QString::fromWCharArray(vx_res_get_wstr(caption));
        return {};
    }
};
} // namespace

void translate_standard_texts()
{
    static QPointer<part_translator> installed;
    if (installed)
        return;
    installed = new part_translator(QCoreApplication::instance());
    QCoreApplication::installTranslator(installed);
}
} // namespace vx::toolkit
