#pragma once

#include "platform/toolkit/controls/edit.h"
#include "platform/toolkit/grids/custom_grid.h"

/// The edit that a grid lays over its current cell. The grid hears of every change; keys that lead out of the
/// cell go to the grid, and characters pass the grid's `KeyPress`, with its `OnKeyPress`, before they come
/// here.
class VX_API TInplaceEdit : public TEdit
{
public:
    explicit TInplaceEdit(TComponent *owner);

    [[nodiscard]] TCustomGrid *GetGrid() const { return f_grid; }
    /// Puts the caret at the end, with nothing selected.
    void Deselect();
    /// Gives the focus back to the grid if it has it.
    void Hide();
    /// Lays the edit over the rectangle and shows it there; takes the focus if the grid has it. An empty
    /// rectangle hides it.
    void Move(TRect const &rect);

protected:
    friend class TCustomGrid;
    void Change() override;
    void KeyDown(Word &key, TShiftState shift) override;
    void KeyPress(wchar_t &key) override;
    void DblClick() override;
    bool DoMouseWheelDown(TShiftState shift, TPoint const &mouse_pos) override;
    bool DoMouseWheelUp(TShiftState shift, TPoint const &mouse_pos) override;
    [[nodiscard]] bool WantsKey(Word key, TShiftState shift) const override;

private:
    void set_grid(TCustomGrid *grid) { f_grid = grid; }
    void update_contents(int limit, UnicodeString const &text);
    void show_text(UnicodeString const &text);
    void type_char(wchar_t character);
    [[nodiscard]] bool leads_out(Word key, TShiftState shift) const;

    TCustomGrid *f_grid = nullptr;
    bool f_showing_text = false;
};
