#include "platform/toolkit/core/control.h"

#include "platform/base/flag_scope.h"
#include "platform/toolkit/bridge/detail/control_link.h"
#include "platform/toolkit/bridge/detail/drag_session.h"
#include "platform/toolkit/bridge/qt_events.h"
#include "platform/toolkit/bridge/qt_graphics.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/core/action.h"
#include "platform/toolkit/core/application.h"
#include "platform/toolkit/core/form.h"
#include "platform/toolkit/core/win_control.h"
#include "platform/toolkit/graphics/font.h"
#include "platform/toolkit/menus/menu.h"

#include <QtCore/QLatin1Char>
#include <QtGui/QCursor>
#include <QtWidgets/QAbstractScrollArea>

#include <algorithm>
#include <stdexcept>

namespace {
/// The anchors that an alignment stands for.
TAnchors anchors_of(TAlign align)
{
    switch (align) {
    case alTop:
        return {akLeft, akTop, akRight};
    case alBottom:
        return {akLeft, akRight, akBottom};
    case alLeft:
        return {akLeft, akTop, akBottom};
    case alRight:
        return {akTop, akRight, akBottom};
    case alClient:
        return {akLeft, akTop, akRight, akBottom};
    default:
        return {akLeft, akTop};
    }
}

bool is_horizontal_bar(TAlign align)
{
    return align == alTop || align == alBottom;
}

bool is_vertical_bar(TAlign align)
{
    return align == alLeft || align == alRight;
}

/// The caption as it is read out: without the marks of accelerators.
QString spoken(UnicodeString const &caption)
{
    QString text = vx_qt_string(caption);
    // A mark goes, what follows it stays, another mark too.
    for (qsizetype i = text.indexOf(u'&'); i >= 0; i = text.indexOf(u'&', i + 1))
        text.remove(i, 1);
    return text;
}

/// The part before the bar, which pops up.
QString short_hint(UnicodeString const &hint)
{
    QString text = vx_qt_string(hint);
    if (qsizetype const bar = text.indexOf(u'|'); bar >= 0)
        text.truncate(bar);
    return text;
}
} // namespace

TControl::TControl(TComponent *owner, vx_native_widget *widget)
    : TComponent(owner), ControlStyle{csCaptureMouse, csClickEvents, csSetCaption, csDoubleClicks},
      f_link(std::make_unique<vx_control_link>(this, vx_qt_widget(widget)))
{
    f_margins.OnChange = make_closure<&TControl::layout_changed>(this);
    f_constraints.OnChange = make_closure<&TControl::layout_changed>(this);
    QSize const size = vx_qt_widget(widget)->size();
    f_known_size = {size.width(), size.height()};
}

std::weak_ptr<void const> TControl::Life() const
{
    if (!f_life)
        f_life = std::make_shared<char const>();
    return f_life;
}

TControl::~TControl()
{
    TComponent::Destroying();
    f_life.reset();
    vx_control_guard::expire(*f_link);
    vx_drag_session::forget(this);
    if (f_host_dock_site)
        leave_dock_site(nullptr);
    if (f_parent)
        f_parent->remove_control(this);
    if (f_action)
        f_action->UnRegisterClient(this);
    // The link goes first: what the widget does at its end is nobody's business.
    QPointer<QWidget> const widget = f_link->widget;
    f_link.reset();
    if (!widget)
        return;
    if (!vx_event_scope::active()) {
        delete widget.data();
        return;
    }
    widget->hide();
    widget->setParent(nullptr);
    widget->deleteLater();
}

// ---- place

void TControl::SetParent(TWinControl *parent)
{
    if (parent == f_parent)
        return;
    auto *const self = vx_windowed(this);
    if (self && parent && self->ContainsControl(parent))
        throw std::invalid_argument("a control cannot stand inside itself");
    if (f_parent)
        f_parent->remove_control(this);
    if (parent)
        parent->insert_control(this);
}

TRect TControl::GetBoundsRect() const
{
    return f_link->widget ? vx_rect(f_link->widget->geometry()) : TRect{};
}

