#include "host/layer_info.h"
#include "host/map_scene.h"
#include "map_fixture.h"
#include "support/database_server.h"
#include "support/temp_dir.h"

#include <QElapsedTimer>
#include <QProgressDialog>
#include <QPushButton>

using namespace vx_test;

namespace {
/// The map over the tables of a database server.
class map_of_server : public map_fixture
{
protected:
    void SetUp() override
    {
        if (database_server::programs().empty())
            GTEST_SKIP() << "PostgreSQL with PostGIS is not installed (tools/setup.sh test)";
        map_fixture::SetUp();
    }
    static QString text(std::wstring const &wide) { return QString::fromStdWString(wide); }
};
} // namespace

TEST_F(map_of_server, shows_each_table_read_once_and_no_password)
{
    database_server server;
    for (std::string const name : {"world", "naturalearth_cities"})
        server.load(VX_EXAMPLE_DATA "/" + name + ".shp", name, "-nlt PROMOTE_TO_MULTI");
    server.sql(
        "CREATE SCHEMA more; CREATE TABLE more.world AS SELECT * FROM world WHERE continent = 'Africa'");
    server.forget();
    // The password is not needed, and so not looked at.
    ASSERT_EQ(window->open_files({text(server.connection(L" password=s3cret"))}), 3);
    ASSERT_EQ(layers().count(), 3);
    QStringList names;
    for (int i = 0; i < layers().count(); ++i) {
        names.append(layers().name_at(i));
        QString const tip = vx_layer_tip(layers().layer_at(i));
        EXPECT_FALSE(tip.contains("s3cret")) << tip.toStdString();
        EXPECT_TRUE(tip.contains("password=***")) << tip.toStdString();
    }
    names.sort();
    EXPECT_EQ(names, QStringList({"more.world", "naturalearth_cities", "world"}));
    EXPECT_GT(drawn_part(picture()), 0.1);
    EXPECT_FALSE(window->windowTitle().contains("s3cret"));
    // The shapes of each table and a count, whatever else the window shows of it, and no other column.
    EXPECT_EQ(server.rows_sent("FROM public.world"), 177 + 1);
    EXPECT_EQ(server.rows_sent("FROM more.world"), 51 + 1);
    EXPECT_EQ(server.rows_sent("FROM \"world\""), 0);
    for (auto const &asked : server.statements("FROM public.world"))
        EXPECT_EQ(asked.text.find("continent"), std::string::npos) << asked.text;

    EXPECT_EQ(server.sql("SELECT count(*) FROM pg_stat_activity WHERE state LIKE 'idle in%'"), "0\n")
        << "nothing is held up on the server";

    // One of them, and no other is touched.
    server.forget();
    ASSERT_EQ(window->open_files({text(server.connection(L" password=s3cret|layer=more.world"))}), 1);
    EXPECT_EQ(layers().count(), 4);
    int of_more = 0;
    for (int i = 0; i < layers().count(); ++i)
        of_more += layers().name_at(i) == "more.world";
    EXPECT_EQ(of_more, 2);
    QImage const before = picture();
    EXPECT_EQ(server.statements("public.world").size(), 0u);

    message_reader messages;
    server.sql("CREATE VIEW faulty AS SELECT n AS id, ST_Point(1 / (n - 5), n) AS g FROM generate_series(1, "
               "9) n WHERE "
               "1 / (n - 5) < 9");
    EXPECT_EQ(window->open_files({text(server.connection(L" password=s3cret|layer=faulty"))}), 0);
    EXPECT_EQ(window->open_files({text(server.connection(L" password=s3cret", L"guest"))}), 0);
    server.kill();
    EXPECT_EQ(window->open_files({text(server.connection(L" password=s3cret"))}), 0);
    ASSERT_EQ(messages.texts.size(), 3);
    for (QString const &message : messages.texts) {
        EXPECT_TRUE(message.contains("password=***")) << message.toStdString();
        EXPECT_FALSE(message.contains("s3cret")) << message.toStdString();
    }
    // What was read stays on the map.
    EXPECT_EQ(picture(), before);
}

TEST_F(map_of_server, a_map_that_shows_a_part_asks_for_it_first)
{
    temp_dir const folder;
    QString const map = QString::fromStdString((folder / "part_.sn").string());
    database_server server;
    server.load(VX_EXAMPLE_DATA "/world.shp", "world", "-nlt PROMOTE_TO_MULTI");
    ASSERT_EQ(window->open_files({text(server.connection(L"|layer=world"))}), 1);
    Tvx_canvas_view view;
    view.set_center({10, 50});
    view.set_units_per_pixel(0.03);
    canvas().go_to(view);
    QImage const before = picture();
    EXPECT_GT(drawn_part(before), 0.3);
    ASSERT_TRUE(vx_map_scene_save(map, layers(), view));
    layers().clear();
    server.forget();
    ASSERT_EQ(window->open_files({map}), 1);
    EXPECT_LT(server.rows_sent("FROM public.world"), 100) << "not all 177 before the first picture";
    EXPECT_EQ(picture(), before);
    long long seen = 0;
    for (auto const &asked : server.statements("ST_MakeEnvelope"))
        seen = std::max(seen, asked.rows);
    EXPECT_GT(seen, 10);
    EXPECT_LT(seen, 100) << "of 177";
}

TEST_F(map_of_server, a_table_that_never_answers_can_be_given_up)
{
    database_server server;
    server.sql("CREATE VIEW endless AS SELECT n AS id, ST_Point(n, n) AS g FROM generate_series(1, 9) n "
               "WHERE pg_sleep(30) IS NOT NULL");
    // As a person who presses Cancel as soon as it can be pressed.
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [this] {
        auto *const dialog = window->findChild<QProgressDialog *>();
        auto *const button = dialog && dialog->isVisible() ? dialog->findChild<QPushButton *>() : nullptr;
        if (button)
            hand::click(button, button->rect().center());
    });
    timer.start(10);
    QElapsedTimer time;
    time.start();
    EXPECT_EQ(window->open_files({text(server.connection())}), 0);
    EXPECT_LT(time.elapsed(), 10'000);
    EXPECT_EQ(layers().count(), 0);
    EXPECT_EQ(
        server.sql("SELECT count(*) FROM pg_stat_activity WHERE state = 'active' AND query LIKE '%endless%' "
                   "AND application_name <> 'sql'"),
        "0\n");
}
