#pragma once

#include "platform/base/owned.h"
#include "platform/layers/vx_lr2d.h"

#include <QObject>
#include <QPoint>

class Tvx_layer_list;
class QWidget;
class Tvx_lr2d_edit_form;

/// The layer editor of the map: one window, made when it is first needed, that shows the layer selected in
/// the list.
///
/// The editor works on a copy. At Apply the layer in the list is replaced by a clone of that copy, so
/// whatever becomes of the list, the editor and the map never share a layer. Changes that were not applied
/// are not given up unasked while the window is seen; who closes it gives them up.
class Tvx_layer_editor : public QObject
{
    Q_OBJECT

public:
    /// The list must outlive the editor. Questions are asked over `window`.
    Tvx_layer_editor(Tvx_layer_list &layers, QWidget *window);
    ~Tvx_layer_editor() override;

    /// Shows the window on this layer, at `where` on the screen unless it is on the screen already.
    void open(int id, QPoint where);
    /// While the window is seen, it shows this layer from now on; none for -1. Where the one before has
    /// changes that were not applied the user is asked as soon as nothing else is being done, and may stay.
    void follow(int id);
    /// Asks whether changes that were not applied are to be, if the layer is the one in the window; any layer
    /// for -1. False, with everything as it was, when the user wants to go on with them.
    bool may_lose_changes(int id = -1);
    /// Shows the layer anew if it is the one in the window; changes that were not applied are given up.
    void refresh(int id);
    /// Takes over into the copy, whatever was changed there, that a class has been shown or hidden.
    void take_class(int id, int place);
    /// Takes the layer's name over in the same way.
    void take_name(int id);
    /// Brings the window in line with settings of the program.
    void update();
    /// Ends the window. `open` makes a new one.
    void close();

    [[nodiscard]] bool is_showing() const;
    /// The layer shown, -1 without one.
    [[nodiscard]] int layer_id() const { return f_layer_id; }
    /// Null until the first `open`. For who drives the window in the user's place.
    [[nodiscard]] Tvx_lr2d_edit_form *handle() const { return f_form; }

signals:
    void applied(int id);
    /// The user has stayed with this layer.
    void stayed(int id);

private:
    void ensure_window();
    void show_layer(int id);
    void on_layer_removed(int id);
    void on_apply();
    void ask_to_follow();
    [[nodiscard]] bool has_changes() const;

    Tvx_layer_list &f_layers;
    QWidget *f_window;
    /// The copy as it was when it came.
    vx::owned<Ivx_layer, &vx_lr2d_destroy> f_unchanged;
    int f_wanted = -1;
    bool f_asks = false;
    Tvx_lr2d_edit_form *f_form = nullptr;
    int f_layer_id = -1;
};
