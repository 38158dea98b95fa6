#include "platform/toolkit/graphics/font.h"

#include "platform/toolkit/bridge/qt_graphics.h"
#include "platform/toolkit/bridge/qt_values.h"

#include <QtGui/QFont>
#include <QtGui/QGuiApplication>

namespace {
constexpr int c_pixels_per_inch = 96;
constexpr int c_points_per_inch = 72;

/// a * b / c, to the nearest, halves away from zero.
int mul_div(int a, int b, int c)
{
    long long const product = static_cast<long long>(a) * b;
    return static_cast<int>((product + (product < 0 ? -c : c) / 2) / c);
}
} // namespace

TFont::TFont() : f_height(-12), f_color(clWindowText)
{
    if (!QGuiApplication::instance()) {
        f_name = L"Sans Serif";
        return;
    }
    QFont const font = QGuiApplication::font();
    f_name = vx_unicode_string(font.family());
    f_height = font.pixelSize() > 0 ? -font.pixelSize()
                                    : -mul_div(font.pointSize(), c_pixels_per_inch, c_points_per_inch);
}

template <class T>
void TFont::change(T &field, T const &value)
{
    if (field == value)
        return;
    field = value;
    changed();
}

void TFont::changed()
{
    OnChange(this);
}

bool TFont::Equals(TFont const &other) const
{
    return f_name == other.f_name && f_height == other.f_height && f_color == other.f_color &&
           f_style == other.f_style && f_charset == other.f_charset && f_pitch == other.f_pitch &&
           f_orientation == other.f_orientation;
}

void TFont::Assign(TPersistent const *source)
{
    auto const *other = dynamic_cast<TFont const *>(source);
    if (!other)
        return TPersistent::Assign(source);
    if (Equals(*other))
        return;
    f_name = other->f_name;
    f_height = other->f_height;
    f_color = other->f_color;
    f_style = other->f_style;
    f_charset = other->f_charset;
    f_pitch = other->f_pitch;
    f_orientation = other->f_orientation;
    changed();
}

void TFont::SetName(UnicodeString const &name)
{
    change(f_name, name);
}

int TFont::GetSize() const
{
    return -mul_div(f_height, c_points_per_inch, c_pixels_per_inch);
}

void TFont::SetSize(int points)
{
    SetHeight(-mul_div(points, c_pixels_per_inch, c_points_per_inch));
}

void TFont::SetHeight(int pixels)
{
    change(f_height, pixels);
}

void TFont::SetColor(TColor color)
{
    change(f_color, color);
}

void TFont::SetStyle(TFontStyles style)
{
    change(f_style, style);
}

void TFont::SetCharset(TFontCharset charset)
{
    change(f_charset, charset);
}

void TFont::SetPitch(TFontPitch pitch)
{
    change(f_pitch, pitch);
}

void TFont::SetOrientation(int tenths)
{
    change(f_orientation, tenths);
}

QFont vx_qt_font(TFont const &font)
{
    QFont result(vx_qt_string(font.GetName()));
    // A positive height is that of a line, of which the characters take about five sixths.
    int const height = font.GetHeight();
    int const pixels = height < 0 ? -height : height * 5 / 6;
    result.setPixelSize(pixels > 0 ? pixels : 1);
    TFontStyles const style = font.GetStyle();
    result.setBold(style.Contains(fsBold));
    result.setItalic(style.Contains(fsItalic));
    result.setUnderline(style.Contains(fsUnderline));
    result.setStrikeOut(style.Contains(fsStrikeOut));
    result.setFixedPitch(font.GetPitch() == fpFixed);
    return result;
}
