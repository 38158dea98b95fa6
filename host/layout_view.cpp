#include "host/layout_view.h"

#include "host/captions.h"
#include "host/layout_document.h"
#include "host/layout_sync.h"

#include "platform/layers/layout_keys.h"
#include "platform/layers/vx_scn_2d.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {
/// Drawing gives way to the user's events after this long, and shows what it has so often.
constexpr qint64 c_slice_ms = 12;
constexpr qint64 c_show_ms = 300;
constexpr int c_busy_wait_ms = 30;
constexpr double c_margin = 28; ///< of grey round the page, pixels
constexpr double c_least_zoom = 0.2;
constexpr double c_most_zoom = 60;
constexpr double c_notch_factor = 1.25;
constexpr double c_grip = 8;
constexpr double c_grip_reach = 7;
constexpr int c_least_move = 4;
constexpr double c_snap_pixels = 6;
constexpr double c_page_margin = 10; ///< elements snap to it, mm
constexpr double c_least_side = 1;
constexpr double c_key_step = 0.5;
constexpr double c_large_key_step = 5;
constexpr double c_map_key_part = 0.125;
/// An element without ground is hit at its line, this near.
constexpr double c_line_reach = 5;

QColor ground_color(QPalette const &palette)
{
    bool const is_dark = palette.color(QPalette::Window).lightness() < 128;
    return is_dark ? QColor(0x3a, 0x3d, 0x41) : QColor(0xa9, 0xae, 0xb4);
}

Tvx_box_d2 moved(Tvx_box_d2 const &box, double dx, double dy)
{
    return {box.min_x + dx, box.min_y + dy, box.max_x + dx, box.max_y + dy};
}

/// Three digits, which a person can remember.
double short_number(double value)
{
    double const step = std::pow(10, std::floor(std::log10(value)) - 2);
    return std::round(value / step) * step;
}
} // namespace

Tvx_layout_view::grip const Tvx_layout_view::c_grips[8] = {{-1, -1}, {0, -1}, {1, -1}, {1, 0},
                                                           {1, 1},   {0, 1},  {-1, 1}, {-1, 0}};

Tvx_layout_view::Tvx_layout_view(Tvx_layout_document &document, Tvx_layout_sync &sync, QWidget *parent)
    : QAbstractScrollArea(parent), f_document(document), f_sync(sync), f_picture(document, sync)
{
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(QFrame::NoFrame);
    setAccessibleName(vx_layout_caption(c_lay_page_area));
    setAccessibleDescription(vx_layout_caption(c_lay_page_help));
    viewport()->setMouseTracking(true);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    f_draw_timer.setSingleShot(true);
    connect(&f_draw_timer, &QTimer::timeout, this, &Tvx_layout_view::on_draw_timer);
    connect(&document, &Tvx_layout_document::changed, this, &Tvx_layout_view::on_document_changed);
}

// ---- how the page lies

QPointF Tvx_layout_view::to_screen(Tvx_pnt_d2 at) const
{
    return {f_place.left + at.x * f_place.zoom, f_place.top + at.y * f_place.zoom};
}

void Tvx_layout_view::update_place()
{
    Tvx_box_d2 const page = f_document.page_box();
    QSizeF const room = viewport()->size();
    if (f_fits)
        f_place.zoom = std::clamp(std::min((room.width() - 2 * c_margin) / page.width(),
                                           (room.height() - 2 * c_margin) / page.height()),
                                  c_least_zoom, c_most_zoom);
    auto const place = [](double size, double page_size, QScrollBar *bar) {
        // What just fits must not be scrolled by the last digits.
        constexpr double c_slack = 0.01;
        double const all = page_size + 2 * c_margin - c_slack;
        bar->setRange(0, std::max(0, int(std::ceil(all - size))));
        bar->setPageStep(int(size));
        bar->setSingleStep(int(size / 10));
        return all <= size ? (size - page_size) / 2 : c_margin - bar->value();
    };
    f_place.left = place(room.width(), page.width() * f_place.zoom, horizontalScrollBar());
    f_place.top = place(room.height(), page.height() * f_place.zoom, verticalScrollBar());
    start_drawing();
    viewport()->update();
}

void Tvx_layout_view::fit_page()
{
    f_fits = true;
    update_place();
    emit zoom_changed();
}

