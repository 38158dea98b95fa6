#include "layer_edit/layout/layout_rows_priv.h"

#include "platform/layers/vx_lr2d.h"

namespace vx::layout_rows {
namespace {
constexpr int c_choice_height = 20;
}

void place(TControl *row, TWinControl *page)
{
    int const top = page->GetControlCount() * (row->GetHeight() + row->GetMargins()->GetTop());
    row->SetParent(page);
    row->SetTop(top);
    row->SetAlignWithMargins(true);
    row->SetAlign(alTop);
}

Tvx_entities_prop_edit *add_entities(TWinControl *page)
{
    auto *const edit = new Tvx_entities_prop_edit(page);
    edit->create();
    edit->SetHeight(c_choice_height);
    place(edit, page);
    edit->set_capt_width(c_caption_width);
    // Else row 0, a command, would show as the choice of an element that has none yet.
    edit->set_forbid_empty(false);
    return edit;
}

std::wstring name_of(Ivx_layer const *layer)
{
    std::wstring name;
    vx_lr2d_get_wfilename(layer, Tvx_std_wstring_adapter(name));
    return name;
}

void show_name(Tvx_entities_prop_edit *edit, Ivx_layer const *layer)
{
    edit->set_prop_name(name_of(layer).c_str());
    edit->update_controls();
}

bool take_name(Tvx_entities_prop_edit *edit, Ivx_layer *layer)
{
    if (!layer)
        return false;
    if (edit->get_real_index() <= 0) { // the command, or nothing
        show_name(edit, layer);
        return false;
    }
    vx_lr2d_set_wfilename(layer, edit->get_wprop_name().c_str());
    return true;
}
} // namespace vx::layout_rows
