#include "host/map_scene.h"
#include "map_fixture.h"
#include "support/memory_source.h"
#include "support/temp_dir.h"

#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_shp_lr2d.h"

#include <QElapsedTimer>
#include <QMouseEvent>
#include <QProgressDialog>
#include <QPushButton>
#include <QWindow>

#include <algorithm>
#include <functional>

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
    for (int i = 1; i < vx_test::c_pause_attempts && longest_pause >= vx_test::c_longest_pause_ms; ++i) {
        longest_pause = 0;
        first_seen = -1;
        table.opens = table.walks = 0;
        EXPECT_EQ(open_slowly(), 1);
    }
    EXPECT_LT(longest_pause, vx_test::c_longest_pause_ms);
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

/// The window system's close of the window, as an event of its own.
void close_from_outside(QWidget *widget)
{
    widget->windowHandle()->close();
}

TEST_F(opening, ends_at_once_when_the_window_is_closed)
{
    table.delay_us = 5000; // ten seconds in all
    QApplication::setQuitOnLastWindowClosed(true);
    QElapsedTimer closing;
    std::function<void()> const open_it = [&] { window->open_files({"memory:slow", "memory:slow"}); };
    // The reading is left to the drawing, which does it in slices.
    std::function<void()> const draw_it = [&] {
        window->add_layer(Tvx_layer_list::layer_ptr(vx_shp_lr2d_create(c_lr_key_shp_pnt, L"memory:slow")));
        canvas().show_box({0, 0, 1000, 40});
    };
    std::function<void()> const press = [&] {
        QPointF const at = canvas().rect().center();
        QMouseEvent down(QEvent::MouseButtonPress, at, canvas().mapToGlobal(at), Qt::LeftButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&canvas(), &down);
        hand::move(&canvas(), at.toPoint() + QPoint(30, 10));
    };
    std::function<void()> const close = [&] {
        EXPECT_FALSE(QApplication::activeModalWidget()) << "which keeps the close away";
        close_from_outside(window.get());
    };
    std::function<void()> const nothing = [] {};
    struct
    {
        char const *name;
        std::function<void()> before, work;
        int milliseconds;
        std::function<void()> close;
    } const states[] = {
        {"at the start", nothing, open_it, 60, close},
        {"not yet told", nothing, open_it, 300, close},
        {"told", nothing, open_it, 700, close},
        {"drag", press, open_it, 300, close},
        {"drag, told", press, open_it, 700, close},
        {"reading", nothing, draw_it, 200, close},
        {"reading for long", nothing, draw_it, 700, close},
        {"reading, drag", press, draw_it, 300, close},
    };
    message_reader messages;
    for (auto const &state : states) {
        SCOPED_TRACE(state.name);
        qint64 shortest = 1000;
        // A machine with other work may be late.
        for (int attempt = 0; attempt < 4 && shortest >= 100; ++attempt) {
            window = std::make_unique<Tvx_map_window>();
            window->show();
            QCoreApplication::processEvents();
            state.before();
            QTimer::singleShot(0, window.get(), state.work);
            QTimer::singleShot(state.milliseconds, window.get(), [&] {
                closing.start();
                state.close();
            });
            QApplication::exec();
            window.reset();
            shortest = std::min(shortest, closing.elapsed());
            EXPECT_EQ(table.opened, 0);
        }
        EXPECT_LT(shortest, 100);
    }
    EXPECT_EQ(messages.texts, QStringList());
    QApplication::setQuitOnLastWindowClosed(false);
}

TEST_F(opening, that_is_closed_asks_for_what_is_not_saved)
{
    table.delay_us = 5000;
    temp_dir folder;
    QString const file = QString::fromStdString((folder.path() / "map.sn").string());
    ASSERT_EQ(open({"nc.shp"}), 1);
    ASSERT_TRUE(vx_map_scene_save(file, layers(), canvas().view()));
    ASSERT_EQ(window->open_files({file}), 1);
    layers().set_layer_visible(0, false);
    ASSERT_TRUE(window->is_changed());
    message_reader messages; // "Cancel" at the question
    QTimer::singleShot(300, window.get(), [&] { close_from_outside(window.get()); });
    EXPECT_EQ(open_slowly(), 0);
    EXPECT_EQ(messages.texts.size(), 1);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(layers().count(), 1);
    EXPECT_LT(since_start.elapsed(), 3000);
}

TEST_F(opening, keeps_commands_away_until_it_ends)
{
    table.delay_us = 500;
    ASSERT_EQ(open({"nc.shp"}), 1);
    for (int const milliseconds : {200, 700}) {
        QTimer::singleShot(milliseconds, window.get(), [&] {
            hand::press(window.get(), Qt::Key_N, Qt::ControlModifier);
            hand::press(list(), Qt::Key_Delete);
            hand::wheel(&canvas(), canvas().rect().center(), 3);
        });
        int const before = layers().count();
        Tvx_canvas_view const view = canvas().view();
        EXPECT_EQ(open_slowly(), 1);
        EXPECT_EQ(layers().count(), before + 1);
        EXPECT_EQ(canvas().view(), view);
    }
    // The cross of the progress window gives the opening up, and nothing else.
    QTimer::singleShot(800, window.get(),
                       [&] { close_from_outside(window->findChild<QProgressDialog *>()); });
    table.delay_us = 5000;
    EXPECT_EQ(open_slowly(), 0);
    EXPECT_TRUE(window->isVisible());
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
