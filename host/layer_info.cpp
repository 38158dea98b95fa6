#include "host/layer_info.h"

#include "data/connection/connection_params.h"
#include "extension/binding/data_source.h"
#include "host/captions.h"
#include "host/layer_style.h"

#include "platform/base/string_adp.h"
#include "platform/basic/vx_datasource.h"
#include "platform/basic/vx_fault.h"
#include "platform/basic/vx_res.h"
#include "platform/data/vx_attr_data.h"
#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/layers/vx_tos_lr2d.h"
#include "platform/toolkit/bridge/qt_bridge.h"
#include "platform/toolkit/graphics/bitmap.h"

#include <QDir>
#include <QFileInfo>
#include <QPainter>
#include <QRegularExpression>

#include <algorithm>
#include <string>
#include <string_view>

namespace {
constexpr int c_symbol_width = 32;
constexpr int c_symbol_height = 20;
constexpr int c_symbol_classes = 4;

struct kind_name
{
    std::string_view key;
    int caption;
};
constexpr kind_name c_kinds[] = {
    {c_lr_key_shp_pnt, c_cap_kind_points},    {c_lr_key_shp_pln, c_cap_kind_lines},
    {c_lr_key_shp_pgn, c_cap_kind_polygons},  {c_lr_key_rtr, c_cap_kind_raster},
    {c_lr_key_tos_grid, c_map_kind_grid},     {c_lr_key_tos_slice, c_map_kind_slices},
    {c_lr_key_tos_grid_1d, c_map_kind_curve}, {c_lr_key_tos_2crd, c_map_kind_cloud},
};

std::string_view key_of(Ivx_layer const *layer)
{
    char const *key = vx_lr2d_get_lr_type(layer);
    return key ? key : "";
}

QString kind_of(Ivx_layer const *layer)
{
    for (kind_name const &kind : c_kinds)
        if (kind.key == key_of(layer))
            return QString::fromWCharArray(vx_res_get_wstr(kind.caption));
    return vx_host_caption(c_cap_kind_other);
}

/// How the map draws all objects of the layer, or what has the style, in true size.
bool draw_simple(QPainter &painter, Ivx_layer *layer, void *style)
{
    TBitmap sample(c_symbol_width, c_symbol_height);
    if (style ? !vx_style_draw_sample(style, &sample) : !vx_layer_draw_sample(layer, &sample))
        return false;
    painter.drawImage(0, 0, vx_qt_image(sample));
    return true;
}

/// A layer that shows classes: the colours of the first of them.
void draw_classes(QPainter &painter, Ivx_layer *layer)
{
    std::vector<Tvx_color> const colors = vx_layer_get_class_colors(layer, c_symbol_classes);
    constexpr double left = 4;
    double const width = (c_symbol_width - 2 * left) / double(std::max<std::size_t>(1, colors.size()));
    double x = left;
    for (Tvx_color const color : colors) {
        painter.fillRect(QRectF(x, 4, width, c_symbol_height - 8.0),
                         QColor(color.r, color.g, color.b, color.a));
        x += width;
    }
}

/// A layer of cells, or one that has no style here.
void draw_cells(QPainter &painter)
{
    for (int x = 0; x < 4; ++x)
        for (int y = 0; y < 2; ++y)
            painter.fillRect(QRectF(3 + 4.5 * x, 3 + 5.0 * y, 4.5, 5),
                             (x + y) % 2 ? QColor(0x9a, 0xa3, 0xad) : QColor(0xc9, 0xcf, 0xd6));
}

/// A badge in the lower right corner: a warning triangle, or a crossed circle.
void draw_mark(QPainter &painter, Tvx_layer_mark mark)
{
    constexpr double size = 11;
    QRectF const box(c_symbol_width - size - 1, c_symbol_height - size - 1, size, size);
    if (mark == c_mark_damaged || mark == c_mark_missing) {
        painter.setPen(QPen(Qt::white, 1.2));
        painter.setBrush(QColor(0xc2, 0x50, 0x00));
        painter.drawPolygon(
            QPolygonF{{QPointF(box.center().x(), box.top()), box.bottomRight(), box.bottomLeft()}});
        painter.setPen(QPen(Qt::white, 1.6));
        painter.drawLine(QPointF(box.center().x(), box.top() + 4), QPointF(box.center().x(), box.top() + 7));
        painter.drawPoint(QPointF(box.center().x(), box.top() + 9));
    } else if (mark == c_mark_undrawn) {
        painter.setPen(QPen(Qt::white, 1));
        painter.setBrush(QColor(0x60, 0x66, 0x6e));
        painter.drawEllipse(box);
        painter.setPen(QPen(Qt::white, 1.6));
        painter.drawLine(box.center() - QPointF(2.6, -2.6), box.center() + QPointF(2.6, -2.6));
    }
}

/// Rasters have no data object: the data set is asked itself.
Tvx_box_d2 source_extent(Ivx_layer const *layer)
{
    std::wstring source;
    vx_lr2d_get_wfilename(layer, Tvx_std_wstring_adapter(source));
    if (source.empty())
        return {};
    t_vx_data_source_interface set;
    vx_datasource_open(source.c_str(), true, &set);
    Tvx_box_d2 box;
    bool const known = vxk_datasource_data_source_with_extent(set, &box, true);
    vx_datasource_end(vx::data_source(set));
    return known ? box : Tvx_box_d2{};
}
/// The file of a source, without what the drivers need to find the layer in it; of a server all but its
/// password.
QString shown_file(std::wstring const &source)
{
    QString file = QString::fromStdWString(source);
    if (!QFileInfo::exists(file)) // what divides a source may stand in the name of a file, too
        file = QString::fromStdWString(vx::data::connection_params(source).source);
    // Parts of a raster file: FORMAT:"file":part or FORMAT:file:part.
    static QRegularExpression const part(QStringLiteral("^\\w{2,}:\"?(.+?)\"?:[^:/]+$"));
    if (auto const inner = part.match(file).captured(1); !inner.isEmpty() && QFileInfo::exists(inner))
        file = inner;
    return QString::fromStdWString(vx_mask_passwords(QDir::toNativeSeparators(file).toStdWString()));
}
} // namespace

