#pragma once

#include "platform/toolkit/core/action.h"
#include "platform/toolkit/core/win_control.h"

class TCustomImageList;
class TPopupMenu;
class TToolBar;

enum TToolButtonStyle
{
    tbsButton,
    tbsCheck,
    tbsDropDown,
    tbsSeparator,
    tbsDivider
};

/// A button of a tool bar, which sizes and places it. Its picture is one of the bar's images.
class VX_API TToolButton : public TWinControl, public vx_action_client
{
public:
    explicit TToolButton(TComponent *owner);

    void Click() override;
    void SetText(UnicodeString const &text) override;
    [[nodiscard]] TToolButtonStyle GetStyle() const { return f_style; }
    void SetStyle(TToolButtonStyle style);
    [[nodiscard]] int GetImageIndex() const { return f_image_index; }
    void SetImageIndex(int index);
    /// Of a `tbsCheck` button. Setting it fires nothing.
    [[nodiscard]] bool GetDown() const { return f_down; }
    void SetDown(bool down);
    /// True: of the grouped check buttons that stand next to each other one at most is down.
    [[nodiscard]] bool GetGrouped() const { return f_grouped; }
    void SetGrouped(bool grouped) { f_grouped = grouped; }
    /// True: a second click lets a grouped button that is down up again.
    [[nodiscard]] bool GetAllowAllUp() const { return f_allow_all_up; }
    void SetAllowAllUp(bool value) { f_allow_all_up = value; }
    /// Opens below the button at a click on its arrow; a button with a menu and no `OnClick` opens it at
    /// every click.
    [[nodiscard]] TPopupMenu *GetDropdownMenu() const { return f_menu; }
    void SetDropdownMenu(TPopupMenu *menu);
    /// True: the next button begins a new row.
    [[nodiscard]] bool GetWrap() const { return f_wrap; }
    void SetWrap(bool wrap);
    void ActionChanged(TCustomAction const &action) override;
    void SetParent(TWinControl *parent) override;

protected:
    void KeyDown(Word &key, TShiftState shift) override;
    void Notification(TComponent *component, TOperation operation) override;

private:
    friend class TToolBar;
    class native_button;

    void pressed();
    void drop_down();
    void apply();
    void release_neighbours();
    [[nodiscard]] int wanted_width(TToolBar const &bar) const;

    TPopupMenu *f_menu = nullptr;
    TToolButtonStyle f_style = tbsButton;
    int f_image_index = -1;
    bool f_down = false;
    bool f_grouped = false;
    bool f_allow_all_up = false;
    bool f_wrap = false;
};

/// A row of tool buttons and other controls in order of insertion, from the left. Aligned to the top of its
/// parent, 29 high; a row that is full goes on in the next while `Wrapable`.
class VX_API TToolBar : public TWinControl
{
public:
    explicit TToolBar(TComponent *owner);
    ~TToolBar() override;

    [[nodiscard]] int GetButtonCount() const;
    /// Child controls that are tool buttons, from 0; null outside.
    [[nodiscard]] TToolButton *GetButtons(int index) const;
    [[nodiscard]] int GetButtonWidth() const { return f_button_width; }
    void SetButtonWidth(int width);
    [[nodiscard]] int GetButtonHeight() const { return f_button_height; }
    void SetButtonHeight(int height);
    [[nodiscard]] bool GetShowCaptions() const { return f_show_captions; }
    void SetShowCaptions(bool show);
    [[nodiscard]] bool GetFlat() const { return f_flat; }
    void SetFlat(bool flat);
    [[nodiscard]] bool GetWrapable() const { return f_wrapable; }
    void SetWrapable(bool wrapable);
    [[nodiscard]] int GetIndent() const { return f_indent; }
    void SetIndent(int indent);
    [[nodiscard]] TCustomImageList *GetImages() const { return f_images; }
    void SetImages(TCustomImageList *images);

protected:
    void AlignControls(TControl *control, TRect &rect) override;
    bool CanAutoSize(int &width, int &height) override;
    void Notification(TComponent *component, TOperation operation) override;

private:
    void images_changed(TObject *sender);
    /// Gives the height of all rows; `move` puts the controls there.
    int place(int width, bool move);

    TCustomImageList *f_images = nullptr;
    int f_button_width = 23;
    int f_button_height = 22;
    int f_indent = 0;
    bool f_show_captions = false;
    bool f_flat = true;
    bool f_wrapable = true;
};
