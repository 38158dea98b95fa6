// Commands of the menus of a value scale, from the closing of the menu to the painted grid, against the bare
// work on the scale: a palette over 10,000 entries, sorts and an inversion of 100,000. Each has to repaint
// the grid once and to report once. Measured in turn in one run, by the processor's time; the least counts.

#include "page_window.h"

#include "platform/base/string_adp.h"
#include "platform/basic/vx_ints.h"
#include "platform/basic/vx_palette.h"
#include "platform/winapi/collation.h"

#include <QKeyEvent>
#include <QMenu>
#include <QTimer>

#include <algorithm>
#include <cwchar>

using namespace vx_bench;

namespace {
using values_window = page_window<c_stl_mngr_mode_value>;
using owned_ints = vx::owned<void, &vx_ints_destroy>;
using owned_prm = vx::owned<void, &vx_stl_prm_destroy>;

constexpr int c_text_col = 1;
constexpr int c_style_col = 4;

/// Entries with different texts in no order, each with a colour of its own.
void fill(void *scale, unsigned count)
{
    vx_val_scale_set_size(scale, count);
    for (unsigned i = 0; i < count; ++i) {
        auto const text = std::to_wstring(100'000 + i * 31'337ULL % count);
        vx_val_scale_set_text_w(scale, i, text.c_str());
        vx_val_scale_set_caption_w(scale, i, text.c_str());
        vx_stl_prm_set_color(vx_scale_prm_get_stl_prm_ptr(vx_val_scale_get_scale_prm_ptr(scale, i)), false,
                             vx_clr_init_rgb(static_cast<int>(i % 256), static_cast<int>(i / 256 % 256), 0));
    }
}

owned_layer layer_with(unsigned count)
{
    owned_layer layer(vx_shp_lr2d_create("shp_pnt_lr2d", L""));
    fill(vx_stl_mngr_get_val_scale_ptr(vx_shp_lr2d_get_stl_mngr_ptr(layer.get())), count);
    return layer;
}

void press(QWidget *widget, Qt::Key key)
{
    for (auto const type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier);
        QApplication::sendEvent(widget, &event);
    }
}

/// Counts the repaints of the grid and the reports of its editor.
class watch final : public QObject
{
public:
    explicit watch(values_window &window) : f_inner(window.edit()->on_changed)
    {
        window.edit()->on_changed = make_closure<&watch::on_changed>(this);
        vx_qt_widget(window.grid())->installEventFilter(this);
    }
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        repaints += event->type() == QEvent::Paint;
        return false;
    }

    int repaints = 0;
    int reports = 0;

private:
    void on_changed(TObject *sender)
    {
        ++reports;
        f_inner(sender);
    }
    TNotifyEvent f_inner;
};

/// Clicks a header and goes to the line, by its place in each menu on the way.
two_times choose(values_window &window, watch &seen, int col, std::vector<int> const &path)
{
    std::chrono::steady_clock::time_point start;
    double processor = 0;
    QTimer::singleShot(0, [&] {
        for (std::size_t step = 0;; ++step) {
            auto *const menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
            if (!menu)
                std::abort();
            menu->setActiveAction(menu->actions().at(path[step]));
            if (step + 1 < path.size()) {
                press(menu, Qt::Key_Right);
                continue;
            }
            // The menu closes, and what lay below it is painted; then its command runs.
            press(menu, Qt::Key_Return);
            QApplication::processEvents();
            malloc_trim(0);
            seen.repaints = seen.reports = 0;
            start = std::chrono::steady_clock::now();
            processor = processor_now();
            return;
        }
    });
    window.click_cell(col, 0);
    QApplication::processEvents();
    two_times const times{std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count(),
                          processor_now() - processor};
    if (seen.repaints != 1 || seen.reports != 1)
        std::printf("  %d repaints and %d reports\n", seen.repaints, seen.reports);
    return times;
}

