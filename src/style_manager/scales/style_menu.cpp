#include "style_manager/scales/style_menu.h"

#include "captions/scale_menus.h"
#include "captions/style_manager.h"
#include "data/filesystem/tutils.h"
#include "scale_engine/range/range_scale_invert.h"
#include "scale_engine/value/value_scale_invert.h"
#include "style_manager/api/style_mode.h"
#include "style_manager/scales/detail/palette_swatch.h"
#include "style_manager/scales/detail/scale_rows.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/basic/vx_res.h"
#include "platform/basic/vx_wstrings.h"
#include "platform/dialogs/vx_dlgs.h"
#include "platform/storage/file_names.h"
#include "platform/storage/vx_ini_data.h"
#include "platform/storage/vx_xml_save_2d.h"
#include "platform/styles/vx_global_lib_styles.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_stl_prm.h"
#include "platform/styles/vx_val_scale.h"
#include "platform/toolkit/core/pixel_ratio.h"
#include "platform/toolkit/core/screen.h"
#include "platform/toolkit/graphics/bitmap.h"

#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace {
constexpr int c_sample_size = 16;
constexpr std::size_t c_longest_name = 60; ///< characters of a palette's name in the menu

using owned_ini = vx::owned<Ivx_ini_data, &vx_ini_data_destroy>;
using owned_xml = vx::owned<Ivx_xml_data, &vx_xml_save_2d_destroy>;
using owned_strings = vx::owned<void, &vx_wstrings_destroy>;
using owned_prm = vx::owned<void, &vx_stl_prm_destroy>;

/// A built-in palette as the menu offers it.
struct palette_line
{
    Tvx_clr_palette_idx idx;
    wchar_t const *text;
    int caption;
    bool gradient; ///< along the palette
    bool random;   ///< its colours in an order by chance
};
constexpr palette_line c_palette_lines[] = {
    {c_palette_white_gray, L"White_gray", c_menu_palette_white_gray, true, false},
    {c_palette_white_red, L"White_red", c_menu_palette_white_red, true, false},
    {c_palette_white_yellow, L"White_yellow", c_menu_palette_white_yellow, true, false},
    {c_palette_white_green, L"White_green", c_menu_palette_white_green, true, false},
    {c_palette_white_blue, L"White_blue", c_menu_palette_white_blue, true, false},
    {c_palette_blue_white_red, L"Blue_white_red pallete", c_menu_palette_blue_white_red, true, false},
    {c_palette_red_white_blue, L"Red_white_blue pallete", c_menu_palette_red_white_blue, true, false},
    {c_palette_green_white_brown, L"Green_white_brown pallete", c_menu_palette_green_white_brown, true,
     false},
    {c_palette_different, L"Different colors", c_menu_palette_different, false, true},
    {c_palette_fresh, L"Fresh palette", c_menu_palette_fresh, true, true},
    {c_palette_calm, L"Calm palette", c_menu_palette_calm, true, true},
    {c_palette_red, L"Red palette", c_menu_palette_red, true, true},
    {c_palette_orange_yellow, L"Orange-yellow palette", c_menu_palette_orange_yellow, true, true},
    {c_palette_red_black, L"Red-black palette", c_menu_palette_red_black, true, false},
    {c_palette_green, L"Green palette", c_menu_palette_green, true, true},
    {c_palette_turquoise, L"Turquoise palette", c_menu_palette_turquoise, true, true},
    {c_palette_blue, L"Blue palette", c_menu_palette_blue, true, true},
    {c_palette_violet, L"Violet palette", c_menu_palette_violet, true, true},
    {c_palette_rainbow, L"Rainbow palette", c_menu_palette_rainbow, true, true},
    {c_palette_gentle_rainbow, L"Gentle Rainbow palette", c_menu_palette_gentle_rainbow, true, true},
    {c_palette_height_light, L"Height_light", c_menu_palette_height_light, true, false},
    {c_palette_height_dark, L"Height_dark", c_menu_palette_height_dark, true, false},
    {c_palette_height_depth, L"Height_depth", c_menu_palette_height_depth, true, false},
    {c_palette_height_depth_2, L"Height_depth_2", c_menu_palette_height_depth_2, true, false},
};

/// A name of the user's as a line of a menu: one line, of no mark of the menu's own.
UnicodeString menu_text(std::wstring const &name)
{
    std::wstring text;
    for (wchar_t const c : name.substr(0, c_longest_name)) {
        if (c == L'&')
            text += c;
        text += c < L' ' ? L' ' : c;
    }
    if (name.size() > c_longest_name)
        text += L"\u2026";
    return text == L"-" ? L"- " : text; // alone it would be a separator
}

