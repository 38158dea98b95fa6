#include "captions/dialogs.h"

#include "platform/basic/vx_fnt_type.h"
#include "platform/basic/vx_res.h"
#include "platform/dialogs/detail/common_form.h"
#include "platform/dialogs/dlg_table_priv.h"
#include "platform/dialogs/font_chars.h"
#include "platform/dialogs/vx_dlgs.h"
#include "platform/toolkit/controls/check_box.h"
#include "platform/toolkit/controls/edit.h"
#include "platform/toolkit/controls/group_box.h"
#include "platform/toolkit/controls/label.h"
#include "platform/toolkit/controls/list_box.h"
#include "platform/toolkit/core/strings.h"
#include "platform/toolkit/graphics/font.h"
#include "platform/winapi/case_map.h"

#include <string>
#include <utility>
#include <vector>

namespace vx::dialogs {
namespace {
constexpr int c_width = 460;
constexpr int c_height = 360;
constexpr int c_list_width = 240;
constexpr int c_sample_height = 90;
constexpr int c_sample_size = -28; ///< pixels of the characters
constexpr int c_row_height = 28;
constexpr unsigned char c_default_charset = 1;

class font_form final : public common_form
{
public:
    explicit font_form(vx_fnt_type const &font);

    [[nodiscard]] vx_fnt_type const &get_font() const { return f_font; }

private:
    TCheckBox *add_check(int caption, int row, bool checked);
    void on_find_change(TObject *sender);
    void on_find_key_down(TObject *sender, Word &key, TShiftState shift);
    void on_family_click(TObject *sender);
    void on_family_dbl_click(TObject *sender);
    void on_style_click(TObject *sender);
    void fill_list();
    void take_family(std::wstring const &name);
    void choose(int index);
    void show_sample();

