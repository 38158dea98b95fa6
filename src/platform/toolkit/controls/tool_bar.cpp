#include "platform/toolkit/controls/tool_bar.h"

#include "platform/toolkit/bridge/detail/control_link.h"
#include "platform/toolkit/bridge/qt_events.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/controls/button_keys_priv.h"
#include "platform/toolkit/graphics/glyph_priv.h"
#include "platform/toolkit/graphics/image_list.h"
#include "platform/toolkit/menus/menu.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOption>
#include <QtWidgets/QStyleOptionToolButton>
#include <QtWidgets/QToolButton>

#include <algorithm>

namespace {
constexpr int c_separator_width = 8;
/// Room of a button round its picture.
constexpr int c_picture_margin = 7;
} // namespace

class TToolButton::native_button : public QToolButton
{
public:
    explicit native_button(QWidget *parent) : QToolButton(parent)
    {
        setFocusPolicy(Qt::TabFocus);
        setAutoRaise(true);
    }

    TToolButton *owner = nullptr;
    bool separator = false;
    bool line = false;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        if (!separator)
            return QToolButton::paintEvent(event);
        if (!line)
            return;
        QStyleOption option;
        option.initFrom(this);
        option.state |= QStyle::State_Horizontal;
        QPainter painter(this);
        style()->drawPrimitive(QStyle::PE_IndicatorToolBarSeparator, &option, &painter, this);
    }
    void mousePressEvent(QMouseEvent *event) override
    {
        if (event->button() == Qt::LeftButton && popupMode() == MenuButtonPopup) {
            QStyleOptionToolButton option;
            initStyleOption(&option);
            QRect const arrow =
                style()->subControlRect(QStyle::CC_ToolButton, &option, QStyle::SC_ToolButtonMenu, this);
            if (arrow.contains(event->pos())) {
                owner->drop_down();
                return;
            }
        }
        QToolButton::mousePressEvent(event);
    }
    void keyPressEvent(QKeyEvent *event) override
    {
        if (event->key() == Qt::Key_Down && owner->f_menu)
            owner->drop_down();
        else
            QToolButton::keyPressEvent(event);
    }
};

TToolButton::TToolButton(TComponent *owner) : TWinControl(owner, vx_make_widget<native_button>())
{
    ControlStyle.Exclude(csClickEvents);
    SetTabStop(true);
    SetBounds(0, 0, 23, 22);
    auto *button = vx_qt_as<native_button>(this);
    button->owner = this;
    vx_connect(this, button, &QToolButton::clicked, [this](bool) { pressed(); });
    apply();
}

void TToolButton::pressed()
{
    if (f_style == tbsCheck) {
        if (!f_down)
            SetDown(true);
        else if (!f_grouped || f_allow_all_up)
            SetDown(false);
        // The widget has turned its mark itself; it follows the button.
        apply();
    }
    if (f_menu && f_style != tbsDropDown && !OnClick && !GetAction())
        drop_down();
    else
        Click();
}

void TToolButton::Click()
{
    TWinControl::Click();
}

void TToolButton::KeyDown(Word &key, TShiftState shift)
{
    auto const life = Life();
    TWinControl::KeyDown(key, shift);
    if (life.expired())
        return;
    vx_press_by_enter(vx_native(vx_qt_widget(this)), key, shift);
}

void TToolButton::drop_down()
{
    if (!f_menu || !GetEnabled())
        return;
    vx_event_scope const scope;
    f_menu->SetPopupComponent(this);
    TPoint const at = ClientToScreen({0, GetHeight()});
    f_menu->Popup(at.X, at.Y);
}

void TToolButton::SetText(UnicodeString const &text)
{
    TWinControl::SetText(text);
    vx_qt_as<QToolButton>(this)->setText(vx_qt_string(text));
    apply();
    RequestAlign();
}

void TToolButton::SetStyle(TToolButtonStyle style)
{
    f_style = style;
    if (style == tbsSeparator || style == tbsDivider)
        SetWidth(c_separator_width);
    apply();
    RequestAlign();
}

void TToolButton::SetImageIndex(int index)
{
    f_image_index = index;
    apply();
}

void TToolButton::SetDown(bool down)
{
    if (f_style != tbsCheck || f_down == down)
        return;
    f_down = down;
    if (down && f_grouped)
        release_neighbours();
    apply();
}

void TToolButton::release_neighbours()
{
    auto const *bar = dynamic_cast<TToolBar const *>(GetParent());
    if (!bar)
        return;
    int const count = bar->GetButtonCount();
    int own = 0;
    while (own < count && bar->GetButtons(own) != this)
        ++own;
    auto const in_group = [](TToolButton const *button) {
        return button->f_grouped && button->f_style == tbsCheck;
    };
    for (int step : {-1, 1})
        for (int i = own + step; i >= 0 && i < count && in_group(bar->GetButtons(i)); i += step)
            bar->GetButtons(i)->SetDown(false);
}

void TToolButton::SetDropdownMenu(TPopupMenu *menu)
{
    if (f_menu)
        f_menu->RemoveFreeNotification(this);
    f_menu = menu;
    if (menu)
        menu->FreeNotification(this);
    apply();
}

void TToolButton::SetWrap(bool wrap)
{
    f_wrap = wrap;
    RequestAlign();
}

void TToolButton::SetParent(TWinControl *parent)
{
    TWinControl::SetParent(parent);
    apply();
}

