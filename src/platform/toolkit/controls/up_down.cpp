#include "platform/toolkit/controls/up_down.h"

#include "platform/toolkit/bridge/detail/control_link.h"
#include "platform/toolkit/bridge/qt_events.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/controls/edit.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QResizeEvent>
#include <QtWidgets/QStyle>
#include <QtWidgets/QToolButton>

#include <algorithm>
#include <charconv>
#include <cmath>

/// Two buttons with arrows that share the room, and the keys of the associated control.
class TCustomUpDown::buttons final : public QWidget
{
public:
    buttons()
    {
        for (QToolButton *button : {&next, &previous}) {
            button->setParent(this);
            button->setAutoRepeat(true);
            button->setFocusPolicy(Qt::NoFocus);
        }
        set_vertical(true);
    }

    void set_vertical(bool value)
    {
        vertical = value;
        next.setArrowType(value ? Qt::UpArrow : Qt::RightArrow);
        previous.setArrowType(value ? Qt::DownArrow : Qt::LeftArrow);
        lay_out();
    }

    QToolButton next;
    QToolButton previous;
    bool vertical = true;
    TCustomUpDown *owner = nullptr;

protected:
    void resizeEvent(QResizeEvent *) override { lay_out(); }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() != QEvent::KeyPress || !owner)
            return false;
        int const key = static_cast<QKeyEvent *>(event)->key();
        if (key != (vertical ? Qt::Key_Up : Qt::Key_Right) && key != (vertical ? Qt::Key_Down : Qt::Key_Left))
            return false;
        // Left and right belong to the text that is edited.
        if (!vertical)
            return false;
        vx_guarded([&] {
            vx_event_scope const scope;
            owner->step(key == Qt::Key_Up ? btNext : btPrev);
        });
        return true;
    }

private:
    void lay_out()
    {
        if (vertical) {
            next.setGeometry(0, 0, width(), height() / 2);
            previous.setGeometry(0, height() / 2, width(), height() - height() / 2);
        } else {
            previous.setGeometry(0, 0, width() / 2, height());
            next.setGeometry(width() / 2, 0, width() - width() / 2, height());
        }
    }
};

TCustomUpDown::TCustomUpDown(TComponent *owner) : TWinControl(owner, vx_make_widget<buttons>())
{
    ControlStyle.Exclude(csClickEvents);
    SetBounds(0, 0, 17, 25);
    auto *pair = vx_qt_as<buttons>(this);
    pair->owner = this;
    vx_connect(this, &pair->next, &QToolButton::clicked, [this](bool) { step(btNext); });
    vx_connect(this, &pair->previous, &QToolButton::clicked, [this](bool) { step(btPrev); });
}

TCustomUpDown::~TCustomUpDown() = default;

int TCustomUpDown::GetPosition() const
{
    if (!f_associate)
        return f_position;
    // The user may have typed another number.
    std::string const text = f_associate->GetText().to_utf8();
    double value = 0.0;
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    bool const number = error == std::errc() && end == text.data() + text.size() && std::isfinite(value);
    if (!number)
        return f_position;
    double const least = std::min(f_min, f_max);
    double const largest = std::max(f_min, f_max);
    return static_cast<int>(std::clamp(std::trunc(value), least, largest));
}

void TCustomUpDown::SetPosition(int position)
{
    f_position = std::clamp(position, std::min(f_min, f_max), std::max(f_min, f_max));
    show();
}

void TCustomUpDown::show()
{
    if (f_associate)
        f_associate->SetText(UnicodeString(f_position));
}

void TCustomUpDown::SetMin(int value)
{
    f_min = value;
    SetPosition(GetPosition());
}

void TCustomUpDown::SetMax(int value)
{
    f_max = value;
    SetPosition(GetPosition());
}

void TCustomUpDown::SetOrientation(TUDOrientation orientation)
{
    if (f_orientation == orientation)
        return;
    f_orientation = orientation;
    vx_qt_as<buttons>(this)->set_vertical(orientation == udVertical);
    SetBounds(GetLeft(), GetTop(), GetHeight(), GetWidth());
}

void TCustomUpDown::SetAssociate(TWinControl *control)
{
    if (f_associate == control)
        return;
    auto *pair = vx_qt_as<buttons>(this);
    if (f_associate) {
        f_associate->RemoveFreeNotification(this);
        if (QWidget *widget = vx_qt_widget(f_associate))
            widget->removeEventFilter(pair);
    }
    f_associate = control;
    if (!control)
        return;
    control->FreeNotification(this);
    vx_qt_widget(control)->installEventFilter(pair);
    SetBounds(control->GetLeft() + control->GetWidth(), control->GetTop(), GetWidth(), control->GetHeight());
    show();
}

void TCustomUpDown::Notification(TComponent *component, TOperation operation)
{
    TWinControl::Notification(component, operation);
    if (operation == opRemove && component == f_associate)
        f_associate = nullptr;
}

void TCustomUpDown::step(TUDBtnType button)
{
    if (!GetEnabled())
        return;
    bool allow = true;
    auto const life = Life();
    OnChanging(this, allow);
    if (life.expired() || !allow)
        return;
    long long next = static_cast<long long>(GetPosition()) + (button == btNext ? f_increment : -f_increment);
    if (f_wrap && next > f_max)
        next = f_min;
    else if (f_wrap && next < f_min)
        next = f_max;
    SetPosition(
        static_cast<int>(std::clamp<long long>(next, std::min(f_min, f_max), std::max(f_min, f_max))));
    if (!life.expired())
        OnClick(this, button);
}
