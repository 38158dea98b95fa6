#include "host/layout_document.h"

#include "platform/base/string_adp.h"
#include "platform/layers/layout_keys.h"
#include "platform/layers/vx_scn_2d.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {
constexpr std::size_t c_most_states = 200;
/// Steps of one kind within this time are one.
constexpr qint64 c_one_step_ms = 900;

QString name_of_layer(Ivx_layer const *layer)
{
    std::wstring name;
    vx_lr2d_get_wcaption(layer, Tvx_std_wstring_adapter(name));
    return QString::fromStdWString(name);
}

void set_name(Ivx_layer *layer, QString const &name)
{
    vx_lr2d_set_wcaption(layer, name.toStdWString().c_str());
}
} // namespace

Tvx_layout_document::Tvx_layout_document(Ivx_scn_2d *layout, QObject *parent)
    : QAbstractListModel(parent), f_layout(layout)
{
    for (int place = 0; place < count(); ++place) {
        ++f_last_number;
        f_entries.push_back({f_last_number, f_last_number, f_last_number});
    }
    find_places();
    f_states.push_back(make_state());
}

int Tvx_layout_document::count() const
{
    return vx_scn_2d_get_count(f_layout);
}

int Tvx_layout_document::place_of(int id) const
{
    auto const found = f_places.find(id);
    return found == f_places.end() ? -1 : found->second;
}

void Tvx_layout_document::find_places()
{
    f_places.clear();
    for (std::size_t place = 0; place < f_entries.size(); ++place)
        f_places[f_entries[place].id] = int(place);
}

int Tvx_layout_document::id_at(int row) const
{
    return row < 0 || row >= count() ? -1 : f_entries[std::size_t(count() - 1 - row)].id;
}

int Tvx_layout_document::row_of(int id) const
{
    int const place = place_of(id);
    return place < 0 ? -1 : count() - 1 - place;
}

Ivx_layer *Tvx_layout_document::element(int id) const
{
    return vx_scn_2d_get_layer(f_layout, place_of(id));
}

int Tvx_layout_document::look_of(int id) const
{
    int const place = place_of(id);
    return place < 0 ? -1 : f_entries[std::size_t(place)].look;
}

QString Tvx_layout_document::name_of(int id) const
{
    Ivx_layer const *const layer = element(id);
    return layer ? name_of_layer(layer) : QString();
}

Tvx_box_d2 Tvx_layout_document::box_of(int id) const
{
    return vx_layout_lr2d_get_box(element(id));
}

Tvx_box_d2 Tvx_layout_document::page_box() const
{
    Ivx_layer const *const page = vx_layout_get_page(f_layout);
    return page ? vx_layout_lr2d_get_box(page) : Tvx_box_d2{0, 0, 210, 297};
}

int Tvx_layout_document::frame_of(int id) const
{
    Ivx_layer const *const layer = element(id);
    if (vx_layout_is(layer, c_lr_key_layout_scene_frame))
        return id;
    if (!vx_layout_names_frame(layer))
        return -1;
    Ivx_layer const *const frame =
        vx_layout_find_frame_w(f_layout, vx_layout_file_of(layer).toStdWString().c_str());
    int const place = frame ? vx_scn_2d_get_index(f_layout, frame) : -1;
    return place < 0 ? -1 : f_entries[std::size_t(place)].id;
}

QString Tvx_layout_document::free_name(QString const &name, int id) const
{
    QString free = name;
    for (int number = 2;
         std::ranges::any_of(f_entries, [&](entry const &e) { return e.id != id && name_of(e.id) == free; });
         ++number)
        free = QStringLiteral("%1 %2").arg(name).arg(number);
    return free;
}

// ---- changes

void Tvx_layout_document::touch(int place, bool looks_other)
{
    entry &e = f_entries[std::size_t(place)];
    e.version = ++f_last_number;
    if (looks_other)
        e.look = e.version;
}

void Tvx_layout_document::tell_row(int place)
{
    QModelIndex const row = index(count() - 1 - place);
    emit dataChanged(row, row);
}

int Tvx_layout_document::add(Tvx_layout_element_ptr element)
{
    if (!element)
        return -1;
    set_name(element.get(), free_name(name_of_layer(element.get())));
    int const place = count();
    beginInsertRows({}, 0, 0);
    bool const added = vx_scn_2d_insert(f_layout, place, element.get());
    if (added) {
        static_cast<void>(element.release());
        ++f_last_number;
        f_entries.push_back({f_last_number, f_last_number, f_last_number});
        find_places();
    }
    endInsertRows();
    if (!added)
        return -1;
    int const id = f_last_number;
    push(c_step_single, id);
    emit changed();
    return id;
}

