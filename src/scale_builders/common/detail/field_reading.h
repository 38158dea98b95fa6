#pragma once

#include "style_manager/widgets/detail/open_data.h"

#include <cmath>
#include <memory>
#include <string>
#include <string_view>

class Tvx_progress;

/// A field among the data of pull events.
struct found_field
{
    int prop = -1; ///< -1: the data have none of that name
    bool is_numeric = false;

    explicit operator bool() const { return prop >= 0; }
};

/// Which fields count, and how their names are compared: always without regard to case.
enum class field_kind
{
    usable,         ///< that are offered
    usable_numeric, ///< among them those of numbers, blanks at the ends of names aside
};

/// Walks over the objects of the data of pull events, which are open as long as this lives. Reading that
/// lasts shows its progress, and can be stopped there; until then the other windows take nothing.
class field_reading
{
public:
    /// All events are set but that of the statistics. `name` is that of the field that the user is told of;
    /// `passes` is how often the objects will be walked over.
    field_reading(char const *name, field_kind kind, Tvx_data_events const &data, int passes);
    ~field_reading();
    field_reading(field_reading const &) = delete;
    field_reading &operator=(field_reading const &) = delete;

    /// False when the data cannot be opened. They are asked all the same for fields of numbers, whose sources
    /// answer without it.
    [[nodiscard]] bool is_open() const { return static_cast<bool>(f_opened); }
    /// In the system code page; without blanks at its ends for numeric fields.
    [[nodiscard]] std::string const &get_name() const { return f_name; }
    [[nodiscard]] found_field const &get_field() const { return f_field; }
    [[nodiscard]] found_field find(std::string const &name, field_kind kind) const;
    /// The user has stopped the reading, or the data have gone meanwhile.
    [[nodiscard]] bool is_stopped() const { return f_is_stopped; }

    /// Calls `act(object)` for each object in order, until it gives false. False when the reading has been
    /// stopped.
    template <class Act>
    bool walk_objects(Act act)
    {
        bool wants_more = true;
        for (unsigned i = 0; i < f_count && wants_more; ++i) {
            if (i % c_between_questions == 0 && !goes_on(i))
                return false;
            wants_more = act(i);
        }
        ++f_pass;
        f_is_stopped = f_is_stopped || is_given_up();
        return !f_is_stopped;
    }
    /// The same with `take(is_defined, value)` for the field; a value that is not finite is none.
    template <class Take>
    bool walk(Take take)
    {
        return walk_objects([&](unsigned object) {
            bool is_defined = false;
            double const value = get_number(object, is_defined);
            take(is_defined && std::isfinite(value), value);
            return true;
        });
    }
    /// A cell without blanks and control characters at its ends; lives until the next one is asked for.
    [[nodiscard]] std::string_view get_text(found_field const &field, unsigned object,
                                            bool &is_defined) const;

private:
    static constexpr unsigned c_between_questions = 128;

    [[nodiscard]] bool goes_on(unsigned object);
    [[nodiscard]] bool is_given_up() const;
    [[nodiscard]] double get_number(unsigned object, bool &is_defined) const;

    Tvx_data_events f_data;
    open_data f_opened;
    std::string f_name;
    found_field f_field;
    unsigned f_count = 0;
    int f_passes;
    int f_pass = 0;
    bool f_is_stopped = false;
    std::unique_ptr<Tvx_progress> f_progress;
};

/// Without blanks and control characters at the ends. Null counts as empty.
[[nodiscard]] std::string_view vx_trimmed(char const *text);
