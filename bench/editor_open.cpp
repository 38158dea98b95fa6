// Opening the layer editor, from its creation to the first picture on the screen, against the same widgets
// put together in plain Qt. Both are measured in turn in one run; the median counts.

#include "exports/vxk_lr2d_edit_form_api.h"

#include "platform/base/owned.h"
#include "platform/layers/vx_lr2d.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <memory>
#include <vector>

namespace {
using clock_type = std::chrono::steady_clock;
constexpr int c_rounds = 60;
constexpr int c_warm_up = 5;

double milliseconds_since(clock_type::time_point start)
{
    return std::chrono::duration<double, std::milli>(clock_type::now() - start).count();
}

double open_editor(Ivx_layer *layer)
{
    auto const start = clock_type::now();
    vx::owned<Tvx_lr2d_edit_form, &vx_lr2d_edt_form_destroy> const form(vx_lr2d_edt_form_create());
    vx_lr2d_edt_form_create_all(form.get());
    vx_lr2d_edt_form_set_lr2d(form.get(), layer);
    vx_lr2d_edt_form_update(form.get());
    vx_lr2d_edt_form_show_pos(form.get(), 100, 100);
    QApplication::processEvents();
    return milliseconds_since(start);
}

double open_plain()
{
    auto const start = clock_type::now();
    QWidget window(nullptr, Qt::Tool | Qt::WindowStaysOnTopHint);
    window.resize(480, 600);
    auto *column = new QVBoxLayout(&window);
    auto *tabs = new QTabWidget;
    for (char const *caption : {"", "Style", "Text", "Labels"})
        tabs->addTab(new QWidget, QString::fromUtf8(caption));
    tabs->setTabVisible(0, false);
    tabs->setTabVisible(2, false);
    column->addWidget(tabs);
    auto *strip = new QWidget;
    auto *row = new QHBoxLayout(strip);
    row->addStretch();
    for (char const *caption : {"&Apply", "&Cancel", "&Help"}) {
        auto *button = new QPushButton(QString::fromUtf8(caption));
        button->setVisible(caption[1] == 'A');
        row->addWidget(button);
    }
    column->addWidget(strip);
    window.setWindowTitle(QStringLiteral("Layer properties: layer"));
    window.move(100, 100);
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
    vx::owned<Ivx_layer, &vx_lr2d_destroy> const layer(vx_lr2d_create("shp_pnt_lr2d"));
    std::vector<double> editor;
    std::vector<double> plain;
    for (int i = -c_warm_up; i < c_rounds; ++i) {
        double const ours = open_editor(layer.get());
        double const raw = open_plain();
        if (i < 0)
            continue;
        editor.push_back(ours);
        plain.push_back(raw);
    }
    std::printf("editor: %.3f ms\nplain:  %.3f ms\nratio:  %.2f\n", median(editor), median(plain),
                median(editor) / median(plain));
}
