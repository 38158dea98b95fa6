#pragma once

#include "controls/forms/lists.h"
#include "styles/complex/cpx_panel.h"

class Tvx_caption_panel;

/// How the points of a spot layer lie on their net.
enum Tvx_spot_type : int
{
    c_spot_rows = 0,
    c_spot_staggered = 1, ///< every other row moved by half a step
};

/// A caption and a list of the types of spots.
class VX_API Tvx_spot_type_panel : public Tvx_cpx_panel
{
public:
    explicit Tvx_spot_type_panel(TComponent *owner);

    void load_res() override;
    void update_controls() override;

    [[nodiscard]] Tvx_spot_type get_spot_type() const { return f_spot_type; }
    /// Fires nothing.
    void set_spot_type(Tvx_spot_type type);
    [[nodiscard]] Tvx_combo_box *get_combo() const { return f_combo; }

    TNotifyEvent on_changed;

protected:
    void CreateWnd() override;

private:
    void on_combo_change(TObject *sender);

    Tvx_caption_panel *f_caption;
    Tvx_combo_box *f_combo;
    Tvx_spot_type f_spot_type = c_spot_rows;
    bool f_created = false; ///< the combo has its window, and its entries
};
