#pragma once

// All of the bridge at once, for hosts that are written with Qt; the toolkit's own sources name the parts.

#include "platform/toolkit/bridge/qt_events.h"
#include "platform/toolkit/bridge/qt_graphics.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
