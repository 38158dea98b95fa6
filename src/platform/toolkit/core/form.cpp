#include "platform/toolkit/core/form.h"

#include "platform/toolkit/bridge/detail/control_link.h"
#include "platform/toolkit/bridge/qt_events.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/core/action.h"
#include "platform/toolkit/core/application.h"
#include "platform/toolkit/core/screen.h"
#include "platform/toolkit/graphics/canvas.h"
#include "platform/toolkit/menus/menu.h"

#include <QtCore/QMetaObject>
#include <QtGui/QGuiApplication>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <vector>

namespace {
constexpr int c_width = 320;
constexpr int c_height = 240;

/// The window system does not tell again of a window that it took for the active one all the time, although
/// its widget was hidden or docked away meanwhile.
void settle_activation()
{
    QWindow const *const focused = QGuiApplication::focusWindow();
    if (!focused || QApplication::activeWindow())
        return;
    for (QWidget *const window : QApplication::topLevelWidgets())
        if (window->windowHandle() == focused && window->isVisible()) {
            QApplication::setActiveWindow(window);
            return;
        }
}

bool is_fixed(TFormBorderStyle style)
{
    return style == bsSingle || style == bsDialog || style == bsToolWindow;
}
} // namespace

TCustomForm::TCustomForm(TComponent *owner)
    : TWinControl(owner, vx_make_widget<QWidget>()), f_canvas(std::make_unique<TCanvas>())
{
    f_visible = false;
    f_parent_color = false;
    f_parent_font = false;
    ControlStyle <<= csAcceptsControls;
    ControlStyle <<= csOwnPaint;
    QWidget *const widget = vx_qt_widget(this);
    // Closing our windows never ends a host.
    widget->setAttribute(Qt::WA_QuitOnClose, false);
    apply_flags();
    SetBounds(0, 0, c_width, c_height);
    Screen->add_form(this);
}

TCustomForm::~TCustomForm()
{
    TCustomForm::Destroying();
    Screen->remove_form(this);
    leave_mdi_parent();
    if (f_menu)
        SetMenu(nullptr);
}

// ---- showing and closing

void TCustomForm::Show()
{
    auto const life = Life();
    SetVisible(true);
    if (life.expired())
        return;
    BringToFront();
    if (GetVisible() && !GetParent())
        SetFocus();
}

bool TCustomForm::GetShowing() const
{
    if (GetParent() || f_hosted)
        return TWinControl::GetShowing();
    return f_visible;
}

void TCustomForm::apply_visible()
{
    if (!GetParent() && !f_hosted) {
        if (f_visible)
            show_window();
        else
            hide_window();
        return;
    }
    TWinControl::apply_visible();
    if (f_shown == f_visible)
        return;
    f_shown = f_visible;
    if (f_shown)
        DoShow();
    else
        DoHide();
}

/// Window managers take a tool window for a helper that never gets the focus back, not even from a dialog of
/// its own, unless it says that it is a dialog. That can be said only of a native window not yet shown.
static void become_dialog(QWidget *window)
{
    if (window->windowType() != Qt::Tool || window->isVisible())
        return;
    bool const is_native = window->testAttribute(Qt::WA_NativeWindow);
    window->setAttribute(Qt::WA_X11NetWmWindowTypeDialog, false);
    window->winId();
    window->setAttribute(Qt::WA_X11NetWmWindowTypeDialog);
    window->setAttribute(Qt::WA_NativeWindow, is_native); // it may come to lie in another window
}

void TCustomForm::show_window()
{
    if (!f_shown) {
        apply_position();
        update_showing();
        f_shown = true;
        auto const life = Life();
        DoShow();
        if (life.expired() || !f_visible)
            return;
    }
    update_showing();
    if (f_form_style == fsMDIChild && become_mdi_child()) {
        vx_qt_widget(f_mdi_frame)->show();
    } else {
        focus_first();
        become_dialog(vx_qt_widget(this));
        vx_qt_widget(this)->show();
    }
    settle_activation();
    layout_frame();
}

void TCustomForm::hide_window()
{
    QWidget *const window = f_mdi_frame ? vx_qt_widget(f_mdi_frame) : vx_qt_widget(this);
    if (window)
        window->hide();
    if (!f_shown)
        return;
    f_shown = false;
    if (TCustomForm *const parent = f_mdi_frame ? mdi_parent() : nullptr;
        parent && parent->f_active_mdi_child == this)
        parent->f_active_mdi_child = nullptr;
    DoHide();
}

