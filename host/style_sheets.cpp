#include "host/style_sheets.h"

#include "captions/host.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_res.h"
#include "platform/render/vx_bmp_dc.h"
#include "platform/render/vx_box.h"
#include "platform/render/vx_render.h"
#include "platform/storage/vx_style_lib_file.h"
#include "platform/styles/vx_global_lib_styles.h"
#include "platform/styles/vx_style.h"
#include "platform/styles/vx_style_lib.h"

#include <QDir>
#include <QFileInfo>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <functional>
#include <limits>
#include <map>
#include <span>
#include <unordered_map>
#include <utility>

namespace {
constexpr double c_px_per_mm = 4;
constexpr int c_pixel_scale = 2;
/// Logical pixels.
constexpr int c_page_width = 744;
constexpr int c_gap = 20;
constexpr int c_line_height = 12; ///< of a caption, which has two lines as a rule
constexpr int c_below_sample = 2 * c_line_height + 12;

/// What the samples show, in a square of 100 by 100 that is stretched over them.
constexpr double c_side = 100;
constexpr Tvx_vtx_d2 c_point[] = {{50, 50}};
constexpr Tvx_vtx_d2 c_line[] = {{3, 30}, {34, 70}, {66, 30}, {97, 70}};
constexpr Tvx_vtx_d2 c_bends[] = {c_line[1], c_line[2]};
constexpr Tvx_vtx_d2 c_begin[] = {c_line[0]};
constexpr Tvx_vtx_d2 c_end[] = {c_line[3]};
constexpr Tvx_vtx_d2 c_ring[] = {{3, 6}, {3, 94}, {97, 94}, {97, 6}, {3, 6}};

/// Draws into a picture, without edges or check patterns.
class sample_painter
{
public:
    sample_painter(QImage &image, int pixel_scale)
    {
        vx_bmp_dc_set_pixels(f_dc.get(), image.bits(), image.width(), image.height(),
                             static_cast<int>(image.bytesPerLine()));
        double const scale = c_px_per_mm * pixel_scale;
        Tvx_box_d2 mm;
        vx_box_d2_init_xy(&mm, 0, 0, image.width() / scale, image.height() / scale);
        Tvx_box_i2 pixels;
        vx_box_i2_init_xy(&pixels, 0, 0, image.width(), image.height());
        vx_bmp_dc_set_mm2pxl(f_dc.get(), mm, pixels);
        vx_render_init(f_render.get(), vx_box_d2_make_xy(0, 0, c_side, c_side), f_dc.get());
    }

    void draw(void *style)
    {
        if (void *pnt = vx_idx_pnt_style_get_pnt_style_ptr(style)) {
            put(vx_pnt_style_get_pnt_visible(pnt), &vx_render_cr_bpnt, c_point,
                vx_pnt_style_get_bpnt_style_ptr(pnt));
        } else if (void *pln = vx_idx_pln_style_get_pln_style_ptr(style)) {
            put(vx_pln_style_get_pln_visible(pln), &vx_render_cr_bpln, c_line,
                vx_pln_style_get_bpln_style_ptr(pln));
            put(vx_pln_style_get_pnt_visible(pln), &vx_render_cr_bpnt, c_bends,
                vx_pln_style_get_bpnt_style_ptr(pln));
            put(vx_pln_style_get_end_visible(pln), &vx_render_cr_bpnt, c_end,
                vx_pln_style_get_bend_style_ptr(pln));
            put(vx_pln_style_get_beg_visible(pln), &vx_render_cr_bpnt, c_begin,
                vx_pln_style_get_bbeg_style_ptr(pln));
        } else if (void *pgn = vx_idx_pgn_style_get_pgn_style_ptr(style)) {
            put(vx_pgn_style_get_pgn_visible(pgn), &vx_render_cr_bpgn, c_ring,
                vx_pgn_style_get_bpgn_style_ptr(pgn));
            put(vx_pgn_style_get_pln_visible(pgn), &vx_render_cr_bpln, c_ring,
                vx_pgn_style_get_bpln_style_ptr(pgn));
            put(vx_pgn_style_get_pnt_visible(pgn), &vx_render_cr_bpnt, c_ring,
                vx_pgn_style_get_bpnt_style_ptr(pgn));
        }
    }

private:
    using draw_function = void (*)(void *, Tvx_op2d const *, void const *);

