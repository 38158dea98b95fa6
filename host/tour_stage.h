#pragma once

#include <QString>
#include <QStringList>
#include <QTimer>

class Tvx_map_window;
class QAbstractButton;
class QImage;
class QWidget;

/// What the parts of a tour share: the map window and the editor beside it, steps that a person does again
/// and again, and pictures. The path of each picture goes to the standard output, what went wrong to the
/// standard error.
class Tvx_tour_stage
{
public:
    Tvx_tour_stage(Tvx_map_window &window, QString data_directory, QString picture_directory);
    Tvx_tour_stage(Tvx_tour_stage const &) = delete;
    Tvx_tour_stage &operator=(Tvx_tour_stage const &) = delete;

    [[nodiscard]] Tvx_map_window &window() const { return f_window; }

    // ---- steps
    /// Where an example lies.
    [[nodiscard]] QString example(QString const &name) const { return f_data + "/" + name; }
    bool open_example(QStringList const &names);
    /// Copies all files of a data set but its scales into the folder; the example data are not the tour's to
    /// write into. `name` without extension.
    void copy_example(QString const &name, QString const &folder);
    void remove_all_layers();
    void open_properties_of(int row);
    /// Presses Apply in the editor.
    void apply();
    /// The window of the editor, over map and layouts; null and a failure when it is not on the screen.
    [[nodiscard]] QWidget *editor_window();
    /// The button of the editor's window; null and a failure when it is not there.
    [[nodiscard]] QAbstractButton *apply_button();

    // ---- pictures
    void shoot_map(QString const &name);
    void shoot_editor(QString const &name);
    /// All windows as they stand on the screen, with dialogs and menus that are open; of the screen itself
    /// only what they take up.
    void shoot_windows(QString const &name);
    void save(QImage const &picture, QString const &name);
    /// A file beside the pictures.
    [[nodiscard]] QString picture_path(QString const &name) const { return f_pictures + "/" + name; }

    void check(bool ok, QString const &what);
    [[nodiscard]] bool wait_for_map();

protected:
    Tvx_map_window &f_window;
    QString f_data;
    QString f_pictures;
    int f_count = 0;
    int f_failures = 0;
    int f_expected_messages = 0;

private:
    void close_message();

    QTimer f_messages;
};
