#include "host/captions.h"
#include "host/command_action.h"
#include "host/layer_labels.h"
#include "host/layer_panel.h"
#include "host/layer_steps.h"
#include "host/layer_style.h"
#include "host/library_dialog.h"
#include "host/map_canvas.h"
#include "host/map_layouts.h"
#include "host/map_window.h"
#include "host/rotation.h"

#include "platform/basic/vx_options.h"
#include "platform/basic/vx_res.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/layers/vx_tos_lr2d.h"
#include "platform/toolkit/bridge/qt_events.h"

#include <QActionGroup>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

namespace {
constexpr double c_button_factor = 1.5;

/// Where a command stands besides its menu, and what kind it is.
enum command_trait : unsigned
{
    c_begins_group = 1, ///< after a line, in menus and on the tool bar
    c_on_tool_bar = 2,
    c_on_panel = 4, ///< a button below the list of layers
    c_checkable = 8,
    c_is_tool = 16,    ///< one of the tools, of which one is chosen
    c_of_panel = 32,   ///< its key works while the list has the focus, and nowhere else
    c_opens_menu = 64, ///< of a menu that is filled when it opens
};

QString caption(int number)
{
    return QString::fromWCharArray(vx_res_get_wstr(number));
}
} // namespace

/// The commands of the window in the order of the menus; those of the menu "Layer" are the context menu of
/// the list too. What is enabled or checked by a null function always is, or never.
struct Tvx_map_window::command_row
{
    using window = Tvx_map_window;

    char const *name;
    int menu; ///< number of its caption
    int caption;
    std::optional<int> hint;
    char const *glyph;
    QList<QKeySequence> keys;
    unsigned traits;
    bool (*is_enabled)(window const &);
    void (*run)(window &, bool checked);
    bool (*is_checked)(window const &) = nullptr;

    [[nodiscard]] bool is(command_trait trait) const { return traits & trait; }
};

