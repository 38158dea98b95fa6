#include "map_fixture.h"

#include <QFileDialog>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QThread>
#include <QWheelEvent>

#include <cstdlib>
#include <fstream>
#include <random>
#include <unistd.h>

using namespace vx_test;

namespace {
#if defined(__SANITIZE_ADDRESS__) // slows down what is drawn, and keeps what was freed
constexpr int c_events = 500;
constexpr bool c_counts_memory = false;
#else
constexpr int c_events = 5000; ///< for each seed
constexpr bool c_counts_memory = true;
#endif

/// Draws a layer in steps of a millisecond: a few, and each eighth time so many that the user is off again.
struct slow_drawer
{
    int drawings = 0;

    Tvx_drawing_result draw(Ivx_layer *, Tvx_canvas_view const &, QImage &image, closure<bool()> cancelled)
    {
        int const steps = drawings++ % 8 == 0 ? 300 : 3;
        for (int i = 0; i < steps; ++i) {
            QThread::msleep(1);
            QPainter(&image).fillRect(i, 0, 1, image.height(), Qt::darkGreen);
            if (cancelled && cancelled())
                return c_drawing_cancelled;
        }
        return c_drawing_done;
    }
};

/// Resident memory in MiB.
double memory()
{
    long pages = 0;
    std::ifstream("/proc/self/statm") >> pages >> pages;
    return double(pages) * double(sysconf(_SC_PAGESIZE)) / (1 << 20);
}

/// A hand that does something at every turn of the event loop, whatever loop that is: the sequence follows
/// from the seed.
class random_hand : public QObject
{
public:
    random_hand(unsigned seed, Tvx_map_window &window) : f_random(seed), f_window(window)
    {
        for (int row = 0; row < window.layers().count(); ++row)
            f_layers.emplace_back(vx_lr2d_clone(window.layers().layer_at(row)));
        connect(&f_timer, &QTimer::timeout, this, [this] { act(); });
        f_timer.start(0);
    }
    [[nodiscard]] bool is_done() const { return f_done >= c_events; }
    /// Leaves the window as a user would find it usable: nothing open in front of it.
    [[nodiscard]] bool is_at_rest() const
    {
        return is_done() && !QApplication::activePopupWidget() && !QApplication::activeModalWidget() &&
               f_window.isVisible() && f_window.canvas().is_settled();
    }

private:
    int number(int below) { return int(f_random() % unsigned(below)); }

    void act()
    {
        if (!f_window.isVisible())
            f_window.show();
        for (auto const &layer : f_layers)
            if (f_window.layers().count() < int(f_layers.size()))
                f_window.add_layer(Tvx_layer_list::layer_ptr(vx_lr2d_clone(layer.get())));
        QWidget *front = QApplication::activePopupWidget();
        if (!front)
            front = QApplication::activeModalWidget();
        // What is in front is left again now and then; files are not this hand's business.
        if (front && (is_done() || qobject_cast<QFileDialog *>(front) || number(12) == 0))
            return key(front, Qt::Key_Escape, Qt::NoModifier);
        if (is_done())
            return;
        ++f_done;
        QWidget *target = front ? any_child(front) : any_child(any_window());
        switch (number(8)) {
        case 0:
        case 1:
            return key(target, c_keys[number(int(std::size(c_keys)))], c_modifiers[number(6)]);
        case 2:
            return wheel(number(3) ? &f_window.canvas() : target);
        case 3:
            f_window.resize(400 + number(900), 300 + number(600));
            return;
        case 4:
            return drag(number(2) ? &f_window.canvas() : target);
        default:
            return click(target);
        }
    }

    QWidget *any_window()
    {
        QWidgetList tops;
        for (QWidget *top : QApplication::topLevelWidgets())
            if (top->isVisible() && top->windowType() != Qt::ToolTip)
                tops.append(top);
        // Mostly the map.
        return tops.isEmpty() || number(4) ? &f_window : tops.at(number(int(tops.size())));
    }
    QWidget *any_child(QWidget *of)
    {
        QWidgetList children{of};
        for (QWidget *child : of->findChildren<QWidget *>())
            if (child->isVisible() && !child->isWindow())
                children.append(child);
        return children.at(number(int(children.size())));
    }
    QPointF any_place(QWidget *in) { return QPointF(number(in->width() + 1), number(in->height() + 1)); }

