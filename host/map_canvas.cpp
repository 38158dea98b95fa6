#include "host/map_canvas.h"

#include "host/layer_list.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <cmath>

namespace {
/// Drawing gives way to the user's events after this long.
constexpr qint64 c_slice_ms = 12;
/// So does reading for later.
constexpr int c_read_slice_ms = 8;
/// A view that is being drawn is drawn to its end for this long, though the user moved on: so a map that is
/// dragged fills in on the way.
constexpr qint64 c_finish_ms = 250;
/// Drawing that takes longer is told to the user, and shows what it has so often.
constexpr qint64 c_busy_ms = 300;
/// Steps of the wheel or the keys within this time are one step of the way back.
constexpr qint64 c_one_step_ms = 700;
constexpr std::size_t c_history_length = 100;
/// A box smaller than this was meant as a click.
constexpr int c_least_box = 4;
/// A hand that clicks trembles so far.
constexpr int c_least_move = 4;
constexpr double c_notch_factor = 1.3;
constexpr double c_key_factor = 1.5;
constexpr double c_click_factor = 2;
constexpr double c_arrow_part = 0.125;
} // namespace

Tvx_map_canvas::Tvx_map_canvas(Tvx_layer_list &layers, QWidget *parent)
    : QWidget(parent), f_layers(layers), f_picture(layers)
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    f_draw_timer.setSingleShot(true);
    f_click_timer.setSingleShot(true);
    connect(&f_click_timer, &QTimer::timeout, this,
            [this] { emit clicked(f_click_at, f_click_with_ctrl, false); });
    connect(&f_draw_timer, &QTimer::timeout, this, &Tvx_map_canvas::on_draw_timer);
    f_read_timer.setSingleShot(true);
    connect(&f_read_timer, &QTimer::timeout, this, &Tvx_map_canvas::on_read_timer);
    connect(&layers, &Tvx_layer_list::picture_changed, this, &Tvx_map_canvas::on_layers_changed);
    update_cursor();
}

// ---- where the map is looked at

void Tvx_map_canvas::go_to(Tvx_canvas_view const &view)
{
    Tvx_canvas_view sized = view;
    sized.set_size(width(), height());
    if (sized == f_view)
        return;
    f_since_step.invalidate();
    move_by_user(sized);
}

void Tvx_map_canvas::show_box(Tvx_box_d2 const &box)
{
    if (box.is_empty())
        return;
    Tvx_canvas_view view = f_view;
    view.show(box);
    go_to(view);
    f_kept_box = box;
}

void Tvx_map_canvas::show_all()
{
    show_box(f_layers.extent());
}

void Tvx_map_canvas::zoom_by(double factor)
{
    Tvx_canvas_view view = f_view;
    view.zoom(factor, {width() / 2.0, height() / 2.0});
    move_by_user(view);
}

void Tvx_map_canvas::set_units_per_pixel(double units)
{
    Tvx_canvas_view view = f_view;
    view.set_units_per_pixel(units);
    go_to(view);
}

void Tvx_map_canvas::go_back()
{
    if (f_back.empty())
        return;
    f_forward.push_back(f_view);
    Tvx_canvas_view view = f_back.back();
    f_back.pop_back();
    view.set_size(width(), height());
    f_kept_box.reset();
    f_since_step.invalidate();
    apply_view(view);
    emit history_changed();
}

void Tvx_map_canvas::go_forward()
{
    if (f_forward.empty())
        return;
    f_back.push_back(f_view);
    Tvx_canvas_view view = f_forward.back();
    f_forward.pop_back();
    view.set_size(width(), height());
    f_kept_box.reset();
    f_since_step.invalidate();
    apply_view(view);
    emit history_changed();
}

void Tvx_map_canvas::forget_steps()
{
    f_back.clear();
    f_forward.clear();
    f_since_step.invalidate();
    emit history_changed();
}

void Tvx_map_canvas::move_by_user(Tvx_canvas_view const &view)
{
    if (view == f_view)
        return;
    remember_view();
    f_kept_box.reset();
    apply_view(view);
}

