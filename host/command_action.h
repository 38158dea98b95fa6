#pragma once

#include <QKeySequence>
#include <QList>
#include <QString>

class QAction;
class QWidget;

/// What a command of a window looks like wherever it stands.
struct Tvx_command_face
{
    char const *name; ///< by which it is found
    QString text;     ///< of its line in a menu
    QString hint;     ///< one line for the status bar; may be empty
    char const *glyph = nullptr;
    QList<QKeySequence> keys = {};
    bool opens_menu = false; ///< of a menu that is filled when it opens
};

/// The window's action for a command: its hint tells the key too.
[[nodiscard]] QAction *vx_command_action(Tvx_command_face const &face, QWidget *window);
