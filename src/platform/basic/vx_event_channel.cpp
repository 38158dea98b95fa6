#include "platform/basic/vx_event_channel.h"

#include "platform/winapi/detail/main_thread.h"

#include <algorithm>
#include <memory>
#include <mutex>
#include <vector>

struct Tvx_table
{
    std::vector<int> kinds;
};

namespace {
struct channel_client
{
    Tvx_event_channel_proc proc;
    void *client;
    unsigned long serial; ///< grows with each client: a delivery leaves out those that came after its start
};

// What a delivery on its way and an event from another thread hold on to, so that the channel may go
// meanwhile.
struct channel_state
{
    std::vector<channel_client> clients;
    unsigned long next_serial = 0;
    bool alive = true;
    std::mutex lock; ///< guards `waiting` alone; the rest belongs to the main thread
    std::vector<int> waiting;
};

void deliver(std::shared_ptr<channel_state> state, Tvx_table queue)
{
    auto const end = state->next_serial;
    unsigned long done = 0;
    while (state->alive) {
        // Looked up anew at each step: a client may take itself or others away, or end the channel.
        auto const next =
            std::find_if(state->clients.begin(), state->clients.end(),
                         [&](channel_client const &c) { return c.serial >= done && c.serial < end; });
        if (next == state->clients.end())
            return;
        done = next->serial + 1;
        auto const call = *next;
        call.proc(&queue, call.client);
    }
}

void deliver_waiting(void *data)
{
    std::unique_ptr<std::weak_ptr<channel_state>> const held(
        static_cast<std::weak_ptr<channel_state> *>(data));
    auto const state = held->lock();
    if (!state)
        return;
    Tvx_table queue;
    {
        std::lock_guard const hold(state->lock);
        queue.kinds.swap(state->waiting);
    }
    if (!queue.kinds.empty())
        deliver(state, std::move(queue));
}
} // namespace

struct Ivx_event_channel
{
    std::shared_ptr<channel_state> state = std::make_shared<channel_state>();
};

Ivx_event_channel *vx_event_channel_create()
{
    return new Ivx_event_channel;
}

void vx_event_channel_destroy(Ivx_event_channel *channel)
{
    if (!channel)
        return;
    channel->state->alive = false;
    delete channel;
}

void vx_event_channel_add_client(Ivx_event_channel *channel, Tvx_event_channel_proc proc, void *client)
{
    if (!channel || !proc)
        return;
    auto &state = *channel->state;
    auto const same = [&](channel_client const &c) { return c.proc == proc && c.client == client; };
    if (std::none_of(state.clients.begin(), state.clients.end(), same))
        state.clients.push_back({proc, client, state.next_serial++});
}

void vx_event_channel_del_client(Ivx_event_channel *channel, Tvx_event_channel_proc proc, void *client)
{
    if (channel)
        std::erase_if(channel->state->clients,
                      [&](channel_client const &c) { return c.proc == proc && c.client == client; });
}

int vx_event_channel_get_client_count(Ivx_event_channel const *channel)
{
    return channel ? static_cast<int>(channel->state->clients.size()) : 0;
}

void vx_event_channel_post(Ivx_event_channel *channel, int kind)
{
    if (!channel)
        return;
    if (vx_is_main_thread()) {
        deliver(channel->state, Tvx_table{{kind}});
        return;
    }
    bool first;
    {
        std::lock_guard const hold(channel->state->lock);
        first = channel->state->waiting.empty();
        channel->state->waiting.push_back(kind);
    }
    if (first)
        vx_main_thread_post(&deliver_waiting, new std::weak_ptr<channel_state>(channel->state));
}

int vx_event_queue_count(Tvx_table const *queue)
{
    return queue ? static_cast<int>(queue->kinds.size()) : 0;
}

int vx_event_queue_count_update_events(Tvx_table const *queue)
{
    return queue ? static_cast<int>(std::count(queue->kinds.begin(), queue->kinds.end(), c_event_update)) : 0;
}

int vx_event_queue_get_kind(Tvx_table const *queue, int index)
{
    if (index < 0 || index >= vx_event_queue_count(queue))
        return 0;
    return queue->kinds[static_cast<std::size_t>(index)];
}
