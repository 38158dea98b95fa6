#pragma once

#include "styles/complex/cpx_framed_panel.h"
#include "styles/complex/cpx_paints.h"

/// The sample of a complex style in its frame.
class VX_API Tvx_cpx_layers_draw : public Tvx_cpx_framed_panel
{
public:
    explicit Tvx_cpx_layers_draw(TComponent *owner);

    void update_controls() override { f_paint->Invalidate(); }
    void set_style(void *style) { f_paint->set_style(style); }
    [[nodiscard]] Tvx_cpx_layers_paint *get_paint() const { return f_paint; }

private:
    Tvx_cpx_layers_paint *f_paint;
};

/// The sample of a layer in its frame.
class VX_API Tvx_cpx_layer_draw : public Tvx_cpx_framed_panel
{
public:
    explicit Tvx_cpx_layer_draw(TComponent *owner);

    void update_controls() override { f_paint->Invalidate(); }
    void set_style_lr(void *layer) { f_paint->set_style_lr(layer); }
    [[nodiscard]] Tvx_cpx_layer_paint *get_paint() const { return f_paint; }

private:
    Tvx_cpx_layer_paint *f_paint;
};