TTag tag_of(TObject *sender)
{
    return static_cast<TMenuItem *>(sender)->GetTag();
}

/// Fisher and Yates.
void shuffle(std::vector<Tvx_color> &colors)
{
    for (std::size_t i = 1; i < colors.size(); ++i)
        std::swap(colors[i], colors[static_cast<std::size_t>(std::rand()) % (i + 1)]);
}

/// The number that all of the text spells, without its fraction; false for another text.
bool read_code(std::wstring const &text, int &code)
{
    bool is_number = false;
    double const whole = std::trunc(Tutils::str2dbl(text, &is_number));
    if (!is_number || !(std::abs(whole) <= std::numeric_limits<int>::max()))
        return false;
    code = static_cast<int>(whole);
    return true;
}
} // namespace

Tvx_style_menu::Tvx_style_menu(TComponent *owner)
    : Tvx_scale_menu(owner), f_life(std::make_shared<char const>())
{
}

void Tvx_style_menu::create()
{
    f_only_selected_item = add_item(nullptr, L"Only selected", 0,
                                    make_closure<&Tvx_style_menu::on_item_only_selected_click>(this));
    f_only_selected_item->SetAutoCheck(true);
    add_separator(nullptr);
    f_edit_item = add_item(nullptr, L"Edit style", 0, make_closure<&Tvx_style_menu::on_item_edt_click>(this));
    f_invert_item =
        add_item(nullptr, L"Invert scale", 0, make_closure<&Tvx_style_menu::on_item_invert_click>(this));
    f_clr_gradient_item = add_item(nullptr, L"Color gradient", 0,
                                   make_closure<&Tvx_style_menu::on_item_clr_gradient_click>(this));
    f_size_gradient_item = add_item(nullptr, L"Size gradient", 0,
                                    make_closure<&Tvx_style_menu::on_item_size_gradient_click>(this));
    f_transparency_gradient_item =
        add_item(nullptr, L"Transparency gradient", 0,
                 make_closure<&Tvx_style_menu::on_item_transparency_gradient_click>(this));
    f_grad_item = add_item(nullptr, L"Gradient scale", 0, {});
    f_clr_item = add_item(nullptr, L"Color scale", 0, {});
    add_palettes();
    f_symbol_item = add_item(nullptr, L"Symbol", 0, {});
    f_symbol_item->SetVisible(false);
    add_separator(nullptr);
    f_user_palettes_item = add_item(nullptr, L"User palettes", 0,
                                    make_closure<&Tvx_style_menu::on_item_user_palette_settings_click>(this));
}

void Tvx_style_menu::add_palettes()
{
    for (auto const &line : c_palette_lines) {
        auto const add = [&](Tvx_menu_item *parent, bool random, TNotifyEvent click) {
            auto *const item = add_item(parent, line.text, line.idx, click);
            vx_palette_swatch(*item->GetBitmap(), line.idx, nullptr, random);
        };
        if (line.gradient)
            add(f_grad_item, false, make_closure<&Tvx_style_menu::on_item_grad_click>(this));
        if (line.random)
            add(f_clr_item, true, make_closure<&Tvx_style_menu::on_item_clr_click>(this));
    }
    f_grad_count = f_grad_item->GetCount();
    f_clr_count = f_clr_item->GetCount();
}

void Tvx_style_menu::load_res()
{
    std::pair<Tvx_menu_item *, int> const captions[] = {
        {f_only_selected_item, c_menu_only_marked},
        {f_edit_item, c_menu_edit_style},
        {f_invert_item, c_menu_invert_scale},
        {f_clr_gradient_item, c_menu_color_gradient},
        {f_size_gradient_item, c_menu_size_gradient},
        {f_transparency_gradient_item, c_menu_transparency_gradient},
        {f_grad_item, c_menu_gradient_palettes},
        {f_clr_item, c_menu_random_palettes},
        {f_symbol_item, c_menu_symbols},
        {f_user_palettes_item, c_menu_user_palettes},
    };
    for (auto const &[item, caption] : captions)
        item->SetCaption(vx_res_get_wstr(caption));
    int grad = 0, clr = 0;
    for (auto const &line : c_palette_lines) {
        if (line.gradient)
            f_grad_item->GetItems(grad++)->SetCaption(vx_res_get_wstr(line.caption));
        if (line.random)
            f_clr_item->GetItems(clr++)->SetCaption(vx_res_get_wstr(line.caption));
    }
}

void Tvx_style_menu::set_stl_mngr(void *mngr)
{
    if (mngr != get_stl_mngr())
        f_use_for_marked_touched = false;
    Tvx_scale_menu::set_stl_mngr(mngr);
    if (!f_use_for_marked_touched)
        f_use_for_marked = stl_mngr_has_selected();
}

