#pragma once

#include "platform/base/basic_obj.h"
#include "platform/base/color.h"
#include "platform/base/export.h"

#include <utility>
#include <vector>

/// Kinds of classification that a range scale is built by. They are not the range types that a scale keeps
/// (platform/styles/vx_rng_scale.h).
inline constexpr int c_rng_builder_none = 0;
inline constexpr int c_rng_builder_equal_ranges = 1;
inline constexpr int c_rng_builder_natural = 2;
inline constexpr int c_rng_builder_std_dev = 3;
inline constexpr int c_rng_builder_logarithm = 4;
inline constexpr int c_rng_builder_log_space = 5;

/// Ranges over a span. `n_diap` is the number of ranges, `round_digits` the exponent of the power of ten that
/// bounds are rounded to, -10 to 10.
class VX_API Tvx_rng_min_max_params : public Tvx_basic_obj
{
public:
    [[nodiscard]] int get_n_diap() const { return f_n_diap; }
    void set_n_diap(int n_diap) { f_n_diap = n_diap; }
    [[nodiscard]] double get_min() const { return f_min; }
    void set_min(double min) { f_min = min; }
    [[nodiscard]] double get_max() const { return f_max; }
    void set_max(double max) { f_max = max; }
    [[nodiscard]] int get_round_digits() const { return f_round_digits; }
    void set_round_digits(int digits) { f_round_digits = digits; }

private:
    int f_n_diap = 10;
    double f_min = 0;
    double f_max = 1;
    int f_round_digits = -2;
};

/// Ranges that follow the values: natural breaks and logarithmic spacing.
class VX_API Tvx_rng_natural_params : public Tvx_rng_min_max_params
{
public:
    /// The values whose gaps natural breaks look for, in any order; those outside the span do not count.
    /// Empty at first: then there is nothing to classify by. Logarithmic spacing does not look at them.
    [[nodiscard]] std::vector<double> const &get_values() const { return f_values; }
    void set_values(std::vector<double> values) { f_values = std::move(values); }

private:
    std::vector<double> f_values;
};

/// Equal ranges round the mean, `dev_coeff` standard deviations to either side.
class VX_API Tvx_rng_std_dev_params : public Tvx_basic_obj
{
public:
    [[nodiscard]] int get_n_diap() const { return f_n_diap; }
    void set_n_diap(int n_diap) { f_n_diap = n_diap; }
    [[nodiscard]] double get_mean() const { return f_mean; }
    void set_mean(double mean) { f_mean = mean; }
    [[nodiscard]] double get_std_dev() const { return f_std_dev; }
    void set_std_dev(double std_dev) { f_std_dev = std_dev; }
    [[nodiscard]] double get_dev_coeff() const { return f_dev_coeff; }
    void set_dev_coeff(double coeff) { f_dev_coeff = coeff; }
    [[nodiscard]] int get_round_digits() const { return f_round_digits; }
    void set_round_digits(int digits) { f_round_digits = digits; }

private:
    int f_n_diap = 10;
    double f_mean = 0;
    double f_std_dev = 1;
    double f_dev_coeff = 1;
    int f_round_digits = -2;
};

/// Bounds at 1, 2, 5 times powers of ten, as `vx::task::range_scale_classify_log` has them. With `use_colors`
/// the rows take colours that run from `clr_min` to `clr_max`, in a two-sided scale over `clr_zero`.
class VX_API Tvx_rng_logarithm_params : public Tvx_basic_obj
{
public:
    [[nodiscard]] int get_round_digits() const { return f_round_digits; }
    void set_round_digits(int digits) { f_round_digits = digits; }
    /// 0, 1, 2: the first step is 1, 2 or 5 times 10^round_digits.
    [[nodiscard]] int get_base_idx() const { return f_base_idx; }
    void set_base_idx(int index) { f_base_idx = index; }
    [[nodiscard]] bool get_is_two_sided() const { return f_is_two_sided; }
    void set_is_two_sided(bool two_sided) { f_is_two_sided = two_sided; }
    [[nodiscard]] double get_min_val() const { return f_min_val; }
    void set_min_val(double value) { f_min_val = value; }
    [[nodiscard]] double get_max_val() const { return f_max_val; }
    void set_max_val(double value) { f_max_val = value; }
    [[nodiscard]] bool get_use_colors() const { return f_use_colors; }
    void set_use_colors(bool use) { f_use_colors = use; }
    [[nodiscard]] Tvx_color get_clr_min() const { return f_clr_min; }
    void set_clr_min(Tvx_color color) { f_clr_min = color; }
    [[nodiscard]] Tvx_color get_clr_zero() const { return f_clr_zero; }
    void set_clr_zero(Tvx_color color) { f_clr_zero = color; }
    [[nodiscard]] Tvx_color get_clr_max() const { return f_clr_max; }
    void set_clr_max(Tvx_color color) { f_clr_max = color; }

private:
    int f_round_digits = -2;
    int f_base_idx = 0;
    bool f_is_two_sided = true;
    double f_min_val = 0;
    double f_max_val = 10;
    bool f_use_colors = false;
    Tvx_color f_clr_min = vx_clr_init_int(0xff0000);
    Tvx_color f_clr_zero = vx_clr_init_int(0x80ffff);
    Tvx_color f_clr_max = vx_clr_init_int(0xff);
};

/// What `Tvx_rng_exec` carries out: the kind of classification, the style manager whose range scale it writes
/// (not owned), and the parameters of each kind, of which only those of that kind are read.
class VX_API Tvx_rng_params : public Tvx_basic_obj
{
public:
    /// One of the kinds above, 1 at first.
    [[nodiscard]] int get_type() const { return f_type; }
    void set_type(int type) { f_type = type; }
    [[nodiscard]] void *get_stl_mngr() const { return f_stl_mngr; }
    void set_stl_mngr(void *mngr) { f_stl_mngr = mngr; }
    [[nodiscard]] Tvx_rng_min_max_params *get_min_max_params_ptr() { return &f_min_max; }
    [[nodiscard]] Tvx_rng_natural_params *get_natural_params_ptr() { return &f_natural; }
    [[nodiscard]] Tvx_rng_std_dev_params *get_std_dev_params_ptr() { return &f_std_dev; }
    [[nodiscard]] Tvx_rng_logarithm_params *get_logarithm_params_ptr() { return &f_logarithm; }
    [[nodiscard]] Tvx_rng_natural_params *get_logspace_params_ptr() { return &f_logspace; }

    /// The kind that builds a scale of this range type; equal ranges for equal areas, which no kind builds,
    /// and for what is no range type.
    [[nodiscard]] static int type_of_scale(int rng_type);

private:
    int f_type = c_rng_builder_equal_ranges;
    void *f_stl_mngr = nullptr;
    Tvx_rng_min_max_params f_min_max;
    Tvx_rng_natural_params f_natural;
    Tvx_rng_std_dev_params f_std_dev;
    Tvx_rng_logarithm_params f_logarithm;
    Tvx_rng_natural_params f_logspace;
};
