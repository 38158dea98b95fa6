#include "host/gallery/gallery_dialog.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_fnt_type.h"
#include "platform/basic/vx_palette.h"
#include "platform/calculator/vx_calc_filter.h"
#include "platform/dialogs/vx_dlgs.h"
#include "platform/dialogs/vx_file_dialog.h"
#include "platform/dialogs/vx_msgs.h"
#include "platform/dialogs/vx_progress.h"
#include "platform/styles/vx_stl_mngr.h"

#include <chrono>
#include <thread>
#include <utility>
#include <vector>

namespace {
void choose_color(int format)
{
    static Tvx_color color = {51, 102, 153, 140};
    (void)vx_color_dialog(nullptr, 0, 0, &color, format);
}

vx_fnt_type &current_font()
{
    static vx_fnt_type font = [] {
        vx_fnt_type made;
        made.set_wname(L"DejaVu Serif");
        made.italic = true;
        return made;
    }();
    return font;
}

void choose_font()
{
    (void)vx_font_dialog(nullptr, 0, 0, &current_font());
}

void choose_character()
{
    static int symbol = 0x2302;
    static vx_fnt_type font = [] {
        vx_fnt_type made;
        made.set_wname(L"DejaVu Sans");
        return made;
    }();
    (void)vx_charmap_dialog(nullptr, 0, 0, &font, &symbol);
}

void choose_file(bool save)
{
    Tvx_file_dialog_prm prm;
    prm.save = save;
    prm.filter = L"dBase|*.dbf|*.*|*.*";
    prm.file_name = L"/usr/share/";
    (void)vx_file_dialog(nullptr, 0, 0, &prm);
}

void edit_filter()
{
    vx::owned<void, &vx_calc_filter_destroy> const filter(vx_calc_filter_create());
    vx_calc_filter_from_str(filter.get(), L"\"LAND\" EQUAL \"forest\" AND \"AREA\" GREATER \"100\" OR "
                                          L"\"NAME\" CONTAINS NOCASE \"wood\"");
    (void)vx_attr_filter_dialog(filter.get(), nullptr);
}

void edit_rotation()
{
    vx::owned<void, &vx_stl_mngr_destroy> const areas(vx_stl_mngr_create("pgn_style"));
    vx_stl_mngr_set_rotate_hatch_flag(areas.get(), true);
    vx_stl_mngr_set_rotate_prop_name(areas.get(), "ANGLE");
    vx_stl_mngr_set_rotate_start(areas.get(), 1);
    vx_stl_mngr_set_rotate_dir(areas.get(), 1);
    vx_style_advansed_setting_dialog(areas.get(), L"");
}

void edit_palettes()
{
    static vx::owned<void, &vx_clr_palettes_destroy> const palettes = [] {
        vx::owned<void, &vx_clr_palettes_destroy> list(vx_clr_palettes_create());
        std::pair<wchar_t const *, std::vector<Tvx_color>> const made[] = {
            {L"Soil", {{247, 240, 214, 255}, {201, 160, 96, 255}, {110, 68, 36, 255}}},
            {L"Coast", {{12, 48, 96, 255}, {96, 180, 220, 255}, {246, 232, 180, 255}, {60, 140, 80, 255}}},
            {L"Warning", {{40, 160, 80, 255}, {250, 210, 60, 255}, {210, 40, 40, 255}}},
        };
        for (auto const &[name, colors] : made) {
            void *const palette = vx_clr_palettes_add(list.get());
            vx_clr_palette_set_wcaption(palette, name);
            vx_clr_palette_set_size(palette, static_cast<unsigned>(colors.size()));
            for (unsigned i = 0; i < colors.size(); ++i)
                vx_clr_palette_set_color(palette, i, colors[i]);
        }
        return list;
    }();
    (void)vx_clr_palettes_dialog(palettes.get(), 0);
}

/// Ten seconds of work in two levels.
void show_progress()
{
    Tvx_progress files(L"roads.shp, rivers.shp, lakes.shp");
    for (int file = 0; file < 5 && !files.is_stopped(); ++file) {
        files.set(file * 20);
        Tvx_progress records(L"rivers.shp");
        for (int i = 0; i < 200 && !records.is_stopped(); ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
            records.set(i / 2);
        }
    }
}

gallery_dialog const g_color(10, L"Colour", [] { choose_color(c_color_format_rgba); });
gallery_dialog const g_plain_color(11, L"Colour without opacity", [] { choose_color(c_color_format_rgb); });
gallery_dialog const g_font(12, L"Font", choose_font);
gallery_dialog const g_character(13, L"Character", choose_character);
gallery_dialog const g_filter(21, L"Filter", edit_filter);
gallery_dialog const g_rotation(22, L"Rotation by an attribute", edit_rotation);
gallery_dialog const g_palettes(23, L"User palettes", edit_palettes);
gallery_dialog const g_open(14, L"Open", [] { choose_file(false); });
gallery_dialog const g_save(15, L"Save", [] { choose_file(true); });
gallery_dialog const g_message(16, L"Message", [] { vx_show_wmessage(L"lakes.shp"); });
gallery_dialog const g_warning(17, L"Warning", [] { vx_show_wwarning(L"lakes.shp"); });
gallery_dialog const g_error(18, L"Error", [] { vx_show_werror(L"lakes.shp"); });
gallery_dialog const g_question(19, L"Question",
                                [] { (void)vx_yesno(L"Remove the layer \u201crivers\u201d?"); });
gallery_dialog const g_progress(20, L"Progress", show_progress);
} // namespace
