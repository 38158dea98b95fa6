#pragma once

#include <QWidget>

class Tvx_layer_list;
class Tvx_layer_list_view;
class QAction;

/// The list of layers beside the map, each with the classes that it is drawn by: check boxes show and hide,
/// dragging changes the order, one layer is selected, or one of its classes. The commands come from the
/// window; buttons below the list and its context menu offer them.
class Tvx_layer_panel : public QWidget
{
    Q_OBJECT

public:
    /// The list must outlive the panel.
    explicit Tvx_layer_panel(Tvx_layer_list &layers, QWidget *parent = nullptr);

    /// Commands of the context menu, a null one is a separator, and those that get a button too. The keys of
    /// all work while the panel has the focus, if they have no other place.
    void set_commands(QList<QAction *> const &menu, QList<QAction *> const &buttons);

    /// Row of the selected layer, -1 without one.
    [[nodiscard]] int selected_row() const;
    [[nodiscard]] int selected_id() const;
    /// Place of the selected class among those of its layer, -1 while the layer itself is selected.
    [[nodiscard]] int selected_class() const;
    void select_id(int id);
    /// Lower left corner of the layer's sample on the screen.
    [[nodiscard]] QPoint sample_corner(int id) const;
    /// Lets the user type another name of the selected layer in its place.
    void edit_name();
    /// The view itself, for the focus and for who drives it in the user's place.
    [[nodiscard]] class QTreeView *view() const;

signals:
    /// The selected layer is another one, or has moved; -1 for none.
    void selection_changed(int id);
    /// Double click or Enter.
    void activated(int id);
    /// Double click on the sample.
    void sample_activated(int id);

private:
    Tvx_layer_list &f_layers;
    Tvx_layer_list_view *f_view;
    class QHBoxLayout *f_buttons;
};