void Tvx_layout_view::set_zoom(double zoom)
{
    set_zoom_at(zoom, QRectF(viewport()->rect()).center());
}

void Tvx_layout_view::zoom_by(double factor)
{
    set_zoom(f_place.zoom * factor);
}

void Tvx_layout_view::set_zoom_at(double zoom, QPointF anchor)
{
    Tvx_pnt_d2 const at = f_place.to_page(anchor);
    f_fits = false;
    f_place.zoom = std::clamp(zoom, c_least_zoom, c_most_zoom);
    update_place();
    QPointF const moved = to_screen(at) - anchor;
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + int(std::lround(moved.x())));
    verticalScrollBar()->setValue(verticalScrollBar()->value() + int(std::lround(moved.y())));
    update_place();
    emit zoom_changed();
}

void Tvx_layout_view::scrollContentsBy(int /*dx*/, int /*dy*/)
{
    update_place();
}

void Tvx_layout_view::resizeEvent(QResizeEvent *)
{
    update_place();
    if (f_fits)
        emit zoom_changed();
}

void Tvx_layout_view::hideEvent(QHideEvent *event)
{
    // Windows of layouts stay when they are closed; one that is only minimised keeps its pictures.
    if (!event->spontaneous())
        f_picture.forget();
}

void Tvx_layout_view::showEvent(QShowEvent *)
{
    // Nothing is drawn for a window that is not seen.
    update_place();
}

// ---- drawing

Tvx_box_d2 Tvx_layout_view::seen_part() const
{
    Tvx_pnt_d2 const from = f_place.to_page({0, 0});
    Tvx_pnt_d2 const to = f_place.to_page({double(viewport()->width()), double(viewport()->height())});
    return {from.x, from.y, to.x, to.y};
}

void Tvx_layout_view::refresh()
{
    start_drawing();
}

void Tvx_layout_view::start_drawing()
{
    f_busy_drawing = true;
    if (!f_draw_timer.isActive())
        f_draw_timer.start(0);
}

void Tvx_layout_view::on_draw_timer()
{
    // The timer may run out while a large element serves events; that drawing goes on by itself.
    if (f_drawing || !isVisible())
        return;
    // Another window draws the same scenes.
    if (f_sync.is_used()) {
        f_draw_timer.start(c_busy_wait_ms);
        return;
    }
    f_sync.refresh();
    f_picture.request(seen_part(), f_place.zoom * devicePixelRatioF());
    f_drawing = true;
    f_slice.start();
    f_since_shown.start();
    Tvx_layout_picture::step_result result = Tvx_layout_picture::c_step_more;
    // An element that is being resized is stretched, and drawn when the hand rests.
    bool const rests = f_drag != c_drag_grip;
    while (rests && result == Tvx_layout_picture::c_step_more && f_slice.elapsed() < c_slice_ms)
        result = f_picture.step(make_closure<&Tvx_layout_view::is_drawing_unwanted>(this));
    f_drawing = false;
    for (int const id : f_picture.take_failed_ids())
        emit element_failed(id);
    viewport()->update();
    if (!rests)
        return;
    f_busy_drawing = result != Tvx_layout_picture::c_step_done;
    if (f_busy_drawing && isVisible())
        f_draw_timer.start(0);
    else
        emit settled();
}

bool Tvx_layout_view::is_drawing_unwanted()
{
    if (f_slice.elapsed() < c_slice_ms)
        return false;
    if (f_since_shown.elapsed() > c_show_ms) {
        viewport()->update();
        f_since_shown.restart();
    }
    double const zoom = f_place.zoom;
    QCoreApplication::processEvents();
    f_slice.restart();
    return !isVisible() || zoom != f_place.zoom || f_picture.is_work_in_vain();
}

void Tvx_layout_view::on_document_changed()
{
    select_ids(f_selection); // those that are still there
    update_place();
}

bool Tvx_layout_view::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::Leave)
        viewport()->unsetCursor();
    return QAbstractScrollArea::viewportEvent(event);
}

