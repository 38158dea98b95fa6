#include "answerer.h"
#include "bundles/gdal_drivers/writing.h"
#include "host/layer_classes.h"
#include "host/layer_editor.h"
#include "host/layer_scales.h"
#include "host/map_scene.h"
#include "map_fixture.h"
#include "support/temp_dir.h"

#include "platform/layers/vx_shp_lr2d.h"
#include "platform/styles/vxk_styles.h"

#include <QDir>
#include <QLineEdit>
#include <QProcess>
#include <QTreeView>

#include <csignal>
#include <sqlite3.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace vx_test;

namespace {
class map_scene : public map_fixture
{
protected:
    QString file(char const *name) { return QString::fromStdString((folder / name).string()); }

    void copy_example(char const *name)
    {
        for (auto const &entry : std::filesystem::directory_iterator(VX_EXAMPLE_DATA))
            if (entry.path().stem() == name || entry.path().stem().stem() == name)
                std::filesystem::copy(entry.path(), folder.path());
    }
    /// The counties by ranges over the world by values, the first class hidden, seen at some place.
    void make_map()
    {
        copy_example("nc");
        ASSERT_EQ(window->open_files({example_file("world.shp"), file("nc.shp")}), 2);
        for (int row = 0; row < 2; ++row) {
            Tvx_layer_list::layer_ptr copy(vx_lr2d_clone(layers().layer_at(row)));
            std::wstring reason;
            ASSERT_TRUE(
                vx_layer_draw_by(copy.get(), vx_layer_scales_find(copy.get()).at(row == 0 ? 1 : 0), reason));
            ASSERT_TRUE(layers().replace(layers().id_at(row), std::move(copy)));
        }
        ASSERT_TRUE(layers().set_class_visible(0, 0, false));
        ASSERT_TRUE(layers().rename(0, "Counties & <more>"));
        Tvx_canvas_view view = canvas().view();
        view.set_center({-79.5, 35.25});
        view.set_units_per_pixel(0.0123);
        canvas().go_to(view);
    }
    QModelIndex class_at(int row, int place) { return layers().index(place, 0, layers().index(row)); }

