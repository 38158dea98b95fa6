#include "data/editor_source/data_source_strategy.h"

Tvx_data_source_strategy::~Tvx_data_source_strategy() = default;

void Tvx_data_source_strategy::set_filename(wchar_t const *)
{
}

wchar_t const *Tvx_data_source_strategy::get_filename()
{
    return L"";
}

bool Tvx_data_source_strategy::on_data_open()
{
    return false;
}

void Tvx_data_source_strategy::on_data_close()
{
}

unsigned Tvx_data_source_strategy::on_data_get_np()
{
    return 0;
}

unsigned Tvx_data_source_strategy::on_data_get_no()
{
    return 0;
}

char const *Tvx_data_source_strategy::on_data_get_prop(unsigned, bool &, bool &)
{
    return "";
}

char const *Tvx_data_source_strategy::on_data_get_capt_prop(unsigned)
{
    return "";
}

bool Tvx_data_source_strategy::on_data_get_stat(unsigned, double &, double &, double &, double &, bool &ok)
{
    ok = false;
    return false;
}

char const *Tvx_data_source_strategy::on_data_get_str(unsigned, unsigned, bool &defined)
{
    defined = false;
    return "";
}

double Tvx_data_source_strategy::on_data_get_val(unsigned, unsigned, bool &defined)
{
    defined = false;
    return 0;
}

void Tvx_data_source_strategy::on_data_get_prop_file_name(unsigned, Ivx_string_adp *)
{
}
