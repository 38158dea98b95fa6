#pragma once

#include <functional>

class Tvx_tour_stage;
struct Ivx_layer;

/// Maps with names: cities over countries, streets along their lines, counties by a value scale of text
/// styles, cities in the scripts of their countries; and the editor of labels.
class Tvx_tour_labels
{
public:
    explicit Tvx_tour_labels(Tvx_tour_stage &stage) : f_stage(stage) {}

    /// The map is empty before and after.
    void show();

private:
    void show_cities();
    void show_streets();
    void show_counties();
    void show_scripts();
    /// Labels the layer of the row by the command of the menu; `fill` gets the text class in the editor,
    /// which a picture is made of where it has a name.
    void label(int row, std::function<void(void *text_class)> const &fill, char const *picture = nullptr);
    /// Puts a changed copy in the place of the layer.
    void change(int row, std::function<void(Ivx_layer *)> const &change);
    void finish(char const *picture);

    Tvx_tour_stage &f_stage;
};
