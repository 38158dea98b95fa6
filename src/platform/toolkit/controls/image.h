#pragma once

#include "platform/toolkit/core/graphic_control.h"

#include <memory>

class TPicture;

/// Shows a picture, 105 by 105; it repaints when the picture changes.
class VX_API TImage : public TGraphicControl
{
public:
    explicit TImage(TComponent *owner);
    ~TImage() override;

    [[nodiscard]] TPicture *GetPicture() const { return f_picture.get(); }
    void SetPicture(TPicture const *picture);
    /// Fills the control with the picture.
    [[nodiscard]] bool GetStretch() const { return f_stretch; }
    void SetStretch(bool stretch);
    [[nodiscard]] bool GetCenter() const { return f_center; }
    void SetCenter(bool center);
    /// Keeps the ratio of its sides; a picture larger than the control is made smaller.
    [[nodiscard]] bool GetProportional() const { return f_proportional; }
    void SetProportional(bool proportional);
    /// Leaves out the picture's transparent colour.
    [[nodiscard]] bool GetTransparent() const { return f_transparent; }
    void SetTransparent(bool transparent);

protected:
    void Paint() override;
    bool CanAutoSize(int &width, int &height) override;

private:
    [[nodiscard]] TRect dest_rect() const;
    void on_picture_change(TObject *sender);

    std::unique_ptr<TPicture> f_picture;
    bool f_stretch = false;
    bool f_center = false;
    bool f_proportional = false;
    bool f_transparent = false;
};
