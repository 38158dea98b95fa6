#include "platform/toolkit/controls/check_list_box.h"

#include "platform/toolkit/core/strings.h"

TCheckListBox::TCheckListBox(TComponent *owner) : TCustomListBox(owner)
{
}

TCheckBoxState TCheckListBox::GetState(int index) const
{
    return GetLineCheck(index);
}

void TCheckListBox::SetState(int index, TCheckBoxState state)
{
    SetLineCheck(index, state);
}

bool TCheckListBox::GetItemEnabled(int index) const
{
    return GetLineEnabled(index);
}

void TCheckListBox::SetItemEnabled(int index, bool enabled)
{
    SetLineEnabled(index, enabled);
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