void Tvx_layout_view::paintEvent(QPaintEvent *)
{
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), ground_color(palette()));
    QRectF const page = f_place.to_screen(f_document.page_box());
    painter.fillRect(page.translated(3, 3), QColor(0, 0, 0, 70));
    painter.fillRect(page, Qt::white);
    f_picture.paint(painter, f_place);
    paint_selection(painter);
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1));
        painter.drawRect(viewport()->rect().adjusted(0, 0, -1, -1));
    }
}

void Tvx_layout_view::paint_selection(QPainter &painter) const
{
    bool const is_band = f_drag == c_drag_band && f_drag_moved;
    for (int const id : is_band ? f_banded : f_selection)
        paint_frame(painter, id);
    QColor const color = palette().color(QPalette::Highlight);
    if (is_band) {
        painter.setPen(QPen(color, 1));
        painter.setBrush(QColor(color.red(), color.green(), color.blue(), 40));
        painter.drawRect(QRectF(f_drag_from, f_drag_last).normalized());
        return;
    }
    if (f_selection.size() != 1 || !is_movable(selected_id()) || f_tool != c_tool_select)
        return;
    painter.setBrush(Qt::white);
    painter.setPen(QPen(color, 1.5));
    for (grip const &g : c_grips)
        painter.drawRect(grip_rect(g));
}

void Tvx_layout_view::paint_frame(QPainter &painter, int id) const
{
    QRectF const box = f_place.to_screen(f_document.box_of(id));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::white, 1));
    painter.drawRect(box);
    painter.setPen(
        QPen(palette().color(QPalette::Highlight), 1, is_movable(id) ? Qt::SolidLine : Qt::DashLine));
    painter.drawRect(box);
}

// ---- what lies where

bool Tvx_layout_view::is_movable(int id) const
{
    Ivx_layer const *const element = f_document.element(id);
    return element && !vx_layout_has_page_kind(element);
}

int Tvx_layout_view::element_at(QPointF at) const
{
    for (int row = 0; row < f_document.count(); ++row) {
        int const id = f_document.id_at(row);
        Ivx_layer const *const element = f_document.element(id);
        if (!vx_lr2d_get_visible(element))
            continue;
        QRectF const box = f_place.to_screen(f_document.box_of(id));
        if (!box.adjusted(-1, -1, 1, 1).contains(at))
            continue;
        // A line round the others would hide them all.
        double const reach = c_line_reach;
        if (vx_layout_is(element, c_lr_key_layout_neatline) &&
            box.adjusted(reach, reach, -reach, -reach).contains(at))
            continue;
        return id;
    }
    return -1;
}

int Tvx_layout_view::frame_at(QPointF at) const
{
    for (int row = 0; row < f_document.count(); ++row) {
        int const id = f_document.id_at(row);
        if (vx_layout_is(f_document.element(id), c_lr_key_layout_scene_frame) &&
            f_place.to_screen(f_document.box_of(id)).contains(at))
            return id;
    }
    return -1;
}

int Tvx_layout_view::map_frame() const
{
    if (int const frame = f_document.frame_of(selected_id()); frame >= 0)
        return frame;
    int only = -1;
    for (int row = 0; row < f_document.count(); ++row) {
        int const id = f_document.id_at(row);
        if (!vx_layout_is(f_document.element(id), c_lr_key_layout_scene_frame))
            continue;
        if (only >= 0)
            return -1;
        only = id;
    }
    return only;
}

QRectF Tvx_layout_view::grip_rect(grip const &g) const
{
    QRectF const box = f_place.to_screen(f_document.box_of(selected_id()));
    QPointF const at(box.center().x() + g.x * box.width() / 2, box.center().y() + g.y * box.height() / 2);
    return {at.x() - c_grip / 2, at.y() - c_grip / 2, c_grip, c_grip};
}

int Tvx_layout_view::grip_at(QPointF at) const
{
    if (f_selection.size() != 1 || !is_movable(selected_id()) || f_tool != c_tool_select)
        return -1;
    double const more = c_grip_reach - c_grip / 2;
    for (int i = 0; i < 8; ++i)
        if (grip_rect(c_grips[i]).adjusted(-more, -more, more, more).contains(at))
            return i;
    return -1;
}

bool Tvx_layout_view::is_selected(int id) const
{
    return std::ranges::find(f_selection, id) != f_selection.end();
}

void Tvx_layout_view::select_id(int id)
{
    select_ids({id});
}

