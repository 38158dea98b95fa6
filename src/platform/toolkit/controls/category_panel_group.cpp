#include "platform/toolkit/controls/category_panel_group.h"

#include "platform/toolkit/bridge/detail/control_link.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/controls/button_keys_priv.h"

#include <QtGui/QResizeEvent>
#include <QtWidgets/QSizePolicy>
#include <QtWidgets/QToolButton>

namespace {
constexpr int c_header_height = 24;
} // namespace

/// A frame with a header across its top.
class TCategoryPanel::body final : public QWidget
{
public:
    body() : header(this)
    {
        header.setArrowType(Qt::DownArrow);
        header.setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        header.setFocusPolicy(Qt::StrongFocus);
        header.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        setFocusProxy(&header);
    }

    QToolButton header;

protected:
    void resizeEvent(QResizeEvent *) override { header.setGeometry(0, 0, width(), c_header_height); }
};

TCategoryPanel::TCategoryPanel(TComponent *owner) : TWinControl(owner, vx_make_widget<body>())
{
    ControlStyle.Exclude(csClickEvents);
    SetTabStop(true);
    SetBounds(0, 0, 200, 200);
    SetAlign(alTop);
    vx_connect(this, &vx_qt_as<body>(this)->header, &QToolButton::clicked, [this](bool) {
        auto const life = Life();
        SetCollapsed(!f_collapsed);
        if (life.expired())
            return;
        if (f_collapsed)
            OnCollapse(this);
        else
            OnExpand(this);
    });
}

void TCategoryPanel::KeyDown(Word &key, TShiftState shift)
{
    auto const life = Life();
    TWinControl::KeyDown(key, shift);
    if (life.expired())
        return;
    vx_press_by_enter(vx_native(&vx_qt_as<body>(this)->header), key, shift);
}

int TCategoryPanel::GetHeaderHeight()
{
    return c_header_height;
}

void TCategoryPanel::SetText(UnicodeString const &text)
{
    TWinControl::SetText(text);
    vx_qt_as<body>(this)->header.setText(vx_qt_string(text));
}

void TCategoryPanel::SetCollapsed(bool collapsed)
{
    if (f_collapsed == collapsed)
        return;
    if (collapsed)
        f_expanded_height = GetHeight();
    f_collapsed = collapsed;
    vx_qt_as<body>(this)->header.setArrowType(collapsed ? Qt::RightArrow : Qt::DownArrow);
    SetHeight(collapsed ? c_header_height : f_expanded_height);
}

bool TCategoryPanel::CanResize(int &width, int &height)
{
    if (f_collapsed)
        height = c_header_height;
    return TWinControl::CanResize(width, height);
}

bool TCategoryPanel::ShowsChildren() const
{
    return !f_collapsed;
}

void TCategoryPanel::AdjustClientRect(TRect &rect)
{
    rect.Top += c_header_height;
    TWinControl::AdjustClientRect(rect);
}

TCategoryPanelGroup::TCategoryPanelGroup(TComponent *owner) : TScrollBox(owner)
{
    SetBounds(0, 0, 200, 200);
    SetAlign(alLeft);
}

TCategoryPanel *TCategoryPanelGroup::CreatePanel(UnicodeString const &caption)
{
    auto *panel = new TCategoryPanel(this);
    panel->SetCaption(caption);
    int bottom = 0;
    for (int i = 0; i < GetControlCount(); ++i)
        bottom = std::max(bottom, GetControls(i)->GetBoundsRect().Bottom);
    panel->SetTop(bottom);
    panel->SetParent(this);
    return panel;
}

int TCategoryPanelGroup::GetPanelCount() const
{
    int count = 0;
    for (int i = 0; i < GetControlCount(); ++i)
        if (dynamic_cast<TCategoryPanel *>(GetControls(i)))
            ++count;
    return count;
}

TCategoryPanel *TCategoryPanelGroup::GetPanels(int index) const
{
    for (int i = 0; i < GetControlCount(); ++i)
        if (auto *panel = dynamic_cast<TCategoryPanel *>(GetControls(i)); panel && index-- == 0)
            return panel;
    return nullptr;
}

void TCategoryPanelGroup::CollapseAll()
{
    for (int i = 0; i < GetPanelCount(); ++i)
        GetPanels(i)->SetCollapsed(true);
}

void TCategoryPanelGroup::ExpandAll()
{
    for (int i = 0; i < GetPanelCount(); ++i)
        GetPanels(i)->SetCollapsed(false);
}