    vx_fnt_type f_font;
    vx_fnt_type f_former;
    std::wstring f_chosen; ///< family that the user chose, not the one that a search has come to
    std::vector<std::pair<std::wstring, std::wstring>> f_families; ///< name, and in lower case
    TEdit *f_find;
    TListBox *f_list;
    TCheckBox *f_bold;
    TCheckBox *f_italic;
    TCheckBox *f_underline;
    TCheckBox *f_strikeout;
    TLabel *f_sample;
};

font_form::font_form(vx_fnt_type const &font)
    : common_form(c_dlg_font, c_width, c_height), f_font(font), f_former(font), f_chosen(font.wname())
{
    for (auto &family : font_families()) {
        auto lower = vx_lower_w(family);
        f_families.emplace_back(std::move(family), std::move(lower));
    }
    constexpr int bottom = c_height - 3 * c_edge - 26 - c_sample_height;
    f_find = new TEdit(this);
    f_find->SetParent(this);
    f_find->SetBounds(c_edge, c_edge + 20, c_list_width, c_edit_height);
    f_find->SetTextHint(vx_res_get_wstr(c_dlg_find_hint));
    add_label(c_dlg_family, c_edge, c_edge, f_find);
    f_list = new TListBox(this);
    f_list->SetParent(this);
    constexpr int list_top = c_edge + 20 + c_edit_height + 4;
    f_list->SetBounds(c_edge, list_top, c_list_width, bottom - list_top);
    f_list->SetAccessibleName(vx_res_get_wstr(c_dlg_family));
    f_bold = add_check(c_dlg_bold, 0, font.bold);
    f_italic = add_check(c_dlg_italic, 1, font.italic);
    f_underline = add_check(c_dlg_underline, 2, font.underline);
    f_strikeout = add_check(c_dlg_strikeout, 3, font.strikeout);

    auto *group = new TGroupBox(this);
    group->SetParent(this);
    group->SetCaption(vx_res_get_wstr(c_dlg_sample));
    group->SetBounds(c_edge, bottom + c_gap, c_width - 2 * c_edge, c_sample_height);
    f_sample = new TLabel(this);
    f_sample->SetParent(group);
    f_sample->SetAutoSize(false);
    f_sample->SetAlign(alClient);
    f_sample->SetAlignment(taCenter);
    f_sample->SetLayout(tlCenter);
    f_sample->SetText(vx_res_get_wstr(c_dlg_sample_text));
    f_sample->GetFont()->SetHeight(c_sample_size);
    add_buttons();
    fill_list();
    show_sample();

    f_find->OnChange = make_closure<&font_form::on_find_change>(this);
    f_find->OnKeyDown = make_closure<&font_form::on_find_key_down>(this);
    f_list->OnClick = make_closure<&font_form::on_family_click>(this);
    f_list->OnDblClick = make_closure<&font_form::on_family_dbl_click>(this);
    for (auto *check : {f_bold, f_italic, f_underline, f_strikeout})
        check->OnClick = make_closure<&font_form::on_style_click>(this);
}

TCheckBox *font_form::add_check(int caption, int row, bool checked)
{
    auto *check = new TCheckBox(this);
    check->SetParent(this);
    check->SetCaption(vx_res_get_wstr(caption));
    constexpr int left = 2 * c_edge + c_list_width;
    check->SetBounds(left, c_edge + 20 + row * c_row_height, c_width - c_edge - left, 20);
    check->SetChecked(checked);
    return check;
}

/// The families that hold what is looked for; the chosen one stays chosen while it is among them.
void font_form::fill_list()
{
    auto const wanted = vx_lower_w(f_find->GetText().str());
    auto const chosen = vx_lower_w(f_font.wname());
    auto *items = f_list->GetItems();
    items->BeginUpdate();
    items->Clear();
    int index = -1;
    for (auto const &[name, lower] : f_families) {
        if (lower.find(wanted) == std::wstring::npos)
            continue;
        int const at = items->Add(name);
        if (lower == chosen)
            index = at;
    }
    items->EndUpdate();
    f_list->SetItemIndex(index);
    if (index >= 0)
        f_list->SetTopIndex(index);
}

void font_form::take_family(std::wstring const &name)
{
    f_font.set_wname(name.c_str());
    bool const same = vx_lower_w(name) == vx_lower_w(f_former.wname());
    f_font.charset = same ? f_former.charset : c_default_charset;
    show_sample();
}

void font_form::choose(int index)
{
    if (index < 0 || index >= f_list->GetItems()->GetCount())
        return;
    f_chosen = f_list->GetItems()->GetStrings(index);
    take_family(f_chosen);
}

/// While the chosen family is not among those found, the first one found stands for it.
void font_form::on_find_change(TObject *)
{
    take_family(f_chosen);
    fill_list();
    if (f_list->GetItemIndex() >= 0 || f_list->GetItems()->GetCount() == 0)
        return;
    f_list->SetItemIndex(0);
    take_family(f_list->GetItems()->GetStrings(0));
}

/// Up and down go through the list while the caret stays where the user types.
void font_form::on_find_key_down(TObject *, Word &key, TShiftState)
{
    if (key != VK_UP && key != VK_DOWN)
        return;
    int const index = f_list->GetItemIndex() + (key == VK_DOWN ? 1 : -1);
    key = 0;
    if (index < 0 || index >= f_list->GetItems()->GetCount())
        return;
    f_list->SetItemIndex(index);
    choose(index);
}

void font_form::on_family_click(TObject *)
{
    choose(f_list->GetItemIndex());
}

void font_form::on_family_dbl_click(TObject *)
{
    if (f_list->GetItemIndex() >= 0)
        SetModalResult(mrOk);
}

void font_form::on_style_click(TObject *)
{
    f_font.bold = f_bold->GetChecked();
    f_font.italic = f_italic->GetChecked();
    f_font.underline = f_underline->GetChecked();
    f_font.strikeout = f_strikeout->GetChecked();
    show_sample();
}

void font_form::show_sample()
{
    assign_font(f_sample->GetFont(), f_font);
}
} // namespace
} // namespace vx::dialogs

bool vx_font_dialog(HWND parent, int x, int y, vx_fnt_type *font)
{
    if (!font)
        return false;
    if (auto const &table = vx::dialogs::table(); table.font) {
        if (!table.font(table.user, vx::dialogs::owner_window(parent), x, y, font))
            return false;
    } else {
        vx::dialogs::font_form form(*font);
        if (!form.run(parent, x, y))
            return false;
        *font = form.get_font();
    }
    vx_fnt_type_set_current_font(font);
    return true;
}
