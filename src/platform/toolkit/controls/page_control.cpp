#include "platform/toolkit/controls/page_control.h"

#include "platform/base/flag_scope.h"
#include "platform/toolkit/bridge/detail/control_link.h"
#include "platform/toolkit/bridge/qt_graphics.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/image_list.h"

#include <QtGui/QIcon>
#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>
#include <QtGui/QPixmap>
#include <QtGui/QResizeEvent>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionTabWidgetFrame>
#include <QtWidgets/QTabBar>

#include <algorithm>

/// The row of tabs and the frame of the pages below or above it.
class TPageControl::area : public QWidget
{
public:
    explicit area(QWidget *parent) : QWidget(parent), tabs(this)
    {
        tabs.setExpanding(false);
        tabs.setDrawBase(false);
        tabs.setUsesScrollButtons(true);
        setFocusProxy(&tabs);
    }

    [[nodiscard]] int bar_height() const { return tabs.count() > 0 ? tabs.sizeHint().height() : 0; }
    /// What the pages get.
    [[nodiscard]] QRect inside() const
    {
        constexpr int c_frame = 2;
        QRect box = rect();
        (bottom ? box.setBottom(box.bottom() - bar_height()) : box.setTop(box.top() + bar_height()));
        return box.adjusted(c_frame, c_frame, -c_frame, -c_frame);
    }
    void lay_out()
    {
        int const height = bar_height();
        tabs.setVisible(height > 0);
        tabs.setGeometry(0, bottom ? this->height() - height : 0, width(), height);
        update();
    }

    QTabBar tabs;
    bool bottom = false;

protected:
    void resizeEvent(QResizeEvent *) override { lay_out(); }
    void paintEvent(QPaintEvent *) override
    {
        QStyleOptionTabWidgetFrame option;
        option.initFrom(this);
        option.shape = tabs.shape();
        option.lineWidth = 1;
        int const height = bar_height();
        option.rect = rect();
        (bottom ? option.rect.setBottom(option.rect.bottom() - height)
                : option.rect.setTop(option.rect.top() + height));
        option.tabBarSize = QSize(width(), height);
        option.tabBarRect = tabs.geometry();
        option.selectedTabRect = tabs.tabRect(tabs.currentIndex()).translated(tabs.pos());
        QPainter painter(this);
        style()->drawPrimitive(QStyle::PE_FrameTabWidget, &option, &painter, this);
    }
};

TTabSheet::TTabSheet(TComponent *owner) : TWinControl(owner, vx_make_widget<QWidget>())
{
    SetBounds(0, 0, 100, 100);
    SetAlign(alClient);
    SetVisible(false);
}

TTabSheet::~TTabSheet()
{
    if (f_page_control)
        f_page_control->remove_page(this);
}

void TTabSheet::SetText(UnicodeString const &text)
{
    TWinControl::SetText(text);
    if (f_page_control)
        f_page_control->update_tab(this);
}

void TTabSheet::SetPageControl(TPageControl *control)
{
    if (f_page_control == control)
        return;
    if (f_page_control)
        f_page_control->remove_page(this);
    TWinControl::SetParent(control);
    if (control)
        control->insert_page(this);
}

void TTabSheet::SetParent(TWinControl *parent)
{
    // A sheet stands nowhere but on its control: another parent takes it off.
    if (f_page_control && parent != f_page_control)
        f_page_control->remove_page(this);
    TWinControl::SetParent(parent);
}

int TTabSheet::GetPageIndex() const
{
    if (!f_page_control)
        return -1;
    auto const &pages = f_page_control->f_pages;
    return static_cast<int>(std::find(pages.begin(), pages.end(), this) - pages.begin());
}

void TTabSheet::SetPageIndex(int index)
{
    if (!f_page_control || index < 0 || index >= f_page_control->GetPageCount())
        return;
    auto &pages = f_page_control->f_pages;
    std::erase(pages, this);
    pages.insert(pages.begin() + index, this);
    f_page_control->update_tabs();
}

int TTabSheet::GetTabIndex() const
{
    if (!f_page_control || !f_tab_visible)
        return -1;
    int tab = 0;
    for (TTabSheet const *page : f_page_control->f_pages) {
        if (page == this)
            return tab;
        tab += page->f_tab_visible;
    }
    return -1;
}

void TTabSheet::SetTabVisible(bool visible)
{
    if (f_tab_visible == visible)
        return;
    int const former = GetTabIndex();
    f_tab_visible = visible;
    if (!f_page_control)
        return;
    TPageControl *control = f_page_control;
    control->update_tabs();
    if (visible && !control->f_active)
        control->activate(this);
    else if (!visible && control->f_active == this)
        control->activate(control->nearest_page(former));
}