void Tvx_layout_view::select_ids(std::vector<int> ids)
{
    std::erase_if(ids, [this](int id) { return f_document.row_of(id) < 0; });
    if (ids.size() > 1)
        std::erase_if(ids, [this](int id) { return !is_movable(id); });
    if (ids == f_selection)
        return;
    f_selection = std::move(ids);
    viewport()->update();
    emit selection_changed(selected_id());
}

void Tvx_layout_view::select_all()
{
    std::vector<int> ids;
    for (int row = f_document.count() - 1; row >= 0; --row)
        if (int const id = f_document.id_at(row);
            is_movable(id) && vx_lr2d_get_visible(f_document.element(id)))
            ids.push_back(id);
    select_ids(std::move(ids));
}

Tvx_box_d2 Tvx_layout_view::selected_box() const
{
    Tvx_box_d2 all;
    for (int const id : f_selection)
        all.add(f_document.box_of(id));
    return all;
}

void Tvx_layout_view::set_tool(tool tool)
{
    f_tool = tool;
    viewport()->unsetCursor();
    viewport()->update();
}

void Tvx_layout_view::update_cursor(QPointF at, Qt::KeyboardModifiers keys)
{
    Qt::CursorShape shape = Qt::ArrowCursor;
    if (f_drag == c_drag_page || f_drag == c_drag_map)
        shape = Qt::ClosedHandCursor;
    else if (f_tool == c_tool_map || (keys & Qt::AltModifier))
        shape = frame_at(at) >= 0 ? Qt::OpenHandCursor : Qt::ArrowCursor;
    else if (int const g = f_drag == c_drag_grip ? -1 : grip_at(at); g >= 0)
        shape = c_grips[g].x == 0              ? Qt::SizeVerCursor
                : c_grips[g].y == 0            ? Qt::SizeHorCursor
                : c_grips[g].x == c_grips[g].y ? Qt::SizeFDiagCursor
                                               : Qt::SizeBDiagCursor;
    else if (is_movable(element_at(at)))
        shape = Qt::SizeAllCursor;
    if (f_drag != c_drag_grip)
        viewport()->setCursor(shape);
}

// ---- the user's hand

void Tvx_layout_view::mousePressEvent(QMouseEvent *event)
{
    if (f_drag != c_drag_none && event->button() != f_drag_button)
        return;
    end_drag(true); // whose release went elsewhere
    QPointF const at = event->position();
    if (event->button() == Qt::MiddleButton)
        return begin_drag(c_drag_page, *event);
    if (event->button() == Qt::RightButton) {
        if (int const id = element_at(at); id >= 0 && !is_selected(id))
            select_id(id);
        return;
    }
    if (event->button() != Qt::LeftButton)
        return;
    if (f_tool == c_tool_map || (event->modifiers() & Qt::AltModifier)) {
        f_drag_id = frame_at(at);
        if (f_drag_id >= 0)
            select_id(f_drag_id);
        return begin_drag(f_drag_id >= 0 ? c_drag_map : c_drag_page, *event);
    }
    if (int const g = grip_at(at); g >= 0) {
        f_drag_id = selected_id();
        f_drag_grip = c_grips[g];
        return begin_drag(c_drag_grip, *event);
    }
    f_drag_id = element_at(at);
    press_on(f_drag_id, event->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier));
    begin_drag(is_movable(f_drag_id) ? c_drag_move : c_drag_band, *event);
}

/// What is selected goes with the drag that may follow, so it is not given up before the button is released.
void Tvx_layout_view::press_on(int id, bool extends)
{
    f_click = c_click_none;
    f_beside_band.clear();
    if (is_movable(id) && is_selected(id)) {
        f_click = extends ? c_click_drop : c_click_alone;
    } else if (!extends) {
        select_id(id);
    } else if (is_movable(id)) {
        std::vector<int> ids = f_selection;
        ids.push_back(id);
        select_ids(std::move(ids));
    } else {
        f_beside_band = f_selection;
    }
}

void Tvx_layout_view::end_click(int id)
{
    std::vector<int> ids = f_selection;
    std::erase(ids, id);
    if (f_click == c_click_alone)
        select_id(id);
    else if (f_click == c_click_drop)
        select_ids(std::move(ids));
}

