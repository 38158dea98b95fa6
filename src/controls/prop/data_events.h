#pragma once

#include "platform/base/closure.h"

class TObject;

/// Pull events of the controls that offer the properties of a data set. The sender is the asking control.
/// `usable` and `numeric` come in as false; a property that is not `usable` is not offered. Texts need to
/// live until the next call of an event of the same control.
using Tvx_data_open_event = closure<bool(TObject *sender)>;
using Tvx_data_close_event = closure<void(TObject *sender)>;
using Tvx_data_get_np_event = closure<unsigned(TObject *sender)>;
using Tvx_data_get_prop_event =
    closure<char const *(TObject *sender, unsigned prop, bool &usable, bool &numeric)>;
using Tvx_data_get_wprop_event =
    closure<wchar_t const *(TObject *sender, unsigned prop, bool &usable, bool &numeric)>;
using Tvx_data_get_capt_prop_event = closure<char const *(TObject *sender, unsigned prop)>;
using Tvx_data_get_capt_wprop_event = closure<wchar_t const *(TObject *sender, unsigned prop)>;
