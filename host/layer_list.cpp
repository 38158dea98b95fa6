#include "host/layer_list.h"

#include "host/layer_classes.h"

#include "platform/data/vx_attr_data.h"
#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_shp_lr2d.h"

#include <algorithm>
#include <string_view>
#include <utility>

Tvx_layer_list::~Tvx_layer_list() = default;

class Tvx_layer_list::state
{
public:
    struct place
    {
        item layer;
        QString name;
        friend bool operator==(place const &a, place const &b)
        {
            return a.layer.id == b.layer.id && a.layer.layer == b.layer.layer && a.name == b.name;
        }
    };
    std::vector<place> places;
};

int Tvx_layer_list::add(layer_ptr layer, std::optional<Tvx_map_unit> unit)
{
    if (!layer)
        return -1;
    Tvx_box_d2 const extent = vx_layer_extent(layer.get());
    insert(0, {++f_last_id, 0, {layer.release(), &vx_lr2d_destroy}, extent, unit});
    emit picture_changed();
    return f_last_id;
}

void Tvx_layer_list::insert(int row, item added)
{
    added.classes = 0;
    beginInsertRows({}, row, row);
    f_items.insert(f_items.begin() + row, std::move(added));
    endInsertRows();
    replace_classes(row, int(vx_layer_classes_count(layer_at(row))));
}

bool Tvx_layer_list::replace(int id, layer_ptr layer)
{
    int const row = row_of(id);
    if (row < 0 || !layer)
        return false;
    put(row, {layer.release(), &vx_lr2d_destroy}, revision_at(row) + 1);
    emit picture_changed();
    return true;
}

void Tvx_layer_list::put(int row, std::shared_ptr<Ivx_layer> layer, int revision)
{
    vx_lr2d_set_visible(layer.get(), is_visible(row));
    item &place = f_items[std::size_t(row)];
    place.extent = vx_layer_extent(layer.get());
    int const classes = int(vx_layer_classes_count(layer.get()));
    if (classes != place.classes)
        replace_classes(row, 0);
    place.layer = std::move(layer);
    place.revision = revision;
    replace_classes(row, classes);
    emit dataChanged(index(row), index(row));
    if (classes > 0)
        emit dataChanged(index(0, 0, index(row)), index(classes - 1, 0, index(row)));
    emit layer_replaced(id_at(row));
}

std::shared_ptr<Tvx_layer_list::state const> Tvx_layer_list::remember() const
{
    auto all = std::make_shared<state>();
    for (int row = 0; row < count(); ++row)
        all->places.push_back({f_items[std::size_t(row)], name_at(row)});
    return all;
}

bool Tvx_layer_list::differ(state const &a, state const &b)
{
    return a.places != b.places;
}

std::size_t Tvx_layer_list::count_classes_only_in(state const &a, state const &b)
{
    std::size_t classes = 0;
    for (state::place const &place : a.places)
        if (std::ranges::none_of(b.places,
                                 [&](state::place const &p) { return p.layer.layer == place.layer.layer; }))
            classes += std::size_t(place.layer.classes);
    return classes;
}

void Tvx_layer_list::restore(state const &to)
{
    auto const has = [&to](int id) {
        return std::ranges::any_of(to.places, [id](state::place const &p) { return p.layer.id == id; });
    };
    for (int row = count() - 1; row >= 0; --row)
        if (!has(id_at(row)))
            remove(row);
    for (int row = 0; row < int(to.places.size()); ++row) {
        auto const &[layer, name] = to.places[std::size_t(row)];
        if (int const now = row_of(layer.id); now < 0)
            insert(row, layer);
        else if (now != row)
            move(now, row);
        // What was drawn of another layer in this place is stale.
        if (layer_at(row) != layer.layer.get())
            put(row, layer.layer, std::max(revision_at(row), layer.revision) + 1);
        if (name_at(row) != name)
            rename(row, name);
    }
    emit picture_changed();
}

/// The number of classes below a layer changes; while it does, there are none.
void Tvx_layer_list::replace_classes(int row, int count)
{
    item &place = f_items[std::size_t(row)];
    if (place.classes == count)
        return;
    if (place.classes > 0) {
        beginRemoveRows(index(row), 0, place.classes - 1);
        place.classes = 0;
        endRemoveRows();
    }
    if (count > 0) {
        beginInsertRows(index(row), 0, count - 1);
        place.classes = count;
        endInsertRows();
    }
}

void Tvx_layer_list::refresh_classes()
{
    for (int row = 0; row < count(); ++row)
        if (int const classes = f_items[std::size_t(row)].classes; classes > 0)
            emit dataChanged(index(0, 0, index(row)), index(classes - 1, 0, index(row)), {Qt::DisplayRole});
}

bool Tvx_layer_list::rename(int row, QString const &name)
{
    if (!has_row(row))
        return false;
    // A name is one line.
    std::wstring const text = name.simplified().toStdWString();
    QString const before = name_at(row);
    vx_lr2d_set_wcaption(layer_at(row), text.c_str());
    if (name_at(row) == before)
        return true;
    emit dataChanged(index(row), index(row), {Qt::DisplayRole, Qt::EditRole});
    emit layer_renamed(id_at(row));
    return true;
}