void Tvx_layout_view::begin_drag(drag what, QMouseEvent const &event)
{
    f_drag = what;
    f_drag_button = event.button();
    f_drag_moved = false;
    f_drag_from = f_drag_last = event.position();
    f_drag_box = what == c_drag_move ? selected_box() : f_document.box_of(f_drag_id);
    f_dragged.clear();
    if (what == c_drag_move)
        for (int const id : f_selection)
            f_dragged.emplace_back(id, f_document.box_of(id));
    else if (what == c_drag_grip)
        f_dragged.emplace_back(f_drag_id, f_drag_box);
    f_banded.clear();
}

void Tvx_layout_view::mouseMoveEvent(QMouseEvent *event)
{
    QPointF const at = event->position();
    bool const snaps = !(event->modifiers() & Qt::ControlModifier);
    // A question that came with the press has taken the release.
    if (!(event->buttons() & f_drag_button))
        end_drag(true);
    if (f_drag != c_drag_none && (at - f_drag_from).manhattanLength() >= c_least_move)
        f_drag_moved = true;
    if (f_drag_moved && f_drag != c_drag_page && f_drag != c_drag_band && f_document.row_of(f_drag_id) < 0)
        f_drag = c_drag_none; // it went meanwhile
    if (f_drag_moved) {
        if (f_drag == c_drag_move)
            drag_elements(at, snaps);
        else if (f_drag == c_drag_band)
            drag_band(at);
        else if (f_drag == c_drag_grip)
            drag_grip(at, snaps, event->modifiers() & Qt::ShiftModifier);
        else if (f_drag == c_drag_map)
            drag_map(at);
        else if (f_drag == c_drag_page) {
            QPoint const by = (at - f_drag_last).toPoint();
            horizontalScrollBar()->setValue(horizontalScrollBar()->value() - by.x());
            verticalScrollBar()->setValue(verticalScrollBar()->value() - by.y());
        }
        f_drag_last = at;
    }
    update_cursor(at, event->modifiers());
}

double Tvx_layout_view::snap(std::initializer_list<double> edges, bool across) const
{
    double best = c_snap_pixels / f_place.zoom;
    double by = 0;
    auto const try_line = [&](double line) {
        for (double const edge : edges)
            if (std::abs(line - edge) < best) {
                best = std::abs(line - edge);
                by = line - edge;
            }
    };
    for (int row = 0; row < f_document.count(); ++row) {
        int const id = f_document.id_at(row);
        Ivx_layer const *const element = f_document.element(id);
        if (std::ranges::find(f_dragged, id, &std::pair<int, Tvx_box_d2>::first) != f_dragged.end() ||
            !vx_lr2d_get_visible(element))
            continue;
        Tvx_box_d2 const box = f_document.box_of(id);
        double const from = across ? box.min_x : box.min_y;
        double const to = across ? box.max_x : box.max_y;
        double const margin = vx_layout_has_page_kind(element) ? c_page_margin : 0;
        try_line(from);
        try_line(to);
        try_line(from + margin);
        try_line(to - margin);
        try_line((from + to) / 2);
    }
    return by;
}

void Tvx_layout_view::drag_elements(QPointF to, bool snaps)
{
    double dx = (to.x() - f_drag_from.x()) / f_place.zoom;
    double dy = (to.y() - f_drag_from.y()) / f_place.zoom;
    if (snaps) {
        Tvx_box_d2 const box = moved(f_drag_box, dx, dy);
        dx += snap({box.min_x, box.max_x, (box.min_x + box.max_x) / 2}, true);
        dy += snap({box.min_y, box.max_y, (box.min_y + box.max_y) / 2}, false);
    }
    for (auto const &[id, box] : f_dragged)
        f_document.set_box(id, moved(box, dx, dy));
}

/// What lies in the frame as a whole.
void Tvx_layout_view::drag_band(QPointF to)
{
    QRectF const band = QRectF(f_drag_from, to).normalized();
    f_banded = f_beside_band;
    for (int row = f_document.count() - 1; row >= 0; --row) {
        int const id = f_document.id_at(row);
        if (is_movable(id) && vx_lr2d_get_visible(f_document.element(id)) &&
            band.contains(f_place.to_screen(f_document.box_of(id))) &&
            std::ranges::find(f_banded, id) == f_banded.end())
            f_banded.push_back(id);
    }
    viewport()->update();
}

