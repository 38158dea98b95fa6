#include "host/layer_labels.h"

#include "controls/forms/dlg_form.h"
#include "host/captions.h"
#include "layer_edit/text/dtld_lr2d_edit.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/data/vx_tld_data.h"
#include "platform/layers/vx_lr2d.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/layers/vx_tld_lr2d.h"
#include "platform/layers/vx_tos_lr2d.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_stl_mngr_list.h"
#include "platform/styles/vx_stl_prm.h"
#include "platform/styles/vx_txt_settings.h"
#include "platform/styles/vx_txt_style.h"

#include <QApplication>
#include <QPainter>
#include <QPixmap>
#include <QStringList>

#include <memory>

namespace {
constexpr int c_width = 400;
constexpr int c_height = 440;
constexpr int c_symbol_px = 16;
/// Names can be read on whatever they lie.
constexpr Tvx_color c_rim_color = vx_clr_init_rgb(255, 255, 255);
constexpr double c_rim_mm = 0.3;

Ivx_layer *labels_of(Ivx_layer *layer)
{
    auto *const of_shape = vx_shp_lr2d_get_text_layer_ptr(layer);
    return of_shape ? of_shape : vx_tos_2crd_lr2d_get_text_layer_ptr(layer);
}

void *texts_of(Ivx_layer *layer)
{
    void *const of_shape = vx_shp_lr2d_get_txt_settings(layer);
    return of_shape ? of_shape : vx_tos_2crd_lr2d_get_txt_settings(layer);
}

QString property_of(Ivx_layer *text, int index)
{
    std::wstring name;
    vx_textlr_info_get_property_name(vx_dtld_lr2d_get_text_class_by_index(text, index),
                                     Tvx_std_wstring_adapter(name));
    return QString::fromStdWString(name);
}

QString name_of(Ivx_layer *layer)
{
    std::wstring name;
    vx_lr2d_get_wcaption(layer, Tvx_std_wstring_adapter(name));
    return QString::fromStdWString(name);
}

/// Whether the class is as it was made but for its property, which an editor that shows it chooses by itself.
bool is_new(void *text_class)
{
    vx::owned<void, &vx_textlr_info_destroy> const fresh(
        vx_textlr_info_create(vx_textlr_info_get_hint(text_class)));
    std::wstring name;
    vx_textlr_info_get_property_name(text_class, Tvx_std_wstring_adapter(name));
    vx_textlr_info_set_property(fresh.get(), vx_textlr_info_get_property_index(text_class), name.c_str());
    return vx_textlr_info_equal(fresh.get(), text_class);
}

bool has_same_classes(Ivx_layer *a, Ivx_layer *b)
{
    // Labels that are not seen are not worth a question.
    if (!vx_lr2d_get_visible(a) && !vx_lr2d_get_visible(b))
        return true;
    int const count = vx_dtld_lr2d_count_text_class(a);
    bool same = count == vx_dtld_lr2d_count_text_class(b) && vx_lr2d_get_visible(a) == vx_lr2d_get_visible(b);
    for (int i = 0; same && i < count; ++i)
        same = vx_textlr_info_equal(vx_dtld_lr2d_get_text_class_by_index(a, i),
                                    vx_dtld_lr2d_get_text_class_by_index(b, i));
    return same;
}

bool has_same_managers(void *a, void *b)
{
    unsigned const count = vx_stl_mngr_list_get_count(a);
    bool same = count == vx_stl_mngr_list_get_count(b) &&
                vx_stl_mngr_list_get_visible(a) == vx_stl_mngr_list_get_visible(b);
    for (unsigned i = 0; same && i < count; ++i)
        same = vx_stl_mngr_equal(vx_stl_mngr_list_get_mngr(a, i), vx_stl_mngr_list_get_mngr(b, i));
    return same;
}

/// The names of the properties of text classes.
QStringList names_of_classes(Ivx_layer *text)
{
    QStringList names;
    for (int i = 0; i < vx_dtld_lr2d_count_text_class(text); ++i)
        if (QString const name = property_of(text, i); !name.isEmpty() && !names.contains(name))
            names << name;
    return names;
}

/// The lines that the managers write; of a scale that gives each row its own, what it goes by.
QStringList names_of_managers(void *list)
{
    QStringList names;
    auto const add = [&](std::wstring const &name) {
        if (!name.empty() && !names.contains(QString::fromStdWString(name)))
            names << QString::fromStdWString(name);
    };
    for (unsigned i = 0; i < vx_stl_mngr_list_get_count(list); ++i) {
        void *const mngr = vx_stl_mngr_list_get_mngr(list, i);
        void *const prm = vx_stl_mngr_get_simple_sp_ptr(mngr);
        void *lines = nullptr;
        for (auto const style : {&vx_stl_prm_get_txt_pnt_style_ptr, &vx_stl_prm_get_txt_pln_style_ptr,
                                 &vx_stl_prm_get_txt_pgn_style_ptr})
            if (void *const found = style(prm, false))
                lines = vx_txt_style_get_txt_stl_line(found);
        std::wstring name;
        for (unsigned line = 0; line < vx_txt_stl_line_count(lines); ++line) {
            vx_txt_stl_line_get_str(lines, Tvx_std_wstring_adapter(name), line);
            add(name);
        }
        name.clear();
        if (vx_stl_mngr_get_mode(mngr) == c_stl_mngr_mode_value)
            vx_stl_mngr_get_val_prop_name_w(mngr, Tvx_std_wstring_adapter(name));
        else if (vx_stl_mngr_get_mode(mngr) == c_stl_mngr_mode_range)
            vx_stl_mngr_get_rng_prop_name_w(mngr, Tvx_std_wstring_adapter(name));
        if (names.isEmpty())
            add(name);
    }
    return names;
}

/// One line below the layer: labels of text classes, or texts of managers.
struct written
{
    Tvx_map_caption caption;
    QString names;
};

/// Whether the user has said what the text classes write.
bool has_labels(Ivx_layer *layer)
{
    Ivx_layer *const text = labels_of(layer);
    bool const chosen = vx_lr2d_get_visible(text) || vx_dtld_lr2d_count_text_class(text) > 1 ||
                        (text && !is_new(vx_dtld_lr2d_get_text_class(text)));
    return chosen && !names_of_classes(text).isEmpty();
}

std::vector<written> written_at(Ivx_layer *layer)
{
    std::vector<written> all;
    QString const comma = QStringLiteral(", ");
    if (has_labels(layer))
        all.push_back({c_map_labels_of, names_of_classes(labels_of(layer)).join(comma)});
    if (QStringList const names = names_of_managers(vx_txt_settings_get_stl_mngr_list(texts_of(layer)));
        !names.isEmpty())
        all.push_back({c_map_texts_of, names.join(comma)});
    return all;
}

bool is_visible(Ivx_layer *layer, Tvx_map_caption what)
{
    return what == c_map_labels_of
               ? vx_lr2d_get_visible(labels_of(layer))
               : vx_stl_mngr_list_get_visible(vx_txt_settings_get_stl_mngr_list(texts_of(layer)));
}

void set_visible(Ivx_layer *layer, Tvx_map_caption what, bool visible)
{
    if (what == c_map_labels_of)
        vx_lr2d_set_visible(labels_of(layer), visible);
    else
        vx_stl_mngr_list_set_visible(vx_txt_settings_get_stl_mngr_list(texts_of(layer)), visible);
}

/// The editor of text classes in a window of its own.
class labels_form final : public Tvx_dlg_form
{
public:
    labels_form(Ivx_layer *text, QString caption) : Tvx_dlg_form(nullptr), f_caption(std::move(caption))
    {
        SetBounds(0, 0, c_width, c_height);
        f_page = new Tvx_dtld_lr2d_edit(this);
        f_page->SetParent(get_content_panel());
        f_page->SetAlign(alClient);
        f_page->create();
        f_page->set_lr2d(text);
    }
    void load_res() override
    {
        Tvx_dlg_form::load_res();
        SetCaption(f_caption.toStdWString().c_str());
        f_page->load_res();
        f_page->update_controls();
    }

private:
    Tvx_dtld_lr2d_edit *f_page;
    QString f_caption;
};
} // namespace