    temp_dir folder;
};

TEST_F(map_scene, opens_in_another_process_as_it_was_saved)
{
    window->resize(1360, 860);
    ASSERT_NO_FATAL_FAILURE(make_map());
    answerer answers("", file("counties"));
    run("save_scene");
    ASSERT_EQ(answers.questions, QStringList{"Save Map"});
    ASSERT_TRUE(QFile::exists(file("counties_.sn")));
    EXPECT_FALSE(window->is_changed());
    EXPECT_EQ(window->windowTitle(), "counties[*] - Counties & <more> - Map");
    QImage const saved = picture();
    EXPECT_GT(drawn_part(saved), 0.3);

    // Both moved together, and the first one's data in their old place gone.
    QDir().rename(QString::fromStdString(folder.path().string()),
                  QString::fromStdString(folder.path().string()) + "_moved");
    QString const moved = QString::fromStdString(folder.path().string()) + "_moved";
    expect_shown_elsewhere(moved + "/counties_.sn", saved, moved + "/shots");
    std::filesystem::remove_all(moved.toStdString());
}

TEST_F(map_scene, keeps_all_that_it_was_given)
{
    ASSERT_NO_FATAL_FAILURE(make_map());
    QImage const before = picture();
    ASSERT_TRUE(vx_map_scene_save(file("a_.sn"), layers(), canvas().view()));
    std::string const bytes = read_file(folder / "a_.sn");
    {
        answerer answers("lose");
        EXPECT_EQ(window->open_files({file("a_.sn"), example_file("naturalearth_cities.shp")}), 3);
        ASSERT_EQ(answers.questions.size(), 1) << "the map had changes that no file has";
    }
    EXPECT_TRUE(window->is_changed()) << "the cities came on top of it";
    hand::click(list()->viewport(), hand::text_of(list(), 0));
    hand::press(list(), Qt::Key_Delete);
    EXPECT_EQ(picture(), before);
    EXPECT_EQ(layers().name_at(0), "Counties & <more>");
    EXPECT_EQ(vx_layer_class_visible(layers().layer_at(0), 0), false);
    ASSERT_TRUE(window->save_scene());
    EXPECT_EQ(read_file(folder / "a_.sn"), bytes);
    EXPECT_EQ(folder.count(), 8) << "a save leaves nothing beside it";

    // By a link the same map is opened and saved, with its data where they are.
    std::filesystem::create_directory(folder / "links");
    std::filesystem::create_symlink(folder / "a_.sn", folder / "links" / "b_.sn");
    ASSERT_EQ(window->open_files({file("links/b_.sn")}), 2);
    EXPECT_EQ(layers().mark_at(0), c_mark_none);
    ASSERT_TRUE(window->save_scene());
    EXPECT_EQ(read_file(folder / "a_.sn"), bytes);
}

TEST_F(map_scene, is_asked_about_before_it_is_lost)
{
    ASSERT_NO_FATAL_FAILURE(make_map());
    ASSERT_TRUE(vx_map_scene_save(file("old_.sn"), layers(), canvas().view()));
    EXPECT_TRUE(window->is_changed());
    int const count = layers().count();
    for (int const way : {0, 1, 2}) {
        answerer answers("cancel");
        if (way == 0)
            run("new_scene");
        else if (way == 1)
            EXPECT_EQ(window->open_files({file("old_.sn")}), 0);
        else
            EXPECT_FALSE(window->close());
        EXPECT_EQ(answers.questions.size(), 1) << way;
        EXPECT_EQ(layers().count(), count) << way;
        EXPECT_TRUE(window->isVisible());
    }
    {
        // Yes, but then no name for it: nothing is lost.
        answerer answers("save");
        run("new_scene");
        EXPECT_EQ(answers.questions.size(), 2);
        EXPECT_EQ(layers().count(), count);
    }
    {
        // An existing file is not replaced unasked, also when its suffix was not typed.
        answerer answers("save", file("old"));
        run("new_scene");
        EXPECT_EQ(answers.questions.size(), 3);
        EXPECT_EQ(layers().count(), count);
    }
    {
        answerer answers("save", file("new"));
        run("new_scene");
        EXPECT_EQ(answers.questions.size(), 2);
    }
    EXPECT_EQ(layers().count(), 0);
    EXPECT_EQ(window->windowTitle(), "Map");
    EXPECT_TRUE(QFile::exists(file("new_.sn")));

    // What is only looked at is no work; what is saved is not asked about.
    answerer answers("cancel");
    ASSERT_EQ(open({"nc.shp"}), 1);
    EXPECT_FALSE(window->is_changed());
    run("new_scene");
    ASSERT_EQ(window->open_files({file("new_.sn")}), 2);
    EXPECT_FALSE(window->is_changed());
    hand::wheel(&canvas(), {200, 200}, 2);
    EXPECT_FALSE(window->is_changed()) << "to look about is no change";
    hand::press(list(), Qt::Key_Space);
    EXPECT_TRUE(window->is_changed());
    EXPECT_TRUE(window->isWindowModified());
    run("save_scene");
    EXPECT_FALSE(window->isWindowModified());
    EXPECT_TRUE(window->close());
    EXPECT_EQ(answers.questions, QStringList());
}

TEST_F(map_scene, of_any_damage_is_refused_and_what_there_is_stays)
{
    ASSERT_NO_FATAL_FAILURE(make_map());
    ASSERT_TRUE(vx_map_scene_save(file("a_.sn"), layers(), canvas().view()));
    std::string const whole = read_file(folder / "a_.sn");
    ASSERT_LT(whole.size(), 60000u);
    for (std::size_t size = 0; size + 1 < whole.size(); size += 1 + size / 50) {
        write_file(folder / "b_.sn", whole.substr(0, size));
        ASSERT_FALSE(vx_map_scene_load(file("b_.sn")).error.isEmpty()) << size;
        std::string flipped = whole;
        flipped[size] = char(flipped[size] ^ 4);
        write_file(folder / "b_.sn", flipped);
        ASSERT_FALSE(vx_map_scene_load(file("b_.sn")).error.isEmpty()) << size;
    }
    answerer answers("lose");
    QImage const before = picture();
    for (std::string const &foreign : {std::string(), std::string("<vx_scale version=\"1\"/>"),
                                       std::string("\0\0", 2), whole.substr(0, 900)}) {
        write_file(folder / "b_.sn", foreign);
        EXPECT_EQ(window->open_files({file("b_.sn")}), 0);
        EXPECT_EQ(layers().count(), 2);
    }
    EXPECT_EQ(window->open_files({file("gone_.sn")}), 0);
    EXPECT_EQ(answers.questions.size(), 10) << "whether to lose the changes, and what was wrong";
    EXPECT_EQ(picture(), before);
    EXPECT_TRUE(window->is_changed());
}

TEST_F(map_scene, keeps_layers_whose_data_are_gone)
{
    ASSERT_NO_FATAL_FAILURE(make_map());
    ASSERT_TRUE(vx_map_scene_save(file("a_.sn"), layers(), canvas().view()));
    QImage const before = picture();
    std::string const bytes = read_file(folder / "a_.sn");
    std::filesystem::rename(folder / "nc.shp", folder / "away.shp");
    {
        answerer answers("lose");
        ASSERT_EQ(window->open_files({file("a_.sn")}), 2);
        ASSERT_EQ(answers.questions.size(), 2);
        EXPECT_TRUE(answers.questions.back().contains("Counties")) << answers.questions.back().toStdString();
    }
    EXPECT_EQ(layers().mark_at(0), c_mark_missing);
    EXPECT_EQ(layers().mark_at(1), c_mark_none);
    QString const tip = layers().data(layers().index(0), Qt::ToolTipRole).toString();
    EXPECT_TRUE(tip.contains("kept with its style")) << tip.toStdString();
    EXPECT_TRUE(hand::wait_until([&] { return canvas().is_settled(); }));
    ASSERT_TRUE(window->save_scene());
    EXPECT_EQ(read_file(folder / "a_.sn"), bytes) << "nothing of the layer is lost";
    std::filesystem::rename(folder / "away.shp", folder / "nc.shp");
    ASSERT_EQ(window->open_files({file("a_.sn")}), 2);
    EXPECT_EQ(layers().mark_at(0), c_mark_none);
    EXPECT_EQ(picture(), before);

    // Points where areas were: they are shown, in a style of their own.
    for (char const *suffix : {"shp", "shx", "dbf"})
        std::filesystem::copy_file(std::string(VX_EXAMPLE_DATA "/naturalearth_cities.") + suffix,
                                   folder / (std::string("nc.") + suffix),
                                   std::filesystem::copy_options::overwrite_existing);
    answerer answers("");
    ASSERT_EQ(window->open_files({file("a_.sn")}), 2);
    EXPECT_EQ(answers.questions.size(), 1);
    EXPECT_STREQ(vx_lr2d_get_lr_type(layers().layer_at(0)), "shp_pnt_lr2d");
    EXPECT_EQ(layers().mark_at(0), c_mark_none);
}

TEST_F(map_scene, offers_to_repair_what_was_not_closed)
{
    auto const sql = [&](char const *statements, bool is_killed) {
        pid_t const child = fork();
        if (child == 0) {
            sqlite3 *base = nullptr;
            sqlite3_open((folder / "cut.gpkg").c_str(), &base);
            sqlite3_exec(base, statements, nullptr, nullptr, nullptr);
            if (is_killed)
                raise(SIGKILL);
            sqlite3_close(base);
            _exit(0);
        }
        waitpid(child, nullptr, 0);
    };
    {
        source const made(file("cut.gpkg").toStdWString(), 2);
        ASSERT_TRUE(made.table.create_vector(L"t|SPATIAL_INDEX=NO", 1, 0, definition({{L"s", 1}})));
        for (int i = 0; i < 300; ++i)
            ASSERT_TRUE(add(made, [&](vx::feature f) {
                Tvx_vtx_d2 place{1.0 * i, 2};
                EXPECT_TRUE(f.set_point(&place));
            }));
    }
    sql("UPDATE t SET s = hex(randomblob(1000))", false);
    auto const cut = [&] {
        sql("PRAGMA cache_size=1; PRAGMA cache_spill=1; BEGIN IMMEDIATE; UPDATE t SET s = "
            "hex(randomblob(1000))",
            true);
        ASSERT_TRUE(QFile::exists(file("cut.gpkg-journal")));
    };
    cut();
    {
        answerer answers("cancel");
        EXPECT_EQ(window->open_files({file("cut.gpkg")}), 0);
        ASSERT_EQ(answers.questions.size(), 1);
        EXPECT_EQ(answers.questions.front().count("cut.gpkg"), 1) << answers.questions.front().toStdString();
        EXPECT_TRUE(QFile::exists(file("cut.gpkg-journal"))) << "who says no has what was there";
    }
    answerer answers("repair");
    EXPECT_EQ(window->open_files({file("cut.gpkg")}), 1);
    EXPECT_FALSE(QFile::exists(file("cut.gpkg-journal")));
    EXPECT_EQ(layers().count(), 1);
    // A map whose data were broken off after it was saved.
    vx_lr2d_set_wcaption(layers().layer_at(0), L"Broken off");
    ASSERT_TRUE(vx_map_scene_save(file("map_.sn"), layers(), Tvx_canvas_view()));
    layers().clear();
    cut();
    EXPECT_EQ(window->open_files({file("map_.sn")}), 1);
    EXPECT_EQ(answers.questions.size(), 2) << answers.questions.join("\n").toStdString();
    ASSERT_EQ(layers().count(), 1);
    EXPECT_EQ(layers().name_at(0), "Broken off");
    EXPECT_EQ(layers().mark_at(0), c_mark_none);
}

TEST_F(map_scene, asks_for_passwords_that_no_file_has)
{
    Tvx_layer_list servers;
    for (wchar_t const *source : {L"PG:host=127.0.0.1 port=1 password=tiger|layer=a",
                                  L"PG:host=127.0.0.1 port=1 password=tiger|layer=b"}) {
        Tvx_layer_list::layer_ptr layer(vx_shp_lr2d_create("shp_pnt_lr2d", source));
        ASSERT_GT(servers.add(std::move(layer)), 0);
    }
    ASSERT_TRUE(vx_map_scene_save(file("a_.sn"), servers, {}));
    EXPECT_EQ(read_file(folder / "a_.sn").find("tiger"), std::string::npos);
    for (bool const knows : {true, false}) {
        answerer answers("", knows ? "tiger" : "");
        ASSERT_EQ(window->open_files({file("a_.sn")}), 2);
        EXPECT_EQ(answers.questions.count("Password"), 1) << "one server";
        EXPECT_EQ(layers().mark_at(0), c_mark_missing);
        std::wstring source;
        vx_lr2d_get_wfilename(layers().layer_at(0), Tvx_std_wstring_adapter(source));
        EXPECT_EQ(source.find(L"tiger") != source.npos, knows);
    }
    answerer answers("lose");
    run("new_scene");
}

TEST_F(map_scene, is_old_or_new_when_the_program_is_killed_in_a_save)
{
    ASSERT_NO_FATAL_FAILURE(make_map());
    ASSERT_TRUE(vx_map_scene_save(file("a_.sn"), layers(), canvas().view()));
    std::string const one = read_file(folder / "a_.sn");
    ASSERT_TRUE(layers().rename(0, "another"));
    ASSERT_TRUE(vx_map_scene_save(file("a_.sn"), layers(), canvas().view()));
    std::string const two = read_file(folder / "a_.sn");
    ASSERT_NE(one, two);
    for (int turn = 0; turn < 12; ++turn) {
        pid_t const saver = fork();
        if (saver == 0)
            for (int i = 0;; ++i) {
                (void)layers().rename(0, i % 2 ? "another" : "Counties & <more>");
                (void)vx_map_scene_save(file("a_.sn"), layers(), canvas().view());
            }
        std::this_thread::sleep_for(std::chrono::milliseconds(10 + 7 * turn));
        kill(saver, SIGKILL);
        waitpid(saver, nullptr, 0);
        std::string const found = read_file(folder / "a_.sn");
        ASSERT_TRUE(found == one || found == two) << turn;
    }
}

// ---- the list of layers as a legend

TEST_F(map_scene, classes_are_listed_with_a_tick_that_the_map_follows)
{
    ASSERT_NO_FATAL_FAILURE(make_map());
    ASSERT_EQ(layers().rowCount(layers().index(0)), 7) << "below, 4 ranges, above, other values";
    EXPECT_TRUE(list()->isExpanded(layers().index(0)));
    EXPECT_EQ(layers().data(class_at(0, 1), Qt::DisplayRole).toString(), "500 - 1000");
    EXPECT_EQ(layers().data(class_at(0, 6), Qt::DisplayRole).toString(), "Other values");
    EXPECT_FALSE(layers().data(class_at(0, 1), Qt::DecorationRole).value<QIcon>().isNull());

    select(0);
    QImage const before = picture();
    int const revision = layers().revision_at(0);
    // By the mouse, and back by the keyboard.
    QRect const line = list()->visualRect(class_at(0, 2));
    hand::click(list()->viewport(), QPoint(line.left() + 10, line.center().y()));
    EXPECT_EQ(vx_layer_class_visible(layers().layer_at(0), 2), false);
    EXPECT_EQ(layers().revision_at(0), revision + 1);
    EXPECT_EQ(window->panel().selected_row(), 0) << "a class belongs to its layer";
    QImage const hidden = picture();
    EXPECT_NE(hidden, before);
    list()->setCurrentIndex(class_at(0, 2));
    hand::press(list(), Qt::Key_Space);
    EXPECT_EQ(picture(), before);
    EXPECT_TRUE(list()->isExpanded(layers().index(0)));

    // Drawn in one style there are no classes.
    Tvx_layer_list::layer_ptr copy(vx_lr2d_clone(layers().layer_at(0)));
    ASSERT_TRUE(vx_layer_draw_simple(copy.get()));
    ASSERT_TRUE(layers().replace(layers().id_at(0), std::move(copy)));
    EXPECT_EQ(layers().rowCount(layers().index(0)), 0);
}

TEST_F(map_scene, several_managers_draw_in_turn_and_are_listed_in_either_order)
{
    ASSERT_EQ(open({"nc.shp"}), 1);
    Tvx_layer_list::layer_ptr copy(vx_lr2d_clone(layers().layer_at(0)));
    void *const managers = vx_shp_lr2d_get_style_mngr_list_ptr(copy.get());
    void *const upper = vx_stl_mngr_list_add(managers);
    vx_stl_mngr_set_name_w(upper, L"Upper");
    void *const style = vx_stl_prm_get_pgn_style_ptr(vx_stl_mngr_get_simple_sp_ptr(upper), false);
    vx_pgn_style_set_pgn_visible(style, false);
    vx_pgn_style_set_pln_visible(style, true);
    vx_bpln_style_set_color(vx_pgn_style_get_bpln_style_ptr(style), vx_clr_init_rgb(255, 0, 0));
    vx_bpln_style_set_width(vx_pgn_style_get_bpln_style_ptr(style), 1);
    QImage const before = picture();
    ASSERT_TRUE(layers().replace(layers().id_at(0), std::move(copy)));
    QImage const after = picture();
    EXPECT_NE(after, before);
    int red = 0;
    for (int x = 0; x < after.width(); ++x)
        red += after.pixel(x, after.height() / 2) == qRgb(255, 0, 0);
    EXPECT_GT(red, 10) << "the outline of the second lies on the fill of the first";
    auto const name = [&](int place) {
        return layers().data(class_at(0, place), Qt::DisplayRole).toString();
    };
    ASSERT_EQ(layers().rowCount(layers().index(0)), 2);
    EXPECT_EQ(name(1), "Upper");
    EXPECT_FALSE(layers().data(class_at(0, 1), Qt::CheckStateRole).isValid());
    run("invert_managers");
    EXPECT_EQ(name(0), "Upper");
    EXPECT_EQ(vx_layer_class_of(layers().layer_at(0), 1, 0), 0);
    run("invert_managers");
    EXPECT_EQ(name(1), "Upper");
    EXPECT_EQ(picture(), after) << "the order of drawing is the list's own";
}

TEST_F(map_scene, layers_get_other_names_and_the_styles_of_others)
{
    ASSERT_EQ(open({"world.shp", "streets.shp", "nc.shp"}), 3);
    select(0);
    run("rename");
    auto *edit = list()->findChild<QLineEdit *>();
    ASSERT_TRUE(edit);
    edit->selectAll();
    hand::type(edit, "Counties\n");
    EXPECT_EQ(layers().name_at(0), "Counties");
    EXPECT_FALSE(window->editor().is_showing()) << "the key that ends the name does nothing else";
    EXPECT_EQ(window->windowTitle(), "Untitled[*] - Counties - Map");
    hand::press(list(), Qt::Key_F2);
    ASSERT_TRUE(edit = list()->findChild<QLineEdit *>());
    edit->clear();
    hand::press(edit, Qt::Key_Return);
    EXPECT_EQ(layers().name_at(0), "nc") << "without a name it is called as its file";

    EXPECT_FALSE(window->command("paste_style")->isEnabled());
    hand::press(list(), Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    select(1);
    EXPECT_FALSE(window->command("paste_style")->isEnabled()) << "lines are not drawn as areas";
    select(2);
    ASSERT_TRUE(window->command("paste_style")->isEnabled());
    QImage const before = picture();
    hand::press(list(), Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_NE(picture(), before);
    EXPECT_EQ(vx_layer_get_colors(layers().layer_at(2)).fill, vx_layer_get_colors(layers().layer_at(0)).fill);
    EXPECT_EQ(layers().name_at(2), "world");
}
} // namespace
