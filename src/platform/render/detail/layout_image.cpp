#include "captions/layout_drawing.h"

#include "platform/layers/vx_layout_lr2d.h"
#include "platform/render/detail/layout_canvas.h"
#include "platform/toolkit/bridge/qt_graphics.h"
#include "platform/winapi/file.h"

#include <QtCore/QBuffer>
#include <QtCore/QByteArray>
#include <QtCore/QRectF>
#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtCore/QXmlStreamReader>
#include <QtCore/QXmlStreamWriter>
#include <QtGui/QImage>
#include <QtGui/QImageReader>
#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <map>
#include <string>
#include <vector>

namespace vx::render {
namespace {
/// Of a file; larger ones are no pictures for a page.
constexpr std::size_t c_most_bytes = std::size_t{512} << 20;
constexpr std::size_t c_most_svg_bytes = std::size_t{16} << 20;
/// Of a picture after unpacking, in pixels along a side and in all.
constexpr int c_most_side = 60'000;
constexpr double c_most_pixels = 2e8;

QRectF place_of(layout_canvas const &canvas, Ivx_layer *image, QSizeF const &size)
{
    Tvx_box_d2 const px = canvas.to_px(vx_layout_lr2d_get_box(image));
    QRectF const all(px.min_x, px.min_y, px.width(), px.height());
    if (!vx_layout_image_lr2d_get_keep_ratio(image) || size.isEmpty())
        return all;
    // In millimetres, since a pixel need not be square.
    double const kx = canvas.px_per_mm_x(), ky = canvas.px_per_mm_y();
    double const k = std::min(all.width() / kx / size.width(), all.height() / ky / size.height());
    QRectF place(0, 0, size.width() * k * kx, size.height() * k * ky);
    place.moveCenter(all.center());
    return place;
}

bool is_svg(std::string const &bytes)
{
    constexpr std::size_t c_head = 4096;
    std::string const head = bytes.substr(0, c_head);
    std::size_t const first = head.find_first_not_of(" \t\r\n\xEF\xBB\xBF");
    return first != std::string::npos && head[first] == '<' && head.find("<svg") != std::string::npos;
}

/// What a drawing asks for: its elements, with those that stand for others counted as often as they are
/// drawn. Few bytes may ask for more than a computer can draw, or for a stack that it has not.
class svg_work
{
public:
    explicit svg_work(QByteArray const &bytes)
    {
        QXmlStreamReader xml(bytes);
        std::vector<std::size_t> open;
        while (!xml.atEnd() && f_nodes.size() < c_most) {
            auto const token = xml.readNext();
            if (token == QXmlStreamReader::EndElement && !open.empty())
                open.pop_back();
            if (token != QXmlStreamReader::StartElement)
                continue;
            if (open.size() >= c_deepest)
                return;
            std::size_t const index = f_nodes.size();
            node &element = f_nodes.emplace_back();
            if (!open.empty())
                f_nodes[open.back()].parts.push_back(index);
            open.push_back(index);
            auto const attributes = xml.attributes();
            if (auto const id = attributes.value(QLatin1String("id")); !id.isEmpty())
                f_ids.emplace(id.toString(), index);
            if (xml.name() == QLatin1String("use"))
                for (auto const &attribute : attributes)
                    if (attribute.name() == QLatin1String("href"))
                        element.uses = attribute.value().mid(1).toString();
        }
        f_is_sane = !f_nodes.empty() && f_nodes.size() < c_most && weight(0, 0) < double(c_most);
    }
    [[nodiscard]] bool is_sane() const { return f_is_sane; }

private:
    static constexpr std::size_t c_most = 1'000'000;
    static constexpr std::size_t c_deepest = 200;
    struct node
    {
        std::vector<std::size_t> parts;
        QString uses;
        double weight = -1;
    };
    double weight(std::size_t index, std::size_t depth)
    {
        node &element = f_nodes[index];
        if (element.weight >= 0)
            return element.weight;
        element.weight = HUGE_VAL; // of what stands in itself
        if (depth > 2 * c_deepest)
            return HUGE_VAL;
        double sum = 1;
        for (std::size_t const part : element.parts)
            sum += weight(part, depth + 1);
        if (auto const used = f_ids.find(element.uses); !element.uses.isEmpty() && used != f_ids.end())
            sum += weight(used->second, depth + 1);
        return f_nodes[index].weight = sum;
    }

