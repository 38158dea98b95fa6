#pragma once

#include "controls/forms/buttons.h"
#include "controls/forms/pages.h"
#include "styles/simple/composed_style_edit.h"

#include <vector>

/// Base of the editors of composed styles of several components: a tab with an editor for each, and above
/// them a check box for each, which shows the component on the map and its tab here.
class VX_API Tvx_paged_style_edit : public Tvx_composed_style_edit
{
public:
    void load_res() override;

    [[nodiscard]] Tvx_page_control *get_pages() const { return f_pages; }

protected:
    Tvx_paged_style_edit(TComponent *owner, style_files files);

    /// The tabs come onto their control once it has a window.
    void CreateWnd() override;

    struct page
    {
        Tvx_check_box *box;
        Tvx_tab_sheet *sheet;
        Tvx_style_edit *edit;
        int caption; ///< its number
    };
    /// Adds the next tab, called `name`, with an editor of the given class.
    template <class Edit>
    Edit *add_page(wchar_t const *name, int caption, TNotifyEvent on_box_click)
    {
        auto *edit = new Edit(this);
        place_page(edit, name, caption, on_box_click);
        return edit;
    }
    /// In order of the tabs.
    [[nodiscard]] page const &get_page(std::size_t index) const { return f_page_list[index]; }
    /// Sets the check box and lets the tab follow; fires nothing.
    static void show_page(page const &page, bool visible);
    /// What the user made of the check box, which the tab follows; the new state.
    static bool follow_box(page const &page);

private:
    void place_page(Tvx_style_edit *edit, wchar_t const *name, int caption, TNotifyEvent on_box_click);
    void on_strip_resize(TObject *sender);

    Tvx_panel *f_strip;
    Tvx_page_control *f_pages;
    std::vector<page> f_page_list;
};
