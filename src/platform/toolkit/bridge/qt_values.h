#pragma once

#include "platform/base/unicode_string.h"
#include "platform/toolkit/core/types.h"

#include <QtCore/QPoint>
#include <QtCore/QRect>
#include <QtCore/QString>

// Texts, points and rectangles of the toolkit as those of Qt and back.

[[nodiscard]] inline QString vx_qt_string(UnicodeString const &text)
{
    return QString::fromWCharArray(text.c_str(), text.Length());
}
[[nodiscard]] inline UnicodeString vx_unicode_string(QString const &text)
{
    return UnicodeString(text.toStdWString());
}

[[nodiscard]] inline QRect vx_qt_rect(TRect const &r)
{
    return QRect(r.Left, r.Top, r.Width(), r.Height());
}
[[nodiscard]] inline TRect vx_rect(QRect const &r)
{
    return Bounds(r.x(), r.y(), r.width(), r.height());
}
[[nodiscard]] inline QPoint vx_qt_point(TPoint const &p)
{
    return QPoint(p.X, p.Y);
}
[[nodiscard]] inline TPoint vx_point(QPoint const &p)
{
    return {p.x(), p.y()};
}
