#pragma once

#include "platform/toolkit/core/win_control.h"

#include <vector>

class TCustomImageList;
class TPageControl;

enum TTabPosition
{
    tpTop,
    tpBottom
};

/// One page of a page control. Its caption is that of its tab.
class VX_API TTabSheet : public TWinControl
{
public:
    explicit TTabSheet(TComponent *owner);
    ~TTabSheet() override;

    void SetText(UnicodeString const &text) override;
    [[nodiscard]] TPageControl *GetPageControl() const { return f_page_control; }
    /// Puts the sheet behind the last page of the control, or takes it off its control (null). A sheet that
    /// is on the control already keeps its place.
    void SetPageControl(TPageControl *control);
    /// The place among all pages, hidden tabs included; -1 without a control.
    [[nodiscard]] int GetPageIndex() const;
    void SetPageIndex(int index);
    /// The place among the tabs that are seen; -1 without a tab.
    [[nodiscard]] int GetTabIndex() const;
    /// False takes the tab away; the page keeps its place among the pages. When it was the active one the
    /// page of the next tab becomes active, else that of the last one.
    [[nodiscard]] bool GetTabVisible() const { return f_tab_visible; }
    void SetTabVisible(bool visible);
    /// Of the page control's image list.
    [[nodiscard]] int GetImageIndex() const { return f_image_index; }
    void SetImageIndex(int index);
    void SetParent(TWinControl *parent) override;

    TNotifyEvent OnShow;
    TNotifyEvent OnHide;

protected:
    void VisibleChanged() override;

private:
    friend class TPageControl;

    TPageControl *f_page_control = nullptr;
    int f_image_index = -1;
    bool f_tab_visible = true;
};

/// Pages one over the other with a row of tabs, 289 by 193. Another tab chosen by the user, by mouse, arrow
/// keys or Ctrl+Tab, runs `OnChanging`, which may refuse, then `OnChange`; `SetActivePage`, hidden tabs and
/// removed pages run neither.
class VX_API TPageControl : public TWinControl
{
public:
    explicit TPageControl(TComponent *owner);
    ~TPageControl() override;

    [[nodiscard]] int GetPageCount() const { return static_cast<int>(f_pages.size()); }
    /// From 0, hidden tabs included; null outside.
    [[nodiscard]] TTabSheet *GetPages(int index) const;
    /// Null while no tab is seen.
    [[nodiscard]] TTabSheet *GetActivePage() const { return f_active; }
    /// A page without a tab, and null, leave no page active; a page of another control changes nothing.
    void SetActivePage(TTabSheet *page);
    [[nodiscard]] int GetActivePageIndex() const;
    void SetActivePageIndex(int index);
    /// The next or last page in the circle of pages; null if there is none. `check_tab_visible` leaves out
    /// pages without a tab.
    [[nodiscard]] TTabSheet *FindNextPage(TTabSheet *current, bool go_forward, bool check_tab_visible) const;
    /// As if the user had gone there: with the events.
    void SelectNextPage(bool go_forward, bool check_tab_visible = true);
    [[nodiscard]] TTabPosition GetTabPosition() const { return f_tab_position; }
    void SetTabPosition(TTabPosition position);
    [[nodiscard]] TCustomImageList *GetImages() const { return f_images; }
    void SetImages(TCustomImageList *images);
    /// The number among the tabs that are seen, at a point of the control; -1 if there is none.
    [[nodiscard]] int IndexOfTabAt(int x, int y) const;
    /// The room of the pages.
    [[nodiscard]] TRect GetDisplayRect() const;

    closure<void(TObject *sender, bool &allow_change)> OnChanging;
    TNotifyEvent OnChange;

protected:
    virtual bool CanChange();
    virtual void Change();
    void AdjustClientRect(TRect &rect) override;
    void AlignControls(TControl *control, TRect &rect) override;
    bool DialogKey(Word key, TShiftState shift) override;
    void FontChanged() override;
    void Notification(TComponent *component, TOperation operation) override;

private:
    friend class TTabSheet;
    class area;

    [[nodiscard]] area *native() const;
    void insert_page(TTabSheet *page);
    void remove_page(TTabSheet *page);
    void update_tabs();
    void update_tab(TTabSheet *page);
    void tab_chosen(int tab);
    void activate(TTabSheet *page);
    void images_changed(TObject *sender);
    [[nodiscard]] TTabSheet *page_of_tab(int tab) const;
    [[nodiscard]] TTabSheet *nearest_page(int tab) const;

    std::vector<TTabSheet *> f_pages;
    TTabSheet *f_active = nullptr;
    TCustomImageList *f_images = nullptr;
    TTabPosition f_tab_position = tpTop;
    bool f_quiet = false;
};
