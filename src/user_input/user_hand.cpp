#include "user_input/user_hand.h"

#include "user_input/hand_priv.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QPointer>
#include <QtCore/QThread>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionViewItem>

// The way in which Qt's own test library asks the shortcuts; exported for that purpose, but in no header.
Q_GUI_EXPORT bool qt_sendShortcutOverrideEvent(QObject *object, unsigned long timestamp, int key,
                                               Qt::KeyboardModifiers keys, QString const &text, bool repeat,
                                               unsigned short count);

namespace {
constexpr int c_drag_moves = 8;

void work_off()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

/// A window that is clicked or typed into is the active one from then on.
void activate(QWidget *widget)
{
    if (!widget->isActiveWindow())
        QApplication::setActiveWindow(widget->window());
}

void send_mouse(QWidget *widget, QEvent::Type type, QPoint at, Qt::MouseButton button,
                Qt::MouseButtons buttons, Qt::KeyboardModifiers keys)
{
    QMouseEvent event(type, at, widget->mapToGlobal(at), button, buttons, keys);
    QApplication::sendEvent(widget, &event);
}

/// A key as it comes from the keyboard: the shortcuts of the window see it first, unless the widget claims
/// it.
void send_key(QWidget *widget, int key, Qt::KeyboardModifiers keys, QString const &text)
{
    QPointer<QWidget> const guard(widget);
    if (vx::user_hand::detail::run_shortcut(widget, key, keys.toInt(), text)) {
        work_off();
        return;
    }
    QKeyEvent down(QEvent::KeyPress, key, keys, text);
    if (guard)
        QApplication::sendEvent(widget, &down);
    QKeyEvent up(QEvent::KeyRelease, key, keys, text);
    if (guard)
        QApplication::sendEvent(widget, &up);
    work_off();
}
} // namespace

bool vx::user_hand::detail::run_shortcut(QWidget *widget, int key, int modifiers, QString const &text)
{
    return qt_sendShortcutOverrideEvent(widget, 0, key, Qt::KeyboardModifiers::fromInt(modifiers), text,
                                        false, 1);
}

namespace vx::user_hand {
void move(QWidget *widget, QPoint at)
{
    send_mouse(widget, QEvent::MouseMove, at, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    work_off();
}

void click(QWidget *widget, QPoint at, Qt::MouseButton button, Qt::KeyboardModifiers keys)
{
    QPointer<QWidget> const guard(widget);
    activate(widget);
    if (widget->focusPolicy() & Qt::ClickFocus)
        widget->setFocus(Qt::MouseFocusReason);
    send_mouse(widget, QEvent::MouseButtonPress, at, button, button, keys);
    if (guard)
        send_mouse(widget, QEvent::MouseButtonRelease, at, button, Qt::NoButton, keys);
    work_off();
}

void double_click(QWidget *widget, QPoint at, Qt::KeyboardModifiers keys)
{
    QPointer<QWidget> const guard(widget);
    click(widget, at, Qt::LeftButton, keys);
    if (guard)
        send_mouse(widget, QEvent::MouseButtonDblClick, at, Qt::LeftButton, Qt::LeftButton, keys);
    if (guard)
        send_mouse(widget, QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton, keys);
    work_off();
}

void drag(QWidget *widget, QPoint from, QPoint to, Qt::MouseButton button, Qt::KeyboardModifiers keys)
{
    send_mouse(widget, QEvent::MouseButtonPress, from, button, button, keys);
    for (int i = 1; i <= c_drag_moves; ++i) {
        send_mouse(widget, QEvent::MouseMove, from + (to - from) * i / c_drag_moves, Qt::NoButton, button,
                   keys);
        work_off();
    }
    send_mouse(widget, QEvent::MouseButtonRelease, to, button, Qt::NoButton, keys);
    work_off();
}

void wheel(QWidget *widget, QPoint at, int notches)
{
    for (int i = 0; i < std::abs(notches); ++i) {
        QWheelEvent event(at, widget->mapToGlobal(at), {}, {0, notches > 0 ? 120 : -120}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(widget, &event);
        work_off();
    }
}

void press(QWidget *widget, Qt::Key key, Qt::KeyboardModifiers keys)
{
    activate(widget);
    widget->setFocus(Qt::OtherFocusReason);
    send_key(widget, key, keys, {});
}

void type(QWidget *widget, QString const &text)
{
    activate(widget);
    widget->setFocus(Qt::OtherFocusReason);
    for (QChar const c : text)
        send_key(widget, c == '\n' ? int(Qt::Key_Return) : int(c.toUpper().unicode()), Qt::NoModifier,
                 c == '\n' ? QStringLiteral("\r") : QString(c));
}

namespace {
QPoint part_of(QAbstractItemView *view, int row, QStyle::SubElement part)
{
    QModelIndex const index = view->model()->index(row, 0);
    QStyleOptionViewItem option;
    option.initFrom(view);
    option.rect = view->visualRect(index);
    option.features |= QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDecoration;
    option.decorationSize = view->iconSize();
    option.decorationPosition = QStyleOptionViewItem::Left;
    return view->style()->subElementRect(part, &option, view).center();
}
} // namespace

QMenu *open_menu(QMenuBar *bar, QAction *title)
{
    click(bar, bar->actionGeometry(title).center());
    return qobject_cast<QMenu *>(QApplication::activePopupWidget());
}

QMenu *open_menu(QMenu *menu, QAction *line)
{
    choose(menu, line);
    auto *opened = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    return opened == menu ? nullptr : opened;
}

void choose(QMenu *menu, QAction *line)
{
    QPoint const at = menu->actionGeometry(line).center();
    move(menu, at);
    click(menu, at);
}

QPoint check_box_of(QAbstractItemView *view, int row)
{
    return part_of(view, row, QStyle::SE_ItemViewItemCheckIndicator);
}

QPoint picture_of(QAbstractItemView *view, int row)
{
    return part_of(view, row, QStyle::SE_ItemViewItemDecoration);
}

QPoint text_of(QAbstractItemView *view, int row)
{
    return view->visualRect(view->model()->index(row, 0)).center();
}

bool wait_until(bool (*done)(void *object), void *object, int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    while (!done(object) && timer.elapsed() < milliseconds) {
        QCoreApplication::processEvents();
        QThread::msleep(1);
    }
    work_off();
    return done(object);
}
} // namespace vx::user_hand
