#pragma once

#include "scale_builders/range/rng_statistic.h"
#include "style_manager/api/data_events.h"

#include "platform/base/basic_obj.h"
#include "platform/base/export.h"

/// Works out the statistics of the field of a manager's range scale: those that the data have at hand, else
/// from all values. A value that is not finite is none. All events must be set but that of the statistics;
/// they are called with no sender.
///
/// Reading that lasts shows its progress and can be stopped; then the result is false and nothing was
/// written.
class VX_API Tvx_rng_statistic_calc : public Tvx_basic_obj
{
public:
    /// True when there are values. Where the data do not have the field the user is told so, and the result
    /// is true with an empty record. False without a value: the record then holds the counts.
    static bool execute(Tvx_rng_statistic *statistic, void *stl_mngr, Tvx_data_events const &data);
    /// The same on this object, which then knows whether it was stopped.
    bool exec(Tvx_rng_statistic *statistic, void *stl_mngr, Tvx_data_events const &data);
    /// Ends the object and clears the pointer.
    static void delete_obj(Tvx_rng_statistic_calc *&object);

    [[nodiscard]] bool is_stopped() const { return f_is_stopped; }

private:
    bool do_execute();
    [[nodiscard]] bool take_ready(unsigned prop, bool &has_values);

    Tvx_rng_statistic f_statistic;
    void *f_stl_mngr = nullptr;
    Tvx_data_events f_data;
    Tvx_rng_statistic *f_target = nullptr; ///< the caller's record
    bool f_is_stopped = false;
};