bool Tvx_layout_document::replace(int id, Tvx_layout_element_ptr element)
{
    int const place = place_of(id);
    if (place < 0 || !element)
        return false;
    QString const former = name_of(id);
    QString const wanted = name_of_layer(element.get());
    if (wanted != former)
        set_name(element.get(), free_name(wanted, id));
    QString const now = name_of_layer(element.get());
    Tvx_layout_element_ptr const old(vx_scn_2d_extract(f_layout, place));
    if (!vx_scn_2d_insert(f_layout, place, element.get()))
        return false;
    static_cast<void>(element.release());
    touch(place, true);
    if (vx_layout_is(this->element(id), c_lr_key_layout_scene_frame))
        rename_references(former, now);
    tell_row(place);
    push(c_step_single, id);
    if (now != wanted) // whoever gave the name has to learn of the other
        emit element_changed(id);
    emit changed();
    return true;
}

bool Tvx_layout_document::remove(int id)
{
    int const place = place_of(id);
    if (place < 0 || vx_layout_has_page_kind(element(id)))
        return false;
    int const row = row_of(id);
    beginRemoveRows({}, row, row);
    Tvx_layout_element_ptr const old(vx_scn_2d_extract(f_layout, place));
    f_entries.erase(f_entries.begin() + place);
    find_places();
    endRemoveRows();
    push(c_step_single, id);
    emit element_removed(id);
    emit changed();
    return true;
}

bool Tvx_layout_document::move_to(int id, int row)
{
    int const from = place_of(id);
    if (from < 0 || vx_layout_has_page_kind(element(id)))
        return false;
    int const lowest = vx_layout_has_page_kind(vx_scn_2d_get_layer(f_layout, 0)) ? 1 : 0;
    int const to = std::clamp(count() - 1 - row, lowest, count() - 1);
    if (to == from)
        return false;
    int const from_row = count() - 1 - from;
    int const to_row = count() - 1 - to;
    if (!beginMoveRows({}, from_row, from_row, {}, to_row > from_row ? to_row + 1 : to_row))
        return false;
    vx_scn_2d_move(f_layout, from, to);
    entry const moved = f_entries[std::size_t(from)];
    f_entries.erase(f_entries.begin() + from);
    f_entries.insert(f_entries.begin() + to, moved);
    find_places();
    endMoveRows();
    push(c_step_single, id);
    emit changed();
    return true;
}

bool Tvx_layout_document::rename(int id, QString const &name)
{
    QString const former = name_of(id);
    QString const wanted = name.trimmed();
    int const place = place_of(id);
    if (place < 0 || wanted.isEmpty() || wanted == former)
        return false;
    QString const now = free_name(wanted, id);
    if (now == former)
        return false;
    set_name(element(id), now);
    touch(place, false);
    if (vx_layout_is(element(id), c_lr_key_layout_scene_frame))
        rename_references(former, now);
    tell_row(place);
    push(c_step_single, id);
    emit element_changed(id);
    emit changed();
    return true;
}

void Tvx_layout_document::rename_references(QString const &from, QString const &to)
{
    if (from == to)
        return;
    for (int place = 0; place < count(); ++place) {
        Ivx_layer *const layer = vx_scn_2d_get_layer(f_layout, place);
        if (!vx_layout_names_frame(layer) || vx_layout_file_of(layer) != from)
            continue;
        vx_layout_set_file(layer, to);
        touch(place, false);
        emit element_changed(f_entries[std::size_t(place)].id);
    }
}

bool Tvx_layout_document::set_visible(int id, bool visible)
{
    int const place = place_of(id);
    if (place < 0 || vx_lr2d_get_visible(element(id)) == visible)
        return false;
    vx_lr2d_set_visible(element(id), visible);
    touch(place, false);
    tell_row(place);
    push(c_step_single, id);
    emit element_changed(id);
    emit changed();
    return true;
}

void Tvx_layout_document::set_box(int id, Tvx_box_d2 const &box)
{
    int const place = place_of(id);
    Tvx_box_d2 const former = box_of(id);
    if (place < 0 || former == box)
        return;
    vx_layout_lr2d_set_box(element(id), box);
    Tvx_box_d2 const now = box_of(id);
    // A shift that rounding turned into another size is none.
    bool const same_size =
        std::abs(now.width() - former.width()) + std::abs(now.height() - former.height()) < 1e-6;
    touch(place, !same_size);
    emit element_changed(id);
    emit changed();
}

void Tvx_layout_document::change(int id, std::function<void(Ivx_layer *)> const &change)
{
    int const place = place_of(id);
    if (place < 0)
        return;
    change(element(id));
    touch(place, true);
    emit element_changed(id);
    emit changed();
}

// ---- the way back

Tvx_layout_document::state Tvx_layout_document::make_state() const
{
    state made;
    for (int place = 0; place < count(); ++place) {
        entry const &e = f_entries[std::size_t(place)];
        std::shared_ptr<Ivx_layer> layer;
        if (!f_states.empty())
            for (kept_element const &kept : f_states[f_at])
                if (kept.what.id == e.id && kept.what.version == e.version)
                    layer = kept.layer;
        if (!layer)
            layer.reset(vx_lr2d_clone(vx_scn_2d_get_layer(f_layout, place)), &vx_lr2d_destroy);
        made.push_back({e, std::move(layer)});
    }
    return made;
}

