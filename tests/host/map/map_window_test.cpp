#include "captions/forms.h"
#include "exports/vxk_lr2d_edit_form_api.h"
#include "host/layer_editor.h"
#include "map_fixture.h"
#include "styles/simple/style_dlgs.h"
#include "support/foreign_words.h"
#include "support/temp_dir.h"
#include "user_input/user_input.h"

#include "platform/basic/vx_fault.h"
#include "platform/basic/vx_res.h"
#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/styles/vxk_styles.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDir>
#include <QDropEvent>
#include <QFile>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QScreen>
#include <QSettings>
#include <QStatusBar>
#include <QTabBar>
#include <QUrl>

#include <fstream>
#include <sys/stat.h>

using namespace vx_test;

namespace {
class map_window : public map_fixture
{
protected:
    Tvx_layer_editor &editor() { return window->editor(); }

    QWidget *editor_window()
    {
        for (QWidget *top : QApplication::topLevelWidgets())
            if (top->isVisible() && top != window.get() && top->windowType() != Qt::ToolTip)
                return top;
        return nullptr;
    }
    QString editor_title() { return editor_window() ? editor_window()->windowTitle() : QString(); }

    QStringList editor_tabs()
    {
        QStringList tabs;
        QWidget *top = editor_window();
        auto *bar = top ? top->findChild<QTabBar *>() : nullptr;
        for (int i = 0; bar && i < bar->count(); ++i)
            if (bar->isTabVisible(i))
                tabs.append(bar->tabText(i));
        return tabs;
    }

    void click_apply()
    {
        QWidget *top = editor_window();
        ASSERT_TRUE(top);
        for (auto *button : top->findChildren<QAbstractButton *>())
            if (button->isVisible() &&
                button->text() == QString::fromWCharArray(vx_res_get_wstr(c_caption_apply)))
                return hand::click(button, button->rect().center());
        FAIL() << "no Apply button";
    }

