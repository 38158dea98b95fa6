#include "platform/toolkit/core/pixel_ratio.h"

#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/graphics/bitmap.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QImage>

#include <algorithm>
#include <cmath>

int vx_screen_pixel_scale()
{
    vx_qt_ensure_application();
    return std::max(1, static_cast<int>(std::ceil(qGuiApp->devicePixelRatio())));
}

void vx_bitmap_set_pixel_scale(TBitmap &bitmap, int scale)
{
    reinterpret_cast<QImage *>(bitmap.NativeImage())->setDevicePixelRatio(std::max(scale, 1));
    bitmap.NativeChanged();
}
