#include "scale_engine/range/range_scale_reset.h"

#include "data/source/generic_datasource.h"
#include "scale_engine/natural_breaks/range_scale_classify_natural_breaks.h"
#include "scale_engine/range/range_scale_classify_equal_ranges.h"
#include "scale_engine/range/range_scale_classify_log_space.h"

#include "platform/styles/vx_rng_scale.h"

#include <utility>

namespace vx::task {
range_scale_reset::range_scale_reset(double minval, double maxval)
    : f_connection(nullptr, nullptr), f_minval(minval), f_maxval(maxval), f_known(true)
{
}

range_scale_reset::range_scale_reset(vx::data::connection connection, std::wstring field)
    : f_field(std::move(field)), f_connection(std::move(connection))
{
    vx::data::generic_datasource source;
    if (!source.open(f_connection, vx::data::access_update_or_read))
        return;
    auto const index = source.field_index(f_field);
    if (index == vx::data::c_no_field)
        return;
    f_minval = source.field_minimum(index);
    f_maxval = source.field_maximum(index);
    f_known = true;
}

bool range_scale_reset::execute(void *scale, unsigned nranges) const
{
    if (!f_known)
        return false;
    if (nranges == 0)
        nranges = vx_rng_scale_get_size(scale);
    int const digits = vx_rng_scale_get_round_digits(scale);
    switch (vx_rng_scale_get_rng_type(scale)) {
    case c_rng_type_equal_ranges:
        range_scale_classify_equal_ranges(nranges, f_minval, f_maxval, digits).execute(scale);
        break;
    case c_rng_type_natural_breaks:
        if (f_connection.valid())
            range_scale_classify_natural_breaks(f_field, nranges, f_minval, f_maxval, digits)
                .execute(scale, f_connection);
        break;
    case c_rng_type_log_space:
        range_scale_classify_log_space(nranges, f_minval, f_maxval, digits).execute(scale);
        break;
    default:
        break;
    }
    return true;
}
} // namespace vx::task