QString vx_layer_name(Ivx_layer *layer)
{
    std::wstring name;
    vx_lr2d_get_wcaption(layer, Tvx_std_wstring_adapter(name));
    return QString::fromStdWString(name);
}

QString vx_layer_tip(Ivx_layer *layer)
{
    std::wstring file;
    vx_lr2d_get_wfilename(layer, Tvx_std_wstring_adapter(file));
    QString kind = kind_of(layer);
    if (Ivx_attr_files *files = vx_attr_files_open(vx_shp_lr2d_get_attr_data_ptr(layer), 1, 0)) {
        kind += QStringLiteral(", ") + vx_host_caption(c_cap_feature_count).arg(vx_attr_files_get_no(files));
        vx_attr_files_close(files);
    }
    return vx_host_caption(c_cap_layer_tip)
        .arg(file.empty() ? vx_host_caption(c_cap_no_file) : shown_file(file), kind);
}

/// A frame for lists with what `draw` puts into it.
template <class Draw>
static QIcon framed(Draw draw)
{
    QPixmap pixmap(2 * c_symbol_width, 2 * c_symbol_height);
    pixmap.setDevicePixelRatio(2);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    // On white as on the map, also in a dark list or a selected line.
    painter.setPen(QPen(QColor(0xb8, 0xbe, 0xc6), 1));
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(QRectF(0.5, 0.5, c_symbol_width - 1, c_symbol_height - 1), 2, 2);
    painter.setClipRect(1, 1, c_symbol_width - 2, c_symbol_height - 2);
    draw(painter);
    painter.end();
    QIcon icon;
    // The same in a selected line: the colours are what the symbol is for.
    for (QIcon::Mode const mode : {QIcon::Normal, QIcon::Selected, QIcon::Active})
        icon.addPixmap(pixmap, mode);
    return icon;
}

QIcon vx_layer_symbol(Ivx_layer *layer, Tvx_layer_mark mark)
{
    return framed([&](QPainter &painter) {
        if (vx_layer_manager_count(layer) == 0)
            draw_cells(painter);
        else if (!draw_simple(painter, layer, nullptr))
            draw_classes(painter, layer);
        draw_mark(painter, mark);
    });
}

QIcon vx_style_symbol(void *stl_prm)
{
    return framed([&](QPainter &painter) {
        if (stl_prm)
            draw_simple(painter, nullptr, stl_prm);
    });
}

QIcon vx_colors_symbol(std::vector<Tvx_color> const &colors)
{
    return framed([&](QPainter &painter) {
        if (colors.empty())
            return;
        QLinearGradient across(1, 0, c_symbol_width - 1, 0);
        // One colour is at both ends.
        for (std::size_t i = 0; i < colors.size(); ++i)
            across.setColorAt(double(i) / double(std::max<std::size_t>(1, colors.size() - 1)),
                              QColor(colors[i].r, colors[i].g, colors[i].b, colors[i].a));
        painter.fillRect(0, 0, c_symbol_width, c_symbol_height, across);
    });
}

QString vx_layer_mark_text(Tvx_layer_mark mark)
{
    switch (mark) {
    case c_mark_undrawn:
        return vx_host_caption(c_cap_mark_undrawn);
    case c_mark_damaged:
        return vx_host_caption(c_cap_mark_damaged);
    case c_mark_missing:
        return vx_map_caption(c_map_mark_missing);
    default:
        return {};
    }
}

Tvx_box_d2 vx_layer_extent(Ivx_layer *layer)
{
    if (key_of(layer) == c_lr_key_rtr)
        return source_extent(layer);
    Tvx_box_d2 box;
    if (vx_lr2d_is_tos(layer))
        return vx_tos_lr2d_get_extent(layer, &box) ? box : Tvx_box_d2{};
    return vx_attr_data_get_extent(vx_shp_lr2d_get_attr_data_ptr(layer), &box) ? box : Tvx_box_d2{};
}

bool vx_layer_is_drawn(Ivx_layer *layer)
{
    return vx_lr2d_is_shp(layer) || vx_lr2d_is_tos(layer) || key_of(layer) == c_lr_key_rtr;
}
