#include "platform/toolkit/controls/image.h"

#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/canvas.h"
#include "platform/toolkit/graphics/picture.h"

#include <algorithm>

TImage::TImage(TComponent *owner) : TGraphicControl(owner), f_picture(std::make_unique<TPicture>())
{
    SetBounds(0, 0, 105, 105);
    f_picture->OnChange = make_closure<&TImage::on_picture_change>(this);
}

TImage::~TImage()
{
    f_picture->OnChange = nullptr;
}

void TImage::on_picture_change(TObject *)
{
    if (GetAutoSize())
        AdjustSize();
    Invalidate();
}

void TImage::SetPicture(TPicture const *picture)
{
    f_picture->Assign(picture);
}

void TImage::SetStretch(bool stretch)
{
    f_stretch = stretch;
    Invalidate();
}

void TImage::SetCenter(bool center)
{
    f_center = center;
    Invalidate();
}

void TImage::SetProportional(bool proportional)
{
    f_proportional = proportional;
    Invalidate();
}

void TImage::SetTransparent(bool transparent)
{
    f_transparent = transparent;
    Invalidate();
}

bool TImage::CanAutoSize(int &width, int &height)
{
    if (f_picture->GetWidth() < 1 || f_picture->GetHeight() < 1)
        return false;
    width = f_picture->GetWidth();
    height = f_picture->GetHeight();
    return true;
}

TRect TImage::dest_rect() const
{
    int width = f_picture->GetWidth();
    int height = f_picture->GetHeight();
    int const room_x = GetWidth();
    int const room_y = GetHeight();
    bool const too_large = width > room_x || height > room_y;
    if (f_proportional && (f_stretch || too_large)) {
        double const scale = std::min(double(room_x) / width, double(room_y) / height);
        width = std::max(static_cast<int>(width * scale), 1);
        height = std::max(static_cast<int>(height * scale), 1);
    } else if (f_stretch) {
        width = room_x;
        height = room_y;
    }
    return f_center ? Bounds((room_x - width) / 2, (room_y - height) / 2, width, height)
                    : Bounds(0, 0, width, height);
}

void TImage::Paint()
{
    TBitmap *bitmap = f_picture->GetBitmap();
    if (bitmap->GetEmpty())
        return;
    if (f_transparent == bitmap->GetTransparent()) {
        GetCanvas()->StretchDraw(dest_rect(), bitmap);
        return;
    }
    TBitmap copy;
    copy.Assign(bitmap);
    copy.SetTransparent(f_transparent);
    GetCanvas()->StretchDraw(dest_rect(), &copy);
}
