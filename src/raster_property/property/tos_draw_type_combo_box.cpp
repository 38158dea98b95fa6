#include "raster_property/property/tos_draw_type_combo_box.h"

#include "captions/property_layers.h"

#include "platform/basic/vx_res.h"
#include "platform/toolkit/core/strings.h"

#include <algorithm>
#include <array>

namespace {
struct entry
{
    Tvx_grid_lr2d_draw_type draw_type;
    wchar_t const *text;
    int caption;
};
/// In the order of the list.
constexpr std::array c_entries = {entry{c_grid_draw_scale, L"Scale", c_tos_draw_scale},
                                  entry{c_grid_draw_gray, L"Gray", c_tos_draw_gray},
                                  entry{c_grid_draw_channels, L"Channels", c_tos_draw_channels}};
} // namespace

void Tvx_tos_draw_type_combo_box::create()
{
    auto *const box = get_combo_box();
    int const chosen = std::max(box->GetItemIndex(), 0);
    box->SetStyle(csDropDownList);
    box->GetItems()->Clear();
    for (entry const &e : c_entries)
        box->GetItems()->Add(e.text);
    load_res();
    box->SetItemIndex(chosen);
    box->OnChange = make_closure<&Tvx_tos_draw_type_combo_box::on_combo_box_changed>(this);
}

void Tvx_tos_draw_type_combo_box::load_res()
{
    set_caption(vx_res_get_wstr(c_tos_draw_type));
    auto *const box = get_combo_box();
    if (box->GetItems()->GetCount() != static_cast<int>(c_entries.size()))
        return;
    int const chosen = box->GetItemIndex();
    for (std::size_t i = 0; i < c_entries.size(); ++i)
        box->GetItems()->SetStrings(static_cast<int>(i), vx_res_get_wstr(c_entries[i].caption));
    box->SetItemIndex(chosen);
}

Tvx_grid_lr2d_draw_type Tvx_tos_draw_type_combo_box::get_draw_type() const
{
    int const item = get_combo_box()->GetItemIndex();
    return item < 0 ? c_grid_draw_scale : c_entries.at(static_cast<std::size_t>(item)).draw_type;
}

void Tvx_tos_draw_type_combo_box::set_draw_type(Tvx_grid_lr2d_draw_type draw_type)
{
    auto const found = std::ranges::find(c_entries, draw_type, &entry::draw_type);
    if (found != c_entries.end())
        get_combo_box()->SetItemIndex(static_cast<int>(found - c_entries.begin()));
}

void Tvx_tos_draw_type_combo_box::on_combo_box_changed(TObject * /*sender*/)
{
    call_changed();
}