void TTabSheet::SetImageIndex(int index)
{
    f_image_index = index;
    if (f_page_control)
        f_page_control->update_tab(this);
}

void TTabSheet::VisibleChanged()
{
    TWinControl::VisibleChanged();
    if (GetVisible())
        OnShow(this);
    else
        OnHide(this);
}

TPageControl::TPageControl(TComponent *owner) : TWinControl(owner, vx_make_widget<area>())
{
    ControlStyle.Exclude(csClickEvents);
    SetTabStop(true);
    SetBounds(0, 0, 289, 193);
    vx_connect(this, &native()->tabs, &QTabBar::currentChanged, [this](int tab) { tab_chosen(tab); });
    // The bar always marks some tab: while no page is active a click on that one brings its page.
    vx_connect(this, &native()->tabs, &QTabBar::tabBarClicked, [this](int tab) {
        if (tab >= 0 && tab == native()->tabs.currentIndex())
            tab_chosen(tab);
    });
}

TPageControl::~TPageControl()
{
    SetImages(nullptr);
    for (TTabSheet *page : f_pages)
        page->f_page_control = nullptr;
}

TPageControl::area *TPageControl::native() const
{
    return vx_qt_as<area>(this);
}

TTabSheet *TPageControl::GetPages(int index) const
{
    return index >= 0 && index < GetPageCount() ? f_pages[static_cast<std::size_t>(index)] : nullptr;
}

TTabSheet *TPageControl::page_of_tab(int tab) const
{
    for (TTabSheet *page : f_pages)
        if (page->f_tab_visible && tab-- == 0)
            return page;
    return nullptr;
}

TTabSheet *TPageControl::nearest_page(int tab) const
{
    TTabSheet *page = page_of_tab(tab);
    return page ? page : page_of_tab(tab - 1);
}

void TPageControl::insert_page(TTabSheet *page)
{
    page->f_page_control = this;
    f_pages.push_back(page);
    update_tabs();
    if (!f_active && page->f_tab_visible)
        activate(page);
}

void TPageControl::remove_page(TTabSheet *page)
{
    int const former = page->GetTabIndex();
    page->f_page_control = nullptr;
    std::erase(f_pages, page);
    if (IsDestroying())
        return;
    bool const was_active = f_active == page;
    if (was_active)
        f_active = nullptr;
    update_tabs();
    if (was_active) {
        if (!page->IsDestroying())
            page->SetVisible(false);
        activate(nearest_page(std::max(former, 0)));
    }
}

void TPageControl::update_tabs()
{
    area *widget = native();
    if (!widget)
        return;
    {
        vx::flag_scope const quiet(f_quiet);
        QTabBar &tabs = widget->tabs;
        int count = 0;
        for (TTabSheet const *page : f_pages)
            count += page->f_tab_visible;
        while (tabs.count() > count)
            tabs.removeTab(tabs.count() - 1);
        while (tabs.count() < count)
            tabs.addTab(QString());
        for (TTabSheet *page : f_pages)
            update_tab(page);
        tabs.setCurrentIndex(f_active ? f_active->GetTabIndex() : -1);
    }
    Realign();
}

void TPageControl::update_tab(TTabSheet *page)
{
    int const tab = page->GetTabIndex();
    if (tab < 0)
        return;
    QTabBar &tabs = native()->tabs;
    // Qt measures all tabs anew for each that is set.
    if (QString const text = vx_qt_string(page->GetCaption()); tabs.tabText(tab) != text)
        tabs.setTabText(tab, text);
    tabs.setTabToolTip(tab, vx_qt_string(page->GetHint()));
    TBitmap picture;
    bool const has_picture = f_images && f_images->GetBitmap(page->f_image_index, &picture);
    if (has_picture || !tabs.tabIcon(tab).isNull())
        tabs.setTabIcon(tab, has_picture ? QIcon(QPixmap::fromImage(vx_qt_image(picture))) : QIcon());
}

void TPageControl::tab_chosen(int tab)
{
    if (f_quiet)
        return;
    TTabSheet *page = page_of_tab(tab);
    if (page == f_active)
        return;
    // The bar has moved on already; the page has not, so a refusal has only the bar to set back.
    auto const life = Life();
    bool const allowed = CanChange();
    if (life.expired())
        return;
    if (!allowed) {
        vx::flag_scope const quiet(f_quiet);
        native()->tabs.setCurrentIndex(f_active ? f_active->GetTabIndex() : -1);
        return;
    }
    // The handler may have taken the page away.
    if (std::find(f_pages.begin(), f_pages.end(), page) == f_pages.end())
        return;
    activate(page);
    if (!life.expired())
        Change();
}

bool TPageControl::CanChange()
{
    bool allow = true;
    OnChanging(this, allow);
    return allow;
}

