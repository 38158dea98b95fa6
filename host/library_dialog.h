#pragma once

#include <QDialog>
#include <QStringList>

#include <vector>

class QComboBox;
class QDialogButtonBox;
class QLabel;
class QLineEdit;
class QSpinBox;

/// Asks into which library of the user's a style is to be put, and how it is called there; OK puts it. The
/// libraries are those in the user's folder as they are now.
class Tvx_library_dialog : public QDialog
{
    Q_OBJECT

public:
    /// `stl_prm` has the style, of points, lines or areas; it must outlive the dialog.
    Tvx_library_dialog(void *stl_prm, QString const &caption, QWidget *parent = nullptr);
    ~Tvx_library_dialog() override;

    /// Whether the dialog can take the style.
    [[nodiscard]] static bool can_take(void *stl_prm);

    [[nodiscard]] QString chosen_name() const;
    [[nodiscard]] QString style_caption() const;

    /// False, with the dialog left open, when the style could not be saved; the user has been told.
    void accept() override;

private:
    /// The library that is named, null for a new one.
    [[nodiscard]] void *library() const;
    /// Captions of the group that is named, from the top.
    [[nodiscard]] QStringList groups() const;
    void show_library();
    void update_controls();

    void *f_prm;
    void *f_libs;
    QComboBox *f_library;
    QComboBox *f_group;
    QLineEdit *f_caption;
    QSpinBox *f_number;
    QLabel *f_note;
    QDialogButtonBox *f_buttons;
};
