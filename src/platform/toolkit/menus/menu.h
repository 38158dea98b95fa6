#pragma once

#include "platform/toolkit/core/action.h"

#include <memory>

class TBitmap;
class TMenu;

/// A line of a menu, or the menu below a line.
///
/// The item is what the menu shows: its properties go at once to the menu on the screen. A freed item leaves
/// its menu; a menu frees the items that are in it.
class VX_API TMenuItem : public TComponent, public vx_action_client
{
public:
    explicit TMenuItem(TComponent *owner);
    ~TMenuItem() override;

    // ---- items below
    [[nodiscard]] int GetCount() const { return static_cast<int>(f_items.size()); }
    /// From 0; null outside.
    [[nodiscard]] TMenuItem *GetItems(int index) const;
    [[nodiscard]] TMenuItem *operator[](int index) const { return GetItems(index); }
    void Add(TMenuItem *item) { Insert(GetCount(), item); }
    /// An item that is in a menu leaves that first.
    void Insert(int index, TMenuItem *item);
    /// Takes the item out; it is not freed.
    void Delete(int index);
    void Remove(TMenuItem *item);
    /// Frees the items below.
    void Clear();
    [[nodiscard]] int IndexOf(TMenuItem const *item) const;
    /// The item below with this caption, accelerator marks left out; null if there is none.
    [[nodiscard]] TMenuItem *Find(UnicodeString const &caption) const;
    [[nodiscard]] TMenuItem *GetParent() const { return f_parent; }
    [[nodiscard]] int GetMenuIndex() const { return f_parent ? f_parent->IndexOf(this) : -1; }
    /// The menu that this item ends up in; null while it is in none.
    [[nodiscard]] TMenu *GetParentMenu() const;

    // ---- the line itself
    [[nodiscard]] UnicodeString const &GetCaption() const { return f_caption; }
    /// "-" makes a separator.
    void SetCaption(UnicodeString const &caption);
    [[nodiscard]] bool IsLine() const;
    [[nodiscard]] bool GetEnabled() const { return f_enabled; }
    void SetEnabled(bool enabled);
    [[nodiscard]] bool GetVisible() const { return f_visible; }
    void SetVisible(bool visible);
    [[nodiscard]] bool GetChecked() const { return f_checked; }
    /// A checked radio item takes the mark off the others of its group under the same item.
    void SetChecked(bool checked);
    /// True: a click turns `Checked` round before `OnClick` runs.
    [[nodiscard]] bool GetAutoCheck() const { return f_auto_check; }
    void SetAutoCheck(bool value);
    [[nodiscard]] bool GetRadioItem() const { return f_radio_item; }
    void SetRadioItem(bool value);
    [[nodiscard]] int GetGroupIndex() const { return f_group_index; }
    void SetGroupIndex(int value) { f_group_index = value; }
    /// The default line is drawn bold.
    [[nodiscard]] bool GetDefault() const { return f_default; }
    void SetDefault(bool value);
    [[nodiscard]] TShortCut GetShortCut() const { return f_short_cut; }
    void SetShortCut(TShortCut short_cut);
    [[nodiscard]] UnicodeString const &GetHint() const { return f_hint; }
    void SetHint(UnicodeString const &hint);
    /// A picture of the menu's image list, or of the action's.
    [[nodiscard]] int GetImageIndex() const { return f_image_index; }
    void SetImageIndex(int index);
    /// The item's own picture, which comes before the one of the list. Made at first use.
    [[nodiscard]] TBitmap *GetBitmap();
    void SetBitmap(TBitmap const *bitmap);
    [[nodiscard]] TBasicAction *GetAction() const { return f_action; }
    void SetAction(TBasicAction *action);

    /// What a click does: nothing if disabled; else the check, then `OnClick`, or the action if there is no
    /// handler.
    virtual void Click();
    void ActionChanged(TCustomAction const &action) override;

    /// The item was chosen. An item with items below gets it just before they are shown, so that they can be
    /// made then.
    TNotifyEvent OnClick;

protected:
    void Notification(TComponent *component, TOperation operation) override;

private:
    friend class TMenu;
    friend class TMainMenu;
    friend class TPopupMenu;

    struct native;
    void apply();
    void apply_below();
    void prepare_below();
    bool run_short_cut(TShortCut short_cut);
    void on_bitmap_change(TObject *sender);
    void drop(TMenuItem *item);
    [[nodiscard]] TMenuItem *find_chosen(void const *native_action);

    std::unique_ptr<native> f_native;
    std::vector<TMenuItem *> f_items;
    TMenuItem *f_parent = nullptr;
    TMenu *f_menu = nullptr;
    TBasicAction *f_action = nullptr;
    std::unique_ptr<TBitmap> f_bitmap;
    UnicodeString f_caption;
    UnicodeString f_hint;
    int f_image_index = -1;
    int f_group_index = 0;
    TShortCut f_short_cut = 0;
    bool f_enabled = true;
    bool f_visible = true;
    bool f_checked = false;
    bool f_auto_check = false;
    bool f_radio_item = false;
    bool f_default = false;
};

/// Base of the menus: holds the root item.
class VX_API TMenu : public TComponent
{
public:
    ~TMenu() override;

    /// The root; its items are the menu's lines.
    [[nodiscard]] TMenuItem *GetItems() const { return f_items.get(); }
    [[nodiscard]] TCustomImageList *GetImages() const { return f_images; }
    void SetImages(TCustomImageList *images);
    /// Clicks the enabled item with this shortcut; false if there is none.
    bool IsShortCut(Word key, TShiftState shift);

protected:
    TMenu(TComponent *owner);
    void Notification(TComponent *component, TOperation operation) override;

    std::unique_ptr<TMenuItem> f_items;

private:
    void images_changed(TObject *sender);

    TCustomImageList *f_images = nullptr;
};

/// A menu that opens at a point.
class VX_API TPopupMenu : public TMenu
{
public:
    explicit TPopupMenu(TComponent *owner);
    ~TPopupMenu() override;

    /// Runs `OnPopup` and shows the menu at a point of the screen until an item is chosen or it is given up.
    /// The chosen item is clicked after the menu has closed, before this returns. Nothing opens if no item is
    /// visible, and nothing happens while the menu is open already.
    virtual void Popup(int x, int y);
    /// The control for which the menu opened, if it opened for one.
    [[nodiscard]] TComponent *GetPopupComponent() const { return f_popup_component; }
    void SetPopupComponent(TComponent *component);
    /// Where it was opened last.
    [[nodiscard]] TPoint GetPopupPoint() const { return f_popup_point; }
    /// False: a right click on the control with this menu does not open it.
    [[nodiscard]] bool GetAutoPopup() const { return f_auto_popup; }
    void SetAutoPopup(bool value) { f_auto_popup = value; }
    /// Closes the menu if it is open.
    void CloseMenu();

    TNotifyEvent OnPopup;

protected:
    virtual void DoPopup(TObject *sender);
    void Notification(TComponent *component, TOperation operation) override;

private:
    TComponent *f_popup_component = nullptr;
    TPoint f_popup_point;
    bool f_auto_popup = true;
};

/// The menu bar of a form. A menu whose owner is a form becomes that form's menu.
class VX_API TMainMenu : public TMenu
{
public:
    explicit TMainMenu(TComponent *owner);
    ~TMainMenu() override;

    /// The bar, a widget that the form takes into its window; made at first use and owned by the menu.
    [[nodiscard]] vx_native_widget *NativeBar();

private:
    struct bar;
    std::unique_ptr<bar> f_bar;
};
