#pragma once

class Tvx_layout_window;
class Tvx_tour_stage;

#include <QString>

/// A page layout of the example data: made of the map, its elements moved and edited, written to PDF and to a
/// picture, saved with the map and opened again.
class Tvx_tour_layout
{
public:
    explicit Tvx_tour_layout(Tvx_tour_stage &stage) : f_stage(stage) {}

    /// The map is empty before and after.
    void show();

private:
    void show_page(Tvx_layout_window &window);
    void show_elements(Tvx_layout_window &window);
    void shoot(Tvx_layout_window &window, QString const &name);
    void export_page(Tvx_layout_window &window);

    Tvx_tour_stage &f_stage;
};
