#include "host/opening_progress.h"

#include "host/captions.h"

#include "platform/basic/vx_datasource.h"

#include <QAction>
#include <QApplication>
#include <QMouseEvent>
#include <QWindow>

#include <algorithm>

namespace {
/// What takes less is not worth a window.
constexpr qint64 c_patience_ms = 500;
/// The user's events wait for what takes less; what takes longer must not hold up a close.
constexpr qint64 c_hold_ms = 40;

/// Begins something that the data being opened could get in the way of. What was begun before may end.
bool is_begin(QEvent::Type type)
{
    constexpr QEvent::Type c_begins[] = {
        QEvent::MouseButtonPress, QEvent::MouseButtonDblClick, QEvent::Wheel,      QEvent::KeyPress,
        QEvent::Shortcut,         QEvent::ContextMenu,         QEvent::TouchBegin, QEvent::TabletPress,
        QEvent::NativeGesture,    QEvent::DragEnter,           QEvent::DragMove,   QEvent::Drop};
    return std::ranges::find(c_begins, type) != std::end(c_begins);
}
} // namespace

Tvx_opening_progress::Tvx_opening_progress(QWidget *parent, QAction *quit, work what)
    : f_dialog(QString(), vx_host_caption(c_cap_cancel), 0, 0, parent), f_quit(quit), f_work(what)
{
    f_dialog.setObjectName(QStringLiteral("opening"));
    f_dialog.setWindowTitle(vx_host_caption(c_cap_application));
    f_dialog.setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                            Qt::WindowCloseButtonHint);
    f_dialog.setAutoClose(false);
    f_dialog.setAutoReset(false);
    // It is shown here, not by its own clock, which runs with the values that it is given.
    f_dialog.setMinimumDuration(INT_MAX);
    f_dialog.setSizeGripEnabled(false);
    f_dialog.reset();
    f_since_start.start();
    QCoreApplication::instance()->installEventFilter(this);
    if (f_work == c_opening)
        vx_datasource_set_waiting(make_closure<&Tvx_opening_progress::goes_on>(this));
}

Tvx_opening_progress::~Tvx_opening_progress()
{
    if (f_work == c_opening)
        vx_datasource_set_waiting({});
}

void Tvx_opening_progress::set_text(QString const &text)
{
    f_dialog.setLabelText(text);
}

bool Tvx_opening_progress::eventFilter(QObject *object, QEvent *event)
{
    // A message that came up meanwhile, or a menu that is still open, keeps the rest away itself.
    if (QApplication::activeModalWidget() || QApplication::activePopupWidget())
        return false;
    return is_begun_elsewhere(object, *event);
}

/// Of what a modal dialog would keep away, all but the close of the window.
bool Tvx_opening_progress::is_begun_elsewhere(QObject const *object, QEvent const &event)
{
    if (event.type() == QEvent::MouseButtonRelease) {
        Qt::MouseButton const button = static_cast<QMouseEvent const &>(event).button();
        bool const lost = f_lost_buttons.testFlag(button);
        f_lost_buttons.setFlag(button, false);
        return lost;
    }
    if (!is_begin(event.type()) || object == f_quit || object == f_dialog.windowHandle())
        return false;
    for (QObject const *o = object; o; o = o->parent())
        if (o == &f_dialog)
            return false;
    if (event.type() == QEvent::MouseButtonPress)
        f_lost_buttons |= static_cast<QMouseEvent const &>(event).button();
    return true;
}

void Tvx_opening_progress::show_now()
{
    f_dialog.show();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

bool Tvx_opening_progress::goes_on()
{
    if (!f_dialog.isVisible() && !f_dialog.wasCanceled() && f_since_start.elapsed() >= c_patience_ms)
        f_dialog.show();
    QCoreApplication::processEvents(f_since_start.elapsed() < c_hold_ms ? QEventLoop::ExcludeUserInputEvents
                                                                        : QEventLoop::AllEvents);
    return !f_dialog.wasCanceled();
}
