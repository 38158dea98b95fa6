#pragma once

#include "layer_edit/shape/shp_lr2d_edit.h"
#include "sample_table.h"

#include "platform/base/owned.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/styles/vxk_styles.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/core/form.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

namespace vx_bench {
using owned_layer = vx::owned<Ivx_layer, &vx_lr2d_destroy>;

/// The page of a point layer on a window of its own, with the editor of unique values or of ranges.
template <unsigned mode>
class page_window
{
public:
    explicit page_window(owned_layer layer)
        : f_layer(std::move(layer)), f_page(new Tvx_shp_pnt_lr2d_edit(&f_form))
    {
        f_form.SetBounds(50, 50, 480, 600);
        f_page->SetParent(&f_form);
        f_page->create();
        f_page->SetAlign(alClient);
        f_page->load_res();
        vx_stl_mngr_set_mode(vx_shp_lr2d_get_stl_mngr_ptr(f_layer.get()), mode);
        f_page->set_lr2d(f_layer.get());
        f_page->update_controls();
        f_form.Show();
        QApplication::processEvents();
    }
    auto *edit()
    {
        if constexpr (mode == c_stl_mngr_mode_value)
            return f_page->get_stl_mngr_edit()->get_val_edit();
        else
            return f_page->get_stl_mngr_edit()->get_rng_edit();
    }
    auto *grid() { return edit()->get_grid(); }
    unsigned entries()
    {
        if constexpr (mode == c_stl_mngr_mode_value)
            return vx_val_scale_get_size(grid()->get_scale());
        else
            return vx_rng_scale_get_size(grid()->get_scale());
    }
    /// As the click on the line of the list does, to the picture.
    void choose(wchar_t const *field)
    {
        auto *const box = edit()->get_prp_scale();
        box->set_prop_name(field);
        box->on_changed(box);
        QApplication::processEvents();
        grid()->Update();
    }
    void paint()
    {
        grid()->Invalidate();
        grid()->Update();
    }
    void click_cell(int col, int row)
    {
        TRect const cell = grid()->CellRect(col, row);
        QPointF const at(cell.CenterPoint().X, cell.CenterPoint().Y);
        auto *const widget = vx_qt_widget(grid());
        for (auto const type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, at, widget->mapToGlobal(at), Qt::LeftButton,
                              type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                              Qt::NoModifier);
            QApplication::sendEvent(widget, &event);
        }
    }
    void click_mark(int row) { click_cell(0, row); }

private:
    TForm f_form{nullptr};
    owned_layer f_layer;
    Tvx_shp_pnt_lr2d_edit *f_page;
};
} // namespace vx_bench
