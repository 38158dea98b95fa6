#pragma once

#include "controls/forms/misc.h"

class TBitmap;

/// A control that shows a sample.
class VX_API Tvx_cpx_sample_paint : public TCustomControl
{
public:
    explicit Tvx_cpx_sample_paint(TComponent *owner);

protected:
    void Paint() override;
    /// On a bitmap of the control's size in pixels of the screen.
    virtual void draw_sample(TBitmap *bitmap) = 0;
};

/// The sample of a complex style.
class VX_API Tvx_cpx_layers_paint : public Tvx_cpx_sample_paint
{
public:
    using Tvx_cpx_sample_paint::Tvx_cpx_sample_paint;

    /// The style stays its owner's; null shows nothing.
    void set_style(void *style) { f_style = style; }

protected:
    void draw_sample(TBitmap *bitmap) override;

private:
    void *f_style = nullptr;
};

/// The sample of one layer of a complex style, drawn alone.
class VX_API Tvx_cpx_layer_paint : public Tvx_cpx_sample_paint
{
public:
    using Tvx_cpx_sample_paint::Tvx_cpx_sample_paint;

    /// The layer stays its owner's; null shows nothing.
    void set_style_lr(void *layer) { f_style_lr = layer; }

protected:
    void draw_sample(TBitmap *bitmap) override;

private:
    void *f_style_lr = nullptr;
};
