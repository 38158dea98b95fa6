#pragma once

#include "platform/toolkit/graphics/graphics.h"

#include <memory>

/// Layout of a bitmap's pixels in memory. `pfDevice` is the 32-bit layout.
enum TPixelFormat
{
    pfDevice,
    pf1bit,
    pf4bit,
    pf8bit,
    pf15bit,
    pf16bit,
    pf24bit,
    pf32bit,
    pfCustom
};

/// Which colour of a transparent bitmap is not drawn: `tmAuto` that of the pixel in the bottom left corner,
/// `tmFixed` the one that was set.
enum TTransparentMode
{
    tmAuto,
    tmFixed
};

/// What the fourth byte of a 32-bit pixel is. With `afIgnored` the bitmap is opaque; with the two others it
/// is the opacity, and the colours are kept multiplied by it.
enum TAlphaFormat
{
    afIgnored,
    afDefined,
    afPremultiplied
};

struct vx_native_image; ///< the image behind a bitmap, see the bridge

/// A picture of pixels. New area is white, or fully transparent in a bitmap with opacity.
///
/// Pixels lie in rows from the top; a row of `pf32bit` holds blue, green, red, opacity and one of `pf24bit`
/// blue, green, red. `pf8bit` is a scale of greys. Other layouts are not kept: setting one gives `pf32bit`.
/// Assigning copies the pixels (lazily, the copy is made when one of the two is written to).
class VX_API TBitmap : public TGraphic
{
public:
    TBitmap();
    TBitmap(int width, int height);
    ~TBitmap() override;

    void Assign(TPersistent const *source) override;
    [[nodiscard]] bool GetEmpty() const override;
    [[nodiscard]] int GetWidth() const override;
    [[nodiscard]] int GetHeight() const override;
    void SetWidth(int width) override;
    void SetHeight(int height) override;
    /// Keeps what fits of the old content at the top left. A size below 1 makes the bitmap empty, and one
    /// that no memory can be had for too.
    void SetSize(int width, int height);
    void Draw(TCanvas *canvas, TRect const &rect) override;
    [[nodiscard]] bool LoadFromFile(UnicodeString const &file_name) override;
    [[nodiscard]] bool SaveToFile(UnicodeString const &file_name) const override;
    /// From a picture file in memory, of any format that `LoadFromFile` takes.
    [[nodiscard]] bool LoadFromMemory(void const *data, int size);

    [[nodiscard]] TPixelFormat GetPixelFormat() const;
    void SetPixelFormat(TPixelFormat format);
    [[nodiscard]] TAlphaFormat GetAlphaFormat() const { return f_alpha_format; }
    /// Turns the pixels over to the other kind; from an opaque one all become fully opaque.
    void SetAlphaFormat(TAlphaFormat format);
    [[nodiscard]] TTransparentMode GetTransparentMode() const { return f_transparent_mode; }
    void SetTransparentMode(TTransparentMode mode);
    [[nodiscard]] TColor GetTransparentColor() const;
    /// Makes the mode `tmFixed`.
    void SetTransparentColor(TColor color);
    /// Makes a bitmap with opacity in which the pixels of `color` are fully transparent.
    void Mask(TColor color);

    /// First byte of row `row`, counted from 0 at the top; null outside of the bitmap. Good until the size,
    /// the format or the content is changed by other means. Painting through the canvas comes before what is
    /// written here.
    [[nodiscard]] void *ScanLine(int row);
    [[nodiscard]] void const *ScanLine(int row) const;
    /// Bytes from one row to the next.
    [[nodiscard]] int GetStride() const;

    /// Made at the first use.
    [[nodiscard]] TCanvas *GetCanvas();
    /// Lets go of what painting keeps; the pixels stay.
    void Dormant();
    /// Makes the bitmap empty.
    void ReleaseHandle();

    /// The image itself, for the bridge; painting through the canvas has ended.
    [[nodiscard]] vx_native_image *NativeImage();
    [[nodiscard]] vx_native_image const *NativeImage() const;
    /// To be called after the image was changed through the bridge, which keeps it in the bitmap's layout.
    void NativeChanged();

private:
    struct state;
    void on_canvas_change(TObject *sender);

    std::unique_ptr<state> f_state;
    TAlphaFormat f_alpha_format = afIgnored;
    TTransparentMode f_transparent_mode = tmAuto;
    TColor f_transparent_color = clNone;
};
