#pragma once

#include "platform/base/export.h"

/// A channel carries events from an engine object to its clients. Clients are called on the main thread only.
struct Ivx_event_channel;
/// The events of one delivery, in the order of posting. Valid during the call that hands it out.
struct Tvx_table;

using Tvx_event_channel_proc = void (*)(Tvx_table *queue, void *client);

/// Kinds of events. Numbers from 1000 on are free for hosts.
enum Tvx_event_kind : int
{
    c_event_update = 1,  ///< the object changed: what shows it reads it again
    c_event_deleted = 2, ///< the object's data is gone
};

[[nodiscard]] VX_API Ivx_event_channel *vx_event_channel_create();
/// Clients are forgotten, events that wait are dropped. Null is accepted. May be called from inside a
/// delivery of the same channel; the delivery then ends.
VX_API void vx_event_channel_destroy(Ivx_event_channel *channel);

/// Adds the pair of function and client; a pair that is there already stays once. Null channel or function:
/// nothing.
VX_API void vx_event_channel_add_client(Ivx_event_channel *channel, Tvx_event_channel_proc proc,
                                        void *client);
/// Removes the pair; none of its calls follow, also when a delivery is on its way. Unknown pairs are ignored.
VX_API void vx_event_channel_del_client(Ivx_event_channel *channel, Tvx_event_channel_proc proc,
                                        void *client);
[[nodiscard]] VX_API int vx_event_channel_get_client_count(Ivx_event_channel const *channel);

/// Posts one event. On the main thread the clients run before this returns. From another thread the event
/// waits for the main thread (see platform/winapi/detail/main_thread.h); events that wait together arrive in
/// one queue. A client that posts to its own channel starts a delivery inside the delivery. Clients added
/// during a delivery are not part of it.
VX_API void vx_event_channel_post(Ivx_event_channel *channel, int kind);

[[nodiscard]] VX_API int vx_event_queue_count(Tvx_table const *queue);
/// Number of events of kind `c_event_update`; 0 for null.
[[nodiscard]] VX_API int vx_event_queue_count_update_events(Tvx_table const *queue);
/// Kind of event `index` from 0; 0 when there is none.
[[nodiscard]] VX_API int vx_event_queue_get_kind(Tvx_table const *queue, int index);
