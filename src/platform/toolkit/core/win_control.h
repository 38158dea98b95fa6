#pragma once

#include "platform/toolkit/core/control.h"

#include <string>
#include <vector>

class TList;
class TCustomForm;
class TDockManager;

/// A control with a window of its own: it can have the keyboard focus and hold other controls, which it
/// frees.
///
/// The widget is there from the start; "the window exists" is a state of its own. It begins when the control
/// is first shown, or earlier at `HandleNeeded`, and then `CreateWnd` runs once, parents first.
class VX_API TWinControl : public TControl
{
public:
    ~TWinControl() override;

    // ---- children
    /// Child controls from 0 in order of insertion, graphic ones included; null outside.
    [[nodiscard]] TControl *GetControls(int index) const;
    [[nodiscard]] int GetControlCount() const { return static_cast<int>(f_controls.size()); }
    /// True for `control` itself and for everything below this one.
    [[nodiscard]] bool ContainsControl(TControl const *control) const;
    /// The topmost child at a point of the client area; null if there is none.
    [[nodiscard]] TControl *ControlAtPos(TPoint const &pos, bool allow_disabled) const;
    void SetParent(TWinControl *parent) override;
    [[nodiscard]] bool GetShowing() const override;
    [[nodiscard]] TRect GetClientRect() const override;

    // ---- window
    [[nodiscard]] bool HandleAllocated() const { return f_handle_allocated; }
    /// Makes the window, the parents' first. A control with neither parent nor window of its own gets none.
    void HandleNeeded();
    /// The window, made if need be; null for a control that cannot have one now.
    [[nodiscard]] HWND GetHandle();
    [[nodiscard]] bool GetDoubleBuffered() const { return f_double_buffered; }
    /// Painting always goes through a buffer; the property is kept for its value.
    void SetDoubleBuffered(bool value) { f_double_buffered = value; }

    // ---- focus
    [[nodiscard]] virtual bool CanFocus() const;
    /// Gives the keyboard to this control if it can have it; ends quietly if not.
    virtual void SetFocus();
    [[nodiscard]] virtual bool Focused() const;
    [[nodiscard]] bool GetTabStop() const { return f_tab_stop; }
    void SetTabStop(bool value);
    /// The place among the windowed children of the parent, from 0; -1 without a parent.
    [[nodiscard]] int GetTabOrder() const;
    void SetTabOrder(int value);
    /// Adds all windowed controls below this one in tab order, each followed by those below it.
    void GetTabOrderList(TList *list) const;
    [[nodiscard]] TWinControl *FindNextControl(TWinControl *current, bool forward, bool check_tab_stop,
                                               bool check_parent) const;
    /// Moves the focus to the next control in tab order.
    void SelectNext(TWinControl *current, bool forward, bool check_tab_stop);

    // ---- layout
    [[nodiscard]] TMargins *GetPadding() { return &f_padding; }
    void Realign();
    /// No layout between these, which nest; the last `EnableAlign` does what was asked for meanwhile.
    void DisableAlign() { ++f_align_level; }
    void EnableAlign();

    // ---- docking
    /// Pixels around a site in which nothing is that count as the site.
    static constexpr int c_dock_reach = 10;
    [[nodiscard]] bool GetDockSite() const { return f_dock_site; }
    void SetDockSite(bool value) { f_dock_site = value; }
    [[nodiscard]] bool GetUseDockManager() const { return f_use_dock_manager; }
    void SetUseDockManager(bool value);
    [[nodiscard]] TDockManager *GetDockManager() const { return f_dock_manager.get(); }
    [[nodiscard]] int GetDockClientCount() const { return static_cast<int>(f_dock_clients.size()); }
    [[nodiscard]] TControl *GetDockClients(int index) const;
    virtual void DockDrop(TDragDockObject *source, int x, int y);

    /// Whether files of the desktop can be dropped here: they come to `DropFiles`.
    [[nodiscard]] bool GetAcceptFiles() const { return f_accept_files; }
    void SetAcceptFiles(bool value);

    TNotifyEvent OnEnter;
    TNotifyEvent OnExit;
    TKeyEvent OnKeyDown;
    TKeyPressEvent OnKeyPress;
    TKeyEvent OnKeyUp;
    TDockDropEvent OnDockDrop;
    TDockOverEvent OnDockOver;
    TUnDockEvent OnUnDock;
    TGetSiteInfoEvent OnGetSiteInfo;

protected:
    TWinControl(TComponent *owner, vx_native_widget *widget);

    friend class TControl;
    friend class TCustomForm;
    friend struct vx_control_link;
    friend struct vx_drag_session;
    friend class TDockManager;
    friend class vx_birth_place;

