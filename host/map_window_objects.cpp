#include "host/attribute_table.h"
#include "host/captions.h"
#include "host/identify_panel.h"
#include "host/layer_panel.h"
#include "host/map_canvas.h"
#include "host/map_selection.h"
#include "host/map_window.h"
#include "host/opening_progress.h"
#include "host/selection_overlay.h"

#include "platform/layers/vx_shp_lr2d.h"

#include <QApplication>
#include <QDockWidget>
#include <QKeyEvent>
#include <QTableView>
#include <QTimer>
#include <QTreeWidget>

#include <utility>

// Objects of the map: what lies under a click, their tables, and which of them stand out.

namespace {
constexpr std::size_t c_most_objects = 100;
constexpr int c_identify_width = 320;
constexpr int c_table_height = 220;
} // namespace

void Tvx_map_window::create_identify_dock()
{
    f_identify_dock = new QDockWidget(vx_map_caption(c_map_identify_title), this);
    f_identify_dock->setObjectName(QStringLiteral("identify_dock"));
    f_identify_dock->setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    f_identify = new Tvx_identify_panel(f_layers, f_identify_dock);
    f_identify_dock->setWidget(f_identify);
    addDockWidget(Qt::RightDockWidgetArea, f_identify_dock);
    resizeDocks({f_identify_dock}, {c_identify_width}, Qt::Horizontal);
    f_identify_dock->hide();
    // Tables take the room between the panels at the sides.
    setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
    setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
}

