#include "platform/toolkit/bridge/qt_graphics.h"
#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/glyph_priv.h"
#include "platform/toolkit/graphics/image_list.h"

#include <QtCore/QByteArray>
#include <QtCore/QCache>
#include <QtCore/QCoreApplication>
#include <QtCore/QSize>
#include <QtGui/QIcon>
#include <QtGui/QPixmap>
#include <QtWidgets/QAbstractButton>

#include <utility>

namespace {
QImage clear_image(TBitmap const &bitmap)
{
    if (bitmap.GetAlphaFormat() != afIgnored)
        return vx_qt_image(bitmap);
    // A glyph without opacity of its own has its ground's colour in the bottom left corner.
    TBitmap copy;
    copy.Assign(&bitmap);
    copy.Mask(bitmap.GetTransparentColor());
    return vx_qt_image(copy);
}

/// Larger pictures stay with their button.
constexpr qsizetype c_shared_bytes = 16384;
constexpr int c_shared_icons = 512;

QIcon make_icon(QImage const &image, int count)
{
    int const width = image.width() / count;
    QIcon icon;
    icon.addPixmap(QPixmap::fromImage(image.copy(0, 0, width, image.height())), QIcon::Normal);
    if (count > 1)
        icon.addPixmap(QPixmap::fromImage(image.copy(width, 0, width, image.height())), QIcon::Disabled);
    return icon;
}

/// The icon of a picture that is new, or unlike the one that it shared its pixels with.
QIcon icon_by_pixels(QImage const &image, int count)
{
    static QCache<QByteArray, QIcon> icons(c_shared_icons);
    // Pictures of the screen end with the application.
    static bool const is_told = (qAddPostRoutine([] { icons.clear(); }), true);
    static_cast<void>(is_told);
    double const head[] = {double(count), double(image.width()), double(image.format()),
                           image.devicePixelRatio()};
    QByteArray key(reinterpret_cast<char const *>(head), sizeof head);
    // Row by row: what fills a row up to its end is anything.
    for (int y = 0; y < image.height(); ++y)
        key.append(reinterpret_cast<char const *>(image.constScanLine(y)),
                   (qsizetype(image.width()) * image.depth() + 7) / 8);
    if (QIcon const *const known = icons.object(key))
        return *known;
    QIcon const icon = make_icon(image, count);
    icons.insert(key, new QIcon(icon));
    return icon;
}

/// Equal pictures are one icon: Qt keeps what it makes of an icon, and never forgets the name of one that
/// was, so a program whose dialogs each had icons of their own would grow with every dialog.
QIcon icon_of(QImage const &image, int count)
{
    if (image.sizeInBytes() > c_shared_bytes || image.colorCount() > 0)
        return make_icon(image, count);
    // Most pictures come from the resources, whose pixels all their buttons share.
    static QCache<std::pair<qint64, int>, QIcon> icons(c_shared_icons);
    static bool const is_told = (qAddPostRoutine([] { icons.clear(); }), true);
    static_cast<void>(is_told);
    std::pair const key(image.cacheKey(), count);
    if (QIcon const *const known = icons.object(key))
        return *known;
    QIcon const icon = icon_by_pixels(image, count);
    icons.insert(key, new QIcon(icon));
    return icon;
}
} // namespace

void vx::glyph::set_button(void *abstract_button, TBitmap const &glyph, int count)
{
    auto *button = static_cast<QAbstractButton *>(abstract_button);
    if (glyph.GetEmpty()) {
        button->setIcon(QIcon());
        return;
    }
    QImage const image = glyph.GetTransparent() || glyph.GetAlphaFormat() != afIgnored ? clear_image(glyph)
                                                                                       : vx_qt_image(glyph);
    button->setIcon(icon_of(image, count));
    button->setIconSize(QSize(image.width() / count, image.height()) / image.devicePixelRatio());
}

void vx::glyph::set_button(void *abstract_button, TCustomImageList const *images, int index)
{
    auto *button = static_cast<QAbstractButton *>(abstract_button);
    TBitmap picture;
    if (!images || !images->GetBitmap(index, &picture)) {
        button->setIcon(QIcon());
        return;
    }
    button->setIcon(icon_of(vx_qt_image(picture), 1));
    button->setIconSize(QSize(images->GetWidth(), images->GetHeight()));
}
