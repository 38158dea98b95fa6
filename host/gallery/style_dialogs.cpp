#include "controls/prop/figure_dialog_form.h"
#include "host/gallery/gallery_dialog.h"
#include "styles/complex/edit_cpx_style.h"
#include "styles/libraries/lib_panel.h"
#include "styles/libraries/stl_lib_search_form.h"
#include "styles/libraries/style_libs_form.h"
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

/// A point in a ring, with a text symbol.
void add_point_layers(void *style)
{
    void *const layers = vx_cpx_style_get_style_lrs_ptr(style);
    void *const ring = vx_style_lrs_add_lr(layers, c_pnt_figr_style_lr);
    vx_pnt_figr_lr_set_lr_figure(ring, 1);
    vx_pnt_figr_lr_set_size_x(ring, 9);
    vx_pnt_figr_lr_set_size_y(ring, 9);
    vx_pnt_figr_lr_set_line_width(ring, 0.6);
    void *const symbol = vx_style_lrs_add_lr(layers, c_pnt_symb_style_lr);
    vx_pnt_symb_lr_set_size(symbol, 5);
    vx_pnt_symb_lr_set_symbol(symbol, L'H');
    vx_pnt_symb_lr_set_color(symbol, vx_clr_init_rgb(200, 40, 40));
}

void edit_complex_point(bool symbol_first)
{
    vx::owned<void, &vx_cpx_pnt_style_destroy> const style(vx_cpx_pnt_style_create());
    add_point_layers(style.get());
    if (symbol_first)
        vx_style_lrs_move_lr(vx_cpx_style_get_style_lrs_ptr(style.get()), 1, 0);
    (void)vx_edit_cpx_pnt_style(style.get());
}

/// A railway: sleepers over a line.
void edit_complex_line(bool template_first)
{
    vx::owned<void, &vx_cpx_pln_style_destroy> const style(vx_cpx_pln_style_create());
    void *const layers = vx_cpx_style_get_style_lrs_ptr(style.get());
    vx_pln_line_lr_set_width(vx_style_lrs_add_lr(layers, c_pln_line_style_lr), 0.4);
    void *const sleepers = vx_style_lrs_add_lr(layers, c_pln_tplt_style_lr);
    vx_pln_tplt_lr_set_template(sleepers, "03x");
    vx_pln_tplt_lr_set_width(sleepers, 0.4);
    if (template_first)
        vx_style_lrs_move_lr(layers, 1, 0);
    (void)vx_edit_cpx_pln_style(style.get());
}

void add_wood_fill(void *layers)
{
    vx_pgn_fill_lr_set_color(vx_style_lrs_add_lr(layers, c_pgn_fill_style_lr),
                             vx_clr_init_rgb(210, 235, 200));
}

void add_hatch(void *layers)
{
    void *const hatch = vx_style_lrs_add_lr(layers, c_pgn_htch_style_lr);
    void *const line = vx_style_lrs_add_lr(
        vx_cpx_style_get_style_lrs_ptr(vx_pgn_htch_lr_get_cpx_pln_style_ptr(hatch)), c_pln_line_style_lr);
    vx_pln_line_lr_set_color(line, vx_clr_init_rgb(120, 170, 110));
}

void add_trees(void *layers, bool complex)
{
    void *const trees = vx_style_lrs_add_lr(layers, c_pgn_spot_style_lr);
    vx_pgn_spot_lr_set_use_cpx_pnt(trees, complex);
    vx_pgn_spot_lr_set_dx(trees, 7);
    vx_pgn_spot_lr_set_dy(trees, 7);
    vx_pgn_spot_lr_set_random_x(trees, true);
    vx_pgn_spot_lr_set_point_size(trees, 1.5);
    vx_pgn_spot_lr_set_point_clr(trees, vx_clr_init_rgb(30, 110, 50));
    void *const crown = vx_style_lrs_add_lr(
        vx_cpx_style_get_style_lrs_ptr(vx_pgn_spot_lr_get_cpx_pnt_style_ptr(trees)), c_pnt_figr_style_lr);
    vx_pnt_figr_lr_set_lr_figure(crown, 7);
    vx_pnt_figr_lr_set_color(crown, vx_clr_init_rgb(30, 110, 50));
}

