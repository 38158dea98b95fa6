#pragma once

#include "platform/base/export.h"
#include "platform/toolkit/controls/button.h"
#include "platform/toolkit/controls/check_box.h"
#include "platform/toolkit/controls/group_box.h"
#include "platform/toolkit/controls/radio_button.h"
#include "platform/toolkit/controls/radio_group.h"
#include "platform/toolkit/controls/speed_button.h"
#include "platform/toolkit/controls/tool_bar.h"

/// The library's names for the toolkit's buttons, check boxes and groups.

class VX_API Tvx_button : public TButton
{
public:
    using TButton::TButton;
};

class VX_API Tvx_vcl_button : public TButton
{
public:
    using TButton::TButton;
};

class VX_API Tvx_bitbtn : public TBitBtn
{
public:
    using TBitBtn::TBitBtn;
};

class VX_API Tvx_vcl_bit_button : public TBitBtn
{
public:
    using TBitBtn::TBitBtn;
};

class VX_API Tvx_speed_btn : public TSpeedButton
{
public:
    using TSpeedButton::TSpeedButton;
};

class VX_API Tvx_vcl_speed_button : public TSpeedButton
{
public:
    using TSpeedButton::TSpeedButton;
};

class VX_API Tvx_tool_btn : public TToolButton
{
public:
    using TToolButton::TToolButton;
};

class VX_API Tvx_check_box : public TCheckBox
{
public:
    using TCheckBox::TCheckBox;
};

class VX_API Tvx_vcl_check_box : public TCheckBox
{
public:
    using TCheckBox::TCheckBox;
};

class VX_API Tvx_radio_button : public TRadioButton
{
public:
    using TRadioButton::TRadioButton;
};

class VX_API Tvx_radio_group : public TRadioGroup
{
public:
    using TRadioGroup::TRadioGroup;
};

class VX_API Tvx_vcl_radio_group : public TRadioGroup
{
public:
    using TRadioGroup::TRadioGroup;
};

class VX_API Tvx_group_box : public TGroupBox
{
public:
    using TGroupBox::TGroupBox;
};

class VX_API Tvx_vcl_group_box : public TGroupBox
{
public:
    using TGroupBox::TGroupBox;
};
