#pragma once

#include "host/layer_info.h"
#include "host/map_unit.h"

#include "platform/base/geometry.h"
#include "platform/base/owned.h"
#include "platform/layers/vx_lr2d.h"

#include <QAbstractItemModel>

#include <memory>
#include <vector>

/// The map's layers, first row on top of the picture: the model of the list in the window and of the picture.
/// Below a layer stand the classes that it is drawn by (host/layer_classes.h).
///
/// The list owns the layers. A layer keeps its id through moves and replacements, so others remember ids, not
/// rows or pointers. Whatever changes a layer but its name puts a copy in its place: the former one may be in
/// the middle of being drawn.
class Tvx_layer_list : public QAbstractItemModel
{
    Q_OBJECT

public:
    using layer_ptr = vx::owned<Ivx_layer, &vx_lr2d_destroy>;
    enum role
    {
        c_id_role = Qt::UserRole
    };

    using QAbstractItemModel::QAbstractItemModel;
    ~Tvx_layer_list() override;

    /// Puts the layer on top and gives its id; a null layer is not taken, -1. The unit is that of its
    /// coordinates, where the data tell.
    int add(layer_ptr layer, std::optional<Tvx_map_unit> unit = {});
    /// Puts an edited layer in the place of the one with this id and shows it or not as that was. False, and
    /// the new layer is gone, when no such layer is left.
    bool replace(int id, layer_ptr layer);
    bool remove(int row);
    /// Moves a layer so that it ends up in row `to`.
    bool move(int from, int to);
    bool set_layer_visible(int row, bool visible);
    void set_all_visible(bool visible);
    /// Its data cannot all be read, or not be opened at all: it is marked from now on, with the reason.
    void set_damaged(int id, Tvx_layer_mark mark = c_mark_damaged, QString const &reason = {});
    /// Without a name the layer is called as its file. Nothing is drawn anew.
    bool rename(int row, QString const &name);
    /// Shows or hides the objects of a class of the layer. False for a class that has no such flag.
    bool set_class_visible(int row, int place, bool visible);
    /// The order in which classes are listed is another one.
    void refresh_classes();
    /// Takes all layers off.
    void clear() { removeRows(0, count()); }

    /// The layers as they are, to come back to. Those that are the same in two states are shared; of one that
    /// was removed what was read is read again when it comes back.
    class state;
    [[nodiscard]] std::shared_ptr<state const> remember() const;
    /// Puts layers, names and order of the state in place of the present ones. Layers that were there show
    /// or hide as they do.
    void restore(state const &to);
    /// Whether there is another layer, name or order in them.
    [[nodiscard]] static bool differ(state const &a, state const &b);
    /// Classes of the layers of `a` that are not in `b`.
    [[nodiscard]] static std::size_t count_classes_only_in(state const &a, state const &b);

    [[nodiscard]] int count() const { return int(f_items.size()); }
    /// -1 when there is none.
    [[nodiscard]] int row_of(int id) const;
    /// -1 for a row outside the list.
    [[nodiscard]] int id_at(int row) const;
    /// Null for a row outside the list. The layer stays the list's.
    [[nodiscard]] Ivx_layer *layer_at(int row) const;
    [[nodiscard]] QString name_at(int row) const;
    [[nodiscard]] bool is_visible(int row) const;
    [[nodiscard]] Tvx_layer_mark mark_at(int row) const;
    /// Number that changes with each replacement of the layer: what is drawn with an older one is stale.
    [[nodiscard]] int revision_at(int row) const;
    /// Empty for a layer without features and for one that has no place.
    [[nodiscard]] Tvx_box_d2 extent_at(int row) const;
    /// Extent of the map: of the drawn layers whose coordinates are in the map's unit or whose unit is not
    /// known; of all layers where there is none of these.
    [[nodiscard]] Tvx_box_d2 extent() const;
    /// Unit of the map: that of the lowest drawn layer that tells, else a guess from the extent of the drawn
    /// layers. While no layer that is drawn has a place: that of the lowest layer that tells, else such a
    /// guess.
    [[nodiscard]] Tvx_map_unit map_unit() const;
    /// The layer's coordinates are known to be in another unit than the map's, so it does not fit in.
    [[nodiscard]] bool is_of_other_unit(int row) const;

    /// Of a layer, or of a class below it.
    [[nodiscard]] QModelIndex index(int row, int column = 0, QModelIndex const &parent = {}) const override;
    [[nodiscard]] QModelIndex parent(QModelIndex const &index) const override;
    using QObject::parent;
    [[nodiscard]] int columnCount(QModelIndex const & /*parent*/ = {}) const override { return 1; }
    /// Row of the layer that the index is of, itself or one of its classes; -1 for none.
    [[nodiscard]] int layer_row_of(QModelIndex const &index) const;
    [[nodiscard]] int rowCount(QModelIndex const &parent = {}) const override;
    [[nodiscard]] QVariant data(QModelIndex const &index, int role) const override;
    bool setData(QModelIndex const &index, QVariant const &value, int role) override;
    [[nodiscard]] Qt::ItemFlags flags(QModelIndex const &index) const override;
    [[nodiscard]] Qt::DropActions supportedDropActions() const override { return Qt::MoveAction; }
    bool moveRows(QModelIndex const &source_parent, int source, int count, QModelIndex const &target_parent,
                  int target) override;
    bool removeRows(int row, int count, QModelIndex const &parent = {}) override;

signals:
    /// What the map shows has changed: layers came, went, moved, were replaced, shown or hidden.
    void picture_changed();
    void layer_removed(int id);
    void layer_replaced(int id);
    void layer_renamed(int id);
    /// The user shows or hides a class of the layer by its tick; it has been replaced.
    void class_changed(int id, int place);

private:
    struct item
    {
        int id;
        int revision;
        std::shared_ptr<Ivx_layer> layer;
        Tvx_box_d2 extent;
        std::optional<Tvx_map_unit> unit;
        Tvx_layer_mark mark = c_mark_none;
        QString reason = {};
        int classes = 0;
    };
    void insert(int row, item added);
    void put(int row, std::shared_ptr<Ivx_layer> layer, int revision);
    void replace_classes(int row, int count);
    [[nodiscard]] QVariant class_data(int row, unsigned place, int role) const;
    /// Of the layers that count; null counts all.
    [[nodiscard]] Tvx_box_d2 extent_of(bool (*counts)(Ivx_layer *layer)) const;
    [[nodiscard]] bool has_row(int row) const { return row >= 0 && row < count(); }

    std::vector<item> f_items;
    int f_last_id = 0;
};
