#include "styles/simple/paged_style_edit.h"

#include "controls/forms/event_off.h"

#include "platform/basic/vx_res.h"
#include "platform/toolkit/core/new_on.h"

#include <algorithm>

namespace {
constexpr int c_columns = 2;
constexpr int c_box_height = 20;
constexpr int c_strip_margin = 4;
} // namespace

Tvx_paged_style_edit::Tvx_paged_style_edit(TComponent *owner, composed_style const &style)
    : Tvx_composed_style_edit(owner, style), f_strip(vx_new_for<Tvx_panel>(this, this)),
      f_pages(vx_new_for<Tvx_page_control>(this, this))
{
    f_strip->SetParent(this);
    f_strip->SetAlign(alTop);
    f_strip->SetTabOrder(0);
    f_strip->OnResize = make_closure<&Tvx_paged_style_edit::on_strip_resize>(this);
    f_pages->SetParent(this);
    f_pages->SetAlign(alClient);
    f_pages->SetTabOrder(1);
}

void Tvx_paged_style_edit::place_page(Tvx_style_edit *edit, component const &component)
{
    auto *sheet = new Tvx_tab_sheet(this);
    sheet->SetName(component.name);
    edit->SetParent(sheet);
    edit->SetAlign(alClient);
    edit->on_changed = make_closure<&Tvx_paged_style_edit::on_edit_changed>(this);
    auto *box = vx_new_on<Tvx_check_box>(f_strip, this);
    box->OnClick = make_closure<&Tvx_paged_style_edit::on_box_click>(this);
    f_page_list.push_back({component, box, sheet, edit});
    int const rows = (static_cast<int>(f_page_list.size()) + c_columns - 1) / c_columns;
    f_strip->SetHeight(rows * c_box_height + 2 * c_strip_margin);
    on_strip_resize(f_strip);
}

void Tvx_paged_style_edit::CreateWnd()
{
    Tvx_composed_style_edit::CreateWnd();
    for (page const &p : f_page_list)
        p.sheet->SetPageControl(f_pages);
}

void Tvx_paged_style_edit::load_res()
{
    Tvx_composed_style_edit::load_res();
    for (page const &p : f_page_list) {
        UnicodeString const caption = vx_res_get_wstr(p.part.caption);
        p.box->SetCaption(caption);
        p.sheet->SetCaption(caption);
        p.edit->load_res();
    }
}

void Tvx_paged_style_edit::update_controls()
{
    for (page const &p : f_page_list) {
        bool const visible = p.part.get_visible(get_style());
        vx::event_off const quiet(p.box->OnClick);
        p.box->SetChecked(visible);
        p.sheet->SetTabVisible(visible);
        p.edit->set_style(p.part.get(get_style()));
        p.edit->update_controls();
    }
    get_lib_panel()->update_controls();
}

void Tvx_paged_style_edit::on_box_click(TObject *sender)
{
    auto const at = std::ranges::find(f_page_list, sender, [](page const &p) -> TObject * { return p.box; });
    bool const visible = at->box->GetChecked();
    at->part.set_visible(get_style(), visible);
    at->sheet->SetTabVisible(visible);
    call_changed();
}

void Tvx_paged_style_edit::on_edit_changed(TObject *sender)
{
    auto const at = std::ranges::find(f_page_list, sender, [](page const &p) -> TObject * { return p.edit; });
    at->edit->give_style_to(at->part.get(get_style()));
    call_changed();
}

void Tvx_paged_style_edit::on_strip_resize(TObject * /*sender*/)
{
    int const width = (f_strip->GetClientWidth() - 2 * c_strip_margin) / c_columns;
    int place = 0;
    for (page const &p : f_page_list) {
        p.box->SetBounds(c_strip_margin + place % c_columns * width,
                         c_strip_margin + place / c_columns * c_box_height, width, c_box_height);
        ++place;
    }
}
