#include "ordered_list.h"

#include "controls/forms/event_off.h"

#include "platform/basic/vx_res.h"
#include "platform/toolkit/core/strings.h"

#include <algorithm>
#include <utility>

namespace vx::layout_elements {
namespace {
constexpr int c_row_height = 22;
constexpr int c_gap = 4;
constexpr int c_label_width = 120;
} // namespace

ordered_list::ordered_list(TComponent *owner, bool has_own)
    : Tvx_basic_pnl(owner), f_list(new Tvx_check_list_box(this)), f_buttons(new Tvx_order_buttons(this))
{
    f_list->SetParent(this);
    f_list->SetAlign(alClient);
    f_list->OnClick = make_closure<&ordered_list::on_list_click>(this);
    f_list->OnClickCheck = make_closure<&ordered_list::on_check_click>(this);
    f_buttons->SetParent(this);
    f_buttons->SetAlign(alRight);
    f_buttons->set_can_add(has_own);
    f_buttons->on_add = make_closure<&ordered_list::on_add_click>(this);
    f_buttons->on_delete = make_closure<&ordered_list::on_delete_click>(this);
    f_buttons->on_move = make_closure<&ordered_list::on_move_click>(this);
    if (!has_own)
        return;
    f_text = new Tvx_string_panel(this);
    f_text->SetParent(this);
    f_text->SetHeight(c_row_height);
    f_text->SetAlignWithMargins(true);
    f_text->GetMargins()->SetBounds(0, c_gap, 0, 0);
    f_text->SetAlign(alBottom);
    f_text->set_caption_width(c_label_width);
    f_text->on_changed = make_closure<&ordered_list::on_text_changed>(this);
}

void ordered_list::load_res(int name, int add, int text, int own_line)
{
    f_list->SetAccessibleName(vx_res_get_wstr(name));
    f_buttons->load_res();
    f_own_line = own_line;
    if (!f_text)
        return;
    f_buttons->get_add_btn()->SetCaption(vx_res_get_wstr(add));
    f_text->set_caption(vx_res_get_wstr(text));
    show_lines(f_list->GetItemIndex());
}

void ordered_list::set_lines(std::vector<line> lines)
{
    f_lines = std::move(lines);
    show_lines(f_list->GetItemIndex());
}

UnicodeString ordered_list::shown(line const &of_list) const
{
    return of_list.from == origin::own && f_own_line ? vx_res_format_w(f_own_line, of_list.text)
                                                     : of_list.text;
}

ordered_list::line *ordered_list::current()
{
    auto const index = static_cast<std::size_t>(f_list->GetItemIndex());
    return index < f_lines.size() ? &f_lines[index] : nullptr;
}

void ordered_list::show_lines(int chosen)
{
    auto *const items = f_list->GetItems();
    items->BeginUpdate();
    items->Clear();
    for (auto const &each : f_lines)
        items->Add(shown(each));
    items->EndUpdate();
    for (std::size_t i = 0; i < f_lines.size(); ++i)
        f_list->SetChecked(static_cast<int>(i), f_lines[i].is_on);
    f_list->SetItemIndex(std::min(chosen, static_cast<int>(f_lines.size()) - 1));
    show_current();
}

void ordered_list::show_current()
{
    auto const *const chosen = current();
    f_buttons->enable(f_list->GetItemIndex(), static_cast<int>(f_lines.size()),
                      chosen && chosen->from != origin::given);
    if (!f_text)
        return;
    bool const is_own = chosen && chosen->from == origin::own;
    f_text->set_string(is_own ? chosen->text.c_str() : L"");
    f_text->get_edit()->SetEnabled(is_own);
}

void ordered_list::on_list_click(TObject * /*sender*/)
{
    show_current();
}

void ordered_list::on_check_click(TObject * /*sender*/)
{
    for (std::size_t i = 0; i < f_lines.size(); ++i)
        f_lines[i].is_on = f_list->GetChecked(static_cast<int>(i));
    show_current();
    call_changed();
}

/// Below the line that is chosen, ready to be written.
void ordered_list::on_add_click(TObject * /*sender*/)
{
    int const place = f_list->GetItemIndex() + 1;
    f_lines.insert(f_lines.begin() + place, {{}, true, origin::own});
    show_lines(place);
    f_text->get_edit()->SetFocus();
    call_changed();
}

void ordered_list::on_delete_click(TObject * /*sender*/)
{
    int const place = f_list->GetItemIndex();
    f_lines.erase(f_lines.begin() + place);
    show_lines(place);
    call_changed();
}

void ordered_list::on_move_click(TObject * /*sender*/, int by)
{
    int const from = f_list->GetItemIndex();
    std::swap(f_lines[static_cast<std::size_t>(from)], f_lines[static_cast<std::size_t>(from + by)]);
    show_lines(from + by);
    call_changed();
}

void ordered_list::on_text_changed(TObject * /*sender*/)
{
    auto *const chosen = current();
    if (!chosen)
        return;
    chosen->text = f_text->get_wstring();
    int const place = f_list->GetItemIndex();
    f_list->GetItems()->SetStrings(place, shown(*chosen));
    f_list->SetItemIndex(place);
    call_changed();
}
} // namespace vx::layout_elements
