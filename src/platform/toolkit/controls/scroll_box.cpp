#include "platform/toolkit/controls/scroll_box.h"

#include "platform/toolkit/bridge/qt_widgets.h"

#include <QtGui/QResizeEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QFrame>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>

#include <algorithm>

namespace {
constexpr int c_focus_margin = 6;

class scroll_widget final : public QScrollArea
{
public:
    scroll_widget()
    {
        setWidget(new QWidget);
        setWidgetResizable(false);
        setFrameShape(QFrame::StyledPanel);
        viewport()->setAutoFillBackground(false);
        widget()->setAutoFillBackground(false);
        // Who comes by keys sees where. A click has been seen, and must not move what it falls on.
        connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) {
            if (now && widget() && widget()->isAncestorOf(now) &&
                QApplication::mouseButtons() == Qt::NoButton)
                ensureWidgetVisible(now, 0, c_focus_margin);
        });
    }

    closure<void()> resized;

protected:
    /// The visible room changes with the size, and when a scroll bar comes or goes.
    void resizeEvent(QResizeEvent *event) override
    {
        QScrollArea::resizeEvent(event);
        resized();
    }
};

bool stands_free(TControl const *control)
{
    return control->GetVisible() && control->GetAlign() == alNone;
}
} // namespace

TScrollBox::TScrollBox(TComponent *owner) : TWinControl(owner, vx_make_widget<scroll_widget>())
{
    vx_qt_as<scroll_widget>(this)->resized = closure<void()>::bind<&TScrollBox::room_changed>(this);
    SetBounds(0, 0, 185, 41);
}

TScrollBox::~TScrollBox()
{
    if (auto *area = vx_qt_as<scroll_widget>(this))
        area->resized = nullptr;
}

vx_native_widget *TScrollBox::ClientWidget() const
{
    return vx_native(vx_qt_as<QScrollArea>(this)->widget());
}

TRect TScrollBox::GetClientRect() const
{
    QSize const room = vx_qt_as<QScrollArea>(this)->viewport()->size();
    return Bounds(0, 0, room.width(), room.height());
}

void TScrollBox::SetBorderStyle(TBorderStyle style)
{
    f_border_style = style == bsNone ? bsNone : bsSingle;
    vx_qt_as<QScrollArea>(this)->setFrameShape(f_border_style == bsNone ? QFrame::NoFrame
                                                                        : QFrame::StyledPanel);
    Realign();
}

void TScrollBox::ControlsAligned()
{
    TWinControl::ControlsAligned();
    update_range();
}

void TScrollBox::room_changed()
{
    if (!IsDestroying())
        Realign();
}

void TScrollBox::update_range()
{
    auto *area = vx_qt_as<QScrollArea>(this);
    QSize const room = area->maximumViewportSize();
    int width = 0;
    int height = 0;
    for (int i = 0; i < GetControlCount(); ++i) {
        TControl const *control = GetControls(i);
        TRect const at = control->GetBoundsRect();
        TAlign const align = control->GetAlign();
        if (!control->GetVisible() || align == alClient)
            continue;
        // A bar at a side needs its own thickness; its length is what there is.
        if (stands_free(control) || align == alLeft || align == alRight)
            width = std::max(width, at.Right);
        if (stands_free(control) || align == alTop || align == alBottom)
            height = std::max(height, at.Bottom);
    }
    area->widget()->resize(std::max(width, width > room.width() ? 0 : area->viewport()->width()),
                           std::max(height, height > room.height() ? 0 : area->viewport()->height()));
}

void TScrollBox::ScrollInView(TControl *control)
{
    if (control && vx_qt_widget(control))
        vx_qt_as<QScrollArea>(this)->ensureWidgetVisible(vx_qt_widget(control), 0, 0);
}

int TScrollBox::GetHorzPosition() const
{
    return vx_qt_as<QScrollArea>(this)->horizontalScrollBar()->value();
}

void TScrollBox::SetHorzPosition(int position)
{
    vx_qt_as<QScrollArea>(this)->horizontalScrollBar()->setValue(position);
}

int TScrollBox::GetVertPosition() const
{
    return vx_qt_as<QScrollArea>(this)->verticalScrollBar()->value();
}

void TScrollBox::SetVertPosition(int position)
{
    vx_qt_as<QScrollArea>(this)->verticalScrollBar()->setValue(position);
}
