#include "platform/toolkit/graphics/image_list.h"

#include "platform/toolkit/bridge/qt_graphics.h"
#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/canvas.h"

#include <QtGui/QImage>
#include <QtGui/QRgb>

#include <algorithm>

namespace {
constexpr int c_default_size = 16;

/// Greys at half opacity: how a picture looks that cannot be used.
void grey_out(TBitmap &bitmap)
{
    bitmap.SetAlphaFormat(afPremultiplied);
    for (int y = 0; y < bitmap.GetHeight(); ++y) {
        auto *row = static_cast<QRgb *>(bitmap.ScanLine(y));
        for (int x = 0; x < bitmap.GetWidth(); ++x) {
            int const grey = qGray(row[x]) / 2;
            row[x] = qRgba(grey, grey, grey, qAlpha(row[x]) / 2);
        }
    }
}

/// The image with those pixels transparent that are not black in the mask.
void apply_mask(TBitmap &image, TBitmap const &mask)
{
    QImage const holes =
        reinterpret_cast<QImage const *>(mask.NativeImage())->convertToFormat(QImage::Format_RGB32);
    image.SetAlphaFormat(afPremultiplied);
    int const height = std::min(image.GetHeight(), holes.height());
    int const width = std::min(image.GetWidth(), holes.width());
    for (int y = 0; y < height; ++y) {
        auto *row = static_cast<QRgb *>(image.ScanLine(y));
        auto const *hole = reinterpret_cast<QRgb const *>(holes.constScanLine(y));
        for (int x = 0; x < width; ++x)
            if ((hole[x] & RGB_MASK) != 0)
                row[x] = 0;
    }
}
} // namespace

TCustomImageList::TCustomImageList(TComponent *owner)
    : TCustomImageList(owner, c_default_size, c_default_size)
{
}

TCustomImageList::TCustomImageList(TComponent *owner, int width, int height)
    : TComponent(owner), f_width(std::max(width, 1)), f_height(std::max(height, 1))
{
}

TCustomImageList::~TCustomImageList() = default;

void TCustomImageList::SetWidth(int width)
{
    if (width < 1 || width == f_width)
        return;
    f_width = width;
    f_images.clear();
    Change();
}

void TCustomImageList::SetHeight(int height)
{
    if (height < 1 || height == f_height)
        return;
    f_height = height;
    f_images.clear();
    Change();
}

std::vector<std::unique_ptr<TBitmap>> TCustomImageList::cut(TBitmap const &image) const
{
    std::vector<std::unique_ptr<TBitmap>> pictures;
    QImage const &whole = *reinterpret_cast<QImage const *>(image.NativeImage());
    int const count = std::max(image.GetWidth() / f_width, 1);
    for (int i = 0; i < count; ++i) {
        auto picture = std::make_unique<TBitmap>();
        // Beyond the edge of a picture that is too small the copy is transparent.
        // What is no larger shares its pixels with its source, by which buttons know their icon again.
        vx_set_image(*picture, whole.size() == QSize(f_width, f_height)
                                   ? whole
                                   : whole.copy(i * f_width, 0, f_width, f_height));
        pictures.push_back(std::move(picture));
    }
    return pictures;
}

int TCustomImageList::append(TBitmap const &image)
{
    int const first = GetCount();
    for (auto &picture : cut(image))
        f_images.push_back(std::move(picture));
    Change();
    return first;
}

int TCustomImageList::Add(TBitmap const *image, TBitmap const *mask)
{
    if (!image || image->GetEmpty())
        return -1;
    TBitmap copy;
    copy.Assign(image);
    if (mask && !mask->GetEmpty())
        apply_mask(copy, *mask);
    else if (image->GetTransparent() && image->GetAlphaFormat() == afIgnored)
        copy.Mask(image->GetTransparentColor());
    return append(copy);
}

int TCustomImageList::AddMasked(TBitmap const *image, TColor mask)
{
    if (!image || image->GetEmpty())
        return -1;
    TBitmap copy;
    copy.Assign(image);
    if (mask == clDefault) {
        copy.SetTransparentMode(tmAuto);
        mask = copy.GetTransparentColor();
    }
    if (mask != clNone)
        copy.Mask(mask);
    return append(copy);
}

void TCustomImageList::Insert(int index, TBitmap const *image, TBitmap const *mask)
{
    if (index < 0 || index > GetCount())
        return;
    BeginUpdate();
    int const first = Add(image, mask);
    if (first >= 0)
        std::rotate(f_images.begin() + index, f_images.begin() + first, f_images.end());
    EndUpdate();
}

void TCustomImageList::Replace(int index, TBitmap const *image, TBitmap const *mask)
{
    if (index < 0 || index >= GetCount())
        return;
    BeginUpdate();
    int const first = Add(image, mask);
    if (first >= 0) {
        f_images[static_cast<std::size_t>(index)] = std::move(f_images[static_cast<std::size_t>(first)]);
        f_images.resize(static_cast<std::size_t>(first));
    }
    EndUpdate();
}

void TCustomImageList::Delete(int index)
{
    if (index < 0 || index >= GetCount())
        return;
    f_images.erase(f_images.begin() + index);
    Change();
}

void TCustomImageList::Clear()
{
    if (f_images.empty())
        return;
    f_images.clear();
    Change();
}

void TCustomImageList::AddImages(TCustomImageList const *source)
{
    if (!source)
        return;
    BeginUpdate();
    int const count = source->GetCount();
    for (int i = 0; i < count; ++i)
        append(*source->f_images[static_cast<std::size_t>(i)]);
    EndUpdate();
}

void TCustomImageList::Assign(TPersistent const *source)
{
    auto const *other = dynamic_cast<TCustomImageList const *>(source);
    if (!other)
        return TComponent::Assign(source);
    if (other == this)
        return;
    BeginUpdate();
    f_images.clear();
    f_width = other->f_width;
    f_height = other->f_height;
    AddImages(other);
    Change();
    EndUpdate();
}

bool TCustomImageList::GetBitmap(int index, TBitmap *image) const
{
    if (!image || index < 0 || index >= GetCount())
        return false;
    image->Assign(f_images[static_cast<std::size_t>(index)].get());
    return true;
}

void TCustomImageList::Draw(TCanvas *canvas, int x, int y, int index, bool enabled)
{
    if (!canvas || index < 0 || index >= GetCount())
        return;
    TBitmap *const picture = f_images[static_cast<std::size_t>(index)].get();
    if (enabled)
        return canvas->Draw(x, y, picture);
    TBitmap grey;
    grey.Assign(picture);
    grey_out(grey);
    canvas->Draw(x, y, &grey);
}

void TCustomImageList::BeginUpdate()
{
    ++f_update_count;
}

void TCustomImageList::EndUpdate()
{
    if (--f_update_count == 0 && f_changed)
        Change();
}

void TCustomImageList::RegisterChanges(closure<void(TObject *)> const &listener)
{
    f_listeners.push_back(listener);
}

void TCustomImageList::UnRegisterChanges(closure<void(TObject *)> const &listener)
{
    std::erase(f_listeners, listener);
}

void TCustomImageList::Change()
{
    f_changed = f_update_count > 0;
    if (f_changed)
        return;
    OnChange(this);
    // A listener may leave while it is being told.
    auto const listeners = f_listeners;
    for (auto const &listener : listeners)
        if (std::find(f_listeners.begin(), f_listeners.end(), listener) != f_listeners.end())
            listener(this);
}
