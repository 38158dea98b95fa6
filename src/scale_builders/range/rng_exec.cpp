#include "scale_builders/range/rng_exec.h"

#include "captions/style_manager.h"
#include "scale_builders/range/rng_params.h"
#include "scale_engine/natural_breaks/range_scale_classify_natural_breaks.h"
#include "scale_engine/range/detail/classify.h"
#include "scale_engine/range/range_scale_classify_log.h"
#include "scale_engine/range/range_scale_classify_log_space.h"
#include "scale_engine/range/range_scale_round_digits.h"

#include "platform/base/halfway.h"
#include "platform/base/shown_number.h"
#include "platform/base/strutil.h"
#include "platform/basic/vx_res.h"
#include "platform/styles/vx_rng_scale.h"
#include "platform/styles/vx_scale_prm.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_stl_prm.h"

#include <utility>

namespace {
/// The span of equal ranges where all values are the same.
constexpr double c_span_of_one_value = 5;
} // namespace

int Tvx_rng_exec::execute(Tvx_rng_params *params)
{
    try {
        return Tvx_rng_exec().exec(params);
    } catch (...) {
        return 1;
    }
}

int Tvx_rng_exec::exec(Tvx_rng_params *params)
{
    f_params = params;
    f_scale = params ? vx_stl_mngr_get_rng_scale_ptr(params->get_stl_mngr()) : nullptr;
    return do_execute();
}

void Tvx_rng_exec::delete_obj(Tvx_rng_exec *&object)
{
    delete std::exchange(object, nullptr);
}

int Tvx_rng_exec::do_execute()
{
    switch (f_params ? f_params->get_type() : c_rng_builder_none) {
    case c_rng_builder_equal_ranges:
        return do_execute_min_max();
    case c_rng_builder_natural:
        return do_execute_natural();
    case c_rng_builder_std_dev:
        return do_execute_std_dev();
    case c_rng_builder_logarithm:
        return do_execute_logarithm();
    case c_rng_builder_log_space:
        return do_execute_logspace();
    default:
        return 1;
    }
}

int Tvx_rng_exec::do_execute_min_max()
{
    auto const &params = *f_params->get_min_max_params_ptr();
    vx::task::detail::begin_classify(f_scale, c_rng_type_equal_ranges, params.get_round_digits());
    bool const one_value = params.get_min() == params.get_max();
    double const min = one_value ? -c_span_of_one_value : params.get_min();
    double const max = one_value ? c_span_of_one_value : params.get_max();
    write_equal_ranges(params.get_n_diap(), min, max, vx_halfway(min, max), params.get_round_digits());
    return 0;
}

/// Without values there is nothing to classify by: the scale keeps what it has, its range type too.
int Tvx_rng_exec::do_execute_natural()
{
    auto const &params = *f_params->get_natural_params_ptr();
    if (params.get_values().empty() || params.get_n_diap() < 0)
        return 0;
    vx::task::range_scale_classify_natural_breaks const task(L"", static_cast<unsigned>(params.get_n_diap()),
                                                             params.get_min(), params.get_max(),
                                                             params.get_round_digits());
    task.execute(f_scale, params.get_values());
    return 0;
}

int Tvx_rng_exec::do_execute_std_dev()
{
    auto const &params = *f_params->get_std_dev_params_ptr();
    vx::task::detail::begin_classify(f_scale, c_rng_type_stdev, params.get_round_digits());
    vx_rng_scale_set_deviation_coeff(f_scale, params.get_dev_coeff());
    double const mean = params.get_mean();
    double const reach = params.get_std_dev() * params.get_dev_coeff();
    using vx::task::detail::within_numbers;
    write_equal_ranges(params.get_n_diap(), within_numbers(mean - reach), within_numbers(mean + reach), mean,
                       params.get_round_digits());
    return 0;
}

void Tvx_rng_exec::write_equal_ranges(int count, double min, double max, double middle, int digits)
{
    if (count < 0)
        return;
    if (count == 0) {
        vx_rng_scale_set_size(f_scale, 0);
        vx::task::detail::set_span(f_scale, middle, middle);
    } else {
        vx::task::detail::equal_ranges_of_any_span(f_scale, static_cast<unsigned>(count), min, max);
    }
    round_rng_scale(digits);
    set_scale_names();
}

int Tvx_rng_exec::do_execute_logarithm()
{
    auto const &params = *f_params->get_logarithm_params_ptr();
    int const count = logarithm_fill_vec(params.get_is_two_sided(), params.get_round_digits(),
                                         params.get_base_idx(), params.get_min_val(), params.get_max_val());
    vx::task::detail::begin_classify(f_scale, c_rng_type_log, params.get_round_digits());
    vx_rng_scale_set_size(f_scale, static_cast<unsigned>(count));
    vx::task::detail::set_span(f_scale, f_bounds.front(), f_bounds.back());
    for (unsigned i = 0; i < static_cast<unsigned>(count); ++i)
        vx::task::detail::set_range(f_scale, i, f_bounds[i], f_bounds[i + 1]);
    if (params.get_use_colors())
        color_logarithm();
    set_scale_names();
    return 0;
}

