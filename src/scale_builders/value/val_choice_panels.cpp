#include "scale_builders/value/val_choice_panels.h"

#include "captions/builders.h"
#include "scale_builders/common/detail/rows.h"
#include "scale_builders/value/val_params.h"

#include "platform/basic/vx_res.h"

namespace {
constexpr Tvx_builder_choice c_modes[] = {
    {c_val_builder_rebuild, L"rebuild", c_bld_rebuild},
    {c_val_builder_rebuild_with_legend, L"rebuild_with_legend", c_bld_rebuild_with_legend},
    {c_val_builder_modify, L"modify", c_bld_modify},
};
}

// ---- values

void Tvx_vcl_val_statistic_panel::create()
{
    Tvx_vcl_panel::create();
    f_group = vx::builders::add_group(this);
    f_list = new Tvx_vcl_list_box(f_group);
    f_list->SetParent(f_group);
    f_list->SetAlign(alClient);
    f_list->SetStyle(lbVirtual);
    f_list->OnData = make_closure<&Tvx_vcl_val_statistic_panel::on_list_data>(this);
}

void Tvx_vcl_val_statistic_panel::load_rc()
{
    f_list->SetAccessibleName(vx_res_get_wstr(c_bld_statistics));
    show_count();
}

void Tvx_vcl_val_statistic_panel::set_statistic(Tvx_val_statistic *statistic)
{
    f_statistic = statistic;
    f_list->SetCount(statistic ? static_cast<int>(statistic->get_size()) : 0);
    show_count();
}

void Tvx_vcl_val_statistic_panel::on_list_data(TWinControl * /*control*/, int index, UnicodeString &text)
{
    if (auto const place = static_cast<unsigned>(index); f_statistic && place < f_statistic->get_size())
        text = f_statistic->get(place);
}

void Tvx_vcl_val_statistic_panel::show_count()
{
    f_group->SetText(vx_res_format_w(c_bld_field_values, std::to_wstring(f_list->GetCount())));
}

// ---- modes

std::span<Tvx_builder_choice const> Tvx_vcl_val_type_select_panel::choices() const
{
    return c_modes;
}

int Tvx_vcl_val_type_select_panel::group_caption() const
{
    return c_bld_method;
}

int Tvx_vcl_val_type_select_panel::box_caption() const
{
    return c_bld_mode;
}

int Tvx_vcl_val_type_select_panel::get_val_type() const
{
    return static_cast<int>(get_box()->get_active_idx());
}

void Tvx_vcl_val_type_select_panel::set_val_type(int type)
{
    get_box()->set_active_idx(static_cast<unsigned>(type));
}