    void put(bool visible, draw_function draw_with, std::span<Tvx_vtx_d2 const> vertices,
             void const *base_style)
    {
        if (!visible)
            return;
        vx::owned<Tvx_op2d, &vx_ov_d2_destroy> const list(vx_ov_d2_create());
        vx_ov_d2_set_size(list.get(), 1);
        Tvx_pv_d2 *part = vx_ov_d2_get_pv_ptr(list.get(), 0);
        vx_pv_d2_set_size(part, vertices.size());
        for (std::size_t i = 0; i < vertices.size(); ++i)
            vx_pv_d2_set_vtx(part, i, &vertices[i]);
        draw_with(f_render.get(), list.get(), base_style);
    }

    vx::owned<void, &vx_bmp_dc_destroy> f_dc{vx_bmp_dc_create()}; // goes after the renderer
    vx::owned<void, &vx_render_destroy> f_render{vx_render_create()};
};

bool is_line(void const *style)
{
    return std::strcmp(vx_idx_style_get_type(style), "pln_style") == 0;
}

/// At most 256 colours: one of each small cube of colours, so that rare hues are not lost, and those that
/// most pixels have; others become the nearest of them. Such a picture takes a third of the room.
QImage with_few_colors(QImage const &picture)
{
    auto const pixels = [&](int y) {
        return std::span(reinterpret_cast<QRgb const *>(picture.constScanLine(y)),
                         static_cast<std::size_t>(picture.width()));
    };
    std::unordered_map<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y)
        for (QRgb const color : pixels(y))
            ++counts[color];
    std::map<QRgb, std::pair<int, QRgb>> cubes;
    for (auto const &[color, count] : counts) {
        auto &best = cubes[color & 0xE0E0E0];
        best = std::max(best, std::pair(count, color));
    }
    std::vector<std::pair<int, QRgb>> wanted;
    for (auto const &[color, count] : counts)
        wanted.emplace_back(cubes[color & 0xE0E0E0].second == color ? std::numeric_limits<int>::max() : count,
                            color);
    std::ranges::sort(wanted, std::greater());
    QList<QRgb> table;
    for (auto const &[count, color] : std::span(wanted).first(std::min<std::size_t>(wanted.size(), 256)))
        table.push_back(color);
    std::unordered_map<QRgb, uchar> places;
    for (auto const &[color, count] : counts) {
        auto const distance = [own = color](QRgb c) {
            int const r = qRed(c) - qRed(own);
            int const g = qGreen(c) - qGreen(own);
            int const b = qBlue(c) - qBlue(own);
            return r * r + g * g + b * b;
        };
        places[color] = static_cast<uchar>(std::ranges::min_element(table, {}, distance) - table.begin());
    }
    QImage few(picture.size(), QImage::Format_Indexed8);
    few.setColorTable(table);
    for (int y = 0; y < picture.height(); ++y)
        std::ranges::transform(pixels(y), few.scanLine(y), [&](QRgb color) { return places[color]; });
    return few;
}

/// In lines one below the other, in the middle: two, or three that are a little closer. What is longer ends
/// in an ellipsis.
void draw_caption(QPainter &painter, QRect const &room, QString const &text)
{
    constexpr int c_most_lines = 3;
    QTextLayout layout(text, painter.font());
    layout.beginLayout();
    QStringList lines;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(room.width());
        if (lines.size() + 1 == c_most_lines) {
            QString const rest = text.mid(line.textStart()).trimmed();
            lines += QFontMetrics(painter.font()).elidedText(rest, Qt::ElideRight, room.width());
            break;
        }
        lines += text.mid(line.textStart(), line.textLength()).trimmed();
    }
    layout.endLayout();
    bool const close = lines.size() == c_most_lines;
    QRect place(room.left(), room.top() - close, room.width(), c_line_height);
    for (QString const &line : lines) {
        painter.drawText(place, Qt::AlignCenter, line);
        place.translate(0, c_line_height - close);
    }
}

QString shown(wchar_t const *text)
{
    return QString::fromWCharArray(text);
}

/// The style that the item names; the lists know it by kind, index and version.
void *style_of(void *lib, void const *item)
{
    for (auto *const list_of :
         {&vx_style_lib_get_pnt_list_ptr, &vx_style_lib_get_pln_list_ptr, &vx_style_lib_get_pgn_list_ptr}) {
        unsigned place = 0;
        if (void *list = list_of(lib); vx_style_list_find_idx_ver(list, vx_style_item_get_index(item),
                                                                  vx_style_item_get_version(item), &place))
            return vx_style_list_get_idx_style(list, place);
    }
    return nullptr;
}

