#pragma once

#include "platform/toolkit/core/object.h"
#include "platform/toolkit/core/types.h"

#include <memory>

class TBitmap;

/// A translucent picture above all windows that takes no mouse and no focus. Pixels of the key colour are
/// holes.
class VX_API TOverlayWindow : public TObject
{
public:
    TOverlayWindow();
    ~TOverlayWindow() override;

    /// Shows the picture, of which it keeps a copy, with its corner at a point of the screen.
    void Update(TPoint const &corner, TBitmap const &picture, TColor key);
    /// The same picture elsewhere; nothing before the first one.
    void Move(TPoint const &corner);
    void Hide();
    [[nodiscard]] bool GetVisible() const;

private:
    class view;
    std::unique_ptr<view> f_view;
};
