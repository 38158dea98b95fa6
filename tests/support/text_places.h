#pragma once

#include "platform/toolkit/bridge/qt_bridge.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/controls/panel.h"

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QStyleOptionButton>
#include <QtWidgets/QStyleOptionComboBox>
#include <QtWidgets/QStyleOptionFrame>
#include <QtWidgets/QToolButton>

#include <algorithm>
#include <gtest/gtest.h>

/// Whether the texts in a window find room.
namespace vx_test {
/// A text and the room that it has, in its widget.
struct text_place
{
    QString text;
    QRect room;
    QSize need;
    Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter;

    /// Where the letters stand if they find room.
    [[nodiscard]] QRect letters() const
    {
        return QStyle::alignedRect(Qt::LeftToRight, alignment, need, room);
    }
};

inline QSize measure(QWidget const *w, QString const &text)
{
    return w->fontMetrics().size(Qt::TextShowMnemonic, text);
}

inline QRect button_room(QAbstractButton const *button, QStyle::SubElement element)
{
    QStyleOptionButton option;
    option.initFrom(button);
    return button->style()->subElementRect(element, &option, button);
}

inline text_place of_label(QLabel const *label)
{
    QRect const room = label->contentsRect();
    if (!label->wordWrap())
        return {label->text(), room, measure(label, label->text()), label->alignment()};
    QRect const all(0, 0, room.width(), 1 << 14);
    QSize const need = label->fontMetrics().boundingRect(all, Qt::TextWordWrap, label->text()).size();
    return {label->text(), room, need, label->alignment()};
}

inline text_place of_button(QAbstractButton const *button)
{
    QSize need = measure(button, button->text());
    if (qobject_cast<QCheckBox const *>(button))
        return {button->text(), button_room(button, QStyle::SE_CheckBoxContents), need};
    if (qobject_cast<QRadioButton const *>(button))
        return {button->text(), button_room(button, QStyle::SE_RadioButtonContents), need};
    auto const *const tool = qobject_cast<QToolButton const *>(button);
    if (tool && tool->toolButtonStyle() == Qt::ToolButtonIconOnly)
        return {};
    if (!button->icon().isNull())
        need.rwidth() += button->iconSize().width();
    return {button->text(), button_room(button, QStyle::SE_PushButtonContents), need, Qt::AlignCenter};
}

inline text_place of_edit(QLineEdit const *edit)
{
    QString const text = edit->displayText().isEmpty() ? edit->placeholderText() : edit->displayText();
    QStyleOptionFrame option;
    option.initFrom(edit);
    option.lineWidth = edit->hasFrame() ? edit->style()->pixelMetric(QStyle::PM_DefaultFrameWidth) : 0;
    return {text, edit->style()->subElementRect(QStyle::SE_LineEditContents, &option, edit),
            measure(edit, text)};
}

inline text_place of_combo(QComboBox const *combo)
{
    QStyleOptionComboBox option;
    option.initFrom(combo);
    option.editable = combo->isEditable();
    QRect const room =
        combo->style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, combo);
    return {combo->currentText(), room, measure(combo, combo->currentText())};
}

/// The text that the widget shows by itself; an empty one if it shows none.
inline text_place text_of(QWidget *w)
{
    if (auto const *const label = qobject_cast<QLabel *>(w))
        return of_label(label);
    if (auto const *const button = qobject_cast<QAbstractButton *>(w))
        return of_button(button);
    if (auto const *const edit = qobject_cast<QLineEdit *>(w))
        return of_edit(edit);
    if (auto const *const combo = qobject_cast<QComboBox *>(w))
        return of_combo(combo);
    if (auto const *const box = qobject_cast<QGroupBox *>(w))
        return {box->title(), QRect(0, 0, w->width(), measure(w, box->title()).height()),
                measure(w, box->title())};
    auto *const panel = dynamic_cast<TCustomPanel *>(vx_control_of(w));
    if (panel && vx_qt_widget(panel) == w && panel->GetShowCaption()) {
        QString const caption = vx_qt_string(panel->GetCaption());
        return {caption, w->rect(), measure(w, caption), Qt::AlignCenter};
    }
    return {};
}

inline bool scrolls_away(QWidget *w)
{
    for (; w; w = w->parentWidget())
        if (qobject_cast<QScrollArea *>(w))
            return true;
    return false;
}

/// Whether another widget, or the edge of one above, takes a part of the letters away.
inline bool covered(QWidget *w, QRect const &letters)
{
    QWidget *const window = w->window();
    QPoint const points[] = {letters.topLeft(),
                             letters.center(),
                             letters.bottomRight(),
                             {letters.left(), letters.center().y()},
                             {letters.right(), letters.center().y()}};
    return std::any_of(std::begin(points), std::end(points), [&](QPoint const &point) {
        QPoint const at = w->mapTo(window, point);
        QWidget *const hit = window->childAt(at);
        return hit != w && !(hit && w->isAncestorOf(hit));
    });
}

/// The number of texts below the scope that show; each has to be seen whole, of those in areas that scroll
/// only where `in_areas` says that nothing is to scroll.
inline int expect_texts_fit(TWinControl *scope, bool in_areas = false)
{
    int count = 0;
    for (QWidget *const w : vx_qt_widget(scope)->findChildren<QWidget *>()) {
        if (!w->isVisible() || (!in_areas && scrolls_away(w)))
            continue;
        text_place const t = text_of(w);
        if (t.text.isEmpty())
            continue;
        ++count;
        EXPECT_LE(t.need.width(), t.room.width()) << '"' << t.text.toStdString() << "\" is cut off";
        EXPECT_LE(t.need.height(), t.room.height() + 2) << '"' << t.text.toStdString() << "\" is too high";
        EXPECT_FALSE(covered(w, t.letters().intersected(w->rect())))
            << '"' << t.text.toStdString() << "\" is covered";
    }
    return count;
}
} // namespace vx_test