void Tvx_map_canvas::remember_view()
{
    bool const same_step = f_since_step.isValid() && f_since_step.elapsed() < c_one_step_ms;
    f_since_step.start();
    if (same_step)
        return;
    f_back.push_back(f_view);
    if (f_back.size() > c_history_length)
        f_back.erase(f_back.begin());
    f_forward.clear();
    emit history_changed();
}

void Tvx_map_canvas::apply_view(Tvx_canvas_view const &view)
{
    if (view == f_view)
        return;
    f_view = view;
    start_drawing();
    update();
    emit view_changed();
    tell_pointer();
}

// ---- drawing

void Tvx_map_canvas::on_layers_changed()
{
    f_picture.invalidate();
    start_drawing();
    update();
}

void Tvx_map_canvas::start_drawing()
{
    if (!f_drawing_for.isValid())
        f_drawing_for.start();
    if (!f_draw_timer.isActive())
        f_draw_timer.start(0);
}

void Tvx_map_canvas::on_draw_timer()
{
    // The timer may run out while a large layer serves events; that drawing goes on by itself.
    if (f_drawing || !isVisible())
        return;
    if (f_picture.is_complete() || is_view_given_up()) {
        f_picture.request(f_view, devicePixelRatioF());
        f_view_for.start();
    }
    draw_slice();
    for (int const id : f_picture.take_failed_ids())
        emit layer_failed(id);
    if (is_settled()) {
        f_read_timer.start(0);
        f_drawing_for.invalidate();
        f_since_shown.invalidate();
        set_busy(false);
        update();
        return;
    }
    if (f_picture.is_complete())
        update();
    else
        show_progress();
    // A window that is not seen any more is drawn when it is shown again.
    if (isVisible())
        f_draw_timer.start(0);
}

void Tvx_map_canvas::on_read_timer()
{
    if (f_drawing || !isVisible() || !is_settled())
        return;
    for (int row = 0; row < f_layers.count(); ++row) {
        if (!f_layers.is_visible(row))
            continue;
        int const id = f_layers.id_at(row);
        Tvx_reading_result const result = vx_layer_read_on(f_layers.layer_at(row), c_read_slice_ms);
        if (result == c_reading_failed)
            emit layer_failed(id);
        if (result == c_reading_ended)
            continue;
        f_read_timer.start(0);
        return;
    }
}

void Tvx_map_canvas::draw_slice()
{
    f_drawing = true;
    f_slice.start();
    // A step that was stopped is not tried again here: its view was given up, or the window is gone.
    while (f_picture.step(make_closure<&Tvx_map_canvas::is_drawing_unwanted>(this)) ==
               Tvx_map_picture::c_step_more &&
           f_slice.elapsed() < c_slice_ms) {
    }
    f_drawing = false;
}

bool Tvx_map_canvas::is_drawing_unwanted()
{
    if (f_slice.elapsed() < c_slice_ms)
        return false;
    show_progress();
    QCoreApplication::processEvents();
    f_slice.restart();
    return !isVisible() || is_view_given_up() || f_picture.is_work_in_vain();
}

void Tvx_map_canvas::show_progress()
{
    if (f_drawing_for.elapsed() < c_busy_ms ||
        (f_since_shown.isValid() && f_since_shown.elapsed() < c_busy_ms))
        return;
    set_busy(true);
    f_picture.compose();
    update();
    f_since_shown.start();
}

bool Tvx_map_canvas::is_view_given_up() const
{
    return f_picture.requested_view() != f_view && f_view_for.elapsed() > c_finish_ms;
}

bool Tvx_map_canvas::is_settled() const
{
    return f_picture.is_complete() && f_picture.requested_view() == f_view && !f_picture.image().isNull();
}

QImage Tvx_map_canvas::settled_picture()
{
    f_picture.request(f_view, devicePixelRatioF());
    if (f_picture.image().isNull())
        f_picture.invalidate();
    while (f_picture.step() != Tvx_map_picture::c_step_done) {
    }
    update();
    return f_picture.image();
}

