#include "host/captions.h"
#include "host/command_action.h"
#include "host/layer_editor.h"
#include "host/layout_clipboard.h"
#include "host/layout_view.h"
#include "host/layout_window.h"
#include "host/map_layouts.h"
#include "host/map_window.h"

#include "platform/basic/vx_options.h"
#include "platform/layers/layout_keys.h"
#include "platform/toolkit/bridge/qt_events.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QClipboard>
#include <QDockWidget>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include <algorithm>

namespace {
constexpr double c_button_factor = 1.25;

/// Where a command stands besides its menu, and what kind it is.
enum command_trait : unsigned
{
    c_begins_group = 1,
    c_on_tool_bar = 2,
    c_checkable = 4,
    c_is_tool = 8,
    c_of_element = 16, ///< in the menus of page and list; its key works there, and nowhere else
    c_in_context = 32, ///< in those menus, too
};
} // namespace

/// The commands of the window in the order of the menus. What is enabled by a null function always is.
struct Tvx_layout_window::command_row
{
    using window = Tvx_layout_window;

    char const *name;
    Tvx_layout_window_caption menu;
    Tvx_layout_window_caption caption;
    std::optional<Tvx_layout_window_caption> hint;
    char const *glyph;
    QList<QKeySequence> keys;
    unsigned traits;
    bool (*is_enabled)(window const &);
    void (*run)(window &, bool on);
    bool (*is_checked)(window const &) = nullptr;

    [[nodiscard]] bool is(command_trait trait) const { return traits & trait; }
};

