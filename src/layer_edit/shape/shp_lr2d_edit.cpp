#include "layer_edit/shape/shp_lr2d_edit.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/calculator/vx_calc_filter.h"
#include "platform/data/vx_attr_data.h"
#include "platform/dialogs/column_reading.h"
#include "platform/dialogs/vx_dlgs.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/styles/vx_stl_mngr_list.h"

#include <utility>

Tvx_shp_lr2d_edit::~Tvx_shp_lr2d_edit()
{
    vx_attr_files_close(f_attr_files);
}

void Tvx_shp_lr2d_edit::create()
{
    Tvx_basic_lr2d_edit::create();
    SetAutoSize(true);
    f_list_edit = new Tvx_style_stl_mngr_list_edit(this, false);
    f_list_edit->SetParent(this);
    f_list_edit->create();
    f_list_edit->SetAlign(alTop);
    f_list_edit->on_changed = make_closure<&Tvx_shp_lr2d_edit::on_stl_mngr_list_active_changed>(this);
}

void Tvx_shp_lr2d_edit::take_stl_mngr_edit(Tvx_typed_stl_mngr_edit *edit, void *(*own_mngr)(Ivx_layer *layer))
{
    DisableAlign();
    f_edit = edit;
    f_own_mngr = own_mngr;
    edit->SetParent(this);
    edit->create();
    edit->rule_enabled(true);
    edit->SetAlign(alClient);
    edit->set_on_data_open(make_closure<&Tvx_shp_lr2d_edit::on_data_open>(this));
    edit->set_on_data_close(make_closure<&Tvx_shp_lr2d_edit::on_data_close>(this));
    edit->set_on_data_get_np(make_closure<&Tvx_shp_lr2d_edit::on_data_get_np>(this));
    edit->set_on_data_get_no(make_closure<&Tvx_shp_lr2d_edit::on_data_get_no>(this));
    edit->set_on_data_get_prop(make_closure<&Tvx_shp_lr2d_edit::on_data_get_prop>(this));
    // The editor computes statistics from the values.
    edit->set_on_data_get_stat({});
    edit->set_on_data_get_str(make_closure<&Tvx_shp_lr2d_edit::on_data_get_str>(this));
    edit->set_on_data_get_val(make_closure<&Tvx_shp_lr2d_edit::on_data_get_val>(this));
    edit->set_on_edit_value_item(make_closure<&Tvx_shp_lr2d_edit::on_edit_value_item>(this));
    EnableAlign();
}

void Tvx_shp_lr2d_edit::load_res()
{
    f_list_edit->load_res();
    f_edit->load_res();
}

void Tvx_shp_lr2d_edit::update_controls()
{
    Ivx_layer *const layer = get_lr2d();
    // Whoever reads the table of another layer learns that it is gone.
    if (f_attr_files && layer != f_table_layer)
        on_data_close(this);
    void *const list = layer ? vx_shp_lr2d_get_style_mngr_list_ptr(layer) : nullptr;
    f_list_edit->set_stl_mngr_list(list);
    f_list_edit->set_lr2d(layer);
    f_list_edit->update_controls();
    if (layer)
        f_edit->enable_selection_style(vx_lr_get_own_selected_style_flag(layer));
    f_edit->set_stl_mngr(list ? vx_stl_mngr_list_get_active_mngr(list) : layer ? f_own_mngr(layer) : nullptr);
    f_edit->set_lr(layer);
    f_edit->update_controls();
}

void Tvx_shp_lr2d_edit::end_edit(bool taken)
{
    f_edit->end_edit(taken);
}

void Tvx_shp_lr2d_edit::on_stl_mngr_list_active_changed(TObject * /*sender*/)
{
    update_controls();
}

void Tvx_shp_lr2d_edit::report_change()
{
    if (get_lr2d())
        call_changed();
}

// ---- the attribute table

bool Tvx_shp_lr2d_edit::on_data_open(TObject *sender)
{
    if (f_is_reading) // what is asked for while events are handled must not take the table away
        return false;
    on_data_close(sender);
    f_table_layer = get_lr2d();
    Ivx_attr_data *const data = f_table_layer ? vx_shp_lr2d_get_attr_data_ptr(f_table_layer) : nullptr;
    f_attr_files = data ? vx_attr_files_open(data, 1, 0) : nullptr;
    f_read_columns.assign(vx_attr_files_get_np(f_attr_files), false);
    return f_attr_files != nullptr;
}

void Tvx_shp_lr2d_edit::on_data_close(TObject * /*sender*/)
{
    vx_attr_files_close(std::exchange(f_attr_files, nullptr));
}

unsigned Tvx_shp_lr2d_edit::on_data_get_np(TObject * /*sender*/)
{
    return vx_attr_files_get_np(f_attr_files);
}

