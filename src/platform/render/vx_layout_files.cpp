#include "captions/layout_drawing.h"

#include "platform/base/string_adp.h"
#include "platform/basic/vx_fault.h"
#include "platform/basic/vx_res.h"
#include "platform/layers/vx_layout_lr2d.h"
#include "platform/layers/vx_scn_2d.h"
#include "platform/render/dc_priv.h"
#include "platform/render/detail/layout_drawing.h"
#include "platform/render/detail/work_meter.h"
#include "platform/render/vx_layout_render.h"
#include "platform/toolkit/bridge/qt_graphics.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/winapi/file.h"

#include <QtCore/QBuffer>
#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QMarginsF>
#include <QtCore/QSizeF>
#include <QtGui/QImage>
#include <QtGui/QImageWriter>
#include <QtGui/QPageSize>
#include <QtGui/QPainter>
#include <QtGui/QPdfWriter>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

// Pages as files.

using namespace vx::render;

namespace {
constexpr double c_mm_per_inch = 25.4;
constexpr double c_least_dpi = 10;
constexpr double c_most_dpi = 2400;
constexpr double c_most_side_px = 30'000;

// ---- what both ways share

Tvx_layout_outcome failed(Ivx_string_adp *reason, std::wstring const &why)
{
    vx_string_adp_feed(reason, why.c_str());
    return c_layout_failed;
}

/// A file in memory that asks on the way: packing a large picture takes long. What is ended fails.
class asking_buffer final : public QBuffer
{
public:
    asking_buffer(QByteArray *bytes, closure<bool()> cancelled) : QBuffer(bytes), f_meter(cancelled)
    {
        open(QIODevice::WriteOnly);
    }
    [[nodiscard]] bool is_cancelled() const { return f_meter.stopped(); }

protected:
    qint64 writeData(char const *data, qint64 length) override
    {
        constexpr double c_byte_cost = 20;
        return f_meter.go_on(static_cast<double>(length) * c_byte_cost) ? QBuffer::writeData(data, length)
                                                                        : -1;
    }

private:
    work_meter f_meter;
};

/// The sheet, in millimetres; empty for a layout without a page.
Tvx_box_d2 sheet_of(Ivx_scn_2d *layout)
{
    Ivx_layer *const page = vx_layout_get_page(layout);
    return page ? vx_layout_lr2d_get_box(page) : Tvx_box_d2();
}

std::wstring title_of(Ivx_scn_2d *layout)
{
    std::wstring title;
    vx_scn_2d_get_wcaption(layout, Tvx_std_wstring_adapter(title));
    return title;
}

/// Puts what was made in the file's place.
Tvx_layout_outcome save(wchar_t const *file, QByteArray const &bytes, layout_drawing drawn,
                        Ivx_string_adp *reason)
{
    vx::fault fault;
    if (!vx_save_atomic(file ? file : L"", {bytes.constData(), static_cast<std::size_t>(bytes.size())},
                        fault))
        return failed(reason, vx_fault_reason(fault));
    vx_string_adp_feed(reason, drawn == layout_drawing::incomplete ? vx_res_get_wstr(c_draw_left_out) : L"");
    return c_layout_written;
}

// ---- pictures

/// Nothing for suffixes of no picture format.
char const *format_of(std::wstring_view file)
{
    auto const dot = file.rfind(L'.');
    if (dot == std::wstring_view::npos)
        return nullptr;
    std::wstring suffix(file.substr(dot + 1));
    std::ranges::transform(suffix, suffix.begin(), [](wchar_t c) {
        return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c;
    });
    if (suffix == L"png")
        return "png";
    if (suffix == L"jpg" || suffix == L"jpeg")
        return "jpg";
    if (suffix == L"tif" || suffix == L"tiff")
        return "tiff";
    return suffix == L"bmp" ? "bmp" : nullptr;
}

/// What the system says it has left; more is asked for at the price of the whole machine.
double free_bytes()
{
    constexpr std::string_view c_key = "MemAvailable:";
    // A file without a size of its own.
    FILE *const info = std::fopen("/proc/meminfo", "r");
    if (!info)
        return HUGE_VAL;
    double bytes = HUGE_VAL;
    char line[128];
    while (std::fgets(line, sizeof line, info))
        if (std::string_view(line).starts_with(c_key))
            bytes = std::strtod(line + c_key.size(), nullptr) * 1024;
    std::fclose(info);
    return bytes;
}

std::wstring with_size(int caption, double width, double height)
{
    return vx_res_format_w(caption,
                           {std::to_wstring(std::llround(width)), std::to_wstring(std::llround(height))});
}
} // namespace