std::vector<Tvx_layout_window::command_row> const &Tvx_layout_window::command_rows()
{
    using window = Tvx_layout_window;
    constexpr auto can_undo = [](window const &w) { return w.f_document.can_undo(); };
    constexpr auto can_redo = [](window const &w) { return w.f_document.can_redo(); };
    constexpr auto can_paste = [](window const &) { return vx_layout_clipboard_has_any(); };
    constexpr auto has_selection = [](window const &w) { return w.f_document.row_of(w.selected_id()) >= 0; };
    constexpr auto is_movable = [](window const &w) { return !w.movable_selection().empty(); };
    constexpr auto has_frame = [](window const &w) { return w.f_view->map_frame() >= 0; };
    constexpr auto is_visible = [](window const &w) {
        return vx_lr2d_get_visible(w.f_document.element(w.selected_id()));
    };
    constexpr auto is_select_tool = [](window const &w) {
        return w.f_view->current_tool() == Tvx_layout_view::c_tool_select;
    };
    constexpr auto is_map_tool = [](window const &w) {
        return w.f_view->current_tool() == Tvx_layout_view::c_tool_map;
    };
    static std::vector<command_row> const rows = {
        {"export_pdf",
         c_lay_menu,
         c_lay_export_pdf,
         c_lay_hint_export_pdf,
         "pdf",
         {QKeySequence(Qt::CTRL | Qt::Key_E)},
         c_on_tool_bar,
         nullptr,
         [](window &w, bool) { w.on_export_pdf(); }},
        {"export_picture",
         c_lay_menu,
         c_lay_export_picture,
         c_lay_hint_export_picture,
         nullptr,
         {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_E)},
         0,
         nullptr,
         [](window &w, bool) { w.on_export_picture(); }},
        {"save_map",
         c_lay_menu,
         c_lay_save_map,
         c_lay_hint_save_map,
         "save",
         {QKeySequence::Save},
         c_begins_group | c_on_tool_bar,
         nullptr,
         [](window &w, bool) { w.f_layouts.map().save_scene(); }},
        {"rename_layout",
         c_lay_menu,
         c_lay_rename_layout,
         {},
         nullptr,
         {},
         c_begins_group,
         nullptr,
         [](window &w, bool) { w.f_layouts.rename(w.f_layouts.index_of(w.f_document.layout()), &w); }},
        {"delete_layout",
         c_lay_menu,
         c_lay_delete_layout,
         {},
         nullptr,
         {},
         0,
         nullptr,
         [](window &w, bool) { w.f_layouts.remove(w.f_layouts.index_of(w.f_document.layout()), &w); }},
        {"close",
         c_lay_menu,
         c_lay_close,
         {},
         nullptr,
         {QKeySequence::Close},
         c_begins_group,
         nullptr,
         [](window &w, bool) { w.close(); }},
        {"undo",
         c_lay_menu_edit,
         c_lay_undo,
         {},
         "undo",
         {QKeySequence::Undo},
         c_begins_group | c_on_tool_bar,
         can_undo,
         [](window &w, bool) { w.go_back(false); }},
        {"redo",
         c_lay_menu_edit,
         c_lay_redo,
         {},
         "redo",
         {QKeySequence::Redo},
         c_on_tool_bar,
         can_redo,
         [](window &w, bool) { w.go_back(true); }},
        {"cut",
         c_lay_menu_edit,
         c_lay_cut,
         {},
         nullptr,
         {QKeySequence::Cut},
         c_begins_group | c_in_context,
         is_movable,
         [](window &w, bool) {
             w.on_copy();
             w.on_remove();
         }},
        {"copy",
         c_lay_menu_edit,
         c_lay_copy,
         {},
         nullptr,
         {QKeySequence::Copy},
         c_in_context,
         is_movable,
         [](window &w, bool) { w.on_copy(); }},
        {"paste",
         c_lay_menu_edit,
         c_lay_paste,
         {},
         nullptr,
         {QKeySequence::Paste},
         c_in_context,
         can_paste,
         [](window &w, bool) { w.on_paste(); }},
        {"duplicate",
         c_lay_menu_edit,
         c_lay_duplicate,
         {},
         nullptr,
         {QKeySequence(Qt::CTRL | Qt::Key_D)},
         c_in_context,
         is_movable,
         [](window &w, bool) { w.on_duplicate(); }},
        {"select_all",
         c_lay_menu_edit,
         c_lay_select_all,
         {},
         nullptr,
         {QKeySequence::SelectAll},
         0,
         nullptr,
         [](window &w, bool) { w.f_view->select_all(); }},
        {"remove",
         c_lay_menu_edit,
         c_lay_remove,
         {},
         "remove",
         {QKeySequence::Delete},
         c_begins_group | c_of_element,
         is_movable,
         [](window &w, bool) { w.on_remove(); }},
        {"add_frame",
         c_lay_menu_insert,
         c_lay_add_frame,
         {},
         "add_frame",
         {},
         c_begins_group | c_on_tool_bar,
         nullptr,
         [](window &w, bool) { w.add_frame(); }},
        {"add_text",
         c_lay_menu_insert,
         c_lay_add_text,
         {},
         "add_text",
         {},
         c_on_tool_bar,
         nullptr,
         [](window &w, bool) { w.add_text(); }},
        {"add_legend",
         c_lay_menu_insert,
         c_lay_add_legend,
         {},
         "add_legend",
         {},
         c_on_tool_bar,
         nullptr,
         [](window &w, bool) { w.add_element(c_lr_key_layout_legend); }},
        {"add_scale_bar",
         c_lay_menu_insert,
         c_lay_add_scale_bar,
         {},
         "add_scale_bar",
         {},
         c_on_tool_bar,
         nullptr,
         [](window &w, bool) { w.add_element(c_lr_key_layout_scale_bar); }},
        {"add_scale_text",
         c_lay_menu_insert,
         c_lay_add_scale_text,
         {},
         nullptr,
         {},
         0,
         nullptr,
         [](window &w, bool) { w.add_element(c_lr_key_layout_scale_text); }},
        {"add_north_arrow",
         c_lay_menu_insert,
         c_lay_add_north_arrow,
         {},
         "add_north_arrow",
         {},
         c_on_tool_bar,
         nullptr,
         [](window &w, bool) { w.add_element(c_lr_key_layout_north_arrow); }},
        {"add_neatline",
         c_lay_menu_insert,
         c_lay_add_neatline,
         {},
         nullptr,
         {},
         c_begins_group,
         nullptr,
         [](window &w, bool) { w.add_element(c_lr_key_layout_neatline); }},
        {"add_image",
         c_lay_menu_insert,
         c_lay_add_image,
         {},
         "add_image",
         {},
         c_on_tool_bar,
         nullptr,
         [](window &w, bool) { w.add_image(); }},
        {"add_table",
         c_lay_menu_insert,
         c_lay_add_table,
         {},
         "table",
         {},
         c_on_tool_bar,
         nullptr,
         [](window &w, bool) { w.add_table(); }},
        {"properties",
         c_lay_menu_element,
         c_lay_properties,
         c_lay_hint_properties,
         "properties",
         {QKeySequence(Qt::ALT | Qt::Key_Return), QKeySequence(Qt::ALT | Qt::Key_Enter)},
         c_begins_group | c_on_tool_bar | c_of_element,
         has_selection,
         [](window &w, bool) { w.on_properties(); }},
        {"rename",
         c_lay_menu_element,
         c_lay_rename,
         {},
         nullptr,
         {QKeySequence(Qt::Key_F2)},
         c_of_element,
         has_selection,
         [](window &w, bool) { w.on_rename(); }},
        {"visible",
         c_lay_menu_element,
         c_lay_visible,
         {},
         nullptr,
         {QKeySequence(Qt::CTRL | Qt::Key_H)},
         c_checkable | c_of_element,
         has_selection,
         [](window &w, bool on) { w.set_visible(on); },
         is_visible},
        {"forward",
         c_lay_menu_element,
         c_lay_forward,
         {},
         "up",
         {QKeySequence(Qt::CTRL | Qt::Key_Up)},
         c_begins_group | c_of_element,
         is_movable,
         [](window &w, bool) { w.move_by(-1); }},
        {"backward",
         c_lay_menu_element,
         c_lay_backward,
         {},
         "down",
         {QKeySequence(Qt::CTRL | Qt::Key_Down)},
         c_of_element,
         is_movable,
         [](window &w, bool) { w.move_by(1); }},
        {"to_front",
         c_lay_menu_element,
         c_lay_to_front,
         {},
         nullptr,
         {QKeySequence(Qt::CTRL | Qt::Key_Home)},
         c_of_element,
         is_movable,
         [](window &w, bool) { w.move_by(-w.f_document.count()); }},
        {"to_back",
         c_lay_menu_element,
         c_lay_to_back,
         {},
         nullptr,
         {QKeySequence(Qt::CTRL | Qt::Key_End)},
         c_of_element,
         is_movable,
         [](window &w, bool) { w.move_by(w.f_document.count()); }},
        {"map_zoom_in",
         c_lay_menu_element,
         c_lay_map_zoom_in,
         {},
         nullptr,
         {QKeySequence(Qt::ALT | Qt::Key_Plus), QKeySequence(Qt::ALT | Qt::Key_Equal)},
         c_begins_group,
         has_frame,
         [](window &w, bool) { w.f_view->zoom_map(c_button_factor); }},
        {"map_zoom_out",
         c_lay_menu_element,
         c_lay_map_zoom_out,
         {},
         nullptr,
         {QKeySequence(Qt::ALT | Qt::Key_Minus)},
         0,
         has_frame,
         [](window &w, bool) { w.f_view->zoom_map(1 / c_button_factor); }},
        {"take_view",
         c_lay_menu_element,
         c_lay_take_view,
         c_lay_hint_take_view,
         nullptr,
         {},
         0,
         has_frame,
         [](window &w, bool) { w.on_take_view(); }},
        {"select_tool",
         c_lay_menu_view,
         c_lay_select_tool,
         c_lay_hint_select_tool,
         "select",
         {QKeySequence(Qt::Key_F5)},
         c_begins_group | c_on_tool_bar | c_checkable | c_is_tool,
         nullptr,
         [](window &w, bool) { w.f_view->set_tool(Tvx_layout_view::c_tool_select); },
         is_select_tool},
        {"map_tool",
         c_lay_menu_view,
         c_lay_map_tool,
         c_lay_hint_map_tool,
         "pan",
         {QKeySequence(Qt::Key_F6)},
         c_on_tool_bar | c_checkable | c_is_tool,
         nullptr,
         [](window &w, bool) { w.f_view->set_tool(Tvx_layout_view::c_tool_map); },
         is_map_tool},
        {"zoom_in",
         c_lay_menu_view,
         c_lay_zoom_in,
         {},
         "zoom_in",
         {QKeySequence::ZoomIn},
         c_begins_group | c_on_tool_bar,
         nullptr,
         [](window &w, bool) { w.f_view->zoom_by(c_button_factor); }},
        {"zoom_out",
         c_lay_menu_view,
         c_lay_zoom_out,
         {},
         "zoom_out",
         {QKeySequence::ZoomOut},
         c_on_tool_bar,
         nullptr,
         [](window &w, bool) { w.f_view->zoom_by(1 / c_button_factor); }},
        {"fit_page",
         c_lay_menu_view,
         c_lay_fit_page,
         {},
         "full",
         {QKeySequence(Qt::CTRL | Qt::Key_0)},
         c_on_tool_bar,
         nullptr,
         [](window &w, bool) { w.f_view->fit_page(); }},
        {"actual_size",
         c_lay_menu_view,
         c_lay_actual_size,
         {},
         nullptr,
         {QKeySequence(Qt::CTRL | Qt::Key_1)},
         0,
         nullptr,
         [](window &w, bool) { w.f_view->set_zoom(vx_options_get_mm2px_x()); }},
    };
    return rows;
}

