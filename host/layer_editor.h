#pragma once

#include <QObject>
#include <QPoint>

class Tvx_layer_list;
class Tvx_lr2d_edit_form;

/// The layer editor of the map: one window, made when it is first needed, that shows the layer selected in
/// the list.
///
/// The editor works on a copy. At Apply the layer in the list is replaced by a clone of that copy, so
/// whatever becomes of the list, the editor and the map never share a layer.
class Tvx_layer_editor : public QObject
{
    Q_OBJECT

public:
    /// The list must outlive the editor.
    explicit Tvx_layer_editor(Tvx_layer_list &layers, QObject *parent = nullptr);
    ~Tvx_layer_editor() override;

    /// Shows the window on this layer, at `where` on the screen unless it is on the screen already. Changes
    /// of the layer shown before that were not applied are given up; the same layer keeps them.
    void open(int id, QPoint where);
    /// While the window is seen, it shows this layer from now on; none for -1.
    void follow(int id);
    /// Shows the layer anew if it is the one in the window; changes that were not applied are given up.
    void refresh(int id);
    /// Ends the window. `open` makes a new one.
    void close();

    [[nodiscard]] bool is_showing() const;
    /// The layer shown, -1 without one.
    [[nodiscard]] int layer_id() const { return f_layer_id; }
    /// Null until the first `open`. For who drives the window in the user's place.
    [[nodiscard]] Tvx_lr2d_edit_form *handle() const { return f_form; }

signals:
    void applied(int id);

private:
    void ensure_window();
    void show_layer(int id);
    void on_layer_removed(int id);
    void on_apply();

    Tvx_layer_list &f_layers;
    Tvx_lr2d_edit_form *f_form = nullptr;
    int f_layer_id = -1;
};
