#pragma once

#include "platform/base/export.h"
#include "platform/toolkit/core/action.h"
#include "platform/toolkit/menus/menu.h"

/// The library's names for the toolkit's menus and actions.

class VX_API Tvx_action : public TAction
{
public:
    using TAction::TAction;
};

class VX_API Tvx_action_list : public TActionList
{
public:
    using TActionList::TActionList;
};

class VX_API Tvx_menu_item : public TMenuItem
{
public:
    using TMenuItem::TMenuItem;
};

class VX_API Tvx_popup_menu : public TPopupMenu
{
public:
    using TPopupMenu::TPopupMenu;
};

class VX_API Tvx_main_menu : public TMainMenu
{
public:
    using TMainMenu::TMainMenu;
};
