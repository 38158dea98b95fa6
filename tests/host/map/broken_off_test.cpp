#include "tests/host/map/map_fixture.h"

#include <QElapsedTimer>
#include <QPointer>

#include <new>
#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

namespace {
/// Qt's own functions, through which an exception leaves an event, give up what they hold.
class let_go
{
#if defined(__SANITIZE_ADDRESS__)
    __lsan::ScopedDisabler f_unseen;
#endif
};

/// Breaks events of one type off, as a handler does that runs out of memory.
class breaker : public QObject
{
public:
    breaker(QObject *watched, QEvent::Type type) : f_type(type) { watched->installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == f_type && ++runs)
            throw std::bad_alloc();
        return false;
    }
    int runs = 0;

private:
    QEvent::Type f_type;
};

using map_broken_off = vx_test::map_fixture;
} // namespace

TEST_F(map_broken_off, events_leave_a_message_and_the_work)
{
    [[maybe_unused]] let_go const unseen;
    ASSERT_EQ(open({"nc.shp"}), 1);
    QImage const before = picture();
    vx_test::message_reader messages;
    {
        breaker const paint(&canvas(), QEvent::Paint);
        breaker const press(&canvas(), QEvent::MouseButtonPress);
        breaker const close(window.get(), QEvent::Close);
        canvas().update();
        QCoreApplication::processEvents();
        vx_test::hand::click(&canvas(), QPoint(50, 50));
        EXPECT_FALSE(window->close());
        QElapsedTimer clock;
        clock.start();
        while (messages.texts.isEmpty() && clock.elapsed() < 5000)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
        EXPECT_GT(paint.runs, 0);
        EXPECT_GT(press.runs, 0);
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(messages.texts,
              QStringList(QStringLiteral("There was not enough memory for what was being done. "
                                         "Your work is still here.")));
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(layers().count(), 1);
    EXPECT_EQ(picture(), before);
}
