#include "platform/toolkit/controls/status_bar.h"

#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QStatusBar>

TStatusBar::TStatusBar(TComponent *owner) : TWinControl(owner, vx_make_widget<QStatusBar>())
{
    vx_qt_as<QStatusBar>(this)->setSizeGripEnabled(false);
    SetBounds(0, 0, 150, 19);
    SetAlign(alBottom);
}

void TStatusBar::rebuild()
{
    auto *bar = vx_qt_as<QStatusBar>(this);
    auto const labels = bar->findChildren<QLabel *>();
    for (QLabel *label : labels) {
        bar->removeWidget(label);
        delete label;
    }
    auto const add = [&](UnicodeString const &text, int width) {
        auto *label = new QLabel(vx_qt_string(text));
        label->setTextFormat(Qt::PlainText);
        if (width > 0)
            label->setFixedWidth(width);
        bar->addWidget(label, width > 0 ? 0 : 1);
    };
    if (f_simple_panel)
        return add(f_simple_text, 0);
    for (panel const &p : f_panels)
        add(p.text, p.width);
}

void TStatusBar::SetSimplePanel(bool simple)
{
    f_simple_panel = simple;
    rebuild();
}

void TStatusBar::SetSimpleText(UnicodeString const &text)
{
    f_simple_text = text;
    if (f_simple_panel)
        rebuild();
}

int TStatusBar::AddPanel(int width, UnicodeString const &text)
{
    f_panels.push_back({width, text});
    rebuild();
    return GetPanelCount() - 1;
}

UnicodeString TStatusBar::GetPanelText(int index) const
{
    return index >= 0 && index < GetPanelCount() ? f_panels[static_cast<std::size_t>(index)].text
                                                 : UnicodeString();
}

void TStatusBar::SetPanelText(int index, UnicodeString const &text)
{
    if (index < 0 || index >= GetPanelCount())
        return;
    f_panels[static_cast<std::size_t>(index)].text = text;
    rebuild();
}

void TStatusBar::ClearPanels()
{
    f_panels.clear();
    rebuild();
}