void Tvx_layout_window::create_commands()
{
    auto *const tools = new QActionGroup(this);
    for (command_row const &row : command_rows()) {
        QAction *const action =
            vx_command_action({row.name, vx_layout_caption(row.caption),
                               row.hint ? vx_layout_caption(*row.hint) : QString(), row.glyph, row.keys},
                              this);
        action->setCheckable(row.is(c_checkable));
        if (row.is(c_is_tool))
            tools->addAction(action);
        if (row.is(c_of_element))
            action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        connect(action, &QAction::triggered, this, [this, run = row.run](bool on) {
            vx_guarded([&] { run(*this, on); });
            update_commands();
        });
        f_commands.insert(QLatin1String(row.name), action);
    }
    connect(QApplication::clipboard(), &QClipboard::dataChanged, this, &Tvx_layout_window::update_commands);
}

void Tvx_layout_window::create_menus()
{
    QHash<int, QMenu *> menus;
    for (command_row const &row : command_rows()) {
        QMenu *&menu = menus[row.menu];
        if (!menu)
            menu = menuBar()->addMenu(vx_layout_caption(row.menu));
        else if (row.is(c_begins_group))
            menu->addSeparator();
        menu->addAction(command(row.name));
    }
    QMenu *const view = menus[c_lay_menu_view];
    view->setObjectName(QStringLiteral("view_menu"));
    view->addSeparator();
    QAction *const elements = f_dock->toggleViewAction();
    elements->setText(vx_layout_caption(c_lay_show_elements));
    view->addAction(elements);
    // What concerns one element stands in the menus of the page and of the list too.
    f_view->setContextMenuPolicy(Qt::ActionsContextMenu);
    for (QWidget *const widget : {static_cast<QWidget *>(f_view), static_cast<QWidget *>(f_list)})
        for (command_row const &row : command_rows()) {
            if (!row.is(c_of_element) && !row.is(c_in_context))
                continue;
            if (row.is(c_begins_group) && !widget->actions().isEmpty()) {
                auto *const line = new QAction(widget);
                line->setSeparator(true);
                widget->addAction(line);
            }
            widget->addAction(command(row.name));
        }
}

