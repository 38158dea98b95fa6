#include "data/editor_source/tos_source_strategy.h"

Tvx_tos_source_strategy::Tvx_tos_source_strategy()
{
    f_work.on_get_tos_filename = make_closure<&Tvx_tos_source_strategy::get_filename_adp>(this);
}

Tvx_tos_source_strategy::~Tvx_tos_source_strategy() = default;

void Tvx_tos_source_strategy::set_data_ptr(Ivx_entity *data)
{
    f_tos_data.reset(vx_tos_data_retain(vx_tos_data_safe_downcast(data)));
    f_filename.clear();
}

Ivx_entity *Tvx_tos_source_strategy::get_data_ptr()
{
    return vx_tos_data_safe_upcast(f_tos_data.get());
}

void Tvx_tos_source_strategy::set_filename(wchar_t const *name)
{
    f_filename = name ? name : L"";
    f_tos_data.reset();
}

wchar_t const *Tvx_tos_source_strategy::get_filename()
{
    if (f_tos_data)
        vx_tos_data_get_wfilename(f_tos_data.get(), Tvx_std_wstring_adapter(f_filename));
    return f_filename.c_str();
}

void Tvx_tos_source_strategy::get_filename_adp(Ivx_string_adp *out)
{
    vx_string_adp_feed(out, get_filename());
}

bool Tvx_tos_source_strategy::on_data_open()
{
    return f_work.on_data_open(nullptr);
}

void Tvx_tos_source_strategy::on_data_close()
{
    f_work.on_data_close(nullptr);
}

unsigned Tvx_tos_source_strategy::on_data_get_np()
{
    return f_work.on_data_get_np(nullptr);
}

unsigned Tvx_tos_source_strategy::on_data_get_no()
{
    return f_work.on_data_get_no(nullptr);
}

char const *Tvx_tos_source_strategy::on_data_get_prop(unsigned prop, bool &usable, bool &numeric)
{
    return f_work.on_data_get_prop(nullptr, prop, usable, numeric);
}

char const *Tvx_tos_source_strategy::on_data_get_capt_prop(unsigned prop)
{
    return f_work.on_data_get_capt_prop(nullptr, prop);
}

bool Tvx_tos_source_strategy::on_data_get_stat(unsigned prop, double &min, double &max, double &average,
                                               double &stddev, bool &ok)
{
    return f_work.on_data_get_stat(nullptr, prop, min, max, average, stddev, ok);
}

char const *Tvx_tos_source_strategy::on_data_get_str(unsigned prop, unsigned obj, bool &defined)
{
    return f_work.on_data_get_str(nullptr, prop, obj, defined);
}

double Tvx_tos_source_strategy::on_data_get_val(unsigned prop, unsigned obj, bool &defined)
{
    return f_work.on_data_get_val(nullptr, prop, obj, defined);
}

void Tvx_tos_source_strategy::on_data_get_prop_file_name(unsigned prop, Ivx_string_adp *out)
{
    f_work.on_data_get_prop_file_name(nullptr, prop, out);
}
