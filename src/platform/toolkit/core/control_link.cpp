#include "platform/toolkit/bridge/detail/control_link.h"

#include "platform/toolkit/bridge/detail/drag_session.h"
#include "platform/toolkit/bridge/qt_events.h"
#include "platform/toolkit/bridge/qt_graphics.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/core/application.h"
#include "platform/toolkit/core/form.h"
#include "platform/toolkit/core/screen.h"
#include "platform/toolkit/core/win_control.h"
#include "platform/toolkit/menus/menu.h"
#include "platform/winapi/key_state.h"

#include <QtCore/QChildEvent>
#include <QtCore/QCoreApplication>
#include <QtCore/QHash>
#include <QtCore/QMimeData>
#include <QtCore/QUrl>
#include <QtGui/QContextMenuEvent>
#include <QtGui/QDropEvent>
#include <QtGui/QFocusEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QInputEvent>
#include <QtGui/QInputMethodEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QAbstractSlider>
#include <QtWidgets/QAbstractSpinBox>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>

#include <utility>

namespace {
/// Which widget is whose. Never destroyed: controls may end after static objects do. A widget that ended
/// before its control leaves its line behind until the control ends too: see `link_of`.
QHash<QObject const *, vx_control_link *> &links()
{
    static auto *const map = new QHash<QObject const *, vx_control_link *>;
    return *map;
}

/// The link of the control whose own widget it is; null if there is none.
vx_control_link *link_of(QObject const *widget)
{
    vx_control_link *const link = links().value(widget);
    return link && link->widget.data() == widget ? link : nullptr;
}

/// What the toolkit looks at besides input; all other events are the widget's own business.
bool is_watched(QEvent const &event)
{
    switch (event.type()) {
    case QEvent::InputMethod:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
    case QEvent::ContextMenu:
    case QEvent::ToolTip:
    case QEvent::FocusIn:
    case QEvent::FocusOut:
    case QEvent::Paint:
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::Enter:
    case QEvent::Leave:
    case QEvent::Close:
    case QEvent::LayoutRequest:
    case QEvent::WindowActivate:
    case QEvent::WindowDeactivate:
        return true;
    default:
        return event.isInputEvent();
    }
}

/// What the handling of one event leaves for the next. Main thread only.
struct input_state
{
    int scopes = 0;
    /// The event that is just being handed to the widgets by ourselves.
    QEvent const *passing = nullptr;
    Qt::KeyboardModifiers modifiers;
    Qt::MouseButtons buttons;
    int depth = 0;
};
constinit input_state g_input;

/// Where the next widget is made, and where one is being made.
constinit vx_native_widget *g_birth_place = nullptr;
constinit QWidget *g_birth_area = nullptr;

/// The last widget that offered its hook.
struct
{
    QWidget const *widget = nullptr;
    vx_event_hook *hook = nullptr;
} constinit g_offer;

TMouseButton button_of(Qt::MouseButton button)
{
    if (button == Qt::RightButton)
        return mbRight;
    return button == Qt::MiddleButton ? mbMiddle : mbLeft;
}

/// Remembers the state of keys and buttons while an event is handled.
class input_scope
{
public:
    explicit input_scope(QInputEvent const &event)
    {
        ++g_input.depth;
        g_input.modifiers = event.modifiers();
        if (event.type() == QEvent::KeyPress || event.type() == QEvent::KeyRelease) {
            int const key = static_cast<QKeyEvent const &>(event).key();
            Qt::KeyboardModifier const own = key == Qt::Key_Shift     ? Qt::ShiftModifier
                                             : key == Qt::Key_Control ? Qt::ControlModifier
                                             : key == Qt::Key_Alt     ? Qt::AltModifier
                                                                      : Qt::NoModifier;
            g_input.modifiers.setFlag(own, own && event.type() == QEvent::KeyPress);
        }
        if (event.isPointerEvent() && event.type() != QEvent::Wheel)
            g_input.buttons = static_cast<QMouseEvent const &>(event).buttons();
    }
    input_scope(input_scope const &) = delete;
    input_scope &operator=(input_scope const &) = delete;
    ~input_scope() { --g_input.depth; }
};

/// Marks an event as handed on by ourselves.
class passing_scope
{
public:
    explicit passing_scope(QEvent const &event) : f_former(std::exchange(g_input.passing, &event)) {}
    passing_scope(passing_scope const &) = delete;
    passing_scope &operator=(passing_scope const &) = delete;
    ~passing_scope() { g_input.passing = f_former; }

private:
    QEvent const *f_former;
};

/// Hands an event to its widget as if nobody watched; gives whether some widget took it.
bool pass_on(QPointer<QWidget> const &target, QEvent &event)
{
    if (!target)
        return true;
    passing_scope const passing(event);
    QCoreApplication::sendEvent(target, &event);
    return event.isAccepted();
}
} // namespace

