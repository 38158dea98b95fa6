#include "styles/libraries/lib_style_panel.h"

#include "captions/libraries.h"
#include "styles/libraries/list_style_panel.h"

#include "platform/basic/vx_res.h"
#include "platform/dialogs/vx_msgs.h"
#include "platform/styles/vx_style_lib.h"
#include "platform/toolkit/core/new_on.h"
#include "platform/toolkit/graphics/font.h"

#include <string>

namespace {
constexpr int c_idx_panel_height = 20;
constexpr int c_label_left = 8;
constexpr int c_label_top = 2;

/// The list of each tab.
constexpr void *(*c_lists[])(void *) = {nullptr, &vx_style_lib_get_pnt_list_ptr,
                                        &vx_style_lib_get_pln_list_ptr, &vx_style_lib_get_pgn_list_ptr};
constexpr int c_tab_captions[] = {c_lib_no_style, c_lib_points, c_lib_lines, c_lib_polygons};
} // namespace

Tvx_lib_style_panel::Tvx_lib_style_panel(TComponent *owner)
    : Tvx_panel(owner), f_pages(new Tvx_page_control(this)), f_idx_panel(new Tvx_panel(this)),
      f_idx_label(new Tvx_label(this)), f_licence_label(new Tvx_label(this))
{
    f_idx_panel->SetParent(this);
    f_idx_panel->SetHeight(c_idx_panel_height);
    f_idx_panel->SetAlignWithMargins(true);
    f_idx_panel->SetBevelOuter(bvLowered);
    f_idx_panel->SetAlign(alBottom);
    f_idx_panel->SetShowHint(true);
    f_idx_label->SetParent(f_idx_panel);
    f_idx_label->SetLeft(c_label_left);
    f_idx_label->SetTop(c_label_top);
    f_idx_label->SetShowAccelChar(false);
    f_licence_label->SetParent(f_idx_panel);
    f_licence_label->SetShowAccelChar(false);
    f_licence_label->SetAlignWithMargins(true);
    f_licence_label->GetMargins()->SetBounds(0, c_label_top - 1, c_label_left, 0);
    f_licence_label->SetAlign(alRight);
    f_pages->SetParent(this);
    f_pages->SetAlign(alClient);
    // All four stand side by side in the room that the tree leaves at first.
    f_pages->GetFont()->SetSize(f_pages->GetFont()->GetSize() - 1);
    f_pages->OnChange = make_closure<&Tvx_lib_style_panel::on_pages_change>(this);
    for (std::size_t tab = 0; tab < c_tab_count; ++tab) {
        f_tabs[tab] = new Tvx_tab_sheet(this);
        f_tabs[tab]->SetPageControl(f_pages);
        if (!c_lists[tab])
            continue;
        f_lists[tab] = vx_new_on<Tvx_list_style_panel>(f_tabs[tab], this);
        f_lists[tab]->SetAlign(alClient);
        f_lists[tab]->on_changed = make_closure<&Tvx_lib_style_panel::on_list_changed>(this);
    }
    f_pages->SetActivePageIndex(0);
}

void Tvx_lib_style_panel::load_res()
{
    for (std::size_t tab = 0; tab < c_tab_count; ++tab) {
        f_tabs[tab]->SetCaption(vx_res_get_wstr(c_tab_captions[tab]));
        if (f_lists[tab])
            f_lists[tab]->load_res();
    }
    f_idx_text = vx_res_get_wstr(c_lib_number);
    f_no_idx_text = vx_res_get_wstr(c_lib_no_number);
    update_idx_panel();
}

Tvx_list_style_panel *Tvx_lib_style_panel::get_list_panel(int tab) const
{
    return tab >= 0 && tab < c_tab_count ? f_lists[static_cast<std::size_t>(tab)] : nullptr;
}

void Tvx_lib_style_panel::update_controls()
{
    for (std::size_t tab = 0; tab < c_tab_count; ++tab)
        if (f_lists[tab]) {
            f_lists[tab]->set_style_list(c_lists[tab](f_lib));
            f_lists[tab]->update_controls();
        }
    update_idx_panel();
}

void Tvx_lib_style_panel::update_idx_panel()
{
    void *const style = get_active_style();
    std::wstring const number = style ? std::to_wstring(vx_idx_style_get_index(style)) : L"";
    f_idx_label->SetCaption(f_idx_text + (style ? UnicodeString(number.c_str()) : f_no_idx_text));
    UnicodeString const licence = style ? vx_style_lib_get_licence_w(f_lib, style) : L"";
    UnicodeString const source = style ? vx_style_lib_get_source_w(f_lib, style) : L"";
    f_licence_label->SetCaption(licence);
    f_idx_panel->SetHint(licence.IsEmpty() && source.IsEmpty()
                             ? UnicodeString()
                             : vx_res_format_w(c_lib_origin, {source.c_str(), licence.c_str()}).c_str());
}

void *Tvx_lib_style_panel::get_active_style() const
{
    Tvx_list_style_panel const *const list = get_list_panel(f_pages->GetActivePageIndex());
    return list ? list->get_active_style() : nullptr;
}

bool Tvx_lib_style_panel::get_index_ver(int &index, int &version) const
{
    void *const style = get_active_style();
    if (!style)
        return false;
    index = vx_idx_style_get_index(style);
    version = vx_idx_style_get_version(style);
    return true;
}

/// Shows what `find` finds in the lists, the last hit in front.
template <class Find>
bool Tvx_lib_style_panel::show_found(Find find)
{
    bool any = false;
    for (std::size_t tab = 0; tab < c_tab_count; ++tab) {
        unsigned place = 0;
        if (!f_lib || !f_lists[tab] || !find(c_lists[tab](f_lib), &place))
            continue;
        f_lists[tab]->set_active_style_no(static_cast<int>(place));
        f_lists[tab]->update_controls();
        f_pages->SetActivePage(f_tabs[tab]);
        any = true;
    }
    return any;
}

void Tvx_lib_style_panel::set_index_ver(int index, int version)
{
    bool const any = show_found([=](void const *list, unsigned *place) {
        return vx_style_list_find_idx_ver(list, index, version, place);
    });
    if (any)
        return style_changed();
    f_pages->SetActivePageIndex(0);
    update_idx_panel();
}

void Tvx_lib_style_panel::search_index(int index)
{
    bool const any = show_found(
        [=](void const *list, unsigned *place) { return vx_style_list_find_idx(list, index, place); });
    if (any)
        return style_changed();
    vx_show_werror(vx_res_format_w(c_lib_number_not_found, std::to_wstring(index)).c_str());
}

void Tvx_lib_style_panel::on_pages_change(TObject * /*sender*/)
{
    style_changed();
}

void Tvx_lib_style_panel::on_list_changed(TObject * /*sender*/)
{
    style_changed();
}

void Tvx_lib_style_panel::style_changed()
{
    update_idx_panel();
    on_changed(this);
}
