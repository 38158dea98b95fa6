#pragma once

#include "style_manager/api/data_events.h"

/// Whether all events are there that reading every value takes: open, close, counts, properties, cells.
[[nodiscard]] inline bool vx_has_all_data(Tvx_data_events const &data)
{
    return data.open && data.close && data.get_np && data.get_no && data.get_prop && data.get_str &&
           data.get_val;
}

/// Opens the data of the events and closes them however the reading ends. All events that are used must be
/// set.
class open_data
{
public:
    open_data(Tvx_data_events const &events, TObject *sender)
        : f_events(events), f_sender(sender), f_open(events.open(sender))
    {
    }
    open_data(open_data const &) = delete;
    open_data &operator=(open_data const &) = delete;
    ~open_data()
    {
        if (f_open)
            f_events.close(f_sender);
    }
    explicit operator bool() const { return f_open; }

private:
    Tvx_data_events f_events;
    TObject *f_sender;
    bool f_open;
};
