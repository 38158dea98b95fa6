#include "scale_builders/value/val_statistic_calc.h"

#include "captions/style_manager.h"
#include "scale_builders/common/detail/distinct_texts.h"
#include "scale_builders/common/detail/field_reading.h"

#include "platform/dialogs/vx_msgs.h"
#include "platform/styles/vx_stl_mngr.h"

#include <utility>

namespace {
constexpr std::size_t c_many_values = 1000;

/// Asks once whether to go on.
class patience
{
public:
    /// False when the user has had enough.
    [[nodiscard]] bool lasts() { return std::exchange(f_asked, true) || vx_yesno_res(c_stl_many_values); }

private:
    bool f_asked = false;
};
} // namespace

bool Tvx_val_statistic_calc::execute(Tvx_val_statistic *statistic, void *stl_mngr,
                                     Tvx_data_events const &data)
{
    return Tvx_val_statistic_calc().exec(statistic, stl_mngr, data);
}

bool Tvx_val_statistic_calc::exec(Tvx_val_statistic *statistic, void *stl_mngr, Tvx_data_events const &data)
{
    f_statistic = statistic;
    f_stl_mngr = stl_mngr;
    f_data = data;
    f_is_stopped = false;
    return do_execute();
}

void Tvx_val_statistic_calc::delete_obj(Tvx_val_statistic_calc *&object)
{
    delete std::exchange(object, nullptr);
}

bool Tvx_val_statistic_calc::do_execute()
{
    f_statistic->clear();
    if (!f_stl_mngr || !vx_has_all_data(f_data))
        return false;
    field_reading reading(vx_stl_mngr_get_val_prop_name(f_stl_mngr), field_kind::usable, f_data, 1);
    auto const &field = reading.get_field();
    if (!reading.is_open() || !field)
        return false;
    distinct_texts values;
    patience user;
    f_is_stopped = !reading.walk_objects([&](unsigned object) {
        bool is_defined = false;
        auto const text = reading.get_text(field, object, is_defined);
        if (!is_defined || !values.add(text))
            return true;
        return values.size() < c_many_values || user.lasts();
    });
    if (f_is_stopped)
        return false;
    f_statistic->set_sorted(values.take_sorted());
    return true;
}

bool Tvx_val_capt_statistic_calc::execute(Tvx_val_capt_statistic *statistic, char const *propname,
                                          char const *capt_propname, Tvx_data_events const &data)
{
    return Tvx_val_capt_statistic_calc().exec(statistic, propname, capt_propname, data);
}

bool Tvx_val_capt_statistic_calc::exec(Tvx_val_capt_statistic *statistic, char const *propname,
                                       char const *capt_propname, Tvx_data_events const &data)
{
    f_statistic = statistic;
    f_propname = propname ? propname : "";
    f_capt_propname = capt_propname ? capt_propname : "";
    f_data = data;
    f_is_stopped = false;
    bool const result = do_execute();
    if (f_is_stopped)
        f_statistic->clear();
    return result;
}

void Tvx_val_capt_statistic_calc::delete_obj(Tvx_val_capt_statistic_calc *&object)
{
    delete std::exchange(object, nullptr);
}

bool Tvx_val_capt_statistic_calc::do_execute()
{
    f_statistic->clear();
    if (!vx_has_all_data(f_data))
        return false;
    field_reading reading(f_propname.c_str(), field_kind::usable, f_data, 1);
    auto const &field = reading.get_field();
    if (!reading.is_open() || !field)
        return false;
    auto const capt_field = reading.find(f_capt_propname, field_kind::usable);
    if (!capt_field)
        return false;
    f_statistic->set_numeric_flag(field.is_numeric);
    patience user;
    std::string value;
    f_is_stopped = !reading.walk_objects([&](unsigned object) {
        bool is_defined = false;
        value = reading.get_text(field, object, is_defined);
        if (!is_defined || f_statistic->find(value.c_str()))
            return true;
        if (f_statistic->get_size() >= c_many_values && !user.lasts())
            return false;
        auto *const item = f_statistic->add(value.c_str());
        bool has_caption = false;
        item->set_capt(std::string(reading.get_text(capt_field, object, has_caption)).c_str());
        return true;
    });
    return !f_is_stopped;
}
