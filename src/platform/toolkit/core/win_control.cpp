#include "platform/toolkit/core/win_control.h"

#include "platform/toolkit/bridge/detail/control_link.h"
#include "platform/toolkit/bridge/qt_events.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/core/dock_manager.h"
#include "platform/toolkit/core/form.h"
#include "platform/toolkit/core/list.h"

#include <QtCore/QPointer>
#include <QtWidgets/QApplication>

#include <algorithm>

TWinControl::TWinControl(TComponent *owner, vx_native_widget *widget) : TControl(owner, widget)
{
    Link()->windowed = this;
    f_padding.OnChange = make_closure<&TWinControl::padding_changed>(this);
}

TWinControl::~TWinControl()
{
    TWinControl::Destroying();
    // While this still is a windowed control the parent finds it in all its lists.
    if (GetParent())
        GetParent()->remove_control(this);
    free_window();
    f_dock_manager.reset();
    // What is docked here belongs to others: it comes loose, hidden.
    while (!f_dock_clients.empty()) {
        TControl *const client = f_dock_clients.back();
        client->f_visible = false;
        undock(client);
        client->SetParent(nullptr);
    }
    while (!f_controls.empty()) {
        TControl *const child = f_controls.back();
        remove_control(child);
        delete child;
    }
    Link()->windowed = nullptr;
}

void TWinControl::Destroying()
{
    if (IsDestroying())
        return;
    TControl::Destroying();
    for (TControl *const child : f_controls)
        if (child->f_host_dock_site != this)
            child->Destroying();
}

// ---- children

TControl *TWinControl::GetControls(int index) const
{
    if (index < 0 || index >= GetControlCount())
        return nullptr;
    return f_controls[static_cast<std::size_t>(index)];
}

bool TWinControl::ContainsControl(TControl const *control) const
{
    while (control && control != this)
        control = control->f_parent;
    return control != nullptr;
}

TControl *TWinControl::ControlAtPos(TPoint const &pos, bool allow_disabled) const
{
    QWidget *const area = vx_qt_widget(ClientWidget());
    if (!area)
        return nullptr;
    for (QWidget *under = area->childAt(vx_qt_point(pos)); under && under != area;
         under = under->parentWidget()) {
        TControl *const control = vx_control_of(under);
        if (control && control->f_parent == this)
            return allow_disabled || control->GetEnabled() ? control : nullptr;
    }
    return nullptr;
}

void TWinControl::SetParent(TWinControl *parent)
{
    if (f_hosted && parent)
        vx_qt_host_control(this, nullptr);
    TControl::SetParent(parent);
}

vx_native_widget *TWinControl::ClientWidget() const
{
    return vx_native(vx_qt_widget(this));
}

TRect TWinControl::GetClientRect() const
{
    QWidget const *const area = vx_qt_widget(ClientWidget());
    return area ? Bounds(0, 0, area->width(), area->height()) : TRect{};
}

void TWinControl::AttachChildWidget(TControl *child)
{
    QWidget *const widget = vx_qt_widget(child);
    QWidget *const area = vx_qt_widget(ClientWidget());
    if (!widget || !area || widget->parentWidget() == area)
        return;
    QRect const bounds = widget->geometry();
    widget->setParent(area);
    if (widget->geometry() != bounds)
        widget->setGeometry(bounds);
}

void TWinControl::DetachChildWidget(TControl *child)
{
    QWidget *const widget = vx_qt_widget(child);
    if (!widget)
        return;
    QRect const bounds = widget->geometry();
    widget->hide();
    widget->setParent(nullptr);
    widget->setGeometry(bounds);
}

void TWinControl::insert_control(TControl *control)
{
    // Few parents have more, and hardly any has one only.
    constexpr std::size_t c_usual_children = 4;
    if (f_controls.empty())
        f_controls.reserve(c_usual_children);
    f_controls.push_back(control);
    auto *const windowed = vx_windowed(control);
    if (windowed) {
        if (f_tab_list.empty())
            f_tab_list.reserve(c_usual_children);
        f_tab_list.push_back(windowed);
    }
    control->f_parent = this;
    AttachChildWidget(control);
    if (!windowed)
        stack_graphic(control);
    if (control->f_parent_font)
        control->parent_font_changed();
    if (control->f_parent_color)
        control->ColorChanged();
    control->update_anchor_rules();
    control->apply_visible();
    AlignControl(control);
    ControlListChange(control, true);
}

