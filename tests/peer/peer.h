#pragma once

#include "extension/binding/dict.h"
#include "extension/binding/interface.h"
#include "extension/binding/layer_2d_editor_extension_service.h"
#include "extension/binding/monitor.h"
#include "extension/binding/referrer.h"

/// What a peer module exports, found by `dlsym`.
struct peer_functions
{
    /// An object with the families `monitor` and `dict`, alive as long as the module.
    t_vx_interface (*object)();
    /// Uses a foreign dictionary: the length of all its keys and values together; -1 for no dictionary.
    int (*consume)(t_vx_interface general);
    /// Reports to a foreign monitor; false when there is none of the revision that the peer knows.
    bool (*report)(t_vx_interface general, double done);
    /// Whether the peer takes the handle for that of an object of its own.
    bool (*is_own)(t_vx_dict_interface handle);
    /// A service on the heap with a referent of its own, and its end.
    t_vx_layer_2d_editor_extension_service_interface (*make_service)();
    void (*end_service)();
    /// Holds a foreign service, null: none. What the peer asks through its holder, and whether a handle is
    /// that of its holder.
    void (*hold)(t_vx_layer_2d_editor_extension_service_interface service);
    int (*held_priority)();
    bool (*is_own_holder)(t_vx_referrer_interface holder);
    /// Address of the peer's own table.
    void const *(*table)();
};
