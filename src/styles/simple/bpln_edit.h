#pragma once

#include "styles/simple/base_style_edit.h"

/// Edits a base line style: colour and width.
class VX_API Tvx_bpln_edit : public Tvx_base_style_edit
{
public:
    explicit Tvx_bpln_edit(TComponent *owner);

    [[nodiscard]] void *get_bpln_style() const { return get_style(); }
    void set_bpln_style(void *style) { set_style(style); }

    [[nodiscard]] Tvx_size_panel *get_width() const { return size_panel(); }
};