void TControl::SetLeft(int value)
{
    TRect const r = GetBoundsRect();
    SetBounds(value, r.Top, r.Width(), r.Height());
}

void TControl::SetTop(int value)
{
    TRect const r = GetBoundsRect();
    SetBounds(r.Left, value, r.Width(), r.Height());
}

void TControl::SetWidth(int value)
{
    TRect const r = GetBoundsRect();
    SetBounds(r.Left, r.Top, value, r.Height());
}

void TControl::SetHeight(int value)
{
    TRect const r = GetBoundsRect();
    SetBounds(r.Left, r.Top, r.Width(), value);
}

void TControl::SetBoundsRect(TRect const &rect)
{
    SetBounds(rect.Left, rect.Top, rect.Width(), rect.Height());
}

TRect TControl::GetClientRect() const
{
    TRect const r = GetBoundsRect();
    return {0, 0, r.Width(), r.Height()};
}

void TControl::SetClientWidth(int value)
{
    SetWidth(GetWidth() + value - GetClientWidth());
}

void TControl::SetClientHeight(int value)
{
    SetHeight(GetHeight() + value - GetClientHeight());
}

bool TControl::CanResize(int &width, int &height)
{
    f_constraints.Apply(width, height);
    return true;
}

bool TControl::CanAutoSize(int &, int &)
{
    return false;
}

void TControl::SetBounds(int left, int top, int width, int height)
{
    width = std::max(width, 0);
    height = std::max(height, 0);
    if (f_auto_size && f_align != alClient) {
        int w = width;
        int h = height;
        if (CanAutoSize(w, h)) {
            if (!is_horizontal_bar(f_align))
                width = std::max(w, 0);
            if (!is_vertical_bar(f_align))
                height = std::max(h, 0);
        }
    }
    TRect const old = GetBoundsRect();
    if (!CanResize(width, height)) {
        width = old.Width();
        height = old.Height();
    }
    if (!f_in_layout)
        f_explicit_pos = {left, top};
    if (old == Bounds(left, top, width, height))
        return;
    vx_control_guard const life(this);
    apply_bounds(left, top, width, height);
    if (life.expired())
        return;
    if (!f_in_layout) {
        update_anchor_rules();
        RequestAlign();
    }
    if (!life.expired())
        bounds_moved();
}

void TControl::apply_bounds(int left, int top, int width, int height)
{
    if (f_link->widget)
        f_link->widget->setGeometry(left, top, width, height);
}

void TControl::bounds_moved()
{
    if (!f_link->widget || IsDestroying())
        return;
    QSize const size = f_link->widget->size();
    if (size.width() == f_known_size.cx && size.height() == f_known_size.cy)
        return;
    f_known_size = {size.width(), size.height()};
    SizeChanged();
}

void TControl::SizeChanged()
{
    Resize();
}

void TControl::Resize()
{
    vx_event_scope const scope;
    OnResize(this);
}

TPoint TControl::ClientToScreen(TPoint const &point) const
{
    QWidget *area = f_link->widget;
    if (auto const *self = vx_windowed(this))
        area = vx_qt_widget(self->ClientWidget());
    return area ? vx_point(area->mapToGlobal(vx_qt_point(point))) : point;
}

TPoint TControl::ScreenToClient(TPoint const &point) const
{
    TPoint const origin = ClientToScreen({0, 0});
    return {point.X - origin.X, point.Y - origin.Y};
}

// ---- layout

void TControl::SetAlign(TAlign value)
{
    if (f_align == value)
        return;
    TAlign const old = f_align;
    f_align = value;
    if (f_anchors == anchors_of(old))
        f_anchors = anchors_of(value);
    // A bar turned from lying to standing keeps its thickness.
    if ((is_horizontal_bar(old) && is_vertical_bar(value)) ||
        (is_vertical_bar(old) && is_horizontal_bar(value)))
        SetBounds(GetLeft(), GetTop(), GetHeight(), GetWidth());
    update_anchor_rules();
    RequestAlign();
    if (f_auto_size)
        AdjustSize();
}

