#pragma once

#include "platform/toolkit/core/component.h"
#include "platform/toolkit/core/key_codes.h"
#include "platform/toolkit/core/margins.h"
#include "platform/toolkit/core/types.h"

#include <memory>

class TFont;
class TPopupMenu;
class TBasicAction;
class TDragObject;
struct vx_control_link;
struct vx_drag_session;
struct vx_native_painter;

enum TControlStyleItem
{
    csAcceptsControls,
    csCaptureMouse,
    csClickEvents,
    csDoubleClicks,
    csSetCaption,
    csOwnPaint
};
using TControlStyle = set_of<TControlStyleItem>;

/// Base of everything that is seen. A control has one widget from its construction to its end; the concrete
/// class makes it and hands it up. Bounds are in logical pixels of the parent's client area.
///
/// Nothing fires while a control is being destroyed.
class VX_API TControl : public TComponent
{
public:
    ~TControl() override;

    // ---- place
    [[nodiscard]] TWinControl *GetParent() const { return f_parent; }
    /// Puts the control at the end of the parent's list, or takes it off its parent (null).
    virtual void SetParent(TWinControl *parent);
    [[nodiscard]] bool HasParent() const { return f_parent != nullptr; }
    [[nodiscard]] int GetLeft() const { return GetBoundsRect().Left; }
    [[nodiscard]] int GetTop() const { return GetBoundsRect().Top; }
    [[nodiscard]] int GetWidth() const { return GetBoundsRect().Width(); }
    [[nodiscard]] int GetHeight() const { return GetBoundsRect().Height(); }
    void SetLeft(int value);
    void SetTop(int value);
    void SetWidth(int value);
    void SetHeight(int value);
    /// The one way by which bounds change: the constraints are applied, the parent realigned, `OnResize` run
    /// when the size changed. Sizes below 0 count as 0.
    virtual void SetBounds(int left, int top, int width, int height);
    [[nodiscard]] virtual TRect GetBoundsRect() const;
    void SetBoundsRect(TRect const &rect);
    /// The client area in its own coordinates: left and top are 0.
    [[nodiscard]] virtual TRect GetClientRect() const;
    [[nodiscard]] int GetClientWidth() const { return GetClientRect().Width(); }
    [[nodiscard]] int GetClientHeight() const { return GetClientRect().Height(); }
    void SetClientWidth(int value);
    void SetClientHeight(int value);
    [[nodiscard]] TPoint ClientToScreen(TPoint const &point) const;
    [[nodiscard]] TPoint ScreenToClient(TPoint const &point) const;
    [[nodiscard]] TPoint GetClientOrigin() const { return ClientToScreen({0, 0}); }

    // ---- layout
    [[nodiscard]] TAlign GetAlign() const { return f_align; }
    void SetAlign(TAlign value);
    [[nodiscard]] TAnchors GetAnchors() const { return f_anchors; }
    void SetAnchors(TAnchors value);
    [[nodiscard]] bool GetAlignWithMargins() const { return f_align_with_margins; }
    void SetAlignWithMargins(bool value);
    [[nodiscard]] TMargins *GetMargins() { return &f_margins; }
    [[nodiscard]] TSizeConstraints *GetConstraints() { return &f_constraints; }
    [[nodiscard]] bool GetAutoSize() const { return f_auto_size; }
    virtual void SetAutoSize(bool value);
    void BringToFront();
    void SendToBack();