void Tvx_layout_view::drag_grip(QPointF to, bool snaps, bool keeps_ratio)
{
    double const dx = (to.x() - f_drag_from.x()) / f_place.zoom;
    double const dy = (to.y() - f_drag_from.y()) / f_place.zoom;
    Tvx_box_d2 box = f_drag_box;
    auto const pull = [&](int side, double &low, double &high, double by, bool across) {
        double &edge = side < 0 ? low : high;
        if (side == 0)
            return;
        edge += by;
        if (snaps)
            edge += snap({edge}, across);
        edge = side < 0 ? std::min(edge, high - c_least_side) : std::max(edge, low + c_least_side);
    };
    pull(f_drag_grip.x, box.min_x, box.max_x, dx, true);
    pull(f_drag_grip.y, box.min_y, box.max_y, dy, false);
    if (keeps_ratio && f_drag_grip.x != 0 && f_drag_grip.y != 0) {
        double const height = box.width() * f_drag_box.height() / f_drag_box.width();
        (f_drag_grip.y < 0 ? box.min_y : box.max_y) =
            f_drag_grip.y < 0 ? box.max_y - height : box.min_y + height;
    }
    f_document.set_box(f_drag_id, box);
}

void Tvx_layout_view::drag_map(QPointF to)
{
    move_map_of(f_drag_id, (to.x() - f_drag_last.x()) / f_place.zoom,
                (to.y() - f_drag_last.y()) / f_place.zoom);
}

void Tvx_layout_view::move_map_of(int frame, double dx, double dy)
{
    Tvx_box_d2 const box = f_document.box_of(frame);
    f_document.change(frame, [&](Ivx_layer *element) {
        Tvx_box_d2 const world = vx_layout_scene_frame_lr2d_get_world(element);
        Tvx_pnt_d2 center = vx_layout_scene_frame_lr2d_get_center(element);
        center.x -= dx * world.width() / box.width();
        center.y += dy * world.height() / box.height();
        vx_layout_scene_frame_lr2d_set_center(element, center);
    });
}

void Tvx_layout_view::zoom_map(double factor)
{
    int const frame = map_frame();
    if (frame >= 0)
        zoom_map_of(frame, factor, {});
}

void Tvx_layout_view::zoom_map_of(int frame, double factor, std::optional<QPointF> at)
{
    QRectF const box = f_place.to_screen(f_document.box_of(frame));
    // From the frame's upper left corner, 0 to 1.
    double const part_x = at ? (at->x() - box.left()) / box.width() : 0.5;
    double const part_y = at ? (at->y() - box.top()) / box.height() : 0.5;
    f_document.change(frame, [&](Ivx_layer *element) {
        Tvx_box_d2 const before = vx_layout_scene_frame_lr2d_get_world(element);
        double x = 0, y = 0;
        vx_layout_scene_frame_lr2d_get_scale(element, &x, &y);
        double const scale = short_number(x / factor);
        vx_layout_scene_frame_lr2d_set_scale(element, scale, scale * y / x);
        Tvx_box_d2 const after = vx_layout_scene_frame_lr2d_get_world(element);
        Tvx_pnt_d2 center = vx_layout_scene_frame_lr2d_get_center(element);
        center.x += (before.width() - after.width()) * (part_x - 0.5);
        center.y -= (before.height() - after.height()) * (part_y - 0.5);
        vx_layout_scene_frame_lr2d_set_center(element, center);
    });
    f_document.finish_step(Tvx_layout_document::c_step_map, frame);
}

void Tvx_layout_view::mouseReleaseEvent(QMouseEvent *event)
{
    if (f_drag == c_drag_none || event->button() != f_drag_button)
        return;
    int const clicked = f_drag == c_drag_move && !f_drag_moved ? f_drag_id : -1;
    end_drag(true);
    if (clicked >= 0)
        end_click(clicked);
    update_cursor(event->position(), event->modifiers());
}