void TCustomForm::focus_first()
{
    TWinControl *const wanted = f_wanted_focus && has_below(f_wanted_focus) ? f_wanted_focus : nullptr;
    f_wanted_focus = nullptr;
    TWinControl *first = wanted && wanted->CanFocus() ? wanted : nullptr;
    if (!first && !f_focus_child)
        first = FindNextControl(nullptr, true, true, false);
    if (first)
        vx_qt_widget(first)->setFocus(Qt::OtherFocusReason);
}

void TCustomForm::apply_position()
{
    TRect area;
    switch (f_position) {
    case poScreenCenter:
        area = Bounds(0, 0, Screen->GetWidth(), Screen->GetHeight());
        break;
    case poDesktopCenter:
        area = Screen->GetDesktopRect();
        break;
    case poMainFormCenter:
    case poOwnerFormCenter: {
        TCustomForm *around = Application->GetMainForm();
        if (f_position == poOwnerFormCenter)
            if (auto *const owner = dynamic_cast<TCustomForm *>(GetOwner()))
                around = owner;
        area = around && around != this ? around->GetBoundsRect()
                                        : Bounds(0, 0, Screen->GetWidth(), Screen->GetHeight());
        break;
    }
    default:
        return;
    }
    int const left = area.Left + (area.Width() - GetWidth()) / 2;
    int const top = area.Top + (area.Height() - GetHeight()) / 2;
    // What is larger than the screen shows its corner.
    SetBounds(std::max(left, 0), std::max(top, 0), GetWidth(), GetHeight());
}

bool TCustomForm::CloseQuery()
{
    bool can_close = true;
    vx_event_scope const scope;
    auto const life = Life();
    // The documents in it close along; each is asked, and a question may end others.
    for (TCustomForm *const child : std::vector<TCustomForm *>(f_mdi_children)) {
        if (life.expired())
            return false;
        if (std::find(f_mdi_children.begin(), f_mdi_children.end(), child) != f_mdi_children.end() &&
            !child->CloseQuery())
            return false;
    }
    if (!life.expired())
        OnCloseQuery(this, can_close);
    return can_close;
}

void TCustomForm::Close()
{
    if (f_modal) {
        f_modal_result = mrCancel;
        return;
    }
    QPointer<vx_control_link> const alive(Link());
    if (!CloseQuery() || !alive)
        return;
    TCloseAction action = caHide;
    if (f_form_style == fsMDIChild)
        action = f_border_icons.Contains(biMinimize) ? caMinimize : caNone;
    DoClose(action);
    if (!alive || action == caNone)
        return;
    if (Application->GetMainForm() == this)
        Application->Terminate();
    if (action == caMinimize)
        SetWindowState(wsMinimized);
    else
        Hide();
    if (alive && action == caFree)
        Release();
}

void TCustomForm::PostClose()
{
    QMetaObject::invokeMethod(
        Link(), [this] { vx_guarded([this] { Close(); }); }, Qt::QueuedConnection);
}

void TCustomForm::Release()
{
    if (f_releasing)
        return;
    f_releasing = true;
    QPointer<vx_control_link> const link(Link());
    QMetaObject::invokeMethod(
        qApp,
        [link] {
            if (link)
                delete link->control;
        },
        Qt::QueuedConnection);
}

int TCustomForm::ShowModal()
{
    if (f_modal)
        return mrNone;
    if (GetVisible())
        Hide();
    QPointer<vx_control_link> const alive(Link());
    QPointer<QWidget> const widget(vx_qt_widget(this));
    QWidget *const active = QApplication::activeWindow();
    QPointer<QWidget> const former(active != widget && active && active->isVisible() ? active : nullptr);
    f_modal = true;
    f_modal_result = mrNone;
    widget->setWindowModality(Qt::ApplicationModal);
    if (former && !GetParent() && !f_hosted) {
        widget->winId();
        widget->windowHandle()->setTransientParent(former->windowHandle());
    }
    Show();
    while (alive) {
        if (f_modal_result == mrNone && (Application->GetTerminated() || !GetVisible()))
            f_modal_result = mrCancel;
        if (f_modal_result != mrNone && !vx_guarded([this] { close_modal(); }) && alive)
            f_modal_result = mrNone;
        if (!alive || f_modal_result != mrNone)
            break;
        Application->HandleMessage();
    }
    if (!alive)
        return mrCancel;
    f_modal = false;
    Hide();
    if (!alive)
        return mrCancel;
    widget->setWindowModality(Qt::NonModal);
    if (former && former->isVisible())
        former->activateWindow();
    return f_modal_result;
}