void Tvx_map_canvas::set_busy(bool busy)
{
    if (f_busy == busy)
        return;
    f_busy = busy;
    emit busy_changed(busy);
}

void Tvx_map_canvas::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, f_drag == c_drag_none);
    Tvx_map_picture::paint(painter, f_picture.image(), f_picture.image_view(), f_view);
    if (f_overlay)
        f_overlay(painter, f_view);
    if (f_layers.count() == 0) {
        painter.setPen(QColor(0x60, 0x66, 0x6e));
        painter.drawText(rect().adjusted(24, 24, -24, -24), Qt::AlignCenter | Qt::TextWordWrap, f_empty_text);
    }
    if (f_drag == c_drag_box) {
        QColor const line = palette().color(QPalette::Highlight);
        QColor fill = line;
        fill.setAlpha(48);
        painter.setPen(QPen(line, 1.5, Qt::DashLine));
        painter.setBrush(fill);
        painter.drawRect(QRect(f_drag_from, f_drag_to).normalized());
    }
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void Tvx_map_canvas::showEvent(QShowEvent *)
{
    // Nothing is drawn for a window that is not seen.
    if (!is_settled())
        start_drawing();
}

void Tvx_map_canvas::resizeEvent(QResizeEvent *)
{
    Tvx_canvas_view view = f_view;
    view.set_size(width(), height());
    if (f_kept_box)
        view.show(*f_kept_box);
    apply_view(view);
}

void Tvx_map_canvas::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::EnabledChange)
        update();
    QWidget::changeEvent(event);
}

// ---- the user's hand

void Tvx_map_canvas::set_tool(tool tool)
{
    f_tool = tool;
    update_cursor();
}

void Tvx_map_canvas::set_empty_text(QString const &text)
{
    f_empty_text = text;
    update();
}

void Tvx_map_canvas::update_cursor()
{
    if (f_drag == c_drag_pan)
        setCursor(Qt::ClosedHandCursor);
    else if (f_drag == c_drag_box || f_tool == c_tool_zoom_box)
        setCursor(Qt::CrossCursor);
    else
        setCursor(f_tool == c_tool_identify ? Qt::WhatsThisCursor : Qt::OpenHandCursor);
}

void Tvx_map_canvas::wheelEvent(QWheelEvent *event)
{
    double const notches = event->angleDelta().y() / 120.0;
    event->accept();
    if (notches == 0)
        return;
    Tvx_canvas_view view = f_view;
    view.zoom(std::pow(c_notch_factor, notches), {event->position().x(), event->position().y()});
    move_by_user(view);
}

void Tvx_map_canvas::mousePressEvent(QMouseEvent *event)
{
    if (f_drag != c_drag_none)
        return;
    f_click_timer.stop();
    bool const left = event->button() == Qt::LeftButton;
    if (left && (f_tool == c_tool_zoom_box || (event->modifiers() & Qt::ShiftModifier)))
        f_drag = c_drag_box;
    else if (left || event->button() == Qt::MiddleButton)
        f_drag = c_drag_pan;
    else
        return;
    f_since_step.invalidate();
    f_drag_button = event->button();
    f_drag_moved = false;
    f_drag_from = f_drag_to = event->pos();
    update_cursor();
}

void Tvx_map_canvas::mouseMoveEvent(QMouseEvent *event)
{
    f_pointer = Tvx_screen_point{event->position().x(), event->position().y()};
    f_drag_moved = f_drag_moved || (event->pos() - f_drag_from).manhattanLength() >= c_least_move;
    if (f_drag == c_drag_pan && f_drag_moved) {
        QPoint const by = event->pos() - f_drag_to;
        f_drag_to = event->pos();
        Tvx_canvas_view view = f_view;
        view.pan(by.x(), by.y());
        // The whole drag is one step of the way back, however long it takes.
        if (view != f_view && !f_since_step.isValid())
            remember_view();
        f_kept_box.reset();
        apply_view(view);
    } else if (f_drag == c_drag_box) {
        f_drag_to = event->pos();
        update();
    }
    tell_pointer();
}

