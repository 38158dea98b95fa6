#pragma once

#include "styles/simple/base_style_edit.h"

/// Edits a base polygon style: the colour of the fill.
class VX_API Tvx_bpgn_edit : public Tvx_base_style_edit
{
public:
    explicit Tvx_bpgn_edit(TComponent *owner);

    [[nodiscard]] void *get_bpgn_style() const { return get_style(); }
    void set_bpgn_style(void *style) { set_style(style); }
};
