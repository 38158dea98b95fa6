#include "platform/toolkit/core/application.h"

#include "platform/base/flag_scope.h"
#include "platform/toolkit/bridge/qt_events.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/core/form.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEventLoop>
#include <QtCore/QMetaObject>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QApplication>

TApplication::TApplication() : TComponent(nullptr)
{
    vx_qt_ensure_application();
    QObject::connect(qApp, &QGuiApplication::applicationStateChanged, qApp,
                     [this](Qt::ApplicationState state) {
                         vx_event_scope const scope;
                         if (state == Qt::ApplicationActive)
                             OnActivate(this);
                         else
                             OnDeactivate(this);
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
        vx_event_scope const scope;
        bool done = true;
        OnIdle(this, done);
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