template <class Plain, class Path>
void run(char const *what, unsigned count, int col, Plain plain, Path path)
{
    owned_layer const layer = layer_with(count);
    void *const scale = vx_stl_mngr_get_val_scale_ptr(vx_shp_lr2d_get_stl_mngr_ptr(layer.get()));
    values_window window(layer_with(count));
    watch seen(window);
    pair_of_times least;
    auto const lower = [](two_times &target, two_times const &times) {
        target.wall = std::min(target.wall, times.wall);
        target.processor = std::min(target.processor, times.processor);
    };
    choose(window, seen, col, path(true)); // makes the menu
    plain(scale, true);
    for (int round = 0; round < 8; ++round) {
        lower(least.plain, measure([&] { plain(scale, round % 2 != 0); }));
        lower(least.own, choose(window, seen, col, path(round % 2 != 0)));
    }
    print(what, least, 2);
}

void color_plain(void *scale, bool)
{
    std::vector<Tvx_color> colors(vx_val_scale_get_size(scale));
    vx_clr_arrays_generate(c_palette_white_gray, static_cast<unsigned>(colors.size()), colors.data());
    for (unsigned i = 0; i < colors.size(); ++i)
        vx_stl_prm_clr_set_all(vx_scale_prm_get_stl_prm_ptr(vx_val_scale_get_scale_prm_ptr(scale, i)),
                               colors[i], false);
}

void invert_plain(void *scale, bool)
{
    auto const prm = [scale](unsigned i) {
        return vx_scale_prm_get_stl_prm_ptr(vx_val_scale_get_scale_prm_ptr(scale, i));
    };
    for (unsigned low = 0, high = vx_val_scale_get_size(scale) - 1; low < high; ++low, --high) {
        owned_prm const kept(vx_stl_prm_clone(prm(low)));
        vx_val_scale_set_stl_prm(scale, low, prm(high), false);
        vx_val_scale_set_stl_prm(scale, high, kept.get(), false);
    }
}

template <class Key, class Make, class Less>
void sort_plain(void *scale, bool descending, Make make, Less less)
{
    std::vector<std::pair<Key, int>> items(vx_val_scale_get_size(scale));
    std::wstring text;
    Tvx_std_wstring_adapter adapter(text);
    for (std::size_t i = 0; i < items.size(); ++i) {
        vx_val_scale_get_text_w(scale, static_cast<unsigned>(i), adapter);
        items[i] = {make(text), static_cast<int>(i)};
    }
    std::ranges::sort(items, [&](auto const &a, auto const &b) { return less(a.first, b.first); });
    if (descending)
        std::ranges::reverse(items);
    owned_ints const order(vx_ints_create());
    vx_ints_set_size(order.get(), static_cast<unsigned>(items.size()));
    for (unsigned i = 0; i < items.size(); ++i)
        vx_ints_set_int(order.get(), i, items[i].second);
    vx_val_scale_set_order(scale, order.get());
}

void sort_texts_plain(void *scale, bool descending)
{
    sort_plain<std::wstring>(
        scale, descending, [](std::wstring const &text) { return text; },
        [](std::wstring const &a, std::wstring const &b) { return lstrcmpiW(a.c_str(), b.c_str()) < 0; });
}

void sort_numbers_plain(void *scale, bool descending)
{
    sort_plain<double>(
        scale, descending, [](std::wstring const &text) { return std::wcstod(text.c_str(), nullptr); },
        [](double a, double b) { return a < b; });
}
} // namespace

int main(int argc, char **argv)
{
    QApplication const application(argc, argv);
    run("a palette, 10,000 entries", 10'000, c_style_col, &color_plain, [](bool) {
        return std::vector{7, 0};
    });
    run("inversion, 100,000 entries", 100'000, c_style_col, &invert_plain,
        [](bool) { return std::vector{3}; });
    run("sort as text, 100,000 entries", 100'000, c_text_col, &sort_texts_plain, [](bool descending) {
        return std::vector{0, descending ? 1 : 0};
    });
    run("sort as numbers, 100,000 entries", 100'000, c_text_col, &sort_numbers_plain, [](bool descending) {
        return std::vector{1, descending ? 1 : 0};
    });
}
