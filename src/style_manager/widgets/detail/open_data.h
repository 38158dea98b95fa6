#pragma once

#include "controls/forms/panels.h"
#include "style_manager/api/data_events.h"

#include <memory>

/// Whether all events are there that reading every value takes: open, close, counts, properties, cells.
[[nodiscard]] inline bool vx_has_all_data(Tvx_data_events const &data)
{
    return data.open && data.close && data.get_np && data.get_no && data.get_prop && data.get_str &&
           data.get_val;
}

/// Opens the data of the events and closes them however the reading ends. All events that are used must be
/// set. Where a sender is given that is a control, whoever answers the events lives as long as it does;
/// without one `owner` may say who does.
class open_data
{
public:
    open_data(Tvx_data_events const &events, TObject *sender, TControl *owner = nullptr)
        : f_events(events), f_sender(sender), f_control(owner ? owner : dynamic_cast<TControl *>(sender)),
          f_life(f_control ? f_control->Life() : std::weak_ptr<void const>()), f_open(events.open(sender)),
          f_count(f_open && events.get_no ? events.get_no(sender) : 0)
    {
    }
    open_data(open_data const &) = delete;
    open_data &operator=(open_data const &) = delete;
    ~open_data()
    {
        if (f_open && is_alive())
            f_events.close(f_sender);
    }
    explicit operator bool() const { return f_open; }
    /// The reading was stopped, or the data, or their reader, have gone meanwhile.
    [[nodiscard]] bool is_given_up() const
    {
        return !is_alive() || (f_open && f_events.get_no && f_events.get_no(f_sender) != f_count);
    }

private:
    [[nodiscard]] bool is_alive() const { return !f_control || !f_life.expired(); }

    Tvx_data_events f_events;
    TObject *f_sender;
    TControl *f_control;
    std::weak_ptr<void const> f_life;
    bool f_open;
    unsigned f_count;
};
