// Opening the style dialog of a polygon layer, from its creation to the first picture on the screen, against
// the same widgets put together in plain Qt with its own layouts. Both are measured in turn in one run, by
// the processor's time; the median counts.

#include "plain_dialog.h"
#include "styles/simple/style_dlgs.h"

#include "platform/base/owned.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_stl_prm.h"

#include <QApplication>
#include <QCheckBox>
#include <QPushButton>
#include <QTabWidget>

#include <cstdio>
#include <vector>

namespace {
constexpr int c_rounds = 60;
constexpr int c_warm_up = 5;

double open_dialog(void *style)
{
    double const start = processor_ms();
    Tvx_pgn_style_dlg dialog(nullptr);
    dialog.set_pgn_style(style);
    dialog.load_res();
    dialog.Show();
    QApplication::processEvents();
    return processor_ms() - start;
}

void add_flag(QVBoxLayout *column, char const *caption)
{
    auto *box = new QCheckBox(QString::fromUtf8(caption));
    box->setLayoutDirection(Qt::RightToLeft);
    column->addWidget(box);
}

/// The rows of a base style, those that are hidden too.
QWidget *make_page(bool point, bool number)
{
    auto *page = new QWidget;
    auto *column = new QVBoxLayout(page);
    if (point) {
        add_flag(column, "Character of a font");
        add_sample(column, "Figure");
        add_sample(column, "Character");
    }
    add_sample(column, "Colour");
    if (number)
        add_number(column, "Size");
    QHBoxLayout *complex = add_row(column, "Layers of the style");
    complex->addWidget(new QPushButton(QStringLiteral("...")));
    complex->parentWidget()->hide();
    column->addStretch();
    add_flag(column, "Complex style");
    return page;
}

double open_plain()
{
    double const start = processor_ms();
    QWidget window(nullptr, Qt::Tool);
    window.resize(350, 330);
    auto *column = new QVBoxLayout(&window);
    auto *boxes = new QGridLayout;
    column->addLayout(boxes);
    auto *tabs = new QTabWidget;
    column->addWidget(tabs);
    int place = 0;
    for (char const *caption : {"Fill", "Outline", "Vertices"}) {
        boxes->addWidget(new QCheckBox(QString::fromUtf8(caption)), place / 2, place % 2);
        tabs->addTab(make_page(place == 2, place > 0), QString::fromUtf8(caption));
        ++place;
    }
    tabs->setTabVisible(2, false);
    auto *library = new QHBoxLayout;
    column->addLayout(library);
    add_glyphs(library, 2);
    auto *main = new QPushButton(QStringLiteral("Style library..."));
    library->addWidget(main);
    main->hide();
    library->addStretch();
    add_bottom(column);
    window.setWindowTitle(QStringLiteral("Polygon style"));
    window.show();
    QApplication::processEvents();
    return processor_ms() - start;
}
} // namespace

int main(int argc, char **argv)
{
    QApplication const application(argc, argv);
    vx::owned<Ivx_layer, &vx_lr2d_destroy> const layer(
        vx_shp_lr2d_create("shp_pgn_lr2d", L"" VX_EXAMPLE_DATA "/nc.shp"));
    void *const prm = vx_stl_mngr_get_simple_sp_ptr(vx_shp_pgn_lr2d_get_stl_mngr_ptr(layer.get()));
    void *const style = vx_stl_prm_get_pgn_style_ptr(prm, false);
    if (!style) {
        std::fprintf(stderr, "nc.shp cannot be opened\n");
        return 1;
    }
    auto const times = medians(
        c_warm_up, c_rounds, [&] { return open_dialog(style); }, &open_plain);
    std::printf("dialog: %.3f ms\nplain:  %.3f ms\nratio:  %.2f\n", times[0], times[1], times[0] / times[1]);
}