static bool key_is_down(int key)
{
    Qt::KeyboardModifiers const modifiers =
        g_input.depth > 0 ? g_input.modifiers : QGuiApplication::keyboardModifiers();
    Qt::MouseButtons const buttons = g_input.depth > 0 ? g_input.buttons : QGuiApplication::mouseButtons();
    bool down = false;
    if (key == VK_SHIFT)
        down = modifiers & Qt::ShiftModifier;
    else if (key == VK_CONTROL)
        down = modifiers & Qt::ControlModifier;
    else if (key == VK_MENU)
        down = modifiers & Qt::AltModifier;
    else if (key == VK_LBUTTON)
        down = buttons & Qt::LeftButton;
    return down;
}

vx_event_scope::vx_event_scope()
{
    ++g_input.scopes;
}

vx_event_scope::~vx_event_scope()
{
    --g_input.scopes;
}

bool vx_event_scope::active()
{
    return g_input.scopes > 0;
}

vx_birth_place::vx_birth_place(TWinControl *parent)
    : f_former(std::exchange(g_birth_place, parent ? parent->ClientWidget() : nullptr))
{
}

vx_birth_place::~vx_birth_place()
{
    g_birth_place = f_former;
}

vx_native_widget *vx_birth_place::take()
{
    return std::exchange(g_birth_place, nullptr);
}

vx_birth_scope::vx_birth_scope(QWidget *area) : f_former(std::exchange(g_birth_area, area))
{
}

vx_birth_scope::~vx_birth_scope()
{
    g_birth_area = f_former;
}

QWidget *vx_qt_widget(TControl const *control)
{
    return control && control->Link() ? control->Link()->widget.data() : nullptr;
}

TControl *vx_control_of(QWidget const *widget)
{
    for (; widget; widget = widget->parentWidget())
        if (vx_control_link const *const link = link_of(widget))
            return link->control;
    return nullptr;
}

void vx_offer_hook(QWidget *widget, vx_event_hook *hook)
{
    g_offer = {widget, hook};
}

bool vx_hooked_event(vx_control_link &link, QWidget *widget, QEvent *event)
{
    return link.eventFilter(widget, event);
}

vx_control_link::vx_control_link(TControl *owner, QWidget *w) : control(owner), widget(w), f_key(w)
{
    if (g_offer.widget == w) {
        f_hook = g_offer.hook;
        f_hook->link = this;
        g_offer = {};
    }
    [[maybe_unused]] static bool const told = (vx_set_key_state_source(&key_is_down), true);
    links().insert(w, this);
    watch(w);
}

vx_control_link::~vx_control_link()
{
    vx_control_guard::expire(*this);
    if (f_hook && widget)
        f_hook->link = nullptr;
    if (links().value(f_key) == this)
        links().remove(f_key);
}

