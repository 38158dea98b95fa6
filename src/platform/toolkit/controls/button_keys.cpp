#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/controls/button_keys_priv.h"
#include "platform/toolkit/core/key_codes.h"

#include <QtWidgets/QAbstractButton>

void vx_press_by_enter(vx_native_widget *button, Word &key, TShiftState shift)
{
    if (key != VK_RETURN || shift.Contains(ssCtrl) || shift.Contains(ssAlt))
        return;
    // Before the click, which may free the button.
    key = 0;
    static_cast<QAbstractButton *>(vx_qt_widget(button))->click();
}
