#include "raster_property/raster/rtr_draw_type_combo_box.h"

#include "captions/raster.h"

#include "platform/basic/vx_res.h"
#include "platform/layers/vx_rtr_lr2d.h"
#include "platform/toolkit/core/strings.h"

#include <algorithm>

namespace {
constexpr int c_height = 26;
/// By place in the list.
constexpr Tvx_rtr_draw_type c_types[] = {c_rtr_draw_normal, c_rtr_draw_gray, c_rtr_draw_channels};
} // namespace

Tvx_rtr_draw_type_combo_box::Tvx_rtr_draw_type_combo_box(TComponent *owner) : Tvx_combo_box_panel(owner)
{
    SetHeight(c_height);
}

void Tvx_rtr_draw_type_combo_box::create()
{
    Tvx_combo_box *const box = get_combo_box();
    int const chosen = box->GetItemIndex();
    box->SetStyle(csDropDownList);
    box->GetItems()->Clear();
    for (wchar_t const *const text : {L"Normal", L"Gray", L"Channels"})
        box->GetItems()->Add(text);
    load_res();
    box->SetItemIndex(std::max(chosen, 0));
    box->OnChange = make_closure<&Tvx_rtr_draw_type_combo_box::on_combo_box_change>(this);
}

void Tvx_rtr_draw_type_combo_box::load_res()
{
    set_caption(vx_res_get_wstr(c_rtr_draw_type));
    Tvx_combo_box *const box = get_combo_box();
    if (box->GetItems()->GetCount() != static_cast<int>(std::size(c_types)))
        return;
    int const chosen = box->GetItemIndex();
    for (int i = 0; i < box->GetItems()->GetCount(); ++i)
        box->GetItems()->SetStrings(i, vx_res_get_wstr(c_rtr_draw_normal_type + i));
    box->SetItemIndex(chosen);
}

void Tvx_rtr_draw_type_combo_box::set_draw_type(Tvx_rtr_draw_type draw_type)
{
    auto const *const place = std::ranges::find(c_types, draw_type);
    if (place != std::end(c_types))
        get_combo_box()->SetItemIndex(static_cast<int>(place - c_types));
}

Tvx_rtr_draw_type Tvx_rtr_draw_type_combo_box::get_draw_type() const
{
    int const place = get_combo_box()->GetItemIndex();
    return place >= 0 && place < static_cast<int>(std::size(c_types)) ? c_types[place] : c_rtr_draw_normal;
}

void Tvx_rtr_draw_type_combo_box::on_combo_box_change(TObject * /*sender*/)
{
    call_changed();
}