void add_sheets(void *lib, void *item, QString const &prefix, std::vector<Tvx_style_sheet> &sheets)
{
    void *items = vx_style_item_get_style_items_ptr(item);
    unsigned const count = vx_style_items_get_size(items);
    std::vector<Tvx_style_sheet::entry> entries;
    for (unsigned i = 0; i < count; ++i) {
        void *child = vx_style_items_get_style_item_ptr(items, i);
        if (void *style = style_of(lib, child))
            entries.push_back({style, shown(vx_style_item_get_caption_w(child))});
    }
    if (!entries.empty()) {
        int const first = vx_idx_style_get_index(entries.front().style);
        sheets.emplace_back(prefix + QString("-%1").arg(first), std::move(entries));
    }
    for (unsigned i = 0; i < count; ++i)
        add_sheets(lib, vx_style_items_get_style_item_ptr(items, i), prefix, sheets);
}

bool fail(QString const &what)
{
    std::fprintf(stderr, "vx_map: %s\n", qPrintable(what));
    return false;
}
} // namespace

Tvx_style_sheet::Tvx_style_sheet(QString name, std::vector<entry> entries)
    : f_name(std::move(name)), f_entries(std::move(entries)), f_columns(6), f_sample(104, 56)
{
    // Lines need more room along them.
    if (std::ranges::any_of(f_entries, [](entry const &e) { return is_line(e.style); })) {
        f_columns = 4;
        f_sample = {166, 34};
    }
}

QRect Tvx_style_sheet::cell(std::size_t index) const
{
    int const at = static_cast<int>(index);
    int const height = f_sample.height() + c_below_sample;
    return {c_gap / 2 + at % f_columns * (f_sample.width() + c_gap), c_gap / 2 + at / f_columns * height,
            f_sample.width(), height};
}

QRect Tvx_style_sheet::sample_place(std::size_t index) const
{
    return {cell(index).topLeft() * c_pixel_scale, f_sample * c_pixel_scale};
}

QImage Tvx_style_sheet::draw_sample(std::size_t index, int pixel_scale) const
{
    QImage image(f_sample * pixel_scale, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    sample_painter(image, pixel_scale).draw(f_entries[index].style);
    return image;
}

QImage Tvx_style_sheet::draw() const
{
    int const height = f_entries.empty() ? 0 : cell(f_entries.size() - 1).bottom() + 1;
    QImage image(QSize(c_page_width, height) * c_pixel_scale, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    for (std::size_t i = 0; i < f_entries.size(); ++i)
        painter.drawImage(sample_place(i).topLeft(), draw_sample(i, c_pixel_scale));
    painter.scale(c_pixel_scale, c_pixel_scale);
    QFont font = painter.font();
    font.setPixelSize(10);
    painter.setFont(font);
    painter.setPen(QColor(60, 60, 60));
    for (std::size_t i = 0; i < f_entries.size(); ++i) {
        QRect const room = cell(i).adjusted(-c_gap / 2 + 2, f_sample.height() + 3, c_gap / 2 - 2, 0);
        entry const &e = f_entries[i];
        draw_caption(painter, room, QString("%1  %2").arg(vx_idx_style_get_index(e.style)).arg(e.caption));
    }
    return image;
}

std::vector<Tvx_style_sheet> vx_style_sheets(void *lib, QString const &prefix)
{
    std::vector<Tvx_style_sheet> sheets;
    if (void *root = vx_style_lib_get_root_item_ptr(lib))
        add_sheets(lib, root, prefix, sheets);
    return sheets;
}

bool vx_style_sheets_write(QStringList const &library_files, QString const &directory)
{
    vx::owned<void, &vx_style_libs_destroy> const own(vx_style_libs_create());
    vx::owned<Ivx_xml_data, &vx_xml_data_destroy> const xml(vx_xml_save_style_create());
    for (QString const &file : library_files)
        if (!vx_xml_data_load_style_lib(xml.get(), file.toStdWString().c_str(), own.get())) {
            std::wstring reason;
            Tvx_std_wstring_adapter adapter(reason);
            vx_xml_data_get_error_w(xml.get(), adapter);
            return fail(shown(reason.c_str()));
        }
    void *libs = library_files.isEmpty() ? vx_global_lib_styles_get_libs() : own.get();
    QDir().mkpath(directory);
    for (unsigned i = 0; i < vx_style_libs_get_size(libs); ++i) {
        void *lib = vx_style_libs_get_lib_ptr(libs, i);
        QString const file = QFileInfo(shown(vx_style_lib_get_file_w(lib))).completeBaseName();
        for (Tvx_style_sheet const &sheet : vx_style_sheets(lib, file)) {
            QString const picture = QDir(directory).filePath(sheet.name() + ".png");
            if (!with_few_colors(sheet.draw()).save(picture, "PNG", 0))
                return fail(shown(vx_res_format_w(c_cap_err_save_picture, {picture.toStdWString()}).c_str()));
        }
    }
    return true;
}
