#include "host/layer_editor.h"

#include "exports/vxk_lr2d_edit_form_api.h"
#include "host/layer_list.h"

Tvx_layer_editor::Tvx_layer_editor(Tvx_layer_list &layers, QObject *parent)
    : QObject(parent), f_layers(layers)
{
    connect(&layers, &Tvx_layer_list::layer_removed, this, &Tvx_layer_editor::on_layer_removed);
}

Tvx_layer_editor::~Tvx_layer_editor()
{
    close();
}

void Tvx_layer_editor::open(int id, QPoint where)
{
    if (f_layers.row_of(id) < 0)
        return;
    bool const fresh = !is_showing();
    ensure_window();
    if (fresh || id != f_layer_id)
        show_layer(id);
    vx_lr2d_edt_form_show_pos(f_form, where.x(), where.y());
}

void Tvx_layer_editor::follow(int id)
{
    if (is_showing() && id != f_layer_id)
        show_layer(id);
}

void Tvx_layer_editor::refresh(int id)
{
    if (f_form && id == f_layer_id)
        show_layer(id);
}

void Tvx_layer_editor::close()
{
    // The handle is forgotten first: ending the window runs events that may ask about it.
    Tvx_lr2d_edit_form *const form = std::exchange(f_form, nullptr);
    f_layer_id = -1;
    vx_lr2d_edt_form_destroy(form);
}

bool Tvx_layer_editor::is_showing() const
{
    return f_form && vx_lr2d_edt_form_get_showing(f_form);
}

void Tvx_layer_editor::ensure_window()
{
    if (f_form)
        return;
    f_form = vx_lr2d_edt_form_create();
    vx_lr2d_edt_form_create_all(f_form);
    vx_lr2d_edt_form_set_callback(f_form, this,
                                  [](void *self) { static_cast<Tvx_layer_editor *>(self)->on_apply(); });
}

void Tvx_layer_editor::show_layer(int id)
{
    int const row = f_layers.row_of(id);
    f_layer_id = row < 0 ? -1 : id;
    vx_lr2d_edt_form_set_lr2d(f_form, f_layers.layer_at(row));
    // The title follows the layer at an update only.
    vx_lr2d_edt_form_update(f_form);
}

void Tvx_layer_editor::on_layer_removed(int id)
{
    if (f_form && id == f_layer_id)
        show_layer(-1);
}

void Tvx_layer_editor::on_apply()
{
    Ivx_layer const *const copy = vx_lr2d_edt_form_get_lr2d_ptr(f_form);
    if (!copy || f_layer_id < 0)
        return;
    if (f_layers.replace(f_layer_id, Tvx_layer_list::layer_ptr(vx_lr2d_clone(copy))))
        emit applied(f_layer_id);
}
