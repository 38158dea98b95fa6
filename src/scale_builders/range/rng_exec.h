#pragma once

#include "platform/base/basic_obj.h"
#include "platform/base/export.h"

#include <string>
#include <vector>

class Tvx_rng_params;

/// Builds the range scale of a style manager anew. Written are range type, round digits, the bounds and the
/// captions; rows that were there keep their styles, marks and visibility, those that come are new ones.
///
/// A number of ranges below 0 leaves bounds and captions; equal ranges and those of the deviation write their
/// type and digits even so. More than 100,000 ranges are not made.
class VX_API Tvx_rng_exec : public Tvx_basic_obj
{
public:
    /// 0 for success. 1 for a kind that there is none of, and when an exception passed: then the scale may be
    /// partly written. The parameters stay the caller's.
    [[nodiscard]] static int execute(Tvx_rng_params *params);
    /// The same on this object; exceptions pass.
    int exec(Tvx_rng_params *params);
    /// Ends the object and clears the pointer.
    static void delete_obj(Tvx_rng_exec *&object);

    /// The number of ranges of a logarithmic scale of these parameters (see `Tvx_rng_logarithm_params`); 0
    /// when an exception passes.
    [[nodiscard]] static int logarithm_get_n_diap(bool two_sided, int digits, int base_idx, double min_val,
                                                  double max_val);
    /// The same; keeps the bounds, one more than there are ranges, in ascending order.
    int logarithm_fill_vec(bool two_sided, int digits, int base_idx, double min_val, double max_val);
    [[nodiscard]] std::vector<double> const &get_logarithm_vec() const { return f_bounds; }

    /// To a multiple of 10^digits, halves away from zero.
    [[nodiscard]] static double round_to_digits(double value, int digits);
    /// In general form with up to 15 significant digits and "." as decimal separator.
    [[nodiscard]] static std::string dbl2str(double value);

private:
    [[nodiscard]] int do_execute();
    int do_execute_min_max();
    int do_execute_natural();
    int do_execute_std_dev();
    int do_execute_logarithm();
    int do_execute_logspace();
    /// `count` ranges of one width, rounded and named; none, with both ends of the scale at `middle`, for 0.
    void write_equal_ranges(int count, double min, double max, double middle, int digits);
    void color_logarithm();
    void round_rng_scale(int digits);
    void set_scale_names();

    Tvx_rng_params *f_params = nullptr;
    void *f_scale = nullptr;
    std::vector<double> f_bounds; ///< of a logarithmic scale
};
