#pragma once

#include "platform/base/closure.h"
#include "platform/base/export.h"
#include "platform/base/unicode_string.h"
#include "platform/toolkit/core/object.h"
#include "platform/toolkit/core/types.h"
#include "platform/toolkit/graphics/brush.h"
#include "platform/toolkit/graphics/font.h"
#include "platform/toolkit/graphics/pen.h"

#include <memory>
#include <span>

class TBitmap;
class TGraphic;

enum TTextFormats
{
    tfBottom,
    tfCalcRect,
    tfCenter,
    tfEditControl,
    tfEndEllipsis,
    tfPathEllipsis,
    tfExpandTabs,
    tfLeft,
    tfNoClip,
    tfNoPrefix,
    tfRight,
    tfSingleLine,
    tfTop,
    tfVerticalCenter,
    tfWordBreak,
    tfWordEllipsis
};
using TTextFormat = set_of<TTextFormats>;

/// How copied pixels meet what is there.
using TCopyMode = int;
inline constexpr TCopyMode cmSrcCopy = 0x00CC0020;
inline constexpr TCopyMode cmSrcInvert = 0x00660046; ///< exclusive or
inline constexpr TCopyMode cmSrcAnd = 0x008800C6;
inline constexpr TCopyMode cmSrcPaint = 0x00EE0086; ///< or
inline constexpr TCopyMode cmNotSrcCopy = 0x00330008;

struct vx_native_painter; ///< a running painter, see the bridge

/// Draws with a pen, a brush and a font on a bitmap, or on a control while that paints itself.
///
/// Coordinates are logical pixels. A rectangle takes in its left and top edge and not its right and bottom
/// one; a line does not draw its last pixel. Nothing is smoothed but text and stretched pictures, unless
/// `SetSmooth` asks for it. A canvas of a control measures text at any time, but draws only while its control
/// is being painted; calls at other times draw nothing.
class VX_API TCanvas : public TPersistent
{
public:
    /// A canvas for measuring, or for the painters handed to it.
    TCanvas();
    /// A canvas of `bitmap`, which owns it.
    explicit TCanvas(TBitmap *bitmap);
    ~TCanvas() override;
    TCanvas(TCanvas const &) = delete;
    TCanvas &operator=(TCanvas const &) = delete;

    [[nodiscard]] TPen *GetPen() const { return f_pen.get(); }
    void SetPen(TPen const *pen) { f_pen->Assign(pen); }
    [[nodiscard]] TBrush *GetBrush() const { return f_brush.get(); }
    void SetBrush(TBrush const *brush) { f_brush->Assign(brush); }
    [[nodiscard]] TFont *GetFont() const { return f_font.get(); }
    void SetFont(TFont const *font) { f_font->Assign(font); }
    [[nodiscard]] TCopyMode GetCopyMode() const { return f_copy_mode; }
    void SetCopyMode(TCopyMode mode) { f_copy_mode = mode; }
    [[nodiscard]] bool GetSmooth() const { return f_smooth; }
    /// True smooths the edges of slanted lines and curves.
    void SetSmooth(bool smooth) { f_smooth = smooth; }
    [[nodiscard]] TPoint GetPenPos() const { return f_pen_pos; }
    void SetPenPos(TPoint const &point) { f_pen_pos = point; }

    void MoveTo(int x, int y) { f_pen_pos = {x, y}; }
    void LineTo(int x, int y);
    void Polyline(std::span<TPoint const> points);
    void Polygon(std::span<TPoint const> points);
    void Rectangle(int left, int top, int right, int bottom);
    void Rectangle(TRect const &rect);
    void RoundRect(int left, int top, int right, int bottom, int ellipse_width, int ellipse_height);
    void Ellipse(int left, int top, int right, int bottom);
    void Ellipse(TRect const &rect);
    /// The part of the ellipse in the rectangle from the ray through (x3, y3) anticlockwise to that through
    /// (x4, y4).
    void Arc(int left, int top, int right, int bottom, int x3, int y3, int x4, int y4);
    void Pie(int left, int top, int right, int bottom, int x3, int y3, int x4, int y4);
    /// With the brush alone; nothing with a clear one.
    void FillRect(TRect const &rect);
    /// A border of one pixel in the brush's colour.
    void FrameRect(TRect const &rect);
    /// The dotted frame of the focus; drawn twice it is gone again on a bitmap.
    void DrawFocusRect(TRect const &rect);