/// A wood; the layer that is drawn first is the one that is shown.
void edit_complex_fill(void (*add)(void *layers))
{
    vx::owned<void, &vx_cpx_pgn_style_destroy> const style(vx_cpx_pgn_style_create());
    void *const layers = vx_cpx_style_get_style_lrs_ptr(style.get());
    add(layers);
    (void)vx_edit_cpx_pgn_style(style.get());
}

/// A library of three styles in two groups, and the second one that is empty.
void fill_library(void *libs)
{
    void *const lib = vx_style_libs_add_lib(libs, L"Town");
    vx_style_libs_add_lib(libs, L"Empty");
    void *const root = vx_style_item_get_style_items_ptr(vx_style_lib_get_root_item_ptr(lib));
    void *const signs = vx_style_items_add(root, L"Signs", -1, -1);
    void *const point = vx_style_list_add_idx_style(vx_style_lib_get_pnt_list_ptr(lib), 7, 1);
    void *const base = vx_pnt_style_get_bpnt_style_ptr(vx_idx_pnt_style_get_pnt_style_ptr(point));
    vx_bpnt_style_set_use_complex(base, true);
    add_point_layers(vx_bpnt_style_get_complex_style(base));
    vx_style_items_add(vx_style_item_get_style_items_ptr(signs), L"Hospital", 7, 1);
    void *const wood = vx_style_list_add_idx_style(vx_style_lib_get_pgn_list_ptr(lib), 12, 1);
    void *const fill = vx_pgn_style_get_bpgn_style_ptr(vx_idx_pgn_style_get_pgn_style_ptr(wood));
    vx_bpgn_style_set_use_complex(fill, true);
    void *const layers = vx_cpx_style_get_style_lrs_ptr(vx_bpgn_style_get_complex_style(fill));
    add_wood_fill(layers);
    add_trees(layers, true);
    vx_style_items_add(root, L"Wood", 12, 1);
}

/// The browser with a style in front; those of the process are read again afterwards.
void browse_libraries(int index, void (Tvx_style_libs_form::*set_target)(void *), void *target)
{
    auto const loader = vx_global_lib_styles_set_loader([](void *libs) {
        fill_library(libs);
        return true;
    });
    {
        Tvx_style_libs_form form(nullptr);
        (form.*set_target)(target);
        form.update_controls();
        form.get_lib_panel()->set_index_ver(index, 1);
        (void)form.show_modal();
    }
    vx_global_lib_styles_set_loader(loader);
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
gallery_dialog const g_figure_layer(41, L"Layers of a point", [] { edit_complex_point(false); });
gallery_dialog const g_symbol_layer(42, L"Layer of a font symbol", [] { edit_complex_point(true); });
gallery_dialog const g_line_layer(43, L"Layers of a line", [] { edit_complex_line(false); });
gallery_dialog const g_template_layer(44, L"Layer by a template", [] { edit_complex_line(true); });
gallery_dialog const g_fill_layer(45, L"Layers of a polygon", [] {
    edit_complex_fill([](void *layers) {
        add_wood_fill(layers);
        add_hatch(layers);
        add_trees(layers, false);
    });
});
gallery_dialog const g_hatch_layer(46, L"Layer of a hatch", [] {
    edit_complex_fill([](void *layers) {
        add_hatch(layers);
        add_trees(layers, true);
    });
});
gallery_dialog const g_spot_layer(47, L"Layer of spots", [] {
    edit_complex_fill([](void *layers) {
        add_trees(layers, false);
        add_hatch(layers);
    });
});
gallery_dialog const g_symbol_spot_layer(48, L"Layer of symbols", [] {
    edit_complex_fill([](void *layers) {
        add_trees(layers, true);
        add_hatch(layers);
    });
});
gallery_dialog const g_library(49, L"Style libraries", [] {
    owned_pgn const style(vx_pgn_style_create());
    browse_libraries(12, &Tvx_style_libs_form::set_pgn_style, style.get());
});
gallery_dialog const g_library_point(50, L"Style libraries, another kind", [] {
    owned_pgn const style(vx_pgn_style_create());
    browse_libraries(7, &Tvx_style_libs_form::set_pgn_style, style.get());
});
gallery_dialog const g_library_search(51, L"Search in a library", [] {
    Tvx_stl_lib_search_form form(nullptr);
    form.create_controls();
    (void)form.show_pos(0, 0);
});
} // namespace