    // ---- state
    /// Visible as asked for; `GetShowing` tells whether it is really shown.
    [[nodiscard]] bool GetVisible() const { return f_visible; }
    virtual void SetVisible(bool value);
    /// True while this control and all above it are visible and the window they are in is shown.
    [[nodiscard]] virtual bool GetShowing() const;
    void Show();
    void Hide();
    [[nodiscard]] bool GetEnabled() const;
    virtual void SetEnabled(bool value);
    [[nodiscard]] virtual UnicodeString GetText() const { return f_text; }
    virtual void SetText(UnicodeString const &text);
    /// The caption is the text by another name.
    [[nodiscard]] UnicodeString GetCaption() const { return GetText(); }
    void SetCaption(UnicodeString const &text) { SetText(text); }
    /// What assistive tools call the control: the first that is not empty of the name given here, the caption
    /// if it holds a letter or digit, the text of the label that leads here, and the hint up to its bar.
    /// Marks of accelerators are left out.
    void SetAccessibleName(UnicodeString const &name);
    [[nodiscard]] UnicodeString GetAccessibleName() const;
    [[nodiscard]] UnicodeString const &GetHint() const { return f_hint; }
    void SetHint(UnicodeString const &hint);
    [[nodiscard]] bool GetShowHint() const;
    void SetShowHint(bool value);
    [[nodiscard]] bool GetParentShowHint() const { return f_parent_show_hint; }
    void SetParentShowHint(bool value) { f_parent_show_hint = value; }
    [[nodiscard]] TColor GetColor() const;
    void SetColor(TColor color);
    [[nodiscard]] bool GetParentColor() const { return f_parent_color; }
    void SetParentColor(bool value);
    /// The control's own font object; a change through it ends `ParentFont`.
    [[nodiscard]] TFont *GetFont();
    void SetFont(TFont const *font);
    [[nodiscard]] bool GetParentFont() const { return f_parent_font; }
    void SetParentFont(bool value);
    [[nodiscard]] TCursor GetCursor() const { return f_cursor; }
    void SetCursor(TCursor value);
    [[nodiscard]] THelpContext GetHelpContext() const { return f_help_context; }
    void SetHelpContext(THelpContext value) { f_help_context = value; }
    [[nodiscard]] TPopupMenu *GetPopupMenu() const { return f_popup_menu; }
    void SetPopupMenu(TPopupMenu *menu);
    /// The action link stands with the actions: `action.h` connects and disconnects.
    [[nodiscard]] TBasicAction *GetAction() const { return f_action; }
    virtual void SetAction(TBasicAction *action);

    // ---- painting
    virtual void Invalidate();
    virtual void Repaint();
    virtual void Update();
    void Refresh() { Repaint(); }

    // ---- mouse, drag and dock
    [[nodiscard]] bool GetMouseCapture() const;
    void SetMouseCapture(bool value);
    [[nodiscard]] TDragKind GetDragKind() const { return f_drag_kind; }
    void SetDragKind(TDragKind value) { f_drag_kind = value; }
    [[nodiscard]] TDragMode GetDragMode() const { return f_drag_mode; }
    void SetDragMode(TDragMode value) { f_drag_mode = value; }
    /// Starts a drag from this control, at once or after the mouse has moved some pixels with its button
    /// down.
    void BeginDrag(bool immediate);
    void EndDrag(bool drop);
    [[nodiscard]] bool Dragging() const;
    virtual void DragDrop(TObject *source, int x, int y);
    [[nodiscard]] TWinControl *GetHostDockSite() const { return f_host_dock_site; }
    /// Docks into `site`, which takes `drop_control` into account if it has a dock manager; false if the site
    /// does not take the control. A null site floats it.
    bool ManualDock(TWinControl *site, TControl *drop_control = nullptr, TAlign side = alNone);
    /// Takes the control out of its site into a window of its own at `screen_rect`; a form becomes one
    /// itself.
    bool ManualFloat(TRect const &screen_rect);
    [[nodiscard]] bool GetFloating() const;
    [[nodiscard]] int GetUndockWidth() const { return f_undock_width; }
    [[nodiscard]] int GetUndockHeight() const { return f_undock_height; }

    TNotifyEvent OnClick;
    TNotifyEvent OnDblClick;
    TMouseEvent OnMouseDown;
    TMouseMoveEvent OnMouseMove;
    TMouseEvent OnMouseUp;
    TNotifyEvent OnMouseEnter;
    TNotifyEvent OnMouseLeave;
    TMouseWheelEvent OnMouseWheel;
    TMouseWheelUpDownEvent OnMouseWheelDown;
    TMouseWheelUpDownEvent OnMouseWheelUp;
    TNotifyEvent OnResize;
    TContextPopupEvent OnContextPopup;
    TStartDragEvent OnStartDrag;
    TDragOverEvent OnDragOver;
    TDragDropEvent OnDragDrop;
    TEndDragEvent OnEndDrag;
    TStartDragEvent OnStartDock;
    TEndDragEvent OnEndDock;

    /// Expires when the control ends. For code that goes on after an event, whose handler may free the
    /// control: `auto const life = Life(); OnChange(this); if (life.expired()) return;`
    [[nodiscard]] std::weak_ptr<void const> Life() const;

    /// The window messages of this control; used by the bridge alone.
    [[nodiscard]] vx_control_link *Link() const { return f_link.get(); }

protected:
    /// Takes the widget over. It has no parent yet and stays hidden until the control is shown in one.
    TControl(TComponent *owner, vx_native_widget *widget);

