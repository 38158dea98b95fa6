#pragma once

#include <QtCore/QPoint>

class TControl;
class TWinControl;
class QMouseEvent;

/// The drag of a control that is going on, of which there is one at most: of its content onto another
/// control, or of itself to another dock site. Esc gives it up.
struct vx_drag_session
{
    /// Begins once the mouse has moved some pixels with its button down.
    static void prepare(TControl *source, QPoint screen);
    static void begin(TControl *source);
    static void end(bool drop);
    [[nodiscard]] static TControl *source();
    /// True if the event belongs to the drag.
    static bool button(QMouseEvent const &event);
    static bool move(QMouseEvent const &event);
    /// What is under the mouse has moved: tells it of the drag once more.
    static void again();
    static void forget(TControl const *control);

private:
    static void move_docking();
    static void move_content();
    static bool takes(TWinControl &site, TControl *source);
    static TWinControl *empty_site_in(TWinControl const &parent, TControl *source, QPoint screen);
    /// The nearest dock site at a point that has the control and is no part of it.
    static TWinControl *site_at(QPoint screen, TControl *source);
};