std::vector<Tvx_map_window::command_row> const &Tvx_map_window::command_rows()
{
    using window = Tvx_map_window;
    constexpr auto can_save = [](window const &w) { return w.f_layers.count() > 0 || w.is_changed(); };
    constexpr auto can_begin_anew = [](window const &w) {
        return w.f_layers.count() > 0 || !w.f_scene_path.isEmpty();
    };
    constexpr auto can_paste_style = [](window const &w) {
        return vx_layer_style_fits(w.f_layers.layer_at(w.selected_row()), w.f_copied_style.get());
    };
    constexpr auto can_copy_style = [](window const &w) {
        Ivx_layer *const layer = w.f_layers.layer_at(w.selected_row());
        return vx_layer_style_fits(layer, layer);
    };
    constexpr auto has_layers = [](window const &w) { return w.f_layers.count() > 0; };
    constexpr auto has_layouts = [](window const &w) { return w.f_page_layouts->count() > 0; };
    constexpr auto has_selection = [](window const &w) { return w.selected_row() >= 0; };
    constexpr auto is_below = [](window const &w) { return w.selected_row() > 0; };
    constexpr auto is_above = [](window const &w) {
        return w.selected_row() >= 0 && w.selected_row() + 1 < w.f_layers.count();
    };
    constexpr auto is_vector = [](window const &w) {
        return vx_lr2d_is_shp(w.f_layers.layer_at(w.selected_row()));
    };
    constexpr auto is_of_properties = [](window const &w) {
        return vx_lr2d_is_tos(w.f_layers.layer_at(w.selected_row()));
    };
    constexpr auto has_style = [](window const &w) {
        return vx_layer_has_style_dialog(w.f_layers.layer_at(w.selected_row()));
    };
    constexpr auto can_rotate = [](window const &w) {
        return vx_layer_can_rotate(w.f_layers.layer_at(w.selected_row()));
    };
    constexpr auto can_label = [](window const &w) {
        return vx_layer_can_label(w.f_layers.layer_at(w.selected_row()));
    };
    constexpr auto has_single_style = [](window const &w) {
        return Tvx_library_dialog::can_take(w.selected_style());
    };
    constexpr auto has_place = [](window const &w) {
        return !w.f_layers.extent_at(w.selected_row()).is_empty();
    };
    static std::vector<command_row> const rows = {
        {"new_scene",
         c_cap_menu_file,
         c_map_new_scene,
         c_map_hint_new_scene,
         "new",
         {QKeySequence::New},
         0,
         can_begin_anew,
         [](window &w, bool) { w.new_scene(); }},
        {"open",
         c_cap_menu_file,
         c_cap_open,
         c_cap_hint_open,
         "open",
         {QKeySequence::Open},
         c_on_tool_bar,
         nullptr,
         [](window &w, bool) { w.on_open(); }},
        {"import_properties",
         c_cap_menu_file,
         c_map_import,
         c_map_hint_import,
         nullptr,
         {},
         0,
         nullptr,
         [](window &w, bool) { w.on_import_properties(); }},
        {"add_properties",
         c_cap_menu_file,
         c_map_add_properties,
         c_map_hint_add_properties,
         nullptr,
         {},
         0,
         is_of_properties,
         [](window &w, bool) { w.on_add_properties(); }},
        {"recent", c_cap_menu_file, c_cap_menu_recent, {}, nullptr, {}, c_opens_menu, nullptr, nullptr},
        {"save_scene",
         c_cap_menu_file,
         c_map_save_scene,
         c_map_hint_save_scene,
         "save",
         {QKeySequence::Save},
         c_begins_group | c_on_tool_bar,
         can_save,
         [](window &w, bool) { w.save_scene(); }},
        {"save_scene_as",
         c_cap_menu_file,
         c_map_save_scene_as,
         c_map_hint_save_scene_as,
         nullptr,
         {Qt::CTRL | Qt::SHIFT | Qt::Key_S},
         0,
         can_save,
         [](window &w, bool) { w.save_scene_as(); }},
        {"save_picture",
         c_cap_menu_file,
         c_cap_save_picture,
         {},
         nullptr,
         {Qt::CTRL | Qt::Key_E},
         c_begins_group,
         has_layers,
         [](window &w, bool) { w.on_save_picture(); }},
        {"quit",
         c_cap_menu_file,
         c_cap_quit,
         {},
         nullptr,
         {QKeySequence::Quit},
         c_begins_group,
         nullptr,
         [](window &w, bool) { w.close(); }},

        {"undo",
         c_lay_menu_edit,
         c_lay_undo,
         {},
         "undo",
         {QKeySequence::Undo},
         0,
         [](window const &w) { return w.f_steps->can_undo(); },
         [](window &w, bool) { w.go_back(false); }},
        {"redo",
         c_lay_menu_edit,
         c_lay_redo,
         {},
         "redo",
         {QKeySequence::Redo},
         0,
         [](window const &w) { return w.f_steps->can_redo(); },
         [](window &w, bool) { w.go_back(true); }},
        {"pan_tool",
         c_cap_menu_view,
         c_cap_pan_tool,
         c_cap_hint_pan_tool,
         "pan",
         {Qt::Key_F6},
         c_begins_group | c_on_tool_bar | c_checkable | c_is_tool,
         nullptr,
         [](window &w, bool) { w.f_canvas->set_tool(Tvx_map_canvas::c_tool_pan); },
         [](window const &w) { return w.f_canvas->current_tool() == Tvx_map_canvas::c_tool_pan; }},
        {"zoom_box_tool",
         c_cap_menu_view,
         c_cap_zoom_box_tool,
         c_cap_hint_zoom_box_tool,
         "zoom_box",
         {Qt::Key_F7},
         c_on_tool_bar | c_checkable | c_is_tool,
         nullptr,
         [](window &w, bool) { w.f_canvas->set_tool(Tvx_map_canvas::c_tool_zoom_box); },
         [](window const &w) { return w.f_canvas->current_tool() == Tvx_map_canvas::c_tool_zoom_box; }},
        {"identify_tool",
         c_cap_menu_view,
         c_map_identify,
         c_map_hint_identify,
         "identify",
         {Qt::Key_F8},
         c_on_tool_bar | c_checkable | c_is_tool,
         nullptr,
         [](window &w, bool) { w.f_canvas->set_tool(Tvx_map_canvas::c_tool_identify); },
         [](window const &w) { return w.f_canvas->current_tool() == Tvx_map_canvas::c_tool_identify; }},
        {"zoom_in",
         c_cap_menu_view,
         c_cap_zoom_in,
         c_cap_hint_zoom_in,
         "zoom_in",
         {QKeySequence::ZoomIn},
         c_begins_group | c_on_tool_bar,
         has_layers,
         [](window &w, bool) { w.f_canvas->zoom_by(c_button_factor); }},
        {"zoom_out",
         c_cap_menu_view,
         c_cap_zoom_out,
         c_cap_hint_zoom_out,
         "zoom_out",
         {QKeySequence::ZoomOut},
         c_on_tool_bar,
         has_layers,
         [](window &w, bool) { w.f_canvas->zoom_by(1 / c_button_factor); }},
        {"full_extent",
         c_cap_menu_view,
         c_cap_full_extent,
         c_cap_hint_full_extent,
         "full",
         {Qt::CTRL | Qt::Key_0},
         c_on_tool_bar,
         has_layers,
         [](window &w, bool) { w.f_canvas->show_all(); }},
        {"view_back",
         c_cap_menu_view,
         c_cap_view_back,
         c_cap_hint_view_back,
         "back",
         {QKeySequence::Back},
         c_begins_group | c_on_tool_bar,
         [](window const &w) { return w.f_canvas->can_go_back(); },
         [](window &w, bool) { w.f_canvas->go_back(); }},
        {"view_forward",
         c_cap_menu_view,
         c_cap_view_forward,
         c_cap_hint_view_forward,
         "forward",
         {QKeySequence::Forward},
         c_on_tool_bar,
         [](window const &w) { return w.f_canvas->can_go_forward(); },
         [](window &w, bool) { w.f_canvas->go_forward(); }},

        {"invert_managers",
         c_cap_menu_view,
         c_map_invert_managers,
         c_map_hint_invert_managers,
         nullptr,
         {},
         c_begins_group | c_checkable,
         nullptr,
         [](window &w, bool checked) { w.on_invert_managers(checked); },
         [](window const &) { return vx_options_get_invert_layers(); }},

        {"properties",
         c_cap_menu_layer,
         c_cap_properties,
         c_cap_hint_properties,
         "properties",
         {Qt::ALT | Qt::Key_Return, Qt::ALT | Qt::Key_Enter},
         c_begins_group | c_on_tool_bar | c_on_panel,
         has_selection,
         [](window &w, bool) { w.on_properties(); }},
        {"style",
         c_cap_menu_layer,
         c_cap_style,
         c_cap_hint_style,
         nullptr,
         {Qt::CTRL | Qt::Key_T},
         0,
         has_style,
         [](window &w, bool) { w.on_style(); }},
        {"rotation",
         c_cap_menu_layer,
         c_map_rotation,
         c_map_hint_rotation,
         nullptr,
         {},
         0,
         can_rotate,
         [](window &w, bool) { w.on_rotation(); }},
        {"labels",
         c_cap_menu_layer,
         c_map_labels,
         c_map_hint_labels,
         nullptr,
         {Qt::CTRL | Qt::SHIFT | Qt::Key_L},
         0,
         can_label,
         [](window &w, bool) { w.on_labels(); }},
        {"table",
         c_cap_menu_layer,
         c_map_table,
         c_map_hint_table,
         "table",
         {Qt::Key_F9},
         c_on_tool_bar | c_on_panel,
         is_vector,
         [](window &w, bool) { w.on_table(); }},
        {"copy_style",
         c_cap_menu_layer,
         c_map_copy_style,
         c_map_hint_copy_style,
         nullptr,
         {Qt::CTRL | Qt::SHIFT | Qt::Key_C},
         0,
         can_copy_style,
         [](window &w, bool) { w.on_copy_style(); }},
        {"paste_style",
         c_cap_menu_layer,
         c_map_paste_style,
         c_map_hint_paste_style,
         nullptr,
         {Qt::CTRL | Qt::SHIFT | Qt::Key_V},
         0,
         can_paste_style,
         [](window &w, bool) { w.on_paste_style(); }},
        {"to_library",
         c_cap_menu_layer,
         c_map_to_library,
         c_map_hint_to_library,
         nullptr,
         {},
         0,
         has_single_style,
         [](window &w, bool) { w.on_to_library(); }},
        {"draw_by", c_cap_menu_layer, c_cap_draw_by, {}, nullptr, {}, c_opens_menu, is_vector, nullptr},
        {"zoom_to_layer",
         c_cap_menu_layer,
         c_cap_zoom_to_layer,
         c_cap_hint_zoom_to_layer,
         "zoom_layer",
         {Qt::CTRL | Qt::Key_L},
         c_on_tool_bar | c_on_panel,
         has_place,
         [](window &w, bool) { w.f_canvas->show_box(w.f_layers.extent_at(w.selected_row())); }},
        {"rename",
         c_cap_menu_layer,
         c_map_rename,
         c_map_hint_rename,
         nullptr,
         {Qt::Key_F2},
         c_begins_group,
         has_selection,
         [](window &w, bool) {
             w.f_layer_dock->show();
             w.f_panel->edit_name();
         }},
        {"visible",
         c_cap_menu_layer,
         c_cap_layer_visible,
         {},
         nullptr,
         {Qt::CTRL | Qt::Key_H},
         c_checkable,
         has_selection,
         [](window &w, bool checked) { w.f_layers.set_layer_visible(w.selected_row(), checked); },
         [](window const &w) { return w.f_layers.is_visible(w.selected_row()); }},
        {"show_all",
         c_cap_menu_layer,
         c_cap_show_all,
         {},
         nullptr,
         {},
         0,
         has_layers,
         [](window &w, bool) { w.f_layers.set_all_visible(true); }},
        {"hide_all",
         c_cap_menu_layer,
         c_cap_hide_all,
         {},
         nullptr,
         {},
         0,
         has_layers,
         [](window &w, bool) { w.f_layers.set_all_visible(false); }},
        {"move_up",
         c_cap_menu_layer,
         c_cap_move_up,
         c_cap_hint_move_up,
         "up",
         {Qt::CTRL | Qt::Key_Up},
         c_begins_group | c_on_panel,
         is_below,
         [](window &w, bool) { w.on_move(-1); }},
        {"move_down",
         c_cap_menu_layer,
         c_cap_move_down,
         c_cap_hint_move_down,
         "down",
         {Qt::CTRL | Qt::Key_Down},
         c_on_panel,
         is_above,
         [](window &w, bool) { w.on_move(1); }},
        {"move_to_top",
         c_cap_menu_layer,
         c_cap_move_to_top,
         {},
         nullptr,
         {Qt::CTRL | Qt::SHIFT | Qt::Key_Up},
         0,
         is_below,
         [](window &w, bool) { w.on_move(-w.f_layers.count()); }},
        {"move_to_bottom",
         c_cap_menu_layer,
         c_cap_move_to_bottom,
         {},
         nullptr,
         {Qt::CTRL | Qt::SHIFT | Qt::Key_Down},
         0,
         is_above,
         [](window &w, bool) { w.on_move(w.f_layers.count()); }},
        // Del pressed over the map, or in a text, must not take a layer away.
        {"remove",
         c_cap_menu_layer,
         c_cap_remove,
         c_cap_hint_remove,
         "remove",
         {QKeySequence::Delete},
         c_begins_group | c_on_panel | c_of_panel,
         has_selection,
         [](window &w, bool) { w.f_layers.remove(w.selected_row()); }},

        {"new_layout",
         c_lay_menu,
         c_lay_new,
         c_lay_hint_new,
         nullptr,
         {Qt::CTRL | Qt::SHIFT | Qt::Key_N},
         0,
         has_layers,
         [](window &w, bool) { w.f_page_layouts->add(); }},
        {"open_layout", c_lay_menu, c_lay_open, {}, nullptr, {}, c_opens_menu, has_layouts, nullptr},
        {"rename_layout",
         c_lay_menu,
         c_lay_rename_of,
         {},
         nullptr,
         {},
         c_begins_group | c_opens_menu,
         has_layouts,
         nullptr},
        {"delete_layout", c_lay_menu, c_lay_delete_of, {}, nullptr, {}, c_opens_menu, has_layouts, nullptr},

        {"shortcuts",
         c_cap_menu_help,
         c_cap_shortcuts,
         {},
         nullptr,
         {QKeySequence::HelpContents},
         0,
         nullptr,
         [](window &w, bool) { w.on_shortcuts(); }},
        {"about",
         c_cap_menu_help,
         c_cap_about,
         {},
         nullptr,
         {},
         c_begins_group,
         nullptr,
         [](window &w, bool) { w.on_about(); }},
    };
    return rows;
}