void Tvx_rng_exec::color_logarithm()
{
    auto const &params = *f_params->get_logarithm_params_ptr();
    auto const paint = [](void *scale_prm, Tvx_color color) {
        vx_stl_prm_set_color(vx_scale_prm_get_stl_prm_ptr(scale_prm), false, color);
    };
    paint(vx_rng_scale_get_min_prm_ptr(f_scale), params.get_clr_min());
    paint(vx_rng_scale_get_max_prm_ptr(f_scale), params.get_clr_max());
    auto const count = static_cast<unsigned>(f_bounds.size() - 1);
    unsigned const last_row = count + 1;
    unsigned zero = 0;
    while (zero < count && f_bounds[zero + 1] <= 0)
        ++zero;
    if (zero == count) {
        vx_rng_scale_clr_gradient(f_scale, 0, last_row, false);
        return;
    }
    paint(vx_rng_scale_get_scale_prm_ptr(f_scale, zero), params.get_clr_zero());
    vx_rng_scale_clr_gradient(f_scale, 0, zero + 1, false);
    vx_rng_scale_clr_gradient(f_scale, zero + 1, last_row, false);
}

int Tvx_rng_exec::do_execute_logspace()
{
    auto const &params = *f_params->get_logspace_params_ptr();
    if (params.get_n_diap() < 0)
        return 0;
    vx::task::range_scale_classify_log_space const task(static_cast<unsigned>(params.get_n_diap()),
                                                        params.get_min(), params.get_max(),
                                                        params.get_round_digits());
    task.execute(f_scale);
    return 0;
}

int Tvx_rng_exec::logarithm_get_n_diap(bool two_sided, int digits, int base_idx, double min_val,
                                       double max_val)
{
    try {
        return Tvx_rng_exec().logarithm_fill_vec(two_sided, digits, base_idx, min_val, max_val);
    } catch (...) {
        return 0;
    }
}

int Tvx_rng_exec::logarithm_fill_vec(bool two_sided, int digits, int base_idx, double min_val, double max_val)
{
    f_bounds = vx::task::range_scale_classify_log::log_values(min_val, max_val, base_idx, two_sided, digits);
    return static_cast<int>(f_bounds.size()) - 1;
}

double Tvx_rng_exec::round_to_digits(double value, int digits)
{
    return vx::task::range_scale_round_digits::round_digits(value, digits);
}

std::string Tvx_rng_exec::dbl2str(double value)
{
    vx::text::number_buffer buffer;
    return std::string(vx::text::shown_number(value == 0 ? 0.0 : value, buffer)); // a zero has no sign
}

void Tvx_rng_exec::round_rng_scale(int digits)
{
    // Adding 0 takes the sign from a zero.
    auto const round = [digits](double value) { return round_to_digits(value, digits) + 0.0; };
    vx::task::detail::set_span(f_scale, round(vx_rng_scale_get_min_value(f_scale)),
                               round(vx_rng_scale_get_max_value(f_scale)));
    unsigned const size = vx_rng_scale_get_size(f_scale);
    for (unsigned i = 0; i < size; ++i)
        vx::task::detail::set_range(f_scale, i, round(vx_rng_scale_get_min(f_scale, i)),
                                    round(vx_rng_scale_get_max(f_scale, i)));
}

void Tvx_rng_exec::set_scale_names()
{
    auto const text = [](double value) {
        auto const narrow = dbl2str(value);
        return std::wstring(narrow.begin(), narrow.end());
    };
    using vx::strutil::format;
    vx_rng_scale_set_min_caption_w(f_scale, format(vx_res_get_wstr(c_caption_range_below),
                                                   text(vx_rng_scale_get_min_value(f_scale)).c_str())
                                                .c_str());
    vx_rng_scale_set_max_caption_w(f_scale, format(vx_res_get_wstr(c_caption_range_above),
                                                   text(vx_rng_scale_get_max_value(f_scale)).c_str())
                                                .c_str());
    wchar_t const *const between = vx_res_get_wstr(c_caption_range_between);
    unsigned const size = vx_rng_scale_get_size(f_scale);
    for (unsigned i = 0; i < size; ++i)
        vx_rng_scale_set_caption_w(f_scale, i,
                                   format(between, text(vx_rng_scale_get_min(f_scale, i)).c_str(),
                                          text(vx_rng_scale_get_max(f_scale, i)).c_str())
                                       .c_str());
}
