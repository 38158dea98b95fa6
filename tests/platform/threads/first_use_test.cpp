#include "platform/basic/vx_event_channel.h"

#include <QtCore/QDeadlineTimer>
#include <QtWidgets/QApplication>

#include <atomic>
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
