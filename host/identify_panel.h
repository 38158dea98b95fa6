#pragma once

#include "host/map_identify.h"

#include <QWidget>

class QLabel;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

/// What lies under a click: the objects from the topmost, each with its attributes and the class that draws
/// it.
class Tvx_identify_panel : public QWidget
{
    Q_OBJECT

public:
    /// The list must outlive the window.
    explicit Tvx_identify_panel(Tvx_layer_list const &layers, QWidget *parent = nullptr);

    /// Shows these objects, the first one open, in front of the map but never in the way of its keys.
    /// `is_all` tells whether there are no more.
    void show_objects(std::vector<Tvx_found_object> objects, bool is_all);
    /// The objects of a layer that is gone.
    void forget_layer(int id);
    /// Null while nothing is shown.
    [[nodiscard]] Tvx_found_object const *current() const;
    [[nodiscard]] QTreeWidget *tree() const { return f_tree; }

signals:
    /// The user looks at another of the objects.
    void object_chosen(int layer_id, unsigned record);
    /// The user looks at a cell, which has no record.
    void cell_chosen();
    void zoom_wanted(int layer_id, unsigned record);
    void table_wanted(int layer_id, unsigned record);
    /// Esc.
    void close_wanted();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void add_object(int place);
    /// Room for the names of the attributes.
    [[nodiscard]] int name_width() const;
    void on_current_changed();
    void enable_buttons();
    void copy_value();

    Tvx_layer_list const &f_layers;
    std::vector<Tvx_found_object> f_objects;
    QTreeWidget *f_tree;
    QLabel *f_more;
    QPushButton *f_zoom;
    QPushButton *f_table;
    bool f_filling = false;
};
