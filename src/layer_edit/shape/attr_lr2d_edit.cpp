#include "layer_edit/shape/attr_lr2d_edit.h"

#include "style_manager/shell/stl_mngr_edit.h"

#include "platform/data/vx_attr_data.h"
#include "platform/dialogs/column_reading.h"
#include "platform/layers/vx_shp_lr2d.h"

#include <utility>

Tvx_attr_lr2d_edit::~Tvx_attr_lr2d_edit()
{
    vx_attr_files_close(f_attr_files);
}

void Tvx_attr_lr2d_edit::bind_data(Tvx_stl_mngr_edit *edit)
{
    edit->set_on_data_open(make_closure<&Tvx_attr_lr2d_edit::on_data_open>(this));
    edit->set_on_data_close(make_closure<&Tvx_attr_lr2d_edit::on_data_close>(this));
    edit->set_on_data_get_np(make_closure<&Tvx_attr_lr2d_edit::on_data_get_np>(this));
    edit->set_on_data_get_no(make_closure<&Tvx_attr_lr2d_edit::on_data_get_no>(this));
    edit->set_on_data_get_prop(make_closure<&Tvx_attr_lr2d_edit::on_data_get_prop>(this));
    edit->set_on_data_get_stat({});
    edit->set_on_data_get_str(make_closure<&Tvx_attr_lr2d_edit::on_data_get_str>(this));
    edit->set_on_data_get_val(make_closure<&Tvx_attr_lr2d_edit::on_data_get_val>(this));
}

void Tvx_attr_lr2d_edit::close_former_table()
{
    if (f_attr_files && get_lr2d() != f_table_layer)
        on_data_close(this);
}

void Tvx_attr_lr2d_edit::report_change()
{
    if (get_lr2d())
        call_changed();
}

bool Tvx_attr_lr2d_edit::on_data_open(TObject *sender)
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

void Tvx_attr_lr2d_edit::on_data_close(TObject * /*sender*/)
{
    vx_attr_files_close(std::exchange(f_attr_files, nullptr));
}

unsigned Tvx_attr_lr2d_edit::on_data_get_np(TObject * /*sender*/)
{
    return vx_attr_files_get_np(f_attr_files);
}

unsigned Tvx_attr_lr2d_edit::on_data_get_no(TObject * /*sender*/)
{
    return vx_attr_files_get_no(f_attr_files);
}

char const *Tvx_attr_lr2d_edit::on_data_get_prop(TObject * /*sender*/, unsigned prop, bool &usable,
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

bool Tvx_attr_lr2d_edit::read_column(unsigned prop)
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
            Tvx_attr_lr2d_edit *page;
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

char const *Tvx_attr_lr2d_edit::on_data_get_str(TObject * /*sender*/, unsigned prop, unsigned obj,
                                                bool &defined)
{
    defined = false;
    return read_column(prop) ? vx_attr_files_get_str(f_attr_files, prop, obj, &defined) : "";
}

double Tvx_attr_lr2d_edit::on_data_get_val(TObject * /*sender*/, unsigned prop, unsigned obj, bool &defined)
{
    defined = false;
    return read_column(prop) ? vx_attr_files_get_dbl(f_attr_files, prop, obj, &defined) : 0;
}
