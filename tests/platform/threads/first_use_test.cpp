#include "platform/basic/vx_event_channel.h"
#include "platform/dialogs/vx_msgs.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <atomic>
#include <cstdlib>
#include <gtest/gtest.h>
#include <thread>

// A host of its own application object, whose first use of the library is from another thread. Nothing in
// this program may use the toolkit before.

TEST(first_use, an_event_from_another_thread_arrives)
{
    int count = 0;
    char name[] = "host";
    char *arguments[] = {name, nullptr};
    QApplication application(count = 1, arguments);
    Ivx_event_channel *channel = vx_event_channel_create();
    int events = 0;
    vx_event_channel_add_client(
        channel,
        [](Tvx_table *queue, void *client) { *static_cast<int *>(client) += vx_event_queue_count(queue); },
        &events);
    std::thread([&] { vx_event_channel_post(channel, c_event_update); }).join();
    EXPECT_EQ(events, 0) << "only the main thread may run it";
    QDeadlineTimer const patience(5000);
    while (events == 0 && !patience.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    EXPECT_EQ(events, 1);
    vx_event_channel_destroy(channel);
}

namespace {
/// Ends the process: 0 when the question of another thread was shown and answered, 1 when it waits for ever.
[[noreturn]] void ask_from_a_worker()
{
    int count = 1;
    char name[] = "host";
    char *arguments[] = {name, nullptr};
    QApplication application(count, arguments);
    bool shown = false;
    QTimer closer;
    QObject::connect(&closer, &QTimer::timeout, &closer, [&] {
        for (QWidget *const window : QApplication::topLevelWidgets())
            if (window->isVisible()) {
                shown = true;
                window->close();
            }
    });
    closer.start(20);
    std::atomic<bool> answered = false;
    std::thread worker([&] {
        (void)vx_yesno(L"?");
        answered = true;
    });
    QDeadlineTimer const patience(5000);
    while (!answered && !patience.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    if (!answered)
        std::_Exit(1);
    worker.join();
    std::_Exit(shown ? 0 : 2);
}
} // namespace

// In a process of its own, since the one above has used the library by now.
TEST(first_use, a_question_from_another_thread_is_asked)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(ask_from_a_worker(), testing::ExitedWithCode(0), "");
}
