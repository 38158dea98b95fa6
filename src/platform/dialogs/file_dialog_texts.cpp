#include "platform/dialogs/file_dialog_texts.h"

#include "platform/basic/vx_options.h"
#include "platform/basic/vx_res.h"
#include "platform/dialogs/dlg_captions.h"

#include <QCoreApplication>
#include <QPointer>
#include <QTranslator>

#include <string_view>

namespace vx::dialogs {
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

constexpr part c_parts[] = {
    {c_dialog, "Look in:", c_file_look_in},
    {c_dialog, "File &name:", c_file_name},
    {c_dialog, "Files of type:", c_file_types},
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
};

class part_translator final : public QTranslator
{
public:
    using QTranslator::QTranslator;

    [[nodiscard]] bool isEmpty() const override { return false; }
    [[nodiscard]] QString translate(char const *context, char const *source, char const *, int) const override
    {
        // English is what the parts say by themselves.
        if (!context || !source || std::string_view(vx_options_get_language()) == "en")
            return {};
        for (auto const &[where, text, caption] : c_parts)
            if (where == context && text == source)
                return QString::fromWCharArray(vx_res_get_wstr(caption));
        return {};
    }
};
} // namespace

void translate_file_dialog()
{
    static QPointer<part_translator> installed;
    if (installed || !QCoreApplication::instance())
        return;
    installed = new part_translator(QCoreApplication::instance());
    QCoreApplication::installTranslator(installed);
}
} // namespace vx::dialogs