void TWinControl::remove_control(TControl *control)
{
    if (control->f_host_dock_site == this)
        undock(control);
    root()->forget_focus(control);
    std::erase(f_controls, control);
    if (auto *const windowed = vx_windowed(control)) {
        std::erase(f_tab_list, windowed);
        windowed->free_window();
    }
    DetachChildWidget(control);
    control->f_parent = nullptr;
    if (IsDestroying())
        return;
    auto const life = Life();
    AlignControl(nullptr);
    if (!life.expired())
        ControlListChange(control, false);
}

void TWinControl::ControlListChange(TControl *, bool)
{
}

void TWinControl::stack_graphic(TControl *control)
{
    QWidget *const widget = vx_qt_widget(control);
    if (!widget)
        return;
    for (TControl *const other : f_controls)
        if (vx_windowed(other) && vx_qt_widget(other) &&
            vx_qt_widget(other)->parentWidget() == widget->parentWidget()) {
            widget->stackUnder(vx_qt_widget(other));
            return;
        }
    widget->raise();
}

void TWinControl::set_z_order(TControl *control, bool front)
{
    std::erase(f_controls, control);
    f_controls.insert(front ? f_controls.end() : f_controls.begin(), control);
    QWidget *const widget = vx_qt_widget(control);
    if (!widget)
        return;
    if (!vx_windowed(control)) {
        if (front)
            stack_graphic(control);
        else
            widget->lower();
        return;
    }
    if (front) {
        widget->raise();
        return;
    }
    widget->lower();
    for (auto child = f_controls.rbegin(); child != f_controls.rend(); ++child)
        if (!vx_windowed(*child) && vx_qt_widget(*child))
            vx_qt_widget(*child)->lower();
}

// ---- window

void TWinControl::HandleNeeded()
{
    if (f_handle_allocated || IsDestroying())
        return;
    if (GetParent()) {
        GetParent()->HandleNeeded();
        if (!GetParent()->f_handle_allocated)
            return;
    } else if (!IsTopLevel() && !f_hosted) {
        return;
    }
    // The parent's making may have made this one too.
    if (f_handle_allocated)
        return;
    f_handle_allocated = true;
    vx_event_scope const scope;
    CreateWnd();
}

HWND TWinControl::GetHandle()
{
    HandleNeeded();
    return f_handle_allocated ? vx_native(vx_qt_widget(this)) : nullptr;
}

void TWinControl::CreateWnd()
{
}
void TWinControl::DestroyWnd()
{
}

void TWinControl::RecreateWnd()
{
    if (!f_handle_allocated)
        return;
    free_window();
    HandleNeeded();
    update_showing();
}

void TWinControl::free_window()
{
    if (!f_handle_allocated)
        return;
    for (TWinControl *const child : f_tab_list)
        child->free_window();
    vx_event_scope const scope;
    DestroyWnd();
    f_handle_allocated = false;
}

bool TWinControl::GetShowing() const
{
    if (f_hosted)
        return GetVisible() && vx_qt_widget(this) && vx_qt_widget(this)->isVisible();
    return TControl::GetShowing();
}

void TWinControl::apply_visible()
{
    if (f_hosted) {
        if (QWidget *const widget = vx_qt_widget(this))
            widget->setVisible(GetVisible());
        return;
    }
    if (GetVisible())
        update_showing();
    TControl::apply_visible();
    if (!GetVisible())
        give_keyboard_back();
}

/// Qt hands the focus of a widget that is hidden to the next one; where there is none it would go on taking
/// the keys.
void TWinControl::give_keyboard_back()
{
    QWidget *const widget = vx_qt_widget(this);
    if (!widget || widget->isWindow())
        return;
    QWidget *const focused = widget->window()->focusWidget();
    if (focused && (focused == widget || widget->isAncestorOf(focused))) {
        focused->clearFocus();
        root()->focus_came(nullptr);
    }
}