void TControl::SetAnchors(TAnchors value)
{
    if (f_anchors == value)
        return;
    f_anchors = value;
    update_anchor_rules();
    RequestAlign();
}

void TControl::update_anchor_rules()
{
    if (!f_parent)
        return;
    f_anchor_bounds = GetBoundsRect();
    TRect const client = f_parent->GetClientRect();
    f_anchor_parent_size = {client.Width(), client.Height()};
}

void TControl::SetAlignWithMargins(bool value)
{
    if (f_align_with_margins == value)
        return;
    f_align_with_margins = value;
    RequestAlign();
}

void TControl::layout_changed(TObject *sender)
{
    if (sender == &f_constraints)
        SetBounds(GetLeft(), GetTop(), GetWidth(), GetHeight());
    RequestAlign();
}

void TControl::SetAutoSize(bool value)
{
    if (f_auto_size == value)
        return;
    f_auto_size = value;
    if (value)
        AdjustSize();
}

void TControl::AdjustSize()
{
    SetBounds(GetLeft(), GetTop(), GetWidth(), GetHeight());
}

void TControl::RequestAlign()
{
    if (f_parent && !f_in_layout)
        f_parent->AlignControl(this);
}

void TControl::BringToFront()
{
    if (f_parent)
        f_parent->set_z_order(this, true);
    else if (f_link->widget)
        f_link->widget->raise();
}

void TControl::SendToBack()
{
    if (f_parent)
        f_parent->set_z_order(this, false);
    else if (f_link->widget)
        f_link->widget->lower();
}

// ---- state

void TControl::SetVisible(bool value)
{
    if (f_visible == value)
        return;
    f_visible = value;
    vx_control_guard const life(this);
    VisibleChanged();
    if (!life.expired())
        apply_visible();
    if (!life.expired())
        RequestAlign();
}

void TControl::apply_visible()
{
    // A child that was never shown by itself comes with its parent: to show it would only polish it early.
    bool const shown = f_visible && f_parent;
    if (f_link->widget && (!shown || f_link->widget->isHidden()))
        f_link->widget->setVisible(shown);
}

bool TControl::GetShowing() const
{
    return f_visible && f_parent && f_parent->GetShowing();
}

void TControl::Show()
{
    SetVisible(true);
}

void TControl::Hide()
{
    SetVisible(false);
}

void TControl::VisibleChanged()
{
}
void TControl::EnabledChanged()
{
}
void TControl::FontChanged()
{
}
void TControl::ColorChanged()
{
}

bool TControl::GetEnabled() const
{
    return !f_link->widget || !f_link->widget->testAttribute(Qt::WA_ForceDisabled);
}

void TControl::SetEnabled(bool value)
{
    if (GetEnabled() == value || !f_link->widget)
        return;
    vx_control_guard const life(this);
    f_link->widget->setEnabled(value);
    if (!life.expired())
        EnabledChanged();
    if (!life.expired())
        Invalidate();
}

void TControl::SetText(UnicodeString const &text)
{
    if (f_text == text)
        return;
    f_text = text;
    apply_name();
    Invalidate();
}

void TControl::SetAccessibleName(UnicodeString const &name)
{
    f_own_name = name;
    apply_name();
}

void TControl::set_label_name(UnicodeString const &name)
{
    f_label_name = name;
    apply_name();
}

void TControl::apply_name()
{
    QWidget *const widget = f_link->widget;
    // Who cannot be seen is not asked for a name: the widget gets it when it is shown.
    if (!widget || !widget->isVisible())
        return;
    QString const name = vx_qt_string(GetAccessibleName());
    if (widget->accessibleName() == name)
        return;
    widget->setAccessibleName(name);
    // The inner widget that has the focus is what is read out.
    if (QWidget *const inner = widget->focusProxy())
        inner->setAccessibleName(name);
}

UnicodeString TControl::GetAccessibleName() const
{
    if (!f_link->widget)
        return {};
    // Three dots or an arrow say nothing, so they come last.
    QString const caption = spoken(f_text);
    bool const speaks =
        std::any_of(caption.begin(), caption.end(), [](QChar c) { return c.isLetterOrNumber(); });
    QString name;
    for (QString const &text : {spoken(f_own_name), speaks ? caption : QString(), spoken(f_label_name),
                                short_hint(f_hint), caption})
        if (name.isEmpty())
            name = text;
    return vx_unicode_string(name);
}