bool Tvx_layer_list::set_class_visible(int row, int place, bool visible)
{
    Ivx_layer *const layer = layer_at(row);
    std::optional<bool> const before = vx_layer_class_visible(layer, unsigned(place));
    if (place < 0 || !before)
        return false;
    if (*before == visible)
        return true;
    layer_ptr copy(vx_lr2d_clone(layer));
    int const id = id_at(row);
    if (!vx_layer_class_set_visible(copy.get(), unsigned(place), visible) || !replace(id, std::move(copy)))
        return false;
    emit class_changed(id, place);
    return true;
}

bool Tvx_layer_list::remove(int row)
{
    return removeRows(row, 1);
}

bool Tvx_layer_list::move(int from, int to)
{
    // The model's own form names the row before which the layer is put.
    return moveRows({}, from, 1, {}, to > from ? to + 1 : to);
}

bool Tvx_layer_list::set_layer_visible(int row, bool visible)
{
    if (!has_row(row))
        return false;
    if (is_visible(row) == visible)
        return true;
    vx_lr2d_set_visible(layer_at(row), visible);
    emit dataChanged(index(row), index(row), {Qt::CheckStateRole});
    emit picture_changed();
    return true;
}

void Tvx_layer_list::set_all_visible(bool visible)
{
    for (int row = 0; row < count(); ++row)
        set_layer_visible(row, visible);
}

void Tvx_layer_list::set_damaged(int id, Tvx_layer_mark mark, QString const &reason)
{
    int const row = row_of(id);
    // What is known to be missing is not read in part.
    if (row < 0 || f_items[std::size_t(row)].mark != c_mark_none)
        return;
    f_items[std::size_t(row)].mark = mark;
    f_items[std::size_t(row)].reason = reason;
    emit dataChanged(index(row), index(row), {Qt::DecorationRole, Qt::ToolTipRole});
}

int Tvx_layer_list::row_of(int id) const
{
    auto const found =
        std::find_if(f_items.begin(), f_items.end(), [id](item const &i) { return i.id == id; });
    return found == f_items.end() ? -1 : int(found - f_items.begin());
}

int Tvx_layer_list::id_at(int row) const
{
    return has_row(row) ? f_items[std::size_t(row)].id : -1;
}

Ivx_layer *Tvx_layer_list::layer_at(int row) const
{
    return has_row(row) ? f_items[std::size_t(row)].layer.get() : nullptr;
}

QString Tvx_layer_list::name_at(int row) const
{
    return has_row(row) ? vx_layer_name(layer_at(row)) : QString();
}

bool Tvx_layer_list::is_visible(int row) const
{
    return has_row(row) && vx_lr2d_get_visible(layer_at(row));
}

Tvx_layer_mark Tvx_layer_list::mark_at(int row) const
{
    if (!has_row(row))
        return c_mark_none;
    Tvx_layer_mark const mark = f_items[std::size_t(row)].mark;
    return mark == c_mark_none && !vx_layer_is_drawn(layer_at(row)) ? c_mark_undrawn : mark;
}

int Tvx_layer_list::revision_at(int row) const
{
    return has_row(row) ? f_items[std::size_t(row)].revision : -1;
}

Tvx_box_d2 Tvx_layer_list::extent_at(int row) const
{
    return has_row(row) ? f_items[std::size_t(row)].extent : Tvx_box_d2{};
}

Tvx_box_d2 Tvx_layer_list::extent_of(bool (*counts)(Ivx_layer *layer)) const
{
    Tvx_box_d2 box;
    for (item const &i : f_items)
        if (!counts || counts(i.layer.get()))
            box.add(i.extent);
    return box;
}

Tvx_box_d2 Tvx_layer_list::extent() const
{
    Tvx_box_d2 box;
    for (int row = 0; row < count(); ++row)
        if (vx_layer_is_drawn(layer_at(row)) && !is_of_other_unit(row))
            box.add(extent_at(row));
    return box.is_empty() ? extent_of(nullptr) : box;
}

/// Pictures lie below a map, and follow what else there is.
static bool gives_unit(Ivx_layer *layer)
{
    return vx_layer_is_drawn(layer) && vx_lr2d_get_lr_type(layer) != std::string_view(c_lr_key_rtr);
}

Tvx_map_unit Tvx_layer_list::map_unit() const
{
    for (auto i = f_items.rbegin(); i != f_items.rend(); ++i)
        if (i->unit && gives_unit(i->layer.get()))
            return *i->unit;
    if (Tvx_box_d2 const box = extent_of(&gives_unit); !box.is_empty())
        return vx_map_unit_guess(box);
    for (auto i = f_items.rbegin(); i != f_items.rend(); ++i)
        if (i->unit)
            return *i->unit;
    return vx_map_unit_guess(extent_of(nullptr));
}

bool Tvx_layer_list::is_of_other_unit(int row) const
{
    if (!has_row(row))
        return false;
    std::optional<Tvx_map_unit> const &unit = f_items[std::size_t(row)].unit;
    return unit && *unit != map_unit();
}

