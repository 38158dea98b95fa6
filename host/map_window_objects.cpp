#include "host/attribute_table.h"
#include "host/captions.h"
#include "host/identify_window.h"
#include "host/layer_panel.h"
#include "host/map_canvas.h"
#include "host/map_selection.h"
#include "host/map_window.h"
#include "host/selection_overlay.h"

#include "platform/layers/vx_shp_lr2d.h"

#include <QKeyEvent>
#include <QScreen>

// Objects of the map: what lies under a click, their tables, and which of them stand out.

namespace {
constexpr std::size_t c_most_objects = 100;
constexpr int c_window_gap = 16;

/// Puts a window at a place of the screen, all of it.
void place_window(QWidget &window, QPoint at)
{
    QRect const screen = window.screen()->availableGeometry();
    window.move(std::clamp(at.x(), screen.left(), std::max(screen.left(), screen.right() - window.width())),
                std::clamp(at.y(), screen.top(), std::max(screen.top(), screen.bottom() - window.height())));
}
} // namespace

void Tvx_map_window::connect_objects()
{
    f_selection = new Tvx_map_selection(this);
    f_overlay = std::make_unique<Tvx_selection_overlay>(f_layers, *f_canvas, *f_selection);
    f_canvas->set_overlay(make_closure<&Tvx_selection_overlay::paint>(f_overlay.get()));
    f_identify = new Tvx_identify_window(f_layers, this);
    connect(f_selection, &Tvx_map_selection::changed, f_canvas, qOverload<>(&QWidget::update));
    connect(f_canvas, &Tvx_map_canvas::clicked, this, &Tvx_map_window::on_map_clicked);
    connect(f_identify, &Tvx_identify_window::object_chosen, this,
            [this](int id, unsigned record) { select_objects(id, {record}); });
    connect(f_identify, &Tvx_identify_window::zoom_wanted, this,
            [this](int id, unsigned record) { f_canvas->show_box(vx_map_object_box(f_layers, id, record)); });
    connect(f_identify, &Tvx_identify_window::table_wanted, this, [this](int id, unsigned record) {
        if (Tvx_attribute_table *const table = open_table(id))
            table->select_records({record});
    });
    connect(&f_layers, &Tvx_layer_list::layer_removed, this, [this](int id) {
        f_identify->forget_layer(id);
        if (f_selection->layer_id() == id)
            f_selection->clear();
        delete f_tables.take(id);
    });
    connect(&f_layers, &Tvx_layer_list::layer_renamed, this, [this](int id) {
        if (Tvx_attribute_table *const table = f_tables.value(id))
            table->set_layer_name(f_layers.name_at(f_layers.row_of(id)));
    });
    connect(&f_layers, &Tvx_layer_list::layer_replaced, this, [this](int id) {
        // Records of other data are other objects.
        Tvx_attribute_table *const table = f_tables.value(id);
        if (!table || !table->is_of_other_data(f_layers.layer_at(f_layers.row_of(id))))
            return;
        if (f_selection->layer_id() == id)
            f_selection->clear();
        delete f_tables.take(id);
    });
}

void Tvx_map_window::on_map_clicked(QPointF at, bool with_ctrl, bool by_key)
{
    std::vector<Tvx_found_object> found =
        vx_map_identify(f_layers, f_canvas->view(), {at.x(), at.y()}, c_most_objects + 1);
    bool const is_all = found.size() <= c_most_objects;
    if (!is_all)
        found.pop_back();
    if (found.empty()) {
        show_message(vx_map_caption(c_map_identify_nothing));
        if (!with_ctrl)
            select_objects(-1, {});
        if (f_identify->isVisible())
            f_identify->show_objects({}, true);
        return;
    }
    Tvx_found_object const first = found.front();
    if (with_ctrl) {
        f_selection->toggle(first.layer_id, first.record);
        show_selection_in_tables();
        return;
    }
    select_objects(first.layer_id, {first.record});
    if (!f_identify->isVisible())
        place_window(*f_identify, f_canvas->mapToGlobal(QPoint(
                                      f_canvas->width() - f_identify->width() - c_window_gap, c_window_gap)));
    f_identify->show_objects(std::move(found), is_all);
    if (by_key)
        f_identify->activateWindow();
}

