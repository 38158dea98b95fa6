#include "map_fixture.h"
#include "support/memory_source.h"
#include "support/temp_dir.h"

#include "platform/layers/vx_shp_lr2d.h"

#include <QElapsedTimer>
#include <QProgressDialog>
#include <QPushButton>

#include <algorithm>

using namespace vx_test;

namespace {
/// Points behind a driver that takes its time for each.
class opening : public map_fixture
{
protected:
    void SetUp() override
    {
        map_fixture::SetUp();
        table.features.resize(2000);
        for (std::size_t i = 0; i < table.features.size(); ++i) {
            table.features[i].geom_type = 1;
            table.features[i].parts = {{{double(i), double(i % 40)}}};
        }
        QObject::connect(&pulse, &QTimer::timeout, [this] {
            longest_pause = std::max(longest_pause, since_pulse.restart());
            auto *dialog = window->findChild<QProgressDialog *>();
            if (!dialog || !dialog->isVisible())
                return;
            if (first_seen < 0) {
                first_seen = since_start.elapsed();
                text = dialog->labelText();
            }
            if (cancels)
                if (auto *button = dialog->findChild<QPushButton *>())
                    hand::click(button, button->rect().center());
        });
    }
    int open_slowly()
    {
        since_start.start();
        since_pulse.start();
        pulse.start(2);
        int const opened = window->open_files({"memory:slow"});
        pulse.stop();
        return opened;
    }

    memory_table table;
    memory_driver driver{L"memory:slow", table};
    QTimer pulse;
    QElapsedTimer since_start, since_pulse;
    qint64 longest_pause = 0;
    qint64 first_seen = -1;
    QString text;
    bool cancels = false;
};

TEST_F(opening, of_a_slow_source_shows_its_progress_and_keeps_the_window_alive)
{
    table.delay_us = 700;
    EXPECT_EQ(open_slowly(), 1);
    EXPECT_EQ(table.opens, 1);
    EXPECT_EQ(table.walks, 1);
    // A machine with other work may be late once.
    for (int attempt = 0; attempt < 2 && longest_pause >= 50; ++attempt) {
        longest_pause = 0;
        first_seen = -1;
        table.opens = table.walks = 0;
        EXPECT_EQ(open_slowly(), 1);
    }
    EXPECT_LT(longest_pause, 50);
    EXPECT_GE(first_seen, 480);
    EXPECT_TRUE(text.contains("memory:slow")) << text.toStdString();
    EXPECT_FALSE(window->findChild<QProgressDialog *>());
    EXPECT_EQ(table.opens, 1);
    EXPECT_EQ(table.walks, 1) << "the picture reads nothing again";
    ASSERT_TRUE(hand::wait_until([&] { return canvas().is_settled(); }));
    EXPECT_EQ(table.walks, 1);
}

TEST_F(opening, can_be_given_up)
{
    table.delay_us = 5000;
    cancels = true;
    message_reader messages;
    EXPECT_EQ(open_slowly(), 0);
    EXPECT_LT(since_start.elapsed(), 2000);
    EXPECT_EQ(layers().count(), 0);
    EXPECT_EQ(table.opened, 0) << "nothing is left open";
    EXPECT_EQ(messages.texts, QStringList()) << "the user knows";
    // And another time it comes.
    cancels = false;
    table.delay_us = 0;
    EXPECT_EQ(open_slowly(), 1);
}

TEST_F(opening, of_a_quick_source_shows_nothing)
{
    EXPECT_EQ(open_slowly(), 1);
    EXPECT_LT(first_seen, 0);
    EXPECT_EQ(open({"nc.shp", "world.shp"}), 2);
    EXPECT_EQ(layers().name_at(0), "world");
}

TEST_F(opening, each_layer_of_a_container_has_its_own_unit_and_scales)
{
    temp_dir folder;
    for (char const *name : {"nc", "streets"})
        for (char const *suffix : {".shp", ".shx", ".dbf", ".prj"})
            std::filesystem::copy(std::string(VX_EXAMPLE_DATA "/") + name + suffix, folder.path());
    ASSERT_EQ(window->open_files({QString::fromStdString(folder.path().string())}), 2);
    ASSERT_EQ(layers().name_at(0), "streets");
    // Counties in degrees, streets in metres: the one above does not fit in.
    EXPECT_TRUE(layers().map_unit().is_degree);
    EXPECT_TRUE(layers().is_of_other_unit(0));
    EXPECT_FALSE(layers().is_of_other_unit(1));
}
} // namespace
