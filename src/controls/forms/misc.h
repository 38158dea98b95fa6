#pragma once

#include "platform/base/export.h"
#include "platform/toolkit/controls/bevel.h"
#include "platform/toolkit/controls/category_panel_group.h"
#include "platform/toolkit/controls/gauge.h"
#include "platform/toolkit/controls/grid_panel.h"
#include "platform/toolkit/controls/image.h"
#include "platform/toolkit/controls/progress_bar.h"
#include "platform/toolkit/controls/shape.h"
#include "platform/toolkit/controls/splitter.h"
#include "platform/toolkit/controls/status_bar.h"
#include "platform/toolkit/controls/track_bar.h"
#include "platform/toolkit/core/custom_control.h"
#include "platform/toolkit/core/graphic_control.h"
#include "platform/toolkit/graphics/image_list.h"

/// The library's names for the toolkit's other controls.

class VX_API Tvx_status_bar : public TStatusBar
{
public:
    using TStatusBar::TStatusBar;
};

class VX_API Tvx_splitter : public TSplitter
{
public:
    using TSplitter::TSplitter;
};

class VX_API Tvx_bevel : public TBevel
{
public:
    using TBevel::TBevel;
};

class VX_API Tvx_shape : public TShape
{
public:
    using TShape::TShape;
};

class VX_API Tvx_image : public TImage
{
public:
    using TImage::TImage;
};

class VX_API Tvx_image_list : public TImageList
{
public:
    using TImageList::TImageList;
};

class VX_API Tvx_track_bar : public TTrackBar
{
public:
    using TTrackBar::TTrackBar;
};

class VX_API Tvx_vcl_track_bar : public TTrackBar
{
public:
    using TTrackBar::TTrackBar;
};

class VX_API Tvx_progress_bar : public TProgressBar
{
public:
    using TProgressBar::TProgressBar;
};

class VX_API Tvx_gauge : public TGauge
{
public:
    using TGauge::TGauge;
};

class VX_API Tvx_vcl_gauge : public TGauge
{
public:
    using TGauge::TGauge;
};

class VX_API Tvx_grid_panel : public TGridPanel
{
public:
    using TGridPanel::TGridPanel;
};

class VX_API Tvx_category_panel_group : public TCategoryPanelGroup
{
public:
    using TCategoryPanelGroup::TCategoryPanelGroup;
};

class VX_API Tvx_custom_ctrl : public TCustomControl
{
public:
    using TCustomControl::TCustomControl;
};

class VX_API Tvx_gr_ctrl : public TGraphicControl
{
public:
    using TGraphicControl::TGraphicControl;
};

/// A windowed control for derived classes; an empty area by itself.
class VX_API Tvx_win_ctrl : public TCustomControl
{
public:
    using TCustomControl::TCustomControl;
};
