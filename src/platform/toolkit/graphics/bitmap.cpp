#include "platform/toolkit/graphics/bitmap.h"

#include "platform/toolkit/bridge/qt_graphics.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/graphics/canvas.h"
#include "platform/winapi/file.h"

#include <QtCore/QBuffer>
#include <QtCore/QByteArray>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QIODevice>
#include <QtGui/QImage>
#include <QtGui/QImageReader>
#include <QtGui/QImageWriter>
#include <QtGui/QPainter>
#include <QtGui/QRgb>

#include <algorithm>

/// The image and the canvas on it. The image is shared with copies until one of them is written to.
/// Size and format are kept beside it, for they are set one by one before there are pixels.
struct TBitmap::state
{
    QImage image;
    QSize size{0, 0};
    TPixelFormat format = pf32bit;
    std::unique_ptr<TCanvas> canvas;

    /// A loaded image of the 32-bit layout.
    void take(QImage const &loaded)
    {
        image = loaded;
        size = loaded.size();
        format = pf32bit;
    }
};

namespace {
/// A picture of a stranger may claim any size; more than this many pixels is refused.
constexpr qint64 c_max_pixels = 64LL * 1024 * 1024;

QImage::Format native_format(TPixelFormat format, TAlphaFormat alpha)
{
    switch (format) {
    case pf8bit:
        return QImage::Format_Grayscale8;
    case pf24bit:
        return QImage::Format_BGR888;
    default:
        return alpha == afIgnored ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied;
    }
}

bool read_image(QIODevice &device, QByteArray const &format, QImage &result)
{
    QImageReader reader(&device, format);
    reader.setAutoTransform(true);
    QSize const size = reader.size();
    if (size.isValid() && static_cast<qint64>(size.width()) * size.height() > c_max_pixels)
        return false;
    return reader.read(&result) && static_cast<qint64>(result.width()) * result.height() <= c_max_pixels;
}
} // namespace

TBitmap::TBitmap() : f_state(std::make_unique<state>())
{
}

TBitmap::TBitmap(int width, int height) : TBitmap()
{
    SetSize(width, height);
}

TBitmap::~TBitmap()
{
    // The canvas paints on the image, so its painter ends first.
    f_state->canvas.reset();
}

void TBitmap::Assign(TPersistent const *source)
{
    if (!source)
        return ReleaseHandle();
    auto const *other = dynamic_cast<TBitmap const *>(source);
    if (!other)
        return TGraphic::Assign(source);
    if (other == this)
        return;
    Dormant();
    if (other->f_state->canvas)
        other->f_state->canvas->Flush();
    f_state->image = other->f_state->image;
    f_state->size = other->f_state->size;
    f_state->format = other->f_state->format;
    f_alpha_format = other->f_alpha_format;
    f_transparent = other->f_transparent;
    f_transparent_mode = other->f_transparent_mode;
    f_transparent_color = other->f_transparent_color;
    Changed();
}

bool TBitmap::GetEmpty() const
{
    return f_state->image.isNull();
}

int TBitmap::GetWidth() const
{
    return f_state->size.width();
}

int TBitmap::GetHeight() const
{
    return f_state->size.height();
}

void TBitmap::SetWidth(int width)
{
    SetSize(width, GetHeight());
}

void TBitmap::SetHeight(int height)
{
    SetSize(GetWidth(), height);
}

void TBitmap::SetSize(int width, int height)
{
    QSize const size(std::max(width, 0), std::max(height, 0));
    if (size == f_state->size)
        return;
    Dormant();
    QImage image;
    if (static_cast<qint64>(size.width()) * size.height() <= c_max_pixels)
        image = QImage(size, native_format(f_state->format, f_alpha_format));
    f_state->size = image.isNull() && !size.isEmpty() ? QSize(0, 0) : size;
    if (!image.isNull()) {
        image.fill(image.hasAlphaChannel() ? Qt::transparent : Qt::white);
        if (!f_state->image.isNull()) {
            QPainter painter(&image);
            painter.setCompositionMode(QPainter::CompositionMode_Source);
            painter.drawImage(0, 0, f_state->image);
        }
    }
    f_state->image = image;
    Changed();
}

void TBitmap::Draw(TCanvas *canvas, TRect const &rect)
{
    canvas->StretchDraw(rect, this);
}

bool TBitmap::LoadFromFile(UnicodeString const &file_name)
{
    QFile file(vx_qt_string(file_name));
    QImage image;
    if (!file.open(QIODevice::ReadOnly) || !read_image(file, {}, image))
        return false;
    f_alpha_format = image.hasAlphaChannel() ? afPremultiplied : afIgnored;
    Dormant();
    f_state->take(image.convertToFormat(native_format(pf32bit, f_alpha_format)));
    Changed();
    return true;
}

bool TBitmap::LoadFromMemory(void const *data, int size)
{
    if (!data || size <= 0)
        return false;
    QByteArray bytes = QByteArray::fromRawData(static_cast<char const *>(data), size);
    QBuffer buffer(&bytes);
    QImage image;
    if (!buffer.open(QIODevice::ReadOnly) || !read_image(buffer, {}, image))
        return false;
    f_alpha_format = image.hasAlphaChannel() ? afPremultiplied : afIgnored;
    Dormant();
    f_state->take(image.convertToFormat(native_format(pf32bit, f_alpha_format)));
    Changed();
    return true;
}

