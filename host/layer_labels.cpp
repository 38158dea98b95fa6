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
#include "platform/styles/vx_txt_settings.h"

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

bool vx_layer_has_labels(Ivx_layer *layer)
{
    Ivx_layer *const text = labels_of(layer);
    bool const chosen = vx_lr2d_get_visible(text) || vx_dtld_lr2d_count_text_class(text) > 1 ||
                        (text && !is_new(vx_dtld_lr2d_get_text_class(text)));
    return chosen && !vx_layer_labels_caption(layer).isEmpty();
}

QString vx_layer_labels_caption(Ivx_layer *layer)
{
    Ivx_layer *const text = labels_of(layer);
    QStringList names;
    for (int i = 0; i < vx_dtld_lr2d_count_text_class(text); ++i)
        if (QString const name = property_of(text, i); !name.isEmpty() && !names.contains(name))
            names << name;
    return names.isEmpty() ? QString()
                           : vx_map_caption(c_map_labels_of).arg(names.join(QStringLiteral(", ")));
}

bool vx_layer_labels_visible(Ivx_layer *layer)
{
    return vx_lr2d_get_visible(labels_of(layer));
}

void vx_layer_labels_set_visible(Ivx_layer *layer, bool visible)
{
    vx_lr2d_set_visible(labels_of(layer), visible);
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
    vx_layer_labels_set_visible(layer, vx_layer_labels_visible(like));
}

bool vx_layer_labels_dialog(Ivx_layer *layer, int x, int y)
{
    Ivx_layer *const text = labels_of(layer);
    if (!text)
        return false;
    if (!vx_layer_has_labels(layer)) {
        vx_lr2d_set_visible(text, true);
        vx_textlr_info_set_outline(vx_dtld_lr2d_get_text_class(text), true, c_rim_color, c_rim_mm);
    }
    auto const form =
        std::make_unique<labels_form>(text, vx_map_caption(c_map_labels_title).arg(name_of(layer)));
    return form->show_pos(x, y) == mrOk;
}
