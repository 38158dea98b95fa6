#include "captions/palettes.h"
#include "captions/style_manager.h"

#include "platform/base/flag_scope.h"
#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/base/strutil.h"
#include "platform/basic/vx_palette.h"
#include "platform/basic/vx_res.h"
#include "platform/dialogs/detail/color_field.h"
#include "platform/dialogs/detail/common_form.h"
#include "platform/dialogs/dlg_table_priv.h"
#include "platform/dialogs/palette_strip.h"
#include "platform/dialogs/vx_dlgs.h"
#include "platform/toolkit/controls/button.h"
#include "platform/toolkit/controls/edit.h"
#include "platform/toolkit/controls/label.h"
#include "platform/toolkit/controls/list_box.h"
#include "platform/toolkit/controls/paint_box.h"
#include "platform/toolkit/core/strings.h"
#include "platform/toolkit/graphics/canvas.h"

#include <algorithm>
#include <cwchar>
#include <string>

namespace vx::dialogs {
namespace {
constexpr int c_width = 620;
constexpr int c_height = 400;
constexpr int c_palette_width = 220;
constexpr int c_color_width = 152;
constexpr int c_button_width = 92;
constexpr int c_button_height = 26;
constexpr int c_label_height = 20;
constexpr int c_row_height = 22;
constexpr int c_strip_width = 72;
constexpr int c_code_width = 64;
constexpr int c_bottom = 26 + 2 * common_form::c_edge; ///< what OK and Cancel take
constexpr wchar_t const *c_blanks = L" \t\n\r\v\f";
constexpr Tvx_color c_new_colors[] = {vx_clr_init_rgb(255, 255, 255), vx_clr_init_rgb(16, 64, 192)};

using owned_palettes = vx::owned<void, &vx_clr_palettes_destroy>;

std::wstring code_of(Tvx_color color)
{
    wchar_t text[16];
    std::swprintf(text, std::size(text), L"#%02X%02X%02X", unsigned{color.r}, unsigned{color.g},
                  unsigned{color.b});
    return text;
}

/// A list whose lines can be added, deleted and moved, and the buttons for that beside it.
struct line_list
{
    TListBox *box = nullptr;
    TButton *add = nullptr;
    TButton *change = nullptr; ///< copies a palette, changes a colour
    TButton *del = nullptr;
    TButton *up = nullptr;
    TButton *down = nullptr;

    [[nodiscard]] int index() const { return box->GetItemIndex(); }
    [[nodiscard]] unsigned place() const { return static_cast<unsigned>(index()); }
    /// `least` lines have to stay.
    void show_enabled(int least) const
    {
        int const count = box->GetItems()->GetCount();
        change->SetEnabled(index() >= 0);
        del->SetEnabled(index() >= 0 && count > least);
        up->SetEnabled(index() > 0);
        down->SetEnabled(index() >= 0 && index() + 1 < count);
    }
};

/// Works on a copy of the list.
class palettes_form final : public common_form
{
public:
    palettes_form(void const *palettes, int title);

    [[nodiscard]] void const *get_palettes() const { return f_palettes.get(); }

private:
    struct texts
    {
        int list, change, add_hint, change_hint, delete_hint, up_hint, down_hint;
    };
    line_list add_list(texts const &t, int left, int top, int width);
    TButton *add_button(int caption, int hint, int left, int &top);

    [[nodiscard]] void *palette() const;
    [[nodiscard]] static std::wstring name_of(void const *palette);
    [[nodiscard]] std::wstring free_name(std::wstring const &name) const;
    void insert_palette(std::wstring const &name, void const *source);
    void insert_color(unsigned place, Tvx_color color);
    void show_palettes(int index);
    void show_palette();
    void show_colors(int index);
    void show_buttons();
    [[nodiscard]] bool ask_color(Tvx_color &color);

