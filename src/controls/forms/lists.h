#pragma once

#include "platform/base/export.h"
#include "platform/toolkit/controls/check_list_box.h"
#include "platform/toolkit/controls/combo_box.h"
#include "platform/toolkit/controls/list_box.h"
#include "platform/toolkit/controls/list_view.h"
#include "platform/toolkit/controls/tree_view.h"

/// The library's names for the toolkit's lists.

class VX_API Tvx_combo_box : public TComboBox
{
public:
    using TComboBox::TComboBox;
};

class VX_API Tvx_vcl_combo_box : public TComboBox
{
public:
    using TComboBox::TComboBox;
};

class VX_API Tvx_list_box : public TListBox
{
public:
    using TListBox::TListBox;
};

class VX_API Tvx_vcl_list_box : public TListBox
{
public:
    using TListBox::TListBox;
};

class VX_API Tvx_check_list_box : public TCheckListBox
{
public:
    using TCheckListBox::TCheckListBox;
};

class VX_API Tvx_vcl_check_list_box : public TCheckListBox
{
public:
    using TCheckListBox::TCheckListBox;
};

class VX_API Tvx_list_view : public TListView
{
public:
    using TListView::TListView;
};

class VX_API Tvx_tree_view : public TTreeView
{
public:
    using TTreeView::TTreeView;
};
