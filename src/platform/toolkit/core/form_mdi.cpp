#include "platform/toolkit/bridge/detail/control_link.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/core/application.h"
#include "platform/toolkit/core/form.h"
#include "platform/toolkit/core/screen.h"

#include <QtWidgets/QMdiArea>
#include <QtWidgets/QMdiSubWindow>

#include <vector>

TCustomForm *TCustomForm::mdi_parent() const
{
    if (f_mdi_frame)
        return f_mdi_parent;
    TCustomForm *const main = Application->GetMainForm();
    if (main && main->f_form_style == fsMDIForm)
        return main;
    for (int i = 0; i < Screen->GetFormCount(); ++i)
        if (Screen->GetForms(i)->f_form_style == fsMDIForm)
            return Screen->GetForms(i);
    return nullptr;
}

void TCustomForm::make_mdi_area()
{
    if (f_mdi_area)
        return;
    auto *const area = new QMdiArea(vx_qt_widget(ClientWidget()));
    f_mdi_area = vx_native(static_cast<QWidget *>(area));
    // A window that was put outside stays in reach.
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area->lower();
    area->show();
    vx_connect(this, area, &QMdiArea::subWindowActivated, [this](QMdiSubWindow *window) {
        auto *const child = dynamic_cast<TCustomForm *>(
            window && window->widget() ? vx_control_of(window->widget()) : nullptr);
        if (!child || child->f_mdi_parent != this)
            return;
        f_active_mdi_child = child;
        child->window_activated();
    });
    Realign();
}

bool TCustomForm::become_mdi_child()
{
    if (f_mdi_frame)
        return true;
    TCustomForm *const parent = mdi_parent();
    QWidget *const widget = vx_qt_widget(this);
    if (!parent || parent == this || !widget)
        return false;
    parent->make_mdi_area();
    auto *const area = static_cast<QMdiArea *>(vx_qt_widget(parent->f_mdi_area));
    TRect const bounds = GetBoundsRect();
    widget->setMinimumSize(0, 0);
    widget->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    auto *const window = new QMdiSubWindow;
    window->setAttribute(Qt::WA_DeleteOnClose, false);
    window->setWidget(widget);
    area->addSubWindow(window);
    window->setWindowTitle(widget->windowTitle());
    f_mdi_frame = vx_native(static_cast<QWidget *>(window));
    f_mdi_parent = parent;
    parent->f_mdi_children.push_back(this);
    window->setGeometry(vx_qt_rect(bounds));
    widget->show();
    parent->f_active_mdi_child = this;
    focus_first();
    return true;
}

void TCustomForm::leave_mdi_parent()
{
    // The children of an ending parent become windows of their own, hidden.
    while (!f_mdi_children.empty()) {
        TCustomForm *const child = f_mdi_children.back();
        child->leave_mdi_parent();
        child->Hide();
    }
    if (!f_mdi_frame)
        return;
    auto *const window = static_cast<QMdiSubWindow *>(vx_qt_widget(f_mdi_frame));
    f_mdi_frame = nullptr;
    std::erase(f_mdi_parent->f_mdi_children, this);
    if (f_mdi_parent->f_active_mdi_child == this)
        f_mdi_parent->f_active_mdi_child = nullptr;
    auto *const area = static_cast<QMdiArea *>(vx_qt_widget(f_mdi_parent->f_mdi_area));
    f_mdi_parent = nullptr;
    QWidget *const widget = vx_qt_widget(this);
    // A widget that hides hands the focus on to its neighbour.
    TWinControl *const active = GetActiveControl();
    window->hide();
    window->setWidget(nullptr);
    if (widget) {
        widget->hide();
        widget->setParent(nullptr);
    }
    area->removeSubWindow(window);
    window->deleteLater();
    f_wanted_focus = active;
    if (!IsDestroying())
        apply_flags();
}

TCustomForm *TCustomForm::GetActiveMDIChild() const
{
    if (f_active_mdi_child)
        return f_active_mdi_child;
    for (auto child = f_mdi_children.rbegin(); child != f_mdi_children.rend(); ++child)
        if ((*child)->GetVisible())
            return *child;
    return nullptr;
}

TPoint TCustomForm::GetMDIClientOrigin() const
{
    QWidget const *const area = f_mdi_area ? vx_qt_widget(f_mdi_area) : nullptr;
    return area ? vx_point(area->mapToGlobal(QPoint(0, 0))) : GetClientOrigin();
}

int TCustomForm::GetMDIChildCount() const
{
    return static_cast<int>(f_mdi_children.size());
}

TCustomForm *TCustomForm::GetMDIChildren(int index) const
{
    if (index < 0 || index >= GetMDIChildCount())
        return nullptr;
    return f_mdi_children[static_cast<std::size_t>(index)];
}

void TCustomForm::AlignControls(TControl *control, TRect &rect)
{
    auto const life = Life();
    TWinControl::AlignControls(control, rect);
    // The area of the MDI children gets what the bars have left.
    if (!life.expired() && f_mdi_area)
        vx_qt_widget(f_mdi_area)->setGeometry(vx_qt_rect(rect));
}