    friend class TWinControl;
    friend class TCustomForm;
    friend class TCustomLabel;
    friend struct vx_control_link;
    friend struct vx_drag_session;

    virtual void Click();
    virtual void DblClick();
    virtual void MouseDown(TMouseButton button, TShiftState shift, int x, int y);
    virtual void MouseMove(TShiftState shift, int x, int y);
    virtual void MouseUp(TMouseButton button, TShiftState shift, int x, int y);
    virtual void MouseEnter();
    virtual void MouseLeave();
    /// True ends the handling: the event goes neither to the widget nor to the parent.
    virtual bool DoMouseWheel(TShiftState shift, int wheel_delta, TPoint const &mouse_pos);
    virtual bool DoMouseWheelDown(TShiftState shift, TPoint const &mouse_pos);
    virtual bool DoMouseWheelUp(TShiftState shift, TPoint const &mouse_pos);
    virtual void DoContextPopup(TPoint const &mouse_pos, bool &handled);
    virtual void DragOver(TObject *source, int x, int y, TDragState state, bool &accept);
    virtual void DoStartDrag();
    virtual void DoEndDrag(TObject *target, int x, int y);
    /// Before the control goes into a site, or with a null one into a window at `rect` on the screen.
    virtual void DoDock(TWinControl *new_site, TRect &rect);
    /// What accompanies a drag of this control to dock sites; the drag owns it.
    [[nodiscard]] virtual std::unique_ptr<TDragDockObject> CreateDragDockObject();
    virtual void Resize();
    /// What `AutoSize` makes of the given size; false: keep the size.
    virtual bool CanAutoSize(int &width, int &height);
    /// The size that the control may take when someone asks for the given one; false refuses the change.
    virtual bool CanResize(int &width, int &height);
    virtual void AdjustSize();
    void RequestAlign();
    /// Paints the control; runs only with `csOwnPaint` in `ControlStyle`.
    virtual void PaintWidget(vx_native_painter *painter);
    /// Runs after the size has changed, by whatever means: realigns the children, then `Resize`.
    virtual void SizeChanged();
    virtual void VisibleChanged();
    virtual void EnabledChanged();
    virtual void FontChanged();
    virtual void ColorChanged();
    void Notification(TComponent *component, TOperation operation) override;

    TControlStyle ControlStyle;

private:
    void bounds_moved();
    void parent_font_changed();
    void parent_color_changed();
    void apply_font();
    void drag_started();
    void drag_over(TObject *source, int x, int y, TDragState state, bool &accept);
    void drag_ended(TObject *target, int x, int y);
    void leave_dock_site(TWinControl *new_site);
    void font_changed(TObject *sender);
    void layout_changed(TObject *sender);
    void update_anchor_rules();
    virtual void apply_visible();
    virtual void apply_bounds(int left, int top, int width, int height);
    void apply_color();
    void set_label_name(UnicodeString const &name);
    void apply_name();

    std::unique_ptr<vx_control_link> f_link;
    mutable std::shared_ptr<void const> f_life; ///< made when somebody asks
    TWinControl *f_parent = nullptr;
    TWinControl *f_host_dock_site = nullptr;
    UnicodeString f_text;
    UnicodeString f_hint;
    UnicodeString f_own_name;
    UnicodeString f_label_name;
    TMargins f_margins{3};
    TSizeConstraints f_constraints;
    std::unique_ptr<TFont> f_font;
    TPopupMenu *f_popup_menu = nullptr;
    TBasicAction *f_action = nullptr;
    TAlign f_align = alNone;
    TAnchors f_anchors{akLeft, akTop};
    TRect f_anchor_bounds;
    TSize f_anchor_parent_size;
    TPoint f_explicit_pos;
    TSize f_known_size;
    TRect f_float_rect;
    TColor f_color = clBtnFace;
    TCursor f_cursor = crDefault;
    THelpContext f_help_context = 0;
    int f_undock_width = 0;
    int f_undock_height = 0;
    TDragKind f_drag_kind = dkDrag;
    TDragMode f_drag_mode = dmManual;
    bool f_visible = true;
    bool f_auto_size = false;
    bool f_align_with_margins = false;
    bool f_parent_color = true;
    bool f_parent_font = true;
    bool f_show_hint = false;
    bool f_parent_show_hint = true;
    bool f_applying_font = false;
    bool f_in_layout = false;
};
