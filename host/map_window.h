#pragma once

#include "host/layer_list.h"
#include "host/property_import.h"
#include "host/rotation.h"

#include <QHash>
#include <QMainWindow>
#include <QPointer>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class Tvx_layer_editor;
class Tvx_layer_panel;
class Tvx_layer_steps;
class Tvx_attribute_table;
class Tvx_end_signals;
class Tvx_identify_panel;
class Tvx_kept_map;
class Tvx_map_canvas;
class Tvx_map_layouts;
class Tvx_map_selection;
class Tvx_selection_overlay;
class Tvx_opening_progress;
struct Tvx_failed_file;
struct Tvx_found_map;
struct Tvx_scene_layer;
struct Tvx_layer_scale;
class QComboBox;
class QDockWidget;
class QLabel;
class QMenu;
class QSessionManager;
class QSettings;

/// The main window: the map, the list of its layers beside it, and the commands.
///
/// Every command is a QAction found by its object name ("open", "properties", "zoom_in", ...), so what a
/// person does can be done in the person's place.
class Tvx_map_window : public QMainWindow
{
    Q_OBJECT

public:
    /// Keeps its state in `settings` between sessions; null keeps nothing. The settings must outlive the
    /// window.
    explicit Tvx_map_window(QSettings *settings = nullptr);
    ~Tvx_map_window() override;

    /// Opens the files in this order, each on top of the one before. What cannot be opened is told in one
    /// message at the end. Gives the number of layers that came. A saved map among them takes the place of
    /// what there is, which the user is asked about where it is not saved.
    int open_files(QStringList const &paths);
    /// Saves the map in its file, or asks for one. False when it is not saved.
    bool save_scene();
    /// Takes all layers off. False, with everything as it was, when the user wants to keep what is not saved.
    bool new_scene();
    /// From now on copies of unsaved work are kept in the folder, for the case that the program ends before
    /// it is saved: by a fault, by the system, or with the session.
    void keep_copies(QString const &folder);
    /// Asks what to do with copies that were left there. True when one has been opened.
    bool offer_kept_copy();
    [[nodiscard]] Tvx_kept_map *kept() const { return f_kept.get(); }
    /// Whether there is work that no file has.
    [[nodiscard]] bool is_changed() const { return f_changed; }
    /// Empty for a map without a file.
    [[nodiscard]] QString const &scene_path() const { return f_scene_path; }
    /// Takes a layer that the caller made; its id.
    int add_layer(Tvx_layer_list::layer_ptr layer);

    [[nodiscard]] Tvx_layer_list &layers() { return f_layers; }
    [[nodiscard]] Tvx_map_canvas &canvas() { return *f_canvas; }
    [[nodiscard]] Tvx_layer_panel &panel() { return *f_panel; }
    [[nodiscard]] Tvx_layer_editor &editor() { return *f_editor; }
    [[nodiscard]] Tvx_map_selection &selection() { return *f_selection; }
    [[nodiscard]] Tvx_map_layouts &layouts() { return *f_page_layouts; }
    /// What the map is called: its file without folder and suffix.
    [[nodiscard]] QString scene_name() const;
    [[nodiscard]] Tvx_identify_panel &identify() { return *f_identify; }
    /// The table of the layer, opened if need be; null, and the user is told, when it cannot be read.
    Tvx_attribute_table *open_table(int id);
    /// Null when there is no such command.
    [[nodiscard]] QAction *command(char const *name) const;

protected:
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    struct command_row;
    [[nodiscard]] static std::vector<command_row> const &command_rows();
    [[nodiscard]] QAction *make_command(command_row const &row);
    void create_commands();
    void create_menus();
    void create_tool_bar();
    void create_layer_dock();
    void give_commands_to_panel();
    void create_status_bar();
    /// Tab goes through list, map, docks and status bar as they lie in the window.
    void order_stops();
    void connect_canvas();
    void restore_state();
    void save_state();

    void connect_objects();
    void on_map_clicked(QPointF at, bool with_ctrl, bool by_key);
    /// Makes these records stand out, and no others; -1 for none.
    void select_objects(int layer_id, std::vector<unsigned> records);
    void show_selection_in_tables();
    void on_table();
    bool create_table(int id);
    /// Keeps the window alive while a table is being sorted.
    void wait_for_table(bool is_long, std::function<void(std::function<bool()> const &)> const &work);
    void create_identify_dock();
    /// Moves the map to an object that is not seen.
    void show_object(int id, unsigned record);
    void zoom_to_selection();

