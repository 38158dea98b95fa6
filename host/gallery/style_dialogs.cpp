#include "controls/prop/figure_dialog_form.h"
#include "host/gallery/gallery_dialog.h"
#include "styles/simple/style_dialog.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_wstrings.h"
#include "platform/styles/vx_base_style.h"
#include "platform/styles/vx_style.h"
#include "platform/styles/vxk_styles.h"
#include "platform/winapi/library.h"

// The dialogs of styles, of the library and of the module that it asks for most of them.

namespace {
using owned_pnt = vx::owned<void, &vx_pnt_style_destroy>;
using owned_pln = vx::owned<void, &vx_pln_style_destroy>;
using owned_pgn = vx::owned<void, &vx_pgn_style_destroy>;
using owned_txt = vx::owned<void, &vx_txt_style_destroy>;
using owned_mngr = vx::owned<void, &vx_stl_mngr_destroy>;
using owned_list = vx::owned<void, &vx_stl_mngr_list_destroy>;
using owned_texts = vx::owned<void, &vx_wstrings_destroy>;

/// The module is looked for among those that are loaded.
void load_dialogs()
{
    static auto *const module = LoadLibraryW(L"vxk_scene2d_editor_bdl.dll");
    (void)module;
}

void edit_point(bool figure, bool complex)
{
    load_dialogs();
    owned_pnt const style(vx_pnt_style_create());
    void *base = vx_pnt_style_get_bpnt_style_ptr(style.get());
    vx_bpnt_style_set_use_figure(base, figure);
    vx_bpnt_style_set_use_complex(base, complex);
    (void)vx_pnt_style_dialog(0, 0, style.get());
}

void edit_line()
{
    load_dialogs();
    owned_pln const style(vx_pln_style_create());
    (void)vx_pln_style_dialog(0, 0, style.get());
}

void edit_polygon()
{
    load_dialogs();
    owned_pgn const style(vx_pgn_style_create());
    (void)vx_pgn_style_dialog(0, 0, style.get());
}

void edit_text(bool (*dialog)(int, int, void *, void *))
{
    load_dialogs();
    owned_txt const style(vx_txt_style_create());
    void *const lines = vx_txt_style_get_txt_stl_line(style.get());
    vx_txt_stl_line_add(lines, 2);
    vx_txt_stl_line_set_str(lines, L"NAME", 0);
    vx_txt_stl_line_set_str(lines, L"inhabitants", 1);
    owned_texts const properties(vx_wstrings_create());
    for (wchar_t const *name : {L"NAME", L"POPULATION"})
        vx_wstrings_add(properties.get(), name);
    (void)dialog(0, 0, style.get(), properties.get());
}

void edit_common()
{
    load_dialogs();
    owned_mngr const manager(vx_stl_mngr_create("txt_pnt_style"));
    (void)vx_txt_common_style_dialog(0, 0, manager.get());
}

void edit_managers()
{
    load_dialogs();
    owned_list const list(vx_stl_mngr_list_create("pnt_style"));
    (void)vx_stl_mngr_list_add(list.get());
    (void)vx_stl_mngr_list_setting_dialog(0, 0, list.get());
}

void choose_figure()
{
    int figure = 7;
    (void)vx_figure_dialog(nullptr, 0, 0, &figure);
}

gallery_dialog const g_point(30, L"Point style", [] { edit_point(true, false); });
gallery_dialog const g_symbol(31, L"Character as point", [] { edit_point(false, false); });
gallery_dialog const g_complex(32, L"Complex point style", [] { edit_point(true, true); });
gallery_dialog const g_line(33, L"Line style", edit_line);
gallery_dialog const g_polygon(34, L"Polygon style", edit_polygon);
gallery_dialog const g_text(35, L"Text style of points", [] { edit_text(vx_txt_pnt_style_dialog); });
gallery_dialog const g_line_text(36, L"Text style of lines", [] { edit_text(vx_txt_pln_style_dialog); });
gallery_dialog const g_polygon_text(37, L"Text style of polygons",
                                    [] { edit_text(vx_txt_pgn_style_dialog); });
gallery_dialog const g_common(38, L"What texts have in common", edit_common);
gallery_dialog const g_managers(39, L"Managers of a list", edit_managers);
gallery_dialog const g_figure(40, L"Figure", choose_figure);
} // namespace
