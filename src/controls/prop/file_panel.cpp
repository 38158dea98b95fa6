#include "controls/prop/file_panel.h"

#include "captions/prop.h"
#include "controls/prop/detail/action_name.h"
#include "controls/prop/detail/path_view.h"
#include "controls/prop/detail/sample_frame.h"
#include "data/filesystem/filesystem.h"

#include "platform/base/owned.h"
#include "platform/base/text_codec.h"
#include "platform/basic/vx_res.h"
#include "platform/basic/vx_wstrings.h"
#include "platform/dialogs/vx_dlgs.h"
#include "platform/dialogs/vx_file_dialog.h"
#include "platform/toolkit/core/clipboard.h"
#include "platform/toolkit/core/new_on.h"
#include "platform/toolkit/core/strings.h"

#include <algorithm>

namespace {
constexpr int c_height = 20;
constexpr int c_button_width = 20;
constexpr int c_text_inset = 2;
constexpr int c_top_caption_height = 18;
constexpr int c_top_name_left = 10;
constexpr int c_top_name_height = 20;

enum menu_line : int
{
    c_line_show_full,
    c_line_show_short,
    c_line_copy_short,
    c_line_copy_full,
    c_line_count
};

using wstrings = vx::owned<void, &vx_wstrings_destroy>;

wstrings split(wchar_t const *text, wchar_t separator)
{
    wstrings parts(vx_wstrings_create());
    vx_wstrings_split_str(parts.get(), text, separator);
    return parts;
}

/// With its point, in the case that it has.
std::wstring extension_as_written(std::wstring const &path)
{
    return vx::filesystem::filename(path).substr(vx::filesystem::basename(path).size());
}

/// ".dbf" of "*.dbf".
std::wstring mask_ext(wchar_t const *mask)
{
    return *mask ? mask + 1 : mask;
}

/// The masks of a pair of the filter, pairs from 1; "" for one that is not there.
std::wstring pair_masks(UnicodeString const &filter, int index)
{
    wstrings const parts = split(filter.c_str(), L'|');
    return index < 1 ? std::wstring()
                     : vx_wstrings_get_str(parts.get(), static_cast<unsigned>(index) * 2 - 1);
}
} // namespace

Tvx_menu_file_panel_item::Tvx_menu_file_panel_item(Tvx_file_panel *panel)
    : Tvx_popup_menu(panel), f_panel(panel)
{
    for (int line = 0; line < c_line_count; ++line) {
        auto *item = new Tvx_menu_item(this);
        item->SetTag(line);
        item->SetRadioItem(line <= c_line_show_short);
        item->OnClick = make_closure<&Tvx_menu_file_panel_item::on_item_click>(this);
        GetItems()->Add(item);
    }
    load_res();
}

void Tvx_menu_file_panel_item::load_res()
{
    for (int line = 0; line < c_line_count; ++line)
        GetItems()->GetItems(line)->SetCaption(vx_res_get_wstr(c_caption_show_full_name + line));
}

void Tvx_menu_file_panel_item::DoPopup(TObject *sender)
{
    GetItems()
        ->GetItems(f_panel->get_type_visual_file_name() == 1 ? c_line_show_short : c_line_show_full)
        ->SetChecked(true);
    Tvx_popup_menu::DoPopup(sender);
}

void Tvx_menu_file_panel_item::on_item_click(TObject *sender)
{
    std::wstring const &name = f_panel->get_wfilename();
    switch (static_cast<TMenuItem *>(sender)->GetTag()) {
    case c_line_show_full:
        return f_panel->set_type_visual_file_name(0);
    case c_line_show_short:
        return f_panel->set_type_visual_file_name(1);
    case c_line_copy_short:
        return Clipboard()->SetAsText(vx::filesystem::filename(name));
    default:
        return Clipboard()->SetAsText(name);
    }
}

