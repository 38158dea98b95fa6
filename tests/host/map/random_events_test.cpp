#include "answerer.h"
#include "host/layout_view.h"
#include "host/layout_window.h"
#include "host/map_layouts.h"
#include "map_fixture.h"
#include "support/random_seeds.h"
#include "support/temp_dir.h"
#include "user_input/random_hand.h"

#include <QPainter>
#include <QThread>

#include <random>

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

/// Puts the layers back that the user has removed, and takes page layouts away that he has made: their
/// windows keep pictures.
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
        if (f_window.layouts().count() > 1 && !QApplication::activeModalWidget())
            f_window.layouts().clear();
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

/// Whoever works on a page layout while a hand is in its window: brings elements back, runs commands that a
/// hand seldom finds, takes layers out of the map.
class page_company
{
public:
    page_company(Tvx_map_window &window, unsigned seed) : f_window(window), f_random(seed) {}

    void before_each()
    {
        Tvx_layout_window &page = *f_window.layouts().window_at(0);
        // The hand goes on in this window.
        auto *const question = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (question && question->findChild<QAbstractButton *>("delete"))
            question->close();
        int const turn = f_turn++ % 40;
        if (turn == 0 && page.document().count() < 6)
            page.command(c_adding[f_random() % std::size(c_adding)])->trigger();
        else if (turn == 10)
            page.view().select_id(page.document().id_at(int(f_random() % 6)));
        else if (turn == 15 || turn == 25)
            page.command(c_running[f_random() % std::size(c_running)])->trigger();
        else if (turn == 30 && f_window.layers().count() == 2)
            f_window.layers().remove(int(f_random() % 2));
        else if (turn == 35 && f_window.layers().count() < 2)
            f_window.open_files({example_file("nc.shp")});
    }

private:
    static constexpr char const *c_adding[] = {"add_frame",       "add_text",     "add_legend",
                                               "add_scale_bar",   "duplicate",    "add_scale_text",
                                               "add_north_arrow", "add_neatline", "paste"};
    static constexpr char const *c_running[] = {"properties", "properties", "properties", "undo",  "redo",
                                                "copy",       "paste",      "cut",        "rename"};
    Tvx_map_window &f_window;
    std::mt19937 f_random;
    int f_turn = 0;
};

TEST_F(random_events, leave_a_page_layout_usable)
{
    for (unsigned const seed : vx_test::random_seeds()) {
        SCOPED_TRACE("VX_SEED=" + std::to_string(seed));
        ASSERT_EQ(open({"nc.shp", "world.shp"}), 2);
        Tvx_layout_window &page = *window->layouts().add();
        int const elements = page.document().count();
        {
            page_company company(*window, seed);
            hand::random_hand user({.window = &page,
                                    .favourite = page.view().viewport(),
                                    .seed = seed,
                                    .events = c_events / 10,
                                    .before_each = make_closure<&page_company::before_each>(&company),
                                    .log = vx_test::random_log()});
            ASSERT_TRUE(user.run()) << user.last_lines();
            ASSERT_TRUE(hand::wait_until([&] { return page.view().is_settled(); }, 60000))
                << "drawing without end after\n"
                << user.last_lines();
        }
        while (page.document().can_undo())
            page.document().undo();
        EXPECT_EQ(page.document().count(), elements);
        // The map goes, and the layout with it, while its properties are open and it is drawn.
        page.view().select_id(page.document().id_at(0));
        page.command("properties")->trigger();
        page.view().refresh();
        answerer const answers("lose");
        run("new_scene");
        EXPECT_EQ(window->layouts().count(), 0) << answers.questions.join('\n').toStdString();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}
} // namespace
