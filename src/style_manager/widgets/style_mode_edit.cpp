#include "style_manager/widgets/style_mode_edit.h"

#include "captions/style_manager.h"

#include "platform/basic/vx_res.h"
#include "platform/toolkit/core/new_on.h"
#include "platform/toolkit/core/strings.h"

namespace {
constexpr int c_height = 22;
constexpr int c_combo_width = 170;
constexpr int c_rule_entry = 3;
} // namespace

Tvx_style_mode_edit::Tvx_style_mode_edit(TComponent *owner) : Tvx_panel(owner)
{
    SetHeight(c_height);
}

void Tvx_style_mode_edit::create()
{
    f_label = vx_new_on<Tvx_label>(this, this);
    f_label->SetLeft(2);
    f_label->SetTop(2);
    f_combo = vx_new_on<Tvx_combo_box>(this, this);
    f_combo->SetWidth(c_combo_width);
    f_combo->SetAlign(alRight);
    f_combo->SetStyle(csDropDownList);
    for (wchar_t const *const entry : {L"Simple style", L"Unique values", L"Diapazones"})
        f_combo->GetItems()->Add(entry);
    f_combo->OnChange = make_closure<&Tvx_style_mode_edit::on_cb_change>(this);
    f_label->SetFocusControl(f_combo);
    update_controls();
}

void Tvx_style_mode_edit::load_res()
{
    f_label->SetCaption(vx_res_get_wstr(c_stl_mode));
    auto *const entries = f_combo->GetItems();
    int const captions[] = {c_stl_mode_simple, c_stl_mode_values, c_stl_mode_ranges, c_stl_mode_rules};
    for (int i = 0; i < entries->GetCount(); ++i)
        entries->SetStrings(i, vx_res_get_wstr(captions[i]));
    update_controls();
}

void Tvx_style_mode_edit::update_controls()
{
    if (mode == c_style_mode_rule)
        f_combo->SetItemIndex(f_rule_enabled ? c_rule_entry : -1);
    else
        f_combo->SetItemIndex(mode <= c_style_mode_range ? static_cast<int>(mode) : 0);
}

void Tvx_style_mode_edit::rule_enabled(bool enabled)
{
    if (enabled == f_rule_enabled)
        return;
    f_rule_enabled = enabled;
    auto *const entries = f_combo->GetItems();
    if (enabled) {
        entries->Add(vx_res_get_wstr(c_stl_mode_rules));
        update_controls();
        return;
    }
    entries->Delete(c_rule_entry);
    if (mode != c_style_mode_rule)
        return update_controls();
    mode = c_style_mode_simple;
    f_combo->SetItemIndex(0);
    on_changed(this);
}

void Tvx_style_mode_edit::on_cb_change(TObject * /*sender*/)
{
    int const index = f_combo->GetItemIndex();
    auto const chosen =
        index >= 1 && index <= c_rule_entry ? static_cast<Tvx_style_mode>(index) : c_style_mode_simple;
    if (chosen == mode)
        return;
    mode = chosen;
    on_changed(this);
}
