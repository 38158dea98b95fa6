#pragma once

#include "platform/toolkit/core/win_control.h"

class TCanvas;
class TMainMenu;

/// A window: by itself on the screen, inside an MDI form, or docked into another control. Starts hidden, 320
/// by 240.
///
/// `Width` and `Height` are the size inside the frame that the window manager draws; `Left` and `Top` are the
/// frame's corner on the screen.
class VX_API TCustomForm : public TWinControl
{
public:
    explicit TCustomForm(TComponent *owner);
    ~TCustomForm() override;

    void Show();
    void Hide() { SetVisible(false); }
    /// Asks `OnCloseQuery`, then does what `OnClose` says: hide unless it chooses otherwise. A modal form
    /// gets the result `mrCancel` instead, and its loop does the rest.
    void Close();
    [[nodiscard]] virtual bool CloseQuery();
    /// Runs the form until its modal result is set; gives that result. Nests.
    virtual int ShowModal();
    /// Closes the form as soon as no event of it is being handled.
    void PostClose();
    /// Frees the form as soon as no event of it is being handled.
    void Release();
    [[nodiscard]] TModalResult GetModalResult() const { return f_modal_result; }
    void SetModalResult(TModalResult value);
    [[nodiscard]] bool IsModal() const { return f_modal; }

    void SetParent(TWinControl *parent) override;
    [[nodiscard]] bool GetShowing() const override;
    [[nodiscard]] TRect GetBoundsRect() const override;
    [[nodiscard]] UnicodeString GetText() const override;
    void SetText(UnicodeString const &text) override;
    void SetFocus() override;
    [[nodiscard]] bool CanFocus() const override;

    [[nodiscard]] TPosition GetPosition() const { return f_position; }
    void SetPosition(TPosition value) { f_position = value; }
    [[nodiscard]] TFormBorderStyle GetBorderStyle() const { return f_border_style; }
    void SetBorderStyle(TFormBorderStyle value);
    [[nodiscard]] TBorderIcons GetBorderIcons() const { return f_border_icons; }
    void SetBorderIcons(TBorderIcons value);
    [[nodiscard]] TFormStyle GetFormStyle() const { return f_form_style; }
    void SetFormStyle(TFormStyle value);
    [[nodiscard]] TWindowState GetWindowState() const;
    void SetWindowState(TWindowState value);
    [[nodiscard]] bool GetKeyPreview() const { return f_key_preview; }
    /// The form sees every key before its controls do.
    void SetKeyPreview(bool value) { f_key_preview = value; }
    /// Opacity in 0 to 255, in force while `AlphaBlend` is on.
    [[nodiscard]] bool GetAlphaBlend() const { return f_alpha_blend; }
    void SetAlphaBlend(bool value);
    [[nodiscard]] int GetAlphaBlendValue() const { return f_alpha_blend_value; }
    void SetAlphaBlendValue(int value);

    /// The control that has, or will have, the focus while the form is active.
    [[nodiscard]] TWinControl *GetActiveControl() const;
    void SetActiveControl(TWinControl *control);
    [[nodiscard]] bool GetActive() const;

    /// Of an MDI form: the child that is in front, null if there is none; the children in order of creation.
    [[nodiscard]] TCustomForm *GetActiveMDIChild() const;
    [[nodiscard]] int GetMDIChildCount() const;
    [[nodiscard]] TCustomForm *GetMDIChildren(int index) const;

    /// Of an MDI form, on the screen: the corner that the places of its children count from.
    [[nodiscard]] TPoint GetMDIClientOrigin() const;

    [[nodiscard]] TMainMenu *GetMenu() const { return f_menu; }
    /// Called by the menu itself too; the form shows the menu bar above its client area.
    void SetMenu(TMainMenu *menu);
    [[nodiscard]] TCanvas *GetCanvas() const { return f_canvas.get(); }

    TNotifyEvent OnShow;
    TNotifyEvent OnHide;
    TNotifyEvent OnActivate;
    TNotifyEvent OnDeactivate;
    TNotifyEvent OnPaint;
    TCloseQueryEvent OnCloseQuery;
    TCloseEvent OnClose;
    /// A key before anything else looks at it; `handled` true ends it.
    closure<void(TObject *sender, Word key, TShiftState shift, bool &handled)> OnShortCut;

protected:
    friend class TWinControl;
    friend struct vx_control_link;

    virtual void DoShow();
    virtual void DoHide();
    virtual void DoClose(TCloseAction &action);
    virtual void Activate();
    virtual void Deactivate();
    /// Runs the form's menus and actions for the key; true if one took it.
    virtual bool IsShortCut(Word key, TShiftState shift);
    virtual void Paint() {}
    void PaintWidget(vx_native_painter *painter) override;
    [[nodiscard]] bool IsTopLevel() const override { return true; }
    bool DialogKey(Word key, TShiftState shift) override;
    void AlignControls(TControl *control, TRect &rect) override;
    void SizeChanged() override;
    [[nodiscard]] vx_native_widget *ClientWidget() const override;
    void Notification(TComponent *component, TOperation operation) override;

private:
    void apply_visible() override;
    void apply_bounds(int left, int top, int width, int height) override;
    void apply_flags();
    void apply_position();
    void show_window();
    void hide_window();
    void close_modal();
    void window_activated();
    void window_deactivated();
    bool become_mdi_child();
    void leave_mdi_parent();
    void make_mdi_area();
    void layout_frame();
    void focus_first();
    [[nodiscard]] TCustomForm *mdi_parent() const;

    std::unique_ptr<TCanvas> f_canvas;
    TMainMenu *f_menu = nullptr;
    vx_native_widget *f_client_area = nullptr;
    vx_native_widget *f_mdi_area = nullptr;
    vx_native_widget *f_mdi_frame = nullptr;
    TCustomForm *f_mdi_parent = nullptr;
    TCustomForm *f_active_mdi_child = nullptr;
    std::vector<TCustomForm *> f_mdi_children;
    TWinControl *f_wanted_focus = nullptr;
    TModalResult f_modal_result = mrNone;
    TPosition f_position = poDesigned;
    TFormBorderStyle f_border_style = bsSizeable;
    TBorderIcons f_border_icons{biSystemMenu, biMinimize, biMaximize};
    TFormStyle f_form_style = fsNormal;
    int f_alpha_blend_value = 255;
    bool f_alpha_blend = false;
    bool f_key_preview = false;
    bool f_modal = false;
    bool f_releasing = false;
    bool f_shown = false;
};

/// The window in which a floating control that is no form stands; it ends with the control.
class vx_float_form final : public TCustomForm
{
public:
    explicit vx_float_form(TControl *content);

protected:
    void ControlListChange(TControl *control, bool inserting) override;
};

class VX_API TForm : public TCustomForm
{
public:
    using TCustomForm::TCustomForm;
};
