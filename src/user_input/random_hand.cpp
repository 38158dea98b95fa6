#include "user_input/random_hand.h"

#include "user_input/hand_priv.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QPointer>
#include <QtCore/QTimerEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QFileDialog>

#include <cstdio>
#include <deque>
#include <fstream>
#include <iterator>
#include <random>
#include <unistd.h>

namespace vx::user_hand {
namespace {
constexpr int c_keys[] = {Qt::Key_Left, Qt::Key_Right,  Qt::Key_Up,    Qt::Key_Down,   Qt::Key_Home,
                          Qt::Key_End,  Qt::Key_PageUp, Qt::Key_Plus,  Qt::Key_Minus,  Qt::Key_Escape,
                          Qt::Key_Tab,  Qt::Key_Return, Qt::Key_Space, Qt::Key_Delete, Qt::Key_Backspace,
                          Qt::Key_1,    Qt::Key_5,      Qt::Key_9,     Qt::Key_Period, Qt::Key_A,
                          Qt::Key_C,    Qt::Key_V,      Qt::Key_Z,     Qt::Key_F2,     Qt::Key_F4,
                          Qt::Key_F6,   Qt::Key_Slash,  Qt::Key_Menu};
constexpr Qt::KeyboardModifier c_modifiers[] = {Qt::NoModifier,    Qt::NoModifier,      Qt::NoModifier,
                                                Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier};
constexpr int c_patience = 12;      ///< Esc as often before a window is closed by its box
constexpr std::size_t c_lines = 40; ///< that are remembered

/// One thing to do, in numbers that leave open what stands there when it is done.
struct deed
{
    unsigned kind, place, child, leave, x1, y1, x2, y2, key, modifier, detail;

    explicit deed(std::mt19937 &random)
    {
        for (unsigned *number : {&kind, &place, &child, &leave, &x1, &y1, &x2, &y2, &key, &modifier, &detail})
            *number = unsigned(random());
    }
};

QPointF place_in(QWidget const *widget, unsigned x, unsigned y)
{
    return QPointF(x % unsigned(widget->width() + 1), y % unsigned(widget->height() + 1));
}

QWidget *in_front()
{
    QWidget *const popup = QApplication::activePopupWidget();
    return popup ? popup : QApplication::activeModalWidget();
}
} // namespace

/// Everything is posted, and each deed has a timer of its own: one that is at work does not run again in a
/// loop inside, where the hand must go on.
class random_hand::worker final : public QObject
{
public:
    explicit worker(random_plan const &plan)
        : f_plan(plan), f_window(plan.window), f_favourite(plan.favourite), f_random(plan.seed)
    {
        if (!plan.log.empty())
            f_log.open(plan.log);
        f_timer = startTimer(0);
    }

    [[nodiscard]] bool is_done() const { return f_done >= f_plan.events; }
    [[nodiscard]] bool is_at_rest() const
    {
        return is_done() && f_window && f_window->isVisible() && !in_front();
    }
    [[nodiscard]] std::string last_lines() const
    {
        std::string all;
        for (std::string const &line : f_lines)
            all += line + "\n";
        return all;
    }

protected:
    void timerEvent(QTimerEvent *) override
    {
        killTimer(f_timer);
        f_timer = startTimer(0);
        act();
    }

private:
    void act()
    {
        if (!f_window)
            return;
        if (!f_window->isVisible())
            f_window->show();
        if (f_plan.before_each)
            f_plan.before_each();
        QPointer<QWidget> const front = in_front();
        if (is_done())
            return leave(front);
        deed const next(f_random);
        ++f_done;
        if (front && (qobject_cast<QFileDialog *>(front) || next.leave % 12 == 0))
            return leave(front);
        f_left = 0;
        perform(next, front);
    }

    void leave(QWidget *front)
    {
        if (!front)
            return;
        if (++f_left > c_patience) {
            say("close", front);
            front->close();
        } else {
            key(front, Qt::Key_Escape, Qt::NoModifier);
        }
    }

    void perform(deed const &next, QWidget *front)
    {
        auto const modifiers = Qt::KeyboardModifiers(c_modifiers[next.modifier % std::size(c_modifiers)]);
        QWidget *const target = any_child(front ? front : any_window(next.place), next.child);
        QWidget *const liked = f_favourite && f_favourite->isVisible() ? f_favourite.data() : target;
        switch (next.kind % 8) {
        case 0:
        case 1: {
            QWidget *const focus = QApplication::focusWidget();
            return key(focus && next.detail % 2 ? focus : target, c_keys[next.key % std::size(c_keys)],
                       modifiers);
        }
        case 2:
            return wheel(next.detail % 3 ? liked : target, next);
        case 3:
            say("size", f_window);
            return f_window->resize(400 + int(next.x1 % 900), 300 + int(next.y1 % 600));
        case 4:
            return drag(next.detail % 2 ? liked : target, next, modifiers);
        default:
            return click(target, next, modifiers);
        }
    }

    QWidget *any_window(unsigned place)
    {
        QWidgetList tops;
        for (QWidget *top : QApplication::topLevelWidgets())
            if (top->isVisible() && top->windowType() != Qt::ToolTip)
                tops.append(top);
        return tops.isEmpty() || place % 4 ? f_window.data() : tops.at(place / 4 % unsigned(tops.size()));
    }
    static QWidget *any_child(QWidget *of, unsigned child)
    {
        QWidgetList children{of};
        for (QWidget *widget : of->findChildren<QWidget *>())
            if (widget->isVisible() && !widget->isWindow())
                children.append(widget);
        return children.at(child % unsigned(children.size()));
    }

