#include "map_fixture.h"
#include "support/memory_source.h"
#include "support/temp_dir.h"

#include "platform/base/owned.h"
#include "platform/data/vx_attr_data.h"
#include "platform/layers/vx_lr2d.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/styles/vxk_styles.h"

#include <QElapsedTimer>
#include <QMouseEvent>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>

using namespace vx_test;

namespace {
/// Many points behind a driver that stores where they lie and takes its time for each.
class slow_reading : public map_fixture
{
protected:
    void SetUp() override
    {
        map_fixture::SetUp();
        table.stores_extent = true;
        table.features.resize(3000);
        for (std::size_t i = 0; i < table.features.size(); ++i) {
            table.features[i].geom_type = 1;
            table.features[i].parts = {{{double(i * 7 % 60), double(i * 11 % 40)}}};
        }
        QObject::connect(&pulse, &QTimer::timeout,
                         [this] { longest_pause = std::max(longest_pause, since_pulse.restart()); });
    }
    /// What a hand does, through the queue of events, all the time.
    void act()
    {
        QPointF const at = canvas().rect().center();
        QPointF const there = canvas().mapToGlobal(at);
        auto const mouse = [&](QEvent::Type type, double x, Qt::MouseButton button, Qt::MouseButtons held) {
            QCoreApplication::postEvent(&canvas(),
                                        new QMouseEvent(type, at + QPointF(x, 0), there + QPointF(x, 0),
                                                        button, held, Qt::NoModifier));
        };
        if (++acts % 2) {
            QCoreApplication::postEvent(
                &canvas(), new QWheelEvent(at, there, QPoint(), QPoint(0, acts % 4 == 1 ? 120 : -120),
                                           Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false));
            return;
        }
        mouse(QEvent::MouseButtonPress, 0, Qt::LeftButton, Qt::LeftButton);
        mouse(QEvent::MouseMove, acts % 4 ? 20 : -20, Qt::NoButton, Qt::LeftButton);
        mouse(QEvent::MouseButtonRelease, acts % 4 ? 20 : -20, Qt::LeftButton, Qt::NoButton);
    }

    temp_dir folder;
    /// A file, which a server's name would not be.
    std::filesystem::path file = [this] {
        auto const path = folder.path() / "slow.map";
        std::ofstream(path) << "points";
        return path;
    }();
    memory_table table;
    memory_driver driver{file.wstring(), table};
    QTimer pulse;
    QElapsedTimer since_pulse;
    qint64 longest_pause = 0;
    int acts = 0;
};
} // namespace

TEST_F(slow_reading, leaves_the_window_to_the_user_from_the_first_moment)
{
    table.delay_us = 1000;
    for (int attempt = 0; attempt < vx_test::c_pause_attempts; ++attempt) {
        longest_pause = 0;
        table.walks = 0;
        since_pulse.start();
        pulse.start(2);
        ASSERT_EQ(window->open_files({QString::fromStdString(file.string())}), 1);
        QTimer hand_timer;
        QObject::connect(&hand_timer, &QTimer::timeout, [this] { act(); });
        hand_timer.start(40);
        ASSERT_FALSE(canvas().is_settled()) << "nothing is read before it is shown";
        ASSERT_TRUE(hand::wait_until([&] { return acts > 20 * (attempt + 1); }));
        hand_timer.stop();
        ASSERT_TRUE(hand::wait_until([&] { return canvas().is_settled(); }, 10000));
        pulse.stop();
        EXPECT_EQ(table.walks, 1) << "what was read stays, whatever was given up";
        if (longest_pause < vx_test::c_longest_pause_ms)
            break;
        window->layers().remove(0);
    }
    EXPECT_LT(longest_pause, vx_test::c_longest_pause_ms);
    canvas().show_all();
    EXPECT_GT(drawn_part(picture()), 0.01);
    EXPECT_EQ(table.walks, 1);
}

TEST_F(slow_reading, leaves_the_window_to_the_user_while_it_classifies)
{
    constexpr int c_kinds = 7;
    table.fields = {{L"kind", 1}};
    for (std::size_t i = 0; i < table.features.size(); ++i)
        table.features[i].cells = {L"kind " + std::to_wstring(i % c_kinds)};
    ASSERT_EQ(window->open_files({QString::fromStdString(file.string())}), 1);
    ASSERT_TRUE(hand::wait_until([&] { return canvas().is_settled(); }, 10000));
    double const in_one_style = drawn_part(picture());
    table.delay_us = 1000;
    for (int attempt = 0; attempt < vx_test::c_pause_attempts; ++attempt) {
        vx::owned<Ivx_layer, &vx_lr2d_destroy> copy(vx_lr2d_clone(layers().layer_at(0)));
        vx_attr_data_reload(vx_shp_lr2d_get_attr_data_ptr(copy.get()));
        void *const mngr = vx_shp_pnt_lr2d_get_stl_mngr_ptr(copy.get());
        void *const scale = vx_stl_mngr_get_val_scale_ptr(mngr);
        vx_val_scale_set_size(scale, c_kinds);
        for (unsigned i = 0; i < c_kinds; ++i)
            vx_val_scale_set_text_w(scale, i, (L"kind " + std::to_wstring(i)).c_str());
        vx_scale_prm_set_visible(vx_val_scale_get_other_prm_ptr(scale), false);
        vx_stl_mngr_set_val_prop_name_w(mngr, L"kind");
        vx_stl_mngr_set_mode(mngr, c_stl_mngr_mode_value);
        longest_pause = acts = table.walks = 0;
        since_pulse.start();
        pulse.start(2);
        ASSERT_TRUE(layers().replace(layers().id_at(0), std::move(copy)));
        QTimer hand_timer;
        QObject::connect(&hand_timer, &QTimer::timeout, [this] { act(); });
        hand_timer.start(40);
        ASSERT_TRUE(hand::wait_until([&] { return acts > 20; }));
        hand_timer.stop();
        ASSERT_FALSE(canvas().is_settled());
        ASSERT_TRUE(hand::wait_until([&] { return canvas().is_settled(); }, 20000));
        pulse.stop();
        EXPECT_EQ(table.walks, 2) << "the cells and the shapes, each once";
        if (longest_pause < vx_test::c_longest_pause_ms)
            break;
    }
    EXPECT_LT(longest_pause, vx_test::c_longest_pause_ms);
    canvas().show_all();
    EXPECT_NEAR(drawn_part(picture()), in_one_style, in_one_style / 2) << "each has its row";
}

TEST_F(slow_reading, shows_what_it_has_and_ends_with_its_layer)
{
    table.delay_us = 2000;
    ASSERT_EQ(window->open_files({QString::fromStdString(file.string())}), 1);
    // From within the drawing, which serves the events on its way.
    bool is_early = false;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
        if (drawn_part(canvas().grab().toImage()) <= 0.002)
            return;
        look.stop();
        is_early = !canvas().is_settled();
        window->layers().remove(0);
    });
    look.start(50);
    ASSERT_TRUE(hand::wait_until([&] { return !look.isActive(); }, 10000));
    EXPECT_TRUE(is_early) << "long before all is read";
    EXPECT_TRUE(hand::wait_until([&] { return canvas().is_settled(); }, 1000));
    EXPECT_EQ(table.opened, 0);
}