void vx_control_link::watch(QObject *object)
{
    if (object->isWidgetType()) {
        auto *const target = static_cast<QWidget *>(object);
        // The wheel scrolls; the focus, and with it what the keys change, stays where it is.
        if (target->focusPolicy() == Qt::WheelFocus)
            target->setFocusPolicy(Qt::StrongFocus);
    }
    if (!f_hook || object != widget)
        object->installEventFilter(this);
    for (QObject *const child : object->children())
        if (child->isWidgetType() && !link_of(child))
            watch(child);
}

/// Controls hear of the mouse while no button is down too.
void vx_control_link::track_mouse(QWidget *of)
{
    of->setMouseTracking(true);
    for (QObject *const child : of->children())
        if (child->isWidgetType() && !link_of(child))
            track_mouse(static_cast<QWidget *>(child));
}

bool vx_control_link::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::ChildAdded) {
        QObject *const child = static_cast<QChildEvent *>(event)->child();
        // The child may be half made: nothing but the filter is put on it. A control's own gets its link.
        if (child->isWidgetType() && object != g_birth_area && !link_of(child))
            child->installEventFilter(this);
        return false;
    }
    if (!is_watched(*event) || !object->isWidgetType() || !widget || control->IsDestroying())
        return false;
    auto *const target = static_cast<QWidget *>(object);
    if (target != widget && (vx_control_of(target) != control || target->window() != widget->window()))
        return false;
    bool taken = true;
    if (!vx_guarded([&] { taken = filter(target, event); }) && event->type() == QEvent::Close)
        event->ignore();
    return taken;
}

bool vx_control_link::filter(QWidget *target, QEvent *event)
{
    // Input over a disabled control is its parent's.
    bool const input = event->isInputEvent() || event->type() == QEvent::InputMethod;
    if (input && !target->isEnabled())
        return false;
    // What lies in a control that draws itself is a widget in its own right: a menu bar, a scroll bar, a
    // host's widget.
    if (input && target != widget && control->ControlStyle.Contains(csOwnPaint))
        return false;
    switch (event->type()) {
    case QEvent::KeyPress:
        return key_press(target, *static_cast<QKeyEvent *>(event));
    case QEvent::KeyRelease:
        return key_release(*static_cast<QKeyEvent *>(event));
    case QEvent::InputMethod:
        return input_method(target, *static_cast<QInputMethodEvent *>(event));
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
        return mouse_button(target, *static_cast<QMouseEvent *>(event));
    case QEvent::MouseMove:
        return mouse_move(target, *static_cast<QMouseEvent *>(event));
    case QEvent::Wheel:
        return wheel(*static_cast<QWheelEvent *>(event));
    case QEvent::ContextMenu:
        return context_menu(target, *static_cast<QContextMenuEvent *>(event));
    case QEvent::ToolTip:
        return !control->GetShowHint() || !Application->GetShowHint();
    case QEvent::FocusIn:
        focus_in();
        return false;
    case QEvent::FocusOut:
        focus_out(*static_cast<QFocusEvent *>(event));
        return false;
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        return drop_event(*static_cast<QDropEvent *>(event));
    default:
        return target == widget && filter_own(event);
    }
}

/// Files of the desktop over a control that takes them, or over one that stands in it: an edit would take
/// their names for text.
bool vx_control_link::drop_event(QDropEvent &event)
{
    TWinControl *target = vx_windowed(control);
    while (target && !target->GetAcceptFiles())
        target = target->GetParent();
    if (!target || target->IsDestroying())
        return false;
    std::vector<std::wstring> names;
    for (QUrl const &url : event.mimeData()->urls())
        if (url.isLocalFile())
            names.push_back(url.toLocalFile().toStdWString());
    if (names.empty() && target != control)
        return false;
    event.setDropAction(Qt::CopyAction);
    event.setAccepted(!names.empty());
    if (!names.empty() && event.type() == QEvent::Drop) {
        vx_event_scope const scope;
        target->DropFiles(names);
    }
    return true;
}

