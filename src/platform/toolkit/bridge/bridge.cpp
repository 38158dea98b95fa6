#include "platform/toolkit/bridge/detail/control_link.h"
#include "platform/toolkit/bridge/qt_application.h"
#include "platform/toolkit/bridge/qt_events.h"
#include "platform/toolkit/bridge/qt_graphics.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/core/standard_texts_priv.h"
#include "platform/toolkit/core/win_control.h"
#include "platform/winapi/detail/main_thread.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QMetaObject>
#include <QtCore/QThread>
#include <QtGui/QKeyEvent>
#include <QtGui/QPalette>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLayout>

#include <clocale>
#include <stdexcept>

namespace {
void wake_main_thread()
{
    if (qApp)
        QMetaObject::invokeMethod(
            qApp,
            [] {
                // What waits behind a call that failed is not forgotten.
                if (!vx_guarded([] { vx_main_thread_pump(); }))
                    wake_main_thread();
            },
            Qt::QueuedConnection);
}

/// From now on what other threads post is worked off by the loop of the application object, if there is one.
void listen_to_threads()
{
    if (qApp)
        vx_set_main_thread_wake(&wake_main_thread);
}

/// Told at load time: the first that a host uses of the library may be a message from another thread.
[[maybe_unused]] bool const g_starts_listening = (vx_set_main_thread_starter(&listen_to_threads), true);

void begin_listening()
{
    static bool begun = false;
    if (begun)
        return;
    begun = true;
    if (QThread::currentThread() == qApp->thread())
        vx_set_main_thread();
    listen_to_threads();
}
} // namespace