void TCustomForm::close_modal()
{
    QPointer<vx_control_link> const alive(Link());
    if (!CloseQuery()) {
        if (alive)
            f_modal_result = mrNone;
        return;
    }
    TCloseAction action = caHide;
    DoClose(action);
    if (!alive)
        return;
    if (action == caNone)
        f_modal_result = mrNone;
    if (action == caFree)
        Release();
}

void TCustomForm::SetModalResult(TModalResult value)
{
    f_modal_result = value;
}

void TCustomForm::DoShow()
{
    vx_event_scope const scope;
    OnShow(this);
}

void TCustomForm::DoHide()
{
    vx_event_scope const scope;
    OnHide(this);
}

void TCustomForm::DoClose(TCloseAction &action)
{
    vx_event_scope const scope;
    OnClose(this, action);
}

void TCustomForm::Activate()
{
    OnActivate(this);
}

void TCustomForm::Deactivate()
{
    OnDeactivate(this);
}

void TCustomForm::window_activated()
{
    if (IsDestroying() || Screen->GetActiveForm() == this)
        return;
    vx_event_scope const scope;
    auto const life = Life();
    // The window system tells the former window afterwards, when it is not the active one any more.
    if (TCustomForm *const former = Screen->GetActiveForm())
        former->window_deactivated();
    if (life.expired() || !GetVisible())
        return;
    Screen->form_activated(this);
    Activate();
    if (!life.expired() && !f_focus_child)
        focus_first();
}

void TCustomForm::window_deactivated()
{
    if (IsDestroying() || Screen->GetActiveForm() != this)
        return;
    vx_event_scope const scope;
    Screen->form_deactivated(this);
    Deactivate();
}

// ---- the window

void TCustomForm::SetParent(TWinControl *parent)
{
    if (parent == GetParent())
        return;
    if (parent)
        leave_mdi_parent();
    TWinControl::SetParent(parent);
    if (parent) {
        settle_activation();
        return;
    }
    apply_flags();
    if (f_visible)
        apply_visible();
}

void TCustomForm::apply_flags()
{
    QWidget *const widget = vx_qt_widget(this);
    if (!widget || GetParent() || f_hosted || f_mdi_frame)
        return;
    Qt::WindowFlags flags = Qt::Window;
    if (f_border_style == bsToolWindow || f_border_style == bsSizeToolWin)
        flags = Qt::Tool;
    else if (f_border_style == bsDialog)
        flags = Qt::Dialog;
    flags |= Qt::CustomizeWindowHint;
    if (f_border_style == bsNone) {
        flags |= Qt::FramelessWindowHint;
    } else {
        flags |= Qt::WindowTitleHint;
        if (f_border_icons.Contains(biSystemMenu))
            flags |= Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
        if (f_border_icons.Contains(biMinimize))
            flags |= Qt::WindowMinimizeButtonHint;
        if (f_border_icons.Contains(biMaximize) && !is_fixed(f_border_style))
            flags |= Qt::WindowMaximizeButtonHint;
    }
    if (f_form_style == fsStayOnTop)
        flags |= Qt::WindowStaysOnTopHint;
    if (widget->windowFlags() != flags) {
        bool const shown = widget->isVisible();
        widget->setWindowFlags(flags);
        if (shown)
            widget->show();
    }
    TRect const bounds = GetBoundsRect();
    apply_bounds(bounds.Left, bounds.Top, bounds.Width(), bounds.Height());
}

TRect TCustomForm::GetBoundsRect() const
{
    QWidget const *const widget = f_mdi_frame ? vx_qt_widget(f_mdi_frame) : vx_qt_widget(this);
    if (!widget)
        return {};
    return Bounds(widget->x(), widget->y(), widget->width(), widget->height());
}

