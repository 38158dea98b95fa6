#include "map_fixture.h"

#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QThread>
#include <QWheelEvent>

#include <functional>

using namespace vx_test;

namespace {
/// Draws a layer as stripes from the top, a millisecond each, and asks at each whether to go on.
struct slow_drawer
{
    int stripes = 600;
    int begun = 0;
    int done = 0;
    bool running = false;

    Tvx_drawing_result draw(Ivx_layer *, Tvx_canvas_view const &view, QImage &image,
                            closure<bool()> cancelled)
    {
        ++begun;
        running = true;
        for (int i = 0; i < stripes; ++i) {
            QThread::msleep(1);
            QPainter(&image).fillRect(0, i * view.height() / stripes, view.width(),
                                      view.height() / stripes + 1, Qt::darkGreen);
            if (cancelled && cancelled()) {
                running = false;
                return c_drawing_cancelled;
            }
        }
        running = false;
        ++done;
        return c_drawing_done;
    }
};

class slow_drawing : public map_fixture
{
protected:
    void SetUp() override
    {
        map_fixture::SetUp();
        ASSERT_EQ(open({"nc.shp"}), 1);
        ASSERT_TRUE(hand::wait_until([&] { return canvas().is_settled(); }));
        canvas().set_drawer(make_closure<&slow_drawer::draw>(&drawer));
    }

    /// Does the next of `acts` every `milliseconds`, also while a drawing serves events.
    void act_every(int milliseconds, std::vector<std::function<void()>> acts)
    {
        script = std::move(acts);
        next = 0;
        QObject::connect(&timer, &QTimer::timeout, window.get(), [this] {
            if (next < script.size())
                script[next++]();
        });
        timer.start(milliseconds);
    }
    bool is_played() const { return next == script.size(); }

    // Events as the window system delivers them: they come when the loop asks for them, wherever it runs.
    template <class Event, class... Args>
    void post(Args &&...args)
    {
        QCoreApplication::postEvent(&canvas(), new Event(std::forward<Args>(args)...));
    }
    void post_wheel()
    {
        QPointF const at = canvas().rect().center();
        post<QWheelEvent>(at, canvas().mapToGlobal(at), QPoint(), QPoint(0, 120), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
    }
    void post_key() { post<QKeyEvent>(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier); }
    void post_drag()
    {
        auto const mouse = [&](QEvent::Type type, int x, Qt::MouseButton button, Qt::MouseButtons buttons) {
            QPointF const at = canvas().rect().center() + QPoint(x, x / 2);
            post<QMouseEvent>(type, at, canvas().mapToGlobal(at), button, buttons, Qt::NoModifier);
        };
        mouse(QEvent::MouseButtonPress, 0, Qt::LeftButton, Qt::LeftButton);
        for (int x = 5; x <= 40; x += 5)
            mouse(QEvent::MouseMove, x, Qt::NoButton, Qt::LeftButton);
        mouse(QEvent::MouseButtonRelease, 40, Qt::LeftButton, Qt::NoButton);
    }

    slow_drawer drawer;
    QTimer timer;
    std::vector<std::function<void()>> script;
    std::size_t next = 0;
};

TEST_F(slow_drawing, comes_to_rest_after_fast_movement)
{
    std::function<void()> const wheel = [&] { post_wheel(); };
    std::function<void()> const key = [&] { post_key(); };
    std::function<void()> const drag = [&] { post_drag(); };
    for (auto const &act : {wheel, key, drag}) {
        timer.disconnect();
        act_every(70, std::vector(8, act));
        ASSERT_TRUE(hand::wait_until([&] { return is_played(); }));
        int const begun = drawer.begun;
        ASSERT_TRUE(hand::wait_until([&] { return canvas().is_settled(); }, 5000)) << drawer.begun;
        EXPECT_LE(drawer.begun, begun + 1) << "the view that is left, and no other";
    }
    EXPECT_LT(drawer.done, 12) << "views that were left are given up";
}

TEST_F(slow_drawing, shows_what_it_has)
{
    drawer.stripes = 1500;
    double early = 0;
    act_every(1000, {[&] {
                  EXPECT_FALSE(canvas().is_settled());
                  QImage const seen = canvas().grab().toImage();
                  for (int y = 0; y < seen.height(); ++y)
                      early += seen.pixelColor(5, y) == QColor(Qt::darkGreen);
                  early /= seen.height();
                  timer.stop();
              }});
    canvas().zoom_by(1.1);
    ASSERT_TRUE(hand::wait_until([&] { return is_played() && canvas().is_settled(); }));
    EXPECT_GT(early, 0.1);
    EXPECT_LT(early, 0.95);
}

TEST_F(slow_drawing, of_a_layer_that_goes_is_given_up)
{
    drawer.stripes = 5000;
    canvas().zoom_by(1.1);
    act_every(200, {[&] { layers().set_layer_visible(0, false); }});
    ASSERT_TRUE(hand::wait_until([&] { return is_played() && canvas().is_settled(); }, 2000));
    EXPECT_EQ(drawer.done, 0);
    act_every(200, {[&] { layers().remove(0); }});
    layers().set_layer_visible(0, true);
    ASSERT_TRUE(hand::wait_until([&] { return is_played() && canvas().is_settled(); }, 2000));
    EXPECT_EQ(drawer.done, 0);
}

TEST_F(slow_drawing, ends_at_once_with_its_window)
{
    drawer.stripes = 60000;
    QApplication::setQuitOnLastWindowClosed(true);
    QElapsedTimer closing;
    std::function<void()> const wheel = [&] { post_wheel(); };
    std::function<void()> const close = [&] {
        closing.start();
        window->close();
    };
    std::function<void()> const wait = [] {};
    std::vector<std::function<void()>> const states[] = {
        {close},                           // the first view
        {wait, wait, wait, wait, close},   // told to be slow
        {wheel, close},                    // another view is wanted
        {wheel, wait, wait, wheel, close}, // the view was given up
        {wheel, wheel, wheel, wheel, wheel, wheel, close},
    };
    for (auto const &state : states) {
        qint64 shortest = 1000;
        // A machine with other work may be late once.
        for (int attempt = 0; attempt < 3 && shortest >= 100; ++attempt) {
            timer.disconnect();
            window->show();
            canvas().zoom_by(1.1);
            act_every(110, state);
            QApplication::exec();
            shortest = std::min(shortest, closing.elapsed());
            EXPECT_FALSE(drawer.running);
            EXPECT_TRUE(is_played());
        }
        EXPECT_LT(shortest, 100) << (&state - states);
    }
    QApplication::setQuitOnLastWindowClosed(false);
}
} // namespace
