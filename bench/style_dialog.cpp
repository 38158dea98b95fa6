// Opening the style dialog of a polygon layer, from its creation to the first picture on the screen, against
// the same widgets put together in plain Qt with its own layouts. Both are measured in turn in one run; the
// median counts.

#include "styles/simple/style_dlgs.h"

#include "platform/base/owned.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_stl_prm.h"

#include <QApplication>
#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

namespace {
using clock_type = std::chrono::steady_clock;
constexpr int c_rounds = 60;
constexpr int c_warm_up = 5;

double milliseconds_since(clock_type::time_point start)
{
    return std::chrono::duration<double, std::milli>(clock_type::now() - start).count();
}

double open_dialog(void *style)
{
    auto const start = clock_type::now();
    Tvx_pgn_style_dlg dialog(nullptr);
    dialog.set_pgn_style(style);
    dialog.load_res();
    dialog.Show();
    QApplication::processEvents();
    return milliseconds_since(start);
}

/// A row of a label and what stands at its right.
QHBoxLayout *add_row(QVBoxLayout *column, QString const &caption)
{
    auto *area = new QWidget;
    column->addWidget(area);
    auto *row = new QHBoxLayout(area);
    row->setContentsMargins(6, 3, 6, 3);
    row->addWidget(new QLabel(caption));
    row->addStretch();
    return row;
}

void add_sample(QVBoxLayout *column, QString const &caption)
{
    QHBoxLayout *row = add_row(column, caption);
    auto *frame = new QFrame;
    frame->setFrameShape(QFrame::Panel);
    frame->setFixedSize(20, 20);
    auto *sample = new QLabel(frame);
    QPixmap picture(18, 18);
    picture.fill(Qt::blue);
    sample->setPixmap(picture);
    row->addWidget(frame);
    auto *button = new QPushButton(QStringLiteral("..."));
    button->setFixedWidth(20);
    row->addWidget(button);
}

void add_number(QVBoxLayout *column, QString const &caption)
{
    QHBoxLayout *row = add_row(column, caption);
    row->addWidget(new QLineEdit(QStringLiteral("2.0")));
    row->addWidget(new QLabel(QStringLiteral("mm")));
}

void add_flag(QVBoxLayout *column, QString const &caption)
{
    auto *box = new QCheckBox(caption);
    box->setLayoutDirection(Qt::RightToLeft);
    column->addWidget(box);
}

/// The rows of a base style, those that are hidden too.
QWidget *make_page(bool point, bool number)
{
    auto *page = new QWidget;
    auto *column = new QVBoxLayout(page);
    if (point) {
        add_flag(column, QStringLiteral("Character of a font"));
        add_sample(column, QStringLiteral("Figure"));
        add_sample(column, QStringLiteral("Character"));
    }
    add_sample(column, QStringLiteral("Colour"));
    if (number)
        add_number(column, QStringLiteral("Size"));
    QHBoxLayout *complex = add_row(column, QStringLiteral("Layers of the style"));
    complex->addWidget(new QPushButton(QStringLiteral("...")));
    complex->parentWidget()->hide();
    column->addStretch();
    add_flag(column, QStringLiteral("Complex style"));
    return page;
}

double open_plain()
{
    auto const start = clock_type::now();
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
    QPixmap glyph(16, 16);
    glyph.fill(Qt::gray);
    for (int i = 0; i < 2; ++i) {
        auto *button = new QPushButton;
        button->setIcon(glyph);
        library->addWidget(button);
    }
    auto *main = new QPushButton(QStringLiteral("Style library..."));
    library->addWidget(main);
    main->hide();
    library->addStretch();
    auto *bottom = new QHBoxLayout;
    column->addLayout(bottom);
    bottom->addStretch();
    for (char const *caption : {"&Apply", "&Cancel", "&Help"}) {
        auto *button = new QPushButton(QString::fromUtf8(caption));
        button->setVisible(caption[1] != 'H');
        bottom->addWidget(button);
    }
    window.setWindowTitle(QStringLiteral("Polygon style"));
    window.show();
    QApplication::processEvents();
    return milliseconds_since(start);
}

double median(std::vector<double> values)
{
    std::ranges::sort(values);
    return values[values.size() / 2];
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
    std::vector<double> ours;
    std::vector<double> plain;
    for (int i = -c_warm_up; i < c_rounds; ++i) {
        double const dialog = open_dialog(style);
        double const raw = open_plain();
        if (i < 0)
            continue;
        ours.push_back(dialog);
        plain.push_back(raw);
    }
    std::printf("dialog: %.3f ms\nplain:  %.3f ms\nratio:  %.2f\n", median(ours), median(plain),
                median(ours) / median(plain));
}
