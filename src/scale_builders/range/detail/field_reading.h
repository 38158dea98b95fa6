#pragma once

#include "style_manager/widgets/detail/open_data.h"

#include <cmath>
#include <memory>
#include <string>

class Tvx_progress;

/// The field of a manager's range scale among the data of pull events, which are open as long as this lives.
/// Reading that lasts shows its progress, and can be stopped there; until then the other windows take
/// nothing.
class field_reading
{
public:
    /// All events are set but that of the statistics. `passes` is how often the values will be walked over.
    field_reading(void const *stl_mngr, Tvx_data_events const &data, int passes);
    ~field_reading();
    field_reading(field_reading const &) = delete;
    field_reading &operator=(field_reading const &) = delete;

    /// Without blanks at its ends, in the system code page.
    [[nodiscard]] std::string const &get_name() const { return f_name; }
    /// Whether the data have a numeric field of that name, in any case.
    [[nodiscard]] bool is_found() const { return f_is_found; }
    [[nodiscard]] unsigned get_prop() const { return f_prop; }
    /// The user has stopped the reading, or the data have gone meanwhile.
    [[nodiscard]] bool is_stopped() const { return f_is_stopped; }

    /// Calls `take(is_defined, value)` for each object in order; a value that is not finite is none. False
    /// when the reading has been stopped.
    template <class Take>
    bool walk(Take take)
    {
        for (unsigned i = 0; i < f_count; ++i) {
            if (i % c_between_questions == 0 && !goes_on(i))
                return false;
            bool is_defined = false;
            double const value = f_data.get_val(nullptr, f_prop, i, is_defined);
            take(is_defined && std::isfinite(value), value);
        }
        ++f_pass;
        f_is_stopped = f_is_stopped || f_opened.is_given_up();
        return !f_is_stopped;
    }

private:
    static constexpr unsigned c_between_questions = 128;

    void find_field();
    [[nodiscard]] bool goes_on(unsigned object);

    Tvx_data_events f_data;
    open_data f_opened;
    std::string f_name;
    bool f_is_found = false;
    unsigned f_prop = 0;
    unsigned f_count = 0;
    int f_passes;
    int f_pass = 0;
    bool f_is_stopped = false;
    std::unique_ptr<Tvx_progress> f_progress;
};
