#include "platform/toolkit/core/application.h"

#include "captions/engine.h"

#include "platform/base/flag_scope.h"
#include "platform/base/text_codec.h"
#include "platform/basic/vx_fault.h"
#include "platform/toolkit/bridge/qt_events.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/core/form.h"
#include "platform/winapi/detail/main_thread.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEventLoop>
#include <QtCore/QMetaObject>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <memory>
#include <new>
#include <string>
#include <utility>
#include <vector>

namespace {
using moment = std::chrono::steady_clock::time_point;

/// Shorter than this after it came last, a reason is the same trouble still: of a timer, or of the painting
/// of what a message uncovered.
constexpr std::chrono::seconds c_quiet{5};
/// More messages on top of each other help nobody.
constexpr int c_shown_at_once = 3;
constexpr std::size_t c_remembered = 32;

struct told_reason
{
    std::wstring text;
    moment last;
};

/// What came out of handlers lately. Main thread only.
std::vector<told_reason> &told_reasons()
{
    static auto &list = *new std::vector<told_reason>;
    return list;
}

/// Whether it is new to the user; it is not for some time from now.
bool remember(std::wstring const &reason)
{
    auto &list = told_reasons();
    moment const now = std::chrono::steady_clock::now();
    auto const known =
        std::find_if(list.begin(), list.end(), [&](told_reason const &told) { return told.text == reason; });
    if (known != list.end())
        return now - std::exchange(known->last, now) > c_quiet;
    if (list.size() >= c_remembered)
        list.erase(list.begin());
    list.push_back({reason, now});
    return true;
}

void tell(void *data)
{
    static int shown = 0;
    std::unique_ptr<std::wstring const> const reason(static_cast<std::wstring const *>(data));
    if (!remember(*reason) || shown >= c_shown_at_once)
        return;
    ++shown;
    vx_guarded([&] { vx_reason_report(reason->c_str()); });
    --shown;
    remember(*reason);
}

/// The reason of the exception that is being handled.
std::wstring current_reason()
{
    try {
        throw;
    } catch (std::bad_alloc const &) {
        return vx_fault_reason({c_capt_event_no_memory, {}, 0, {}});
    } catch (std::exception const &thrown) {
        return vx_fault_reason({c_capt_event_failed, {}, 0, vx::text::utf8_to_wide(thrown.what())});
    } catch (...) {
        return vx_fault_reason({c_capt_event_failed, {}, 0, {}});
    }
}
} // namespace

TApplication::TApplication() : TComponent(nullptr)
{
    vx_qt_ensure_application();
    QObject::connect(qApp, &QGuiApplication::applicationStateChanged, qApp,
                     [this](Qt::ApplicationState state) {
                         vx_guarded([&] {
                             vx_event_scope const scope;
                             if (state == Qt::ApplicationActive)
                                 OnActivate(this);
                             else
                                 OnDeactivate(this);
                         });
                     });
}

TApplication *TApplication::Instance()
{
    // Never destroyed: forms that it owns may be looked at until the very end.
    static TApplication *const one = new TApplication;
    return one;
}

void TApplication::SetMainForm(TCustomForm *form)
{
    if (f_main_form)
        RemoveFreeNotification(f_main_form);
    f_main_form = form;
    if (form)
        FreeNotification(form);
}

void TApplication::Notification(TComponent *component, TOperation operation)
{
    TComponent::Notification(component, operation);
    if (operation == opRemove && component == f_main_form)
        f_main_form = nullptr;
}

UnicodeString TApplication::GetTitle() const
{
    return vx_unicode_string(QGuiApplication::applicationDisplayName());
}

void TApplication::SetTitle(UnicodeString const &title)
{
    QGuiApplication::setApplicationDisplayName(vx_qt_string(title));
}

HWND TApplication::GetHandle() const
{
    return f_main_form ? f_main_form->GetHandle() : nullptr;
}

void TApplication::ProcessMessages()
{
    QCoreApplication::processEvents();
    // Outside of every handler the widgets of freed controls may go.
    if (!vx_event_scope::active())
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void TApplication::HandleMessage()
{
    QEventLoop loop;
    // Whoever waits for something looks after each event whether it has come.
    if (loop.processEvents())
        return;
    if (OnIdle) {
        bool done = true;
        vx_guarded([&] {
            vx_event_scope const scope;
            OnIdle(this, done);
        });
        if (!done)
            return;
    }
    loop.processEvents(QEventLoop::WaitForMoreEvents);
}

void TApplication::Run()
{
    f_terminated = false;
    vx::flag_scope const running(f_running);
    if (f_main_form)
        f_main_form->Show();
    while (!f_terminated)
        HandleMessage();
}

void TApplication::Terminate()
{
    if (f_running)
        f_terminated = true;
}

bool TApplication::GetActive() const
{
    return QGuiApplication::applicationState() == Qt::ApplicationActive;
}

bool TApplication::HelpContext(THelpContext context)
{
    return OnHelp && OnHelp(context);
}

void TApplication::HandleException(TObject *sender) noexcept
{
    try {
        if (OnException && vx_is_main_thread()) {
            try {
                throw;
            } catch (std::exception const &thrown) {
                OnException(sender, &thrown);
            } catch (...) {
                OnException(sender, nullptr);
            }
            return;
        }
        auto reason = std::make_unique<std::wstring>(current_reason());
        vx_main_thread_post(&tell, reason.get());
        (void)reason.release();
    } catch (...) { // not even memory for a message
        std::fputs("an error broke off what was being done, and there is no memory to tell more\n", stderr);
    }
}
