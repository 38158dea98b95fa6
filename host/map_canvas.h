#pragma once

#include "host/map_picture.h"

#include "platform/base/closure.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

#include <optional>
#include <vector>

class Tvx_layer_list;

/// The map in the window: shows the layers and lets the user move about.
///
/// Painting never waits for drawing: what is there is shown at once, moved and stretched to the view, and
/// replaced as soon as the layers are drawn, in slices between the user's events. Within a large layer the
/// events are served too. What was not read for the picture is read while the user looks at it.
class Tvx_map_canvas : public QWidget
{
    Q_OBJECT

public:
    enum tool
    {
        c_tool_pan,
        c_tool_zoom_box,
        c_tool_identify ///< as the first; a click is told at once
    };
    /// Paints over the map what is not part of its picture.
    using overlay = closure<void(QPainter &, Tvx_canvas_view const &)>;

    /// The list must outlive the canvas.
    explicit Tvx_map_canvas(Tvx_layer_list &layers, QWidget *parent = nullptr);

    [[nodiscard]] Tvx_canvas_view const &view() const { return f_view; }
    /// Goes there as a step that "back" undoes.
    void go_to(Tvx_canvas_view const &view);
    /// Shows the box whole, and keeps it so while the window is resized, until the user moves.
    void show_box(Tvx_box_d2 const &box);
    void show_all();
    void zoom_by(double factor);
    /// Pixel size in map units; the middle stays.
    void set_units_per_pixel(double units);
    [[nodiscard]] bool can_go_back() const { return !f_back.empty(); }
    [[nodiscard]] bool can_go_forward() const { return !f_forward.empty(); }
    void go_back();
    void go_forward();
    /// No way leads back from here: what was seen before is not worth it.
    void forget_steps();

    [[nodiscard]] tool current_tool() const { return f_tool; }
    void set_tool(tool tool);
    /// Shown in the middle while there are no layers.
    void set_empty_text(QString const &text);

    /// The picture shows the view and the layers as they are.
    [[nodiscard]] bool is_settled() const;
    /// Another way of drawing a layer than with its own styles.
    void set_drawer(Tvx_map_picture::drawer draw) { f_picture.set_drawer(draw); }
    void set_overlay(overlay paint) { f_overlay = paint; }
    /// Draws what is left now. The picture as it is on the screen, without what the pointer draws over it.
    [[nodiscard]] QImage settled_picture();

    [[nodiscard]] QSize sizeHint() const override { return {900, 600}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return {200, 150}; }

signals:
    void view_changed();
    void history_changed();
    /// The place of the map under the pointer is another one: the pointer or the map moved.
    void pointer_moved(double x, double y);
    void pointer_left();
    /// A click that neither moves the map nor is the first of two, or Enter, which means the middle.
    void clicked(QPointF at, bool with_ctrl, bool by_key);
    /// Drawing goes on for longer than a moment, or has ended.
    void busy_changed(bool busy);
    void layer_failed(int id);

protected:
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    enum drag
    {
        c_drag_none,
        c_drag_pan,
        c_drag_box
    };

    void apply_view(Tvx_canvas_view const &view);
    /// Puts the view on the way back; steps that follow each other at once count as one.
    void remember_view();
    void move_by_user(Tvx_canvas_view const &view);
    void tell_pointer();
    void end_drag();
    void begin_click(QMouseEvent const &event);
    void zoom_to_drag_box();
    void start_drawing();
    void on_layers_changed();
    void on_draw_timer();
    void draw_slice();
    /// Reads a little of what the layers in sight will need elsewhere.
    void on_read_timer();
    /// Tells that drawing takes its time, and shows what it has.
    void show_progress();
    /// Asked while a layer is being drawn: serves the user, then tells whether the drawing is still wanted.
    [[nodiscard]] bool is_drawing_unwanted();
    [[nodiscard]] bool is_view_given_up() const;
    void set_busy(bool busy);
    void update_cursor();
    [[nodiscard]] bool key_moves_view(QKeyEvent const &event);

    Tvx_layer_list &f_layers;
    Tvx_map_picture f_picture;
    Tvx_canvas_view f_view;
    std::optional<Tvx_box_d2> f_kept_box;
    std::vector<Tvx_canvas_view> f_back;
    std::vector<Tvx_canvas_view> f_forward;
    QElapsedTimer f_since_step;
    QTimer f_draw_timer;
    QTimer f_read_timer;
    QElapsedTimer f_drawing_for; ///< since the picture was last right
    QElapsedTimer f_view_for;    ///< since the view that is being drawn was asked for
    QElapsedTimer f_slice;
    QElapsedTimer f_since_shown; ///< since what there is of a slow picture was last put together
    bool f_drawing = false;
    bool f_busy = false;
    overlay f_overlay;
    tool f_tool = c_tool_pan;
    /// A click that may become a double click.
    QTimer f_click_timer;
    QPointF f_click_at;
    bool f_click_with_ctrl = false;
    bool f_drag_moved = false;
    drag f_drag = c_drag_none;
    Qt::MouseButton f_drag_button = Qt::NoButton;
    QPoint f_drag_from;
    QPoint f_drag_to;
    /// Where the pointer is while it is over the map.
    std::optional<Tvx_screen_point> f_pointer;
    QString f_empty_text;
};
