#pragma once

#include "controls/prop/data_events.h"

#include "platform/base/strutil.h"

#include <string>

namespace vx {
/// Names of properties are compared and shown without blanks round them. Null counts as empty.
[[nodiscard]] inline std::wstring trimmed_name(wchar_t const *name)
{
    return strutil::trim(std::wstring(name ? name : L""), L" \t\r\n");
}

/// The data open for the length of a block, if they can be opened.
class data_reading
{
public:
    data_reading(Tvx_data_open_event const &open, Tvx_data_close_event const &close, TObject *sender)
        : f_close(close), f_sender(sender), f_open(open(sender))
    {
    }
    data_reading(data_reading const &) = delete;
    data_reading &operator=(data_reading const &) = delete;
    ~data_reading()
    {
        if (f_open)
            f_close(f_sender);
    }
    [[nodiscard]] explicit operator bool() const { return f_open; }

private:
    Tvx_data_close_event f_close;
    TObject *f_sender;
    bool f_open;
};
} // namespace vx
