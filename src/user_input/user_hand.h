#pragma once

#include "platform/base/export.h"

#include <QtCore/QPoint>
#include <QtCore/QString>
#include <QtCore/Qt>

class QAction;
class QMenu;
class QMenuBar;
class QWidget;
class QAbstractItemView;

/// The hand of a person at windows that are written with Qt: sends the events of mouse and keyboard. What is
/// meant for a toolkit form goes through user_input/user_input.h. Events that are waiting are worked off
/// after each.
namespace vx::user_hand {
VX_API void click(QWidget *widget, QPoint at, Qt::MouseButton button = Qt::LeftButton,
                  Qt::KeyboardModifiers keys = Qt::NoModifier);
VX_API void double_click(QWidget *widget, QPoint at, Qt::KeyboardModifiers keys = Qt::NoModifier);
/// Press at `from`, some moves on the straight line, release at `to`.
VX_API void drag(QWidget *widget, QPoint from, QPoint to, Qt::MouseButton button = Qt::LeftButton,
                 Qt::KeyboardModifiers keys = Qt::NoModifier);
VX_API void move(QWidget *widget, QPoint at);
/// Turns the wheel over the point, away from the person (up) when positive.
VX_API void wheel(QWidget *widget, QPoint at, int notches);
/// One key with its shortcut, into the widget, which gets the focus.
VX_API void press(QWidget *widget, Qt::Key key, Qt::KeyboardModifiers keys = Qt::NoModifier);
VX_API void type(QWidget *widget, QString const &text);

/// Clicks the title of a menu, or the line of a menu that opens another one; the menu that is open then, null
/// when none is.
[[nodiscard]] VX_API QMenu *open_menu(QMenuBar *bar, QAction *title);
[[nodiscard]] VX_API QMenu *open_menu(QMenu *menu, QAction *line);
/// Clicks a line of an open menu.
VX_API void choose(QMenu *menu, QAction *line);

/// The check box and the text of a line of a list.
[[nodiscard]] VX_API QPoint check_box_of(QAbstractItemView *view, int row);
[[nodiscard]] VX_API QPoint text_of(QAbstractItemView *view, int row);
/// The picture between the two.
[[nodiscard]] VX_API QPoint picture_of(QAbstractItemView *view, int row);

/// Works off events until `done(object)` or the time is over; the last answer.
VX_API bool wait_until(bool (*done)(void *object), void *object, int milliseconds = 10000);
template <class F>
bool wait_until(F &&done, int milliseconds = 10000)
{
    auto *object = &done;
    return wait_until([](void *f) -> bool { return (*static_cast<decltype(object)>(f))(); }, object,
                      milliseconds);
}
} // namespace vx::user_hand