bool vx_control_link::filter_own(QEvent *event)
{
    switch (event->type()) {
    case QEvent::Paint:
        if (control->ControlStyle.Contains(csOwnPaint)) {
            QPainter painter(widget);
            // So that a control can tell what need not be drawn.
            painter.setClipRegion(static_cast<QPaintEvent *>(event)->region());
            control->PaintWidget(vx_native(&painter));
            return true;
        }
        return false;
    case QEvent::Resize:
        control->bounds_moved();
        return false;
    case QEvent::Show:
        if (!std::exchange(f_tracks_mouse, true))
            track_mouse(widget);
        control->apply_name();
        return window_event(event);
    case QEvent::Enter: {
        vx_event_scope const scope;
        control->MouseEnter();
        return false;
    }
    case QEvent::Leave: {
        vx_event_scope const scope;
        control->MouseLeave();
        return false;
    }
    default:
        return window_event(event);
    }
}

TPoint vx_control_link::to_client(QWidget *target, QPointF const &position) const
{
    QWidget *area = widget;
    if (auto const *windowed = vx_windowed(control))
        area = vx_qt_widget(windowed->ClientWidget());
    QPoint const point = position.toPoint();
    return vx_point(target == area || !area ? point : area->mapFromGlobal(target->mapToGlobal(point)));
}

// ---- mouse

static bool focus_refused(QWidget const &target, TControl const *control)
{
    if ((target.focusPolicy() & Qt::ClickFocus) == 0)
        return false;
    QWidget const *const focused = target.window()->focusWidget();
    return focused && vx_control_of(focused) != control;
}

bool vx_control_link::mouse_button(QWidget *target, QMouseEvent &event)
{
    if (g_input.passing == &event)
        return false;
    vx_event_scope const scope;
    input_scope const state(event);
    if (vx_drag_session::button(event))
        return true;

    // The press has brought the focus here. If a handler sent it back, as an edit does that refuses its text,
    // the press is void too: its release may have gone to a message meanwhile.
    if (event.type() == QEvent::MouseButtonPress && event.spontaneous() && focus_refused(*target, control)) {
        event.accept();
        return true;
    }

    // The widget first, so that a handler sees the selection that the click makes.
    QPointer<vx_control_link> const alive(this);
    QPointer<QWidget> const kept(target);
    TPoint const at = to_client(target, event.position());
    bool const native = !control->ControlStyle.Contains(csOwnPaint);
    if (native)
        pass_on(kept, event);
    event.accept();
    if (!alive || control->IsDestroying())
        return true;

    TMouseButton const button = button_of(event.button());
    TShiftState shift = vx_shift_state(event.modifiers(), event.buttons());
    bool const left = button == mbLeft;
    if (event.type() == QEvent::MouseButtonRelease) {
        bool const click = left && f_pressed_here && control->GetClientRect().Contains(at);
        if (left)
            f_pressed_here = false;
        if (click && control->ControlStyle.Contains(csClickEvents))
            control->Click();
        if (alive && !control->IsDestroying())
            control->MouseUp(button, shift, at.X, at.Y);
        return true;
    }
    if (event.type() == QEvent::MouseButtonDblClick) {
        shift <<= ssDouble;
        if (left && control->ControlStyle.Contains(csDoubleClicks))
            control->DblClick();
    } else if (left) {
        f_pressed_here = true;
    }
    if (!alive || control->IsDestroying())
        return true;
    control->MouseDown(button, shift, at.X, at.Y);
    if (alive && left && !control->IsDestroying() && control->GetDragMode() == dmAutomatic &&
        event.type() == QEvent::MouseButtonPress && !control->Dragging())
        vx_drag_session::prepare(control, event.globalPosition().toPoint());
    return true;
}

