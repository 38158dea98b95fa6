#include "host/gallery/gallery_dialog.h"
#include "host/gallery/gallery_page.h"
#include "host/gallery/sample_fields.h"
#include "style_manager/lists/stl_mngr_list_edit.h"
#include "style_manager/shell/typed_stl_mngr_edits.h"
#include "styles/label/label_style_edit_dlg.h"
#include "styles/label/label_style_effects_dlg.h"
#include "styles/label/label_style_new_class_dlg.h"
#include "styles/label/label_style_panel.h"

#include "platform/base/owned.h"
#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/layers/vx_tld_lr2d.h"
#include "platform/styles/vx_scale_prm.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_stl_mngr_list.h"
#include "platform/styles/vx_stl_prm.h"
#include "platform/styles/vx_txt_settings.h"
#include "platform/styles/vx_txt_style.h"
#include "platform/styles/vx_val_scale.h"

#include <iterator>
#include <string_view>

// The editor of labels with its dialogs, and the managers of texts.

namespace {
constexpr int c_edge = 16;
constexpr int c_gap = 12;
constexpr int c_width = 360;
constexpr int c_height = 400;

using owned_layer = vx::owned<Ivx_layer, &vx_lr2d_destroy>;

/// The text layer of a layer without data; it lives as long as the program.
Ivx_layer *labels_of(char const *key)
{
    static owned_layer const areas(vx_lr2d_create(c_lr_key_shp_pgn));
    static owned_layer const lines(vx_lr2d_create(c_lr_key_shp_pln));
    Ivx_layer *const text =
        vx_shp_lr2d_get_text_layer_ptr(std::string_view(key) == c_lr_key_shp_pln ? lines.get() : areas.get());
    vx_lr2d_set_visible(text, true);
    return text;
}

constexpr sample_fields c_fields{"NAME", "POPULATION"};

void add_panel(TWinControl *page)
{
    auto *const panel = new Tvx_label_style_panel(page);
    panel->SetParent(page);
    panel->SetBounds(c_edge, c_edge, c_width, c_height);
    panel->create();
    panel->load_res();
    c_fields.bind(panel);
    panel->set_layer(labels_of(c_lr_key_shp_pgn));
    panel->update_controls();
}

/// Larger places in larger letters.
void fill_scale(void *scale)
{
    wchar_t const *const places[] = {L"city", L"town", L"village"};
    double size = 5;
    vx_val_scale_set_size(scale, std::size(places));
    for (unsigned i = 0; i < std::size(places); ++i) {
        vx_val_scale_set_text_w(scale, i, places[i]);
        vx_val_scale_set_caption_w(scale, i, places[i]);
        void *const prm = vx_scale_prm_get_stl_prm_ptr(vx_val_scale_get_scale_prm_ptr(scale, i));
        vx_txt_style_set_font_size(vx_stl_prm_get_txt_pnt_style_ptr(prm, false), size);
        size -= 1;
    }
}

void add_managers(TWinControl *page)
{
    static owned_layer const points(vx_lr2d_create(c_lr_key_shp_pnt));
    void *const list = vx_txt_settings_get_stl_mngr_list(vx_shp_lr2d_get_txt_settings(points.get()));
    vx_stl_mngr_list_set_visible(list, true);
    void *const mngr = vx_stl_mngr_list_get_active_mngr(list);
    vx_txt_stl_mngr_init(mngr, L"NAME");
    vx_stl_mngr_set_mode(mngr, c_stl_mngr_mode_value);
    vx_stl_mngr_set_val_prop_name_w(mngr, L"NAME");
    fill_scale(vx_stl_mngr_get_val_scale_ptr(mngr));
    auto *const strip = new Tvx_txt_stl_mngr_list_edit(page, true);
    strip->SetParent(page);
    strip->create();
    strip->SetBounds(c_edge + c_width + c_gap, c_edge, c_width, strip->GetHeight());
    strip->load_res();
    strip->set_lr2d(points.get());
    strip->set_stl_mngr_list(list);
    strip->update_controls();
    auto *const edit = new Tvx_txt_pnt_stl_mngr_edit(page);
    edit->SetParent(page);
    edit->SetBounds(strip->GetLeft(), c_edge + strip->GetHeight(), c_width, c_height - strip->GetHeight());
    edit->create();
    edit->load_res();
    c_fields.bind(edit);
    edit->enable_selection_style(false);
    edit->set_stl_mngr(mngr);
    edit->update_controls();
}

void fill(TWinControl *page)
{
    add_panel(page);
    add_managers(page);
}

template <class Dialog>
void show(char const *key)
{
    Dialog dialog(nullptr);
    dialog.create_controls();
    dialog.load_res();
    dialog.set_layer(labels_of(key));
    dialog.update_controls();
    if (dialog.show_pos(0, 0, false) == mrOk)
        dialog.return_controls();
}

void show_new_class()
{
    Tvx_label_style_new_class_dlg dialog(nullptr);
    dialog.create_controls();
    static_cast<void>(dialog.show_pos(0, 0));
}

gallery_page const g_page(60, L"Labels", &fill);
gallery_dialog const g_effects(170, L"Effects of labels",
                               [] { show<Tvx_label_style_effects_dlg>(c_lr_key_shp_pgn); });
gallery_dialog const g_places(171, L"Places of labels",
                              [] { show<Tvx_label_style_edit_dlg>(c_lr_key_shp_pgn); });
gallery_dialog const g_lines(172, L"Places along lines",
                             [] { show<Tvx_label_style_edit_dlg>(c_lr_key_shp_pln); });
gallery_dialog const g_class(173, L"New class of labels", &show_new_class);
} // namespace
