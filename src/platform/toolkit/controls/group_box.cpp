#include "platform/toolkit/controls/group_box.h"

#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"

#include <QtWidgets/QGroupBox>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionGroupBox>

namespace {
class group_widget final : public QGroupBox
{
public:
    /// What the frame and the title leave.
    QRect contents() const
    {
        QStyleOptionGroupBox option;
        initStyleOption(&option);
        return style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxContents, this);
    }
};
} // namespace

TCustomGroupBox::TCustomGroupBox(TComponent *owner) : TWinControl(owner, vx_make_widget<group_widget>())
{
    SetBounds(0, 0, 185, 105);
}

void TCustomGroupBox::SetText(UnicodeString const &text)
{
    TWinControl::SetText(text);
    vx_qt_as<QGroupBox>(this)->setTitle(vx_qt_string(text));
    Realign();
}

void TCustomGroupBox::AdjustClientRect(TRect &rect)
{
    QRect const inside = vx_qt_as<group_widget>(this)->contents();
    rect = {rect.Left + inside.left(), rect.Top + inside.top(), rect.Left + inside.right() + 1,
            rect.Top + inside.bottom() + 1};
    TWinControl::AdjustClientRect(rect);
}

void TCustomGroupBox::FontChanged()
{
    TWinControl::FontChanged();
    Realign();
}