    [[nodiscard]] std::unique_ptr<Tvx_opening_progress> begin_opening();
    void watch_changes();
    void set_changed(bool changed);
    /// Asks what to do with work that is not saved; false when nothing is to be done.
    [[nodiscard]] bool may_lose_changes();
    bool save_scene_as();
    bool save_scene_in(QString const &path);
    [[nodiscard]] bool may_replace(QString const &path);
    /// What to do where the map's file is no more what it was.
    enum newer_file
    {
        c_newer_replaced,
        c_newer_saved_as,
        c_newer_left
    };
    [[nodiscard]] newer_file ask_about_newer();
    /// Number of layers that came, nothing when there is no map to open; what went wrong is added to
    /// `failed`. A copy that was kept becomes the unsaved map that it is a copy of.
    std::optional<int> open_scene(QString const &path, std::vector<Tvx_failed_file> &failed,
                                  Tvx_found_map const *kept = nullptr);
    bool open_kept(Tvx_found_map const &found);
    void on_session_end(QSessionManager &manager);
    /// Asks whether a file whose last writer was broken off may be changed to put it right.
    [[nodiscard]] bool may_repair(QString const &path);
    /// Of those layers that could not be opened for that, and opens them. What stays as it is keeps its
    /// reason.
    void repair_layers(std::vector<Tvx_scene_layer> &layers, std::optional<Tvx_box_d2> const &view);

    void on_open();
    void on_import_properties();
    void on_add_properties();
    /// True when the file is made; the user is told why it is not.
    bool import_properties(QStringList const &paths, QString const &target, Tvx_import_way way);
    void on_save_picture();
    void on_properties();
    void on_style();
    void on_rotation();
    void on_labels();
    void on_sample_activated(int id);
    /// Null for one style.
    void on_draw_by(Tvx_layer_scale const *scale);
    void on_move(int by);
    void go_back(bool forward);
    void on_copy_style();
    void on_paste_style();
    void on_to_library();
    void on_invert_managers(bool on);
    void on_selection_changed(int id);
    void on_pointer_moved(double x, double y);
    void on_scale_entered();
    void on_about();
    void on_shortcuts();

    [[nodiscard]] int selected_row() const;
    /// Style parameters of the selected class, or of the selected layer if it is drawn in one style; null for
    /// others.
    [[nodiscard]] void *selected_style() const;
    /// Puts an edited copy in the layer's place.
    void take_over(int id, Tvx_layer_list::layer_ptr layer);
    void show_message(QString const &text);
    /// Where the newest layer is, or why it is not seen.
    void tell_about_top_layer();
    void update_commands();
    void update_scale();
    void update_title();
    void remember_file(QString const &path);
    void fill_recent_menu();
    void fill_draw_by_menu();
    /// Lines with the names of the map's layouts.
    void fill_layout_menu(QMenu &menu, void (*run)(Tvx_map_window &window, int index));

    Tvx_advanced_dialog_in_force f_advanced_dialog;
    Tvx_layer_list f_layers;
    std::unique_ptr<Tvx_layer_steps> f_steps;
    Tvx_layer_editor *f_editor;
    Tvx_map_canvas *f_canvas;
    Tvx_layer_panel *f_panel = nullptr;
    QDockWidget *f_layer_dock = nullptr;
    QSettings *f_settings;
    QHash<QString, QAction *> f_commands;
    QLabel *f_coordinates = nullptr;
    QLabel *f_activity = nullptr;
    QComboBox *f_scale = nullptr;
    /// The file of the rules by which a layer is drawn: rules themselves do not tell it.
    QHash<int, std::wstring> f_rule_files;
    QString f_last_directory;
    Tvx_map_selection *f_selection = nullptr;
    std::unique_ptr<Tvx_selection_overlay> f_overlay;
    Tvx_identify_panel *f_identify = nullptr;
    QDockWidget *f_identify_dock = nullptr;
    /// By the ids of their layers.
    struct table_dock
    {
        QDockWidget *dock = nullptr;
        Tvx_attribute_table *table = nullptr;
    };
    QHash<int, table_dock> f_tables;
    std::unique_ptr<Tvx_map_layouts> f_page_layouts;
    QString f_scene_path;
    QByteArray f_scene_print; ///< of the file when it was opened or saved here
    bool f_changed = false;
    bool f_is_given_up = false; ///< by the user, at the end of the session
    bool f_loading = false;
    /// While something is being opened.
    QPointer<Tvx_opening_progress> f_opening;
    bool f_closes_after_opening = false;
    /// A copy of the layer whose style was copied.
    Tvx_layer_list::layer_ptr f_copied_style;
    std::unique_ptr<Tvx_kept_map> f_kept; ///< null where no copies are kept
    std::unique_ptr<Tvx_end_signals> f_end_signals;
};
