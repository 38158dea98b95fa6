#pragma once

#include "host/layout_picture.h"

#include <QAbstractScrollArea>
#include <QElapsedTimer>
#include <QTimer>

#include <optional>
#include <utility>
#include <vector>

class Tvx_layout_document;
class Tvx_layout_sync;

/// The page of a layout at true proportions, and the user's hand on its elements: one is selected by a click,
/// several by clicks with Ctrl or Shift or by a frame drawn round them; they are moved by dragging or the
/// arrow keys, and one is resized at its grips.
///
/// As in the map, painting never waits for drawing: elements are drawn one by one between the user's events.
class Tvx_layout_view : public QAbstractScrollArea
{
    Q_OBJECT

public:
    enum tool
    {
        c_tool_select,
        c_tool_map ///< moves and enlarges maps in their frames
    };

    /// Both must outlive the view.
    Tvx_layout_view(Tvx_layout_document &document, Tvx_layout_sync &sync, QWidget *parent = nullptr);

    /// The one selected last, which the properties are of; -1 while nothing is selected.
    [[nodiscard]] int selected_id() const { return f_selection.empty() ? -1 : f_selection.back(); }
    [[nodiscard]] std::vector<int> const &selected_ids() const { return f_selection; }
    [[nodiscard]] bool is_selected(int id) const;
    /// This one alone; none for -1.
    void select_id(int id);
    /// A page is selected alone or not at all.
    void select_ids(std::vector<int> ids);
    /// All that are seen.
    void select_all();
    /// What holds all that is selected; empty for none.
    [[nodiscard]] Tvx_box_d2 selected_box() const;

    [[nodiscard]] tool current_tool() const { return f_tool; }
    void set_tool(tool tool);

    /// Shows all of the page, and keeps it so while the window is resized, until the user zooms.
    void fit_page();
    void zoom_by(double factor);
    /// Pixels of a millimetre.
    void set_zoom(double zoom);
    /// Changes the scale of the map in the selected frame, or in the only one there is.
    void zoom_map(double factor);
    /// The frame that commands about maps mean; -1 for none.
    [[nodiscard]] int map_frame() const;

    [[nodiscard]] Tvx_layout_place const &place() const { return f_place; }
    [[nodiscard]] QPointF to_screen(Tvx_pnt_d2 at) const;

    /// The pictures show the page as it is.
    [[nodiscard]] bool is_settled() const { return !f_busy_drawing; }
    /// Something that scenes show has changed.
    void refresh();

    [[nodiscard]] QSize sizeHint() const override { return {900, 680}; }

signals:
    /// The one selected last.
    void selection_changed(int id);
    void properties_wanted(int id);
    /// Not all of it could be drawn.
    void element_failed(int id);
    void zoom_changed();
    /// The page is shown as it is.
    void settled();

protected:
    bool viewportEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void wheelEvent(QWheelEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    enum drag
    {
        c_drag_none,
        c_drag_move,
        c_drag_grip,
        c_drag_map,
        c_drag_page,
        c_drag_band ///< a frame round what is to be selected
    };
    /// What a press does to what was selected already, when no drag follows.
    enum click
    {
        c_click_none,
        c_click_alone,
        c_click_drop
    };
    /// Which edges a grip moves: -1 left or top, 0 none, 1 right or bottom.
    struct grip
    {
        int x;
        int y;
    };
    static grip const c_grips[8];

    void update_place();
    void set_zoom_at(double zoom, QPointF anchor);
    [[nodiscard]] Tvx_box_d2 seen_part() const;
    void start_drawing();
    void on_draw_timer();
    [[nodiscard]] bool is_drawing_unwanted();
    void on_document_changed();

    [[nodiscard]] int element_at(QPointF at) const;
    [[nodiscard]] int frame_at(QPointF at) const;
    [[nodiscard]] QRectF grip_rect(grip const &g) const;
    /// Index of the grip under the point; -1 for none.
    [[nodiscard]] int grip_at(QPointF at) const;
    [[nodiscard]] bool is_movable(int id) const;
    void update_cursor(QPointF at, Qt::KeyboardModifiers keys);
    void press_on(int id, bool extends);
    void begin_drag(drag what, QMouseEvent const &event);
    void end_drag(bool keep);
    void end_click(int id);
    void drag_elements(QPointF to, bool snaps);
    void drag_band(QPointF to);
    void drag_grip(QPointF to, bool snaps, bool keeps_ratio);
    void drag_map(QPointF to);
    /// The distance to the nearest edge that an edge of the box should stand at; 0 for none near.
    [[nodiscard]] double snap(std::initializer_list<double> edges, bool across) const;
    [[nodiscard]] bool key_moves_element(QKeyEvent const &event);
    void zoom_map_of(int frame, double factor, std::optional<QPointF> at);
    void move_map_of(int frame, double dx, double dy);
    void paint_selection(QPainter &painter) const;
    void paint_frame(QPainter &painter, int id) const;

    Tvx_layout_document &f_document;
    Tvx_layout_sync &f_sync;
    Tvx_layout_picture f_picture;
    Tvx_layout_place f_place;
    bool f_fits = true;
    std::vector<int> f_selection;
    tool f_tool = c_tool_select;
    QTimer f_draw_timer;
    QElapsedTimer f_slice;
    QElapsedTimer f_since_shown;
    bool f_drawing = false;
    bool f_busy_drawing = true;

    drag f_drag = c_drag_none;
    bool f_drag_moved = false;
    Qt::MouseButton f_drag_button = Qt::NoButton;
    int f_drag_id = -1;
    grip f_drag_grip{};
    QPointF f_drag_from;
    QPointF f_drag_last;
    Tvx_box_d2 f_drag_box; ///< of what is dragged, as it was
    std::vector<std::pair<int, Tvx_box_d2>> f_dragged;
    click f_click = c_click_none;
    std::vector<int> f_banded; ///< what the frame holds, and what stays selected beside it
    std::vector<int> f_beside_band;
};
