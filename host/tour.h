#pragma once

#include <QString>
#include <QStringList>
#include <QTimer>

class Tvx_map_window;
class QWidget;

/// A tour of the program by itself: works the windows by the events of a person and writes pictures of them.
/// The path of each picture goes to the standard output, what went wrong to the standard error.
class Tvx_tour
{
public:
    Tvx_tour(Tvx_map_window &window, QString data_directory, QString picture_directory);

    /// With files: just their map, and the editor of the topmost layer. Without: everything, on the example
    /// data. True when nothing went wrong.
    [[nodiscard]] bool run(QStringList const &files);

private:
    void show_files(QStringList const &files);
    void show_example_maps();
    void show_scales();
    void show_sample_map();
    void show_objects();
    void show_navigation();
    void show_menu(int place);
    /// Opens the menu of the scales beside the selected layer; null and a failure when it does not open.
    [[nodiscard]] class QMenu *open_draw_by_menu();
    void show_layer_kinds();
    void show_apply();
    void show_range_editor();
    void show_style_dialog();
    void show_broken_file();

    bool open_example(QStringList const &names);
    /// Copies the files of the counties into the folder.
    void copy_counties(QString const &folder);
    /// The button of the editor's window; null and a failure when it is not there.
    [[nodiscard]] class QAbstractButton *apply_button();
    void remove_all_layers();
    void open_properties_of(int row);
    /// The window of the editor; null and a failure when it is not on the screen.
    [[nodiscard]] QWidget *editor_window();
    void shoot_map(QString const &name);
    void shoot_editor(QString const &name);
    /// All windows as they stand on the screen.
    void shoot_screen(QString const &name);
    void save(class QImage const &picture, QString const &name);
    void check(bool ok, QString const &what);
    [[nodiscard]] bool wait_for_map();
    void close_message();

    Tvx_map_window &f_window;
    QString f_data;
    QString f_pictures;
    int f_count = 0;
    int f_failures = 0;
    int f_expected_messages = 0;
    QTimer f_messages;
};
