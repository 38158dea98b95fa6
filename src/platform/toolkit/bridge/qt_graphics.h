#pragma once

#include "platform/base/export.h"
#include "platform/toolkit/core/types.h"

#include <QtGui/QColor>
#include <QtGui/QCursor>
#include <QtGui/QFont>
#include <QtGui/QImage>

// Colours, fonts, pictures, cursors and painters of the toolkit as those of Qt.

class TBitmap;
class TFont;
class QPainter;
struct vx_native_painter;

[[nodiscard]] inline QPainter *vx_qt_painter(vx_native_painter *painter)
{
    return reinterpret_cast<QPainter *>(painter);
}
[[nodiscard]] inline vx_native_painter *vx_native(QPainter *painter)
{
    return reinterpret_cast<vx_native_painter *>(painter);
}

/// System colours give what they stand for at the moment, `clNone` a transparent colour.
[[nodiscard]] VX_API QColor vx_qt_color(TColor color);
[[nodiscard]] inline TColor vx_color(QColor const &color)
{
    return RGB(color.red(), color.green(), color.blue());
}

/// Stand with the graphics: `font.cpp`, `bitmap.cpp`.
[[nodiscard]] VX_API QFont vx_qt_font(TFont const &font);
[[nodiscard]] VX_API QImage vx_qt_image(TBitmap const &bitmap);
VX_API void vx_set_image(TBitmap &bitmap, QImage const &image);

/// Cursors of the program's own come from the screen's list.
[[nodiscard]] VX_API QCursor vx_qt_cursor(TCursor cursor);