    /// Text from its top left corner, over a ground of the brush unless that is clear. Moves the pen to its
    /// end.
    void TextOut(int x, int y, UnicodeString const &text);
    /// The same, cut to `rect`, which the brush fills first.
    void TextRect(TRect const &rect, int x, int y, UnicodeString const &text);
    /// Text laid out in `rect`. With `tfCalcRect` nothing is drawn and `rect` becomes the room needed.
    void TextRect(TRect &rect, UnicodeString const &text, TTextFormat format);
    [[nodiscard]] int TextWidth(UnicodeString const &text) const;
    [[nodiscard]] int TextHeight(UnicodeString const &text) const;
    [[nodiscard]] TSize TextExtent(UnicodeString const &text) const;

    void Draw(int x, int y, TGraphic *graphic);
    /// `opacity` from 0, nothing, to 255, for bitmaps.
    void Draw(int x, int y, TGraphic *graphic, unsigned char opacity);
    void StretchDraw(TRect const &rect, TGraphic *graphic);
    /// Copies `source` of another canvas's bitmap into `dest`, stretched where the sizes differ. A canvas
    /// without a bitmap gives nothing.
    void CopyRect(TRect const &dest, TCanvas *canvas, TRect const &source);

    /// `clNone` outside of the bitmap and on a control.
    [[nodiscard]] TColor GetPixel(int x, int y) const;
    void SetPixel(int x, int y, TColor color);

    /// Bounds of what can be drawn on at the moment.
    [[nodiscard]] TRect GetClipRect() const;
    void IntersectClipRect(TRect const &rect);
    void ExcludeClipRect(TRect const &rect);
    /// Keeps the clip and the origin until the matching `RestoreState`.
    void SaveState();
    void RestoreState();
    /// Moves the origin of all that follows.
    void MoveOrigin(int dx, int dy);
    /// False while calls draw nothing.
    [[nodiscard]] bool HandleAllocated() const;

    /// The bitmap behind this canvas or null.
    [[nodiscard]] TBitmap *GetBitmap() const { return f_bitmap; }
    /// Hands in a running painter, until the matching `Detach`; may be nested.
    void Attach(vx_native_painter *painter);
    void Detach();
    /// The painter that calls draw with, null when there is none. The canvas sets its own state before each
    /// call.
    [[nodiscard]] vx_native_painter *NativePainter();
    /// Ends painting on the bitmap, so that its pixels can be used otherwise.
    void Flush();

    closure<void(TObject *)> OnChange;

private:
    struct state;

    void on_font_change(TObject *sender);
    void stretch(TRect const &rect, TGraphic *graphic, unsigned char opacity);

    std::unique_ptr<state> f_state;
    std::unique_ptr<TPen> f_pen;
    std::unique_ptr<TBrush> f_brush;
    std::unique_ptr<TFont> f_font;
    TBitmap *f_bitmap = nullptr;
    TPoint f_pen_pos;
    TCopyMode f_copy_mode = cmSrcCopy;
    bool f_smooth = false;
};

/// Which frame of a standard element `DrawFrameControl` draws.
enum TFrameControl
{
    fcButton,
    fcCheckBox,
    fcRadioButton,
    fcComboButton,
    fcHeader
};

/// State of the element.
enum TFrameState
{
    fsPushed,
    fsChecked,
    fsInactive,
    fsHot,
    fsFlat
};
using TFrameStates = set_of<TFrameState>;

/// Draws an element as the platform's style does.
VX_API void DrawFrameControl(TCanvas *canvas, TRect const &rect, TFrameControl kind, TFrameStates state);

/// Edges of a box as `DrawEdge` draws them.
enum TEdgeStyle
{
    esNone,
    esRaised,
    esSunken,
    esEtched,
    esBump
};
VX_API void DrawEdge(TCanvas *canvas, TRect const &rect, TEdgeStyle edge);