    void on_palette_click(TObject *sender);
    void on_palette_add(TObject *sender);
    void on_palette_copy(TObject *sender);
    void on_palette_delete(TObject *sender);
    void on_palette_move(TObject *sender);
    void on_name_change(TObject *sender);
    void on_name_exit(TObject *sender);
    void on_color_click(TObject *sender);
    void on_color_add(TObject *sender);
    void on_color_edit(TObject *sender);
    void on_color_delete(TObject *sender);
    void on_color_move(TObject *sender);
    void on_draw_palette(TWinControl *box, int index, TRect const &rect, TOwnerDrawState const &state);
    void on_draw_color(TWinControl *box, int index, TRect const &rect, TOwnerDrawState const &state);
    void on_strip_paint(TObject *sender);

    owned_palettes f_palettes;
    line_list f_list;
    line_list f_colors;
    TLabel *f_none;
    TEdit *f_name;
    TPaintBox *f_strip;
    bool f_showing = false;
};

palettes_form::palettes_form(void const *palettes, int title)
    : common_form(title, c_width, c_height), f_palettes(vx_clr_palettes_create())
{
    vx_clr_palettes_assign(f_palettes.get(), palettes);
    f_list = add_list({c_pal_list, c_pal_copy, c_pal_hint_add, c_pal_hint_copy, c_pal_hint_delete,
                       c_pal_hint_up, c_pal_hint_down},
                      c_edge, c_edge, c_palette_width);
    f_list.box->OnClick = make_closure<&palettes_form::on_palette_click>(this);
    f_list.box->OnDrawItem = make_closure<&palettes_form::on_draw_palette>(this);
    f_list.add->OnClick = make_closure<&palettes_form::on_palette_add>(this);
    f_list.change->OnClick = make_closure<&palettes_form::on_palette_copy>(this);
    f_list.del->OnClick = make_closure<&palettes_form::on_palette_delete>(this);
    f_list.up->OnClick = f_list.down->OnClick = make_closure<&palettes_form::on_palette_move>(this);
    f_none = add_label(c_pal_none, c_edge + c_gap, c_edge + c_label_height + c_gap, nullptr);

    int const left = c_edge + c_palette_width + c_gap + c_button_width + 2 * c_edge;
    int const width = c_width - c_edge - left;
    int top = c_edge;
    f_name = new TEdit(this);
    f_name->SetParent(this);
    f_name->SetBounds(left, top + c_label_height, width, c_edit_height);
    f_name->OnChange = make_closure<&palettes_form::on_name_change>(this);
    f_name->OnExit = make_closure<&palettes_form::on_name_exit>(this);
    add_label(c_pal_name, left, top, f_name);
    top += c_label_height + c_edit_height + c_gap;
    f_strip = new TPaintBox(this);
    f_strip->SetParent(this);
    f_strip->SetBounds(left, top, width, c_edit_height);
    f_strip->OnPaint = make_closure<&palettes_form::on_strip_paint>(this);
    top += c_edit_height + c_gap;
    f_colors = add_list({c_pal_colors, c_pal_edit, c_pal_hint_color_add, c_pal_hint_color_edit,
                         c_pal_hint_color_delete, c_pal_hint_color_up, c_pal_hint_color_down},
                        left, top, c_color_width);
    f_colors.box->OnClick = make_closure<&palettes_form::on_color_click>(this);
    f_colors.box->OnDblClick = make_closure<&palettes_form::on_color_edit>(this);
    f_colors.box->OnDrawItem = make_closure<&palettes_form::on_draw_color>(this);
    f_colors.add->OnClick = make_closure<&palettes_form::on_color_add>(this);
    f_colors.change->OnClick = make_closure<&palettes_form::on_color_edit>(this);
    f_colors.del->OnClick = make_closure<&palettes_form::on_color_delete>(this);
    f_colors.up->OnClick = f_colors.down->OnClick = make_closure<&palettes_form::on_color_move>(this);
    add_buttons();
    show_palettes(0);
}

line_list palettes_form::add_list(texts const &t, int left, int top, int width)
{
    line_list list;
    list.box = new TListBox(this);
    list.box->SetParent(this);
    list.box->SetStyle(lbOwnerDrawFixed);
    list.box->SetItemHeight(c_row_height);
    list.box->SetBounds(left, top + c_label_height, width, c_height - c_bottom - top - c_label_height);
    add_label(t.list, left, top, list.box);
    left += width + c_gap;
    top += c_label_height;
    list.add = add_button(c_pal_add, t.add_hint, left, top);
    list.change = add_button(t.change, t.change_hint, left, top);
    list.del = add_button(c_pal_delete, t.delete_hint, left, top);
    top += c_gap;
    list.up = add_button(c_pal_up, t.up_hint, left, top);
    list.down = add_button(c_pal_down, t.down_hint, left, top);
    return list;
}

TButton *palettes_form::add_button(int caption, int hint, int left, int &top)
{
    auto *const button = new TButton(this);
    button->SetParent(this);
    button->SetBounds(left, top, c_button_width, c_button_height);
    button->SetCaption(vx_res_get_wstr(caption));
    button->SetHint(vx_res_get_wstr(hint));
    button->SetShowHint(true);
    button->SetAccessibleName(button->GetHint());
    top += c_button_height + c_gap / 2;
    return button;
}

// ---- the palettes

/// The current one; null for none.
void *palettes_form::palette() const
{
    return f_list.index() < 0 ? nullptr : vx_clr_palettes_get_palette(f_palettes.get(), f_list.place());
}

std::wstring palettes_form::name_of(void const *palette)
{
    std::wstring name;
    Tvx_std_wstring_adapter adapter(name);
    vx_clr_palette_get_wcaption(palette, adapter);
    return name;
}

/// The name with a number behind it, if another palette has it.
std::wstring palettes_form::free_name(std::wstring const &name) const
{
    auto const taken = [this](std::wstring const &wanted) {
        for (unsigned i = 0; i < vx_clr_palettes_get_size(f_palettes.get()); ++i)
            if (name_of(vx_clr_palettes_get_palette(f_palettes.get(), i)) == wanted)
                return true;
        return false;
    };
    std::wstring free = name;
    for (unsigned number = 2; taken(free); ++number)
        free = name + L" " + std::to_wstring(number);
    return free;
}

/// Behind the current one, which it takes the place of; without a source it gets colours to begin with.
void palettes_form::insert_palette(std::wstring const &name, void const *source)
{
    int const place = f_list.index() + 1;
    auto const free = free_name(name);
    void *const made = vx_clr_palettes_add(f_palettes.get());
    if (source)
        vx_clr_palette_assign(made, source);
    else
        for (Tvx_color const color : c_new_colors) {
            unsigned const size = vx_clr_palette_get_size(made);
            vx_clr_palette_set_size(made, size + 1);
            vx_clr_palette_set_color(made, size, color);
        }
    vx_clr_palette_set_wcaption(made, free.c_str());
    vx_clr_palettes_move(f_palettes.get(), vx_clr_palettes_get_size(f_palettes.get()) - 1,
                         static_cast<unsigned>(place));
    show_palettes(place);
    f_name->SetFocus();
    f_name->SelectAll();
}

void palettes_form::show_palettes(int index)
{
    auto *const items = f_list.box->GetItems();
    items->Clear();
    unsigned const count = vx_clr_palettes_get_size(f_palettes.get());
    for (unsigned i = 0; i < count; ++i)
        items->Add(name_of(vx_clr_palettes_get_palette(f_palettes.get(), i)));
    f_list.box->SetItemIndex(std::min(index, static_cast<int>(count) - 1));
    f_none->SetVisible(count == 0);
    show_palette();
}

void palettes_form::show_palette()
{
    vx::flag_scope const showing(f_showing);
    f_name->SetText(name_of(palette()));
    f_name->SetEnabled(palette() != nullptr);
    show_colors(0);
}

void palettes_form::show_colors(int index)
{
    auto *const items = f_colors.box->GetItems();
    items->Clear();
    unsigned const count = vx_clr_palette_get_size(palette());
    for (unsigned i = 0; i < count; ++i)
        items->Add(code_of(vx_clr_palette_get_color(palette(), i)));
    f_colors.box->SetItemIndex(std::min(index, static_cast<int>(count) - 1));
    f_strip->Invalidate();
    f_list.box->Invalidate();
    show_buttons();
}

void palettes_form::show_buttons()
{
    f_list.show_enabled(0);
    f_colors.show_enabled(1);
    f_colors.box->SetEnabled(palette() != nullptr);
    f_colors.add->SetEnabled(palette() != nullptr);
}

void palettes_form::on_palette_click(TObject * /*sender*/)
{
    show_palette();
}

void palettes_form::on_palette_add(TObject * /*sender*/)
{
    insert_palette(vx_res_get_wstr(c_pal_new), nullptr);
}

void palettes_form::on_palette_copy(TObject * /*sender*/)
{
    if (palette())
        insert_palette(vx_res_format_w(c_pal_copied, name_of(palette())), palette());
}

void palettes_form::on_palette_delete(TObject * /*sender*/)
{
    int const index = f_list.index();
    if (index < 0)
        return;
    vx_clr_palettes_del(f_palettes.get(), f_list.place());
    show_palettes(index);
}

void palettes_form::on_palette_move(TObject *sender)
{
    int const to = f_list.index() + (sender == f_list.up ? -1 : 1);
    if (f_list.index() < 0 || to < 0)
        return;
    vx_clr_palettes_move(f_palettes.get(), f_list.place(), static_cast<unsigned>(to));
    show_palettes(to);
}

/// A palette always has a name to be found by.
void palettes_form::on_name_change(TObject * /*sender*/)
{
    if (f_showing || !palette())
        return;
    auto name = vx::strutil::trim(f_name->GetText().str(), c_blanks);
    if (name.empty())
        name = vx_res_get_wstr(c_pal_new);
    vx_clr_palette_set_wcaption(palette(), name.c_str());
    int const index = f_list.index();
    f_list.box->GetItems()->SetStrings(index, name);
    f_list.box->SetItemIndex(index);
    f_list.box->Invalidate();
}

void palettes_form::on_name_exit(TObject * /*sender*/)
{
    vx::flag_scope const showing(f_showing);
    f_name->SetText(name_of(palette()));
}

// ---- the colours

bool palettes_form::ask_color(Tvx_color &color)
{
    return vx_color_dialog(GetHandle(), 0, 0, &color, c_color_format_rgb);
}

void palettes_form::insert_color(unsigned place, Tvx_color color)
{
    unsigned const size = vx_clr_palette_get_size(palette());
    vx_clr_palette_set_size(palette(), size + 1);
    for (unsigned i = size; i > place; --i)
        vx_clr_palette_set_color(palette(), i, vx_clr_palette_get_color(palette(), i - 1));
    vx_clr_palette_set_color(palette(), place, color);
    show_colors(static_cast<int>(place));
}

void palettes_form::on_color_click(TObject * /*sender*/)
{
    show_buttons();
}

void palettes_form::on_color_add(TObject * /*sender*/)
{
    if (!palette())
        return;
    auto const place = static_cast<unsigned>(f_colors.index() + 1);
    auto color = place > 0 ? vx_clr_palette_get_color(palette(), place - 1) : c_new_colors[0];
    if (ask_color(color))
        insert_color(place, color);
}

void palettes_form::on_color_edit(TObject * /*sender*/)
{
    if (f_colors.index() < 0)
        return;
    auto color = vx_clr_palette_get_color(palette(), f_colors.place());
    if (!ask_color(color))
        return;
    vx_clr_palette_set_color(palette(), f_colors.place(), color);
    show_colors(f_colors.index());
}

void palettes_form::on_color_delete(TObject * /*sender*/)
{
    unsigned const size = vx_clr_palette_get_size(palette());
    if (f_colors.index() < 0 || size < 2)
        return;
    for (unsigned i = f_colors.place(); i + 1 < size; ++i)
        vx_clr_palette_set_color(palette(), i, vx_clr_palette_get_color(palette(), i + 1));
    vx_clr_palette_set_size(palette(), size - 1);
    show_colors(f_colors.index());
}

void palettes_form::on_color_move(TObject *sender)
{
    int const to = f_colors.index() + (sender == f_colors.up ? -1 : 1);
    auto const size = static_cast<int>(vx_clr_palette_get_size(palette()));
    if (f_colors.index() < 0 || to < 0 || to >= size)
        return;
    auto const moved = vx_clr_palette_get_color(palette(), f_colors.place());
    auto const other = vx_clr_palette_get_color(palette(), static_cast<unsigned>(to));
    vx_clr_palette_set_color(palette(), static_cast<unsigned>(to), moved);
    vx_clr_palette_set_color(palette(), f_colors.place(), other);
    show_colors(to);
}

// ---- painting

void palettes_form::on_draw_palette(TWinControl * /*box*/, int index, TRect const &rect,
                                    TOwnerDrawState const & /*state*/)
{
    auto *const canvas = f_list.box->GetCanvas();
    void *const shown = vx_clr_palettes_get_palette(f_palettes.get(), static_cast<unsigned>(index));
    auto const name = f_list.box->GetItems()->GetStrings(index);
    TRect text = Rect(rect.Left + c_strip_width + 2 * c_gap, rect.Top, rect.Right, rect.Bottom);
    canvas->TextRect(text, name, {tfSingleLine, tfVerticalCenter, tfEndEllipsis, tfNoPrefix});
    TRect const strip =
        Rect(rect.Left + c_gap / 2, rect.Top + 3, rect.Left + c_gap / 2 + c_strip_width, rect.Bottom - 3);
    vx_clr_palette_draw(canvas, strip, 0, shown, false);
}

void palettes_form::on_draw_color(TWinControl * /*box*/, int index, TRect const &rect,
                                  TOwnerDrawState const & /*state*/)
{
    auto *const canvas = f_colors.box->GetCanvas();
    TRect text = Rect(rect.Right - c_code_width, rect.Top, rect.Right, rect.Bottom);
    canvas->TextRect(text, f_colors.box->GetItems()->GetStrings(index), {tfSingleLine, tfVerticalCenter});
    TRect const field = Rect(rect.Left + c_gap / 2, rect.Top + 3, text.Left - c_gap, rect.Bottom - 3);
    fill_checked(canvas, field, vx_clr_palette_get_color(palette(), static_cast<unsigned>(index)));
    canvas->GetBrush()->SetColor(clBtnShadow);
    canvas->FrameRect(field);
}

void palettes_form::on_strip_paint(TObject * /*sender*/)
{
    if (palette())
        vx_clr_palette_draw(f_strip->GetCanvas(), Rect(0, 0, f_strip->GetWidth(), f_strip->GetHeight()), 0,
                            palette(), false);
}
} // namespace
} // namespace vx::dialogs

bool vx_clr_palettes_dialog(void *palettes, int title)
{
    using namespace vx::dialogs;
    if (!palettes)
        return false;
    int const caption = title < 0 ? -title : static_cast<int>(c_stl_palettes);
    if (auto const &own = table(); own.clr_palettes)
        return own.clr_palettes(own.user, owner_window(nullptr), palettes, vx_res_get_wstr(caption));
    palettes_form form(palettes, caption);
    if (!form.run(nullptr, 0, 0))
        return false;
    vx_clr_palettes_assign(palettes, form.get_palettes());
    return true;
}