void TPageControl::Change()
{
    OnChange(this);
}

void TPageControl::activate(TTabSheet *page)
{
    TTabSheet *former = f_active;
    if (former == page)
        return;
    f_active = page;
    {
        vx::flag_scope const quiet(f_quiet);
        native()->tabs.setCurrentIndex(page ? page->GetTabIndex() : -1);
    }
    native()->update();
    // The focus does not stay in a page that goes.
    TWinControl *focused = FindFocusedControl();
    bool const had_focus = former && focused && former->ContainsControl(focused);
    // Pages run `OnShow` and `OnHide`, whose handlers may free them or this control.
    auto const life = Life();
    auto const stands = [&](TTabSheet const *sheet) {
        return !life.expired() && std::find(f_pages.begin(), f_pages.end(), sheet) != f_pages.end();
    };
    if (page)
        page->SetVisible(true);
    if (stands(page))
        page->BringToFront();
    if (life.expired() || f_active != page)
        return;
    if (had_focus)
        SetFocus();
    if (stands(former))
        former->SetVisible(false);
}

void TPageControl::SetActivePage(TTabSheet *page)
{
    if (page && page->f_page_control != this)
        return;
    activate(page && page->f_tab_visible ? page : nullptr);
}

int TPageControl::GetActivePageIndex() const
{
    return f_active ? f_active->GetPageIndex() : -1;
}

void TPageControl::SetActivePageIndex(int index)
{
    SetActivePage(GetPages(index));
}

TTabSheet *TPageControl::FindNextPage(TTabSheet *current, bool go_forward, bool check_tab_visible) const
{
    int const count = GetPageCount();
    auto const found = std::find(f_pages.begin(), f_pages.end(), current);
    int at = static_cast<int>(found - f_pages.begin());
    if (found == f_pages.end())
        at = go_forward ? count - 1 : 0;
    for (int i = 0; i < count; ++i) {
        at = (at + (go_forward ? 1 : count - 1)) % count;
        TTabSheet *page = f_pages[static_cast<std::size_t>(at)];
        if (!check_tab_visible || page->f_tab_visible)
            return page;
    }
    return nullptr;
}

void TPageControl::SelectNextPage(bool go_forward, bool check_tab_visible)
{
    TTabSheet *page = FindNextPage(f_active, go_forward, check_tab_visible);
    auto const life = Life();
    if (!page || page == f_active || !CanChange() || life.expired())
        return;
    SetActivePage(page);
    if (!life.expired())
        Change();
}

void TPageControl::SetTabPosition(TTabPosition position)
{
    f_tab_position = position;
    native()->bottom = position == tpBottom;
    native()->tabs.setShape(position == tpBottom ? QTabBar::RoundedSouth : QTabBar::RoundedNorth);
    native()->lay_out();
    Realign();
}

void TPageControl::SetImages(TCustomImageList *images)
{
    if (f_images == images)
        return;
    if (f_images) {
        f_images->UnRegisterChanges(make_closure<&TPageControl::images_changed>(this));
        f_images->RemoveFreeNotification(this);
    }
    f_images = images;
    if (images) {
        images->RegisterChanges(make_closure<&TPageControl::images_changed>(this));
        images->FreeNotification(this);
    }
    if (!IsDestroying() && native())
        images_changed(images);
}

void TPageControl::images_changed(TObject *)
{
    for (TTabSheet *page : f_pages)
        update_tab(page);
}

int TPageControl::IndexOfTabAt(int x, int y) const
{
    QTabBar const &tabs = native()->tabs;
    return tabs.tabAt(QPoint(x, y) - tabs.pos());
}

TRect TPageControl::GetDisplayRect() const
{
    return vx_rect(native()->inside());
}

void TPageControl::AdjustClientRect(TRect &rect)
{
    rect = GetDisplayRect();
    TWinControl::AdjustClientRect(rect);
}

void TPageControl::AlignControls(TControl *control, TRect &rect)
{
    native()->lay_out();
    TWinControl::AlignControls(control, rect);
}

bool TPageControl::DialogKey(Word key, TShiftState shift)
{
    TWinControl *focused = FindFocusedControl();
    if (key == VK_TAB && shift.Contains(ssCtrl) && focused && ContainsControl(focused)) {
        if (TWinControl::DialogKey(key, shift))
            return true;
        SelectNextPage(!shift.Contains(ssShift));
        return true;
    }
    return TWinControl::DialogKey(key, shift);
}

void TPageControl::FontChanged()
{
    TWinControl::FontChanged();
    Realign();
}

void TPageControl::Notification(TComponent *component, TOperation operation)
{
    TWinControl::Notification(component, operation);
    if (operation == opRemove && component == f_images) {
        f_images = nullptr;
        images_changed(nullptr);
    }
}
