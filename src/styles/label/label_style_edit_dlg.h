#pragma once

#include "controls/forms/buttons.h"
#include "controls/forms/dlg_form.h"
#include "controls/numeric/size_panel.h"

struct Ivx_layer;

/// Where the labels of the current text class of a dynamic text layer may stand, and at which scales. The
/// class is written by `return_controls` alone. What labels along lines have differs from what others have.
class VX_API Tvx_label_style_edit_dlg : public Tvx_dlg_form
{
public:
    explicit Tvx_label_style_edit_dlg(TComponent *owner);

    void create_controls() override;
    void load_res() override;
    /// Not owned; null for none.
    void set_layer(Ivx_layer *layer) { f_layer = layer; }
    [[nodiscard]] Ivx_layer *get_layer() const { return f_layer; }
    /// Shows the class; nothing without a layer.
    void update_controls();
    /// Writes what is shown into the class. A number that was emptied stays.
    void return_controls();

    // Null before `create_controls`.
    [[nodiscard]] Tvx_radio_group *get_range_group() const { return f_range_group; }
    [[nodiscard]] Tvx_radio_group *get_duplicates_group() const { return f_duplicates_group; }
    [[nodiscard]] Tvx_size_panel *get_delta_x() const { return f_delta_x; }
    [[nodiscard]] Tvx_size_panel *get_delta_y() const { return f_delta_y; }
    [[nodiscard]] Tvx_radio_group *get_text_pos_x_group() const { return f_text_pos_x_group; }
    [[nodiscard]] Tvx_radio_group *get_text_pos_y_group() const { return f_text_pos_y_group; }
    [[nodiscard]] Tvx_radio_group *get_line_type_group() const { return f_line_type_group; }
    [[nodiscard]] Tvx_check_box *get_line_direction_check() const { return f_line_direction_check; }
    [[nodiscard]] Tvx_check_box *get_use_min_scale_check() const { return f_use_min_scale_check; }
    [[nodiscard]] Tvx_size_panel *get_min_scale() const { return f_min_scale; }
    [[nodiscard]] Tvx_check_box *get_use_max_scale_check() const { return f_use_max_scale_check; }
    [[nodiscard]] Tvx_size_panel *get_max_scale() const { return f_max_scale; }

private:
    void create_scales(TWinControl *cell);
    void show_deltas(bool enabled);
    void on_layout_line_clicked(TObject *sender);
    void on_use_min_scale_clicked(TObject *sender);
    void on_use_max_scale_clicked(TObject *sender);

    Ivx_layer *f_layer = nullptr;
    Tvx_radio_group *f_range_group = nullptr;
    Tvx_radio_group *f_duplicates_group = nullptr;
    Tvx_panel *f_sides[2] = {}; ///< of the shift, and what stands below it
    Tvx_size_panel *f_delta_x = nullptr;
    Tvx_size_panel *f_delta_y = nullptr;
    Tvx_radio_group *f_text_pos_x_group = nullptr;
    Tvx_radio_group *f_text_pos_y_group = nullptr;
    Tvx_radio_group *f_line_type_group = nullptr;
    Tvx_panel *f_line_direction_panel = nullptr;
    Tvx_check_box *f_line_direction_check = nullptr;
    Tvx_group_box *f_scales_box = nullptr;
    Tvx_check_box *f_use_min_scale_check = nullptr;
    Tvx_size_panel *f_min_scale = nullptr;
    Tvx_check_box *f_use_max_scale_check = nullptr;
    Tvx_size_panel *f_max_scale = nullptr;
};
