#pragma once

#include "platform/toolkit/core/types.h"

/// State of an item that is drawn by the program. `odComboBoxEdit`: it is the chosen item in the closed combo
/// box.
enum TOwnerDrawStateItem
{
    odSelected,
    odGrayed,
    odDisabled,
    odChecked,
    odFocused,
    odDefault,
    odComboBoxEdit
};
using TOwnerDrawState = set_of<TOwnerDrawStateItem>;

/// Draws the item on the control's canvas in `rect`; brush and font are set for the state and the ground is
/// filled.
using TDrawItemEvent =
    closure<void(TWinControl *control, int index, TRect const &rect, TOwnerDrawState const &state)>;
/// Tells the height of an item.
using TMeasureItemEvent = closure<void(TWinControl *control, int index, int &height)>;