void vx_qt_ensure_application()
{
    if (qobject_cast<QApplication *>(QCoreApplication::instance())) {
        begin_listening();
        vx::toolkit::translate_standard_texts();
        return;
    }
    if (QCoreApplication::instance())
        throw std::runtime_error("the process runs an application object without windows");
    static char program[] = "vxk_platform";
    static char option[] = "-platform";
    static char platform[] = "offscreen";
    static char *arguments[] = {program, option, platform, nullptr};
    static int count = 1;
    if (!qEnvironmentVariableIsSet("DISPLAY") && !qEnvironmentVariableIsSet("WAYLAND_DISPLAY") &&
        !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        count = 3;
    // Lives to the end of the process: windows may outlast every static object.
    static QApplication *const application = new vx_qt_application(count, arguments);
    application->setQuitOnLastWindowClosed(false);
    // Qt has taken the user's locale; numbers in text stay as they are everywhere.
    std::setlocale(LC_NUMERIC, "C");
    begin_listening();
    vx::toolkit::translate_standard_texts();
}

bool vx_qt_application::notify(QObject *receiver, QEvent *event)
{
    bool taken = true;
    // A window whose question about unsaved work failed stays open.
    if (!vx_guarded([&] { taken = QApplication::notify(receiver, event); }) && event->type() == QEvent::Close)
        event->ignore();
    return taken;
}

QColor vx_qt_color(TColor color)
{
    if (color == clNone)
        return QColor(0, 0, 0, 0);
    if (color == clDefault)
        color = clWindowText;
    if ((static_cast<std::uint32_t>(color) & 0xFF000000U) == 0xFF000000U) {
        TColor const rgb = ColorToRGB(color);
        return QColor(rgb & 255, rgb >> 8 & 255, rgb >> 16 & 255);
    }
    return QColor(color & 255, color >> 8 & 255, color >> 16 & 255);
}

TColor ColorToRGB(TColor color)
{
    if ((static_cast<std::uint32_t>(color) & 0xFF000000U) != 0xFF000000U)
        return color & 0xFFFFFF;
    vx_qt_ensure_application();
    QPalette const palette = QApplication::palette();
    auto const role = [color]() -> QPalette::ColorRole {
        switch (color) {
        case clWindow:
            return QPalette::Base;
        case clWindowText:
        case clCaptionText:
        case clMenuText:
            return QPalette::WindowText;
        case clHighlight:
        case clActiveCaption:
            return QPalette::Highlight;
        case clHighlightText:
            return QPalette::HighlightedText;
        case clBtnText:
            return QPalette::ButtonText;
        case clBtnShadow:
        case clInactiveCaption:
        case clAppWorkSpace:
            return QPalette::Dark;
        case cl3DDkShadow:
        case clWindowFrame:
            return QPalette::Shadow;
        case clBtnHighlight:
            return QPalette::Light;
        case cl3DLight:
            return QPalette::Midlight;
        case clInfoBk:
            return QPalette::ToolTipBase;
        case clInfoText:
            return QPalette::ToolTipText;
        default:
            return QPalette::Window;
        }
    }();
    if (color == clGrayText)
        return vx_color(palette.color(QPalette::Disabled, QPalette::WindowText));
    return vx_color(palette.color(QPalette::Active, role));
}

TShiftState vx_shift_state(Qt::KeyboardModifiers modifiers, Qt::MouseButtons buttons)
{
    TShiftState state;
    if (modifiers & Qt::ShiftModifier)
        state <<= ssShift;
    if (modifiers & Qt::ControlModifier)
        state <<= ssCtrl;
    if (modifiers & Qt::AltModifier)
        state <<= ssAlt;
    if (buttons & Qt::LeftButton)
        state <<= ssLeft;
    if (buttons & Qt::RightButton)
        state <<= ssRight;
    if (buttons & Qt::MiddleButton)
        state <<= ssMiddle;
    return state;
}

namespace {
struct key_pair
{
    Word code;
    Qt::Key key;
};

constexpr key_pair c_keys[] = {
    {VK_CANCEL, Qt::Key_Cancel},     {VK_BACK, Qt::Key_Backspace},
    {VK_TAB, Qt::Key_Tab},           {VK_TAB, Qt::Key_Backtab},
    {VK_CLEAR, Qt::Key_Clear},       {VK_RETURN, Qt::Key_Return},
    {VK_RETURN, Qt::Key_Enter},      {VK_SHIFT, Qt::Key_Shift},
    {VK_CONTROL, Qt::Key_Control},   {VK_MENU, Qt::Key_Alt},
    {VK_PAUSE, Qt::Key_Pause},       {VK_CAPITAL, Qt::Key_CapsLock},
    {VK_ESCAPE, Qt::Key_Escape},     {VK_SPACE, Qt::Key_Space},
    {VK_PRIOR, Qt::Key_PageUp},      {VK_NEXT, Qt::Key_PageDown},
    {VK_END, Qt::Key_End},           {VK_HOME, Qt::Key_Home},
    {VK_LEFT, Qt::Key_Left},         {VK_UP, Qt::Key_Up},
    {VK_RIGHT, Qt::Key_Right},       {VK_DOWN, Qt::Key_Down},
    {VK_SNAPSHOT, Qt::Key_Print},    {VK_INSERT, Qt::Key_Insert},
    {VK_DELETE, Qt::Key_Delete},     {VK_HELP, Qt::Key_Help},
    {VK_APPS, Qt::Key_Menu},         {VK_NUMLOCK, Qt::Key_NumLock},
    {VK_SCROLL, Qt::Key_ScrollLock}, {VK_OEM_1, Qt::Key_Semicolon},
    {VK_OEM_PLUS, Qt::Key_Equal},    {VK_OEM_PLUS, Qt::Key_Plus},
    {VK_OEM_COMMA, Qt::Key_Comma},   {VK_OEM_MINUS, Qt::Key_Minus},
    {VK_OEM_PERIOD, Qt::Key_Period}, {VK_OEM_2, Qt::Key_Slash},
};
constexpr key_pair c_pad_keys[] = {
    {VK_MULTIPLY, Qt::Key_Asterisk}, {VK_ADD, Qt::Key_Plus},      {VK_SUBTRACT, Qt::Key_Minus},
    {VK_DECIMAL, Qt::Key_Period},    {VK_DECIMAL, Qt::Key_Comma}, {VK_DIVIDE, Qt::Key_Slash},
};
} // namespace

Word vx_key_code(QKeyEvent const &event)
{
    int const key = event.key();
    if (event.modifiers() & Qt::KeypadModifier) {
        if (key >= Qt::Key_0 && key <= Qt::Key_9)
            return static_cast<Word>(VK_NUMPAD0 + (key - Qt::Key_0));
        for (key_pair const &pair : c_pad_keys)
            if (pair.key == key)
                return pair.code;
    }
    if ((key >= Qt::Key_0 && key <= Qt::Key_9) || (key >= Qt::Key_A && key <= Qt::Key_Z))
        return static_cast<Word>(key);
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24)
        return static_cast<Word>(VK_F1 + (key - Qt::Key_F1));
    for (key_pair const &pair : c_keys)
        if (pair.key == key)
            return pair.code;
    return 0;
}

