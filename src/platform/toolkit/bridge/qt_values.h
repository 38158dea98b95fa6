#pragma once

#include "platform/base/unicode_string.h"
#include "platform/toolkit/core/types.h"

#include <QtCore/QPoint>
#include <QtCore/QRect>
#include <QtCore/QString>
#include <QtCore/QStringView>

// Texts, points and rectangles of the toolkit as those of Qt and back.

[[nodiscard]] inline QString vx_qt_string(UnicodeString const &text)
{
    // Qt's own way is slow, and hardly any text has characters of two units.
    wchar_t const *const from = text.c_str();
    qsizetype const length = text.Length();
    QString result(length, Qt::Uninitialized);
    QChar *const to = result.data();
    for (qsizetype i = 0; i < length; ++i) {
        if (static_cast<std::uint32_t>(from[i]) >= 0xD800)
            return QString::fromWCharArray(from, length);
        to[i] = QChar(static_cast<char16_t>(from[i]));
    }
    return result;
}
[[nodiscard]] inline UnicodeString vx_unicode_string(QString const &text)
{
    return UnicodeString(text.toStdWString());
}

/// Places in a text: of ours in characters, of Qt's in UTF-16 units, of which a character beyond U+FFFF has
/// two.
[[nodiscard]] inline int vx_qt_place(QStringView text, int characters)
{
    qsizetype at = 0;
    for (; characters > 0 && at < text.size(); --characters)
        at += text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate() ? 2 : 1;
    return static_cast<int>(at);
}
[[nodiscard]] inline int vx_place(QStringView text, qsizetype units)
{
    int characters = 0;
    for (qsizetype at = 0; at < units && at < text.size(); ++characters)
        at += text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate() ? 2 : 1;
    return characters;
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
