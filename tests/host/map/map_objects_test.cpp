#include "host/attribute_table.h"
#include "host/identify_panel.h"
#include "host/layer_classes.h"
#include "host/layer_scales.h"
#include "host/map_selection.h"
#include "host/record_model.h"
#include "map_fixture.h"
#include "support/temp_dir.h"

#include "platform/base/owned.h"
#include "platform/data/vx_file_tos4.h"
#include "platform/data/vx_shape_files.h"
#include "platform/layers/vx_rtr_lr2d.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/layers/vx_tos_lr2d.h"
#include "platform/styles/vx_stl_mngr.h"

#include <QClipboard>
#include <QHeaderView>
#include <QProgressDialog>
#include <QPushButton>
#include <QTableView>
#include <QTimer>
#include <QTreeView>
#include <QTreeWidget>

#include <cmath>
#include <fstream>

using namespace vx_test;

namespace {
class map_objects : public map_fixture
{
protected:
    QPoint screen(double x, double y)
    {
        Tvx_screen_point const at = canvas().view().to_screen({x, y});
        return {int(std::lround(at.x)), int(std::lround(at.y))};
    }
    /// Clicks with the tool that tells at once.
    void click_map(double x, double y, Qt::KeyboardModifiers keys = Qt::NoModifier)
    {
        window->command("identify_tool")->trigger();
        hand::click(&canvas(), screen(x, y), Qt::LeftButton, keys);
        QCoreApplication::processEvents();
    }
    void hide_panel() { hand::press(found(), Qt::Key_Escape); }
    QTreeWidget *found() { return window->identify().tree(); }
    QString title(int place) { return found()->topLevelItem(place)->text(1); }
    QString value(int place, QString const &name)
    {
        QTreeWidgetItem const *object = found()->topLevelItem(place);
        for (int i = 0; i < object->childCount(); ++i)
            if (object->child(i)->text(0) == name)
                return object->child(i)->text(1);
        return "no such attribute";
    }
    Tvx_attribute_table *table(int row = 0) { return window->open_table(layers().id_at(row)); }
    std::vector<unsigned> const &selected() { return window->selection().records(); }
    void draw_by(int row, unsigned mode)
    {
        Tvx_layer_list::layer_ptr copy(vx_lr2d_clone(layers().layer_at(row)));
        for (auto const &scale : vx_layer_scales_find(copy.get())) {
            std::wstring reason;
            if (scale.mode == mode) {
                ASSERT_TRUE(vx_layer_draw_by(copy.get(), scale, reason));
            }
        }
        ASSERT_TRUE(layers().replace(layers().id_at(row), std::move(copy)));
    }
    /// A property file with one number after the other, no number for none.
    static QString
    property_file(temp_dir const &folder, char const *name, Tvx_tos4_grid const &grid,
                  std::vector<std::pair<wchar_t const *, std::vector<double>>> const &properties)
    {
        auto const path = QString::fromStdString((folder / name).string());
        vx::owned<Ivx_tos4_writer, &vx_tos4_writer_destroy> const writer(
            vx_tos4_writer_create_w(path.toStdWString().c_str(), &grid, L"+proj=utm +zone=25 +units=m"));
        for (auto const &[property, values] : properties)
            EXPECT_TRUE(vx_tos4_writer_add_prop_w(writer.get(), property, L"") &&
                        vx_tos4_writer_append(writer.get(), values.data(), values.size()));
        EXPECT_TRUE(vx_tos4_writer_finish(writer.get()));
        return path;
    }
    static QPoint cell(QTableView *view, int row, int column)
    {
        return view->visualRect(view->model()->index(row, column)).center();
    }
};

TEST_F(map_objects, a_click_names_what_is_there_topmost_first)
{
    ASSERT_EQ(open({"world.shp", "nc.shp"}), 2);
    draw_by(0, c_stl_mngr_mode_range);
    canvas().show_box(layers().extent_at(0));
    click_map(-78.64, 35.78); // Raleigh
    ASSERT_TRUE(window->identify().isVisible());
    ASSERT_EQ(found()->topLevelItemCount(), 2);
    EXPECT_EQ(found()->topLevelItem(0)->text(0), "nc: Wake");
    EXPECT_EQ(title(0), "Wake");
    EXPECT_EQ(value(0, "NAME"), "Wake");
    EXPECT_EQ(value(0, "BIR74"), "14484");
    EXPECT_EQ(value(0, "Drawn by"), "above 8000");
    EXPECT_EQ(found()->topLevelItem(1)->text(0), "world: US");
    EXPECT_EQ(value(1, "name_long"), "United States");
    EXPECT_EQ(value(1, "Drawn by"), "One Style");
    ASSERT_EQ(selected().size(), 1u);

    // What is hidden is not there: a class, then a layer.
    ASSERT_TRUE(layers().set_class_visible(0, 5, false));
    click_map(-78.64, 35.78);
    ASSERT_EQ(found()->topLevelItemCount(), 1);
    EXPECT_EQ(found()->topLevelItem(0)->text(0), "world: US");
    layers().set_layer_visible(1, false);
    click_map(-78.64, 35.78);
    EXPECT_EQ(found()->topLevelItemCount(), 0);
    EXPECT_TRUE(selected().empty());
    hand::press(&canvas(), Qt::Key_Escape);
    EXPECT_FALSE(window->identify().isVisible());
}

TEST_F(map_objects, a_click_names_the_cell_of_a_picture)
{
    ASSERT_EQ(open({"L7_ETMs.tif"}), 1);
    Ivx_layer *const raster = layers().layer_at(0);
    canvas().show_box({292500, 9115500, 293500, 9116500});
    click_map(293000, 9116000);
    ASSERT_EQ(found()->topLevelItemCount(), 1);
    int column = 0, row = 0;
    double value_of_band = 0;
    ASSERT_TRUE(vx_rtr_lr2d_find_cell(raster, {293000, 9116000}, &column, &row));
    EXPECT_EQ(column, 148);
    EXPECT_EQ(row, 167);
    ASSERT_TRUE(vx_rtr_lr2d_get_cell(raster, 4, column, row, &value_of_band));
    EXPECT_EQ(title(0), "Column 149, row 168");
    EXPECT_EQ(value(0, QString::fromWCharArray(vx_rtr_lr2d_get_prop_name(raster, 4))),
              QString::number(value_of_band));
    EXPECT_TRUE(selected().empty());
    for (auto const *const button : window->identify().findChildren<QPushButton *>())
        EXPECT_FALSE(button->isEnabled()) << "cells have no record";
    click_map(293000, 9116000, Qt::ControlModifier);
    EXPECT_TRUE(selected().empty());
    layers().set_layer_visible(0, false);
    click_map(293000, 9116000);
    EXPECT_EQ(found()->topLevelItemCount(), 0);
}

TEST_F(map_objects, layers_of_property_files_have_classes_and_are_named)
{
    temp_dir const folder;
    double const none = std::nan("");
    Tvx_tos4_grid const grid{2, {3, 2, 1}, {100, 200, 0}, {10, 10, 1}, 0};
    auto const cells = property_file(folder, "cells.tos4", grid,
                                     {{L"h", {0, 1, 2, 3, none, 12}}, {L"k", {7, 7, 7, 7, none, 7}}});
    ASSERT_EQ(window->open_files({cells}), 1);
    ASSERT_EQ(vx_layer_classes_count(layers().layer_at(0)), 15u) << "12 ranges and what lies outside";
    canvas().show_box(layers().extent_at(0));
    EXPECT_TRUE(hand::wait_until([&] { return canvas().is_settled(); }));
    click_map(121, 199);
    ASSERT_EQ(found()->topLevelItemCount(), 1);
    EXPECT_EQ(title(0), "Column 3, row 1");
    EXPECT_EQ(value(0, "h"), "2");
    EXPECT_EQ(value(0, "k"), "7");
    QString const class_of = value(0, "Drawn by");
    EXPECT_EQ(class_of, vx_layer_class_caption(layers().layer_at(0), 2));
    click_map(109, 211);
    EXPECT_EQ(found()->topLevelItemCount(), 0) << "a cell without a value";
    // The tick of a class hides its cells.
    QImage const whole = picture();
    EXPECT_NE(vx_layer_class_symbol(layers().layer_at(0), 2).pixmap(32, 20).toImage(),
              vx_layer_class_symbol(layers().layer_at(0), 9).pixmap(32, 20).toImage());
    ASSERT_TRUE(layers().set_class_visible(0, 2, false));
    EXPECT_LT(drawn_part(picture()), drawn_part(whole) - 0.05);
    click_map(121, 199);
    EXPECT_EQ(found()->topLevelItemCount(), 0);
    // Another grid can be drawn like it, points cannot.
    auto const points = property_file(folder, "points.tos4", {0, {3, 1, 1}},
                                      {{L"X", {100, 110, 120}}, {L"Y", {200, 210, none}}});
    ASSERT_EQ(
        window->open_files({points, property_file(folder, "o.tos4", grid, {{L"h", {1, 2, 3, 4, 5, 6}}})}), 2);
    Ivx_layer *const first = layers().layer_at(2);
    EXPECT_FALSE(vx_layer_has_style_of(layers().layer_at(0), first));
    EXPECT_TRUE(vx_layer_copy_style(layers().layer_at(0), first));
    EXPECT_TRUE(vx_layer_has_style_of(layers().layer_at(0), first));
    EXPECT_FALSE(vx_layer_style_fits(layers().layer_at(1), first));
    layers().set_layer_visible(0, false);
    layers().set_layer_visible(2, false);
    click_map(110, 210);
    ASSERT_EQ(found()->topLevelItemCount(), 1);
    EXPECT_EQ(value(0, "X"), "110");
    EXPECT_EQ(value(0, "Drawn by"), "One Style");
    // A curve is met where it runs.
    auto const curve = property_file(folder, "curve.tos4", {1, {3, 1, 1}, {100, 0, 0}, {10, 1, 1}, 0},
                                     {{L"h", {200, 210, 205}}});
    ASSERT_EQ(window->open_files({curve}), 1);
    layers().set_layer_visible(2, false);
    click_map(105.5, 205.5);
    ASSERT_EQ(found()->topLevelItemCount(), 1);
    EXPECT_EQ(value(0, "h"), "210");
    click_map(105.5, 201);
    EXPECT_EQ(found()->topLevelItemCount(), 0);
}

TEST_F(map_objects, symbols_and_lines_are_met_within_a_few_pixels)
{
    ASSERT_EQ(open({"naturalearth_cities.shp"}), 1);
    auto const shapes = vx_shape_files_open(vx_shp_lr2d_get_attr_data_ptr(layers().layer_at(0)));
    Tvx_shape_view city;
    ASSERT_TRUE(vx_shape_files_get(shapes, 7, &city));
    Tvx_pnt_d2 const place = city.points[city.part_starts[0]];
    vx_shape_files_close(shapes);
    Tvx_canvas_view view = canvas().view();
    view.set_center(place);
    view.set_units_per_pixel(0.001);
    canvas().go_to(view);
    for (int const away : {0, 5}) {
        click_map(place.x + away * 0.001, place.y);
        ASSERT_EQ(found()->topLevelItemCount(), 1) << away;
        EXPECT_EQ(selected(), std::vector<unsigned>{7});
    }
    click_map(place.x + 0.012, place.y);
    EXPECT_TRUE(selected().empty());

    ASSERT_EQ(open({"streets.shp"}), 1);
    auto const lines = vx_shape_files_open(vx_shp_lr2d_get_attr_data_ptr(layers().layer_at(0)));
    Tvx_shape_view street;
    ASSERT_TRUE(vx_shape_files_get(lines, 3, &street));
    Tvx_pnt_d2 const a = street.points[street.part_starts[0]];
    Tvx_pnt_d2 const b = street.points[street.part_starts[0] + 1];
    vx_shape_files_close(lines);
    view.set_center({(a.x + b.x) / 2, (a.y + b.y) / 2});
    view.set_units_per_pixel(std::hypot(b.x - a.x, b.y - a.y) / 200);
    canvas().go_to(view);
    click_map((a.x + b.x) / 2, (a.y + b.y) / 2);
    EXPECT_EQ(selected(), std::vector<unsigned>{3});
    EXPECT_EQ(window->identify().current()->record, 3u);
}

TEST_F(map_objects, clicks_of_every_kind_do_what_they_say)
{
    ASSERT_EQ(open({"nc.shp"}), 1);
    Tvx_canvas_view const before = canvas().view();
    QPoint const wake = screen(-78.64, 35.78);
    // With the hand: after the time of a double click, and not at all when it is one.
    hand::double_click(&canvas(), wake);
    EXPECT_NE(canvas().view(), before);
    canvas().go_back();
    hand::wait_until([] { return false; }, QApplication::doubleClickInterval() + 50);
    EXPECT_FALSE(window->identify().isVisible());
    hand::click(&canvas(), wake);
    EXPECT_FALSE(window->identify().isVisible());
    EXPECT_TRUE(hand::wait_until([&] { return window->identify().isVisible(); }));
    EXPECT_EQ(canvas().view().center(), before.center()) << "the panel takes room, the map stays";
    EXPECT_EQ(canvas().view().units_per_pixel(), before.units_per_pixel());
    hand::press(found(), Qt::Key_Escape);
    EXPECT_FALSE(window->identify().isVisible());

    // By the keyboard: what is in the middle, and the window has the keys.
    Tvx_canvas_view view = before;
    view.set_center({-78.64, 35.78});
    canvas().go_to(view);
    hand::press(&canvas(), Qt::Key_Return);
    ASSERT_EQ(found()->topLevelItemCount(), 1);
    EXPECT_EQ(title(0), "Wake");
    hand::press(found(), Qt::Key_Down);
    hand::press(found(), Qt::Key_Down);
    hand::press(found(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_FALSE(QApplication::clipboard()->text().isEmpty());

    // A drag moves the map with this tool too, and names nothing.
    window->command("identify_tool")->trigger();
    hide_panel();
    hand::drag(&canvas(), wake, wake + QPoint(60, 20));
    QCoreApplication::processEvents();
    EXPECT_NE(canvas().view(), view);
    EXPECT_FALSE(window->identify().isVisible());
}

TEST_F(map_objects, selected_objects_stand_out_and_the_picture_that_is_saved_is_without_them)
{
    ASSERT_EQ(open({"nc.shp"}), 1);
    QImage const map = picture();
    ASSERT_TRUE(hand::wait_until([&] { return canvas().is_settled(); }));
    QImage const before = canvas().grab().toImage();
    click_map(-78.64, 35.78);
    hide_panel();
    QImage const after = canvas().grab().toImage();
    EXPECT_NE(after.pixel(screen(-78.64, 35.78)), before.pixel(screen(-78.64, 35.78)));
    EXPECT_EQ(after.pixel(screen(-81.5, 35.75)), before.pixel(screen(-81.5, 35.75)));
    EXPECT_EQ(picture(), map);
    hand::press(&canvas(), Qt::Key_Escape);
    EXPECT_TRUE(selected().empty());
    EXPECT_EQ(canvas().grab().toImage().pixel(screen(-78.64, 35.78)), before.pixel(screen(-78.64, 35.78)));
}

TEST_F(map_objects, table_and_map_select_in_each_other)
{
    ASSERT_EQ(open({"nc.shp"}), 1);
    select(0);
    hand::press(list(), Qt::Key_F9);
    Tvx_attribute_table *const records = window->findChild<Tvx_attribute_table *>();
    ASSERT_TRUE(records && records->isVisible());
    EXPECT_EQ(records->parentWidget()->windowTitle(), "nc: attributes");
    QTableView *const view = records->view();
    ASSERT_EQ(view->model()->rowCount(), 100);
    EXPECT_EQ(table(), records) << "one a layer";

    // From the map.
    click_map(-78.64, 35.78);
    std::vector<unsigned> const wake = selected();
    ASSERT_EQ(wake.size(), 1u);
    EXPECT_EQ(records->selected_records(), wake);
    QModelIndex const row = view->model()->index(int(wake[0]), 0);
    EXPECT_TRUE(view->viewport()->rect().contains(view->visualRect(row).center()));
    click_map(-80.84, 35.23, Qt::ControlModifier); // Charlotte
    EXPECT_EQ(records->selected_records().size(), 2u);
    click_map(-78.64, 35.78, Qt::ControlModifier);
    EXPECT_EQ(records->selected_records().size(), 1u);

    // From the table: the map goes to what is not seen, and stays where it is seen.
    Tvx_canvas_view far = canvas().view();
    far.set_center({-84, 35});
    far.set_units_per_pixel(0.0005);
    canvas().go_to(far);
    view->scrollToTop();
    hand::click(view->viewport(), cell(view, 2, 0));
    ASSERT_EQ(selected(), std::vector<unsigned>{2});
    Tvx_box_d2 const box = vx_map_object_box(layers(), layers().id_at(0), 2);
    EXPECT_TRUE(box.intersects(canvas().view().box()));
    Tvx_canvas_view const there = canvas().view();
    hand::press(view, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(selected(), (std::vector<unsigned>{2, 3}));
    auto const buttons = records->findChildren<QPushButton *>();
    hand::click(buttons[0], buttons[0]->rect().center());
    EXPECT_NE(canvas().view(), there);
    hand::press(view, Qt::Key_C, Qt::ControlModifier);
    QStringList const lines = QApplication::clipboard()->text().split('\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 3);
    EXPECT_TRUE(lines[0].startsWith("AREA\tPERIMETER\t")) << lines[0].toStdString();

    ASSERT_TRUE(layers().rename(0, "Counties"));
    EXPECT_EQ(records->parentWidget()->windowTitle(), "Counties: attributes");
    hand::press(view, Qt::Key_Escape);
    EXPECT_FALSE(records->isVisible());
    ASSERT_TRUE(layers().remove(0));
    EXPECT_FALSE(window->findChild<Tvx_attribute_table *>());
    EXPECT_TRUE(selected().empty());
}

TEST_F(map_objects, a_table_is_sorted_by_a_click_and_keeps_what_is_selected)
{
    temp_dir folder;
    std::ofstream(folder / "t.csv") << "name,n,x,y\nb,10,0,0\n\"\",2,1,1\na,,2,2\nB,9,3,3\n";
    ASSERT_EQ(window->open_files({QString::fromStdString((folder / "t.csv").string())}), 1);
    Tvx_attribute_table *const records = table();
    ASSERT_TRUE(records);
    auto const order = [&] {
        QString all;
        for (int row = 0; row < records->model().rowCount(); ++row)
            all += QString::number(records->model().record_of(row));
        return all;
    };
    int name = -1;
    int number = -1;
    for (int i = 0; i < records->model().columnCount(); ++i) {
        QString const text = records->model().headerData(i, Qt::Horizontal, Qt::DisplayRole).toString();
        name = text == "name" ? i : name;
        number = text == "n" ? i : number;
    }
    records->select_records({3});
    QHeaderView *const header = records->view()->horizontalHeader();
    auto const click = [&](int column) {
        hand::click(header->viewport(),
                    {header->sectionViewportPosition(column) + header->sectionSize(column) / 2, 8});
    };
    click(name);
    EXPECT_EQ(order().right(2), "03") << "b and B are one for people and stay in the order of the file";
    click(name);
    EXPECT_EQ(order().left(2), "03");
    click(name);
    EXPECT_EQ(order(), "0123") << "the third click gives the order of the file back";
    click(number);
    click(number);
    EXPECT_EQ(records->selected_records(), std::vector<unsigned>{3});
    EXPECT_EQ(order().back(),
              records->model().data(records->model().index(3, number), Qt::DisplayRole).isNull()
                  ? QChar('2')
                  : order().back());
    EXPECT_EQ(window->selection().layer_id(), -1) << "what the program selects is not reported";
}

/// A shapefile of points with a table of any length and one deleted record.
void write_points(std::filesystem::path const &stem, unsigned count)
{
    auto const le = [](std::string &to, unsigned value, int bytes) {
        for (int i = 0; i < bytes; ++i)
            to += char(value >> (8 * i));
    };
    auto const be = [](std::string &to, unsigned value) {
        for (int i = 3; i >= 0; --i)
            to += char(value >> (8 * i));
    };
    auto const number = [](std::string &to, double value) {
        to.append(reinterpret_cast<char const *>(&value), sizeof value);
    };
    auto const head = [&](unsigned bytes) {
        std::string text;
        be(text, 9994);
        text.append(20, '\0');
        be(text, bytes / 2);
        le(text, 1000, 4);
        le(text, 1, 4);
        for (double const bound : {0.0, 0.0, 1000.0, 1000.0, 0.0, 0.0, 0.0, 0.0})
            number(text, bound);
        return text;
    };
    std::string shp = head(100 + 28 * count);
    std::string shx = head(100 + 8 * count);
    std::string dbf("\x03\x7c\x01\x01", 4);
    le(dbf, count, 4);
    le(dbf, 32 + 32 + 1, 2);
    le(dbf, 1 + 10, 2);
    dbf.append(20, '\0');
    dbf += std::string("N\0\0\0\0\0\0\0\0\0\0N\0\0\0\0\x0a\0", 18) + std::string(14, '\0') + "\r";
    char digits[16];
    for (unsigned i = 0; i < count; ++i) {
        be(shx, (100 + 28 * i) / 2);
        be(shx, 10);
        be(shp, i + 1);
        be(shp, 10);
        le(shp, 1, 4);
        number(shp, i % 1000);
        number(shp, i / 1000);
        std::snprintf(digits, sizeof digits, "%c%10u", i == 5 ? '*' : ' ', i);
        dbf += digits;
    }
    write_file(stem.string() + ".shp", shp);
    write_file(stem.string() + ".shx", shx);
    write_file(stem.string() + ".dbf", dbf);
}

TEST_F(map_objects, a_long_table_shows_what_is_seen_and_no_deleted_records)
{
    temp_dir folder;
    write_points(folder / "many", 200'002);
    ASSERT_EQ(window->open_files({QString::fromStdString((folder / "many.shp").string())}), 1);
    Tvx_attribute_table *const records = table();
    ASSERT_TRUE(records);
    ASSERT_EQ(records->model().rowCount(), 200'001);
    QTableView *const view = records->view();
    auto const shown = [&](int row) {
        return view->model()->data(view->model()->index(row, 0), Qt::DisplayRole).toString();
    };
    EXPECT_EQ(shown(4), "4");
    EXPECT_EQ(shown(5), "6") << "record 5 is deleted";
    view->scrollToBottom();
    hand::click(view->viewport(), cell(view, 200'000, 0));
    EXPECT_EQ(selected(), std::vector<unsigned>{200'000});
    EXPECT_EQ(shown(200'000), "200001");
    hand::press(view, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(selected().size(), 200'001u);
    canvas().grab();

    // Sorting leaves the window alive, and can be given up.
    QHeaderView *const header = view->horizontalHeader();
    auto const click_header = [&] { hand::click(header->viewport(), {header->sectionSize(0) / 2, 8}); };
    int served = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++served; });
    timer.start(1);
    click_header();
    EXPECT_GT(served, 1);
    EXPECT_EQ(shown(0), "0");
    QObject::connect(&timer, &QTimer::timeout, [&] {
        if (auto *const asking = window->findChild<QProgressDialog *>(); asking && asking->isVisible())
            asking->cancel();
    });
    click_header();
    EXPECT_EQ(shown(0), "0");
    EXPECT_EQ(header->sortIndicatorOrder(), Qt::AscendingOrder);
    EXPECT_EQ(selected().size(), 200'001u);
    timer.stop();
    click_header();
    EXPECT_EQ(shown(0), "200001");
}
} // namespace
