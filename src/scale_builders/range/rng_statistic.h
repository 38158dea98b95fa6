#pragma once

/// What the values of a numeric field are like. `total` counts the objects that were looked at, `defined`
/// those with a value, `undefined` the others; all three are 0 where the data gave their own statistics. The
/// numbers are those of the values; all 0 where there are none.
struct Tvx_rng_statistic
{
    unsigned total = 0;
    unsigned defined = 0;
    unsigned undefined = 0;
    double min = 0;
    double max = 0;
    double average = 0;
    double std_dev = 0; ///< of the values themselves: the squares are divided by their number
};
