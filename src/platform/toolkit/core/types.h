#pragma once

#include "platform/base/closure.h"
#include "platform/base/export.h"
#include "platform/base/unicode_string.h"
#include "platform/toolkit/core/set_of.h"

#include <cstdint>

class TObject;
class TControl;
class TWinControl;
class TComponent;
class TDragDockObject;

/// The native window of a control; `bridge/qt_widgets.h` knows what it is.
struct vx_native_widget;
using HWND = vx_native_widget *;

using Word = std::uint16_t;
using TModalResult = int;
using THelpContext = int;
using TTag = std::intptr_t;

/// A colour: red in the low byte, green and blue above it; or a system colour (high byte 0xFF), `clNone`,
/// `clDefault`.
using TColor = std::int32_t;

struct TPoint
{
    int X = 0;
    int Y = 0;
    friend constexpr bool operator==(TPoint const &, TPoint const &) = default;
};

struct TSize
{
    int cx = 0;
    int cy = 0;
    friend constexpr bool operator==(TSize const &, TSize const &) = default;
};

/// Left and top are inside, right and bottom are just outside.
struct TRect
{
    int Left = 0;
    int Top = 0;
    int Right = 0;
    int Bottom = 0;

    [[nodiscard]] constexpr int Width() const { return Right - Left; }
    [[nodiscard]] constexpr int Height() const { return Bottom - Top; }
    [[nodiscard]] constexpr bool IsEmpty() const { return Right <= Left || Bottom <= Top; }
    [[nodiscard]] constexpr bool Contains(TPoint const &p) const
    {
        return p.X >= Left && p.X < Right && p.Y >= Top && p.Y < Bottom;
    }
    [[nodiscard]] constexpr TPoint CenterPoint() const { return {(Left + Right) / 2, (Top + Bottom) / 2}; }
    /// Grows by `dx` and `dy` on each side; negative numbers shrink.
    constexpr void Inflate(int dx, int dy)
    {
        Left -= dx;
        Top -= dy;
        Right += dx;
        Bottom += dy;
    }
    constexpr void Offset(int dx, int dy)
    {
        Left += dx;
        Right += dx;
        Top += dy;
        Bottom += dy;
    }
    friend constexpr bool operator==(TRect const &, TRect const &) = default;
};

[[nodiscard]] constexpr TPoint Point(int x, int y)
{
    return {x, y};
}
[[nodiscard]] constexpr TRect Rect(int left, int top, int right, int bottom)
{
    return {left, top, right, bottom};
}
/// The rectangle from its corner and size.
[[nodiscard]] constexpr TRect Bounds(int left, int top, int width, int height)
{
    return {left, top, left + width, top + height};
}

enum TAlign
{
    alNone,
    alTop,
    alBottom,
    alLeft,
    alRight,
    alClient,
    alCustom
};
enum TAlignment
{
    taLeftJustify,
    taRightJustify,
    taCenter
};
enum TVerticalAlignment
{
    taAlignTop,
    taAlignBottom,
    taVerticalCenter
};
enum TAnchorKind
{
    akLeft,
    akTop,
    akRight,
    akBottom
};
using TAnchors = set_of<TAnchorKind>;

enum TMouseButton
{
    mbLeft,
    mbRight,
    mbMiddle
};
enum TShiftStateItem
{
    ssShift,
    ssAlt,
    ssCtrl,
    ssLeft,
    ssRight,
    ssMiddle,
    ssDouble
};
using TShiftState = set_of<TShiftStateItem>;

enum TBorderStyle
{
    bsNone,
    bsSingle,
    bsSizeable,
    bsDialog,
    bsToolWindow,
    bsSizeToolWin
};
using TFormBorderStyle = TBorderStyle;
enum TBorderIcon
{
    biSystemMenu,
    biMinimize,
    biMaximize,
    biHelp
};
using TBorderIcons = set_of<TBorderIcon>;
enum TFormStyle
{
    fsNormal,
    fsMDIChild,
    fsMDIForm,
    fsStayOnTop
};
enum TWindowState
{
    wsNormal,
    wsMinimized,
    wsMaximized
};
enum TPosition
{
    poDesigned,
    poDefault,
    poDefaultPosOnly,
    poDefaultSizeOnly,
    poScreenCenter,
    poDesktopCenter,
    poMainFormCenter,
    poOwnerFormCenter
};
enum TCloseAction
{
    caNone,
    caHide,
    caFree,
    caMinimize
};
enum TBevelCut
{
    bvNone,
    bvLowered,
    bvRaised,
    bvSpace
};
using TPanelBevel = TBevelCut;
using TBevelWidth = int;

