#pragma once

#include "scale_builders/value/val_capt_statistic.h"
#include "scale_builders/value/val_statistic.h"
#include "style_manager/api/data_events.h"

/// Both read from the data of pull events, called with no sender; all must be set but that of the statistics.
/// A cell without a value is none, a blank one is. At 1,000 different values the user is asked, once, whether
/// to go on; after a no the values are those met so far.
///
/// Reading that lasts shows its progress and can be stopped; then the result is false, and what was to be
/// filled is empty.

/// The different values of the field of a manager's value scale.
class VX_API Tvx_val_statistic_calc : public Tvx_basic_obj
{
public:
    /// False without a manager, an event, data or the field.
    static bool execute(Tvx_val_statistic *statistic, void *stl_mngr, Tvx_data_events const &data);
    /// The same on this object, which then knows whether it was stopped.
    bool exec(Tvx_val_statistic *statistic, void *stl_mngr, Tvx_data_events const &data);
    /// Ends the object and clears the pointer.
    static void delete_obj(Tvx_val_statistic_calc *&object);

    [[nodiscard]] bool is_stopped() const { return f_is_stopped; }

private:
    [[nodiscard]] bool do_execute();

    Tvx_val_statistic *f_statistic = nullptr;
    void *f_stl_mngr = nullptr;
    Tvx_data_events f_data;
    bool f_is_stopped = false;
};

/// The different values of a field, each with the caption that another field gives it in the first object
/// with that value.
class VX_API Tvx_val_capt_statistic_calc : public Tvx_basic_obj
{
public:
    /// False without an event, data or one of the fields.
    static bool execute(Tvx_val_capt_statistic *statistic, char const *propname, char const *capt_propname,
                        Tvx_data_events const &data);
    /// The same on this object, which then knows whether it was stopped.
    bool exec(Tvx_val_capt_statistic *statistic, char const *propname, char const *capt_propname,
              Tvx_data_events const &data);
    /// Ends the object and clears the pointer.
    static void delete_obj(Tvx_val_capt_statistic_calc *&object);

    [[nodiscard]] bool is_stopped() const { return f_is_stopped; }

private:
    [[nodiscard]] bool do_execute();

    Tvx_val_capt_statistic *f_statistic = nullptr;
    std::string f_propname;
    std::string f_capt_propname;
    Tvx_data_events f_data;
    bool f_is_stopped = false;
};