void TWinControl::update_showing()
{
    if (!GetShowing())
        return;
    HandleNeeded();
    // By copy: making a window may make and free children.
    auto const children = f_tab_list;
    for (TWinControl *const child : children)
        if (std::find(f_tab_list.begin(), f_tab_list.end(), child) != f_tab_list.end())
            child->update_showing();
}

// ---- focus

TWinControl *TWinControl::root() const
{
    auto *top = const_cast<TWinControl *>(this);
    while (top->GetParent())
        top = top->GetParent();
    return top;
}

bool TWinControl::CanFocus() const
{
    for (TWinControl const *control = this; control; control = control->GetParent())
        if (!control->GetVisible() || !control->GetEnabled() ||
            (control != this && !control->ShowsChildren()))
            return false;
    TWinControl const *const top = root();
    return top->IsTopLevel() || top->f_hosted;
}

void TWinControl::SetFocus()
{
    QWidget *const widget = vx_qt_widget(this);
    if (!widget || !CanFocus())
        return;
    QPointer<QWidget> const window(widget->window());
    auto const life = Life();
    vx_event_scope const scope;
    widget->setFocus(Qt::OtherFocusReason);
    if (life.expired() || !window)
        return;
    if (window->isVisible() && !window->isActiveWindow())
        window->activateWindow();
    // In a window that is not active Qt only remembers the widget; in an active one a handler may have moved
    // on.
    QWidget const *const remembered = life.expired() || !window ? nullptr : window->focusWidget();
    if (remembered && vx_control_of(remembered) == this)
        root()->focus_came(this);
}

bool TWinControl::Focused() const
{
    QWidget const *const focused = QApplication::focusWidget();
    return focused && vx_control_of(focused) == this;
}

void TWinControl::focus_came(TWinControl *control)
{
    if (f_focus_child == control || IsDestroying())
        return;
    TWinControl *const old = f_focus_child;
    f_focus_child = control;
    vx_event_scope const scope;
    auto const life = Life();

    // Handlers may free controls or move the focus on: the chains are collected first and looked up again.
    std::vector<TWinControl *> leaving;
    for (TWinControl *c = old; c && c != this && !c->ContainsControl(control); c = c->GetParent())
        leaving.push_back(c);
    std::vector<TWinControl *> entering;
    for (TWinControl *c = control; c && c != this && !(old && c->ContainsControl(old)); c = c->GetParent())
        entering.insert(entering.begin(), c);

    for (TWinControl *const c : leaving) {
        if (!has_below(c))
            continue;
        c->DoExit();
        if (life.expired() || f_focus_child != control)
            return;
    }
    for (TWinControl *const c : entering) {
        if (!has_below(c))
            continue;
        c->DoEnter();
        if (life.expired() || f_focus_child != control)
            return;
    }
}

bool TWinControl::has_below(TControl const *control) const
{
    for (TControl const *const child : f_controls) {
        if (child == control)
            return true;
        auto const *const windowed = vx_windowed(child);
        if (windowed && windowed->has_below(control))
            return true;
    }
    return false;
}

void TWinControl::forget_focus(TControl const *control)
{
    auto const *const windowed = vx_windowed(control);
    if (windowed && f_focus_child && windowed->ContainsControl(f_focus_child))
        f_focus_child = nullptr;
}

void TWinControl::SetTabStop(bool value)
{
    f_tab_stop = value;
}

int TWinControl::GetTabOrder() const
{
    if (!GetParent())
        return -1;
    auto const &list = GetParent()->f_tab_list;
    return static_cast<int>(std::find(list.begin(), list.end(), this) - list.begin());
}

void TWinControl::SetTabOrder(int value)
{
    if (!GetParent())
        return;
    auto &list = GetParent()->f_tab_list;
    std::erase(list, this);
    value = std::clamp(value, 0, static_cast<int>(list.size()));
    list.insert(list.begin() + value, this);
}

void TWinControl::GetTabOrderList(TList *list) const
{
    for (TWinControl *const child : f_tab_list) {
        list->Add(child);
        child->GetTabOrderList(list);
    }
}

