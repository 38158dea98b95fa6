#pragma once

#include "platform/toolkit/graphics/graphics.h"

#include <memory>

class TBitmap;

/// What an image shows: a bitmap that is made at first use, or another graphic handed over by assignment.
/// `OnChange` runs after every change.
class VX_API TPicture : public TPersistent
{
public:
    TPicture();
    ~TPicture() override;

    /// From a picture or a bitmap, whose pixels are taken over; null empties it.
    void Assign(TPersistent const *source) override;

    /// Never null.
    [[nodiscard]] TBitmap *GetBitmap() { return f_bitmap.get(); }
    void SetBitmap(TBitmap const *bitmap);
    [[nodiscard]] TBitmap *GetGraphic() { return f_bitmap.get(); }
    [[nodiscard]] int GetWidth() const;
    [[nodiscard]] int GetHeight() const;
    [[nodiscard]] bool LoadFromFile(UnicodeString const &file_name);
    [[nodiscard]] bool SaveToFile(UnicodeString const &file_name) const;

    closure<void(TObject *)> OnChange;

private:
    void on_bitmap_change(TObject *sender);

    std::unique_ptr<TBitmap> f_bitmap;
};
