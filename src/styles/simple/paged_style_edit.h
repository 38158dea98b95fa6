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
    void update_controls() override;
    void load_res() override;

    [[nodiscard]] Tvx_page_control *get_pages() const { return f_pages; }

protected:
    Tvx_paged_style_edit(TComponent *owner, composed_style const &style);

    /// The tabs come onto their control once it has a window.
    void CreateWnd() override;

    /// A base style in the composed one.
    struct component
    {
        wchar_t const *name; ///< of the tab
        int caption;         ///< its number
        void *(*get)(void *style);
        bool (*get_visible)(void const *style);
        void (*set_visible)(void *style, bool visible);
    };
    /// Adds the next tab, with an editor of the given class.
    template <class Edit>
    Edit *add_page(component const &component)
    {
        auto *edit = new Edit(this);
        place_page(edit, component);
        return edit;
    }
    /// The check box of a tab, in their order.
    [[nodiscard]] Tvx_check_box *get_box(std::size_t index) const { return f_page_list[index].box; }

private:
    struct page
    {
        component part;
        Tvx_check_box *box;
        Tvx_tab_sheet *sheet;
        Tvx_style_edit *edit;
    };
    void place_page(Tvx_style_edit *edit, component const &component);
    void on_strip_resize(TObject *sender);
    void on_box_click(TObject *sender);
    void on_edit_changed(TObject *sender);

    Tvx_panel *f_strip;
    Tvx_page_control *f_pages;
    std::vector<page> f_page_list;
};
