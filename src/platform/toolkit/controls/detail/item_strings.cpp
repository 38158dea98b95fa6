#include "platform/toolkit/controls/detail/item_strings.h"

#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/core/win_control.h"

#include <QtCore/QAbstractItemModel>
#include <QtCore/QModelIndex>
#include <QtCore/QVariant>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QComboBox>

#include <stdexcept>

namespace {
constexpr int c_object_role = Qt::UserRole;

QAbstractItemModel *model_of(TWinControl const *owner)
{
    QWidget *const widget = vx_qt_widget(owner);
    if (auto *const combo = qobject_cast<QComboBox *>(widget))
        return combo->model();
    return static_cast<QAbstractItemView *>(widget)->model();
}

/// Throws for an index that is not there.
QModelIndex item(TWinControl const *owner, int index)
{
    QModelIndex const at = model_of(owner)->index(index, 0);
    if (!at.isValid())
        throw std::out_of_range("item");
    return at;
}
} // namespace

int vx_item_strings::GetCount() const
{
    return model_of(f_owner)->rowCount();
}

UnicodeString vx_item_strings::GetStrings(int index) const
{
    return vx_unicode_string(item(f_owner, index).data(Qt::DisplayRole).toString());
}

void vx_item_strings::SetStrings(int index, UnicodeString const &text)
{
    model_of(f_owner)->setData(item(f_owner, index), vx_qt_string(text), Qt::DisplayRole);
    changed();
}

TObject *vx_item_strings::GetObjects(int index) const
{
    return reinterpret_cast<TObject *>(item(f_owner, index).data(c_object_role).toULongLong());
}

void vx_item_strings::SetObjects(int index, TObject *object)
{
    model_of(f_owner)->setData(item(f_owner, index),
                               QVariant::fromValue(reinterpret_cast<qulonglong>(object)), c_object_role);
}

int vx_item_strings::AddObject(UnicodeString const &text, TObject *object)
{
    int index = GetCount();
    if (f_sorted) {
        index = 0;
        while (index < GetCount() && vx_compare_text(GetStrings(index), text) <= 0)
            ++index;
    }
    InsertObject(index, text, object);
    return index;
}

void vx_item_strings::InsertObject(int index, UnicodeString const &text, TObject *object)
{
    if (index < 0 || index > GetCount())
        throw std::out_of_range("item");
    insert_row(index, text);
    SetObjects(index, object);
    changed();
}

void vx_item_strings::Delete(int index)
{
    remove_row(item(f_owner, index).row());
    changed();
}

void vx_item_strings::Clear()
{
    remove_all_rows();
    changed();
}

void vx_item_strings::Sort()
{
    TStringList list;
    list.Assign(this);
    list.Sort();
    Assign(&list);
}
