#include "styles/simple/paged_style_edit.h"

#include "controls/forms/event_off.h"

#include "platform/basic/vx_res.h"

namespace {
constexpr int c_columns = 2;
constexpr int c_box_height = 20;
constexpr int c_strip_margin = 4;
} // namespace

Tvx_paged_style_edit::Tvx_paged_style_edit(TComponent *owner, style_files files)
    : Tvx_composed_style_edit(owner, files), f_strip(new Tvx_panel(this)), f_pages(new Tvx_page_control(this))
{
    f_strip->SetParent(this);
    f_strip->SetAlign(alTop);
    f_strip->SetTabOrder(0);
    f_strip->OnResize = make_closure<&Tvx_paged_style_edit::on_strip_resize>(this);
    f_pages->SetParent(this);
    f_pages->SetAlign(alClient);
    f_pages->SetTabOrder(1);
}

void Tvx_paged_style_edit::place_page(Tvx_style_edit *edit, wchar_t const *name, int caption,
                                      TNotifyEvent on_box_click)
{
    auto *sheet = new Tvx_tab_sheet(this);
    sheet->SetName(name);
    edit->SetParent(sheet);
    edit->SetAlign(alClient);
    auto *box = new Tvx_check_box(this);
    box->SetParent(f_strip);
    box->OnClick = on_box_click;
    f_page_list.push_back({box, sheet, edit, caption});
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
        UnicodeString const caption = vx_res_get_wstr(p.caption);
        p.box->SetCaption(caption);
        p.sheet->SetCaption(caption);
        p.edit->load_res();
    }
}

void Tvx_paged_style_edit::show_page(page const &page, bool visible)
{
    vx::event_off const quiet(page.box->OnClick);
    page.box->SetChecked(visible);
    page.sheet->SetTabVisible(visible);
}

bool Tvx_paged_style_edit::follow_box(page const &page)
{
    bool const visible = page.box->GetChecked();
    page.sheet->SetTabVisible(visible);
    return visible;
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