// An index of a layer carries 0, that of a class the id of its layer.

QModelIndex Tvx_layer_list::index(int row, int column, QModelIndex const &parent) const
{
    if (column != 0 || row < 0 || row >= rowCount(parent))
        return {};
    return createIndex(row, 0, parent.isValid() ? quintptr(id_at(parent.row())) : 0);
}

QModelIndex Tvx_layer_list::parent(QModelIndex const &index) const
{
    return index.isValid() && index.internalId() != 0 ? this->index(row_of(int(index.internalId())))
                                                      : QModelIndex();
}

int Tvx_layer_list::layer_row_of(QModelIndex const &index) const
{
    if (!index.isValid())
        return -1;
    return index.internalId() == 0 ? index.row() : row_of(int(index.internalId()));
}

int Tvx_layer_list::rowCount(QModelIndex const &parent) const
{
    if (!parent.isValid())
        return count();
    return parent.internalId() == 0 && has_row(parent.row()) ? f_items[std::size_t(parent.row())].classes : 0;
}

QVariant Tvx_layer_list::class_data(int row, unsigned place, int role) const
{
    Ivx_layer *const layer = layer_at(row);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return vx_layer_class_caption(layer, place);
    case Qt::CheckStateRole: {
        std::optional<bool> const visible = vx_layer_class_visible(layer, place);
        return visible ? QVariant(*visible ? Qt::Checked : Qt::Unchecked) : QVariant();
    }
    case Qt::DecorationRole:
        return vx_layer_class_symbol(layer, place);
    case c_id_role:
        return id_at(row);
    default:
        return {};
    }
}

QVariant Tvx_layer_list::data(QModelIndex const &index, int role) const
{
    int const row = layer_row_of(index);
    if (!has_row(row))
        return {};
    if (index.internalId() != 0)
        return class_data(row, unsigned(index.row()), role);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return name_at(row);
    case Qt::CheckStateRole:
        return is_visible(row) ? Qt::Checked : Qt::Unchecked;
    case Qt::DecorationRole:
        return vx_layer_symbol(layer_at(row), mark_at(row));
    case Qt::ToolTipRole: {
        QStringList lines{vx_layer_tip(layer_at(row))};
        if (mark_at(row) != c_mark_none)
            lines += vx_layer_mark_text(mark_at(row));
        if (QString const &reason = f_items[std::size_t(row)].reason; !reason.isEmpty())
            lines += reason;
        return lines.join('\n');
    }
    case Qt::AccessibleDescriptionRole:
        return vx_layer_mark_text(mark_at(row));
    case c_id_role:
        return id_at(row);
    default:
        return {};
    }
}

bool Tvx_layer_list::setData(QModelIndex const &index, QVariant const &value, int role)
{
    int const row = layer_row_of(index);
    bool const is_class = index.internalId() != 0;
    if (role == Qt::EditRole && !is_class)
        return rename(row, value.toString());
    if (role != Qt::CheckStateRole)
        return false;
    bool const on = value.toInt() == Qt::Checked;
    return is_class ? set_class_visible(row, index.row(), on) : set_layer_visible(row, on);
}

Qt::ItemFlags Tvx_layer_list::flags(QModelIndex const &index) const
{
    if (!index.isValid())
        return Qt::ItemIsDropEnabled;
    Qt::ItemFlags const all = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    if (index.internalId() != 0)
        return all | Qt::ItemIsUserCheckable | Qt::ItemNeverHasChildren;
    return all | Qt::ItemIsUserCheckable | Qt::ItemIsDragEnabled | Qt::ItemIsEditable;
}

bool Tvx_layer_list::moveRows(QModelIndex const &source_parent, int source, int count,
                              QModelIndex const &target_parent, int target)
{
    if (source_parent.isValid() || target_parent.isValid() || count < 1 || source < 0 ||
        source + count > this->count() || target < 0 || target > this->count())
        return false;
    if (target >= source && target <= source + count)
        return false;
    if (!beginMoveRows({}, source, source + count - 1, {}, target))
        return false;
    auto const begin = f_items.begin();
    if (target > source)
        std::rotate(begin + source, begin + source + count, begin + target);
    else
        std::rotate(begin + target, begin + source, begin + source + count);
    endMoveRows();
    emit picture_changed();
    return true;
}

bool Tvx_layer_list::removeRows(int row, int count, QModelIndex const &parent)
{
    if (parent.isValid() || count < 1 || row < 0 || row + count > this->count())
        return false;
    // The layers live until the listeners have let go of them.
    std::vector<item> removed;
    beginRemoveRows({}, row, row + count - 1);
    auto const first = f_items.begin() + row;
    removed.assign(std::make_move_iterator(first), std::make_move_iterator(first + count));
    f_items.erase(first, first + count);
    endRemoveRows();
    for (item const &i : removed) {
        emit layer_removed(i.id);
        // A state may keep the layer, but not its file open and all that was read of it.
        vx_attr_data_reload(vx_shp_lr2d_get_attr_data_ptr(i.layer.get()));
    }
    emit picture_changed();
    return true;
}