void Tvx_map_window::connect_objects()
{
    f_selection = new Tvx_map_selection(this);
    f_overlay = std::make_unique<Tvx_selection_overlay>(f_layers, *f_canvas, *f_selection);
    f_canvas->set_overlay(make_closure<&Tvx_selection_overlay::paint>(f_overlay.get()));
    connect(f_selection, &Tvx_map_selection::changed, f_canvas, qOverload<>(&QWidget::update));
    connect(f_canvas, &Tvx_map_canvas::clicked, this, &Tvx_map_window::on_map_clicked);
    connect(f_identify, &Tvx_identify_panel::object_chosen, this,
            [this](int id, unsigned record) { select_objects(id, {record}); });
    connect(f_identify, &Tvx_identify_panel::cell_chosen, this, [this] { select_objects(-1, {}); });
    connect(f_identify, &Tvx_identify_panel::zoom_wanted, this,
            [this](int id, unsigned record) { f_canvas->show_box(vx_map_object_box(f_layers, id, record)); });
    connect(f_identify, &Tvx_identify_panel::table_wanted, this, [this](int id, unsigned record) {
        if (Tvx_attribute_table *const table = open_table(id))
            table->select_records({record});
    });
    connect(&f_layers, &Tvx_layer_list::layer_removed, this, [this](int id) {
        f_identify->forget_layer(id);
        if (f_selection->layer_id() == id)
            f_selection->clear();
        delete f_tables.take(id).dock;
    });
    connect(f_identify, &Tvx_identify_panel::close_wanted, this, [this] {
        f_identify_dock->hide();
        f_canvas->setFocus();
    });
    connect(&f_layers, &Tvx_layer_list::layer_renamed, this, [this](int id) {
        if (QDockWidget *const dock = f_tables.value(id).dock)
            dock->setWindowTitle(
                vx_map_caption(c_map_table_title).arg(f_layers.name_at(f_layers.row_of(id))));
    });
    connect(&f_layers, &Tvx_layer_list::layer_replaced, this, [this](int id) {
        // Records of other data are other objects.
        Tvx_attribute_table *const table = f_tables.value(id).table;
        if (!table || !table->is_of_other_data(f_layers.layer_at(f_layers.row_of(id))))
            return;
        if (f_selection->layer_id() == id)
            f_selection->clear();
        delete f_tables.take(id).dock;
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
    if (with_ctrl && !first.has_record)
        return;
    if (with_ctrl) {
        f_selection->toggle(first.layer_id, first.record);
        show_selection_in_tables();
        return;
    }
    if (first.has_record)
        select_objects(first.layer_id, {first.record});
    else
        select_objects(-1, {});
    f_identify->show_objects(std::move(found), is_all);
    f_identify_dock->show();
    f_identify_dock->raise();
    if (by_key)
        f_identify->tree()->setFocus();
}

void Tvx_map_window::select_objects(int layer_id, std::vector<unsigned> records)
{
    f_selection->set(layer_id, std::move(records));
    show_selection_in_tables();
}

void Tvx_map_window::show_selection_in_tables()
{
    for (auto i = f_tables.begin(); i != f_tables.end(); ++i)
        i.value().table->select_records(i.key() == f_selection->layer_id() ? f_selection->records()
                                                                           : std::vector<unsigned>());
}

void Tvx_map_window::on_table()
{
    open_table(f_panel->selected_id());
}

Tvx_attribute_table *Tvx_map_window::open_table(int id)
{
    if (!f_tables.contains(id) && !create_table(id))
        return nullptr;
    table_dock const &opened = f_tables[id];
    opened.dock->show();
    opened.dock->raise();
    opened.table->view()->setFocus();
    return opened.table;
}

bool Tvx_map_window::create_table(int id)
{
    Ivx_layer *const layer = f_layers.layer_at(f_layers.row_of(id));
    auto created = std::make_unique<Tvx_attribute_table>(layer);
    if (!created->is_open()) {
        show_message(vx_map_caption(c_map_err_table).arg(vx_layer_name(layer)));
        return false;
    }
    Tvx_attribute_table *const table = created.get();
    auto *const dock = new QDockWidget(vx_map_caption(c_map_table_title).arg(vx_layer_name(layer)), this);
    dock->setObjectName(QStringLiteral("table_dock_%1").arg(id));
    dock->setAllowedAreas(Qt::BottomDockWidgetArea | Qt::TopDockWidgetArea);
    dock->setWidget(created.release());
    QDockWidget *const beside = f_tables.isEmpty() ? nullptr : f_tables.begin()->dock;
    addDockWidget(Qt::BottomDockWidgetArea, dock);
    if (beside)
        tabifyDockWidget(beside, dock);
    else
        resizeDocks({dock}, {c_table_height}, Qt::Vertical);
    f_tables.insert(id, {dock, table});
    connect(table, &Tvx_attribute_table::selection_changed, this, [this, id, table] {
        f_selection->set(id, table->selected_records());
        for (auto i = f_tables.begin(); i != f_tables.end(); ++i)
            if (i.key() != id)
                i.value().table->select_records({});
    });
    connect(table, &Tvx_attribute_table::record_chosen, this,
            [this, id](unsigned record) { show_object(id, record); });
    connect(table, &Tvx_attribute_table::zoom_wanted, this, &Tvx_map_window::zoom_to_selection);
    connect(table, &Tvx_attribute_table::close_wanted, this, [this, dock] {
        dock->hide();
        f_canvas->setFocus();
    });
    connect(dock, &QDockWidget::dockLocationChanged, this, &Tvx_map_window::order_stops);
    order_stops();
    table->set_wait([this](bool is_long, auto const &work) { wait_for_table(is_long, work); });
    if (f_selection->layer_id() == id)
        table->select_records(f_selection->records());
    return true;
}

void Tvx_map_window::wait_for_table(bool is_long,
                                    std::function<void(std::function<bool()> const &)> const &work)
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    {
        Tvx_opening_progress progress(this, command("quit"), Tvx_opening_progress::c_own);
        f_opening = &progress;
        progress.set_text(vx_map_caption(c_map_sorting));
        if (is_long)
            progress.show_now();
        work([&] { return progress.goes_on(); });
    }
    QApplication::restoreOverrideCursor();
    // The window was closed meanwhile.
    if (std::exchange(f_closes_after_opening, false))
        QTimer::singleShot(0, this, &QWidget::close);
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
    if (event->key() == Qt::Key_Escape && f_identify_dock->isVisible())
        f_identify_dock->hide();
    else if (event->key() == Qt::Key_Escape)
        select_objects(-1, {});
    else
        QMainWindow::keyPressEvent(event);
}
