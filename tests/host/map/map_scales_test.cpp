#include "exports/vxk_lr2d_edit_form_api.h"
#include "host/example_scales.h"
#include "host/layer_editor.h"
#include "host/layer_info.h"
#include "host/layer_scales.h"
#include "map_fixture.h"
#include "support/temp_dir.h"

#include "platform/layers/vx_shp_lr2d.h"
#include "platform/styles/vxk_styles.h"

#include <QActionGroup>
#include <QMenu>
#include <QMenuBar>

#include <set>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace vx_test;

namespace {
/// The counties in a folder of their own, with scales beside them that another process saved.
class map_scales : public map_fixture
{
protected:
    void SetUp() override
    {
        for (char const *suffix : {"shp", "shx", "dbf", "prj"})
            std::filesystem::copy(std::string(VX_EXAMPLE_DATA "/nc.") + suffix, folder.path());
        pid_t const other = fork();
        if (other == 0) {
            Tvx_layer_list::layer_ptr const layer(
                vx_shp_lr2d_open((folder / "nc.shp").wstring().c_str(), nullptr));
            _exit(vx_example_scales_save(layer.get()) ? 0 : 1);
        }
        int status = -1;
        ASSERT_EQ(waitpid(other, &status, 0), other);
        ASSERT_EQ(status, 0);
        map_fixture::SetUp();
        ASSERT_EQ(window->open_files({QString::fromStdString((folder / "nc.shp").string())}), 1);
    }

    void *manager() { return vx_shp_lr2d_get_stl_mngr_ptr(layers().layer_at(0)); }

    /// The menu as it opens under the hand of a person.
    QMenu *menu()
    {
        QMenuBar *bar = window->menuBar();
        QMenu *layer = hand::open_menu(bar, bar->actions().at(3));
        return layer ? hand::open_menu(layer, window->command("draw_by")) : nullptr;
    }

    static void close_menus()
    {
        while (QWidget *opened = QApplication::activePopupWidget())
            hand::press(opened, Qt::Key_Escape);
    }

    void choose(int line)
    {
        QMenu *opened = menu();
        ASSERT_TRUE(opened);
        ASSERT_LT(line, opened->actions().size());
        hand::choose(opened, opened->actions().at(line));
    }

    std::set<QRgb> colors()
    {
        QImage const drawn = picture();
        std::set<QRgb> found;
        for (int y = 0; y < drawn.height(); ++y)
            for (int x = 0; x < drawn.width(); ++x)
                found.insert(drawn.pixel(x, y));
        return found;
    }