bool vx_control_link::mouse_move(QWidget *target, QMouseEvent &event)
{
    if (g_input.passing == &event)
        return false;
    vx_event_scope const scope;
    input_scope const state(event);
    if (vx_drag_session::move(event))
        return true;
    QPointer<vx_control_link> const alive(this);
    QPointer<QWidget> const kept(target);
    TPoint const at = to_client(target, event.position());
    control->MouseMove(vx_shift_state(event.modifiers(), event.buttons()), at.X, at.Y);
    if (!alive || !kept || control->IsDestroying() || control->ControlStyle.Contains(csOwnPaint)) {
        event.accept();
        return true;
    }
    return false;
}

/// Whether the wheel changes what the widget stands for, rather than scrolls it.
static bool turns_value(QWidget const *widget)
{
    return qobject_cast<QComboBox const *>(widget) || qobject_cast<QAbstractSpinBox const *>(widget) ||
           qobject_cast<QAbstractSlider const *>(widget);
}

bool vx_control_link::wheel(QWheelEvent &event)
{
    if (g_input.passing == &event || event.angleDelta().y() == 0)
        return false;
    vx_event_scope const scope;
    input_scope const state(event);
    bool const handled =
        control->DoMouseWheel(vx_shift_state(event.modifiers(), event.buttons()), event.angleDelta().y(),
                              vx_point(event.globalPosition().toPoint()));
    if (handled) {
        event.accept();
        return true;
    }
    // A value that has not the focus is not what is meant: what lies below scrolls.
    if (turns_value(widget) && !(widget->hasFocus() || widget->isAncestorOf(QApplication::focusWidget()))) {
        event.ignore();
        return true;
    }
    return false;
}

bool vx_control_link::context_menu(QWidget *target, QContextMenuEvent &event)
{
    vx_event_scope const scope;
    input_scope const state(event);
    TPoint const at = to_client(target, event.pos());
    QPointer<vx_control_link> const alive(this);
    for (TControl *asked = control; asked; asked = asked->GetParent()) {
        QPoint const screen = target->mapToGlobal(event.pos());
        bool handled = false;
        asked->DoContextPopup(asked == control ? at : asked->ScreenToClient(vx_point(screen)), handled);
        if (handled || !alive || control->IsDestroying()) {
            event.accept();
            return true;
        }
        TPopupMenu *const menu = asked->GetPopupMenu();
        if (menu && menu->GetAutoPopup()) {
            menu->SetPopupComponent(asked);
            event.accept();
            menu->Popup(screen.x(), screen.y());
            return true;
        }
    }
    return false;
}

// ---- keyboard

bool vx_control_link::key_press(QWidget *target, QKeyEvent &event)
{
    auto *const focused = vx_windowed(control);
    if (g_input.passing == &event || !focused)
        return false;
    vx_event_scope const scope;
    input_scope const state(event);
    event.accept();
    QPointer<vx_control_link> const alive(this);
    QPointer<QWidget> const kept(target);
    Word code = vx_key_code(event);
    TShiftState const shift = vx_shift_state(event.modifiers());
    TCustomForm *const form = GetParentForm(focused);

    if (code != 0) {
        if (form && form->IsShortCut(code, shift))
            return true;
        Word const asked = code;
        if (!alive || focused->offer_key_down(code, shift) || !alive)
            return true;
        bool const tab = code == VK_TAB && !shift.Contains(ssCtrl) && !shift.Contains(ssAlt);
        if (tab && !focused->WantsKey(code, shift)) {
            TWinControl *const scope_of_tabs = form ? form : focused->root();
            scope_of_tabs->SelectNext(focused, !shift.Contains(ssShift), true);
            return true;
        }
        if (code != asked) {
            QKeyEvent changed(event.type(), vx_qt_key(code), event.modifiers());
            pass_on(kept, changed);
            return true;
        }
    }

    // Delete has a text in Qt that is no character.
    std::wstring characters = code == VK_DELETE ? std::wstring() : event.text().toStdWString();
    bool changed = false;
    for (wchar_t &character : characters) {
        wchar_t const before = character;
        if (focused->offer_key_press(character) || !alive)
            return true;
        changed = changed || character != before;
    }
    QString const text = changed ? QString::fromStdWString(characters) : event.text();
    int const key = changed ? text.at(0).toUpper().unicode() : event.key();
    QKeyEvent passed(event.type(), key, event.modifiers(), event.nativeScanCode(), event.nativeVirtualKey(),
                     event.nativeModifiers(), text, event.isAutoRepeat(),
                     static_cast<quint16>(event.count()));
    if (pass_on(kept, passed) || !alive || code == 0)
        return true;
    if (!focused->WantsKey(code, shift))
        (form ? static_cast<TWinControl *>(form) : focused->root())->DialogKey(code, shift);
    return true;
}

