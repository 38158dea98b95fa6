#pragma once

#include "controls/forms/panels.h"

#include "platform/base/closure.h"
#include "platform/base/export.h"

struct Ivx_layer;

/// Base of every page of the layer page set.
///
/// The page set makes a page once, shows and hides it with the type of the layer, and hands it the layer. It
/// binds first and refreshes after: `set_lr2d(layer)`, `update_controls()`. It clears a page that has had a
/// layer in the same way, with null. By then the former layer may have ended, so a page reaches its layer
/// only through `get_lr2d`, and neither `set_lr2d`, `update_controls` nor the destructor touches objects of
/// the former one.
class VX_API Tvx_basic_lr2d_edit : public Tvx_panel
{
public:
    explicit Tvx_basic_lr2d_edit(TComponent *owner);
    ~Tvx_basic_lr2d_edit() override;

    /// Builds the children. Called once, after the parent is set.
    virtual void create() {}
    /// Fills in the texts, in the language of the moment.
    virtual void load_res() = 0;
    /// Shows the layer's state, or an empty page without a layer. Fires nothing.
    virtual void update_controls() = 0;

    /// Writes the scale that is being edited to its store, where one file is kept for each property. Called
    /// before the host learns of an Apply.
    virtual void save_current_scl() {}
    /// Ends what the user is typing at the moment: with `taken` it counts, else it is dropped. The layer is
    /// still there. Called before an Apply, and before the layer ends.
    virtual void end_edit(bool /*taken*/) {}
    /// A panel of the page that stands on the property tab, or null. It exists from `create` on; the page set
    /// gives it its parent, its alignment and its visibility.
    [[nodiscard]] virtual TWinControl *get_coordinate_panel() { return nullptr; }
    /// True only while the page reports a change that the host must show at once, without an Apply.
    [[nodiscard]] virtual bool get_notify_host() const { return false; }

    [[nodiscard]] Ivx_layer *get_lr2d() const { return f_lr2d; }
    /// A plain store, no refresh. The layer stays its owner's.
    void set_lr2d(Ivx_layer *layer) { f_lr2d = layer; }
    void call_changed();

    /// The page's report upward: the user changed something. Fires once for each action, last.
    closure<void(TObject *)> on_changed;

protected:
    Ivx_layer *f_lr2d = nullptr;
};