    static void mouse(QWidget *to, QEvent::Type type, QPointF at, Qt::MouseButton button,
                      Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers)
    {
        QCoreApplication::postEvent(
            to, new QMouseEvent(type, at, to->mapToGlobal(at), button, buttons, modifiers));
    }
    void click(QPointer<QWidget> to, deed const &next, Qt::KeyboardModifiers modifiers)
    {
        QPointF const at = place_in(to, next.x1, next.y1);
        Qt::MouseButton const button = next.detail % 5 ? Qt::LeftButton : Qt::RightButton;
        bool const twice = next.detail / 5 % 6 == 0;
        say(twice ? "double" : button == Qt::LeftButton ? "click" : "right", to, at);
        if (button == Qt::LeftButton && to->focusPolicy() & Qt::ClickFocus)
            to->setFocus(Qt::MouseFocusReason); // may ask something before it comes back
        if (!to)
            return;
        mouse(to, twice ? QEvent::MouseButtonDblClick : QEvent::MouseButtonPress, at, button, button,
              modifiers);
        mouse(to, QEvent::MouseButtonRelease, at, button, Qt::NoButton, modifiers);
        if (button == Qt::RightButton)
            QCoreApplication::postEvent(to, new QContextMenuEvent(QContextMenuEvent::Mouse, at.toPoint(),
                                                                  to->mapToGlobal(at).toPoint(), modifiers));
    }
    void drag(QWidget *to, deed const &next, Qt::KeyboardModifiers modifiers)
    {
        constexpr int c_moves = 5;
        QPointF const from = place_in(to, next.x1, next.y1), by = place_in(to, next.x2, next.y2) - from;
        say("drag", to, from);
        mouse(to, QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton, modifiers);
        for (int i = 1; i <= c_moves; ++i)
            mouse(to, QEvent::MouseMove, from + by * i / c_moves, Qt::NoButton, Qt::LeftButton, modifiers);
        mouse(to, QEvent::MouseButtonRelease, from + by, Qt::LeftButton, Qt::NoButton, modifiers);
    }
    void wheel(QWidget *to, deed const &next)
    {
        QPointF const at = place_in(to, next.x1, next.y1);
        say("wheel", to, at);
        QPoint const turn(0, next.detail / 3 % 2 ? 120 : -120);
        QCoreApplication::postEvent(to, new QWheelEvent(at, to->mapToGlobal(at), {}, turn, Qt::NoButton,
                                                        Qt::NoModifier, Qt::NoScrollPhase, false));
    }
    void key(QPointer<QWidget> to, int key, Qt::KeyboardModifiers modifiers)
    {
        say("key", to, QPointF(key, modifiers.toInt()));
        bool const types = key >= Qt::Key_Space && key <= Qt::Key_AsciiTilde;
        QString const text = types ? QString(QChar(key)) : QString();
        if (detail::run_shortcut(to, key, modifiers.toInt(), text) || !to)
            return;
        QCoreApplication::postEvent(to, new QKeyEvent(QEvent::KeyPress, key, modifiers, text));
        QCoreApplication::postEvent(to, new QKeyEvent(QEvent::KeyRelease, key, modifiers, text));
    }

    void say(char const *what, QWidget const *to, QPointF at = {})
    {
        QString const title = to->window()->windowTitle();
        f_lines.push_back(
            QStringLiteral("%1 %2 %3 %4,%5 in \"%6\"")
                .arg(f_done)
                .arg(QLatin1String(what), QLatin1String(to->metaObject()->className()))
                .arg(at.x())
                .arg(at.y())
                .arg(title.isEmpty() ? QLatin1String(to->window()->metaObject()->className()) : title)
                .toStdString());
        if (f_log.is_open())
            f_log << f_lines.back() << std::endl;
        if (f_lines.size() > c_lines)
            f_lines.pop_front();
    }

    random_plan f_plan;
    QPointer<QWidget> f_window, f_favourite;
    std::mt19937 f_random;
    std::deque<std::string> f_lines;
    std::ofstream f_log;
    int f_timer = 0;
    int f_done = 0;
    int f_left = 0; ///< tries to leave what is in front
};

random_hand::random_hand(random_plan const &plan) : f_worker(std::make_unique<worker>(plan))
{
}
random_hand::~random_hand() = default;

bool random_hand::run(int milliseconds)
{
    QDeadlineTimer const deadline(milliseconds);
    auto const rest = [&] {
        while (!f_worker->is_at_rest() && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents); // the hand's timer is one
    };
    rest();
    // The last deed is posted, and may open something yet.
    QCoreApplication::processEvents();
    rest();
    return f_worker->is_at_rest();
}

std::string random_hand::last_lines() const
{
    return f_worker->last_lines();
}

double resident_memory()
{
    double all = 0, pages = 0;
    std::ifstream("/proc/self/statm") >> all >> pages;
    return pages * double(sysconf(_SC_PAGESIZE)) / (1 << 20);
}
} // namespace vx::user_hand
