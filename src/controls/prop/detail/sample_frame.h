#pragma once

#include "controls/forms/panels.h"

class TCanvas;

/// A sunken area for a sample, with an edge of one pixel that is seen on all four sides whatever the ground.
class Tvx_sample_frame : public Tvx_panel
{
public:
    explicit Tvx_sample_frame(TComponent *owner);

protected:
    void Paint() override;
    void AdjustClientRect(TRect &rect) override;
};

/// To be called when a sample has drawn itself: fades the picture while the control, or anything on which it
/// stands, is disabled.
void vx_fade_disabled(TControl const &sample, TCanvas *canvas, TRect const &rect);

/// A control for samples, which fade while it is disabled.
template <class Control>
class Tvx_fading : public Control
{
public:
    using Control::Control;

protected:
    void Paint() override
    {
        Control::Paint();
        vx_fade_disabled(*this, this->GetCanvas(), this->GetClientRect());
    }
};
