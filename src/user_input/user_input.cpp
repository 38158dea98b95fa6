#include "user_input/user_input.h"

#include "user_input/hand_priv.h"

#include "platform/toolkit/bridge/qt_events.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/controls/page_control.h"
#include "platform/toolkit/core/form.h"
#include "platform/toolkit/grids/custom_grid.h"
#include "platform/winapi/file.h"

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QBuffer>
#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QPointer>
#include <QtCore/QThread>
#include <QtGui/QGuiApplication>
#include <QtGui/QStyleHints>
#include <QtGui/QWheelEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QStyle>
#include <QtWidgets/QTabBar>

#include <algorithm>
#include <cstdlib>

// The doors through which Qt's own test library sends input; the events then go the whole way of those of the
// window system: modal windows, popups, double clicks, shortcuts, focus.
Q_GUI_EXPORT void qt_handleMouseEvent(QWindow *window, QPointF const &local, QPointF const &global,
                                      Qt::MouseButtons state, Qt::MouseButton button, QEvent::Type type,
                                      Qt::KeyboardModifiers mods, int timestamp);
Q_GUI_EXPORT void qt_handleKeyEvent(QWindow *window, QEvent::Type type, int key, Qt::KeyboardModifiers mods,
                                    QString const &text, bool repeat, unsigned short count);

/// The friend by which Qt lets its test library say that an event comes from the window system: only such
/// wheel events go on to the parents of what does not take them.
class QSpontaneKeyEvent
{
public:
    static void set_spontaneous(QEvent &event) { event.setSpontaneous(); }
};

namespace vx::user_input {
namespace {
constexpr int c_drag_steps = 8;
constexpr int c_activation_patience = 1000; ///< milliseconds that the window system gets to activate a window
constexpr int c_idle_rounds = 200;          ///< an endless chain of events ends the waiting too
constexpr int c_tab_limit = 500;

/// The mouse as the window system would know it.
struct mouse_state
{
    Qt::MouseButtons buttons;
    int timestamp = 1;
};

mouse_state &mouse()
{
    static mouse_state state;
    return state;
}

Qt::MouseButton qt_button(TMouseButton button)
{
    return button == mbRight ? Qt::RightButton : button == mbMiddle ? Qt::MiddleButton : Qt::LeftButton;
}

Qt::KeyboardModifiers qt_modifiers(TShiftState shift)
{
    Qt::KeyboardModifiers modifiers;
    modifiers.setFlag(Qt::ShiftModifier, shift.Contains(ssShift));
    modifiers.setFlag(Qt::ControlModifier, shift.Contains(ssCtrl));
    modifiers.setFlag(Qt::AltModifier, shift.Contains(ssAlt));
    return modifiers;
}

/// Holds the modifier keys down while it lives.
class held_keys
{
public:
    held_keys(QWindow *window, Qt::KeyboardModifiers modifiers) : f_window(window), f_modifiers(modifiers)
    {
        Qt::KeyboardModifiers down;
        for (auto const &[modifier, key] : c_keys) {
            if (!modifiers.testFlag(modifier))
                continue;
            down |= modifier;
            qt_handleKeyEvent(window, QEvent::KeyPress, key, down, {}, false, 1);
        }
    }
    held_keys(held_keys const &) = delete;
    held_keys &operator=(held_keys const &) = delete;
    ~held_keys()
    {
        Qt::KeyboardModifiers down = f_modifiers;
        for (auto const &[modifier, key] : c_keys) {
            if (!f_modifiers.testFlag(modifier))
                continue;
            down &= ~modifier;
            // The window may have closed meanwhile; the key is let go all the same.
            if (QWindow *window = f_window ? f_window.data() : QGuiApplication::focusWindow())
                qt_handleKeyEvent(window, QEvent::KeyRelease, key, down, {}, false, 1);
        }
    }

private:
    struct entry
    {
        Qt::KeyboardModifier modifier;
        int key;
    };
    static constexpr entry c_keys[] = {{Qt::ControlModifier, Qt::Key_Control},
                                       {Qt::ShiftModifier, Qt::Key_Shift},
                                       {Qt::AltModifier, Qt::Key_Alt}};

