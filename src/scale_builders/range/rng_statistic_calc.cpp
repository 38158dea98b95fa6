#include "scale_builders/range/rng_statistic_calc.h"

#include "captions/builders.h"
#include "scale_builders/common/detail/field_reading.h"

#include "platform/base/strutil.h"
#include "platform/base/text_codec.h"
#include "platform/basic/vx_res.h"
#include "platform/dialogs/vx_msgs.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/toolkit/core/screen.h"

#include <algorithm>
#include <cmath>
#include <utility>

bool Tvx_rng_statistic_calc::execute(Tvx_rng_statistic *statistic, void *stl_mngr,
                                     Tvx_data_events const &data)
{
    return Tvx_rng_statistic_calc().exec(statistic, stl_mngr, data);
}

bool Tvx_rng_statistic_calc::exec(Tvx_rng_statistic *statistic, void *stl_mngr, Tvx_data_events const &data)
{
    f_target = statistic;
    f_stl_mngr = stl_mngr;
    f_data = data;
    f_statistic = {};
    f_is_stopped = false;
    bool const result = do_execute();
    if (!f_is_stopped && f_target)
        *f_target = f_statistic;
    return result && !f_is_stopped;
}

void Tvx_rng_statistic_calc::delete_obj(Tvx_rng_statistic_calc *&object)
{
    delete std::exchange(object, nullptr);
}

bool Tvx_rng_statistic_calc::take_ready(unsigned prop, bool &has_values)
{
    Tvx_rng_statistic ready;
    if (!f_data.get_stat ||
        !f_data.get_stat(nullptr, prop, ready.min, ready.max, ready.average, ready.std_dev, has_values))
        return false;
    f_statistic = ready;
    return true;
}

bool Tvx_rng_statistic_calc::do_execute()
{
    constexpr int c_passes = 2;
    vx_wait_cursor const waiting;
    field_reading field(vx_stl_mngr_get_rng_prop_name(f_stl_mngr), field_kind::usable_numeric, f_data,
                        c_passes);
    if (!field.get_field()) {
        auto const name = vx::text::to_wide(field.get_name());
        vx_show_werror(vx::strutil::format(vx_res_get_wstr(c_bld_no_field), name.c_str()).c_str());
        return true;
    }
    if (bool has_values = false; take_ready(static_cast<unsigned>(field.get_field().prop), has_values))
        return has_values;
    auto &found = f_statistic;
    long double sum = 0; // has room for the sum of any numbers, and of their squares
    field.walk([&](bool is_defined, double value) {
        ++found.total;
        if (!is_defined) {
            ++found.undefined;
            return;
        }
        sum += value;
        found.min = found.defined == 0 ? value : std::min(found.min, value);
        found.max = found.defined == 0 ? value : std::max(found.max, value);
        ++found.defined;
    });
    if (found.defined > 0 && !field.is_stopped()) {
        found.average = static_cast<double>(sum / found.defined);
        long double squares = 0;
        field.walk([&](bool is_defined, double value) {
            long double const away = static_cast<long double>(value) - found.average;
            if (is_defined)
                squares += away * away;
        });
        found.std_dev = static_cast<double>(std::sqrt(squares / found.defined));
    }
    f_is_stopped = field.is_stopped();
    return found.defined > 0;
}