void TControl::SetHint(UnicodeString const &hint)
{
    if (f_hint == hint)
        return;
    f_hint = hint;
    if (f_link->widget)
        f_link->widget->setToolTip(short_hint(hint));
    apply_name();
}

bool TControl::GetShowHint() const
{
    return f_parent_show_hint && f_parent ? f_parent->GetShowHint() : f_show_hint;
}

void TControl::SetShowHint(bool value)
{
    f_show_hint = value;
    f_parent_show_hint = false;
}

TColor TControl::GetColor() const
{
    return f_parent_color && f_parent ? f_parent->GetColor() : f_color;
}

void TControl::SetColor(TColor color)
{
    if (!f_parent_color && f_color == color)
        return;
    f_color = color;
    f_parent_color = false;
    parent_color_changed();
}

void TControl::SetParentColor(bool value)
{
    if (f_parent_color == value)
        return;
    if (!value)
        f_color = GetColor();
    f_parent_color = value;
    parent_color_changed();
}

void TControl::parent_color_changed()
{
    apply_color();
    ColorChanged();
    Invalidate();
    if (auto *const self = vx_windowed(this))
        for (TControl *const child : self->f_controls)
            if (child->f_parent_color)
                child->parent_color_changed();
}

void TControl::apply_color()
{
    QWidget *const widget = f_link->widget;
    if (!widget)
        return;
    bool const own = !f_parent_color && f_color != clDefault && f_color != clNone;
    if (own) {
        QPalette palette = widget->palette();
        palette.setColor(widget->backgroundRole(), vx_qt_color(f_color));
        if (qobject_cast<QAbstractScrollArea *>(widget))
            palette.setColor(QPalette::Base, vx_qt_color(f_color));
        widget->setPalette(palette);
    } else if (widget->testAttribute(Qt::WA_SetPalette)) {
        // What the parent has comes through Qt; only the marks of an own colour are taken off.
        QPalette kept;
        kept.setResolveMask(0);
        widget->setPalette(kept);
        if (f_font)
            apply_font();
    }
    if (ControlStyle.Contains(csOwnPaint))
        widget->setAutoFillBackground(own);
}

TFont *TControl::GetFont()
{
    if (!f_font) {
        f_font = std::make_unique<TFont>();
        if (f_parent_font && f_parent)
            f_font->Assign(f_parent->GetFont());
        f_font->OnChange = make_closure<&TControl::font_changed>(this);
    }
    return f_font.get();
}

void TControl::SetFont(TFont const *font)
{
    if (font)
        GetFont()->Assign(font);
}

void TControl::SetParentFont(bool value)
{
    if (f_parent_font == value)
        return;
    f_parent_font = value;
    if (value)
        parent_font_changed();
}

void TControl::font_changed(TObject *)
{
    if (f_applying_font)
        return;
    f_parent_font = false;
    apply_font();
    FontChanged();
    Invalidate();
    if (auto *const self = vx_windowed(this))
        for (TControl *const child : self->f_controls)
            if (child->f_parent_font)
                child->parent_font_changed();
    if (f_auto_size)
        AdjustSize();
}

void TControl::parent_font_changed()
{
    if (f_font && f_parent) {
        {
            vx::flag_scope const applying(f_applying_font);
            f_font->Assign(f_parent->GetFont());
        }
        apply_font();
    }
    FontChanged();
    Invalidate();
    if (auto *const self = vx_windowed(this))
        for (TControl *const child : self->f_controls)
            if (child->f_parent_font)
                child->parent_font_changed();
    if (f_auto_size)
        AdjustSize();
}