void TCustomForm::apply_bounds(int left, int top, int width, int height)
{
    if (f_mdi_frame) {
        vx_qt_widget(f_mdi_frame)->setGeometry(left, top, width, height);
        return;
    }
    if (GetParent() || f_hosted) {
        TWinControl::apply_bounds(left, top, width, height);
        return;
    }
    QWidget *const widget = vx_qt_widget(this);
    if (!widget)
        return;
    // The user keeps to the same limits as the program.
    if (is_fixed(f_border_style)) {
        widget->setFixedSize(width, height);
    } else {
        TSizeConstraints const &c = *GetConstraints();
        widget->setMinimumSize(std::min(c.GetMinWidth(), width), std::min(c.GetMinHeight(), height));
        widget->setMaximumSize(c.GetMaxWidth() > 0 ? c.GetMaxWidth() : QWIDGETSIZE_MAX,
                               c.GetMaxHeight() > 0 ? c.GetMaxHeight() : QWIDGETSIZE_MAX);
    }
    if (widget->pos() != QPoint(left, top))
        widget->move(left, top);
    if (widget->size() != QSize(width, height))
        widget->resize(width, height);
}

UnicodeString TCustomForm::GetText() const
{
    QWidget const *const widget = vx_qt_widget(this);
    return widget ? vx_unicode_string(widget->windowTitle()) : UnicodeString();
}

void TCustomForm::SetText(UnicodeString const &text)
{
    QWidget *const widget = vx_qt_widget(this);
    if (!widget)
        return;
    widget->setWindowTitle(vx_qt_string(text));
    widget->setAccessibleName(vx_qt_string(text));
    if (f_mdi_frame)
        vx_qt_widget(f_mdi_frame)->setWindowTitle(vx_qt_string(text));
}

void TCustomForm::SetBorderStyle(TFormBorderStyle value)
{
    if (f_border_style == value)
        return;
    f_border_style = value;
    apply_flags();
}

void TCustomForm::SetBorderIcons(TBorderIcons value)
{
    if (f_border_icons == value)
        return;
    f_border_icons = value;
    apply_flags();
}

void TCustomForm::SetFormStyle(TFormStyle value)
{
    if (f_form_style == value)
        return;
    if (f_form_style == fsMDIChild)
        leave_mdi_parent();
    f_form_style = value;
    if (value == fsMDIForm)
        make_mdi_area();
    apply_flags();
    if (value == fsMDIChild && f_visible && !GetParent())
        show_window();
}

TWindowState TCustomForm::GetWindowState() const
{
    QWidget const *const window = f_mdi_frame ? vx_qt_widget(f_mdi_frame) : vx_qt_widget(this);
    if (!window)
        return wsNormal;
    if (window->isMinimized())
        return wsMinimized;
    return window->isMaximized() ? wsMaximized : wsNormal;
}

void TCustomForm::SetWindowState(TWindowState value)
{
    QWidget *const window = f_mdi_frame ? vx_qt_widget(f_mdi_frame) : vx_qt_widget(this);
    if (!window)
        return;
    Qt::WindowStates states = window->windowState() & ~(Qt::WindowMinimized | Qt::WindowMaximized);
    if (value == wsMinimized)
        states |= Qt::WindowMinimized;
    if (value == wsMaximized)
        states |= Qt::WindowMaximized;
    window->setWindowState(states);
}

void TCustomForm::SetAlphaBlend(bool value)
{
    f_alpha_blend = value;
    if (QWidget *const widget = vx_qt_widget(this))
        widget->setWindowOpacity(value ? f_alpha_blend_value / 255.0 : 1.0);
}

void TCustomForm::SetAlphaBlendValue(int value)
{
    f_alpha_blend_value = std::clamp(value, 0, 255);
    SetAlphaBlend(f_alpha_blend);
}

vx_native_widget *TCustomForm::ClientWidget() const
{
    return f_client_area ? f_client_area : TWinControl::ClientWidget();
}