void Tvx_layout_document::as_one_step(std::function<void()> const &work)
{
    f_has_collected = false;
    {
        QScopedValueRollback const collects(f_collects, true);
        work();
    }
    if (f_has_collected)
        push(c_step_single, -1);
}

void Tvx_layout_document::push(step kind, int id)
{
    if (f_collects) {
        f_has_collected = true;
        return;
    }
    bool const same = kind != c_step_single && kind == f_last_step && id == f_last_id && f_at > 0 &&
                      f_at + 1 == f_states.size() && f_since_step.isValid() &&
                      f_since_step.elapsed() < c_one_step_ms;
    state made = make_state();
    f_states.resize(f_at + 1);
    if (same) {
        f_states[f_at] = std::move(made);
    } else {
        f_states.push_back(std::move(made));
        if (f_states.size() > c_most_states)
            f_states.erase(f_states.begin());
        f_at = f_states.size() - 1;
    }
    f_last_step = kind;
    f_last_id = id;
    f_since_step.start();
    emit history_changed();
}

void Tvx_layout_document::finish_step(step kind, int id)
{
    state const &now = f_states[f_at];
    bool const changed = !std::ranges::equal(now, f_entries, [](kept_element const &kept, entry const &e) {
        return kept.what.id == e.id && kept.what.version == e.version;
    });
    if (changed)
        push(kind, id);
}

void Tvx_layout_document::give_up_step()
{
    restore(f_states[f_at]);
}

void Tvx_layout_document::rename_scene(QString const &from, QString const &to)
{
    auto const rename = [&](Ivx_layer *layer) {
        if (vx_layout_is(layer, c_lr_key_layout_scene_frame) && vx_layout_file_of(layer) == from)
            vx_layout_set_file(layer, to);
    };
    for (entry const &e : f_entries)
        rename(element(e.id));
    for (state const &s : f_states)
        for (kept_element const &kept : s)
            rename(kept.layer.get());
}

void Tvx_layout_document::detach()
{
    beginResetModel();
    f_layout = nullptr;
    f_entries.clear();
    find_places();
    f_states.assign(1, {});
    f_at = 0;
    endResetModel();
}

void Tvx_layout_document::undo()
{
    if (!can_undo())
        return;
    --f_at;
    restore(f_states[f_at]);
}

void Tvx_layout_document::redo()
{
    if (!can_redo())
        return;
    ++f_at;
    restore(f_states[f_at]);
}

void Tvx_layout_document::restore(state const &to)
{
    std::vector<entry> const former = std::exchange(f_entries, {});
    std::vector<int> touched;
    beginResetModel();
    std::vector<Tvx_layout_element_ptr> old;
    while (count() > 0)
        old.emplace_back(vx_scn_2d_extract(f_layout, 0));
    for (kept_element const &kept : to) {
        Tvx_layout_element_ptr layer;
        for (std::size_t i = 0; i < former.size(); ++i)
            if (former[i].id == kept.what.id && former[i].version == kept.what.version)
                layer = std::move(old[i]);
        if (!layer) {
            layer.reset(vx_lr2d_clone(kept.layer.get()));
            touched.push_back(kept.what.id);
        }
        if (vx_scn_2d_insert(f_layout, count(), layer.get())) {
            static_cast<void>(layer.release());
            f_entries.push_back(kept.what);
        }
    }
    find_places();
    endResetModel();
    f_last_step = c_step_single;
    for (entry const &e : former)
        if (place_of(e.id) < 0)
            emit element_removed(e.id);
    for (int const id : touched)
        emit element_restored(id);
    emit history_changed();
    emit changed();
}

// ---- the model of the list

int Tvx_layout_document::rowCount(QModelIndex const &parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant Tvx_layout_document::data(QModelIndex const &index, int role) const
{
    int const id = id_at(index.row());
    Ivx_layer const *const layer = element(id);
    if (!layer)
        return {};
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        return name_of(id);
    if (role == Qt::CheckStateRole)
        return vx_lr2d_get_visible(layer) ? Qt::Checked : Qt::Unchecked;
    if (role == Qt::ToolTipRole || role == Qt::AccessibleDescriptionRole)
        return vx_layout_kind_name(vx_lr2d_get_lr_type(layer));
    return {};
}

bool Tvx_layout_document::setData(QModelIndex const &index, QVariant const &value, int role)
{
    int const id = id_at(index.row());
    if (role == Qt::EditRole)
        return rename(id, value.toString());
    return role == Qt::CheckStateRole && set_visible(id, value.toInt() == Qt::Checked);
}

Qt::ItemFlags Tvx_layout_document::flags(QModelIndex const &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    return Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsUserCheckable | Qt::ItemIsEditable |
           Qt::ItemNeverHasChildren;
}