bool vx_layer_can_label(Ivx_layer *layer)
{
    return labels_of(layer) != nullptr;
}

unsigned vx_layer_labels_count(Ivx_layer *layer)
{
    return static_cast<unsigned>(written_at(layer).size());
}

QString vx_layer_labels_caption(Ivx_layer *layer, unsigned index)
{
    auto const all = written_at(layer);
    return index < all.size() ? vx_map_caption(all[index].caption).arg(all[index].names) : QString();
}

bool vx_layer_labels_visible(Ivx_layer *layer, unsigned index)
{
    auto const all = written_at(layer);
    return index < all.size() && is_visible(layer, all[index].caption);
}

void vx_layer_labels_set_visible(Ivx_layer *layer, unsigned index, bool visible)
{
    if (auto const all = written_at(layer); index < all.size())
        set_visible(layer, all[index].caption, visible);
}

void vx_layer_labels_take_visible(Ivx_layer *layer, Ivx_layer *like, unsigned index)
{
    if (auto const all = written_at(like); index < all.size())
        set_visible(layer, all[index].caption, is_visible(like, all[index].caption));
}

QIcon vx_layer_labels_symbol()
{
    double const ratio = qApp->devicePixelRatio();
    QPixmap picture(QSize(c_symbol_px, c_symbol_px) * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    QFont font = QApplication::font();
    font.setPixelSize(c_symbol_px - 3);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(QColor(0x3d, 0x44, 0x4d));
    painter.drawText(QRect(0, 0, c_symbol_px, c_symbol_px), Qt::AlignCenter, QStringLiteral("A"));
    return picture;
}

bool vx_layer_has_labels_of(Ivx_layer *layer, Ivx_layer *like)
{
    return has_same_classes(labels_of(layer), labels_of(like)) &&
           has_same_managers(vx_txt_settings_get_stl_mngr_list(texts_of(layer)),
                             vx_txt_settings_get_stl_mngr_list(texts_of(like)));
}

void vx_layer_copy_labels(Ivx_layer *layer, Ivx_layer *like)
{
    vx_txt_settings_assign(texts_of(layer), texts_of(like));
    if (!vx_layer_can_label(like))
        return;
    vx_dtld_lr2d_assign_text_classes(labels_of(layer), labels_of(like));
    set_visible(layer, c_map_labels_of, is_visible(like, c_map_labels_of));
}

bool vx_layer_labels_dialog(Ivx_layer *layer, int x, int y)
{
    Ivx_layer *const text = labels_of(layer);
    if (!text)
        return false;
    if (!has_labels(layer)) {
        vx_lr2d_set_visible(text, true);
        vx_textlr_info_set_outline(vx_dtld_lr2d_get_text_class(text), true, c_rim_color, c_rim_mm);
    }
    auto const form =
        std::make_unique<labels_form>(text, vx_map_caption(c_map_labels_title).arg(name_of(layer)));
    return form->show_pos(x, y) == mrOk;
}