void TCustomForm::SetMenu(TMainMenu *menu)
{
    if (f_menu == menu)
        return;
    QWidget *const widget = vx_qt_widget(this);
    if (f_menu) {
        f_menu->RemoveFreeNotification(this);
        if (QWidget *const bar = vx_qt_widget(f_menu->NativeBar())) {
            bar->hide();
            bar->setParent(nullptr);
        }
    }
    f_menu = menu;
    if (!menu || !widget) {
        layout_frame();
        return;
    }
    menu->FreeNotification(this);
    if (!f_client_area) {
        // From now on the children stand below the bar.
        QWidget *const area = new QWidget(widget);
        f_client_area = vx_native(area);
        for (int i = 0; i < GetControlCount(); ++i) {
            AttachChildWidget(GetControls(i));
            GetControls(i)->apply_visible();
        }
        if (f_mdi_area)
            vx_qt_widget(f_mdi_area)->setParent(area);
        area->show();
    }
    QWidget *const bar = vx_qt_widget(menu->NativeBar());
    bar->setParent(widget);
    bar->show();
    layout_frame();
}

void TCustomForm::layout_frame()
{
    QWidget *const widget = vx_qt_widget(this);
    if (!f_client_area || !widget)
        return;
    int height = 0;
    if (QWidget *const bar = f_menu ? vx_qt_widget(f_menu->NativeBar()) : nullptr) {
        height = bar->heightForWidth(widget->width());
        if (height < 0)
            height = bar->sizeHint().height();
        bar->setGeometry(0, 0, widget->width(), height);
    }
    QRect const area(0, height, widget->width(), std::max(widget->height() - height, 0));
    if (vx_qt_widget(f_client_area)->geometry() == area)
        return;
    vx_qt_widget(f_client_area)->setGeometry(area);
    Realign();
}

void TCustomForm::SizeChanged()
{
    auto const life = Life();
    layout_frame();
    if (!life.expired())
        TWinControl::SizeChanged();
}

void TCustomForm::PaintWidget(vx_native_painter *painter)
{
    f_canvas->Attach(painter);
    Paint();
    OnPaint(this);
    f_canvas->Detach();
}

void TCustomForm::Notification(TComponent *component, TOperation operation)
{
    TWinControl::Notification(component, operation);
    if (operation == opRemove && component == f_menu) {
        f_menu = nullptr;
        layout_frame();
    }
}

// ---- focus and keys

bool TCustomForm::CanFocus() const
{
    if (GetParent() || f_hosted)
        return TWinControl::CanFocus();
    return GetVisible() && GetEnabled();
}

void TCustomForm::SetFocus()
{
    QWidget *const widget = vx_qt_widget(this);
    if (!widget || !CanFocus())
        return;
    QWidget *const window = widget->window();
    if (!window->isActiveWindow())
        window->activateWindow();
    if (f_mdi_frame)
        vx_qt_widget(f_mdi_frame)->setFocus(Qt::OtherFocusReason);
    focus_first();
}

TWinControl *TCustomForm::GetActiveControl() const
{
    return f_wanted_focus && has_below(f_wanted_focus) ? f_wanted_focus : f_focus_child;
}

void TCustomForm::SetActiveControl(TWinControl *control)
{
    if (control && !has_below(control))
        return;
    f_wanted_focus = nullptr;
    if (!control)
        return;
    if (control->CanFocus())
        control->SetFocus();
    else
        f_wanted_focus = control;
}

bool TCustomForm::GetActive() const
{
    return Screen->GetActiveForm() == this;
}

bool TCustomForm::IsShortCut(Word key, TShiftState shift)
{
    bool handled = false;
    OnShortCut(this, key, shift, handled);
    return handled || vx_run_short_cut(this, FindFocusedControl(), key, shift);
}

bool TCustomForm::DialogKey(Word key, TShiftState shift)
{
    if (TWinControl::DialogKey(key, shift))
        return true;
    if (key != VK_F1 || !shift.Empty())
        return false;
    for (TControl *asked = f_focus_child ? f_focus_child : this; asked; asked = asked->GetParent())
        if (asked->GetHelpContext() != 0)
            return Application->HelpContext(asked->GetHelpContext());
    return false;
}

// ---- windows of controls that are no forms

vx_float_form::vx_float_form(TControl *content) : TCustomForm(content)
{
    SetBorderStyle(bsSizeToolWin);
}

void vx_float_form::ControlListChange(TControl *, bool inserting)
{
    if (!inserting && GetControlCount() == 0 && !IsDestroying()) {
        Hide();
        Release();
    }
}