    /// What a page does: another fill of the polygons in the editor's copy.
    void change_fill_in_editor()
    {
        Ivx_layer *copy = vx_lr2d_edt_form_get_lr2d_ptr(editor().handle());
        void *prm = vx_stl_mngr_get_simple_sp_ptr(vx_shp_pgn_lr2d_get_stl_mngr_ptr(copy));
        void *fill = vx_pgn_style_get_bpgn_style_ptr(vx_stl_prm_get_pgn_style_ptr(prm, false));
        ASSERT_TRUE(fill);
        vx_bpgn_style_set_color(fill, vx_clr_init_rgb(10, 200, 30));
    }
};

TEST_F(map_window, comes_within_the_screen)
{
    Tvx_map_window const fresh;
    QSize const room = fresh.screen()->availableSize();
    EXPECT_LE(fresh.width(), room.width());
    EXPECT_LT(fresh.height(), room.height());
}

TEST_F(map_window, opens_and_draws_a_real_file)
{
    EXPECT_EQ(drawn_part(picture()), 0);
    ASSERT_EQ(open({"nc.shp"}), 1);
    EXPECT_EQ(layers().name_at(0), "nc");
    EXPECT_EQ(window->windowTitle(), "nc - Map");
    Tvx_box_d2 const extent = layers().extent_at(0);
    EXPECT_NEAR(extent.min_x, -84.32, 0.01);
    EXPECT_NEAR(extent.max_y, 36.59, 0.01);
    EXPECT_TRUE(layers().map_unit().is_degree);
    // The state fills about a third of a map that shows it whole in this window.
    EXPECT_GT(drawn_part(picture()), 0.1);
    EXPECT_LT(drawn_part(picture()), 0.7);
    EXPECT_TRUE(hand::wait_until([&] { return canvas().is_settled(); }));
}

TEST_F(map_window, properties_open_the_editor_on_the_layer_with_its_tabs)
{
    struct
    {
        char const *file;
        int tabs;
    } const cases[] = {{"nc.shp", 2}, {"streets.shp", 2}, {"naturalearth_cities.shp", 2}, {"lc.tif", 1}};
    for (auto const &c : cases) {
        ASSERT_GE(open({c.file}), 1) << c.file;
        hand::double_click(list()->viewport(), hand::text_of(list(), 0));
        ASSERT_TRUE(editor().is_showing()) << c.file;
        EXPECT_EQ(editor().layer_id(), layers().id_at(0));
        EXPECT_TRUE(editor_title().contains(layers().name_at(0))) << editor_title().toStdString();
        QStringList const tabs = editor_tabs();
        EXPECT_EQ(tabs.size(), c.tabs) << c.file;
        EXPECT_FALSE(tabs.contains(QString()));
        Ivx_layer const *copy = vx_lr2d_edt_form_get_lr2d_ptr(editor().handle());
        ASSERT_TRUE(copy);
        EXPECT_NE(copy, layers().layer_at(0));
    }
}

TEST_F(map_window, properties_are_reached_by_every_road)
{
    ASSERT_EQ(open({"nc.shp"}), 1);
    EXPECT_TRUE(window->command("properties")->isEnabled());
    run("properties");
    EXPECT_TRUE(editor().is_showing());
    editor().close();
    EXPECT_FALSE(editor().is_showing());
    hand::press(list(), Qt::Key_Return);
    EXPECT_TRUE(editor().is_showing());
    editor().close();
    hand::press(&canvas(), Qt::Key_Return, Qt::AltModifier);
    EXPECT_TRUE(editor().is_showing());
    EXPECT_TRUE(list()->actions().contains(window->command("properties")));
    // Esc closes them, but for another command with it.
    QWidget *top = editor_window();
    ASSERT_TRUE(top);
    hand::press(top->findChild<QAbstractButton *>(), Qt::Key_Escape, Qt::ControlModifier);
    EXPECT_TRUE(editor().is_showing());
    hand::press(top->findChild<QAbstractButton *>(), Qt::Key_Escape);
    EXPECT_FALSE(editor().is_showing());
    run("properties");
    EXPECT_TRUE(editor().is_showing());
}

TEST_F(map_window, apply_takes_the_copy_over_once_and_redraws)
{
    ASSERT_EQ(open({"nc.shp"}), 1);
    run("properties");
    int applied = 0;
    QObject::connect(&editor(), &Tvx_layer_editor::applied, [&] { ++applied; });
    QImage const before = picture();
    ASSERT_NO_FATAL_FAILURE(change_fill_in_editor());
    EXPECT_EQ(picture(), before);
    int const revision = layers().revision_at(0);
    ASSERT_NO_FATAL_FAILURE(click_apply());
    EXPECT_EQ(applied, 1);
    EXPECT_EQ(layers().revision_at(0), revision + 1);
    EXPECT_NE(layers().layer_at(0), vx_lr2d_edt_form_get_lr2d_ptr(editor().handle()));
    EXPECT_EQ(vx_layer_get_colors(layers().layer_at(0)).fill, vx_clr_init_rgb(10, 200, 30));
    QImage const after = picture();
    EXPECT_NE(after, before);
    int green = 0;
    for (int x = 0; x < after.width(); ++x)
        green += after.pixel(x, after.height() / 2) == qRgb(10, 200, 30);
    EXPECT_GT(green, after.width() / 4);
    EXPECT_TRUE(editor().is_showing());
}

TEST_F(map_window, apply_leaves_a_hidden_layer_hidden_and_others_alone)
{
    ASSERT_EQ(open({"world.shp", "nc.shp"}), 2);
    select(0);
    run("properties");
    ASSERT_NO_FATAL_FAILURE(change_fill_in_editor());
    hand::click(list()->viewport(), hand::check_box_of(list(), 0));
    ASSERT_FALSE(layers().is_visible(0));
    run("move_down");
    int const other = layers().revision_at(0);
    ASSERT_NO_FATAL_FAILURE(click_apply());
    EXPECT_EQ(layers().name_at(1), "nc");
    EXPECT_FALSE(layers().is_visible(1));
    EXPECT_EQ(vx_layer_get_colors(layers().layer_at(1)).fill, vx_clr_init_rgb(10, 200, 30));
    EXPECT_EQ(layers().revision_at(0), other);
}

TEST_F(map_window, one_editor_follows_the_selection)
{
    ASSERT_EQ(open({"nc.shp", "streets.shp"}), 2);
    run("properties");
    Tvx_lr2d_edit_form *const handle = editor().handle();
    for (int row : {1, 0, 1}) {
        select(row);
        EXPECT_EQ(editor().layer_id(), layers().id_at(row));
        EXPECT_TRUE(editor_title().contains(layers().name_at(row))) << editor_title().toStdString();
    }
    EXPECT_EQ(editor().handle(), handle);
    // An editor that the user has closed stays closed.
    editor_window()->close();
    QCoreApplication::processEvents();
    EXPECT_FALSE(editor().is_showing());
    select(0);
    EXPECT_FALSE(editor().is_showing());
    run("properties");
    EXPECT_EQ(editor().layer_id(), layers().id_at(0));
    EXPECT_TRUE(editor_title().contains(layers().name_at(0)));
}

TEST_F(map_window, the_edited_layer_may_go_and_so_may_the_window)
{
    ASSERT_EQ(open({"nc.shp", "streets.shp"}), 2);
    run("properties");
    run("remove");
    // The selection went to the layer that is left, and the editor with it.
    EXPECT_EQ(editor().layer_id(), layers().id_at(0));
    run("remove");
    EXPECT_EQ(layers().count(), 0);
    EXPECT_EQ(editor().layer_id(), -1);
    EXPECT_EQ(vx_lr2d_edt_form_get_lr2d_ptr(editor().handle()), nullptr);
    ASSERT_NO_FATAL_FAILURE(click_apply());
    EXPECT_EQ(layers().count(), 0);
    ASSERT_EQ(open({"nc.shp"}), 1);
    EXPECT_EQ(editor().layer_id(), layers().id_at(0));
    window->close();
    EXPECT_EQ(editor_window(), nullptr);
    window.reset();
}

TEST_F(map_window, a_window_destroyed_over_an_open_editor_takes_it_along)
{
    ASSERT_EQ(open({"nc.shp"}), 1);
    run("properties");
    ASSERT_TRUE(editor_window());
    window.reset();
    QCoreApplication::processEvents();
    for (QWidget *top : QApplication::topLevelWidgets())
        EXPECT_FALSE(top->isVisible());
}

TEST_F(map_window, visibility_and_order_change_the_picture)
{
    ASSERT_EQ(open({"world.shp", "naturalearth_cities.shp"}), 2);
    QImage const both = picture();
    hand::click(list()->viewport(), hand::check_box_of(list(), 0));
    EXPECT_FALSE(layers().is_visible(0));
    QImage const world = picture();
    EXPECT_NE(world, both);
    hand::press(list(), Qt::Key_Space);
    EXPECT_TRUE(layers().is_visible(0));
    EXPECT_EQ(picture(), both);

    select(0);
    hand::press(list(), Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(layers().name_at(1), "naturalearth_cities");
    EXPECT_EQ(window->panel().selected_row(), 1);
    QImage const below = picture();
    EXPECT_NE(below, both);
    hand::press(list(), Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(picture(), both);

    run("hide_all");
    EXPECT_EQ(drawn_part(picture()), 0);
    run("show_all");
    EXPECT_EQ(picture(), both);
    select(0);
    hand::press(list(), Qt::Key_Delete);
    EXPECT_EQ(layers().count(), 1);
    EXPECT_EQ(picture(), world);
}

TEST_F(map_window, a_double_click_on_a_check_box_is_two_clicks)
{
    ASSERT_EQ(open({"nc.shp"}), 1);
    hand::double_click(list()->viewport(), hand::check_box_of(list(), 0));
    EXPECT_FALSE(editor().is_showing());
}

TEST_F(map_window, a_double_click_on_a_sample_opens_the_style_dialog)
{
    ASSERT_EQ(open({"nc.shp"}), 1);
    EXPECT_TRUE(window->command("style")->isEnabled());
    QImage const before = picture();
    QImage const sample =
        layers().data(layers().index(0), Qt::DecorationRole).value<QIcon>().pixmap(32, 20).toImage();
    int const id = layers().id_at(0);
    auto const revision = [&] { return layers().revision_at(layers().row_of(id)); };
    int const first = revision();
    // The outline off, by the box of its tab.
    auto const act = [](bool apply) {
        vx::user_input::on_next_modal([apply](vx::user_input::modal_window const &dialog) {
            EXPECT_EQ(dialog.title(), L"Polygon style");
            auto *edit = dynamic_cast<Tvx_pgn_style_dlg &>(*dialog.form()).get_edit();
            EXPECT_TRUE(vx::user_input::click(edit->get_bpln_cb(), 10, 10));
            dialog.press_button(apply ? L"Apply" : L"Cancel");
        });
    };
    act(false);
    hand::double_click(list()->viewport(), hand::picture_of(list(), 0));
    EXPECT_FALSE(editor().is_showing());
    EXPECT_EQ(revision(), first);
    EXPECT_EQ(picture(), before);

    act(true);
    hand::double_click(list()->viewport(), hand::picture_of(list(), 0));
    EXPECT_EQ(revision(), first + 1);
    EXPECT_EQ(vx_layer_get_colors(layers().layer_at(0)).line.a, 0);
    EXPECT_NE(picture(), before);
    EXPECT_NE(layers().data(layers().index(0), Qt::DecorationRole).value<QIcon>().pixmap(32, 20).toImage(),
              sample);
    act(true);
    run("style");
    EXPECT_EQ(picture(), before) << "the outline is back";

    // A layer of classes has no one style; its styles are in the properties.
    vx_stl_mngr_set_mode(vx_shp_pgn_lr2d_get_stl_mngr_ptr(layers().layer_at(0)), c_stl_mngr_mode_value);
    hand::double_click(list()->viewport(), hand::picture_of(list(), 0));
    EXPECT_TRUE(editor().is_showing());
    EXPECT_EQ(vx::user_input::pending_modals(), 0);
}

TEST_F(map_window, the_editor_shows_what_the_style_dialog_made)
{
    ASSERT_EQ(open({"nc.shp"}), 1);
    run("properties");
    vx::user_input::on_next_modal([](vx::user_input::modal_window const &dialog) {
        auto *edit = dynamic_cast<Tvx_pgn_style_dlg &>(*dialog.form()).get_edit();
        EXPECT_TRUE(vx::user_input::click(edit->get_bpln_cb(), 10, 10));
        dialog.press_button(L"Apply");
    });
    run("style");
    ASSERT_NO_FATAL_FAILURE(click_apply());
    EXPECT_EQ(vx_layer_get_colors(layers().layer_at(0)).line.a, 0) << "Apply brings no old style back";
}

TEST_F(map_window, del_over_the_map_takes_no_layer_away)
{
    ASSERT_EQ(open({"nc.shp"}), 1);
    hand::press(&canvas(), Qt::Key_Delete);
    EXPECT_EQ(layers().count(), 1);
    hand::press(window->findChild<QComboBox *>("scale")->lineEdit(), Qt::Key_Delete);
    EXPECT_EQ(layers().count(), 1);
}

TEST_F(map_window, patterns_of_areas_move_with_the_map)
{
    ASSERT_EQ(open({"nc.shp"}), 1);
    Tvx_layer_list::layer_ptr layer(vx_lr2d_clone(layers().layer_at(0)));
    void *const style = vx_stl_prm_get_pgn_style_ptr(
        vx_stl_mngr_get_simple_sp_ptr(vx_shp_pgn_lr2d_get_stl_mngr_ptr(layer.get())), false);
    void *const fill = vx_pgn_style_get_bpgn_style_ptr(style);
    vx_bpgn_style_set_use_complex(fill, true);
    void *const list = vx_cpx_style_get_style_lrs_ptr(vx_bpgn_style_get_complex_style(fill));
    void *const hatch = vx_style_lrs_add_lr(list, "pgn_htch_slr");
    vx_pgn_htch_lr_set_angle(hatch, 30);
    void *const dashes = vx_style_lrs_add_lr(
        vx_cpx_style_get_style_lrs_ptr(vx_pgn_htch_lr_get_cpx_pln_style_ptr(hatch)), "pln_tplt_slr");
    vx_pln_tplt_lr_set_template(dashes, "10");
    void *const spots = vx_style_lrs_add_lr(list, "pgn_spot_slr");
    vx_pgn_spot_lr_set_random_x(spots, true);
    vx_pgn_spot_lr_set_random_y(spots, true);
    ASSERT_TRUE(layers().replace(layers().id_at(0), std::move(layer)));
    hand::wheel(&canvas(), {300, 250}, 4); // anywhere between the pixels
    QImage const before = picture();
    EXPECT_GT(drawn_part(before), 0.1);
    constexpr int c_dx = 61, c_dy = -33;
    hand::drag(&canvas(), {300, 250}, {300 + c_dx, 250 + c_dy});
    QImage const after = picture();
    int others = 0;
    for (int y = 80; y < before.height() - 80; ++y)
        for (int x = 80; x < before.width() - 80; ++x)
            others += std::abs(qGray(before.pixel(x, y)) - qGray(after.pixel(x + c_dx, y + c_dy))) > 8;
    EXPECT_EQ(others, 0);
}

TEST_F(map_window, the_hand_moves_the_map)
{
    ASSERT_EQ(open({"nc.shp"}), 1);
    Tvx_canvas_view const start = canvas().view();
    auto const same_view = [&] {
        return std::abs(canvas().view().center().x - start.center().x) < 1e-9 &&
               std::abs(canvas().view().units_per_pixel() - start.units_per_pixel()) < 1e-12;
    };

    EXPECT_FALSE(window->command("view_back")->isEnabled()) << "nothing was seen before the first layer";
    QPoint const at(100, 80);
    Tvx_pnt_d2 const under = start.to_map({100, 80});
    hand::wheel(&canvas(), at, 3);
    EXPECT_LT(canvas().view().units_per_pixel(), start.units_per_pixel());
    EXPECT_NEAR(canvas().view().to_map({100, 80}).x, under.x, 1e-9);
    hand::wheel(&canvas(), at, -3);
    EXPECT_TRUE(same_view());

    hand::drag(&canvas(), {200, 200}, {260, 170});
    EXPECT_NEAR(canvas().view().to_screen(start.center()).x, start.width() / 2.0 + 60, 1e-6);
    EXPECT_NEAR(canvas().view().to_screen(start.center()).y, start.height() / 2.0 - 30, 1e-6);
    hand::drag(&canvas(), {260, 170}, {200, 200}, Qt::MiddleButton);
    EXPECT_TRUE(same_view());

    Tvx_pnt_d2 const corner = start.to_map({100, 100});
    hand::drag(&canvas(), {100, 100}, {200, 150}, Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_LT(canvas().view().units_per_pixel(), start.units_per_pixel());
    EXPECT_LE(canvas().view().box().min_x, corner.x + 1e-9);
    EXPECT_GE(canvas().view().box().max_y, corner.y - 1e-9);
    run("view_back");
    EXPECT_TRUE(same_view());
    run("view_forward");
    EXPECT_FALSE(same_view());
    hand::press(&canvas(), Qt::Key_Home);
    EXPECT_TRUE(same_view());

    hand::press(&canvas(), Qt::Key_Left);
    EXPECT_LT(canvas().view().center().x, start.center().x);
    hand::press(&canvas(), Qt::Key_Right);
    hand::press(&canvas(), Qt::Key_Plus);
    EXPECT_LT(canvas().view().units_per_pixel(), start.units_per_pixel());
    hand::press(&canvas(), Qt::Key_Minus);
    EXPECT_TRUE(same_view());

    // Esc gives a box up, and a click in place of a box zooms in.
    run("zoom_box_tool");
    hand::click(&canvas(), {300, 200});
    EXPECT_LT(canvas().view().units_per_pixel(), start.units_per_pixel());
}

TEST_F(map_window, the_status_bar_tells_place_and_scale)
{
    ASSERT_EQ(open({"streets.shp"}), 1);
    EXPECT_FALSE(layers().map_unit().is_degree);
    EXPECT_NEAR(layers().map_unit().metres, 0.3048006, 1e-7);
    auto *coordinates = window->findChild<QLabel *>("coordinates");
    hand::move(&canvas(), {50, 50});
    Tvx_pnt_d2 const place = canvas().view().to_map({50, 50});
    EXPECT_TRUE(coordinates->text().startsWith(QString::number(qint64(place.x)).left(5)))
        << coordinates->text().toStdString();

    // The map moving under a pointer that rests is another place too.
    QString const before = coordinates->text();
    hand::press(&canvas(), Qt::Key_Left);
    EXPECT_NE(coordinates->text(), before);

    auto *scale = window->findChild<QComboBox *>("scale");
    scale->lineEdit()->selectAll();
    hand::type(scale->lineEdit(), "1:5000\n");
    EXPECT_NEAR(vx_map_scale(canvas().view(), layers().map_unit(), vx_options_get_mm2px_x()), 5000, 1e-6);
    EXPECT_EQ(scale->currentText(), QString::fromUtf8("1 : 5\u2009000"));
    // Nonsense gives the scale back that holds.
    scale->lineEdit()->selectAll();
    hand::type(scale->lineEdit(), "wide\n");
    EXPECT_EQ(scale->currentText(), QString::fromUtf8("1 : 5\u2009000"));
}

TEST_F(map_window, files_that_cannot_be_opened_give_one_message_that_names_them_once)
{
    vx_test::temp_dir const directory;
    auto const write = [&](char const *name, std::string_view bytes) {
        vx_test::write_file(directory / name, bytes);
    };
    std::string const whole = vx_test::read_file(VX_EXAMPLE_DATA "/nc.shp");
    write("empty.csv", "");
    write("words.csv", "a,b\n1,2\n");
    write("none.geojson", "{\"type\":\"FeatureCollection\",\"features\":[]}");
    write("noise.gpkg", "SQLite format 3 and so on");
    write("cut.shp", whole.substr(0, 60));
    write("noise.tif", "II*\x01\xff\xff\xff\x7f not a picture");
    write("letter.txt", "Dear map,");
    write("broken.geojson", "{\"type\":\"FeatureCollection\",\"features\":[{\"type\":");
    std::filesystem::create_directory(directory / "folder");
    ASSERT_EQ(mkfifo((directory / "pipe.shp").c_str(), 0600), 0);

    struct
    {
        char const *name, *reason;
        bool library_speaks;
    } const files[] = {{"missing.shp", "The file does not exist.", false},
                       {"empty.csv", "The file is empty.", false},
                       {"cut.shp", "", true},
                       {"noise.tif", "", false},
                       {"noise.gpkg", "No driver can open", false},
                       {"words.csv", "has no columns of coordinates.", false},
                       {"none.geojson", "holds no vector data.", false},
                       {"letter.txt", "", false},
                       {"broken.geojson", "", true},
                       {"folder", "This folder holds no data set.", false},
                       {"pipe.shp", "", false}};
    for (char const *const language : {"en", "ru"}) {
        vx_options_set_language(language);
        for (auto const &[name, reason, library_speaks] : files) {
            SCOPED_TRACE(testing::Message() << name << " " << language);
            message_reader messages;
            testing::internal::CaptureStderr();
            testing::internal::CaptureStdout();
            QString const path = QString::fromStdString((directory / name).string());
            EXPECT_EQ(window->open_files({path}), 0);
            // What the format's library said is there for those who look for it, and nowhere in the message.
            auto const noise = testing::internal::GetCapturedStderr();
            EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
            ASSERT_EQ(messages.texts.size(), 1);
            QString const text = messages.texts.front();
            EXPECT_EQ(text.count(path), 1) << text.toStdString();
            EXPECT_EQ(library_speaks, noise.starts_with(text.toStdString() + "\n")) << noise;
            EXPECT_TRUE(library_speaks || noise.empty()) << noise;
            // A sentence that says why.
            EXPECT_GT(text.size(), path.size() + 15) << text.toStdString();
            EXPECT_FALSE(text.contains("|layer=")) << text.toStdString();
            EXPECT_TRUE(text.contains(reason) || std::string_view(language) == "ru") << text.toStdString();
            if (std::string_view(language) == "ru") {
                EXPECT_EQ(vx_test::latin_words(QString(text).remove(path).toStdWString()), L"")
                    << text.toStdString();
            }
            EXPECT_EQ(layers().count(), 0);
        }
    }

    // Good files among bad ones are opened, and all bad ones share a message.
    message_reader messages;
    QString const bad = QString::fromStdString((directory / "missing").string());
    QString const broken = QString::fromStdString((directory / "broken.geojson").string());
    EXPECT_EQ(window->open_files({bad + "1", example_file("nc.shp"), broken, bad + "2"}), 1);
    ASSERT_EQ(messages.texts.size(), 1);
    for (QString const &name : {bad + "1", broken, bad + "2"})
        EXPECT_EQ(messages.texts.front().count(name), 1) << messages.texts.front().toStdString();
}

TEST_F(map_window, messages_name_the_program_as_its_window_does)
{
    EXPECT_EQ(window->windowTitle(), "Map");
    ASSERT_EQ(open({"nc.shp"}), 1);
    EXPECT_TRUE(window->windowTitle().endsWith(" - Map")) << window->windowTitle().toStdString();
    vx::user_input::on_next_modal([](vx::user_input::modal_window const &box) {
        EXPECT_EQ(box.title(), L"Map");
        box.accept();
    });
    vx_reason_report(L"From the library.");
}

TEST_F(map_window, a_raster_is_listed_and_drawn)
{
    ASSERT_EQ(open({"olinda_dem_utm25s.tif"}), 1);
    EXPECT_STREQ(vx_lr2d_get_lr_type(layers().layer_at(0)), c_lr_key_rtr);
    EXPECT_FALSE(layers().extent_at(0).is_empty());
    EXPECT_FALSE(window->statusBar()->currentMessage().contains("not drawn"));
    EXPECT_GT(drawn_part(picture()), 0.3);
}

TEST_F(map_window, every_layer_of_a_file_comes_areas_below_points)
{
    vx_test::temp_dir const directory;
    auto const placemark = [](char const *geometry) {
        return "<Placemark><name>x</name>" + std::string(geometry) + "</Placemark>";
    };
    std::ofstream(directory / "two & more.kml")
        << "<?xml version=\"1.0\"?><kml xmlns=\"http://www.opengis.net/kml/2.2\"><Document>"
        << "<Folder><name>towns</name>" << placemark("<Point><coordinates>1,2</coordinates></Point>")
        << "</Folder>"
        << "<Folder><name>lands</name>"
        << placemark("<Polygon><outerBoundaryIs><LinearRing><coordinates>0,0 3,0 3,3 0,0</coordinates>"
                     "</LinearRing></outerBoundaryIs></Polygon>")
        << "</Folder></Document></kml>";
    ASSERT_EQ(window->open_files({QString::fromStdString((directory / "two & more.kml").string())}), 2);
    EXPECT_EQ(layers().name_at(0), "towns");
    EXPECT_EQ(layers().name_at(1), "lands");
    EXPECT_STREQ(vx_lr2d_get_lr_type(layers().layer_at(0)), c_lr_key_shp_pnt);
    EXPECT_STREQ(vx_lr2d_get_lr_type(layers().layer_at(1)), c_lr_key_shp_pgn);
    EXPECT_GT(drawn_part(picture()), 0.05);
}

TEST_F(map_window, dropped_files_are_opened)
{
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(example_file("nc.shp")), QUrl("https://example.org/x.shp")});
    QDragEnterEvent enter({10, 10}, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &enter);
    ASSERT_TRUE(enter.isAccepted());
    QDropEvent drop({10, 10}, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &drop);
    EXPECT_TRUE(hand::wait_until([&] { return layers().count() == 1; }));
}

TEST_F(map_window, the_first_files_are_shown_whole_and_later_ones_leave_the_view)
{
    ASSERT_EQ(open({"nc.shp"}), 1);
    Tvx_canvas_view const view = canvas().view();
    ASSERT_EQ(open({"streets.shp"}), 1);
    EXPECT_EQ(canvas().view(), view);
    EXPECT_TRUE(window->statusBar()->currentMessage().contains("other coordinates"));
    run("zoom_to_layer");
    EXPECT_TRUE(layers().extent_at(0).intersects(canvas().view().box()));
    // A map that is shown whole stays whole when the window changes.
    window->resize(500, 400);
    QCoreApplication::processEvents();
    Tvx_box_d2 const seen = canvas().view().box();
    EXPECT_LE(seen.min_x, layers().extent_at(0).min_x);
    EXPECT_GE(seen.max_y, layers().extent_at(0).max_y);
}

TEST_F(map_window, every_command_and_text_exists_in_both_languages)
{
    for (char const *language : {"en", "ru"}) {
        ASSERT_TRUE(vx_options_set_language(language));
        Tvx_map_window translated;
        for (QAction *action : translated.findChildren<QAction *>(Qt::FindDirectChildrenOnly)) {
            EXPECT_FALSE(action->text().isEmpty()) << action->objectName().toStdString();
            EXPECT_FALSE(action->text().startsWith('#')) << action->text().toStdString();
            EXPECT_FALSE(action->toolTip().contains('#')) << action->toolTip().toStdString();
        }
        for (QMenu *menu : translated.findChildren<QMenu *>()) {
            QStringList keys;
            for (QAction *line : menu->actions())
                if (int const at = int(line->text().indexOf('&')); at >= 0)
                    keys.append(line->text().mid(at + 1, 1).toUpper());
            EXPECT_EQ(keys.removeDuplicates(), 0) << language << ": " << menu->title().toStdString();
        }
    }
    vx_options_set_language("en");
}

TEST(map_window_state, comes_back_in_the_next_session)
{
    vx_qt_ensure_application();
    vx_test::temp_dir const directory;
    QSettings settings(QString::fromStdString((directory / "vx_map.ini").string()), QSettings::IniFormat);
    {
        Tvx_map_window window(&settings);
        window.show();
        window.setGeometry(100, 120, 777, 555);
        EXPECT_EQ(window.open_files({example_file("nc.shp")}), 1);
        window.close();
    }
    Tvx_map_window window(&settings);
    window.show();
    EXPECT_EQ(window.size(), QSize(777, 555));
    EXPECT_EQ(settings.value("files/recent").toStringList(),
              QStringList{QDir::cleanPath(example_file("nc.shp"))});
}
} // namespace
