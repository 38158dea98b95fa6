#pragma once

#include "data/connection/connection.h"

#include "platform/base/export.h"

#include <string>

namespace vx::task {
/// Classifies a range scale anew in the way that its range type names: equal ranges, natural breaks and
/// logarithmic spacing. Scales of other types keep their bounds.
class VX_API range_scale_reset
{
public:
    range_scale_reset(double minval, double maxval);
    /// Takes the span of the field from its data set, which is opened for that.
    range_scale_reset(vx::data::connection connection, std::wstring field);

    /// Makes `nranges` ranges, with 0 as many as there are, under the scale's round digits. False, with the
    /// scale as it was, when the span is not known: the data set does not open or has no such field.
    bool execute(void *scale, unsigned nranges) const;

private:
    std::wstring f_field;
    vx::data::connection f_connection;
    double f_minval = 0;
    double f_maxval = 0;
    bool f_known = false;
};
} // namespace vx::task
