#include "platform/toolkit/core/clipboard.h"

#include "platform/toolkit/bridge/qt_graphics.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/graphics/bitmap.h"

#include <QtCore/QByteArray>
#include <QtCore/QMimeData>
#include <QtCore/QStringLiteral>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtGui/QImage>

namespace {
QClipboard &native()
{
    vx_qt_ensure_application();
    return *QGuiApplication::clipboard();
}

QString mime_name(UnicodeString const &format)
{
    QString const name = vx_qt_string(format);
    return name.contains(u'/') ? name : QStringLiteral("application/x-") + name;
}
} // namespace

UnicodeString TClipboard::GetAsText() const
{
    return vx_unicode_string(native().text());
}

void TClipboard::SetAsText(UnicodeString const &text)
{
    native().setText(vx_qt_string(text));
}

bool TClipboard::HasText() const
{
    QMimeData const *data = native().mimeData();
    return data && data->hasText();
}

bool TClipboard::HasPicture() const
{
    QMimeData const *data = native().mimeData();
    return data && data->hasImage();
}

void TClipboard::Assign(TPersistent const *source)
{
    if (auto const *bitmap = dynamic_cast<TBitmap const *>(source))
        native().setImage(*reinterpret_cast<QImage const *>(bitmap->NativeImage()));
    else
        TPersistent::Assign(source);
}

bool TClipboard::GetPicture(TBitmap *bitmap) const
{
    QImage const image = native().image();
    if (!bitmap || image.isNull())
        return false;
    vx_set_image(*bitmap, image);
    return true;
}

void TClipboard::SetData(UnicodeString const &format, std::string const &bytes)
{
    auto *data = new QMimeData;
    data->setData(mime_name(format), QByteArray::fromStdString(bytes));
    native().setMimeData(data);
}

bool TClipboard::HasFormat(UnicodeString const &format) const
{
    QMimeData const *data = native().mimeData();
    return data && data->hasFormat(mime_name(format));
}

std::string TClipboard::GetData(UnicodeString const &format) const
{
    QMimeData const *data = native().mimeData();
    return data ? data->data(mime_name(format)).toStdString() : std::string();
}

void TClipboard::Clear()
{
    native().clear();
}

TClipboard *Clipboard()
{
    static TClipboard clipboard;
    return &clipboard;
}