unsigned Tvx_shp_lr2d_edit::on_data_get_no(TObject * /*sender*/)
{
    return vx_attr_files_get_no(f_attr_files);
}

char const *Tvx_shp_lr2d_edit::on_data_get_prop(TObject * /*sender*/, unsigned prop, bool &usable,
                                                bool &numeric)
{
    switch (vx_attr_files_get_field_type(f_attr_files, prop)) {
    case c_attr_integer:
    case c_attr_numeric:
    case c_attr_bigint:
        usable = numeric = true;
        break;
    case c_attr_string:
    case c_attr_date:
    case c_attr_time:
    case c_attr_date_time:
        usable = true;
        numeric = false;
        break;
    default:
        usable = numeric = false;
    }
    return vx_attr_files_get_field_name(f_attr_files, prop);
}

bool Tvx_shp_lr2d_edit::read_column(unsigned prop)
{
    if (!f_attr_files || prop >= f_read_columns.size())
        return false;
    if (f_read_columns[prop])
        return true;
    auto const life = Life();
    bool is_read = false;
    {
        struct reading
        {
            Tvx_shp_lr2d_edit *page;
            std::weak_ptr<void const> life;
            ~reading()
            {
                if (!life.expired())
                    page->f_is_reading = false;
            }
        };
        f_is_reading = true;
        reading const ends{this, life};
        is_read = vx_attr_files_read_column(f_attr_files, prop);
    }
    if (life.expired())
        return false;
    if (!is_read)
        on_data_close(this);
    else if (f_attr_files)
        f_read_columns[prop] = true;
    return f_attr_files != nullptr;
}

char const *Tvx_shp_lr2d_edit::on_data_get_str(TObject * /*sender*/, unsigned prop, unsigned obj,
                                               bool &defined)
{
    defined = false;
    return read_column(prop) ? vx_attr_files_get_str(f_attr_files, prop, obj, &defined) : "";
}

double Tvx_shp_lr2d_edit::on_data_get_val(TObject * /*sender*/, unsigned prop, unsigned obj, bool &defined)
{
    defined = false;
    return read_column(prop) ? vx_attr_files_get_dbl(f_attr_files, prop, obj, &defined) : 0;
}

bool Tvx_shp_lr2d_edit::on_edit_value_item(std::wstring &text)
{
    if (!get_lr2d())
        return false;
    vx::owned<void, &vx_calc_filter_destroy> const filter(vx_calc_filter_create());
    vx_calc_filter_from_str(filter.get(), text.c_str());
    if (!vx_attr_filter_dialog(filter.get(), vx_lr2d_get_data_ptr(get_lr2d())))
        return false;
    vx_calc_filter_to_str(filter.get(), Tvx_std_wstring_adapter(text));
    return true;
}

// ---- the pages of each geometry

void Tvx_shp_pnt_lr2d_edit::create()
{
    Tvx_shp_lr2d_edit::create();
    f_stl_mngr_edit = new Tvx_pnt_stl_mngr_edit(this);
    take_stl_mngr_edit(f_stl_mngr_edit, &vx_shp_pnt_lr2d_get_stl_mngr_ptr);
    f_stl_mngr_edit->on_changed = make_closure<&Tvx_shp_pnt_lr2d_edit::on_pnt_stl_mngr_changed>(this);
}

void Tvx_shp_pnt_lr2d_edit::on_pnt_stl_mngr_changed(TObject * /*sender*/)
{
    report_change();
}

void Tvx_shp_pln_lr2d_edit::create()
{
    Tvx_shp_lr2d_edit::create();
    f_stl_mngr_edit = new Tvx_pln_stl_mngr_edit(this);
    take_stl_mngr_edit(f_stl_mngr_edit, &vx_shp_pln_lr2d_get_stl_mngr_ptr);
    f_stl_mngr_edit->on_changed = make_closure<&Tvx_shp_pln_lr2d_edit::on_pln_stl_mngr_changed>(this);
}

void Tvx_shp_pln_lr2d_edit::on_pln_stl_mngr_changed(TObject * /*sender*/)
{
    report_change();
}

void Tvx_shp_pgn_lr2d_edit::create()
{
    Tvx_shp_lr2d_edit::create();
    f_stl_mngr_edit = new Tvx_pgn_stl_mngr_edit(this);
    take_stl_mngr_edit(f_stl_mngr_edit, &vx_shp_pgn_lr2d_get_stl_mngr_ptr);
    f_stl_mngr_edit->on_changed = make_closure<&Tvx_shp_pgn_lr2d_edit::on_pgn_stl_mngr_changed>(this);
}

void Tvx_shp_pgn_lr2d_edit::on_pgn_stl_mngr_changed(TObject * /*sender*/)
{
    report_change();
}
