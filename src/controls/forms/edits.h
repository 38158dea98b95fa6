#pragma once

#include "platform/base/export.h"
#include "platform/toolkit/controls/edit.h"
#include "platform/toolkit/controls/label.h"
#include "platform/toolkit/controls/memo.h"
#include "platform/toolkit/controls/rich_edit.h"
#include "platform/toolkit/controls/spin_edit.h"
#include "platform/toolkit/controls/up_down.h"

/// The library's names for the toolkit's edits and labels.

class VX_API Tvx_edit : public TEdit
{
public:
    using TEdit::TEdit;
};

class VX_API Tvx_vcl_edit : public TEdit
{
public:
    using TEdit::TEdit;
};

class VX_API Tvx_memo : public TMemo
{
public:
    using TMemo::TMemo;
};

class VX_API Tvx_rich_edit : public TRichEdit
{
public:
    using TRichEdit::TRichEdit;
};

class VX_API Tvx_spin_edit : public TSpinEdit
{
public:
    using TSpinEdit::TSpinEdit;
};

class VX_API Tvx_updown : public TUpDown
{
public:
    using TUpDown::TUpDown;
};

class VX_API Tvx_up_down : public TUpDown
{
public:
    using TUpDown::TUpDown;
};

class VX_API Tvx_label : public TLabel
{
public:
    using TLabel::TLabel;
};

class VX_API Tvx_vcl_label : public TLabel
{
public:
    using TLabel::TLabel;
};
