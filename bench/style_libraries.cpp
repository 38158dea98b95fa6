// Opening the browser of the style libraries on a library of 2,000 styles, from its creation to the first
// picture on the screen, against the same widgets put together in plain Qt with its own layouts. Both are
// measured in turn in one run, by the processor's time; the median counts. What opening costs while the
// libraries are read, and how often they are read, stands beside it.

#include "plain_dialog.h"
#include "styles/libraries/style_libs_form.h"

#include "platform/base/owned.h"
#include "platform/styles/vx_global_lib_styles.h"
#include "platform/styles/vx_style.h"
#include "platform/styles/vx_style_lib.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QPainter>
#include <QSplitter>
#include <QTabWidget>
#include <QTreeWidget>

#include <cstdio>
#include <string>
#include <vector>

namespace {
constexpr int c_rounds = 40;
constexpr int c_warm_up = 4;
constexpr int c_groups = 40;
constexpr int c_in_group = 50;
constexpr int c_seen = 1234;
int loads = 0;

bool fill_libs(void *libs)
{
    ++loads;
    void *const lib = vx_style_libs_add_lib(libs, L"Two thousand lines");
    void *const list = vx_style_lib_get_pln_list_ptr(lib);
    void *const root = vx_style_item_get_style_items_ptr(vx_style_lib_get_root_item_ptr(lib));
    for (int g = 0; g < c_groups; ++g) {
        void *const group = vx_style_item_get_style_items_ptr(
            vx_style_items_add(root, (L"Group " + std::to_wstring(g)).c_str(), -1, -1));
        for (int i = 0; i < c_in_group; ++i) {
            int const index = g * c_in_group + i;
            vx_style_list_add_idx_style(list, index, 1);
            vx_style_items_add(group, (L"Line number " + std::to_wstring(index)).c_str(), index, 1);
        }
    }
    return true;
}

double open_browser(void *style)
{
    double const start = processor_ms();
    static_cast<void>(vx_global_lib_styles_load());
    Tvx_style_libs_form form(nullptr);
    form.set_pln_style(style);
    form.update_controls();
    form.set_last_params();
    form.load_res();
    form.Show();
    QApplication::processEvents();
    return processor_ms() - start;
}

/// A zigzag, as large as it is shown.
class plain_sample : public QWidget
{
protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), Qt::white);
        painter.setRenderHint(QPainter::Antialiasing);
        QPointF const points[] = {{width() * 0.2, height() * 0.6},
                                  {width() * 0.4, height() * 0.3},
                                  {width() * 0.6, height() * 0.6},
                                  {width() * 0.8, height() * 0.3}};
        painter.drawPolyline(points, 4);
    }
};

double open_plain()
{
    double const start = processor_ms();
    QWidget window(nullptr, Qt::Tool);
    window.resize(640, 400);
    auto *column = new QVBoxLayout(&window);
    auto *top = new QHBoxLayout;
    column->addLayout(top);
    top->addWidget(new QLabel(QStringLiteral("Library:")));
    auto *libs = new QComboBox;
    libs->addItem(QStringLiteral("Two thousand lines"));
    top->addWidget(libs);
    auto *parts = new QSplitter;
    column->addWidget(parts, 1);
    auto *tree = new QTreeWidget;
    tree->setHeaderHidden(true);
    parts->addWidget(tree);
    auto *root = new QTreeWidgetItem(tree, {QStringLiteral("Two thousand lines")});
    QTreeWidgetItem *seen = nullptr;
    for (int g = 0; g < c_groups; ++g) {
        auto *group = new QTreeWidgetItem(root, {QStringLiteral("Group %1").arg(g)});
        for (int i = 0; i < c_in_group; ++i) {
            int const index = g * c_in_group + i;
            auto *item = new QTreeWidgetItem(group, {QStringLiteral("Line number %1").arg(index)});
            item->setData(0, Qt::UserRole, index);
            seen = index == c_seen ? item : seen;
        }
    }
    root->setExpanded(true);
    tree->setCurrentItem(seen);
    auto *right = new QWidget;
    parts->addWidget(right);
    parts->setSizes({400, 236});
    auto *styles = new QVBoxLayout(right);
    auto *search = new QHBoxLayout;
    styles->addLayout(search);
    search->addStretch();
    search->addWidget(new QPushButton(QStringLiteral("Search...")));
    auto *next = new QPushButton(QStringLiteral("Search next"));
    search->addWidget(next);
    next->hide();
    auto *tabs = new QTabWidget;
    styles->addWidget(tabs, 1);
    tabs->addTab(new QWidget, QStringLiteral("—"));
    for (char const *caption : {"Points", "Lines", "Polygons"}) {
        auto *page = new QWidget;
        auto *rows = new QVBoxLayout(page);
        auto *frame = new QFrame;
        frame->setFrameShape(QFrame::Panel);
        auto *inside = new QVBoxLayout(frame);
        inside->addWidget(new plain_sample);
        rows->addWidget(frame, 1);
        auto *steps = new QHBoxLayout;
        rows->addLayout(steps);
        add_glyphs(steps, 2);
        tabs->addTab(page, QString::fromUtf8(caption));
    }
    tabs->setCurrentIndex(2);
    styles->addWidget(new QLabel(QStringLiteral("Number: 1234")));
    add_bottom(column);
    window.setWindowTitle(QStringLiteral("Style libraries"));
    window.show();
    QApplication::processEvents();
    return processor_ms() - start;
}
} // namespace

int main(int argc, char **argv)
{
    QApplication const application(argc, argv);
    vx_global_lib_styles_set_loader(&fill_libs);
    vx::owned<void, &vx_pln_style_destroy> const style(vx_pln_style_create());
    Tvx_style_libs_form::fs_idx = c_seen;
    Tvx_style_libs_form::fs_ver = 1;
    double const first = open_browser(style.get());
    auto const times = medians(
        c_warm_up, c_rounds, [&] { return open_browser(style.get()); }, &open_plain);
    std::printf("browser: %.3f ms\nplain:   %.3f ms\nratio:   %.2f\n", times[0], times[1],
                times[0] / times[1]);
    std::printf("first, with reading: %.3f ms; read %d time(s)\n", first, loads);
}
