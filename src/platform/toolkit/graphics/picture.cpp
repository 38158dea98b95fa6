#include "platform/toolkit/graphics/picture.h"

#include "platform/toolkit/graphics/bitmap.h"

TPicture::TPicture() : f_bitmap(std::make_unique<TBitmap>())
{
    f_bitmap->OnChange = make_closure<&TPicture::on_bitmap_change>(this);
}

TPicture::~TPicture() = default;

void TPicture::on_bitmap_change(TObject *)
{
    OnChange(this);
}

void TPicture::Assign(TPersistent const *source)
{
    if (auto const *other = dynamic_cast<TPicture const *>(source))
        f_bitmap->Assign(other->f_bitmap.get());
    else
        f_bitmap->Assign(source);
}

void TPicture::SetBitmap(TBitmap const *bitmap)
{
    f_bitmap->Assign(bitmap);
}

int TPicture::GetWidth() const
{
    return f_bitmap->GetWidth();
}

int TPicture::GetHeight() const
{
    return f_bitmap->GetHeight();
}

bool TPicture::LoadFromFile(UnicodeString const &file_name)
{
    return f_bitmap->LoadFromFile(file_name);
}

bool TPicture::SaveToFile(UnicodeString const &file_name) const
{
    return f_bitmap->SaveToFile(file_name);
}