enum TDragKind
{
    dkDrag,
    dkDock
};
enum TDragMode
{
    dmManual,
    dmAutomatic
};
enum TDragState
{
    dsDragEnter,
    dsDragLeave,
    dsDragMove
};
enum TScrollStyle
{
    ssNone,
    ssHorizontal,
    ssVertical,
    ssBoth
};
enum TOperation
{
    opInsert,
    opRemove
};
enum TTextLayout
{
    tlTop,
    tlCenter,
    tlBottom
};

inline constexpr TModalResult mrNone = 0;
inline constexpr TModalResult mrOk = 1;
inline constexpr TModalResult mrCancel = 2;
inline constexpr TModalResult mrAbort = 3;
inline constexpr TModalResult mrRetry = 4;
inline constexpr TModalResult mrIgnore = 5;
inline constexpr TModalResult mrYes = 6;
inline constexpr TModalResult mrNo = 7;
inline constexpr TModalResult mrClose = 8;
inline constexpr TModalResult mrHelp = 9;
inline constexpr TModalResult mrAll = 12;

/// Cursors: the values below 0 are the system's, those above 0 are put into the screen's list by the program.
using TCursor = int;
inline constexpr TCursor crDefault = 0;
inline constexpr TCursor crNone = -1;
inline constexpr TCursor crArrow = -2;
inline constexpr TCursor crCross = -3;
inline constexpr TCursor crIBeam = -4;
inline constexpr TCursor crSizeNESW = -6;
inline constexpr TCursor crSizeNS = -7;
inline constexpr TCursor crSizeNWSE = -8;
inline constexpr TCursor crSizeWE = -9;
inline constexpr TCursor crUpArrow = -10;
inline constexpr TCursor crHourGlass = -11;
inline constexpr TCursor crDrag = -12;
inline constexpr TCursor crNoDrop = -13;
inline constexpr TCursor crHSplit = -14;
inline constexpr TCursor crVSplit = -15;
inline constexpr TCursor crMultiDrag = -16;
inline constexpr TCursor crNo = -18;
inline constexpr TCursor crAppStart = -19;
inline constexpr TCursor crHelp = -20;
inline constexpr TCursor crHandPoint = -21;
inline constexpr TCursor crSizeAll = -22;

