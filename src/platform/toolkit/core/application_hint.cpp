#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/core/application.h"
#include "platform/toolkit/core/win_control.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QToolTip>

void TApplication::ActivateHint(TPoint const &cursor_pos)
{
    QPoint const at = vx_qt_point(cursor_pos);
    QWidget *const under = QApplication::widgetAt(at);
    TControl *const control = under ? vx_control_of(under) : nullptr;
    if (!control || !f_show_hint || !control->GetShowHint()) {
        CancelHint();
        return;
    }
    UnicodeString const &hint = control->GetHint();
    int const bar = hint.Pos(L"|");
    f_hint = bar ? hint.SubString(1, bar - 1) : hint;
    // An empty text takes the shown one away.
    QToolTip::showText(at, vx_qt_string(f_hint), vx_qt_widget(control));
}

void TApplication::CancelHint()
{
    f_hint = UnicodeString();
    QToolTip::hideText();
}
