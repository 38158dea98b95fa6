#pragma once

#include "platform/toolkit/controls/check_box.h"
#include "platform/toolkit/core/win_control.h"
#include "platform/toolkit/graphics/owner_draw.h"

#include <memory>

class TCanvas;
class TStrings;
class vx_item_strings;

enum TListBoxStyle
{
    lbStandard,
    lbOwnerDrawFixed,
    lbOwnerDrawVariable,
    lbVirtual ///< the list has no texts of its own: `OnData` is asked for those that are seen
};
using TLBGetDataEvent = closure<void(TWinControl *control, int index, UnicodeString &text)>;

/// A list of texts, 121 by 97. A click on an item, and a key that moves the choice, run `OnClick`;
/// `SetItemIndex`, `SetSelected` and changes of `Items` run nothing. Lines that are not seen cost no more
/// than their texts; many are added fastest between `BeginUpdate` and `EndUpdate` of the items.
class VX_API TCustomListBox : public TWinControl
{
public:
    explicit TCustomListBox(TComponent *owner);
    ~TCustomListBox() override;

    [[nodiscard]] TStrings *GetItems() const;
    void SetItems(TStrings const *items);
    void AddItem(UnicodeString const &text, TObject *object);
    void Clear();
    /// The chosen item from 0, or the one with the focus where several can be chosen; -1 for none.
    [[nodiscard]] int GetItemIndex() const;
    void SetItemIndex(int index);
    [[nodiscard]] bool GetMultiSelect() const { return f_multi_select; }
    void SetMultiSelect(bool multi);
    /// With `MultiSelect`: true, the default, Shift and Ctrl choose ranges and single items; false, each
    /// click turns an item on or off.
    [[nodiscard]] bool GetExtendedSelect() const { return f_extended_select; }
    void SetExtendedSelect(bool extended);
    [[nodiscard]] bool GetSelected(int index) const;
    void SetSelected(int index, bool selected);
    [[nodiscard]] int GetSelCount() const;
    void SelectAll();
    void ClearSelection();
    void DeleteSelected();
    [[nodiscard]] TListBoxStyle GetStyle() const { return f_style; }
    void SetStyle(TListBoxStyle style);
    /// Number of lines of a virtual list, which is not changed by its `Items`; of any other one the number is
    /// that of its items. What is shown is asked for anew.
    void SetCount(int count);
    [[nodiscard]] int GetCount() const;
    /// Height of a line in the owner-drawn styles.
    [[nodiscard]] int GetItemHeight() const { return f_item_height; }
    void SetItemHeight(int height);
    [[nodiscard]] bool GetSorted() const { return f_sorted; }
    void SetSorted(bool sorted);
    /// The first item in sight.
    [[nodiscard]] int GetTopIndex() const;
    void SetTopIndex(int index);
    /// The item at a point of the client area; -1 if there is none, with `existing` false then the number of
    /// items.
    [[nodiscard]] int ItemAtPos(TPoint const &pos, bool existing) const;
    /// In the client area; empty for an item that is not there.
    [[nodiscard]] TRect ItemRect(int index) const;
    [[nodiscard]] TBorderStyle GetBorderStyle() const { return f_border_style; }
    void SetBorderStyle(TBorderStyle style);
    /// For `OnDrawItem`; open only during it.
    [[nodiscard]] TCanvas *GetCanvas() const { return f_canvas.get(); }

    TDrawItemEvent OnDrawItem;
    TMeasureItemEvent OnMeasureItem;
    /// Gives the text of a line of a virtual list.
    TLBGetDataEvent OnData;

protected:
    virtual void DrawItem(int index, TRect const &rect, TOwnerDrawState const &state);
    virtual void MeasureItem(int index, int &height);
    /// The user turned the check mark of an item, in lists that have them.
    virtual void CheckClicked(int) {}
    [[nodiscard]] virtual bool HasChecks() const { return false; }
    /// Unchecked and disabled for a line that is not there; changes of such a line do nothing, others tell
    /// nobody.
    [[nodiscard]] TCheckBoxState GetLineCheck(int index) const;
    void SetLineCheck(int index, TCheckBoxState state);
    [[nodiscard]] bool GetLineEnabled(int index) const;
    void SetLineEnabled(int index, bool enabled);

private:
    class lines;
    class strings;
    class delegate;
    class view;
    friend class delegate;

    [[nodiscard]] view *native() const;
    [[nodiscard]] bool is_there(int index) const;
    void apply_mode();
    [[nodiscard]] bool owner_drawn() const;
    void draw(void *painter, int index, TRect const &rect, TOwnerDrawState const &state);

    lines *f_lines; ///< the widget's
    std::unique_ptr<vx_item_strings> f_items;
    std::unique_ptr<TCanvas> f_canvas;
    TListBoxStyle f_style = lbStandard;
    TBorderStyle f_border_style = bsSingle;
    int f_item_height = 16;
    bool f_multi_select = false;
    bool f_extended_select = true;
    bool f_sorted = false;
};

class VX_API TListBox : public TCustomListBox
{
public:
    using TCustomListBox::TCustomListBox;
};
