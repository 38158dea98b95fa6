#include "exports/vxk_lr2d_edit_form_api.h"
#include "layer_edit/form/lr2d_edit_form.h"
#include "layer_edit/layout/lr_layout_edit_form.h"

#include <type_traits>
#include <utility>

// A host in C cannot take an exception, and a host in C++ was told of none: what goes wrong inside ends here,
// with the neutral result. Only the two creating functions let it pass, since they have no record to give.
namespace {
template <class Operation>
auto guarded(Tvx_lr2d_edit_form *handle, Operation operation) noexcept
{
    using result = std::invoke_result_t<Operation, Tvx_lr2d_edit_form &>;
    try {
        if (handle)
            return operation(*handle);
    } catch (...) {
        // The record is as usable as before: every operation leaves it in one of its stages.
    }
    return result();
}
} // namespace

Tvx_lr2d_edit_form *vx_lr2d_edt_form_create()
{
    return new Tvx_lr2d_edit_form;
}

Tvx_lr2d_edit_form *vx_lr2d_edt_form_create_hosted(Tvx_apply_form *form)
{
    return new Tvx_lr2d_edit_form(form);
}

void vx_lr2d_edt_form_create_all(Tvx_lr2d_edit_form *handle)
{
    guarded(handle, [](auto &record) { record.create(); });
}

void vx_lr2d_edt_form_set_lr2d(Tvx_lr2d_edit_form *handle, Ivx_layer *layer)
{
    guarded(handle, [=](auto &record) { record.set_lr2d(layer); });
}

void vx_lr2d_edt_form_set_callback(Tvx_lr2d_edit_form *handle, void *data, void (*callback)(void *))
{
    guarded(handle, [=](auto &record) { record.set_callback(data, callback); });
}

void vx_lr2d_edt_form_update(Tvx_lr2d_edit_form *handle)
{
    guarded(handle, [](auto &record) { record.update_controls(); });
}

Ivx_layer *vx_lr2d_edt_form_get_lr2d_ptr(Tvx_lr2d_edit_form *handle)
{
    return guarded(handle, [](auto &record) { return record.get_lr2d(); });
}

bool vx_lr2d_edt_form_get_showing(Tvx_lr2d_edit_form *handle)
{
    return guarded(handle, [](auto &record) { return record.showing(); });
}

void vx_lr2d_edt_form_show(Tvx_lr2d_edit_form *handle)
{
    guarded(handle, [](auto &record) { record.show(); });
}

void vx_lr2d_edt_form_hide(Tvx_lr2d_edit_form *handle)
{
    guarded(handle, [](auto &record) { record.hide(); });
}

void vx_lr2d_edt_form_show_pos(Tvx_lr2d_edit_form *handle, int x, int y)
{
    guarded(handle, [=](auto &record) { record.show_apply(x, y); });
}

void vx_lr2d_edt_form_dock(Tvx_lr2d_edit_form *handle, TWinControl *site)
{
    guarded(handle, [=](auto &record) { record.dock(site); });
}

int vx_lr2d_edt_form_get_left(Tvx_lr2d_edit_form *handle)
{
    return guarded(handle, [](auto &record) { return record.left(); });
}

int vx_lr2d_edt_form_get_top(Tvx_lr2d_edit_form *handle)
{
    return guarded(handle, [](auto &record) { return record.top(); });
}

int vx_lr2d_edt_form_get_width(Tvx_lr2d_edit_form *handle)
{
    return guarded(handle, [](auto &record) { return record.width(); });
}

int vx_lr2d_edt_form_get_height(Tvx_lr2d_edit_form *handle)
{
    return guarded(handle, [](auto &record) { return record.height(); });
}

void vx_lr2d_edt_form_set_left(Tvx_lr2d_edit_form *handle, int value)
{
    guarded(handle, [=](auto &record) { record.left(value); });
}

void vx_lr2d_edt_form_set_top(Tvx_lr2d_edit_form *handle, int value)
{
    guarded(handle, [=](auto &record) { record.top(value); });
}

void vx_lr2d_edt_form_set_width(Tvx_lr2d_edit_form *handle, int value)
{
    guarded(handle, [=](auto &record) { record.width(value); });
}

void vx_lr2d_edt_form_set_height(Tvx_lr2d_edit_form *handle, int value)
{
    guarded(handle, [=](auto &record) { record.height(value); });
}

void vx_lr2d_edt_form_destroy(Tvx_lr2d_edit_form *handle)
{
    delete handle;
}

Tvx_lr2d_edit_form *vx_lr_layout_edt_form_create()
{
    return new Tvx_lr_layout_edit_form;
}

Tvx_lr2d_edit_form *vx_lr_layout_edt_form_create_hosted(Tvx_apply_form *form)
{
    return new Tvx_lr_layout_edit_form(form);
}

void vx_lr_layout_edt_form_destroy(Tvx_lr2d_edit_form *handle)
{
    delete handle;
}
