#include "platform/toolkit/core/pixel_ratio.h"

#include "platform/toolkit/bridge/qt_graphics.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/canvas.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QImage>
#include <QtGui/QPainter>

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

int vx_bitmap_get_pixel_scale(TBitmap const &bitmap)
{
    double const ratio = reinterpret_cast<QImage const *>(bitmap.NativeImage())->devicePixelRatio();
    return std::max(1, static_cast<int>(std::ceil(ratio)));
}

int vx_canvas_pixel_scale(TCanvas *canvas)
{
    auto *const native = canvas ? canvas->NativePainter() : nullptr;
    QPaintDevice const *const device = native ? vx_qt_painter(native)->device() : nullptr;
    return device ? std::max(1, static_cast<int>(std::ceil(device->devicePixelRatio()))) : 1;
}