    QPointer<QWindow> f_window;
    Qt::KeyboardModifiers f_modifiers;
};

bool blocked(QWidget const *window)
{
    if (QWidget const *popup = QApplication::activePopupWidget())
        return popup != window;
    QWidget const *modal = QApplication::activeModalWidget();
    if (!modal || modal == window)
        return false;
    auto const above = [](QWidget const *upper, QWidget const *lower) {
        for (QWidget const *w = lower; w; w = w->parentWidget()) {
            if (w == upper)
                return true;
        }
        return false;
    };
    if (above(modal, window))
        return false; // a window of the modal window
    return modal->windowModality() == Qt::ApplicationModal || above(window, modal);
}

void activate(QWidget *window)
{
    if (window->isActiveWindow() || (window->windowFlags() & Qt::WindowType_Mask) == Qt::Popup ||
        window->testAttribute(Qt::WA_ShowWithoutActivating))
        return;
    window->raise();
    window->activateWindow();
    QDeadlineTimer const patience(c_activation_patience);
    while (!window->isActiveWindow() && !patience.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
}

struct mouse_target
{
    QPointer<QWindow> window;
    QPointF local;
    QPointF global;

    explicit operator bool() const { return !window.isNull(); }
    void send(QEvent::Type type, Qt::MouseButton button, Qt::KeyboardModifiers modifiers) const
    {
        if (window)
            qt_handleMouseEvent(window, local, global, mouse().buttons, button, type, modifiers,
                                ++mouse().timestamp);
    }
};

mouse_target target_at(QWidget *widget, QPoint const &global)
{
    QWidget *top = widget->window();
    return {top->windowHandle(), top->mapFromGlobal(QPointF(global)), QPointF(global)};
}

/// Whether the pointer meets the widget, or something in it, at that point of the screen.
bool in_reach(QWidget *widget, QPoint const &global)
{
    if (!widget || !widget->isVisible() || !widget->window()->windowHandle() || blocked(widget->window()))
        return false;
    QWidget *top = widget->window();
    QPoint const at = top->mapFromGlobal(global);
    if (!top->rect().contains(at))
        return false;
    QWidget *hit = top->childAt(at);
    if (!hit)
        hit = top;
    return hit == widget || widget->isAncestorOf(hit);
}

void mouse_press(mouse_target const &at, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    mouse().buttons |= button;
    at.send(QEvent::MouseButtonPress, button, modifiers);
}

void mouse_release(mouse_target const &at, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    mouse().buttons &= ~Qt::MouseButtons(button);
    at.send(QEvent::MouseButtonRelease, button, modifiers);
}

void mouse_move(mouse_target const &at, Qt::KeyboardModifiers modifiers)
{
    at.send(QEvent::MouseMove, Qt::NoButton, modifiers);
}

/// The next press is not the second half of a double click.
void let_time_pass()
{
    mouse().timestamp += 2 * QGuiApplication::styleHints()->mouseDoubleClickInterval();
}

bool click_times(QWidget *widget, QPoint const &global, TMouseButton button, TShiftState shift, int times)
{
    if (!in_reach(widget, global))
        return false;
    bool const enabled = widget->isEnabled();
    activate(widget->window());
    if (!in_reach(widget, global))
        return false; // what activation changed covers the place now
    mouse_target const at = target_at(widget, global);
    Qt::KeyboardModifiers const modifiers = qt_modifiers(shift);
    held_keys const keys(at.window, modifiers);
    let_time_pass();
    mouse_move(at, modifiers);
    for (int i = 0; i < times; ++i) {
        mouse_press(at, qt_button(button), modifiers);
        mouse_release(at, qt_button(button), modifiers);
    }
    wait_idle();
    return enabled;
}

QPoint screen_point(TControl *control, int x, int y)
{
    return vx_qt_point(control->ClientToScreen({x, y}));
}

TPoint middle(TControl *control)
{
    return control->GetClientRect().CenterPoint();
}

template <class Widget>
Widget *inner_widget(TControl *control)
{
    QWidget *widget = vx_qt_widget(control);
    if (auto *self = qobject_cast<Widget *>(widget))
        return self;
    return widget ? widget->findChild<Widget *>() : nullptr;
}

/// The window that gets the keys.
QWindow *key_window()
{
    if (QWidget *popup = QApplication::activePopupWidget())
        return popup->windowHandle();
    if (QWidget *modal = QApplication::activeModalWidget()) {
        if (!QApplication::activeWindow() || blocked(QApplication::activeWindow()))
            activate(modal);
    }
    return QGuiApplication::focusWindow();
}

/// What a keyboard says in a key event besides the key.
QString key_text(int key, Qt::KeyboardModifiers modifiers)
{
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return QStringLiteral("\r");
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return QStringLiteral("\t");
    case Qt::Key_Backspace:
        return QStringLiteral("\b");
    case Qt::Key_Escape:
        return QStringLiteral("\x1b");
    case Qt::Key_Delete:
        return QStringLiteral("\x7f");
    default:
        break;
    }
    if (key < Qt::Key_Space || key > Qt::Key_AsciiTilde)
        return {};
    bool const letter = key >= Qt::Key_A && key <= Qt::Key_Z;
    if (modifiers.testFlag(Qt::ControlModifier))
        return letter ? QString(QChar(key - Qt::Key_A + 1)) : QString();
    QChar const c(key);
    return letter && !modifiers.testFlag(Qt::ShiftModifier) ? QString(c.toLower()) : QString(c);
}

bool send_key(int key, Qt::KeyboardModifiers modifiers, QString const &text)
{
    QPointer<QWindow> const window = key_window();
    if (!window)
        return false;
    {
        held_keys const keys(window, modifiers);
        qt_handleKeyEvent(window, QEvent::KeyPress, key, modifiers, text, false, 1);
        QWindow *now = window ? window.data() : QGuiApplication::focusWindow();
        if (now)
            qt_handleKeyEvent(now, QEvent::KeyRelease, key, modifiers, text, false, 1);
    }
    wait_idle();
    return true;
}

bool send_char(char32_t c)
{
    if (c == U'\n' || c == U'\r')
        return send_key(Qt::Key_Return, {}, key_text(Qt::Key_Return, {}));
    if (c == U'\t')
        return send_key(Qt::Key_Tab, {}, key_text(Qt::Key_Tab, {}));
    QString const text = QString::fromUcs4(&c, 1);
    bool const upper = text.size() == 1 && text[0].isLetter() && text[0].isUpper();
    int const key = text.size() == 1 ? text.toUpper()[0].unicode() : 0;
    return send_key(key, upper ? Qt::ShiftModifier : Qt::NoModifier, text);
}
} // namespace

bool detail::tap(int native_key)
{
    return send_key(native_key, {}, key_text(native_key, {}));
}

bool detail::click_widget(vx_native_widget *widget, TPoint const &at)
{
    QWidget *const target = vx_qt_widget(widget);
    return target && click_times(target, target->mapToGlobal(vx_qt_point(at)), mbLeft, {}, 1);
}

UnicodeString detail::plain_caption(UnicodeString const &text)
{
    std::wstring plain;
    for (std::size_t i = 0; i < text.str().size() && text.str()[i] != L'\t'; ++i) {
        if (text.str()[i] == L'&' && i + 1 < text.str().size())
            ++i; // the mark before the accelerator, or the first of two
        plain += text.str()[i];
    }
    return plain;
}

// ---- mouse

bool click(TControl *control, TMouseButton button, TShiftState shift)
{
    TPoint const at = middle(control);
    return click(control, at.X, at.Y, button, shift);
}

bool click(TControl *control, int x, int y, TMouseButton button, TShiftState shift)
{
    return click_times(vx_qt_widget(control), screen_point(control, x, y), button, shift, 1);
}

bool double_click(TControl *control)
{
    TPoint const at = middle(control);
    return double_click(control, at.X, at.Y);
}

bool double_click(TControl *control, int x, int y, TShiftState shift)
{
    return click_times(vx_qt_widget(control), screen_point(control, x, y), mbLeft, shift, 2);
}

bool mouse_down(TControl *control, int x, int y, TMouseButton button, TShiftState shift)
{
    QWidget *widget = vx_qt_widget(control);
    QPoint const global = screen_point(control, x, y);
    if (!in_reach(widget, global))
        return false;
    bool const enabled = widget->isEnabled();
    activate(widget->window());
    mouse_target const at = target_at(widget, global);
    let_time_pass();
    mouse_move(at, qt_modifiers(shift));
    mouse_press(at, qt_button(button), qt_modifiers(shift));
    wait_idle();
    return enabled;
}

bool mouse_up(TControl *control, int x, int y, TMouseButton button, TShiftState shift)
{
    QWidget *widget = vx_qt_widget(control);
    if (!widget || !mouse().buttons.testFlag(qt_button(button)))
        return false;
    mouse_target const at = target_at(widget, screen_point(control, x, y));
    bool const reached = bool(at); // the window may go in the release
    mouse_release(at, qt_button(button), qt_modifiers(shift));
    wait_idle();
    return reached;
}

bool move(TControl *control, int x, int y, TShiftState shift)
{
    QWidget *widget = vx_qt_widget(control);
    QPoint const global = screen_point(control, x, y);
    bool const held = mouse().buttons != Qt::NoButton;
    if (!widget || (!held && !in_reach(widget, global)))
        return false;
    mouse_move(target_at(widget, global), qt_modifiers(shift));
    wait_idle();
    return true;
}

bool drag(TControl *from, int x1, int y1, TControl *to, int x2, int y2, TMouseButton button,
          TShiftState shift)
{
    QPoint const start = screen_point(from, x1, y1);
    QPoint const end = screen_point(to, x2, y2);
    // What happens on the way may end the control, and its window.
    QPointer<QWidget> const widget(vx_qt_widget(from));
    QPointer<QWidget> const window(widget ? widget->window() : nullptr);
    if (!mouse_down(from, x1, y1, button, shift))
        return false;
    Qt::KeyboardModifiers const modifiers = qt_modifiers(shift);
    for (int i = 1; i <= c_drag_steps && widget; ++i) {
        mouse_move(target_at(widget, start + (end - start) * i / c_drag_steps), modifiers);
        wait_idle();
    }
    QWidget *const last = widget ? widget.data() : window.data();
    mouse_target const at = last ? target_at(last, end) : mouse_target();
    bool const reached = bool(at); // the window may go in the release
    mouse_release(at, qt_button(button), modifiers);
    wait_idle();
    return reached;
}

bool drag(TControl *control, int x1, int y1, int x2, int y2)
{
    return drag(control, x1, y1, control, x2, y2);
}

bool wheel(TControl *control, int notches, TShiftState shift)
{
    TPoint const at = middle(control);
    QPoint const global = screen_point(control, at.X, at.Y);
    QWidget *widget = vx_qt_widget(control);
    if (!in_reach(widget, global))
        return false;
    bool const enabled = widget->isEnabled();
    mouse_target const target = target_at(widget, global);
    Qt::KeyboardModifiers const modifiers = qt_modifiers(shift);
    held_keys const keys(target.window, modifiers);
    for (int i = 0; i < std::abs(notches) && target; ++i) {
        QWheelEvent event(target.local, target.global, {}, {0, notches > 0 ? 120 : -120}, mouse().buttons,
                          modifiers, Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::set_spontaneous(event);
        qApp->notify(target.window, &event);
        wait_idle();
    }
    return enabled;
}

// ---- keyboard

bool type(UnicodeString const &text)
{
    for (wchar_t const c : text.str()) {
        if (!send_char(static_cast<char32_t>(c)))
            return false;
    }
    return true;
}

bool press(int key, TShiftState shift)
{
    int qt_key = vx_qt_key(static_cast<Word>(key));
    if (qt_key == Qt::Key_Tab && shift.Contains(ssShift))
        qt_key = Qt::Key_Backtab;
    Qt::KeyboardModifiers const modifiers = qt_modifiers(shift);
    return send_key(qt_key, modifiers, key_text(qt_key, modifiers));
}

bool press_times(int key, int times, TShiftState shift)
{
    for (int i = 0; i < times; ++i) {
        if (!press(key, shift))
            return false;
    }
    return true;
}

bool enter_text(TWinControl *edit, UnicodeString const &text)
{
    if (!click(edit) || !press('A', {ssCtrl}))
        return false;
    return text.IsEmpty() ? press(VK_DELETE) : type(text);
}

bool tab_to(TWinControl *control)
{
    for (int i = 0; i < c_tab_limit && !control->Focused(); ++i) {
        if (!press(VK_TAB))
            return false;
    }
    return control->Focused();
}

// ---- compound controls

namespace {
bool click_shown_tab(QTabBar *bar, int index)
{
    return bar && index >= 0 && index < bar->count() && bar->isTabVisible(index) &&
           bar->isTabEnabled(index) &&
           detail::click_widget(vx_native(bar), vx_point(bar->tabRect(index).center()));
}

bool choose_line(QComboBox *box, UnicodeString const *text, int place)
{
    if (!box || !box->isVisible() || !box->isEnabled() || blocked(box->window()))
        return false;
    activate(box->window());
    box->setFocus(Qt::TabFocusReason);
    wait_idle();
    // Not by the mouse: the box takes no release shortly after the press that opened it.
    detail::tap(Qt::Key_F4);
    QAbstractItemView *view = box->view();
    if (!view || !view->isVisible())
        return false;
    // The list may have been filled just now, so the line is looked for in the open list.
    int const row = text ? box->findText(vx_qt_string(*text), Qt::MatchExactly) : place;
    int const limit = box->count() + 1;
    for (int i = 0; i < limit && row >= 0 && row < box->count() && view->currentIndex().row() != row; ++i)
        detail::tap(view->currentIndex().row() < row ? Qt::Key_Down : Qt::Key_Up);
    bool const found = row >= 0 && view->currentIndex().row() == row;
    detail::tap(found ? Qt::Key_Return : Qt::Key_Escape);
    return found;
}

/// The rectangle of a line in its list, scrolled into sight; empty if there is none.
QRect line_rect(QAbstractItemView *view, int place)
{
    if (!view || !view->model())
        return {};
    QModelIndex const index = view->model()->index(place, 0);
    if (!index.isValid())
        return {};
    view->scrollTo(index);
    wait_idle();
    return view->visualRect(index).intersected(view->viewport()->rect());
}
} // namespace

bool click_tab(TPageControl *pages, UnicodeString const &caption)
{
    auto *bar = inner_widget<QTabBar>(pages);
    for (int i = 0; bar && i < bar->count(); ++i) {
        if (bar->isTabVisible(i) && detail::plain_caption(vx_unicode_string(bar->tabText(i))) == caption)
            return click_shown_tab(bar, i);
    }
    return false;
}

bool click_tab(TPageControl *pages, int place)
{
    auto *bar = inner_widget<QTabBar>(pages);
    for (int i = 0; bar && i < bar->count(); ++i) {
        if (bar->isTabVisible(i) && place-- == 0)
            return click_shown_tab(bar, i);
    }
    return false;
}

TPoint cell_point(TCustomGrid *grid, int col, int row)
{
    TRect rect = grid->CellRect(col, row);
    TRect const client = grid->GetClientRect();
    rect.Right = std::min(rect.Right, client.Right);
    rect.Bottom = std::min(rect.Bottom, client.Bottom);
    return rect.IsEmpty() ? Point(-1, -1) : rect.CenterPoint();
}

bool click_cell(TCustomGrid *grid, int col, int row, TMouseButton button, TShiftState shift)
{
    TPoint const at = cell_point(grid, col, row);
    return at.X >= 0 && click(grid, at.X, at.Y, button, shift);
}

bool double_click_cell(TCustomGrid *grid, int col, int row)
{
    TPoint const at = cell_point(grid, col, row);
    return at.X >= 0 && double_click(grid, at.X, at.Y);
}

bool drag_cell(TCustomGrid *grid, int from_col, int from_row, int to_col, int to_row)
{
    TPoint const from = cell_point(grid, from_col, from_row);
    TPoint const to = cell_point(grid, to_col, to_row);
    return from.X >= 0 && to.X >= 0 && drag(grid, from.X, from.Y, to.X, to.Y);
}

bool choose_item(TWinControl *combo, UnicodeString const &text)
{
    return choose_line(inner_widget<QComboBox>(combo), &text, -1);
}

bool choose_item(TWinControl *combo, int place)
{
    return choose_line(inner_widget<QComboBox>(combo), nullptr, place);
}

bool click_item(TWinControl *list, int place, TShiftState shift)
{
    auto *view = inner_widget<QAbstractItemView>(list);
    QRect const rect = line_rect(view, place);
    if (rect.isEmpty())
        return false;
    QWidget *viewport = view->viewport();
    return click_times(viewport, viewport->mapToGlobal(rect.center()), mbLeft, shift, 1);
}

bool click_item_check(TWinControl *list, int place)
{
    auto *view = inner_widget<QAbstractItemView>(list);
    QRect const rect = line_rect(view, place);
    if (rect.isEmpty())
        return false;
    // The mark is square and stands at the start of the line.
    int const indent = view->style()->pixelMetric(QStyle::PM_IndicatorWidth) / 2 + 3;
    return detail::click_widget(vx_native(view->viewport()), {rect.left() + indent, rect.center().y()});
}

// ---- windows

bool close(TCustomForm *form)
{
    QPointer<QWidget> const widget = vx_qt_widget(form);
    if (!widget || !widget->isVisible() || blocked(widget->window()))
        return false;
    if (widget->isWindow() && widget->windowHandle())
        widget->windowHandle()->close();
    else
        widget->close();
    wait_idle();
    return !widget || !widget->isVisible();
}

void wait_idle()
{
    vx_qt_ensure_application();
    QAbstractEventDispatcher *dispatcher = QAbstractEventDispatcher::instance();
    for (int i = 0; i < c_idle_rounds; ++i) {
        bool const busy = dispatcher && dispatcher->processEvents(QEventLoop::AllEvents);
        if (!vx_event_scope::active())
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (!busy)
            return;
    }
}

bool wait_until(closure<bool()> done, int milliseconds)
{
    QDeadlineTimer const limit(milliseconds);
    for (;;) {
        wait_idle();
        if (done())
            return true;
        if (limit.hasExpired())
            return false;
        QThread::msleep(2);
    }
}

bool save_shot(TControl *control, UnicodeString const &path)
{
    QWidget *widget = vx_qt_widget(control);
    if (!widget)
        return false;
    wait_idle();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    vx::fault fault;
    return buffer.open(QIODevice::WriteOnly) && widget->grab().save(&buffer, "PNG") &&
           vx_save_atomic(path, {bytes.constData(), std::size_t(bytes.size())}, fault);
}
} // namespace vx::user_input
