#include "map_fixture.h"
#include "support/random_seeds.h"
#include "support/temp_dir.h"
#include "user_input/random_hand.h"

#include <QPainter>
#include <QThread>

using namespace vx_test;

namespace {
#if defined(__SANITIZE_ADDRESS__) // slows down what is drawn, and keeps what was freed
constexpr int c_events = 500;
constexpr bool c_counts_memory = false;
#else
constexpr int c_events = 5000; ///< for each seed
constexpr bool c_counts_memory = true;
#endif

/// Draws a layer in steps of a millisecond: one, and each 128th time so many that the user is off again.
struct slow_drawer
{
    int drawings = 0;

    Tvx_drawing_result draw(Ivx_layer *, Tvx_canvas_view const &, QImage &image, closure<bool()> cancelled)
    {
        int const steps = drawings++ % 128 == 0 ? 300 : 1;
        for (int i = 0; i < steps; ++i) {
            QThread::msleep(1);
            QPainter(&image).fillRect(i, 0, 1, image.height(), Qt::darkGreen);
            if (cancelled && cancelled())
                return c_drawing_cancelled;
        }
        return c_drawing_done;
    }
};

/// Puts the layers back that the user has removed.
class taken_layers
{
public:
    explicit taken_layers(Tvx_map_window &window) : f_window(window)
    {
        for (int row = 0; row < window.layers().count(); ++row)
            f_layers.emplace_back(vx_lr2d_clone(window.layers().layer_at(row)));
    }
    void bring_back()
    {
        for (auto const &layer : f_layers)
            if (f_window.layers().count() < int(f_layers.size()))
                f_window.add_layer(Tvx_layer_list::layer_ptr(vx_lr2d_clone(layer.get())));
    }

private:
    Tvx_map_window &f_window;
    std::vector<Tvx_layer_list::layer_ptr> f_layers;
};

class random_events : public map_fixture
{
};

// VX_SEED replays one seed.
TEST_F(random_events, leave_the_window_usable)
{
    // Classes below layers, a table and the panel of what is here stand beside the map.
    // The hand may save the map, so the map is one of its own.
    temp_dir folder;
    for (auto const &entry : std::filesystem::directory_iterator(VX_EXAMPLE_DATA))
        if (entry.path().extension() != ".tif")
            std::filesystem::copy(entry.path(), folder.path());
    ASSERT_EQ(window->open_files({QString::fromStdString((folder / "sample_.sn").string()),
                                  example_file("streets.shp"), example_file("lc.tif")}),
              5);
    select(3);
    run("table");
    ASSERT_TRUE(window->open_table(layers().id_at(3)));
    hand::press(&canvas(), Qt::Key_Return);
    slow_drawer drawer;
    canvas().set_drawer(make_closure<&slow_drawer::draw>(&drawer));
    taken_layers taken(*window);
    double first = 0;
    for (unsigned const seed : vx_test::random_seeds()) {
        SCOPED_TRACE("VX_SEED=" + std::to_string(seed));
        hand::random_hand user({.window = window.get(),
                                .favourite = &canvas(),
                                .seed = seed,
                                .events = c_events,
                                .before_each = make_closure<&taken_layers::bring_back>(&taken)});
        ASSERT_TRUE(user.run()) << user.last_lines();
        ASSERT_TRUE(hand::wait_until([&] { return canvas().is_settled(); }, 10000))
            << "drawing without end after\n"
            << user.last_lines();
        if (first == 0)
            first = hand::resident_memory();
    }
    if (c_counts_memory) {
        EXPECT_LT(hand::resident_memory(), first + 48)
            << "MiB after the first " << c_events << " events: " << first;
    }
}
} // namespace
