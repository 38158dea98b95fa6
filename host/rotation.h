#pragma once

#include <QDialog>

#include <memory>

class QLabel;
struct Ivx_layer;

/// Whether the symbols, spots or hatches of the layer can turn by an attribute.
[[nodiscard]] bool vx_layer_can_rotate(Ivx_layer *layer);
/// Lets the user choose whether and by which attribute they do, at a point of the screen; true when he did.
[[nodiscard]] bool vx_layer_rotation_dialog(Ivx_layer *layer, int x, int y);

/// What a style manager has beside its styles: how it draws, and whether what it draws turns. OK writes.
class Tvx_advanced_dialog : public QDialog
{
    Q_OBJECT

public:
    /// `file_name` is that of the manager's layer, empty for none. Where the manager ends before the dialog
    /// does, OK writes nothing.
    Tvx_advanced_dialog(void *mngr, QString file_name, QWidget *parent = nullptr);
    ~Tvx_advanced_dialog() override;

    void accept() override;

private:
    void on_rotation();
    void show_rotation();

    void *f_mngr;
    std::weak_ptr<void const> f_life; ///< the manager's
    void *f_copy;                     ///< what is edited
    QString f_file_name;
    QLabel *f_rotation;
};

/// Puts that dialog in place of the library's own for as long as the object lives.
class Tvx_advanced_dialog_in_force
{
public:
    Tvx_advanced_dialog_in_force();
    Tvx_advanced_dialog_in_force(Tvx_advanced_dialog_in_force const &) = delete;
    Tvx_advanced_dialog_in_force &operator=(Tvx_advanced_dialog_in_force const &) = delete;
    ~Tvx_advanced_dialog_in_force();
};