Qt::Key vx_qt_key(Word code)
{
    if ((code >= '0' && code <= '9') || (code >= 'A' && code <= 'Z'))
        return static_cast<Qt::Key>(code);
    if (code >= VK_F1 && code <= VK_F24)
        return static_cast<Qt::Key>(Qt::Key_F1 + (code - VK_F1));
    if (code >= VK_NUMPAD0 && code <= VK_NUMPAD9)
        return static_cast<Qt::Key>(Qt::Key_0 + (code - VK_NUMPAD0));
    for (key_pair const &pair : c_keys)
        if (pair.code == code)
            return pair.key;
    for (key_pair const &pair : c_pad_keys)
        if (pair.code == code)
            return pair.key;
    return Qt::Key_unknown;
}

TShortCut ShortCut(Word key, TShiftState shift)
{
    if (key == 0 || key > 0xFF)
        return 0;
    TShortCut result = key;
    if (shift.Contains(ssShift))
        result |= scShift;
    if (shift.Contains(ssCtrl))
        result |= scCtrl;
    if (shift.Contains(ssAlt))
        result |= scAlt;
    return result;
}

void ShortCutToKey(TShortCut short_cut, Word &key, TShiftState &shift)
{
    key = short_cut & 0xFF;
    shift = {};
    if (short_cut & scShift)
        shift <<= ssShift;
    if (short_cut & scCtrl)
        shift <<= ssCtrl;
    if (short_cut & scAlt)
        shift <<= ssAlt;
}

// ---- parking

namespace {
/// Keeps a widget the size of the widget that it lies in.
class size_follower final : public QObject
{
public:
    size_follower(QWidget *follower, QWidget *leader) : f_follower(follower)
    {
        leader->installEventFilter(this);
        follower->setGeometry(leader->rect());
    }
    bool eventFilter(QObject *leader, QEvent *event) override
    {
        if (event->type() == QEvent::Resize && f_follower->parent() == leader)
            f_follower->setGeometry(static_cast<QWidget *>(leader)->rect());
        return false;
    }

private:
    QWidget *f_follower;
};
} // namespace

void vx_qt_host_control(TWinControl *control, QWidget *host)
{
    if (control)
        vx_control_link::host(control, host);
}

void vx_control_link::leave_host()
{
    auto *const windowed = static_cast<TWinControl *>(control);
    f_host = nullptr;
    f_follower.reset();
    windowed->f_hosted = false;
    QRect const bounds = widget->geometry();
    widget->hide();
    widget->setParent(nullptr);
    widget->setGeometry(bounds);
    windowed->free_window();
}

void vx_control_link::host(TWinControl *control, QWidget *new_host)
{
    vx_control_link *const link = control->Link();
    if (!link->widget || link->f_host == new_host)
        return;
    if (link->f_host) {
        QObject::disconnect(link->f_host, nullptr, link, nullptr);
        link->leave_host();
    }
    if (!new_host)
        return;
    control->SetParent(nullptr);
    link->f_host = new_host;
    control->f_hosted = true;
    link->widget->setParent(new_host);
    // A widget tells of its end before it frees its children: ours leaves in time.
    QObject::connect(new_host, &QObject::destroyed, link, [link] { link->leave_host(); });
    if (QLayout *const layout = new_host->layout())
        layout->addWidget(link->widget);
    else
        link->f_follower = std::make_unique<size_follower>(link->widget, new_host);
    control->apply_visible();
    control->update_showing();
}

void vx_qt_host_widget(TWinControl *control, QWidget *widget)
{
    if (!control || !widget)
        return;
    QWidget *const area = vx_qt_widget(control);
    widget->setParent(area);
    (new size_follower(widget, area))->setParent(widget);
    widget->show();
}