Tvx_file_panel::Tvx_file_panel(TComponent *owner)
    : Tvx_children_enabled_panel(owner), f_caption_panel(vx_new_for<Tvx_caption_panel>(this, this)),
      f_name_panel(vx_new_for<Tvx_sample_frame>(this, this)), f_name(new Tvx_path_view(this)),
      f_button(new Tvx_button(this))
{
    SetHeight(c_height);
    f_caption_panel->SetParent(this);
    f_caption_panel->SetWidth(f_caption_width);
    f_caption_panel->SetAlign(alLeft);
    f_name_panel->SetParent(this);
    f_name_panel->SetAlign(alClient);
    f_name_panel->GetPadding()->SetBounds(c_text_inset, 0, c_text_inset, 0);
    f_name->SetParent(f_name_panel);
    f_name->SetAlign(alClient);
    f_button->SetParent(f_name_panel);
    f_button->SetWidth(c_button_width);
    f_button->SetAlign(alRight);
    f_button->SetCaption(L"...");
    f_button->OnClick = make_closure<&Tvx_file_panel::on_button_click>(this);
    f_caption_panel->set_focus_control(f_button);
    load_res();
}

TControl *Tvx_file_panel::get_name_view() const
{
    return f_name;
}

void Tvx_file_panel::load_res()
{
    UnicodeString const action = vx_res_get_wstr(c_caption_choose_file);
    f_button->SetHint(action);
    f_button->SetShowHint(true);
    f_button->SetAccessibleName(vx_action_name(get_caption(), action));
    if (f_menu)
        f_menu->load_res();
}

void Tvx_file_panel::update_controls()
{
    f_name->SetCaption(make_text());
    // The whole name, where there is room for a part of it.
    f_name->SetHint(f_filename);
    f_name->SetShowHint(!f_filename.empty());
}

UnicodeString Tvx_file_panel::get_caption() const
{
    return f_caption_panel->get_caption();
}

void Tvx_file_panel::set_caption(UnicodeString const &caption)
{
    f_caption_panel->set_caption(caption);
    load_res();
}

int Tvx_file_panel::get_caption_width() const
{
    return f_caption_width;
}

void Tvx_file_panel::set_caption_width(int width)
{
    f_caption_width = width;
    if (f_top_location != 1)
        f_caption_panel->SetWidth(width);
}

std::string Tvx_file_panel::get_filename() const
{
    return vx::text::to_bytes(f_filename);
}

void Tvx_file_panel::set_filename(char const *name)
{
    set_wfilename(UnicodeString(name).c_str());
}

void Tvx_file_panel::set_wfilename(wchar_t const *name)
{
    f_filename = name ? name : L"";
    update_controls();
}

UnicodeString Tvx_file_panel::make_text() const
{
    return f_type_visual_file_name == 1 ? vx::filesystem::filename(f_filename) : f_filename;
}

void Tvx_file_panel::set_top_location(int location)
{
    bool const was_above = f_top_location == 1;
    f_top_location = location;
    if (location == 1) {
        SetHeight(std::max(GetHeight(), c_top_caption_height + c_top_name_height));
        f_caption_panel->SetAlign(alTop);
        f_caption_panel->SetHeight(c_top_caption_height);
        f_name_panel->SetAlign(alNone);
    } else if (was_above) {
        SetHeight(c_height);
        f_caption_panel->SetAlign(alLeft);
        f_caption_panel->SetWidth(f_caption_width);
        f_name_panel->SetAlign(alClient);
    }
    place_name();
}

void Tvx_file_panel::place_name()
{
    if (f_top_location == 1)
        f_name_panel->SetBounds(c_top_name_left, c_top_caption_height, GetClientWidth() - c_top_name_left,
                                c_top_name_height);
}

void Tvx_file_panel::Resize()
{
    Tvx_children_enabled_panel::Resize();
    place_name();
}

void Tvx_file_panel::set_type_visual_file_name(int type)
{
    f_type_visual_file_name = type;
    update_controls();
}