void Tvx_map_canvas::tell_pointer()
{
    if (!f_pointer)
        return;
    Tvx_pnt_d2 const place = f_view.to_map(*f_pointer);
    emit pointer_moved(place.x, place.y);
}

void Tvx_map_canvas::mouseReleaseEvent(QMouseEvent *event)
{
    if (f_drag == c_drag_none || event->button() != f_drag_button)
        return;
    if (f_drag == c_drag_box) {
        f_drag_to = event->pos();
        zoom_to_drag_box();
    } else if (!f_drag_moved && event->button() == Qt::LeftButton) {
        begin_click(*event);
    }
    end_drag();
}

void Tvx_map_canvas::begin_click(QMouseEvent const &event)
{
    f_click_at = event.position();
    f_click_with_ctrl = event.modifiers() & Qt::ControlModifier;
    f_click_timer.start(f_tool == c_tool_identify ? 0 : QApplication::doubleClickInterval());
}

void Tvx_map_canvas::mouseDoubleClickEvent(QMouseEvent *event)
{
    f_click_timer.stop();
    if (event->button() != Qt::LeftButton || f_tool == c_tool_identify)
        return;
    bool const out = event->modifiers() & Qt::ShiftModifier;
    Tvx_canvas_view view = f_view;
    view.zoom(out ? 1 / c_click_factor : c_click_factor, {event->position().x(), event->position().y()});
    move_by_user(view);
}

void Tvx_map_canvas::zoom_to_drag_box()
{
    QRect const box = QRect(f_drag_from, f_drag_to).normalized();
    Tvx_canvas_view view = f_view;
    if (box.width() < c_least_box || box.height() < c_least_box) {
        view.zoom(c_click_factor, {double(f_drag_from.x()), double(f_drag_from.y())});
    } else {
        QRectF const exact{QPointF(f_drag_from), QPointF(f_drag_to)};
        QPointF const middle = exact.center();
        view.set_center(f_view.to_map({middle.x(), middle.y()}));
        view.set_units_per_pixel(f_view.units_per_pixel() * std::max(std::abs(exact.width()) / width(),
                                                                     std::abs(exact.height()) / height()));
    }
    go_to(view);
}

void Tvx_map_canvas::end_drag()
{
    f_drag = c_drag_none;
    f_drag_button = Qt::NoButton;
    f_since_step.invalidate();
    update_cursor();
    update();
}

bool Tvx_map_canvas::key_moves_view(QKeyEvent const &event)
{
    double const part = event.modifiers() & Qt::ShiftModifier ? 1 : c_arrow_part;
    Tvx_canvas_view view = f_view;
    Tvx_screen_point const middle{width() / 2.0, height() / 2.0};
    switch (event.key()) {
    case Qt::Key_Left:
        view.pan(width() * part, 0);
        break;
    case Qt::Key_Right:
        view.pan(-width() * part, 0);
        break;
    case Qt::Key_Up:
        view.pan(0, height() * part);
        break;
    case Qt::Key_Down:
        view.pan(0, -height() * part);
        break;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        view.zoom(c_key_factor, middle);
        break;
    case Qt::Key_Minus:
        view.zoom(1 / c_key_factor, middle);
        break;
    default:
        return false;
    }
    move_by_user(view);
    return true;
}

void Tvx_map_canvas::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && f_drag != c_drag_none) {
        end_drag();
        return;
    }
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) &&
        !(event->modifiers() & (Qt::AltModifier | Qt::MetaModifier))) {
        emit clicked({width() / 2.0, height() / 2.0}, event->modifiers() & Qt::ControlModifier, true);
        return;
    }
    if (event->key() == Qt::Key_Home) {
        show_all();
        return;
    }
    bool const command = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (command || !key_moves_view(*event))
        QWidget::keyPressEvent(event);
}

void Tvx_map_canvas::leaveEvent(QEvent *)
{
    f_pointer.reset();
    emit pointer_left();
}

void Tvx_map_canvas::focusInEvent(QFocusEvent *)
{
    update();
}

void Tvx_map_canvas::focusOutEvent(QFocusEvent *)
{
    update();
}
