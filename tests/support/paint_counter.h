#pragma once

#include "platform/toolkit/bridge/qt_bridge.h"

#include <QApplication>
#include <QEvent>

#include <set>

/// Which widgets were painted during its life.
class paint_counter final : public QObject
{
public:
    paint_counter() { qApp->installEventFilter(this); }
    [[nodiscard]] int of(TControl const *control) const
    {
        return static_cast<int>(f_painted.count(vx_qt_widget(control)));
    }
    bool eventFilter(QObject *object, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            f_painted.insert(object);
        return false;
    }

private:
    std::multiset<QObject *> f_painted;
};
