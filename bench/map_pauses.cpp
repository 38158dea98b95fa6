// How long the map's window stands still while a hand turns the wheel and drags from the first moment of
// opening, until the picture is at rest. The clock on the wall counts other programs in, the processor's own
// does not.
//
//     bench_map_pauses FILE ...
//
// The files of bench_map_table in the build folder are good ones. With DISPLAY set it is a real window system
// that is waited for, else an offscreen one.

#include "host/map_canvas.h"
#include "host/map_window.h"

#include "platform/basic/vx_bundle.h"
#include "platform/toolkit/bridge/qt_bridge.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QTimer>
#include <QWheelEvent>

#include <algorithm>
#include <cstdio>
#include <ctime>

namespace {
constexpr int c_beat_ms = 2;
constexpr int c_hand_ms = 40;
constexpr int c_acts = 100;
constexpr double c_bound_ms = 50;

double processor_ms()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e3 + double(now.tv_nsec) * 1e-6;
}

/// What a hand does, through the queue of events.
void act(QWidget &canvas, int number)
{
    QPointF const at = canvas.rect().center();
    QPointF const there = canvas.mapToGlobal(at);
    auto const mouse = [&](QEvent::Type type, double x, Qt::MouseButton button, Qt::MouseButtons held) {
        QCoreApplication::postEvent(&canvas, new QMouseEvent(type, at + QPointF(x, 0), there + QPointF(x, 0),
                                                             button, held, Qt::NoModifier));
    };
    if (number % 2) {
        QCoreApplication::postEvent(
            &canvas, new QWheelEvent(at, there, QPoint(), QPoint(0, number % 4 == 1 ? 120 : -120),
                                     Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false));
        return;
    }
    double const way = number % 4 ? 20 : -20;
    mouse(QEvent::MouseButtonPress, 0, Qt::LeftButton, Qt::LeftButton);
    mouse(QEvent::MouseMove, way, Qt::NoButton, Qt::LeftButton);
    mouse(QEvent::MouseButtonRelease, way, Qt::LeftButton, Qt::NoButton);
}

void measure(QString const &file)
{
    Tvx_map_window window;
    window.resize(1600, 1000);
    window.show();
    for (QElapsedTimer shown; !shown.isValid() || shown.elapsed() < 500; QCoreApplication::processEvents())
        if (!shown.isValid())
            shown.start();
    QElapsedTimer since;
    double longest = 0, longest_processor = 0, processor = processor_ms();
    int late = 0, beats = 0, acts = 0;
    QTimer beat, hand;
    QObject::connect(&beat, &QTimer::timeout, [&] {
        double const pause = double(since.nsecsElapsed()) * 1e-6;
        double const now = processor_ms();
        longest = std::max(longest, pause);
        longest_processor = std::max(longest_processor, now - processor);
        late += pause > c_bound_ms;
        ++beats;
        since.restart();
        processor = now;
    });
    QObject::connect(&hand, &QTimer::timeout, [&] {
        if (++acts <= c_acts)
            act(window.canvas(), acts);
    });
    since.start();
    beat.start(c_beat_ms);
    hand.start(c_hand_ms);
    if (window.open_files({file}) != 1)
        std::printf("%s cannot be opened\n", qPrintable(file));
    while (acts <= c_acts || !window.canvas().is_settled())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    std::printf("%-40s longest pause %5.1f ms (processor %5.1f), bound %.0f; %d of %d turns above\n",
                qPrintable(file.section('/', -1)), longest, longest_processor, c_bound_ms, late, beats);
}
} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    vx_qt_ensure_application();
    vx_bundles_load(); // as the map host does before its window is seen
    for (int i = 1; i < argc; ++i)
        measure(QString::fromLocal8Bit(argv[i]));
}
