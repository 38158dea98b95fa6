#pragma once

#include "platform/toolkit/core/form.h"
#include "platform/toolkit/graphics/owner_draw.h"

class TImageList;
class TPageControl;
class TPopupMenu;
class TStatusBar;
class TTabSheet;

/// Every control of the toolkit and of the library, on the pages of one form.
class gallery_form final : public TForm
{
public:
    gallery_form();

    [[nodiscard]] TPageControl *pages() const { return f_pages; }

private:
    TTabSheet *add_page(wchar_t const *caption);
    void make_commands();
    void make_buttons(TWinControl *page);
    void make_edits(TWinControl *page);
    void make_lists(TWinControl *page);
    void make_ranges(TWinControl *page);
    void make_layout(TWinControl *page);
    void make_drawing(TWinControl *page);
    void make_grids(TWinControl *page);
    void on_execute(TObject *sender);
    void on_draw_combo(TWinControl *control, int index, TRect const &rect, TOwnerDrawState const &state);
    void on_draw_list(TWinControl *control, int index, TRect const &rect, TOwnerDrawState const &state);
    void on_paint(TObject *sender);

    TPageControl *f_pages = nullptr;
    TImageList *f_images = nullptr;
    TPopupMenu *f_popup = nullptr;
    TStatusBar *f_status = nullptr;
};
