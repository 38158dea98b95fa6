#pragma once

#include "styles/complex/cpx_framed_panel.h"
#include "styles/complex/cpx_pgn_edits.h"
#include "styles/complex/cpx_pln_edits.h"
#include "styles/complex/cpx_pnt_edits.h"

#include <array>

/// The editors of all kinds of layers in one frame; the one for the key of the layer is seen. Each is made
/// when it is first wanted: a style has layers of two or three kinds.
class VX_API Tvx_cpx_layer_edit : public Tvx_cpx_framed_panel
{
public:
    explicit Tvx_cpx_layer_edit(TComponent *owner);

    void load_res() override;
    void update_controls() override;

    /// The layer stays its owner's. With null, or one of an unknown key, no editor is seen.
    void set_style_lr(void *layer) { f_style_lr = layer; }
    /// The editor for a key, compared without regard to case; null for one that none is for.
    [[nodiscard]] Tvx_cpx_basic_edit *find_edit(char const *key);

    /// The user changed a value of the layer.
    TNotifyEvent on_changed;

private:
    static constexpr std::size_t c_kind_count = 7;
    struct kind;
    static kind const c_kinds[c_kind_count];
    void on_edit_changed(TObject *sender);

    void *f_style_lr = nullptr;
    std::array<Tvx_cpx_basic_edit *, c_kind_count> f_edits{}; ///< null while nobody has asked for one
};
