#include "scale_builders/range/rng_rescale.h"

#include "scale_builders/range/rng_exec.h"
#include "scale_builders/range/rng_sample_calc.h"
#include "scale_builders/range/rng_statistic_calc.h"
#include "scale_engine/range/range_scale_round_digits.h"
#include "style_manager/widgets/detail/open_data.h"

#include "platform/styles/vx_rng_scale.h"
#include "platform/styles/vx_stl_mngr.h"

#include <utility>

bool Tvx_rng_rescale::execute(void *stl_mngr, Tvx_data_events const &data)
{
    return Tvx_rng_rescale().exec(stl_mngr, data);
}

bool Tvx_rng_rescale::exec(void *stl_mngr, Tvx_data_events const &data)
{
    f_stl_mngr = stl_mngr;
    f_data = data;
    f_params = {};
    return do_execute();
}

void Tvx_rng_rescale::delete_obj(Tvx_rng_rescale *&object)
{
    delete std::exchange(object, nullptr);
}

bool Tvx_rng_rescale::do_execute()
{
    return f_stl_mngr && vx_has_all_data(f_data) &&
           Tvx_rng_statistic_calc::execute(&f_statistic, f_stl_mngr, f_data) && fill_params() &&
           Tvx_rng_exec::execute(&f_params) == 0;
}

void Tvx_rng_rescale::fill_span(Tvx_rng_min_max_params &params, int count, int digits) const
{
    params.set_n_diap(count);
    params.set_min(f_statistic.min);
    params.set_max(f_statistic.max);
    params.set_round_digits(digits);
}

/// False when the values that it takes were not read to the end.
bool Tvx_rng_rescale::fill_params()
{
    auto const *const scale = vx_stl_mngr_get_rng_scale_ptr(f_stl_mngr);
    int const count = static_cast<int>(vx_rng_scale_get_size(scale));
    int const digits = vx::task::range_scale_round_digits::clamp_digits(vx_rng_scale_get_round_digits(scale));
    f_params.set_stl_mngr(f_stl_mngr);
    f_params.set_type(Tvx_rng_params::type_of_scale(vx_rng_scale_get_rng_type(scale)));
    switch (f_params.get_type()) {
    case c_rng_builder_natural: {
        auto &params = *f_params.get_natural_params_ptr();
        fill_span(params, count, digits);
        std::vector<double> values;
        bool const is_read =
            Tvx_rng_sample_calc::execute(values, f_stl_mngr, f_data, params.get_min(), params.get_max());
        params.set_values(std::move(values));
        return is_read;
    }
    case c_rng_builder_std_dev: {
        auto &params = *f_params.get_std_dev_params_ptr();
        params.set_n_diap(count);
        params.set_mean(f_statistic.average);
        params.set_std_dev(f_statistic.std_dev);
        params.set_dev_coeff(vx_rng_scale_get_deviation_coeff(scale));
        params.set_round_digits(digits);
        return true;
    }
    case c_rng_builder_logarithm: {
        auto &params = *f_params.get_logarithm_params_ptr();
        params.set_base_idx(0);
        params.set_is_two_sided(f_statistic.min < 0);
        params.set_min_val(f_statistic.min);
        params.set_max_val(f_statistic.max);
        params.set_round_digits(digits);
        return true;
    }
    case c_rng_builder_log_space:
        fill_span(*f_params.get_logspace_params_ptr(), count, digits);
        return true;
    default:
        fill_span(*f_params.get_min_max_params_ptr(), count, digits);
        return true;
    }
}