void Tvx_file_panel::set_pop_menu(bool value)
{
    if (value == get_pop_menu())
        return;
    if (value)
        f_menu = new Tvx_menu_file_panel_item(this);
    SetPopupMenu(value ? f_menu : nullptr);
    f_name_panel->SetPopupMenu(value ? f_menu : nullptr);
    f_name->SetPopupMenu(value ? f_menu : nullptr);
    f_button->SetPopupMenu(value ? f_menu : nullptr);
    if (!value) {
        f_menu->Free();
        f_menu = nullptr;
    }
}

void Tvx_file_panel::set_enabled(bool enabled)
{
    f_caption_panel->SetEnabled(enabled);
    f_name->SetEnabled(enabled);
    f_button->SetEnabled(enabled);
}

void Tvx_file_panel::set_enabled_select(bool enabled)
{
    f_caption_panel->SetEnabled(true);
    f_name->SetEnabled(true);
    f_button->SetEnabled(enabled);
}

int Tvx_file_panel::get_filter_index() const
{
    std::wstring const ext = extension_as_written(f_filename);
    if (ext.empty())
        return 0;
    wstrings const parts = split(f_filter.c_str(), L'|');
    for (unsigned pair = 1; pair * 2 <= vx_wstrings_get_size(parts.get()); ++pair) {
        wstrings const masks = split(vx_wstrings_get_str(parts.get(), pair * 2 - 1), L';');
        for (unsigned i = 0; i < vx_wstrings_get_size(masks.get()); ++i)
            if (mask_ext(vx_wstrings_get_str(masks.get(), i)) == ext)
                return static_cast<int>(pair);
    }
    return 0;
}

UnicodeString Tvx_file_panel::pretty_filename(UnicodeString const &name, int index) const
{
    wstrings const masks = split(pair_masks(f_filter, index).c_str(), L';');
    // A name yet to be typed gets no bare extension.
    if (vx_wstrings_get_size(masks.get()) == 0 || vx::filesystem::filename(name.str()).empty())
        return name;
    std::wstring const ext = mask_ext(vx_wstrings_get_str(masks.get(), 0));
    // "*.*" and "*" name no extension.
    if (ext.find_first_of(L"*?") != std::wstring::npos || ext.empty())
        return name;
    return vx::filesystem::directory(name) + vx::filesystem::basename(name) + ext;
}

void Tvx_file_panel::on_button_click(TObject * /*sender*/)
{
    if (f_save_flag)
        ask_save();
    else
        ask_open();
}

void Tvx_file_panel::ask_open()
{
    Tvx_file_dialog_prm prm;
    prm.filter = f_filter;
    prm.filter_index = get_filter_index();
    prm.default_ext = f_default_ext;
    prm.file_name = f_filename;
    if (vx_file_dialog(GetHandle(), 0, 0, &prm))
        take(prm.file_name);
}

void Tvx_file_panel::ask_save()
{
    Tvx_file_dialog_prm prm;
    prm.save = true;
    prm.filter = f_filter;
    prm.filter_index = get_filter_index();
    prm.default_ext = f_default_ext;
    prm.file_name = f_filename;
    prm.overwrite_prompt = f_overwrite_prompt;
    prm.on_filter_changed = make_closure<&Tvx_file_panel::on_filter_changed>(this);
    prm.on_complete_name = make_closure<&Tvx_file_panel::on_complete_name>(this);
    if (vx_file_dialog(GetHandle(), 0, 0, &prm))
        take(prm.file_name);
}

void Tvx_file_panel::on_complete_name(int filter_index, UnicodeString &name)
{
    name = pretty_filename(name, filter_index);
}

void Tvx_file_panel::on_filter_changed(int filter_index, UnicodeString &name)
{
    name = vx::filesystem::filename(pretty_filename(name, filter_index).str());
}

void Tvx_file_panel::take(UnicodeString const &name)
{
    bool const changed = vx_compare_text(name, f_filename) != 0;
    set_wfilename(name.c_str());
    if (changed)
        on_changed(this);
}