void TControl::apply_font()
{
    QWidget *const widget = f_link->widget;
    if (!widget || !f_font)
        return;
    widget->setFont(vx_qt_font(*f_font));
    if (f_font->GetColor() == clWindowText && f_parent_font)
        return;
    QPalette palette = widget->palette();
    QColor const color = vx_qt_color(f_font->GetColor());
    for (QPalette::ColorRole const role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Active, role, color);
        palette.setColor(QPalette::Inactive, role, color);
    }
    widget->setPalette(palette);
}

void TControl::SetCursor(TCursor value)
{
    f_cursor = value;
    QWidget *const widget = f_link->widget;
    if (!widget)
        return;
    if (value == crDefault)
        widget->unsetCursor();
    else
        widget->setCursor(vx_qt_cursor(value));
}

void TControl::SetPopupMenu(TPopupMenu *menu)
{
    f_popup_menu = menu;
    if (menu)
        menu->FreeNotification(this);
}

void TControl::SetAction(TBasicAction *action)
{
    if (f_action == action)
        return;
    if (f_action)
        f_action->UnRegisterClient(this);
    f_action = action;
    if (!action)
        return;
    action->FreeNotification(this);
    action->RegisterClient(this);
}

void TControl::Notification(TComponent *component, TOperation operation)
{
    TComponent::Notification(component, operation);
    if (operation != opRemove)
        return;
    if (component == f_popup_menu)
        f_popup_menu = nullptr;
    if (component == f_action)
        f_action = nullptr;
}

// ---- painting

void TControl::Invalidate()
{
    if (f_link->widget)
        f_link->widget->update();
}

void TControl::Repaint()
{
    if (f_link->widget)
        f_link->widget->repaint();
}

void TControl::Update()
{
    if (f_link->widget && f_link->widget->isVisible())
        f_link->widget->repaint();
}

void TControl::PaintWidget(vx_native_painter *)
{
}

// ---- mouse

void TControl::Click()
{
    vx_event_scope const scope;
    if (OnClick)
        OnClick(this);
    else if (f_action)
        f_action->Execute();
}

void TControl::DblClick()
{
    vx_event_scope const scope;
    OnDblClick(this);
}

void TControl::MouseDown(TMouseButton button, TShiftState shift, int x, int y)
{
    OnMouseDown(this, button, shift, x, y);
}

void TControl::MouseMove(TShiftState shift, int x, int y)
{
    OnMouseMove(this, shift, x, y);
}

void TControl::MouseUp(TMouseButton button, TShiftState shift, int x, int y)
{
    OnMouseUp(this, button, shift, x, y);
}

void TControl::MouseEnter()
{
    OnMouseEnter(this);
}

void TControl::MouseLeave()
{
    OnMouseLeave(this);
}

bool TControl::DoMouseWheel(TShiftState shift, int wheel_delta, TPoint const &mouse_pos)
{
    bool handled = false;
    vx_control_guard const life(this);
    OnMouseWheel(this, shift, wheel_delta, mouse_pos, handled);
    if (life.expired())
        return true;
    if (handled || wheel_delta == 0)
        return handled;
    return wheel_delta < 0 ? DoMouseWheelDown(shift, mouse_pos) : DoMouseWheelUp(shift, mouse_pos);
}

bool TControl::DoMouseWheelDown(TShiftState shift, TPoint const &mouse_pos)
{
    bool handled = false;
    vx_control_guard const life(this);
    OnMouseWheelDown(this, shift, mouse_pos, handled);
    return handled || life.expired();
}

bool TControl::DoMouseWheelUp(TShiftState shift, TPoint const &mouse_pos)
{
    bool handled = false;
    vx_control_guard const life(this);
    OnMouseWheelUp(this, shift, mouse_pos, handled);
    return handled || life.expired();
}

void TControl::DoContextPopup(TPoint const &mouse_pos, bool &handled)
{
    OnContextPopup(this, mouse_pos, handled);
}

bool TControl::GetMouseCapture() const
{
    return f_link->widget && QWidget::mouseGrabber() == f_link->widget;
}

void TControl::SetMouseCapture(bool value)
{
    if (!f_link->widget || GetMouseCapture() == value)
        return;
    if (value)
        f_link->widget->grabMouse();
    else
        f_link->widget->releaseMouse();
}
