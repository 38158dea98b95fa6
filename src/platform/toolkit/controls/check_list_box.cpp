#include "platform/toolkit/controls/check_list_box.h"

#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/core/strings.h"

#include <QtCore/QSignalBlocker>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QListWidgetItem>

TCheckListBox::TCheckListBox(TComponent *owner) : TCustomListBox(owner)
{
}

TCheckBoxState TCheckListBox::GetState(int index) const
{
    QListWidgetItem const *item = vx_qt_as<QListWidget>(this)->item(index);
    if (!item)
        return cbUnchecked;
    switch (item->checkState()) {
    case Qt::Checked:
        return cbChecked;
    case Qt::PartiallyChecked:
        return cbGrayed;
    default:
        return cbUnchecked;
    }
}

void TCheckListBox::SetState(int index, TCheckBoxState state)
{
    auto *list = vx_qt_as<QListWidget>(this);
    QListWidgetItem *item = list->item(index);
    if (!item)
        return;
    // Only the list's own signal is held back: the view must learn of the change.
    QSignalBlocker const quiet(list);
    item->setCheckState(state == cbChecked  ? Qt::Checked
                        : state == cbGrayed ? Qt::PartiallyChecked
                                            : Qt::Unchecked);
}

bool TCheckListBox::GetItemEnabled(int index) const
{
    QListWidgetItem const *item = vx_qt_as<QListWidget>(this)->item(index);
    return item && item->flags().testFlag(Qt::ItemIsEnabled);
}

void TCheckListBox::SetItemEnabled(int index, bool enabled)
{
    auto *list = vx_qt_as<QListWidget>(this);
    QListWidgetItem *item = list->item(index);
    if (!item)
        return;
    QSignalBlocker const quiet(list);
    item->setFlags(item->flags().setFlag(Qt::ItemIsEnabled, enabled));
}

void TCheckListBox::CheckAll(TCheckBoxState state)
{
    for (int i = 0; i < GetItems()->GetCount(); ++i)
        SetState(i, state);
}

void TCheckListBox::CheckClicked(int)
{
    OnClickCheck(this);
}
