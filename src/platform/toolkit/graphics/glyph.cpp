#include "platform/toolkit/bridge/qt_graphics.h"
#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/glyph_priv.h"
#include "platform/toolkit/graphics/image_list.h"

#include <QtCore/QSize>
#include <QtGui/QIcon>
#include <QtGui/QPixmap>
#include <QtWidgets/QAbstractButton>

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
    int const width = image.width() / count;
    QIcon icon;
    icon.addPixmap(QPixmap::fromImage(image.copy(0, 0, width, image.height())), QIcon::Normal);
    if (count > 1)
        icon.addPixmap(QPixmap::fromImage(image.copy(width, 0, width, image.height())), QIcon::Disabled);
    button->setIcon(icon);
    button->setIconSize(QSize(width, image.height()) / image.devicePixelRatio());
}

void vx::glyph::set_button(void *abstract_button, TCustomImageList const *images, int index)
{
    auto *button = static_cast<QAbstractButton *>(abstract_button);
    TBitmap picture;
    if (!images || !images->GetBitmap(index, &picture)) {
        button->setIcon(QIcon());
        return;
    }
    button->setIcon(QIcon(QPixmap::fromImage(vx_qt_image(picture))));
    button->setIconSize(QSize(images->GetWidth(), images->GetHeight()));
}