void Tvx_map_window::select_objects(int layer_id, std::vector<unsigned> records)
{
    f_selection->set(layer_id, std::move(records));
    show_selection_in_tables();
}

void Tvx_map_window::show_selection_in_tables()
{
    for (auto i = f_tables.begin(); i != f_tables.end(); ++i)
        i.value()->select_records(i.key() == f_selection->layer_id() ? f_selection->records()
                                                                     : std::vector<unsigned>());
}

void Tvx_map_window::on_table()
{
    open_table(f_panel->selected_id());
}

Tvx_attribute_table *Tvx_map_window::open_table(int id)
{
    Ivx_layer *const layer = f_layers.layer_at(f_layers.row_of(id));
    Tvx_attribute_table *&table = f_tables[id];
    if (!table) {
        auto opened = std::make_unique<Tvx_attribute_table>(layer, this);
        if (!opened->is_open()) {
            f_tables.remove(id);
            show_message(vx_map_caption(c_map_err_table).arg(vx_layer_name(layer)));
            return nullptr;
        }
        table = opened.release();
        table->set_layer_name(vx_layer_name(layer));
        connect(table, &Tvx_attribute_table::selection_changed, this, [this, id, table] {
            f_selection->set(id, table->selected_records());
            for (auto i = f_tables.begin(); i != f_tables.end(); ++i)
                if (i.key() != id)
                    i.value()->select_records({});
        });
        connect(table, &Tvx_attribute_table::record_chosen, this,
                [this, id](unsigned record) { show_object(id, record); });
        connect(table, &Tvx_attribute_table::zoom_wanted, this, &Tvx_map_window::zoom_to_selection);
        if (f_selection->layer_id() == id)
            table->select_records(f_selection->records());
        place_beside(*table);
    }
    table->show();
    table->raise();
    table->activateWindow();
    return table;
}

/// Where the screen has room: to the right of the window or below it, else over the lower part of the map.
void Tvx_map_window::place_beside(QWidget &window) const
{
    QRect const screen = this->screen()->availableGeometry();
    QRect const frame = frameGeometry();
    if (frame.right() + c_window_gap + window.width() <= screen.right())
        place_window(window, {frame.right() + c_window_gap, frame.bottom() - window.height()});
    else if (frame.bottom() + c_window_gap + window.height() <= screen.bottom())
        place_window(window, {frame.left(), frame.bottom() + c_window_gap});
    else
        place_window(window, f_canvas->mapToGlobal(QPoint(0, f_canvas->height() - window.height())));
}

void Tvx_map_window::show_object(int id, unsigned record)
{
    Tvx_box_d2 const box = vx_map_object_box(f_layers, id, record);
    Tvx_box_d2 const seen = f_canvas->view().box();
    if (box.is_empty() || box.intersects(seen))
        return;
    // The scale is the user's; only what does not fit in is shown from further off.
    if (box.width() > seen.width() || box.height() > seen.height()) {
        f_canvas->show_box(box);
        return;
    }
    Tvx_canvas_view view = f_canvas->view();
    view.set_center({(box.min_x + box.max_x) / 2, (box.min_y + box.max_y) / 2});
    f_canvas->go_to(view);
}

void Tvx_map_window::zoom_to_selection()
{
    Tvx_box_d2 box;
    for (unsigned const record : f_selection->records())
        box.add(vx_map_object_box(f_layers, f_selection->layer_id(), record));
    f_canvas->show_box(box);
}

void Tvx_map_window::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && f_identify->isVisible())
        f_identify->hide();
    else if (event->key() == Qt::Key_Escape)
        select_objects(-1, {});
    else
        QMainWindow::keyPressEvent(event);
}