    temp_dir folder;
};

QRgb fill_of(void *scale_prm)
{
    Tvx_color const c = vx_stl_prm_get_color(vx_scale_prm_get_stl_prm_ptr(scale_prm), false);
    return qRgb(c.r, c.g, c.b);
}

TEST_F(map_scales, of_another_process_are_found_and_draw_the_map)
{
    for (char const *name : {"nc.NAME._vl", "nc.BIR74._rg", "nc.SID74._rl"})
        EXPECT_TRUE(std::filesystem::exists(folder / name)) << name;
    QMenu *opened = menu();
    ASSERT_TRUE(opened);
    QStringList lines;
    for (QAction *line : opened->actions())
        lines.append(line->text());
    EXPECT_EQ(lines, QStringList({"&One Style", "", "NAME: values", "BIR74: ranges", "SID74: rules"}));
    EXPECT_TRUE(opened->actions().at(0)->isChecked());
    for (int const line : {0, 2, 3, 4}) {
        QActionGroup const *const group = opened->actions().at(line)->actionGroup();
        EXPECT_TRUE(group && group->isExclusive()) << "one of them is in force: a radio mark";
    }
    close_menus();
    QImage const simple = picture();

    choose(2);
    ASSERT_EQ(vx_stl_mngr_get_mode(manager()), c_stl_mngr_mode_value);
    void *scale = vx_stl_mngr_get_val_scale_ptr(manager());
    ASSERT_EQ(vx_val_scale_get_size(scale), 100u);
    std::set<QRgb> drawn = colors();
    for (unsigned i = 0; i < 7; ++i)
        EXPECT_TRUE(drawn.contains(fill_of(vx_val_scale_get_scale_prm_ptr(scale, i)))) << i;

    choose(3);
    ASSERT_EQ(vx_stl_mngr_get_mode(manager()), c_stl_mngr_mode_range);
    scale = vx_stl_mngr_get_rng_scale_ptr(manager());
    drawn = colors();
    for (unsigned i = 0; i < vx_rng_scale_get_size(scale); ++i)
        EXPECT_TRUE(drawn.contains(fill_of(vx_rng_scale_get_scale_prm_ptr(scale, i)))) << i;
    EXPECT_TRUE(drawn.contains(fill_of(vx_rng_scale_get_min_prm_ptr(scale))));
    EXPECT_TRUE(drawn.contains(fill_of(vx_rng_scale_get_max_prm_ptr(scale))));
    opened = menu();
    EXPECT_TRUE(opened->actions().at(3)->isChecked());
    EXPECT_FALSE(opened->actions().at(0)->isChecked());
    close_menus();

    choose(4);
    ASSERT_EQ(vx_stl_mngr_get_mode(manager()), c_stl_mngr_mode_rule);
    scale = vx_stl_mngr_get_rule_scale_ptr(manager());
    drawn = colors();
    for (unsigned i = 0; i < vx_val_scale_get_size(scale); ++i)
        EXPECT_TRUE(drawn.contains(fill_of(vx_val_scale_get_scale_prm_ptr(scale, i)))) << i;
    EXPECT_TRUE(drawn.contains(fill_of(vx_val_scale_get_other_prm_ptr(scale))));
    opened = menu();
    EXPECT_TRUE(opened->actions().at(4)->isChecked()) << "rules do not tell their file, the map remembers it";
    close_menus();

    choose(0);
    EXPECT_EQ(picture(), simple);
}

TEST_F(map_scales, show_their_colours_in_the_list_and_their_copy_in_the_editor)
{
    run("properties");
    QIcon const before = vx_layer_symbol(layers().layer_at(0));
    choose(3);
    QImage const symbol = vx_layer_symbol(layers().layer_at(0)).pixmap(32, 20).toImage();
    void *const scale = vx_stl_mngr_get_rng_scale_ptr(manager());
    for (unsigned i = 0; i < 4; ++i)
        EXPECT_EQ(symbol.pixel(symbol.width() * (7 + 6 * int(i)) / 32, symbol.height() / 2),
                  fill_of(vx_rng_scale_get_scale_prm_ptr(scale, i)));
    void *const copy = vx_shp_lr2d_get_stl_mngr_ptr(vx_lr2d_edt_form_get_lr2d_ptr(window->editor().handle()));
    EXPECT_EQ(vx_stl_mngr_get_mode(copy), c_stl_mngr_mode_range);
    EXPECT_TRUE(vx_stl_mngr_equal(copy, manager()));
}

TEST_F(map_scales, that_are_no_scales_are_told_and_change_nothing)
{
    QImage const before = picture();
    int const revision = layers().revision_at(0);
    std::string const whole = read_file(folder / "nc.BIR74._rg");
    // As a user would write it: without the checksum, and with a word where a number belongs.
    std::string by_hand = whole;
    by_hand.erase(by_hand.find(" crc="), std::strlen(" crc=\"01234567\""));
    by_hand.replace(by_hand.find("from=\""), 6, "from=\"ten");
    auto const line = 1 + std::count(by_hand.begin(), by_hand.begin() + by_hand.find("from="), '\n');
    QString last;
    for (std::string const &bytes :
         {std::string(), whole.substr(0, whole.size() / 2), std::string("<scale/>"), by_hand}) {
        write_file(folder / "nc.BIR74._rg", bytes);
        message_reader messages;
        choose(3);
        ASSERT_EQ(messages.texts.size(), 1) << bytes.size();
        last = messages.texts.front();
        EXPECT_EQ(last.count("nc.BIR74._rg"), 1) << last.toStdString();
        EXPECT_EQ(layers().revision_at(0), revision);
    }
    EXPECT_TRUE(last.contains(QStringLiteral("; line %1: \"ten").arg(line))) << last.toStdString();
    EXPECT_TRUE(last.contains("cannot be the value of \"from\".")) << last.toStdString();
    EXPECT_EQ(picture(), before);

    // What is no file at all, and a file that goes while the menu is open.
    for (bool const is_pipe : {true, false}) {
        std::filesystem::remove(folder / "nc.SID74._rl");
        if (is_pipe)
            ASSERT_EQ(mkfifo((folder / "nc.SID74._rl").c_str(), 0600), 0);
        else
            std::filesystem::create_directory(folder / "nc.SID74._rl");
        message_reader messages;
        choose(4);
        EXPECT_EQ(messages.texts.size(), 1) << is_pipe;
    }
    QMenu *opened = menu();
    ASSERT_TRUE(opened);
    std::filesystem::remove(folder / "nc.NAME._vl");
    message_reader messages;
    hand::choose(opened, opened->actions().at(2));
    EXPECT_EQ(messages.texts.size(), 1);
    EXPECT_EQ(layers().revision_at(0), revision);
}

// VX_WRITE_EXAMPLES renews the files.
TEST_F(map_fixture, the_examples_bring_the_scales_that_the_program_makes)
{
    std::set<std::string> made;
    for (std::string const name : {"nc", "world", "streets", "naturalearth_cities"}) {
        temp_dir folder;
        for (char const *suffix : {".shp", ".shx", ".dbf"})
            std::filesystem::copy(VX_EXAMPLE_DATA "/" + name + suffix, folder.path());
        vx_layer_restart_default_styles();
        ASSERT_EQ(window->open_files({QString::fromStdString((folder / (name + ".shp")).string())}), 1);
        ASSERT_TRUE(vx_example_scales_save(layers().layer_at(0))) << name;
        for (auto const &entry : std::filesystem::directory_iterator(folder.path())) {
            std::string const file = entry.path().filename().string();
            if (!file.ends_with("._vl") && !file.ends_with("._rg") && !file.ends_with("._rl"))
                continue;
            std::filesystem::path const shipped = std::filesystem::path(VX_EXAMPLE_DATA) / file;
            if (std::getenv("VX_WRITE_EXAMPLES"))
                std::filesystem::copy_file(entry, shipped, std::filesystem::copy_options::overwrite_existing);
            EXPECT_EQ(read_file(entry.path()), read_file(shipped)) << file;
            made.insert(file);
        }
        ASSERT_EQ(open({(name + ".shp").c_str()}), 1);
        EXPECT_FALSE(vx_layer_scales_find(layers().layer_at(0)).empty()) << name;
    }
    EXPECT_EQ(made.size(), 7u);
}

TEST_F(map_fixture, the_examples_bring_the_map_that_the_program_makes)
{
    temp_dir folder;
    for (auto const &entry : std::filesystem::directory_iterator(VX_EXAMPLE_DATA))
        if (entry.path().extension() != ".tif")
            std::filesystem::copy(entry.path(), folder.path());
    ASSERT_TRUE(vx_example_map_save(QString::fromStdString(folder.path().string())));
    std::filesystem::path const shipped = std::filesystem::path(VX_EXAMPLE_DATA) / c_example_map;
    if (std::getenv("VX_WRITE_EXAMPLES"))
        std::filesystem::copy_file(folder / c_example_map, shipped,
                                   std::filesystem::copy_options::overwrite_existing);
    EXPECT_EQ(read_file(folder / c_example_map), read_file(shipped));
    ASSERT_EQ(open({c_example_map}), 3);
    EXPECT_EQ(layers().name_at(0), "Cities");
    EXPECT_GT(layers().rowCount(layers().index(1)), 4);
    EXPECT_GT(layers().rowCount(layers().index(2)), 6);
    EXPECT_GT(drawn_part(picture()), 0.2);
    EXPECT_FALSE(window->is_changed());
}
} // namespace
