#pragma once

#include "platform/base/export.h"
#include "platform/toolkit/controls/page_control.h"

/// The library's names for the toolkit's pages.

class VX_API Tvx_page_control : public TPageControl
{
public:
    using TPageControl::TPageControl;
};

class VX_API Tvx_vcl_page_control : public TPageControl
{
public:
    using TPageControl::TPageControl;
};

class VX_API Tvx_tab_sheet : public TTabSheet
{
public:
    using TTabSheet::TTabSheet;
};

class VX_API Tvx_vcl_tab_sheet : public TTabSheet
{
public:
    using TTabSheet::TTabSheet;
};
