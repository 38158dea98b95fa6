#pragma once

#include "host/layout_document.h"

#include "platform/base/closure.h"

#include <QHash>
#include <QMainWindow>

#include <functional>
#include <vector>

class Tvx_layer_editor;
class Tvx_layout_view;
class Tvx_map_layouts;
class QAction;
class QDockWidget;
class QLabel;
class QListView;

/// The window of one page layout: the page, the list of its elements beside it, and the commands, which are
/// found by their object names as in the map's window.
class Tvx_layout_window : public QMainWindow
{
    Q_OBJECT

public:
    /// `layout` is one of the map's.
    Tvx_layout_window(Tvx_map_layouts &layouts, Ivx_scn_2d *layout);
    ~Tvx_layout_window() override;

    [[nodiscard]] Tvx_layout_document &document() { return f_document; }
    [[nodiscard]] Tvx_layout_view &view() { return *f_view; }
    [[nodiscard]] Tvx_layer_editor &editor() { return *f_editor; }
    [[nodiscard]] QListView *list() const { return f_list; }
    [[nodiscard]] QAction *command(char const *name) const { return f_commands.value(QLatin1String(name)); }

    void update_title();
    void rename_scene(QString const &from, QString const &to);
    /// What scenes show may have changed.
    void refresh();
    [[nodiscard]] bool may_lose_changes();
    void end_editing();
    /// The layout ends now, the window soon.
    void detach();
    /// Writes the page. False, and the user is told, when that fails.
    bool export_pdf(QString const &path);
    bool export_picture(QString const &path, int pixels_per_inch);

signals:
    /// The layout has changed.
    void changed();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    struct command_row;
    [[nodiscard]] static std::vector<command_row> const &command_rows();
    void create_commands();
    void create_menus();
    void create_tool_bar();
    void create_element_dock();
    void create_status_bar();
    void connect_document();
    void update_commands();
    void update_place_text();
    void show_selection(int id);
    void on_list_selection();
    void take_into_editor(int id);

    void add_element(char const *key, std::function<bool(Ivx_layer *)> const &fill = {});
    void add_copies(std::vector<Tvx_layout_element_ptr> copies);
    [[nodiscard]] int frame_for_new() const;
    void move_aside(std::vector<Tvx_layout_element_ptr> const &elements);
    void add_frame();
    void add_text();
    void add_image();
    void add_table();
    void on_properties();
    void on_copy();
    void on_paste();
    void on_duplicate();
    void on_remove();
    void set_visible(bool visible);
    void on_take_view();
    void on_rename();
    void go_back(bool forward);
    void move_by(int rows);
    void on_export_pdf();
    void on_export_picture();
    void show_message(QString const &text);
    [[nodiscard]] QString ask_file(QString const &title, QStringList const &filters, QString const &suffix);
    using writer = std::function<int(Ivx_scn_2d *, std::wstring &, closure<bool()>)>;
    bool write(QString const &path, writer const &write);
    [[nodiscard]] QString layout_name() const;
    [[nodiscard]] int selected_id() const;
    /// All but the page, from the lowest.
    [[nodiscard]] std::vector<int> movable_selection() const;

    Tvx_map_layouts &f_layouts;
    Tvx_layout_document f_document;
    Tvx_layer_editor *f_editor;
    Tvx_layout_view *f_view;
    QListView *f_list = nullptr;
    QDockWidget *f_dock = nullptr;
    QLabel *f_place_text = nullptr;
    QLabel *f_zoom_text = nullptr;
    QHash<QString, QAction *> f_commands;
    QString f_directory;
    bool f_shows_selection = false;
};