inline constexpr TColor clScrollBar = static_cast<TColor>(0xFF000000);
inline constexpr TColor clBackground = static_cast<TColor>(0xFF000001);
inline constexpr TColor clActiveCaption = static_cast<TColor>(0xFF000002);
inline constexpr TColor clInactiveCaption = static_cast<TColor>(0xFF000003);
inline constexpr TColor clMenu = static_cast<TColor>(0xFF000004);
inline constexpr TColor clWindow = static_cast<TColor>(0xFF000005);
inline constexpr TColor clWindowFrame = static_cast<TColor>(0xFF000006);
inline constexpr TColor clMenuText = static_cast<TColor>(0xFF000007);
inline constexpr TColor clWindowText = static_cast<TColor>(0xFF000008);
inline constexpr TColor clCaptionText = static_cast<TColor>(0xFF000009);
inline constexpr TColor clAppWorkSpace = static_cast<TColor>(0xFF00000C);
inline constexpr TColor clHighlight = static_cast<TColor>(0xFF00000D);
inline constexpr TColor clHighlightText = static_cast<TColor>(0xFF00000E);
inline constexpr TColor clBtnFace = static_cast<TColor>(0xFF00000F);
inline constexpr TColor clBtnShadow = static_cast<TColor>(0xFF000010);
inline constexpr TColor clGrayText = static_cast<TColor>(0xFF000011);
inline constexpr TColor clBtnText = static_cast<TColor>(0xFF000012);
inline constexpr TColor clBtnHighlight = static_cast<TColor>(0xFF000014);
inline constexpr TColor cl3DDkShadow = static_cast<TColor>(0xFF000015);
inline constexpr TColor cl3DLight = static_cast<TColor>(0xFF000016);
inline constexpr TColor clInfoText = static_cast<TColor>(0xFF000017);
inline constexpr TColor clInfoBk = static_cast<TColor>(0xFF000018);
inline constexpr TColor clBlack = 0x000000;
inline constexpr TColor clMaroon = 0x000080;
inline constexpr TColor clGreen = 0x008000;
inline constexpr TColor clOlive = 0x008080;
inline constexpr TColor clNavy = 0x800000;
inline constexpr TColor clPurple = 0x800080;
inline constexpr TColor clTeal = 0x808000;
inline constexpr TColor clGray = 0x808080;
inline constexpr TColor clSilver = 0xC0C0C0;
inline constexpr TColor clRed = 0x0000FF;
inline constexpr TColor clLime = 0x00FF00;
inline constexpr TColor clYellow = 0x00FFFF;
inline constexpr TColor clBlue = 0xFF0000;
inline constexpr TColor clFuchsia = 0xFF00FF;
inline constexpr TColor clAqua = 0xFFFF00;
inline constexpr TColor clLtGray = 0xC0C0C0;
inline constexpr TColor clDkGray = 0x808080;
inline constexpr TColor clWhite = 0xFFFFFF;
inline constexpr TColor clNone = 0x1FFFFFFF;
inline constexpr TColor clDefault = 0x20000000;

/// The colour with a system colour replaced by what it stands for at the moment, as 0x00BBGGRR.
[[nodiscard]] VX_API TColor ColorToRGB(TColor color);
[[nodiscard]] constexpr TColor RGB(int r, int g, int b)
{
    return r | g << 8 | b << 16;
}

using TNotifyEvent = closure<void(TObject *)>;
using TMouseEvent = closure<void(TObject *, TMouseButton, TShiftState, int x, int y)>;
using TMouseMoveEvent = closure<void(TObject *, TShiftState, int x, int y)>;
/// Position on the screen; `handled` true ends the handling.
using TMouseWheelUpDownEvent = closure<void(TObject *, TShiftState, TPoint const &mouse_pos, bool &handled)>;
/// `wheel_delta` is 120 for one notch away from the user.
using TMouseWheelEvent =
    closure<void(TObject *, TShiftState, int wheel_delta, TPoint const &mouse_pos, bool &handled)>;
/// A key code `VK_*`; set to 0 the key goes no further.
using TKeyEvent = closure<void(TObject *, Word &key, TShiftState)>;
/// A character before the control gets it: it may be changed, and set to 0 it is swallowed.
using TKeyPressEvent = closure<void(TObject *, wchar_t &key)>;
using TDragOverEvent =
    closure<void(TObject *sender, TObject *source, int x, int y, TDragState, bool &accept)>;
using TDragDropEvent = closure<void(TObject *sender, TObject *source, int x, int y)>;
using TEndDragEvent = closure<void(TObject *sender, TObject *target, int x, int y)>;
using TStartDragEvent = closure<void(TObject *sender)>;
using TDockDropEvent = closure<void(TObject *sender, TDragDockObject *source, int x, int y)>;
using TDockOverEvent =
    closure<void(TObject *sender, TDragDockObject *source, int x, int y, TDragState, bool &accept)>;
using TUnDockEvent = closure<void(TObject *sender, TControl *client, TWinControl *new_target, bool &allow)>;
using TGetSiteInfoEvent =
    closure<void(TObject *sender, TControl *dock_client, TRect &influence_rect, bool &can_dock)>;
using TContextPopupEvent = closure<void(TObject *sender, TPoint const &mouse_pos, bool &handled)>;
using TCloseEvent = closure<void(TObject *sender, TCloseAction &action)>;
using TCloseQueryEvent = closure<void(TObject *sender, bool &can_close)>;