void TToolButton::apply()
{
    auto *button = vx_qt_as<native_button>(this);
    auto const *bar = dynamic_cast<TToolBar const *>(GetParent());
    button->separator = f_style == tbsSeparator || f_style == tbsDivider;
    button->line = f_style == tbsDivider;
    button->setFocusPolicy(button->separator ? Qt::NoFocus : Qt::TabFocus);
    SetTabStop(!button->separator);
    button->setCheckable(f_style == tbsCheck);
    button->setChecked(f_down);
    button->setPopupMode(f_style == tbsDropDown ? QToolButton::MenuButtonPopup : QToolButton::DelayedPopup);
    button->setAutoRaise(!bar || bar->GetFlat());
    auto const *action = dynamic_cast<TCustomAction const *>(GetAction());
    TCustomImageList const *images = bar ? bar->GetImages() : nullptr;
    if (!images && action)
        images = action->GetImages();
    vx::glyph::set_button(button, images, f_image_index);
    bool const captions = bar && bar->GetShowCaptions() && !GetText().IsEmpty();
    button->setToolButtonStyle(
        captions ? (button->icon().isNull() ? Qt::ToolButtonTextOnly : Qt::ToolButtonTextUnderIcon)
                 : Qt::ToolButtonIconOnly);
}

int TToolButton::wanted_width(TToolBar const &bar) const
{
    if (f_style == tbsSeparator || f_style == tbsDivider)
        return GetWidth();
    int width = bar.GetButtonWidth();
    if (bar.GetShowCaptions() || f_style == tbsDropDown)
        width = std::max(width, vx_qt_widget(this)->sizeHint().width());
    return width;
}

void TToolButton::ActionChanged(TCustomAction const &action)
{
    f_image_index = action.GetImageIndex();
    if (f_style == tbsCheck)
        SetDown(action.GetChecked());
    apply();
}

void TToolButton::Notification(TComponent *component, TOperation operation)
{
    TWinControl::Notification(component, operation);
    if (operation == opRemove && component == f_menu)
        f_menu = nullptr;
}

TToolBar::TToolBar(TComponent *owner) : TWinControl(owner, vx_make_widget<QWidget>())
{
    SetBounds(0, 0, 150, 29);
    SetAlign(alTop);
}

TToolBar::~TToolBar()
{
    if (f_images)
        f_images->UnRegisterChanges(make_closure<&TToolBar::images_changed>(this));
}

int TToolBar::GetButtonCount() const
{
    int count = 0;
    for (int i = 0; i < GetControlCount(); ++i)
        if (dynamic_cast<TToolButton *>(GetControls(i)))
            ++count;
    return count;
}

TToolButton *TToolBar::GetButtons(int index) const
{
    for (int i = 0; i < GetControlCount(); ++i)
        if (auto *button = dynamic_cast<TToolButton *>(GetControls(i)); button && index-- == 0)
            return button;
    return nullptr;
}

void TToolBar::SetButtonWidth(int width)
{
    f_button_width = std::max(width, 1);
    Realign();
}

void TToolBar::SetButtonHeight(int height)
{
    f_button_height = std::max(height, 1);
    Realign();
}

void TToolBar::SetShowCaptions(bool show)
{
    f_show_captions = show;
    images_changed(nullptr);
}

void TToolBar::SetFlat(bool flat)
{
    f_flat = flat;
    images_changed(nullptr);
}

void TToolBar::SetWrapable(bool wrapable)
{
    f_wrapable = wrapable;
    Realign();
}

void TToolBar::SetIndent(int indent)
{
    f_indent = indent;
    Realign();
}

void TToolBar::SetImages(TCustomImageList *images)
{
    if (f_images == images)
        return;
    if (f_images) {
        f_images->UnRegisterChanges(make_closure<&TToolBar::images_changed>(this));
        f_images->RemoveFreeNotification(this);
    }
    f_images = images;
    if (images) {
        images->RegisterChanges(make_closure<&TToolBar::images_changed>(this));
        images->FreeNotification(this);
    }
    images_changed(images);
}

void TToolBar::images_changed(TObject *)
{
    if (f_images) {
        f_button_width = std::max(f_button_width, f_images->GetWidth() + c_picture_margin);
        f_button_height = std::max(f_button_height, f_images->GetHeight() + c_picture_margin - 1);
    }
    for (int i = 0; i < GetControlCount(); ++i)
        if (auto *button = dynamic_cast<TToolButton *>(GetControls(i)))
            button->apply();
    Realign();
}

int TToolBar::place(int width, bool move)
{
    int x = f_indent;
    int y = 0;
    int row_height = f_button_height;
    if (f_show_captions)
        for (int i = 0; i < GetControlCount(); ++i)
            if (auto const *button = dynamic_cast<TToolButton const *>(GetControls(i)))
                row_height = std::max(row_height, vx_qt_widget(button)->sizeHint().height());
    auto const new_row = [&] {
        x = f_indent;
        y += row_height;
    };
    for (int i = 0; i < GetControlCount(); ++i) {
        TControl *control = GetControls(i);
        if (!control->GetVisible())
            continue;
        auto const *button = dynamic_cast<TToolButton const *>(control);
        int const w = button ? button->wanted_width(*this) : control->GetWidth();
        int const h = button ? row_height : std::min(control->GetHeight(), row_height);
        if (f_wrapable && x > f_indent && x + w > width)
            new_row();
        if (move)
            control->SetBounds(x, y + (row_height - h) / 2, w, h);
        x += w;
        if (button && button->f_wrap)
            new_row();
    }
    return x > f_indent || y == 0 ? y + row_height : y;
}

void TToolBar::AlignControls(TControl *, TRect &)
{
    place(GetClientWidth(), true);
    ControlsAligned();
    if (GetAutoSize())
        AdjustSize();
}

bool TToolBar::CanAutoSize(int &width, int &height)
{
    height = place(width, false);
    return true;
}

void TToolBar::Notification(TComponent *component, TOperation operation)
{
    TWinControl::Notification(component, operation);
    if (operation == opRemove && component == f_images) {
        f_images = nullptr;
        images_changed(nullptr);
    }
}