QAction *Tvx_map_window::make_command(command_row const &row)
{
    QAction *const action =
        vx_command_action({row.name, caption(row.caption), row.hint ? caption(*row.hint) : QString(),
                           row.glyph, row.keys, row.is(c_opens_menu)},
                          this);
    action->setCheckable(row.is(c_checkable));
    if (row.is(c_of_panel))
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    if (row.run)
        connect(action, &QAction::triggered, this,
                [this, run = row.run](bool on) { vx_guarded([&] { run(*this, on); }); });
    return action;
}

void Tvx_map_window::create_commands()
{
    auto *tools = new QActionGroup(this);
    for (command_row const &row : command_rows()) {
        QAction *action = make_command(row);
        if (row.is(c_is_tool))
            tools->addAction(action);
        f_commands.insert(QLatin1String(row.name), action);
    }
    connect(command("recent")->menu(), &QMenu::aboutToShow, this,
            [this] { vx_guarded([this] { fill_recent_menu(); }); });
    connect(command("draw_by")->menu(), &QMenu::aboutToShow, this,
            [this] { vx_guarded([this] { fill_draw_by_menu(); }); });
    command("draw_by")->menu()->setObjectName(QStringLiteral("draw_by_menu"));
    struct layout_menu
    {
        char const *name;
        void (*run)(Tvx_map_window &window, int index);
    };
    constexpr layout_menu c_layout_menus[] = {
        {"open_layout", [](Tvx_map_window &w, int index) { w.f_page_layouts->open(index); }},
        {"rename_layout", [](Tvx_map_window &w, int index) { w.f_page_layouts->rename(index, &w); }},
        {"delete_layout", [](Tvx_map_window &w, int index) { w.f_page_layouts->remove(index, &w); }},
    };
    for (layout_menu const &m : c_layout_menus) {
        QMenu *const menu = command(m.name)->menu();
        connect(menu, &QMenu::aboutToShow, this,
                [this, menu, run = m.run] { vx_guarded([&] { fill_layout_menu(*menu, run); }); });
    }
}

