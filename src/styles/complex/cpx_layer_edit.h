#pragma once

#include "styles/complex/cpx_framed_panel.h"
#include "styles/complex/cpx_pgn_edits.h"
#include "styles/complex/cpx_pln_edits.h"
#include "styles/complex/cpx_pnt_edits.h"

/// The editors of all kinds of layers in one frame; the one for the key of the layer is seen.
class VX_API Tvx_cpx_layer_edit : public Tvx_cpx_framed_panel
{
public:
    explicit Tvx_cpx_layer_edit(TComponent *owner);

    void load_res() override;
    void update_controls() override;

    /// The layer stays its owner's. With null, or one of an unknown key, no editor is seen.
    void set_style_lr(void *layer) { f_style_lr = layer; }
    /// The editor for a key, compared without regard to case; null for one that none is for.
    [[nodiscard]] Tvx_cpx_basic_edit *find_edit(char const *key) const;

    /// The user changed a value of the layer.
    TNotifyEvent on_changed;

private:
    struct kind
    {
        char const *key;
        Tvx_cpx_basic_edit *edit;
    };
    template <class Edit>
    void add_edit(char const *key);
    void on_edit_changed(TObject *sender);

    void *f_style_lr = nullptr;
    std::vector<kind> f_kinds;
};
