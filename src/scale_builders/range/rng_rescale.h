#pragma once

#include "scale_builders/range/rng_params.h"
#include "scale_builders/range/rng_statistic.h"
#include "style_manager/api/data_events.h"

#include "platform/base/basic_obj.h"
#include "platform/base/export.h"

/// Repeats the classification of a manager's range scale on what its field holds now: the same kind, number
/// of ranges, round digits and coefficient over the span of the values. Equal areas, which nothing here
/// builds, become equal ranges. The first step of a logarithmic scale is 1 times 10^digits; it is two-sided
/// where there are values below 0, and keeps its colours.
class VX_API Tvx_rng_rescale : public Tvx_basic_obj
{
public:
    /// True when the scale was classified. False, with the scale as it was, without a manager or without one
    /// of the events (that of the statistics may be missing), without a value, and when the user stopped the
    /// reading. An exception on the way gives false, with the scale partly written.
    [[nodiscard]] static bool execute(void *stl_mngr, Tvx_data_events const &data);
    /// The same on this object.
    [[nodiscard]] bool exec(void *stl_mngr, Tvx_data_events const &data);
    /// Ends the object and clears the pointer.
    static void delete_obj(Tvx_rng_rescale *&object);

private:
    [[nodiscard]] bool do_execute();
    [[nodiscard]] bool fill_params();
    void fill_span(Tvx_rng_min_max_params &params, int count, int digits) const;

    void *f_stl_mngr = nullptr;
    Tvx_data_events f_data;
    Tvx_rng_statistic f_statistic;
    Tvx_rng_params f_params;
};
