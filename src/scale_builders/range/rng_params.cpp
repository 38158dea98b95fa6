#include "scale_builders/range/rng_params.h"

#include "platform/styles/vx_rng_scale.h"

int Tvx_rng_params::type_of_scale(int rng_type)
{
    switch (rng_type) {
    case c_rng_type_stdev:
        return c_rng_builder_std_dev;
    case c_rng_type_log:
        return c_rng_builder_logarithm;
    case c_rng_type_natural_breaks:
        return c_rng_builder_natural;
    case c_rng_type_log_space:
        return c_rng_builder_log_space;
    default:
        return c_rng_builder_equal_ranges;
    }
}