TWinControl *TWinControl::FindNextControl(TWinControl *current, bool forward, bool check_tab_stop,
                                          bool check_parent) const
{
    TList list;
    GetTabOrderList(&list);
    int const count = list.GetCount();
    if (count == 0)
        return nullptr;
    int const start = current ? list.IndexOf(current) : -1;
    int at = start;
    if (start < 0)
        at = forward ? count - 1 : 0;
    for (int step = 0; step < count; ++step) {
        at = (at + (forward ? 1 : count - 1)) % count;
        auto *const next = static_cast<TWinControl *>(list.GetItems(at));
        if (next->CanFocus() && (!check_tab_stop || next->TakesTab()) &&
            (!check_parent || next->GetParent() == this))
            return next;
    }
    return nullptr;
}

void TWinControl::SelectNext(TWinControl *current, bool forward, bool check_tab_stop)
{
    if (TWinControl *const next = FindNextControl(current, forward, check_tab_stop, !check_tab_stop)) {
        auto const life = next->Life();
        if (QWidget *const widget = vx_qt_widget(next)) {
            widget->setFocus(forward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
            // A handler may have moved the focus on, or back.
            if (life.expired())
                return;
            QWidget const *const remembered = widget->window()->focusWidget();
            if (remembered && vx_control_of(remembered) != next)
                return;
        }
        next->SetFocus();
    }
}

void TWinControl::DoEnter()
{
    OnEnter(this);
}

void TWinControl::DoExit()
{
    OnExit(this);
}

// ---- keys

void TWinControl::KeyDown(Word &key, TShiftState shift)
{
    OnKeyDown(this, key, shift);
}

void TWinControl::KeyPress(wchar_t &key)
{
    OnKeyPress(this, key);
}

void TWinControl::KeyUp(Word &key, TShiftState shift)
{
    OnKeyUp(this, key, shift);
}

bool TWinControl::offer_key_down(Word &key, TShiftState shift)
{
    TCustomForm *const form = GetParentForm(this);
    if (form && form != this && form->GetKeyPreview()) {
        auto const life = Life();
        form->KeyDown(key, shift);
        if (key == 0 || life.expired())
            return true;
    }
    KeyDown(key, shift);
    return key == 0;
}

bool TWinControl::offer_key_press(wchar_t &key)
{
    TCustomForm *const form = GetParentForm(this);
    if (form && form != this && form->GetKeyPreview()) {
        auto const life = Life();
        form->KeyPress(key);
        if (key == 0 || life.expired())
            return true;
    }
    KeyPress(key);
    return key == 0;
}

bool TWinControl::offer_key_up(Word &key, TShiftState shift)
{
    TCustomForm *const form = GetParentForm(this);
    if (form && form != this && form->GetKeyPreview()) {
        auto const life = Life();
        form->KeyUp(key, shift);
        if (key == 0 || life.expired())
            return true;
    }
    KeyUp(key, shift);
    return key == 0;
}

bool TWinControl::DialogKey(Word key, TShiftState shift)
{
    auto const children = f_tab_list;
    for (TWinControl *const child : children)
        if (child->GetVisible() && child->GetEnabled() && child->DialogKey(key, shift))
            return true;
    return false;
}

bool TWinControl::WantsKey(Word, TShiftState) const
{
    return false;
}

// ---- free functions

TWinControl *FindControl(HWND handle)
{
    QWidget *const widget = vx_qt_widget(handle);
    auto *const control = dynamic_cast<TWinControl *>(widget ? vx_control_of(widget) : nullptr);
    return control && vx_qt_widget(control) == widget ? control : nullptr;
}

TCustomForm *GetParentForm(TControl *control, bool top_form)
{
    TCustomForm *found = nullptr;
    for (; control; control = control->GetParent())
        if (auto *const form = dynamic_cast<TCustomForm *>(control)) {
            found = form;
            if (!top_form)
                break;
        }
    return found;
}

TWinControl *FindFocusedControl()
{
    QWidget const *const focused = QApplication::focusWidget();
    return dynamic_cast<TWinControl *>(focused ? vx_control_of(focused) : nullptr);
}
