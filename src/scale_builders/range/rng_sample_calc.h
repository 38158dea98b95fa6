#pragma once

#include "style_manager/api/data_events.h"

#include "platform/base/basic_obj.h"
#include "platform/base/export.h"

#include <vector>

/// Draws the values that natural breaks are looked for in: up to 3,000 of those of the field of a manager's
/// range scale that lie within a span, all where there are no more, each with the same chance. The same data
/// give the same values. All events must be set but that of the statistics; they are called with no sender.
///
/// Reading that lasts shows its progress and can be stopped.
class VX_API Tvx_rng_sample_calc : public Tvx_basic_obj
{
public:
    /// The ends of the span may come in either order. False, with no change of `values`, when the user
    /// stopped the reading; true, with no values, where the data do not have the field.
    [[nodiscard]] static bool execute(std::vector<double> &values, void *stl_mngr,
                                      Tvx_data_events const &data, double min, double max);
};