bool TBitmap::SaveToFile(UnicodeString const &file_name) const
{
    if (f_state->canvas)
        f_state->canvas->Flush();
    QString const name = vx_qt_string(file_name);
    QByteArray const suffix = QFileInfo(name).suffix().toLower().toLatin1();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly))
        return false;
    QImageWriter writer(&buffer, suffix.isEmpty() ? QByteArray("bmp") : suffix);
    if (!writer.write(f_state->image))
        return false;
    vx::fault fault;
    std::string_view const content(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    return vx_save_atomic(file_name, content, fault);
}

TPixelFormat TBitmap::GetPixelFormat() const
{
    return f_state->format;
}

void TBitmap::SetPixelFormat(TPixelFormat format)
{
    if (format != pf8bit && format != pf24bit)
        format = pf32bit;
    if (format == f_state->format)
        return;
    Dormant();
    if (format != pf32bit)
        f_alpha_format = afIgnored;
    f_state->format = format;
    f_state->image = f_state->image.convertToFormat(native_format(format, f_alpha_format));
    Changed();
}

void TBitmap::SetAlphaFormat(TAlphaFormat format)
{
    if (f_alpha_format == format)
        return;
    Dormant();
    f_alpha_format = format;
    f_state->format = pf32bit;
    f_state->image = f_state->image.convertToFormat(native_format(pf32bit, format));
    Changed();
}

void TBitmap::SetTransparentMode(TTransparentMode mode)
{
    if (f_transparent_mode == mode)
        return;
    f_transparent_mode = mode;
    Changed();
}

TColor TBitmap::GetTransparentColor() const
{
    if (f_transparent_mode == tmFixed)
        return f_transparent_color;
    if (f_state->canvas)
        f_state->canvas->Flush();
    QImage const &image = f_state->image;
    if (image.isNull())
        return clNone;
    return vx_color(QColor::fromRgb(image.pixel(0, image.height() - 1)));
}

void TBitmap::SetTransparentColor(TColor color)
{
    if (f_transparent_mode == tmFixed && f_transparent_color == color)
        return;
    f_transparent_color = color;
    f_transparent_mode = tmFixed;
    Changed();
}

void TBitmap::Mask(TColor color)
{
    Dormant();
    QRgb const key = vx_qt_color(color).rgb() & RGB_MASK;
    f_alpha_format = afPremultiplied;
    f_state->format = pf32bit;
    QImage image = f_state->image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            if ((row[x] & RGB_MASK) == key)
                row[x] = 0;
    }
    f_state->image = image;
    Changed();
}

void *TBitmap::ScanLine(int row)
{
    Dormant();
    if (row < 0 || row >= GetHeight())
        return nullptr;
    return f_state->image.scanLine(row);
}

void const *TBitmap::ScanLine(int row) const
{
    if (f_state->canvas)
        f_state->canvas->Flush();
    if (row < 0 || row >= GetHeight())
        return nullptr;
    return f_state->image.constScanLine(row);
}

int TBitmap::GetStride() const
{
    return static_cast<int>(f_state->image.bytesPerLine());
}

TCanvas *TBitmap::GetCanvas()
{
    if (!f_state->canvas) {
        f_state->canvas = std::make_unique<TCanvas>(this);
        f_state->canvas->OnChange = make_closure<&TBitmap::on_canvas_change>(this);
    }
    return f_state->canvas.get();
}

void TBitmap::on_canvas_change(TObject *)
{
    Changed();
}

void TBitmap::Dormant()
{
    if (f_state->canvas)
        f_state->canvas->Flush();
}

void TBitmap::ReleaseHandle()
{
    Dormant();
    if (f_state->size == QSize(0, 0))
        return;
    f_state->image = QImage();
    f_state->size = QSize(0, 0);
    Changed();
}

void TBitmap::NativeChanged()
{
    f_state->size = f_state->image.size();
    Changed();
}

vx_native_image *TBitmap::NativeImage()
{
    Dormant();
    return reinterpret_cast<vx_native_image *>(&f_state->image);
}

vx_native_image const *TBitmap::NativeImage() const
{
    if (f_state->canvas)
        f_state->canvas->Flush();
    return reinterpret_cast<vx_native_image const *>(&f_state->image);
}

QImage vx_qt_image(TBitmap const &bitmap)
{
    return *reinterpret_cast<QImage const *>(bitmap.NativeImage());
}

void vx_set_image(TBitmap &bitmap, QImage const &image)
{
    bool const alpha = image.hasAlphaChannel();
    bitmap.SetPixelFormat(pf32bit);
    bitmap.SetAlphaFormat(alpha ? afPremultiplied : afIgnored);
    *reinterpret_cast<QImage *>(bitmap.NativeImage()) =
        image.convertToFormat(alpha ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    bitmap.NativeChanged();
}
