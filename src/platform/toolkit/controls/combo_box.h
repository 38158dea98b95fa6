#pragma once

#include "platform/toolkit/core/win_control.h"
#include "platform/toolkit/graphics/owner_draw.h"

#include <memory>
#include <span>

class TCanvas;
class TStrings;
class vx_item_strings;

enum TComboBoxStyle
{
    csDropDown,
    csSimple,
    csDropDownList,
    csOwnerDrawFixed,
    csOwnerDrawVariable
};

/// A list that drops down, with an edit in the styles `csDropDown` and `csSimple`, which are the same here;
/// 145 by 23.
///
/// The user's choice of another item runs `OnClick`, then `OnSelect`, or `OnChange` when nobody listens to
/// `OnSelect`. Typing runs `OnChange`. `SetItemIndex`, `SetText` and changes of `Items` run nothing.
class VX_API TCustomComboBox : public TWinControl
{
public:
    explicit TCustomComboBox(TComponent *owner);
    ~TCustomComboBox() override;

    [[nodiscard]] TStrings *GetItems() const;
    void SetItems(TStrings const *items);
    /// Puts these in place of all items, at once: much faster than one by one. Nothing is chosen afterwards;
    /// a sorted list takes them as they come.
    void SetItemTexts(std::span<UnicodeString const> texts);
    void AddItem(UnicodeString const &text, TObject *object);
    void Clear();
    /// The chosen item from 0; -1: none, or a typed text that is no item.
    [[nodiscard]] int GetItemIndex() const;
    void SetItemIndex(int index);
    /// The chosen item's text, or what is typed. Setting it in a list without an edit chooses the equal item,
    /// if any.
    [[nodiscard]] UnicodeString GetText() const override;
    void SetText(UnicodeString const &text) override;
    [[nodiscard]] TComboBoxStyle GetStyle() const { return f_style; }
    void SetStyle(TComboBoxStyle style);
    [[nodiscard]] int GetDropDownCount() const;
    void SetDropDownCount(int count);
    [[nodiscard]] bool GetDroppedDown() const;
    void SetDroppedDown(bool down);
    [[nodiscard]] bool GetSorted() const { return f_sorted; }
    /// New items go to their place in the order of their texts.
    void SetSorted(bool sorted);
    /// Height of a line of the list in the owner-drawn styles.
    [[nodiscard]] int GetItemHeight() const { return f_item_height; }
    void SetItemHeight(int height);
    /// The width of the list; 0: that of the box, or of the longest text.
    [[nodiscard]] int GetDropDownWidth() const { return f_drop_down_width; }
    void SetDropDownWidth(int width);
    [[nodiscard]] bool GetAutoComplete() const;
    /// True, the default: typed text is completed from the items.
    void SetAutoComplete(bool value);
    /// Of the edit; 0 is no limit.
    [[nodiscard]] int GetMaxLength() const;
    void SetMaxLength(int length);
    [[nodiscard]] int GetSelStart() const;
    void SetSelStart(int position);
    [[nodiscard]] int GetSelLength() const;
    void SetSelLength(int length);
    void SelectAll();
    /// For `OnDrawItem`; open only during it.
    [[nodiscard]] TCanvas *GetCanvas() const;

    TNotifyEvent OnChange;
    TNotifyEvent OnSelect;
    TNotifyEvent OnDropDown;
    TNotifyEvent OnCloseUp;
    TDrawItemEvent OnDrawItem;
    TMeasureItemEvent OnMeasureItem;

protected:
    virtual void Change();
    virtual void Select();
    /// The user chose the item from the list that was chosen already. The base does nothing.
    virtual void Reselect() {}
    virtual void DropDown();
    virtual void CloseUp();
    /// Without a handler the item's text is drawn.
    virtual void DrawItem(int index, TRect const &rect, TOwnerDrawState const &state);
    virtual void MeasureItem(int index, int &height);
    [[nodiscard]] bool WantsKey(Word key, TShiftState shift) const override;
    void CreateWnd() override;

private:
    class strings;
    class delegate;
    class box;
    friend class delegate;

    [[nodiscard]] box *native() const;
    void make_edit() const;
    void user_chose(int index);
    void user_typed();
    void remember();
    [[nodiscard]] int text_width() const;
    [[nodiscard]] bool owner_drawn() const;
    [[nodiscard]] bool has_edit() const;
    void draw(void *painter, int index, TRect const &rect, TOwnerDrawState const &state);

    std::unique_ptr<vx_item_strings> f_items;
    mutable std::unique_ptr<TCanvas> f_canvas; ///< made when somebody draws
    delegate *f_delegate = nullptr;            ///< of the list; null until there is one
    TComboBoxStyle f_style = csDropDown;
    int f_item_height = 16;
    int f_drop_down_width = 0;
    /// What the user was last told of.
    int f_last_index = -1;
    UnicodeString f_last_text;
    bool f_sorted = false;
    bool f_dropped = false;
};

class VX_API TComboBox : public TCustomComboBox
{
public:
    using TCustomComboBox::TCustomComboBox;
};
