#pragma once

#include "platform/base/closure.h"
#include "platform/base/export.h"
#include "platform/base/unicode_string.h"
#include "platform/toolkit/core/object.h"
#include "platform/toolkit/core/set_of.h"
#include "platform/toolkit/core/types.h"

enum TFontStyle
{
    fsBold,
    fsItalic,
    fsUnderline,
    fsStrikeOut
};
using TFontStyles = set_of<TFontStyle>;

enum TFontPitch
{
    fpDefault,
    fpVariable,
    fpFixed
};

/// Character sets as fonts name them. Text is wide here, so a set only travels with the font.
using TFontCharset = unsigned char;
inline constexpr TFontCharset ANSI_CHARSET = 0;
inline constexpr TFontCharset DEFAULT_CHARSET = 1;
inline constexpr TFontCharset SYMBOL_CHARSET = 2;
inline constexpr TFontCharset RUSSIAN_CHARSET = 204;

/// A font by its description. A new one is the application's own font in `clWindowText`.
///
/// Size and height say the same: `Height` is in logical pixels, negative for the height of the characters and
/// positive for that of a whole line; `Size` is in points, its sign the other way round. 96 pixels make 72
/// points. `OnChange` runs after every real change, once.
class VX_API TFont : public TPersistent
{
public:
    TFont();
    TFont(TFont const &) = delete;
    TFont &operator=(TFont const &) = delete;

    void Assign(TPersistent const *source) override;

    [[nodiscard]] UnicodeString GetName() const { return f_name; }
    void SetName(UnicodeString const &name);
    [[nodiscard]] int GetSize() const;
    void SetSize(int points);
    [[nodiscard]] int GetHeight() const { return f_height; }
    void SetHeight(int pixels);
    [[nodiscard]] TColor GetColor() const { return f_color; }
    void SetColor(TColor color);
    [[nodiscard]] TFontStyles GetStyle() const { return f_style; }
    void SetStyle(TFontStyles style);
    [[nodiscard]] TFontCharset GetCharset() const { return f_charset; }
    void SetCharset(TFontCharset charset);
    [[nodiscard]] TFontPitch GetPitch() const { return f_pitch; }
    void SetPitch(TFontPitch pitch);
    /// Slope of the base line in tenths of a degree, anticlockwise.
    [[nodiscard]] int GetOrientation() const { return f_orientation; }
    void SetOrientation(int tenths);

    /// True if both describe the same font in the same colour.
    [[nodiscard]] bool Equals(TFont const &other) const;

    closure<void(TObject *)> OnChange;

private:
    template <class T>
    void change(T &field, T const &value);
    void changed();

    UnicodeString f_name;
    int f_height;
    TColor f_color;
    TFontStyles f_style;
    TFontCharset f_charset = DEFAULT_CHARSET;
    TFontPitch f_pitch = fpDefault;
    int f_orientation = 0;
};