Tvx_layout_outcome vx_layout_save_picture_w(Ivx_scn_2d *layout, wchar_t const *file, double dpi,
                                            Ivx_string_adp *reason, closure<bool()> cancelled)
{
    constexpr double c_copies = 2.5; // of the picture, while it is drawn and packed
    vx_qt_ensure_application();
    Tvx_box_d2 const sheet = sheet_of(layout);
    if (sheet.is_empty())
        return failed(reason, vx_res_get_wstr(c_draw_no_page));
    char const *const format = format_of(file ? file : L"");
    if (!format || !QImageWriter::supportedImageFormats().contains(format))
        return failed(reason, vx_res_get_wstr(c_draw_unknown_format));
    double const pixels_per_inch =
        std::isfinite(dpi) ? std::clamp(dpi, c_least_dpi, c_most_dpi) : c_least_dpi;
    double const width = std::max(1.0, std::round(sheet.width() / c_mm_per_inch * pixels_per_inch));
    double const height = std::max(1.0, std::round(sheet.height() / c_mm_per_inch * pixels_per_inch));
    if (width > c_most_side_px || height > c_most_side_px)
        return failed(reason, with_size(c_draw_too_large, width, height));
    QImage image;
    if (width * height * 4 * c_copies < free_bytes())
        image =
            QImage(static_cast<int>(width), static_cast<int>(height), QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return failed(reason, with_size(c_draw_no_memory, width, height));
    bool const keeps_alpha = std::string_view(format) == "png" || std::string_view(format) == "tiff";
    image.fill(keeps_alpha ? Qt::transparent : Qt::white);
    layout_drawing drawn = layout_drawing::cancelled;
    {
        bmp_dc dc;
        dc.lend(image.bits(), image.width(), image.height(), static_cast<int>(image.bytesPerLine()));
        drawn = draw_layout(layout, sheet, dc, cancelled);
    }
    if (drawn == layout_drawing::cancelled)
        return c_layout_cancelled;
    // Only what is seen through needs more than colours.
    bool const is_opaque = [&] {
        for (int y = 0; y < image.height(); ++y) {
            auto const *const row = reinterpret_cast<QRgb const *>(image.constScanLine(y));
            if (!std::all_of(row, row + image.width(), [](QRgb pixel) { return qAlpha(pixel) == 255; }))
                return false;
        }
        return true;
    }();
    if (is_opaque)
        image.reinterpretAsFormat(QImage::Format_RGB32);
    int const dots = static_cast<int>(std::lround(pixels_per_inch / c_mm_per_inch * 1000));
    image.setDotsPerMeterX(dots);
    image.setDotsPerMeterY(dots);
    if (std::wstring const title = title_of(layout); keeps_alpha && !title.empty())
        image.setText(QStringLiteral("Title"), QString::fromStdWString(title));
    QByteArray bytes;
    asking_buffer buffer(&bytes, cancelled);
    QImageWriter writer(&buffer, format);
    constexpr int c_jpeg_quality = 92, c_tiff_lzw = 1;
    if (std::string_view(format) == "jpg")
        writer.setQuality(c_jpeg_quality);
    if (std::string_view(format) == "tiff")
        writer.setCompression(c_tiff_lzw);
    bool const is_made = writer.write(image);
    if (buffer.is_cancelled())
        return c_layout_cancelled;
    if (!is_made)
        return failed(reason,
                      vx_reason_make(vx_res_get_wstr(c_draw_not_made), writer.errorString().toStdWString()));
    image = {};
    if (cancelled())
        return c_layout_cancelled;
    return save(file, bytes, drawn, reason);
}

// ---- PDF

namespace {
/// Sheets of Qt's writer have whole points, which can be 0.2 millimetres too much or too little. The file
/// keeps its length, since it says where its parts are; what is drawn hangs on the upper edge.
void set_exact_size(QByteArray &pdf, Tvx_box_d2 const &sheet)
{
    constexpr double c_points_per_mm = 72 / c_mm_per_inch;
    constexpr int c_digits = 4;
    QByteArray const key = "/MediaBox [";
    qsizetype const begin = pdf.indexOf(key) + key.size();
    qsizetype const room = pdf.indexOf(']', begin) - begin;
    QList<QByteArray> const numbers = pdf.mid(begin, room).split(' ');
    if (begin < key.size() || numbers.size() != 4)
        return;
    double const width = sheet.width() * c_points_per_mm, height = sheet.height() * c_points_per_mm;
    double const top = numbers[3].toDouble();
    // Very large ones are in other units.
    if (std::abs(numbers[2].toDouble() - width) > 1 || std::abs(top - height) > 1)
        return;
    QByteArray const exact = "0 " + QByteArray::number(top - height, 'f', c_digits) + ' ' +
                             QByteArray::number(width, 'f', c_digits) + ' ' + QByteArray::number(top, 'f', 0);
    if (exact.size() <= room)
        pdf.replace(begin, room, exact.leftJustified(room));
}
} // namespace

Tvx_layout_outcome vx_layout_save_pdf_w(Ivx_scn_2d *layout, wchar_t const *file, double dpi,
                                        Ivx_string_adp *reason, closure<bool()> cancelled)
{
    // Fine enough for every printer; a larger sheet takes fewer, so that numbers stay small.
    constexpr double c_units_per_inch = 600, c_most_units = 60'000;
    constexpr double c_most_plain_mm = 5000; // what sheets of plain PDF may measure
    vx_qt_ensure_application();
    Tvx_box_d2 const sheet = sheet_of(layout);
    if (sheet.is_empty())
        return failed(reason, vx_res_get_wstr(c_draw_no_page));
    double const longest = std::max(sheet.width(), sheet.height());
    double const units =
        std::max(1.0, std::floor(std::min(c_units_per_inch, c_most_units / (longest / c_mm_per_inch))));
    double const picture_dpi = std::isfinite(dpi) ? std::clamp(dpi, c_least_dpi, c_most_dpi) : c_least_dpi;
    QByteArray bytes;
    asking_buffer buffer(&bytes, cancelled);
    layout_drawing drawn = layout_drawing::cancelled;
    {
        QPdfWriter writer(&buffer);
        writer.setPdfVersion(longest > c_most_plain_mm ? QPagedPaintDevice::PdfVersion_1_6
                                                       : QPagedPaintDevice::PdfVersion_1_4);
        writer.setResolution(static_cast<int>(units));
        writer.setTitle(QString::fromStdWString(title_of(layout)));
        writer.setPageSize(QPageSize(QSizeF(sheet.width(), sheet.height()), QPageSize::Millimeter, QString(),
                                     QPageSize::ExactMatch));
        writer.setPageMargins(QMarginsF());
        QPainter painter;
        if (!painter.begin(&writer))
            return failed(reason, vx_res_get_wstr(c_draw_not_made));
        painter.setRenderHints(QPainter::Antialiasing | QPainter::LosslessImageRendering);
        // The device is a whole number of units; the box of the page on it is as large, to the unit.
        double const mm = c_mm_per_inch / units;
        int const width = static_cast<int>(std::ceil(sheet.width() / mm));
        int const height = static_cast<int>(std::ceil(sheet.height() / mm));
        bmp_dc dc;
        dc.lend_painter(vx_native(&painter), width, height, picture_dpi / units);
        Tvx_box_d2 const shown{sheet.min_x, sheet.min_y, sheet.min_x + width * mm, sheet.min_y + height * mm};
        drawn = draw_layout(layout, shown, dc, cancelled);
        if (drawn != layout_drawing::cancelled && !painter.end())
            return failed(reason, vx_res_get_wstr(c_draw_not_made));
    }
    if (drawn == layout_drawing::cancelled || buffer.is_cancelled() || cancelled())
        return c_layout_cancelled;
    set_exact_size(bytes, sheet);
    return save(file, bytes, drawn, reason);
}