bool vx_control_link::key_release(QKeyEvent &event)
{
    auto *const focused = vx_windowed(control);
    // A release that its widget left alone comes by again at each parent.
    if (!focused || (QApplication::focusWidget() && vx_control_of(QApplication::focusWidget()) != control))
        return false;
    vx_event_scope const scope;
    input_scope const state(event);
    Word code = vx_key_code(event);
    return code != 0 && focused->offer_key_up(code, vx_shift_state(event.modifiers()));
}

bool vx_control_link::input_method(QWidget *target, QInputMethodEvent &event)
{
    auto *const focused = vx_windowed(control);
    if (g_input.passing == &event || !focused || event.commitString().isEmpty())
        return false;
    vx_event_scope const scope;
    QPointer<vx_control_link> const alive(this);
    QPointer<QWidget> const kept(target);
    std::wstring taken;
    for (wchar_t character : event.commitString().toStdWString()) {
        bool const swallowed = focused->offer_key_press(character);
        if (!alive)
            return true;
        if (!swallowed)
            taken.push_back(character);
    }
    QInputMethodEvent passed(event.preeditString(), event.attributes());
    passed.setCommitString(QString::fromStdWString(taken), event.replacementStart(),
                           event.replacementLength());
    pass_on(kept, passed);
    event.accept();
    return true;
}

void vx_control_link::focus_in()
{
    auto *const focused = vx_windowed(control);
    if (!focused || focused->root() == focused)
        return;
    focused->root()->focus_came(focused);
    Screen->OnActiveControlChange(Screen);
}

void vx_control_link::focus_out(QFocusEvent &event)
{
    auto *const focused = vx_windowed(control);
    if (!focused || event.reason() == Qt::ActiveWindowFocusReason || event.reason() == Qt::PopupFocusReason ||
        event.reason() == Qt::MenuBarFocusReason)
        return;
    // Within the window of a host the focus may go to a widget that is not the toolkit's.
    TWinControl *const root = focused->root();
    QWidget const *const next = QApplication::focusWidget();
    if (root->f_hosted && next && !vx_qt_widget(root)->isAncestorOf(next))
        root->focus_came(nullptr);
}

// ---- windows and hosts

bool vx_control_link::window_event(QEvent *event)
{
    if (control->GetParent())
        return false;
    auto *const form = dynamic_cast<TCustomForm *>(control);
    switch (event->type()) {
    case QEvent::Close:
        if (!form)
            return false;
        {
            vx_event_scope const scope;
            QPointer<vx_control_link> const alive(this);
            form->Close();
            event->setAccepted(!alive || !form->GetVisible());
        }
        return true;
    case QEvent::Show:
        if (auto *const top = vx_windowed(control); top && top->f_hosted)
            top->update_showing();
        return false;
    case QEvent::LayoutRequest:
        if (form)
            form->layout_frame();
        return false;
    case QEvent::WindowActivate:
        if (form)
            form->window_activated();
        return false;
    case QEvent::WindowDeactivate:
        if (form)
            form->window_deactivated();
        return false;
    default:
        return false;
    }
}
