#include "answerer.h"
#include "host/property_import.h"
#include "map_fixture.h"
#include "support/temp_dir.h"

#include "platform/data/vx_file_tos4.h"
#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_tos_lr2d.h"

#include <QFileInfo>
#include <QStatusBar>

using namespace vx_test;

namespace {
class property_import : public map_fixture
{
protected:
    [[nodiscard]] QString path(char const *name) const
    {
        return QString::fromStdString((f_folder / name).string());
    }
    QString text_file(char const *name, std::string_view bytes)
    {
        write_file(f_folder / name, bytes);
        return path(name);
    }
    int run_line(QString const &target, QStringList const &sources)
    {
        std::vector<std::string> arguments = {"--import-property-file", target.toStdString()};
        for (QString const &source : sources)
            arguments.push_back(source.toStdString());
        return vx_property_import_run(vx_command_line_parse(arguments));
    }
    /// The file dialogs of the command, answered in turn.
    void import_by_hand(QString const &source, QString const &target)
    {
        run_with("import_properties", {source, target});
    }
    void run_with(char const *command, QStringList texts)
    {
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, [&] {
            auto *const asked = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
            if (!asked || texts.isEmpty())
                return;
            auto *edit = asked->findChild<QLineEdit *>();
            edit->setText(texts.takeFirst());
            hand::press(edit, Qt::Key_Return);
        });
        timer.start(5);
        run(command);
    }
    [[nodiscard]] std::string top_key() { return vx_lr2d_get_lr_type(layers().layer_at(0)); }

    temp_dir f_folder;
};
} // namespace

TEST_F(property_import, by_hand_makes_a_file_and_shows_it)
{
    import_by_hand(example_file("olinda_dem_utm25s.tif"), path("hills"));
    ASSERT_EQ(layers().count(), 1);
    EXPECT_TRUE(QFileInfo::exists(path("hills.tos4"))) << "the suffix is given";
    EXPECT_EQ(top_key(), c_lr_key_tos_grid);
    EXPECT_EQ(layers().name_at(0), "hills");
    EXPECT_TRUE(window->statusBar()->currentMessage().contains("hills.tos4"));
    QImage const shown = picture();
    EXPECT_GT(drawn_part(shown), 0.2);
    Tvx_box_d2 const extent = layers().extent_at(0);
    ASSERT_EQ(open({"olinda_dem_utm25s.tif"}), 1);
    Tvx_box_d2 const raster = layers().extent_at(0);
    EXPECT_NEAR(extent.min_x, raster.min_x, 1e-6);
    EXPECT_NEAR(extent.max_y, raster.max_y, 1e-6);
    EXPECT_NEAR(extent.width(), raster.width(), 1e-6);
    EXPECT_NEAR(extent.height(), raster.height(), 1e-6);

    // A map with it opens again.
    vx_lr2d_set_visible(layers().layer_at(0), false);
    answerer const saves("", path("map.sn"));
    EXPECT_TRUE(window->save_scene());
    EXPECT_TRUE(window->new_scene());
    EXPECT_EQ(window->open_files({path("map.sn")}), 2);
    EXPECT_EQ(vx_lr2d_get_lr_type(layers().layer_at(1)), std::string(c_lr_key_tos_grid));
    EXPECT_EQ(layers().extent_at(1).min_x, extent.min_x);
    EXPECT_EQ(picture(), shown);
}

TEST_F(property_import, what_cannot_be_imported_is_told)
{
    message_reader messages;
    import_by_hand(example_file("nc.shp"), path("a.tos4"));
    ASSERT_EQ(messages.texts.size(), 1);
    EXPECT_TRUE(messages.texts[0].contains("lines or areas"));
    EXPECT_EQ(layers().count(), 0);
    EXPECT_EQ(f_folder.count(), 0);
}

