#include "host/attribute_table.h"
#include "host/identify_panel.h"
#include "map_fixture.h"

#include <QDockWidget>
#include <QStatusBar>
#include <QToolBar>

using namespace vx_test;

namespace {
/// What Tab stops at in a whole round through the window.
QList<QWidget *> tab_round(QWidget *window)
{
    QList<QWidget *> stops;
    QWidget *const first = QApplication::focusWidget();
    for (int i = 0; first && i < 100; ++i) {
        stops.append(QApplication::focusWidget());
        hand::press(QApplication::focusWidget(), Qt::Key_Tab);
        if (!QApplication::focusWidget() || QApplication::focusWidget()->window() != window)
            break;
        if (QApplication::focusWidget() == first)
            return stops;
    }
    ADD_FAILURE() << "Tab does not come round";
    return stops;
}

/// The dock or bar that the widget lies in, null for the middle of the window.
QWidget *room_of(QWidget *widget)
{
    for (QWidget *w = widget; w; w = w->parentWidget())
        if (qobject_cast<QDockWidget *>(w) || qobject_cast<QToolBar *>(w) || qobject_cast<QStatusBar *>(w))
            return w;
    return nullptr;
}

std::string name_of(QWidget const *widget)
{
    return (widget->metaObject()->className() + (' ' + widget->objectName())).toStdString();
}
} // namespace

TEST_F(map_fixture, tab_goes_through_list_map_and_docks_as_they_lie)
{
    ASSERT_EQ(open({"world.shp", "nc.shp"}), 2);
    hand::wait_until([&] { return canvas().is_settled(); });
    ASSERT_TRUE(window->open_table(layers().id_at(0)));
    window->findChild<QDockWidget *>("identify_dock")->show();
    QCoreApplication::processEvents();
    list()->setFocus();
    QList<QWidget *> const stops = tab_round(window.get());
    std::string all;
    for (QWidget *const stop : stops)
        all += name_of(stop) + "\n";
    SCOPED_TRACE(all);

    // Room after room: who has left one does not come back.
    QList<QWidget *> rooms;
    for (QWidget *const stop : stops)
        if (rooms.isEmpty() || rooms.back() != room_of(stop))
            rooms.append(room_of(stop));
    if (rooms.size() > 1 && rooms.front() == rooms.back())
        rooms.removeLast();
    for (QWidget *const room : rooms)
        EXPECT_EQ(rooms.count(room), 1) << (room ? name_of(room) : "the map");
    EXPECT_EQ(rooms.front(), room_of(list()));
    ASSERT_EQ(rooms.size(), 5) << "list, map, what is here, table, status bar";
    EXPECT_EQ(rooms.at(1), nullptr) << "the map is beside the list";
    EXPECT_TRUE(rooms.at(2)->isAncestorOf(&window->identify()));
    // In a room from left to right and from top to bottom.
    for (qsizetype i = 0; i < stops.size(); ++i)
        for (qsizetype k = i + 1; k < stops.size(); ++k) {
            if (room_of(stops[i]) != room_of(stops[k]) || stops[i]->isAncestorOf(stops[k]))
                continue;
            QRect const before(stops[i]->mapTo(window.get(), QPoint()), stops[i]->size());
            QRect const after(stops[k]->mapTo(window.get(), QPoint()), stops[k]->size());
            bool const above = after.bottom() < before.top();
            bool const left = after.right() < before.left() && after.bottom() <= before.bottom() &&
                              before.top() <= after.top();
            EXPECT_FALSE(above || left) << name_of(stops[k]) << " comes after " << name_of(stops[i]);
        }
    EXPECT_TRUE(stops.contains(&canvas()));
}
