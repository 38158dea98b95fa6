#include "host/opening_progress.h"

#include "host/captions.h"

#include "platform/basic/vx_datasource.h"

#include <QCoreApplication>

namespace {
/// What takes less is not worth a window.
constexpr qint64 c_patience_ms = 500;
} // namespace

Tvx_opening_progress::Tvx_opening_progress(QWidget *parent)
    : f_dialog(QString(), vx_host_caption(c_cap_cancel), 0, 0, parent)
{
    f_dialog.setObjectName(QStringLiteral("opening"));
    f_dialog.setWindowTitle(vx_host_caption(c_cap_application));
    f_dialog.setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                            Qt::WindowCloseButtonHint);
    f_dialog.setWindowModality(Qt::WindowModal);
    f_dialog.setAutoClose(false);
    f_dialog.setAutoReset(false);
    // It is shown here, not by its own clock, which runs with the values that it is given.
    f_dialog.setMinimumDuration(INT_MAX);
    f_dialog.setSizeGripEnabled(false);
    f_dialog.reset();
    f_since_start.start();
    vx_datasource_set_waiting(make_closure<&Tvx_opening_progress::goes_on>(this));
}

Tvx_opening_progress::~Tvx_opening_progress()
{
    vx_datasource_set_waiting({});
}

void Tvx_opening_progress::set_text(QString const &text)
{
    f_dialog.setLabelText(text);
}

bool Tvx_opening_progress::goes_on()
{
    if (!f_dialog.isVisible() && !f_dialog.wasCanceled() && f_since_start.elapsed() >= c_patience_ms)
        f_dialog.show();
    // Until the dialog keeps the user from the map's commands, only the windows are drawn.
    QCoreApplication::processEvents(f_dialog.isVisible() ? QEventLoop::AllEvents
                                                         : QEventLoop::ExcludeUserInputEvents);
    return !f_dialog.wasCanceled();
}
