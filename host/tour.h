#pragma once

#include "host/tour_stage.h"

/// A tour of the program by itself: works the windows by the events of a person and writes pictures of them.
class Tvx_tour : public Tvx_tour_stage
{
public:
    using Tvx_tour_stage::Tvx_tour_stage;

    /// With files: just their map, and the editor of the topmost layer. Without: everything, on the example
    /// data. True when nothing went wrong.
    [[nodiscard]] bool run(QStringList const &files);

private:
    void show_files(QStringList const &files);
    void show_example_maps();
    void show_scales();
    void show_sample_map();
    void show_objects();
    void show_navigation();
    void show_menu(int place);
    /// Opens the menu of the scales beside the selected layer; null and a failure when it does not open.
    [[nodiscard]] class QMenu *open_draw_by_menu();
    void show_layer_kinds();
    void show_apply();
    /// The page of text managers, one of which writes names by their values.
    void show_text_managers();
    void show_range_editor();
    void show_raster();
    void show_user_palettes(class Tvx_scale_grid &grid);
    void show_maps();
    void show_style_dialog();
    void show_broken_file();
    /// What plug-ins the machine has is not to be seen in the pictures.
    void leave_out_plugins();
    void show_plugins();
    void show_extensions();
};
