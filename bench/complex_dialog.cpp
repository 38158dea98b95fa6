// Opening the dialog of a complex style, from its creation to the first picture on the screen, against the
// same widgets put together in plain Qt with its own layouts. Both are measured in turn in one run, by the
// processor's time; the median counts.

#include "plain_dialog.h"
#include "styles/complex/cpx_styles_form.h"

#include "platform/base/owned.h"
#include "platform/styles/vxk_styles.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QMenu>
#include <QPainter>
#include <QPainterPath>
#include <QTabWidget>
#include <QTableWidget>

#include <cstdio>
#include <vector>

namespace {
constexpr int c_rounds = 60;
constexpr int c_warm_up = 5;

double open_dialog(void *style)
{
    double const start = processor_ms();
    Tvx_cpx_styles_form dialog(nullptr);
    dialog.set_cpx_pgn_style(style);
    dialog.get_panel()->update_controls();
    dialog.load_res();
    dialog.Show();
    QApplication::processEvents();
    return processor_ms() - start;
}

void add_numbers(QVBoxLayout *column, int count)
{
    for (int i = 0; i < count; ++i)
        add_number(column, "Offset to the right");
}

/// A list below the buttons for its rows, the boxes that it edits cells in, and the menu that one button
/// opens.
void add_list(QVBoxLayout *column, std::vector<char const *> const &rows, int menu_lines)
{
    auto *tools = new QHBoxLayout;
    column->addLayout(tools);
    add_glyphs(tools, 4);
    tools->addStretch();
    auto *table = new QTableWidget(int(rows.size()), 1);
    table->setHorizontalHeaderLabels({QStringLiteral("Layer")});
    table->horizontalHeader()->setStretchLastSection(true);
    for (int i = 0; i < int(rows.size()); ++i)
        table->setItem(i, 0, new QTableWidgetItem(QString::fromUtf8(rows[std::size_t(i)])));
    column->addWidget(table);
    for (int i = 0; i < 2; ++i)
        (new QComboBox(table))->hide();
    auto *menu = new QMenu(table);
    for (int i = 0; i < menu_lines; ++i)
        menu->addAction(QStringLiteral("Hatch"));
}

/// The editor of the layer that is shown, or those of all seven kinds.
QWidget *make_editors(bool all_kinds)
{
    auto *all = new QWidget;
    auto *column = new QVBoxLayout(all);
    auto const editor = [&](bool seen) {
        auto *page = new QWidget;
        column->addWidget(page);
        page->setVisible(seen);
        return new QVBoxLayout(page);
    };
    auto *hatch = editor(true);
    add_numbers(hatch, 3);
    add_button(add_row(hatch, "Style of the lines"));
    hatch->addStretch();
    if (!all_kinds)
        return all;
    auto *symbol = editor(false);
    add_sample(symbol, "Symbol");
    add_sample(symbol, "Colour");
    add_numbers(symbol, 4);
    auto *figure = editor(false);
    add_sample(figure, "Symbol");
    add_sample(figure, "Colour");
    add_numbers(figure, 6);
    auto *line = editor(false);
    add_sample(line, "Colour");
    add_numbers(line, 2);
    auto *tplt = editor(false);
    auto *tplt_tabs = new QTabWidget;
    tplt->addWidget(tplt_tabs);
    for (bool const values : {true, false}) {
        auto *page = new QWidget;
        auto *rows = new QVBoxLayout(page);
        if (values) {
            add_sample(rows, "Colour");
            add_numbers(rows, 5);
            add_button(add_row(rows, "Style of the symbols"));
        } else {
            add_list(rows, {}, 9);
        }
        tplt_tabs->addTab(page, QStringLiteral("Template"));
    }
    add_sample(editor(false), "Colour");
    auto *spots = editor(false);
    auto *types = new QComboBox;
    types->addItems({QStringLiteral("in rows"), QStringLiteral("every other row moved")});
    add_row(spots, "Arrangement")->addWidget(types);
    auto *spot_tabs = new QTabWidget;
    spots->addWidget(spot_tabs);
    for (bool const values : {true, false}) {
        auto *page = new QWidget;
        auto *rows = new QVBoxLayout(page);
        for (int i = values ? 2 : 0; i < 3; ++i)
            rows->addWidget(new QCheckBox(QStringLiteral("Random angle")));
        if (values) {
            add_numbers(rows, 5);
            add_sample(rows, "Point colour");
            add_button(add_row(rows, "Point style"));
        }
        spot_tabs->addTab(page, QStringLiteral("Places"));
    }
    return all;
}

/// A hatch, over a fill or over the check pattern alone.
QWidget *make_sample(int height, bool filled)
{
    constexpr int c_width = 190;
    auto *sample = new QLabel;
    QPixmap picture(c_width, height);
    picture.fill(Qt::white);
    QPainter p(&picture);
    QPixmap checks(8, 8);
    checks.fill(Qt::white);
    QPainter c(&checks);
    c.fillRect(0, 0, 4, 4, QColor(229, 229, 229));
    c.fillRect(4, 4, 4, 4, QColor(229, 229, 229));
    c.end();
    p.fillRect(picture.rect(), QBrush(checks));
    p.setRenderHint(QPainter::Antialiasing);
    if (filled)
        p.fillRect(picture.rect(), QColor(200, 200, 200));
    QPainterPath area;
    area.addPolygon(QPolygonF(QRectF(picture.rect())));
    p.setClipPath(area, Qt::IntersectClip);
    constexpr double c_step = 2 * 3.78 * 1.414;
    for (double x = -height; x < c_width; x += c_step)
        p.drawLine(QPointF(x, height), QPointF(x + height, 0));
    p.end();
    sample->setPixmap(picture);
    return sample;
}

/// A frame below a bold caption.
QVBoxLayout *add_quarter(QGridLayout *halves, int row, int col)
{
    auto *area = new QWidget;
    halves->addWidget(area, row, col);
    auto *column = new QVBoxLayout(area);
    auto *top = new QWidget;
    column->addWidget(top);
    auto *label = new QLabel(QStringLiteral("Layer"));
    (new QVBoxLayout(top))->addWidget(label);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    auto *frame = new QFrame;
    frame->setFrameShape(QFrame::Panel);
    column->addWidget(frame);
    return new QVBoxLayout(frame);
}

double open_plain(bool all_kinds)
{
    double const start = processor_ms();
    QWidget window(nullptr, Qt::Tool);
    window.resize(640, 480);
    auto *column = new QVBoxLayout(&window);
    auto *halves = new QGridLayout;
    column->addLayout(halves);
    add_quarter(halves, 0, 0)->addWidget(make_sample(110, true));
    add_list(add_quarter(halves, 0, 1), {"Hatch", "Fill"}, 9);
    add_quarter(halves, 1, 0)->addWidget(make_sample(260, false));
    add_quarter(halves, 1, 1)->addWidget(make_editors(all_kinds));
    add_bottom(column);
    window.setWindowTitle(QStringLiteral("Complex style"));
    window.show();
    QApplication::processEvents();
    return processor_ms() - start;
}
} // namespace

int main(int argc, char **argv)
{
    QApplication const application(argc, argv);
    vx::owned<void, &vx_cpx_pgn_style_destroy> const style(vx_cpx_pgn_style_create());
    void *const layers = vx_cpx_style_get_style_lrs_ptr(style.get());
    for (char const *key : {"pgn_htch_slr", "pgn_fill_slr"})
        if (!vx_style_lrs_add_lr(layers, key))
            return 1;
    auto const times = medians(
        c_warm_up, c_rounds, [&] { return open_dialog(style.get()); }, [] { return open_plain(false); },
        [] { return open_plain(true); });
    std::printf("dialog:                        %.3f ms\n", times[0]);
    std::printf("plain, the same widgets:       %.3f ms, ratio %.2f\n", times[1], times[0] / times[1]);
    std::printf("plain, of all kinds of layers: %.3f ms, ratio %.2f\n", times[2], times[0] / times[2]);
}