void Tvx_layout_view::end_drag(bool keep)
{
    if (f_drag == c_drag_none)
        return;
    drag const ended = std::exchange(f_drag, c_drag_none);
    f_drag_button = Qt::NoButton;
    bool const has_moved = std::exchange(f_drag_moved, false);
    int const id = std::exchange(f_drag_id, -1);
    f_dragged.clear();
    if (ended == c_drag_band && has_moved && keep)
        select_ids(std::exchange(f_banded, {}));
    else if (ended != c_drag_page && ended != c_drag_band && has_moved && id >= 0) {
        if (keep)
            f_document.finish_step(Tvx_layout_document::c_step_single, id);
        else
            f_document.give_up_step();
    }
    start_drawing();
    viewport()->update();
}

void Tvx_layout_view::mouseDoubleClickEvent(QMouseEvent *event)
{
    int const id = element_at(event->position());
    if (event->button() == Qt::LeftButton && id >= 0 && f_tool == c_tool_select) {
        select_id(id);
        emit properties_wanted(id);
    }
}

void Tvx_layout_view::wheelEvent(QWheelEvent *event)
{
    // With Alt the window system turns the wheel sideways.
    QPoint const delta = event->angleDelta();
    double const notches = (delta.y() != 0 ? delta.y() : delta.x()) / 120.0;
    event->accept();
    if (notches == 0)
        return;
    bool const of_map = f_tool == c_tool_map || (event->modifiers() & Qt::AltModifier);
    int const frame = of_map ? frame_at(event->position()) : -1;
    double const factor = std::pow(c_notch_factor, notches);
    if (frame >= 0)
        zoom_map_of(frame, factor, event->position());
    else if (event->modifiers() & Qt::ShiftModifier)
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() -
                                        int(notches * horizontalScrollBar()->singleStep()));
    else
        set_zoom_at(f_place.zoom * factor, event->position());
}

bool Tvx_layout_view::key_moves_element(QKeyEvent const &event)
{
    double x = 0, y = 0;
    switch (event.key()) {
    case Qt::Key_Left:
        x = -1;
        break;
    case Qt::Key_Right:
        x = 1;
        break;
    case Qt::Key_Up:
        y = -1;
        break;
    case Qt::Key_Down:
        y = 1;
        break;
    default:
        return false;
    }
    bool const shift = event.modifiers() & Qt::ShiftModifier;
    bool const control = event.modifiers() & Qt::ControlModifier;
    if ((event.modifiers() & Qt::AltModifier) || f_tool == c_tool_map) {
        int const frame = map_frame();
        if (frame < 0 || control)
            return false;
        Tvx_box_d2 const box = f_document.box_of(frame);
        move_map_of(frame, -x * box.width() * c_map_key_part, -y * box.height() * c_map_key_part);
        f_document.finish_step(Tvx_layout_document::c_step_map, frame);
        return true;
    }
    if (!is_movable(selected_id())) {
        if (control || shift)
            return false;
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() +
                                        int(x * horizontalScrollBar()->singleStep()));
        verticalScrollBar()->setValue(verticalScrollBar()->value() +
                                      int(y * verticalScrollBar()->singleStep()));
        return true;
    }
    if (control && !shift)
        return false;
    double const step = shift && !control ? c_large_key_step : c_key_step;
    for (int const id : std::vector(f_selection)) {
        Tvx_box_d2 box = f_document.box_of(id);
        if (control) {
            box.max_x = std::max(box.max_x + x * step, box.min_x + c_least_side);
            box.max_y = std::max(box.max_y + y * step, box.min_y + c_least_side);
        } else {
            box = moved(box, x * step, y * step);
        }
        f_document.set_box(id, box);
    }
    f_document.finish_step(control ? Tvx_layout_document::c_step_resize : Tvx_layout_document::c_step_move,
                           selected_id());
    return true;
}

void Tvx_layout_view::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape) {
        if (f_drag != c_drag_none)
            end_drag(false);
        else
            select_id(-1);
        return;
    }
    bool const command = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (!command && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && selected_id() >= 0) {
        emit properties_wanted(selected_id());
        return;
    }
    if (!command && event->key() == Qt::Key_Home)
        return fit_page();
    if (f_drag != c_drag_none || !key_moves_element(*event))
        QWidget::keyPressEvent(event);
}

void Tvx_layout_view::focusInEvent(QFocusEvent *)
{
    viewport()->update();
}

void Tvx_layout_view::focusOutEvent(QFocusEvent *)
{
    viewport()->update();
}
