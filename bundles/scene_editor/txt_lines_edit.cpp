#include "txt_lines_edit.h"

#include "captions/scene.h"
#include "controls/forms/event_off.h"

#include "platform/base/string_adp.h"
#include "platform/basic/vx_res.h"
#include "platform/basic/vx_wstrings.h"
#include "platform/styles/vx_txt_style.h"
#include "platform/toolkit/core/strings.h"

#include <algorithm>

namespace {
constexpr int c_margin = 6;
constexpr int c_row_height = 24;
constexpr int c_label_width = 110;

void set_margins(TControl *control)
{
    control->SetAlignWithMargins(true);
    control->GetMargins()->SetBounds(c_margin, c_margin, c_margin, c_margin);
}
} // namespace

Tvx_txt_lines_edit::Tvx_txt_lines_edit(TComponent *owner)
    : Tvx_basic_pnl(owner), f_list(new Tvx_list_box(this)), f_buttons(new Tvx_order_buttons(this)),
      f_box_panel(new Tvx_combo_box_panel(this)), f_box(f_box_panel->get_combo_box())
{
    f_box_panel->SetParent(this);
    f_box_panel->SetHeight(c_row_height);
    f_box_panel->set_caption_width(c_label_width);
    set_margins(f_box_panel);
    f_box_panel->SetAlign(alBottom);
    f_box->SetShowHint(true);
    f_box->OnChange = make_closure<&Tvx_txt_lines_edit::on_box_change>(this);
    f_list->SetParent(this);
    set_margins(f_list);
    f_list->SetAlign(alClient);
    f_list->OnClick = make_closure<&Tvx_txt_lines_edit::on_list_click>(this);
    f_buttons->SetParent(this);
    set_margins(f_buttons);
    f_buttons->SetAlign(alRight);
    f_buttons->on_add = make_closure<&Tvx_txt_lines_edit::on_add_click>(this);
    f_buttons->on_delete = make_closure<&Tvx_txt_lines_edit::on_delete_click>(this);
    f_buttons->on_move = make_closure<&Tvx_txt_lines_edit::on_move_click>(this);
    f_list->SetTabOrder(0);
    f_box_panel->SetTabOrder(1);
}

void Tvx_txt_lines_edit::load_res()
{
    f_buttons->load_res();
    f_box_panel->set_caption(vx_res_get_wstr(c_scn_line));
    f_box->SetHint(vx_res_get_wstr(c_scn_line_hint));
    f_list->SetAccessibleName(vx_res_get_wstr(c_scn_lines));
    show_lines(current());
}

void Tvx_txt_lines_edit::set_properties(void const *properties)
{
    f_properties.clear();
    for (unsigned i = 0; i < vx_wstrings_get_size(properties); ++i)
        f_properties.emplace_back(vx_wstrings_get_str(properties, i));
    f_box->Clear();
    for (std::wstring const &property : f_properties)
        f_box->GetItems()->Add(property);
}

void Tvx_txt_lines_edit::read_lines(void *txt_style)
{
    void *const lines = vx_txt_style_get_txt_stl_line(txt_style);
    f_lines.assign(vx_txt_stl_line_count(lines), {});
    for (unsigned i = 0; i < f_lines.size(); ++i)
        vx_txt_stl_line_get_str(lines, Tvx_std_wstring_adapter(f_lines[i]), i);
    show_lines(f_lines.empty() ? -1 : 0);
}

void Tvx_txt_lines_edit::write_lines(void *txt_style) const
{
    void *const lines = vx_txt_style_get_txt_stl_line(txt_style);
    vx_txt_stl_line_clear(lines);
    vx_txt_stl_line_add(lines, static_cast<unsigned>(f_lines.size()));
    for (unsigned i = 0; i < f_lines.size(); ++i)
        vx_txt_stl_line_set_str(lines, f_lines[i].c_str(), i);
}

std::wstring Tvx_txt_lines_edit::get_text() const
{
    std::wstring text;
    for (std::size_t i = 0; i < f_lines.size(); ++i)
        text += (i ? L"\n" : L"") + f_lines[i];
    return text;
}

bool Tvx_txt_lines_edit::is_property(std::wstring const &text) const
{
    return std::find(f_properties.begin(), f_properties.end(), text) != f_properties.end();
}

UnicodeString Tvx_txt_lines_edit::item_text(std::wstring const &line) const
{
    if (line.empty())
        return vx_res_get_wstr(c_scn_empty_line);
    return is_property(line) ? vx_res_format_w(c_scn_property, line) : line;
}

void Tvx_txt_lines_edit::show_lines(int current)
{
    TStrings *items = f_list->GetItems();
    items->BeginUpdate();
    items->Clear();
    for (std::wstring const &line : f_lines)
        items->Add(item_text(line));
    items->EndUpdate();
    f_list->SetItemIndex(current);
    show_current();
}

void Tvx_txt_lines_edit::show_current()
{
    int const at = current();
    f_buttons->enable(at, static_cast<int>(f_lines.size()), true);
    f_box->SetEnabled(at >= 0);
    vx::event_off const quiet(f_box->OnChange);
    f_box->SetText(at >= 0 ? f_lines[std::size_t(at)] : std::wstring());
}

void Tvx_txt_lines_edit::on_list_click(TObject * /*sender*/)
{
    show_current();
}

void Tvx_txt_lines_edit::on_box_change(TObject * /*sender*/)
{
    int const at = current();
    if (at < 0)
        return;
    f_lines[std::size_t(at)] = f_box->GetText().str();
    f_list->GetItems()->SetStrings(at, item_text(f_lines[std::size_t(at)]));
    f_list->SetItemIndex(at);
    call_changed();
}

void Tvx_txt_lines_edit::on_add_click(TObject * /*sender*/)
{
    int const at = current() + 1;
    f_lines.insert(f_lines.begin() + at, std::wstring());
    show_lines(at);
    f_box->SetFocus();
    call_changed();
}

void Tvx_txt_lines_edit::on_delete_click(TObject * /*sender*/)
{
    int const at = current();
    f_lines.erase(f_lines.begin() + at);
    show_lines(std::min(at, static_cast<int>(f_lines.size()) - 1));
    call_changed();
}

void Tvx_txt_lines_edit::on_move_click(TObject * /*sender*/, int by)
{
    int const at = current();
    std::swap(f_lines[std::size_t(at)], f_lines[std::size_t(at + by)]);
    show_lines(at + by);
    call_changed();
}