TEST_F(property_import, further_properties_are_added_to_the_file_of_a_layer)
{
    auto const grid = [&](char const *name, char const *origin, char const *values) {
        return text_file(name, std::string("ncols 2\nnrows 1\ncellsize 1\nyllcorner 0\nxllcorner ") + origin +
                                   "\n" + values + "\n");
    };
    auto const first = grid("first.asc", "0", "1 5");
    EXPECT_FALSE(window->command("add_properties")->isEnabled());
    import_by_hand(first, path("a.tos4"));
    ASSERT_EQ(layers().count(), 1);
    ASSERT_TRUE(window->command("add_properties")->isEnabled());
    struct
    {
        QString source;
        char const *names, *told;
    } const cases[] = {
        {grid("second.asc", "0", "7 8"), "1|1 2", nullptr},
        {grid("moved.asc", "1", "7 8"), "1|1 2", "other cells"},
        {text_file("t.csv", "a,b\n1,2\n3,4\n"), "1|1 2", "other cells"},
        {first, "1|1 2|1 3", nullptr},
    };
    for (auto const &c : cases) {
        SCOPED_TRACE(c.source.toStdString());
        message_reader messages;
        run_with("add_properties", {c.source});
        EXPECT_EQ(messages.texts.filter(c.told ? c.told : "nothing else").size(), c.told ? 1 : 0);
        vx::owned<Ivx_tos4_file, &vx_tos4_file_close> const file(
            vx_tos4_file_open_w(path("a.tos4").toStdWString().c_str(), true));
        QStringList names;
        for (unsigned i = 0; i < vx_tos4_get_prop_count(file.get()); ++i)
            names.append(vx_tos4_get_prop_name(file.get(), i));
        EXPECT_EQ(names.join('|'), c.names);
        vx::owned<Ivx_tos4_prop, &vx_tos4_prop_close> const prop(vx_tos4_prop_open(file.get(), 1));
        double values[2] = {};
        EXPECT_EQ(vx_tos4_prop_get_values(prop.get(), 0, 2, values), 2U);
        EXPECT_TRUE(values[0] == 7 && values[1] == 8);
    }
}

TEST_F(property_import, from_the_command_line)
{
    QStringList slices;
    for (int i : {10, 9, 1})
        slices.append(text_file(("s" + std::to_string(i) + ".asc").c_str(),
                                "ncols 2\nnrows 1\nxllcorner 0\nyllcorner 0\ncellsize 1\n" +
                                    std::to_string(i) + " 5\n"));
    ASSERT_EQ(run_line(path("stack.tos4"), slices), 0);
    ASSERT_EQ(window->open_files({path("stack.tos4")}), 1);
    EXPECT_EQ(top_key(), c_lr_key_tos_slice);
    EXPECT_EQ(vx_tos_slice_lr2d_get_zslice_count(layers().layer_at(0)), 3);
    // In the order of the numbers in their names.
    vx::owned<Ivx_tos4_file, &vx_tos4_file_close> const file(
        vx_tos4_file_open_w(path("stack.tos4").toStdWString().c_str(), true));
    vx::owned<Ivx_tos4_prop, &vx_tos4_prop_close> const prop(vx_tos4_prop_open(file.get(), 0));
    double values[6] = {};
    EXPECT_EQ(vx_tos4_prop_get_values(prop.get(), 0, 6, values), 6U);
    EXPECT_TRUE(values[0] == 1 && values[2] == 9 && values[4] == 10);

    ASSERT_EQ(run_line(path("points.tos4"), {example_file("large_cities.shp")}), 0);
    ASSERT_EQ(run_line(path("row.tos4"), {slices[0]}), 0);
    ASSERT_EQ(window->open_files({path("points.tos4"), path("row.tos4")}), 2);
    EXPECT_EQ(top_key(), c_lr_key_tos_grid_1d);
    EXPECT_EQ(vx_lr2d_get_lr_type(layers().layer_at(1)), std::string(c_lr_key_tos_2crd));
    EXPECT_GT(layers().extent_at(1).width(), 100) << "degrees";

    EXPECT_EQ(run_line(path("no.tos4"), {path("absent.tif")}), 1);
    EXPECT_EQ(run_line(slices[0], {slices[1]}), 1) << "in nobody's place";
    EXPECT_FALSE(QFileInfo::exists(path("no.tos4")));
}

TEST_F(property_import, can_be_given_up)
{
    QString error;
    int questions = 0;
    EXPECT_EQ(vx_property_import(
                  {example_file("L7_ETMs.tif")}, path("a.tos4"), c_import_makes,
                  [&](int) { return ++questions < 1; }, error),
              c_import_given_up);
    EXPECT_EQ(questions, 1);
    EXPECT_EQ(f_folder.count(), 0);
}

TEST_F(property_import, damaged_files_are_told)
{
    message_reader messages;
    ASSERT_EQ(run_line(path("a.tos4"), {example_file("olinda_dem_utm25s.tif")}), 0);
    auto const bytes = read_file(f_folder / "a.tos4");
    write_file(f_folder / "cut.tos4", std::string_view(bytes).substr(0, bytes.size() / 2));
    EXPECT_EQ(window->open_files({path("cut.tos4")}), 0);
    ASSERT_EQ(messages.texts.size(), 1);
    EXPECT_TRUE(messages.texts[0].contains("cut.tos4") && messages.texts[0].contains("damaged"));
}
