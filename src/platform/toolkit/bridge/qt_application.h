#pragma once

#include "platform/base/export.h"

#include <QtWidgets/QApplication>

/// An application object that no exception passes: what comes out of a handler of any event, a host's own
/// too, is told to the user, and the program goes on (`TApplication::HandleException`). A host makes one in
/// the place of a `QApplication`. In a process whose application is another, the handlers of the toolkit's
/// own controls are still guarded so.
class VX_API vx_qt_application : public QApplication
{
public:
    using QApplication::QApplication;
    bool notify(QObject *receiver, QEvent *event) override;
};