    void mouse(QWidget *to, QEvent::Type type, QPointF at, Qt::MouseButton button, Qt::MouseButtons buttons)
    {
        QCoreApplication::postEvent(
            to, new QMouseEvent(type, at, to->mapToGlobal(at), button, buttons, c_modifiers[number(6)]));
    }
    void click(QWidget *to)
    {
        QPointF const at = any_place(to);
        Qt::MouseButton const button = number(5) ? Qt::LeftButton : Qt::RightButton;
        if (button == Qt::LeftButton && to->focusPolicy() & Qt::ClickFocus)
            to->setFocus(Qt::MouseFocusReason);
        mouse(to, number(6) ? QEvent::MouseButtonPress : QEvent::MouseButtonDblClick, at, button, button);
        mouse(to, QEvent::MouseButtonRelease, at, button, Qt::NoButton);
    }
    void drag(QWidget *to)
    {
        QPointF const from = any_place(to), by = any_place(to) - from;
        mouse(to, QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
        for (int i = 1; i <= 5; ++i)
            mouse(to, QEvent::MouseMove, from + by * i / 5, Qt::NoButton, Qt::LeftButton);
        mouse(to, QEvent::MouseButtonRelease, from + by, Qt::LeftButton, Qt::NoButton);
    }
    void wheel(QWidget *to)
    {
        QPointF const at = any_place(to);
        QCoreApplication::postEvent(to,
                                    new QWheelEvent(at, to->mapToGlobal(at), {}, {0, number(2) ? 120 : -120},
                                                    Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false));
    }
    static void key(QWidget *to, int key, Qt::KeyboardModifiers modifiers)
    {
        bool const types = key >= Qt::Key_Space && key <= Qt::Key_AsciiTilde;
        QString const text = types ? QString(QChar(key)) : QString();
        QCoreApplication::postEvent(to, new QKeyEvent(QEvent::KeyPress, key, modifiers, text));
        QCoreApplication::postEvent(to, new QKeyEvent(QEvent::KeyRelease, key, modifiers, text));
    }

    static constexpr int c_keys[] = {
        Qt::Key_Left,  Qt::Key_Right,  Qt::Key_Up,  Qt::Key_Down,   Qt::Key_Home,  Qt::Key_Plus,
        Qt::Key_Minus, Qt::Key_Escape, Qt::Key_Tab, Qt::Key_Return, Qt::Key_Space, Qt::Key_Delete,
        Qt::Key_1,     Qt::Key_5,      Qt::Key_A,   Qt::Key_PageUp, Qt::Key_F6,    Qt::Key_Slash};
    static constexpr Qt::KeyboardModifiers c_modifiers[] = {Qt::NoModifier,      Qt::NoModifier,
                                                            Qt::NoModifier,      Qt::ShiftModifier,
                                                            Qt::ControlModifier, Qt::AltModifier};
    std::mt19937 f_random;
    Tvx_map_window &f_window;
    std::vector<Tvx_layer_list::layer_ptr> f_layers;
    QTimer f_timer;
    int f_done = 0;
};

class random_events : public map_fixture
{
};

// VX_SEED replays one seed.
TEST_F(random_events, leave_the_window_usable)
{
    ASSERT_EQ(open({"nc.shp", "streets.shp", "lc.tif"}), 3);
    slow_drawer drawer;
    canvas().set_drawer(make_closure<&slow_drawer::draw>(&drawer));
    std::vector<unsigned> seeds{1, 2, 3, 4};
    if (char const *seed = std::getenv("VX_SEED"))
        seeds = {unsigned(std::strtoul(seed, nullptr, 10))};
    double first = 0;
    for (unsigned const seed : seeds) {
        SCOPED_TRACE("VX_SEED=" + std::to_string(seed));
        random_hand hand(seed, *window);
        ASSERT_TRUE(hand::wait_until([&] { return hand.is_done(); }, 300000));
        ASSERT_TRUE(hand::wait_until([&] { return hand.is_at_rest(); }, 10000)) << "drawing without end";
        if (first == 0)
            first = memory();
    }
    if (c_counts_memory) {
        EXPECT_LT(memory(), first + 48) << "MiB after the first " << c_events << " events: " << first;
    }
}
} // namespace