void Tvx_map_window::create_menus()
{
    QHash<int, QMenu *> menus;
    for (command_row const &row : command_rows()) {
        QMenu *&menu = menus[row.menu];
        if (!menu)
            menu = menuBar()->addMenu(caption(row.menu));
        else if (row.is(c_begins_group))
            menu->addSeparator();
        menu->addAction(command(row.name));
    }
    QMenu *view = menus[c_cap_menu_view];
    view->setObjectName(QStringLiteral("view_menu"));
    view->addSeparator();
    QAction *layers = f_layer_dock->toggleViewAction();
    layers->setText(vx_host_caption(c_cap_show_layers));
    view->addAction(layers);
    QAction *identify = f_identify_dock->toggleViewAction();
    identify->setText(vx_map_caption(c_map_show_identify));
    view->addAction(identify);
}

void Tvx_map_window::create_tool_bar()
{
    QToolBar *bar = addToolBar(vx_host_caption(c_cap_tools));
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

void Tvx_map_window::give_commands_to_panel()
{
    QList<QAction *> menu, buttons;
    for (command_row const &row : command_rows()) {
        if (row.menu != c_cap_menu_layer)
            continue;
        if (row.is(c_begins_group) && !menu.isEmpty())
            menu.append(nullptr);
        menu.append(command(row.name));
        if (row.is(c_on_panel))
            buttons.append(command(row.name));
    }
    f_panel->set_commands(menu, buttons);
}

void Tvx_map_window::update_commands()
{
    if (!f_panel)
        return;
    for (command_row const &row : command_rows()) {
        if (row.is_enabled)
            command(row.name)->setEnabled(row.is_enabled(*this));
        if (row.is_checked)
            command(row.name)->setChecked(row.is_checked(*this));
    }
}

QAction *Tvx_map_window::command(char const *name) const
{
    return f_commands.value(QLatin1String(name));
}

void Tvx_map_window::fill_layout_menu(QMenu &menu, void (*run)(Tvx_map_window &window, int index))
{
    menu.clear();
    for (int i = 0; i < f_page_layouts->count(); ++i)
        connect(menu.addAction(f_page_layouts->name_at(i).replace('&', "&&")), &QAction::triggered, this,
                [this, run, i] { vx_guarded([&] { run(*this, i); }); });
}