    std::vector<node> f_nodes;
    std::map<QString, std::size_t> f_ids;
    bool f_is_sane = false;
};

bool has_known_format(QImageReader &reader)
{
    reader.setDecideFormatFromContent(true);
    auto const formats = {"png", "jpeg", "jpg", "tiff", "tif", "bmp", "gif", "webp"};
    return std::ranges::any_of(formats, [&](char const *format) { return reader.format() == format; });
}

/// Whether a picture in a drawing stands there itself, not larger than `room` pixels, of which it takes its
/// part. It may not be another drawing.
bool is_embedded(QString const &source, double &room)
{
    constexpr QLatin1String c_begin("data:"), c_mark("base64,");
    auto const at = source.lastIndexOf(c_mark);
    if (!source.startsWith(c_begin) || at < 0)
        return source.isEmpty();
    QByteArray bytes = QByteArray::fromBase64(source.mid(at + c_mark.size()).toLatin1());
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    if (!has_known_format(reader))
        return false;
    QSize const size = reader.size();
    room -= double(size.width()) * size.height();
    return room >= 0;
}

/// The drawing without what its reader would take from other files, which may be anything: a pipe that
/// nobody writes to, or a device without end. The same bytes where there is nothing of that; none where they
/// cannot be read.
QByteArray without_other_files(QByteArray const &bytes)
{
    QByteArray kept;
    QXmlStreamReader xml(bytes);
    xml.setNamespaceProcessing(false); // names stay as they are written
    QXmlStreamWriter writer(&kept);
    auto const name_of = [](QStringView whole) { return whole.mid(whole.lastIndexOf(u':') + 1); };
    bool is_changed = false;
    double room = c_most_pixels;
    while (!xml.atEnd()) {
        auto const token = xml.readNext();
        bool is_other = token == QXmlStreamReader::ProcessingInstruction; // a style sheet
        if (token == QXmlStreamReader::StartElement && name_of(xml.name()) == QLatin1String("image")) {
            for (auto const &attribute : xml.attributes())
                is_other = is_other || (name_of(attribute.qualifiedName()) == QLatin1String("href") &&
                                        !is_embedded(attribute.value().toString(), room));
            if (is_other)
                xml.skipCurrentElement();
        }
        is_changed = is_changed || is_other;
        if (!is_other && !xml.hasError())
            writer.writeCurrentToken(xml);
    }
    return xml.hasError() ? QByteArray() : is_changed ? kept : bytes;
}

bool draw_svg(layout_canvas &canvas, Ivx_layer *image, QByteArray const &bytes)
{
    if (static_cast<std::size_t>(bytes.size()) > c_most_svg_bytes || !svg_work(bytes).is_sane())
        return false;
    QByteArray const drawing = without_other_files(bytes);
    QSvgRenderer renderer(drawing);
    if (!renderer.isValid())
        return false;
    if (drawing != bytes)
        canvas.fail();
    QPainter &painter = *vx_qt_painter(canvas.target().painter);
    painter.save();
    renderer.render(&painter, place_of(canvas, image, renderer.viewBoxF().size()));
    painter.restore();
    return true;
}

bool draw_pixels(layout_canvas &canvas, Ivx_layer *image, QByteArray &bytes)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    if (!has_known_format(reader))
        return false;
    reader.setAutoTransform(true);
    QSize const size = reader.size();
    if (size.isEmpty() || size.width() > c_most_side || size.height() > c_most_side ||
        double(size.width()) * size.height() > c_most_pixels)
        return false;
    bool const is_turned = reader.transformation() & QImageIOHandler::TransformationRotate90;
    QRectF const place = place_of(canvas, image, is_turned ? size.transposed() : size);
    // Not more pixels than the device shows, where the format can leave some out.
    double const k = canvas.target().is_vector ? canvas.target().picture_scale : 1;
    QSizeF const shown = is_turned ? place.size().transposed() : place.size();
    if (double const ratio = std::max(shown.width() / size.width(), shown.height() / size.height()) * k;
        ratio < 0.5)
        reader.setScaledSize((QSizeF(size) * std::max(ratio, 1e-3)).toSize().expandedTo(QSize(1, 1)));
    QImage picture = reader.read();
    if (picture.isNull())
        return false;
    // What shrinks is averaged first: the painter would leave pixels out.
    QSize const wanted = (place.size() * k).toSize().expandedTo(QSize(1, 1));
    if (wanted.width() < picture.width() && wanted.height() < picture.height())
        picture = picture.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QPainter &painter = *vx_qt_painter(canvas.target().painter);
    bool const was_smooth = painter.testRenderHint(QPainter::SmoothPixmapTransform);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(place, picture);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, was_smooth);
    return true;
}
} // namespace

void draw_layout_image(layout_canvas &canvas, Ivx_layer *image)
{
    std::wstring const name = element_file(image);
    vx::fault fault;
    if (auto const bytes = vx_file_read(name, fault, c_most_bytes)) {
        QByteArray data = QByteArray::fromRawData(bytes->data(), static_cast<qsizetype>(bytes->size()));
        if (is_svg(*bytes) ? draw_svg(canvas, image, data) : draw_pixels(canvas, image, data))
            return;
    }
    canvas.fail();
    std::wstring const base = name.substr(name.find_last_of(L"/\\") + 1);
    canvas.draw_missing(vx_layout_lr2d_get_box(image), missing_text(c_draw_no_picture, base), true);
}
} // namespace vx::render
