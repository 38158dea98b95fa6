#include "platform/toolkit/grids/inplace_edit.h"

#include "platform/base/flag_scope.h"
#include "platform/toolkit/core/form.h"

#include <string>

TInplaceEdit::TInplaceEdit(TComponent *owner) : TEdit(owner)
{
    SetVisible(false);
    SetTabStop(false);
    SetBorderStyle(bsNone);
    SetAutoSelect(false);
}

void TInplaceEdit::Deselect()
{
    SetSelStart(GetText().Length());
}

void TInplaceEdit::Hide()
{
    if (!GetVisible())
        return;
    if (f_grid && Focused())
        f_grid->SetFocus();
    SetVisible(false);
}

void TInplaceEdit::Move(TRect const &rect)
{
    if (rect.IsEmpty()) {
        Hide();
        return;
    }
    SetBoundsRect(rect);
    if (!GetVisible()) {
        SetVisible(true);
        BringToFront();
    }
    if (f_grid->Focused())
        SetFocus();
}

void TInplaceEdit::update_contents(int limit, UnicodeString const &text)
{
    SetMaxLength(limit);
    SetReadOnly(!f_grid->CanEditModify());
    show_text(text);
}

void TInplaceEdit::show_text(UnicodeString const &text)
{
    vx::flag_scope const showing(f_showing_text);
    SetText(text);
}

void TInplaceEdit::type_char(wchar_t character)
{
    bool const full = GetMaxLength() > 0 && GetText().Length() - GetSelLength() >= GetMaxLength();
    if (!GetReadOnly() && !full)
        SetSelText(std::wstring(1, character));
}

void TInplaceEdit::Change()
{
    if (f_showing_text)
        return;
    auto const life = Life();
    TEdit::Change();
    if (!life.expired() && f_grid)
        f_grid->update_text();
}

/// Keys that the grid gets. At the ends of the text the arrows lead to the next cell, if each cell opens its
/// editor.
bool TInplaceEdit::leads_out(Word key, TShiftState shift) const
{
    bool const whole = GetSelLength() == GetText().Length();
    bool const forward = f_grid->GetOptions().Contains(goAlwaysShowEditor);
    bool const at_start = GetSelStart() == 0 && (GetSelLength() == 0 || whole);
    bool const at_end =
        GetSelStart() + GetSelLength() == GetText().Length() && (GetSelLength() == 0 || whole);
    switch (key) {
    case VK_UP:
    case VK_DOWN:
    case VK_PRIOR:
    case VK_NEXT:
    case VK_ESCAPE:
        return true;
    case VK_TAB:
        return !shift.Contains(ssAlt) && !shift.Contains(ssCtrl);
    case VK_LEFT:
    case VK_HOME:
        return forward && (shift.Contains(ssCtrl) || at_start);
    case VK_RIGHT:
    case VK_END:
        return forward && (shift.Contains(ssCtrl) || at_end);
    default:
        return false;
    }
}

void TInplaceEdit::KeyDown(Word &key, TShiftState shift)
{
    if (!f_grid) {
        TEdit::KeyDown(key, shift);
        return;
    }
    if (leads_out(key, shift)) {
        auto const life = Life();
        f_grid->KeyDown(key, shift);
        if (!life.expired() && key == VK_TAB && !f_grid->WantsKey(key, shift)) {
            // Out of the grid, which stands in the tab order for its editor.
            key = 0;
            TWinControl *const form = GetParentForm(this);
            if (form)
                form->SelectNext(f_grid, !shift.Contains(ssShift), true);
        }
        return;
    }
    auto const life = Life();
    f_grid->OnKeyDown(f_grid, key, shift);
    if (life.expired())
        return;
    if (key == VK_F2) {
        Deselect();
        key = 0;
    }
    if (key)
        TEdit::KeyDown(key, shift);
}

void TInplaceEdit::KeyPress(wchar_t &key)
{
    if (f_grid) {
        auto const life = Life();
        f_grid->KeyPress(key);
        if (life.expired())
            return;
        if (key >= L' ' && !f_grid->CanEditAcceptKey(key))
            key = 0;
        if (key == L'\r') {
            if (GetSelLength() == GetText().Length())
                Deselect();
            else
                SelectAll();
        }
        if (key == L'\r' || key == L'\t' || key == L'\x1b')
            key = 0;
    }
    if (key)
        TEdit::KeyPress(key);
}

void TInplaceEdit::DblClick()
{
    if (f_grid)
        f_grid->DblClick();
}

bool TInplaceEdit::DoMouseWheelDown(TShiftState shift, TPoint const &mouse_pos)
{
    return TEdit::DoMouseWheelDown(shift, mouse_pos) ||
           (f_grid && f_grid->DoMouseWheelDown(shift, mouse_pos));
}

bool TInplaceEdit::DoMouseWheelUp(TShiftState shift, TPoint const &mouse_pos)
{
    return TEdit::DoMouseWheelUp(shift, mouse_pos) || (f_grid && f_grid->DoMouseWheelUp(shift, mouse_pos));
}

bool TInplaceEdit::WantsKey(Word key, TShiftState shift) const
{
    if (f_grid && key == VK_TAB)
        return f_grid->WantsKey(key, shift);
    return key == VK_RETURN || key == VK_ESCAPE || TEdit::WantsKey(key, shift);
}