void Tvx_layout_window::create_tool_bar()
{
    QToolBar *const bar = addToolBar(vx_layout_caption(c_lay_tools));
    bar->setObjectName(QStringLiteral("tools"));
    bar->setIconSize({22, 22});
    for (command_row const &row : command_rows()) {
        if (!row.is(c_on_tool_bar))
            continue;
        if (row.is(c_begins_group))
            bar->addSeparator();
        bar->addAction(command(row.name));
    }
    bar->toggleViewAction()->setText(vx_host_caption(c_cap_show_tools));
    menuBar()->findChild<QMenu *>(QStringLiteral("view_menu"))->addAction(bar->toggleViewAction());
}

void Tvx_layout_window::update_commands()
{
    for (command_row const &row : command_rows()) {
        if (row.is_enabled)
            command(row.name)->setEnabled(row.is_enabled(*this));
        if (row.is_checked)
            command(row.name)->setChecked(row.is_checked(*this));
    }
}

void Tvx_layout_window::go_back(bool forward)
{
    // What is brought back takes the place of what was typed and not applied.
    if (!f_editor->may_lose_changes())
        return;
    if (forward)
        f_document.redo();
    else
        f_document.undo();
}

void Tvx_layout_window::on_rename()
{
    QModelIndex const row = f_document.index(f_document.row_of(selected_id()));
    if (f_list->isPersistentEditorOpen(row))
        return; // its name is being written
    f_dock->show();
    f_list->setFocus();
    f_list->edit(row);
}

/// Those that are moved stay in their order, and stop at those that stand at the end.
void Tvx_layout_window::move_by(int rows)
{
    std::vector<int> ids = movable_selection();
    if (rows < 0)
        std::ranges::reverse(ids);
    int const lowest = vx_layout_has_page_kind(f_document.element(f_document.id_at(f_document.count() - 1)))
                           ? f_document.count() - 2
                           : f_document.count() - 1;
    f_document.as_one_step([&] {
        int least = 0, most = lowest;
        for (int const id : ids) {
            int const row = std::clamp(f_document.row_of(id) + rows, least, most);
            f_document.move_to(id, row);
            (rows < 0 ? least : most) = rows < 0 ? row + 1 : row - 1;
        }
    });
}

void Tvx_layout_window::add_text()
{
    add_element(c_lr_key_layout_text, [](Ivx_layer *text) {
        vx_layout_text_lr2d_set_wtext(text, vx_layout_kind_name(c_lr_key_layout_text).toStdWString().c_str());
        return true;
    });
}
