#include "scale_builders/value/val_exec.h"

#include "scale_builders/common/detail/field_reading.h"
#include "scale_builders/value/val_rebuild_with_legend_exec.h"
#include "scale_builders/value/val_statistic_calc.h"

#include "platform/base/string_adp.h"
#include "platform/base/text_codec.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_val_scale.h"
#include "platform/toolkit/core/screen.h"

#include <algorithm>
#include <vector>

int Tvx_val_exec::execute(Tvx_val_params *params, Tvx_data_events const &data)
{
    return Tvx_val_exec().exec(params, data);
}

int Tvx_val_exec::exec(Tvx_val_params *params, Tvx_data_events const &data)
{
    f_params = params;
    f_data = data;
    f_is_stopped = false;
    do_execute();
    return 0;
}

void Tvx_val_exec::do_execute()
{
    switch (f_params->get_mode()) {
    case c_val_builder_rebuild:
        return do_execute_rebuild();
    case c_val_builder_rebuild_with_legend:
        return do_execute_rebuild_with_legend();
    case c_val_builder_modify:
        return do_execute_modify();
    default:
        return;
    }
}

void *Tvx_val_exec::scale() const
{
    return vx_stl_mngr_get_val_scale_ptr(f_params->get_stl_mngr());
}

std::string Tvx_val_exec::text_of(unsigned entry) const
{
    std::wstring text;
    vx_val_scale_get_text_w(scale(), entry, Tvx_std_wstring_adapter(text));
    return std::string(vx_trimmed(vx::text::to_bytes(text).c_str()));
}

/// Values and captions of the scale's field. False, as when there is nothing to read, if that was stopped.
bool Tvx_val_exec::read(Tvx_val_capt_statistic &statistic, std::string const &capt_propname)
{
    Tvx_val_capt_statistic_calc calc;
    bool const is_read = calc.exec(&statistic, vx_stl_mngr_get_val_prop_name(f_params->get_stl_mngr()),
                                   capt_propname.c_str(), f_data);
    f_is_stopped = calc.is_stopped();
    return is_read;
}

void Tvx_val_exec::do_execute_rebuild()
{
    vx_wait_cursor const waiting;
    // Read first: who stops that keeps the scale.
    Tvx_val_capt_statistic statistic;
    bool const is_read = read(statistic, f_params->get_rebuild_params_ptr()->get_capt_propname());
    if (f_is_stopped)
        return;
    vx_val_scale_set_size(scale(), 0);
    if (!is_read)
        return;
    for (auto *item = statistic.get_first(); item; item = statistic.get_next()) {
        unsigned const entry = vx_val_scale_add(scale()) - 1;
        vx_val_scale_set_text(scale(), entry, item->get_val().c_str());
        vx_val_scale_set_caption(scale(), entry, item->get_capt().c_str());
    }
}

void Tvx_val_exec::do_execute_rebuild_with_legend()
{
    vx_wait_cursor const waiting;
    Tvx_val_capt_statistic statistic;
    char const *const field = vx_stl_mngr_get_val_prop_name(f_params->get_stl_mngr());
    static_cast<void>(read(statistic, field ? field : "")); // without values the scale becomes empty
    if (f_is_stopped)
        return;
    Tvx_val_rebuild_with_legend_exec exec;
    exec.execute(f_params, &statistic);
    f_is_stopped = exec.is_stopped();
}

void Tvx_val_exec::do_execute_modify()
{
    auto const &params = *f_params->get_modify_params_ptr();
    Tvx_val_capt_statistic captions;
    if (params.get_capt_flag()) {
        vx_wait_cursor const waiting;
        static_cast<void>(read(captions, params.get_capt_propname())); // without it captions stay
        if (f_is_stopped)
            return;
    }
    if (params.get_add_flag())
        do_modify_add();
    if (params.get_del_flag())
        do_modify_del();
    if (params.get_capt_flag())
        do_modify_capt(captions);
}

void Tvx_val_exec::do_modify_add()
{
    std::vector<std::string> texts;
    for (unsigned i = 0, count = vx_val_scale_get_size(scale()); i < count; ++i)
        texts.push_back(text_of(i));
    std::ranges::sort(texts);
    f_present.clear();
    for (auto const &text : texts)
        f_present.add(text.c_str());
    auto &values = *f_params->get_statistic_ptr();
    for (char const *value = values.get_first(); value; value = values.get_next()) {
        std::string const text(vx_trimmed(value));
        if (f_present.find(text.c_str()))
            continue;
        unsigned const entry = vx_val_scale_add(scale()) - 1;
        vx_val_scale_set_text(scale(), entry, text.c_str());
        vx_val_scale_set_caption(scale(), entry, text.c_str());
    }
}

void Tvx_val_exec::do_modify_del()
{
    auto const &values = *f_params->get_statistic_ptr();
    for (unsigned i = vx_val_scale_get_size(scale()); i-- > 0;)
        if (!values.find(text_of(i).c_str()))
            vx_val_scale_del(scale(), i);
}

void Tvx_val_exec::do_modify_capt(Tvx_val_capt_statistic &captions)
{
    for (unsigned i = 0, count = vx_val_scale_get_size(scale()); i < count; ++i)
        if (auto const *const item = captions.find_any_way(text_of(i).c_str()))
            vx_val_scale_set_caption(scale(), i, std::string(vx_trimmed(item->get_capt().c_str())).c_str());
}
