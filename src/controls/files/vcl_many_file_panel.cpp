#include "controls/files/vcl_many_file_panel.h"

#include "captions/files.h"
#include "controls/prop/image_convert.h"
#include "data/filesystem/filesystem.h"

#include "platform/basic/vx_res.h"
#include "platform/dialogs/file_dialogs.h"
#include "platform/toolkit/core/new_on.h"

#include <algorithm>

namespace {
constexpr int c_caption_height = 20;
constexpr int c_buttons_width = 90;
constexpr int c_button_height = 25;
constexpr int c_button_gap = 4;
constexpr int c_arrow_width = 30;
constexpr int c_least_height = c_caption_height + 4 * (c_button_height + c_button_gap);
constexpr int c_picture_up = 95;
constexpr int c_picture_down = 96;

void load_arrow(Tvx_vcl_bit_button *button, int picture, int hint)
{
    vx_glyph_get_res(button->GetGlyph(), picture);
    button->SetHint(vx_res_get_wstr(hint));
    button->SetAccessibleName(button->GetHint());
}
} // namespace

void Tvx_vcl_many_file_panel::create()
{
    Tvx_vcl_panel::create();
    SetHeight(c_least_height);
    f_caption = vx_new_on<Tvx_vcl_label_panel>(this, this);
    f_caption->create();
    f_caption->SetHeight(c_caption_height);
    f_caption->SetAlign(alTop);
    f_list = vx_new_on<Tvx_vcl_list_box>(this, this);
    f_list->SetAlign(alClient);
    f_list->OnClick = make_closure<&Tvx_vcl_many_file_panel::on_list_click>(this);
    f_caption->get_label()->SetFocusControl(f_list);

    auto *const buttons = vx_new_on<Tvx_vcl_panel>(this, this);
    buttons->SetWidth(c_buttons_width + c_button_gap);
    buttons->SetAlign(alRight);
    int top = 0;
    for (auto **const button : {&f_add, &f_delete, &f_clear}) {
        *button = new Tvx_vcl_button(this);
        (*button)->SetParent(buttons);
        (*button)->SetBounds(c_button_gap, top, c_buttons_width, c_button_height);
        top += c_button_height + c_button_gap;
    }
    int left = c_button_gap;
    for (auto **const button : {&f_up, &f_down}) {
        *button = new Tvx_vcl_bit_button(this);
        (*button)->SetParent(buttons);
        (*button)->SetBounds(left, top, c_arrow_width, c_button_height);
        (*button)->SetShowHint(true);
        left += c_arrow_width + c_button_gap;
    }
    f_add->OnClick = make_closure<&Tvx_vcl_many_file_panel::on_add_click>(this);
    f_delete->OnClick = make_closure<&Tvx_vcl_many_file_panel::on_delete_click>(this);
    f_clear->OnClick = make_closure<&Tvx_vcl_many_file_panel::on_clear_click>(this);
    f_up->OnClick = make_closure<&Tvx_vcl_many_file_panel::on_up_click>(this);
    f_down->OnClick = make_closure<&Tvx_vcl_many_file_panel::on_down_click>(this);
}

void Tvx_vcl_many_file_panel::load_rc()
{
    f_add->SetCaption(vx_res_get_wstr(c_files_add));
    f_delete->SetCaption(vx_res_get_wstr(c_files_delete));
    f_clear->SetCaption(vx_res_get_wstr(c_files_clear));
    load_arrow(f_up, c_picture_up, c_files_up);
    load_arrow(f_down, c_picture_down, c_files_down);
}

void Tvx_vcl_many_file_panel::update_controls()
{
    int const active = get_active_index();
    auto *const items = f_list->GetItems();
    items->BeginUpdate();
    items->Clear();
    for (int i = 0; i < f_filenames.GetCount(); ++i)
        items->Add(vx::filesystem::filename(f_filenames.GetStrings(i).str()));
    items->EndUpdate();
    set_active_index(std::min(active, f_filenames.GetCount() - 1));
}

void Tvx_vcl_many_file_panel::set_caption(UnicodeString const &caption)
{
    f_caption->set_caption(caption);
    f_list->SetAccessibleName(caption);
}

void Tvx_vcl_many_file_panel::set_filenames(TStrings const *names)
{
    f_filenames.Clear();
    if (names)
        f_filenames.AddStrings(names);
    update_controls();
}

int Tvx_vcl_many_file_panel::get_active_index() const
{
    for (int i = 0; i < f_list->GetItems()->GetCount(); ++i)
        if (f_list->GetSelected(i))
            return i;
    return -1;
}

void Tvx_vcl_many_file_panel::set_active_index(int index)
{
    bool const is_there = index >= 0 && index < f_filenames.GetCount();
    f_list->ClearSelection();
    f_list->SetItemIndex(is_there ? index : -1);
    // Files of the same name lie in different directories.
    f_list->SetHint(is_there ? f_filenames.GetStrings(index) : UnicodeString());
    f_list->SetShowHint(is_there);
}

void Tvx_vcl_many_file_panel::call_on_change()
{
    on_change(this);
}

void Tvx_vcl_many_file_panel::move(int by)
{
    int const from = get_active_index();
    int const to = from + by;
    if (from < 0 || to < 0 || to >= f_filenames.GetCount())
        return;
    f_filenames.Exchange(from, to);
    f_list->GetItems()->Exchange(from, to);
    set_active_index(to);
    auto const life = Life();
    call_on_change();
    if (!life.expired())
        on_active_change(this);
}

void Tvx_vcl_many_file_panel::on_add_click(TObject * /*sender*/)
{
    TOpenDialog dialog(nullptr);
    dialog.SetOptions({ofAllowMultiSelect});
    dialog.SetFilter(f_filter);
    dialog.SetDefaultExt(f_default_ext);
    auto const life = Life();
    if (!dialog.Execute(GetHandle()) || life.expired())
        return;
    f_filenames.AddStrings(dialog.GetFiles());
    update_controls();
    call_on_change();
}

void Tvx_vcl_many_file_panel::on_delete_click(TObject * /*sender*/)
{
    int const active = get_active_index();
    if (active < 0)
        return;
    f_filenames.Delete(active);
    update_controls();
    call_on_change();
}

void Tvx_vcl_many_file_panel::on_clear_click(TObject * /*sender*/)
{
    f_filenames.Clear();
    update_controls();
    call_on_change();
}

void Tvx_vcl_many_file_panel::on_list_click(TObject * /*sender*/)
{
    int const active = get_active_index();
    f_list->SetHint(active < 0 ? UnicodeString() : f_filenames.GetStrings(active));
    f_list->SetShowHint(active >= 0);
    on_active_change(this);
}
