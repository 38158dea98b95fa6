#include "styles/libraries/libs_select_panel.h"

#include "captions/libraries.h"

#include "platform/basic/vx_res.h"
#include "platform/styles/vx_style_lib.h"

namespace {
constexpr int c_box_width = 300;
} // namespace

Tvx_libs_select_panel::Tvx_libs_select_panel(TComponent *owner) : Tvx_combo_box_panel(owner)
{
    set_box_width(c_box_width);
    f_box->SetStyle(csDropDownList);
    f_box->OnChange = make_closure<&Tvx_libs_select_panel::on_box_change>(this);
}

void Tvx_libs_select_panel::load_res()
{
    set_caption(vx_res_get_wstr(c_lib_library));
}

void Tvx_libs_select_panel::update_controls()
{
    f_box->Clear();
    unsigned const size = vx_style_libs_get_size(f_libs);
    for (unsigned i = 0; i < size; ++i)
        f_box->GetItems()->Add(vx_style_lib_get_name_w(vx_style_libs_get_lib_ptr(f_libs, i)));
    if (f_index >= 0 && f_index < f_box->GetItems()->GetCount()) {
        f_box->SetItemIndex(f_index);
        return;
    }
    if (size > 0)
        f_box->SetItemIndex(0);
    f_index = f_box->GetItemIndex();
}

void Tvx_libs_select_panel::set_index(int index)
{
    f_index = index < 0 && vx_style_libs_get_size(f_libs) > 0 ? 0 : index;
}

void *Tvx_libs_select_panel::get_lib() const
{
    return f_index < 0 ? nullptr : vx_style_libs_get_lib_ptr(f_libs, static_cast<unsigned>(f_index));
}

void Tvx_libs_select_panel::on_box_change(TObject * /*sender*/)
{
    f_index = f_box->GetItemIndex();
    on_changed(this);
}
