// The channel editor on a raster. Dragging a mark of the histogram, with all that follows it on the page, to
// the picture, against painting the chart. Measured in turn in one run; the least counts.

#include "raster_property/channels/channels_edit.h"
#include "raster_property/raster/rtr_id_lr2d_edit.h"
#include "sample_table.h"

#include "platform/base/owned.h"
#include "platform/layers/vx_rtr_lr2d.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/core/form.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

using namespace vx_bench;

namespace {
constexpr int c_steps = 200;
constexpr double c_bound = 1.2;

void send(TChart *chart, QEvent::Type type, int x)
{
    auto *const widget = vx_qt_widget(chart);
    QPointF const at(x, 60);
    auto const button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    auto const held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, at, widget->mapToGlobal(at), button, held, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
    QApplication::processEvents();
}
} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication const application(argc, argv);
    vx::owned<Ivx_layer, &vx_lr2d_destroy> const layer(
        vx_rtr_lr2d_create(L"" VX_EXAMPLE_DATA "/L7_ETMs.tif"));
    vx_rtr_lr2d_set_draw_type(layer.get(), c_rtr_draw_gray);
    TForm form(nullptr);
    form.SetBounds(50, 50, 480, 600);
    auto *const page = new Tvx_rtr_id_lr2d_edit(&form);
    page->SetParent(&form);
    page->create();
    page->SetAlign(alClient);
    page->set_lr2d(layer.get());
    page->update_controls();
    form.Show();
    QApplication::processEvents();
    auto *const edit = page->get_channels()->get_edit(3);
    auto *const chart = edit->get_chart()->get_chart();
    auto *const axis = chart->GetBottomAxis();
    edit->get_track_min()->try_new_val(axis->GetMinimum() + 20);
    QApplication::processEvents();

    int const first = axis->CalcPosValue(edit->get_track_min()->get_val());
    auto const paint = [&] {
        for (int i = 0; i < c_steps; ++i) {
            chart->Invalidate();
            QApplication::processEvents();
        }
        return 0;
    };
    auto const drag = [&] {
        send(chart, QEvent::MouseButtonPress, axis->CalcPosValue(edit->get_track_min()->get_val()));
        for (int i = 0; i < c_steps; ++i)
            send(chart, QEvent::MouseMove, first + i);
        send(chart, QEvent::MouseButtonRelease, first + c_steps);
        return 0;
    };
    auto const times = compare(paint, drag, 9);
    double const ratio = times.own.processor / times.plain.processor;
    std::printf(
        "  a mark moved by a pixel  painting %5.0f us  moving %5.0f us  ratio %4.2f  bound %4.2f %s\n",
        times.plain.processor / c_steps * 1e6, times.own.processor / c_steps * 1e6, ratio, c_bound,
        ratio <= c_bound ? "" : "EXCEEDED");
}
