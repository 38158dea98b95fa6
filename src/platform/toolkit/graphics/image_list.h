#pragma once

#include "platform/toolkit/core/component.h"

#include <memory>
#include <vector>

class TBitmap;
class TCanvas;

/// Pictures of one size, by number from 0; 16 by 16 at the start. A new size empties the list.
class VX_API TCustomImageList : public TComponent
{
public:
    explicit TCustomImageList(TComponent *owner);
    /// A list of another size.
    TCustomImageList(TComponent *owner, int width, int height);
    ~TCustomImageList() override;

    [[nodiscard]] int GetWidth() const { return f_width; }
    void SetWidth(int width);
    [[nodiscard]] int GetHeight() const { return f_height; }
    void SetHeight(int height);
    [[nodiscard]] int GetCount() const { return static_cast<int>(f_images.size()); }

    /// Adds a copy; a bitmap that is several times as wide as the list holds several pictures. Pixels that
    /// are not black in `mask`, which may be null, are transparent. Gives the number of the first new
    /// picture, -1 if there is none: the bitmap is null or empty.
    int Add(TBitmap const *image, TBitmap const *mask);
    /// The same; the pixels of the colour `mask` are transparent, with `clDefault` those that have the colour
    /// of the bottom left one.
    int AddMasked(TBitmap const *image, TColor mask);
    void Insert(int index, TBitmap const *image, TBitmap const *mask);
    void Replace(int index, TBitmap const *image, TBitmap const *mask);
    void Delete(int index);
    void Clear();
    /// Adds the pictures of another list.
    void AddImages(TCustomImageList const *source);
    void Assign(TPersistent const *source) override;

    /// False, with `image` left alone, for a number outside of the list.
    bool GetBitmap(int index, TBitmap *image) const;
    /// Nothing for a number outside; a picture that is not enabled is drawn in greys.
    void Draw(TCanvas *canvas, int x, int y, int index, bool enabled = true);

    /// Between these, which nest, changes are reported once, at the end.
    void BeginUpdate();
    void EndUpdate();

    /// Adds or removes a listener; it runs after every change of the list.
    void RegisterChanges(closure<void(TObject *)> const &listener);
    void UnRegisterChanges(closure<void(TObject *)> const &listener);

    closure<void(TObject *)> OnChange;

protected:
    void Change();

private:
    [[nodiscard]] std::vector<std::unique_ptr<TBitmap>> cut(TBitmap const &image) const;
    int append(TBitmap const &image);

    int f_width;
    int f_height;
    std::vector<std::unique_ptr<TBitmap>> f_images;
    std::vector<closure<void(TObject *)>> f_listeners;
    int f_update_count = 0;
    bool f_changed = false;
};

class VX_API TImageList : public TCustomImageList
{
public:
    using TCustomImageList::TCustomImageList;
};