bool Tvx_style_menu::stl_mngr_has_selected() const
{
    return vx_stl_mngr_get_mode(get_stl_mngr()) != c_style_mode_rule &&
           Tvx_scale_rows(get_stl_mngr()).has_marked();
}

void Tvx_style_menu::update_controls()
{
    Tvx_scale_rows const rows(get_stl_mngr());
    int const first = rows.find_first(f_use_for_marked);
    f_only_selected_item->SetChecked(f_use_for_marked);
    f_edit_item->SetEnabled(first >= 0 && on_edit_style);
    show_sample(rows, first);
    for (auto *const item : {f_clr_gradient_item, f_size_gradient_item, f_transparency_gradient_item})
        item->SetEnabled(rows.get_size() > 0);
    for (auto *const item : {f_grad_item, f_clr_item})
        item->SetEnabled(first >= 0);
    show_symbols(vx_stl_mngr_get_mode(get_stl_mngr()) == c_style_mode_value);
    clear_user_palette_tools(f_grad_item, f_grad_count);
    clear_user_palette_tools(f_clr_item, f_clr_count);
    add_user_palettes();
}

/// The style that all rows are to get, as it is before it is edited.
void Tvx_style_menu::show_sample(Tvx_scale_rows const &rows, int row)
{
    TBitmap sample;
    if (row >= 0 && on_draw_style) {
        int const scale = vx_screen_pixel_scale();
        sample.SetSize(c_sample_size * scale, c_sample_size * scale);
        vx_bitmap_set_pixel_scale(sample, scale);
        on_draw_style(this, &sample, rows.get_stl_prm_ptr(static_cast<unsigned>(row)), f_sel_style);
    }
    f_edit_item->SetBitmap(&sample);
}

void Tvx_style_menu::show_symbols(bool values)
{
    f_symbol_item->Clear();
    bool const visible = on_lib_symbol_style && values;
    if (visible) {
        owned_strings const names(vx_global_lib_styles_create_name_list());
        for (unsigned i = 0, count = vx_wstrings_get_size(names.get()); i < count; ++i)
            add_item(f_symbol_item, menu_text(vx_wstrings_get_str(names.get(), i)), static_cast<TTag>(i),
                     make_closure<&Tvx_style_menu::on_item_lib_symbol_click>(this));
    }
    f_symbol_item->SetVisible(visible);
    f_symbol_item->SetEnabled(f_symbol_item->GetCount() > 0);
}

void Tvx_style_menu::clear_user_palette_tools(Tvx_menu_item *item, int keep)
{
    while (item->GetCount() > keep)
        delete item->GetItems(item->GetCount() - 1);
}

void Tvx_style_menu::add_user_palettes()
{
    vx_user_palettes_refresh();
    void *const palettes = vx_get_user_palettes();
    unsigned const count = vx_clr_palettes_get_size(palettes);
    auto const click = make_closure<&Tvx_style_menu::on_item_user_palette_click>(this);
    for (auto *const parent : {f_grad_item, f_clr_item})
        if (count > 0)
            add_separator(parent);
    for (unsigned k = 0; k < count; ++k) {
        void *const palette = vx_clr_palettes_get_palette(palettes, k);
        std::wstring name;
        Tvx_std_wstring_adapter adapter(name);
        vx_clr_palette_get_wcaption(palette, adapter);
        for (bool const random : {false, true}) {
            auto *const item =
                add_item(random ? f_clr_item : f_grad_item, menu_text(name), 2 * TTag{k} + random, click);
            item->SetEnabled(vx_clr_palette_get_size(palette) > 0);
            vx_palette_swatch(*item->GetBitmap(), 0, palette, random);
        }
    }
}

// ---- commands

void Tvx_style_menu::on_item_only_selected_click(TObject * /*sender*/)
{
    f_use_for_marked = !f_use_for_marked;
    f_use_for_marked_touched = true;
    update_controls();
}

void Tvx_style_menu::on_item_edt_click(TObject * /*sender*/)
{
    void *const mngr = get_stl_mngr();
    Tvx_scale_rows rows(mngr);
    int const first = rows.find_first(f_use_for_marked);
    if (first < 0 || !on_edit_style)
        return;
    owned_prm const copy(vx_stl_prm_clone(rows.get_stl_prm_ptr(static_cast<unsigned>(first))));
    TPoint const at = GetPopupPoint();
    std::weak_ptr<void const> const life = f_life;
    // While the dialog was open the manager may have gone, and the menu with it.
    if (!on_edit_style(this, at.X, at.Y, copy.get(), f_sel_style) || life.expired() || get_stl_mngr() != mngr)
        return;
    for (unsigned const row : rows.select(f_use_for_marked))
        rows.set_stl_prm(row, copy.get(), f_sel_style);
    call_changed();
}