    /// Runs once the window exists, also after `RecreateWnd`; an override calls the base first.
    virtual void CreateWnd();
    /// Runs before the window goes; an override calls the base last.
    virtual void DestroyWnd();
    void RecreateWnd();
    /// A control that may have a window without a parent.
    [[nodiscard]] virtual bool IsTopLevel() const { return false; }

    /// The widget that holds the children's widgets; this control's own one unless a class says otherwise.
    [[nodiscard]] virtual vx_native_widget *ClientWidget() const;
    /// Hangs the child's widget into `ClientWidget()`, and takes it out again.
    virtual void AttachChildWidget(TControl *child);
    virtual void DetachChildWidget(TControl *child);

    /// Lays out the children in `rect`, what is left of the client area. `control` is the one that changed,
    /// or null.
    virtual void AlignControls(TControl *control, TRect &rect);
    /// Takes from the client area what borders and padding need.
    virtual void AdjustClientRect(TRect &rect);
    void AlignControl(TControl *control);
    void AdjustSize() override;
    bool CanAutoSize(int &width, int &height) override;
    void SizeChanged() override;
    virtual void ControlsAligned() {}
    virtual void ControlListChange(TControl *control, bool inserting);

    virtual void DoEnter();
    virtual void DoExit();
    virtual void KeyDown(Word &key, TShiftState shift);
    virtual void KeyPress(wchar_t &key);
    virtual void KeyUp(Word &key, TShiftState shift);
    /// A key that the focused control left alone, offered to the controls of the form: Enter, Esc,
    /// accelerators. True ends it. The base asks the children.
    virtual bool DialogKey(Word key, TShiftState shift);
    /// Keys that this control needs for itself: no dialog use is made of them while it has the focus.
    [[nodiscard]] virtual bool WantsKey(Word key, TShiftState shift) const;
    /// Whether Tab stops here, if the control can have the focus at all.
    [[nodiscard]] virtual bool TakesTab() const { return f_tab_stop; }
    /// False: what lies in this control is out of sight and cannot have the focus.
    [[nodiscard]] virtual bool ShowsChildren() const { return true; }

    virtual void DockOver(TDragDockObject *source, int x, int y, TDragState state, bool &accept);
    /// Whole paths, at least one.
    virtual void DropFiles(std::vector<std::wstring> const &names);
    /// True if the site lets the control go.
    virtual bool DoUnDock(TWinControl *new_target, TControl *client);
    virtual void GetSiteInfo(TControl *client, TRect &influence_rect, bool &can_dock);
    void Destroying() override;

private:
    void insert_control(TControl *control);
    void remove_control(TControl *control);
    void set_z_order(TControl *control, bool front);
    void stack_graphic(TControl *control);
    void apply_visible() override;
    void update_showing();
    void free_window();
    [[nodiscard]] static bool takes_part(TControl const *control, TAlign align);
    [[nodiscard]] std::vector<TControl *> sorted_for(TAlign align, TControl *control) const;
    void place(TControl *control, TRect &rect);
    void place_by_anchors(TControl *control);
    /// False if a handler freed the control.
    static bool set_in_layout(TControl *control, TRect const &rect);
    void give_keyboard_back();
    [[nodiscard]] bool stands_before(TControl const *a, TControl const *b, TAlign align) const;
    void undock(TControl *control);
    void dock_over(TDragDockObject *source, int x, int y, TDragState state, bool &accept);
    void padding_changed(TObject *sender);
    /// The top of the parent chain: it knows which control below it has the focus.
    [[nodiscard]] TWinControl *root() const;
    void focus_came(TWinControl *control);
    void forget_focus(TControl const *control);
    [[nodiscard]] bool has_below(TControl const *control) const;
    bool offer_key_down(Word &key, TShiftState shift);
    bool offer_key_press(wchar_t &key);
    bool offer_key_up(Word &key, TShiftState shift);

    std::vector<TControl *> f_controls;
    std::vector<TWinControl *> f_tab_list;
    std::vector<TControl *> f_dock_clients;
    std::unique_ptr<TDockManager> f_dock_manager;
    TMargins f_padding{0};
    TWinControl *f_focus_child = nullptr;
    int f_align_level = 0;
    bool f_align_needed = false;
    bool f_handle_allocated = false;
    bool f_hosted = false;
    bool f_double_buffered = false;
    bool f_tab_stop = false;
    bool f_dock_site = false;
    bool f_use_dock_manager = false;
    bool f_aligning = false;
    bool f_accept_files = false;
};

/// The control whose window it is; null for a window of nobody.
[[nodiscard]] VX_API TWinControl *FindControl(HWND handle);
/// The form that the control stands on, or is; null if there is none. `top_form` goes on to the outermost one
/// when forms lie in forms.
[[nodiscard]] VX_API TCustomForm *GetParentForm(TControl *control, bool top_form = true);
/// The control with the keyboard focus; null if no control of the toolkit has it.
[[nodiscard]] VX_API TWinControl *FindFocusedControl();
