#pragma once

#include "user_input/user_input.h"

#include "platform/toolkit/bridge/qt_bridge.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/controls/scroll_box.h"
#include "platform/toolkit/core/key_codes.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QWidget>

#include <functional>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

/// Where Tab leads in a window of the toolkit.
namespace vx_test {
namespace input = vx::user_input;

/// A place where Tab stops.
struct stop
{
    QWidget *widget; ///< that has the focus
    TWinControl *control;

    [[nodiscard]] std::string name() const { return control->GetAccessibleName().to_utf8(); }
    /// Where it stands beside another: what lies in an area that scrolls stands where that does.
    [[nodiscard]] QRect place_beside(stop const &other) const
    {
        QWidget const *seen = widget;
        for (QWidget const *w = widget; w; w = w->parentWidget())
            if (qobject_cast<QScrollArea const *>(w) && !w->isAncestorOf(other.widget))
                seen = w;
        return place_of(seen);
    }
    [[nodiscard]] QRect place() const { return place_of(widget); }

private:
    static QRect place_of(QWidget const *w) { return QRect(w->mapTo(w->window(), QPoint()), w->size()); }
};

inline stop current_stop()
{
    return {QApplication::focusWidget(), FindFocusedControl()};
}

/// The stops within the scope, in the order of a whole round of Tab, or of Shift+Tab, from where the focus
/// is. `at` runs at each.
inline std::vector<stop> round(
    TWinControl *scope, bool forward, std::function<void(stop const &)> const &at = [](stop const &) {})
{
    constexpr int c_limit = 200;
    std::vector<stop> stops;
    auto const *const first = QApplication::focusWidget();
    for (int i = 0; i < c_limit; ++i) {
        stop const here = current_stop();
        if (!here.control) {
            ADD_FAILURE() << "the focus is lost after " << i << " stops";
            return stops;
        }
        if (scope->ContainsControl(here.control)) {
            stops.push_back(here);
            at(here);
        }
        EXPECT_TRUE(input::press(VK_TAB, forward ? TShiftState{} : TShiftState{ssShift}));
        if (QApplication::focusWidget() == first)
            return stops;
    }
    ADD_FAILURE() << "Tab does not come round";
    return stops;
}

inline std::set<TWinControl *> controls_of(std::vector<stop> const &stops)
{
    std::set<TWinControl *> controls;
    for (stop const &s : stops)
        controls.insert(s.control);
    return controls;
}

/// The controls in the scope that the mouse or a call can give the focus, and that show: Tab must reach them.
inline std::set<TWinControl *> focusable(TWinControl *scope)
{
    std::set<TWinControl *> found;
    for (QWidget *const w : vx_qt_widget(scope)->findChildren<QWidget *>()) {
        auto *const control = dynamic_cast<TWinControl *>(vx_control_of(w));
        bool const takes_focus = w->focusPolicy() != Qt::NoFocus || (control && control->GetTabStop());
        if (control && takes_focus && w->isVisible() && w->isEnabled() && control->CanFocus() &&
            !dynamic_cast<TScrollBox *>(control) && control != scope)
            found.insert(control);
    }
    return found;
}

/// A stop must not come after one that it stands above of in the same column, or left of in the same row.
inline void expect_reading_order(std::vector<stop> const &stops)
{
    for (std::size_t i = 0; i < stops.size(); ++i)
        for (std::size_t k = i + 1; k < stops.size(); ++k) {
            QRect const before = stops[i].place_beside(stops[k]);
            QRect const after = stops[k].place_beside(stops[i]);
            bool const above = after.bottom() < before.top() && after.left() <= before.right() &&
                               before.left() <= after.right();
            bool const left = after.right() < before.left() && after.top() <= before.bottom() &&
                              before.top() <= after.bottom();
            EXPECT_FALSE(above || left)
                << '"' << stops[k].name() << "\" comes after \"" << stops[i].name() << '"';
        }
}
} // namespace vx_test