void Tvx_style_menu::on_item_invert_click(TObject * /*sender*/)
{
    if (!get_stl_mngr())
        return;
    Tvx_scale_rows const rows(get_stl_mngr());
    if (rows.has_scale())
        (rows.is_range() ? &vx::task::range_scale_invert::execute : &vx::task::value_scale_invert::execute)(
            rows.get_scale(), f_use_for_marked, f_sel_style);
    call_changed();
}

void Tvx_style_menu::on_item_clr_gradient_click(TObject * /*sender*/)
{
    on_clr_gradient(this);
}

void Tvx_style_menu::on_item_size_gradient_click(TObject * /*sender*/)
{
    on_size_gradient(this);
}

void Tvx_style_menu::on_item_transparency_gradient_click(TObject * /*sender*/)
{
    on_transparency_gradient(this);
}

void Tvx_style_menu::on_item_grad_click(TObject *sender)
{
    set_color_palette(static_cast<Tvx_clr_palette_idx>(tag_of(sender)), false, nullptr);
}

void Tvx_style_menu::on_item_clr_click(TObject *sender)
{
    set_color_palette(static_cast<Tvx_clr_palette_idx>(tag_of(sender)), true, nullptr);
}

void Tvx_style_menu::on_item_user_palette_click(TObject *sender)
{
    TTag const tag = tag_of(sender);
    void *const palette =
        vx_clr_palettes_get_palette(vx_get_user_palettes(), static_cast<unsigned>(tag >> 1));
    if (palette)
        set_color_palette({}, (tag & 1) != 0, palette);
}

void Tvx_style_menu::set_color_palette(Tvx_clr_palette_idx idx, bool random, void *palette)
{
    Tvx_scale_rows const rows(get_stl_mngr());
    auto const chosen = rows.select(f_use_for_marked);
    if (chosen.empty())
        return;
    std::vector<void *> prms;
    std::vector<Tvx_color> colors;
    prms.reserve(chosen.size());
    colors.reserve(chosen.size());
    for (unsigned const row : chosen) {
        prms.push_back(rows.get_stl_prm_ptr(row));
        colors.push_back(vx_stl_prm_get_color(prms.back(), f_sel_style));
    }
    auto const count = static_cast<unsigned>(colors.size());
    if (palette)
        vx_clr_arrays_generate_palette_ex(palette, count, colors.data(), random);
    else
        vx_clr_arrays_generate_ex(idx, count, colors.data(), random && !rows.is_range());
    if (random && rows.is_range())
        shuffle(colors);
    for (std::size_t k = 0; k < prms.size(); ++k)
        vx_stl_prm_clr_set_all(prms[k], colors[k], f_sel_style);
    call_changed();
}

void Tvx_style_menu::on_item_lib_symbol_click(TObject *sender)
{
    Tvx_scale_rows const rows(get_stl_mngr());
    if (!on_lib_symbol_style || vx_stl_mngr_get_mode(get_stl_mngr()) != c_style_mode_value ||
        rows.get_size() == 0)
        return;
    auto const library = static_cast<int>(tag_of(sender));
    std::wstring text;
    Tvx_std_wstring_adapter adapter(text);
    for (unsigned const row : rows.select(f_use_for_marked)) {
        text.clear();
        vx_val_scale_get_text_w(rows.get_scale(), row, adapter);
        int code = 0;
        std::wstring caption;
        if (read_code(text, code) &&
            on_lib_symbol_style(this, library, code, rows.get_stl_prm_ptr(row), f_sel_style, caption))
            vx_val_scale_set_caption_w(rows.get_scale(), row, caption.c_str());
    }
    call_changed();
}

/// No report: the scale is as it was. The storage tells the user what goes wrong.
void Tvx_style_menu::on_item_user_palette_settings_click(TObject * /*sender*/)
{
    void *const palettes = vx_get_user_palettes();
    if (!vx_clr_palettes_dialog(palettes, -c_stl_palettes))
        return;
    owned_ini const ini(vx_ini_data_create());
    std::wstring path;
    Tvx_std_wstring_adapter adapter(path);
    auto const name = std::wstring(c_clr_palettes_basename) + c_clr_palettes_ext;
    vx_ini_data_get_storage_path(ini.get(), name.c_str(), adapter);
    owned_xml const xml(vx_xml_save_2d_create());
    vx_xml_data_save_clr_palettes(xml.get(), path.c_str(), palettes);
}
