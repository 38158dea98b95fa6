#include "data/editor_source/data_source.h"

#include "data/editor_source/data_source_strategy_mngr.h"

Tvx_data_source::Tvx_data_source()
    : on_data_open(make_closure<&Tvx_data_source::on_data_open_impl>(this)),
      on_data_close(make_closure<&Tvx_data_source::on_data_close_impl>(this)),
      on_data_get_np(make_closure<&Tvx_data_source::on_data_get_np_impl>(this)),
      on_data_get_no(make_closure<&Tvx_data_source::on_data_get_no_impl>(this)),
      on_data_get_prop(make_closure<&Tvx_data_source::on_data_get_prop_impl>(this)),
      on_data_get_capt_prop(make_closure<&Tvx_data_source::on_data_get_capt_prop_impl>(this)),
      on_data_get_stat(make_closure<&Tvx_data_source::on_data_get_stat_impl>(this)),
      on_data_get_str(make_closure<&Tvx_data_source::on_data_get_str_impl>(this)),
      on_data_get_val(make_closure<&Tvx_data_source::on_data_get_val_impl>(this)),
      on_data_get_prop_file_name(make_closure<&Tvx_data_source::on_data_get_prop_file_name_impl>(this))
{
}

Tvx_data_source::~Tvx_data_source() = default;

bool Tvx_data_source::initialize(char const *key)
{
    f_strategy.reset();
    f_strategy.reset(Tvx_data_source_strategy_mngr::instance().create_strategy(key));
    return is_valid();
}

void Tvx_data_source::set_data_ptr(Ivx_entity *data)
{
    if (f_strategy)
        f_strategy->set_data_ptr(data);
}

Ivx_entity *Tvx_data_source::get_data_ptr() const
{
    return f_strategy ? f_strategy->get_data_ptr() : nullptr;
}

void Tvx_data_source::set_filename(wchar_t const *name)
{
    if (f_strategy)
        f_strategy->set_filename(name);
}

wchar_t const *Tvx_data_source::get_filename() const
{
    return f_strategy ? f_strategy->get_filename() : L"";
}

bool Tvx_data_source::on_data_open_impl(TObject *)
{
    return f_strategy && f_strategy->on_data_open();
}

void Tvx_data_source::on_data_close_impl(TObject *)
{
    if (f_strategy)
        f_strategy->on_data_close();
}

unsigned Tvx_data_source::on_data_get_np_impl(TObject *)
{
    return f_strategy ? f_strategy->on_data_get_np() : 0;
}

unsigned Tvx_data_source::on_data_get_no_impl(TObject *)
{
    return f_strategy ? f_strategy->on_data_get_no() : 0;
}

char const *Tvx_data_source::on_data_get_prop_impl(TObject *, unsigned prop, bool &usable, bool &numeric)
{
    return f_strategy ? f_strategy->on_data_get_prop(prop, usable, numeric) : "";
}

char const *Tvx_data_source::on_data_get_capt_prop_impl(TObject *, unsigned prop)
{
    return f_strategy ? f_strategy->on_data_get_capt_prop(prop) : "";
}

bool Tvx_data_source::on_data_get_stat_impl(TObject *, unsigned prop, double &min, double &max,
                                            double &average, double &stddev, bool &ok)
{
    ok = false;
    return f_strategy && f_strategy->on_data_get_stat(prop, min, max, average, stddev, ok);
}

char const *Tvx_data_source::on_data_get_str_impl(TObject *, unsigned prop, unsigned obj, bool &defined)
{
    if (f_strategy)
        return f_strategy->on_data_get_str(prop, obj, defined);
    defined = false;
    return "";
}

double Tvx_data_source::on_data_get_val_impl(TObject *, unsigned prop, unsigned obj, bool &defined)
{
    if (f_strategy)
        return f_strategy->on_data_get_val(prop, obj, defined);
    defined = false;
    return 0;
}

void Tvx_data_source::on_data_get_prop_file_name_impl(TObject *, unsigned prop, Ivx_string_adp *out)
{
    if (f_strategy)
        f_strategy->on_data_get_prop_file_name(prop, out);
}
