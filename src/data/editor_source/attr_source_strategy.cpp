#include "data/editor_source/attr_source_strategy.h"

Tvx_attr_source_strategy::~Tvx_attr_source_strategy() = default;

void Tvx_attr_source_strategy::set_attr_data(Ivx_attr_data *data)
{
    f_attr_data.reset(vx_attr_data_retain(data));
}

void Tvx_attr_source_strategy::set_data_ptr(Ivx_entity *data)
{
    set_attr_data(vx_attr_data_safe_downcast(data));
}

Ivx_entity *Tvx_attr_source_strategy::get_data_ptr()
{
    return vx_attr_data_safe_upcast(get_attr_data());
}

bool Tvx_attr_source_strategy::on_data_open()
{
    on_data_close();
    f_attr_files.reset(vx_attr_files_open(get_attr_data(), 1, 0));
    return f_attr_files != nullptr;
}

void Tvx_attr_source_strategy::on_data_close()
{
    f_attr_files.reset();
}

unsigned Tvx_attr_source_strategy::on_data_get_np()
{
    return vx_attr_files_get_np(f_attr_files.get());
}

unsigned Tvx_attr_source_strategy::on_data_get_no()
{
    return vx_attr_files_get_no(f_attr_files.get());
}

char const *Tvx_attr_source_strategy::on_data_get_prop(unsigned prop, bool &usable, bool &numeric)
{
    int const type = vx_attr_files_get_field_type(f_attr_files.get(), prop);
    usable = type > c_attr_unknown && type < c_attr_binary;
    numeric = type == c_attr_integer || type == c_attr_numeric || type == c_attr_bigint;
    return vx_attr_files_get_field_name(f_attr_files.get(), prop);
}

char const *Tvx_attr_source_strategy::on_data_get_capt_prop(unsigned prop)
{
    return vx_attr_files_get_field_name(f_attr_files.get(), prop);
}

char const *Tvx_attr_source_strategy::on_data_get_str(unsigned prop, unsigned obj, bool &defined)
{
    return vx_attr_files_get_str(f_attr_files.get(), prop, obj, &defined);
}

double Tvx_attr_source_strategy::on_data_get_val(unsigned prop, unsigned obj, bool &defined)
{
    return vx_attr_files_get_dbl(f_attr_files.get(), prop, obj, &defined);
}
