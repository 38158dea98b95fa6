#include "platform/base/owned.h"
#include "platform/basic/vx_event_channel.h"
#include "platform/winapi/detail/main_thread.h"

#include <gtest/gtest.h>
#include <string>
#include <thread>

namespace {
using channel = vx::owned<Ivx_event_channel, &vx_event_channel_destroy>;

std::string calls;

struct client
{
    char name;
    void (*act)(Ivx_event_channel *) = nullptr;
    Ivx_event_channel *channel = nullptr;
};

void receive(Tvx_table *queue, void *data)
{
    auto *const self = static_cast<client *>(data);
    calls += self->name;
    if (vx_event_queue_count(queue) != 1)
        calls += std::to_string(vx_event_queue_count(queue));
    if (self->act)
        self->act(self->channel);
}

class event_channel : public testing::Test
{
protected:
    event_channel() { calls.clear(); }
    void add(client &c)
    {
        c.channel = f_channel.get();
        vx_event_channel_add_client(f_channel.get(), &receive, &c);
    }
    channel f_channel{vx_event_channel_create()};
};

client a{'a'};
client b{'b'};
client c{'c'};
} // namespace

TEST_F(event_channel, delivers_in_order_of_joining)
{
    add(b);
    add(a);
    add(b);
    EXPECT_EQ(2, vx_event_channel_get_client_count(f_channel.get()));
    vx_event_channel_post(f_channel.get(), c_event_update);
    EXPECT_EQ("ba", calls);
    vx_event_channel_del_client(f_channel.get(), &receive, &b);
    vx_event_channel_del_client(f_channel.get(), &receive, &c);
    vx_event_channel_post(f_channel.get(), c_event_update);
    EXPECT_EQ("baa", calls);
}

TEST_F(event_channel, clients_come_and_go_during_a_delivery)
{
    struct
    {
        void (*act)(Ivx_event_channel *);
        char const *calls;
    } const cases[] = {
        {[](Ivx_event_channel *ch) { vx_event_channel_del_client(ch, &receive, &a); }, "abc"},
        {[](Ivx_event_channel *ch) { vx_event_channel_del_client(ch, &receive, &b); }, "ac"},
        {[](Ivx_event_channel *ch) {
             vx_event_channel_del_client(ch, &receive, &c);
             vx_event_channel_add_client(ch, &receive, &c);
         },
         "ab"},
    };
    for (auto const &one : cases) {
        f_channel.reset(vx_event_channel_create());
        calls.clear();
        client &first = a;
        first.act = one.act;
        vx_event_channel_add_client(f_channel.get(), &receive, &first);
        first.channel = f_channel.get();
        client *const others[] = {&b, &c};
        for (auto *const other : others)
            vx_event_channel_add_client(f_channel.get(), &receive, other);
        vx_event_channel_post(f_channel.get(), c_event_update);
        EXPECT_EQ(one.calls, calls);
        first.act = nullptr;
    }
}

TEST_F(event_channel, may_end_during_its_own_delivery)
{
    static channel dying;
    dying = std::move(f_channel);
    client killer{'k', [](Ivx_event_channel *) { dying.reset(); }, nullptr};
    vx_event_channel_add_client(dying.get(), &receive, &killer);
    vx_event_channel_add_client(dying.get(), &receive, &b);
    vx_event_channel_post(dying.get(), c_event_update);
    EXPECT_EQ("k", calls);
}

TEST_F(event_channel, a_post_from_a_client_is_a_delivery_of_its_own)
{
    static bool posted;
    posted = false;
    client again{'g',
                 [](Ivx_event_channel *ch) {
                     if (std::exchange(posted, true))
                         return;
                     vx_event_channel_post(ch, c_event_deleted);
                 },
                 nullptr};
    add(again);
    add(b);
    vx_event_channel_post(f_channel.get(), c_event_update);
    EXPECT_EQ("ggbb", calls);
}

TEST_F(event_channel, other_threads_wait_for_the_main_thread)
{
    add(a);
    std::thread([&] {
        vx_event_channel_post(f_channel.get(), c_event_update);
        vx_event_channel_post(f_channel.get(), c_event_deleted);
    }).join();
    EXPECT_EQ("", calls);
    vx_main_thread_pump();
    EXPECT_EQ("a2", calls) << "what waited together comes in one queue";

    std::thread([&] { vx_event_channel_post(f_channel.get(), c_event_update); }).join();
    f_channel.reset();
    vx_main_thread_pump();
    EXPECT_EQ("a2", calls) << "a channel that went takes its events along";
}

TEST_F(event_channel, queue_tells_kinds)
{
    static int updates;
    static int kinds[3];
    vx_event_channel_add_client(
        f_channel.get(),
        [](Tvx_table *queue, void *) {
            updates = vx_event_queue_count_update_events(queue);
            for (int i = -1; i < 2; ++i)
                kinds[i + 1] = vx_event_queue_get_kind(queue, i);
        },
        nullptr);
    vx_event_channel_post(f_channel.get(), c_event_update);
    EXPECT_EQ(1, updates);
    vx_event_channel_post(f_channel.get(), 1000);
    EXPECT_EQ(0, updates);
    EXPECT_EQ(0, kinds[0]);
    EXPECT_EQ(1000, kinds[1]);
    EXPECT_EQ(0, kinds[2]);
}

TEST(event_channel_null, is_harmless)
{
    vx_event_channel_add_client(nullptr, &receive, nullptr);
    vx_event_channel_del_client(nullptr, &receive, nullptr);
    vx_event_channel_post(nullptr, c_event_update);
    vx_event_channel_destroy(nullptr);
    EXPECT_EQ(0, vx_event_channel_get_client_count(nullptr));
    EXPECT_EQ(0, vx_event_queue_count_update_events(nullptr));
    EXPECT_EQ(0, vx_event_queue_get_kind(nullptr, 0));
}
