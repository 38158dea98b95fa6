#pragma once

class QString;
class Tvx_other_panel;
class Tvx_stl_mngr_edit;
class Tvx_tour_stage;

/// The thematic maps that a newcomer would make first, each by hand from one style to Apply, with pictures of
/// the steps and of the map with the editor beside it.
class Tvx_tour_maps
{
public:
    explicit Tvx_tour_maps(Tvx_tour_stage &stage) : f_stage(stage) {}

    /// The map is empty before and after.
    void show();

private:
    void show_counties_by_births();
    void show_countries_by_continent();
    void show_cities_by_size();
    void show_streets_by_rule();

    /// Opens a copy of an example and the editor on it; null and a failure when that does not come about.
    Tvx_stl_mngr_edit *open(QString const &name, QString const &folder);
    void choose_mode(Tvx_stl_mngr_edit *edit, int mode);
    /// The choice of the field that the scale in force is made of.
    void choose_field(Tvx_stl_mngr_edit *edit, wchar_t const *field);
    void type_into_cell(Tvx_stl_mngr_edit *edit, int col, int row, wchar_t const *text);
    /// Opens the style of a cell; in its dialog sets a colour, unless it is null, and a size, unless that is;
    /// with a name also a picture.
    void change_style(Tvx_stl_mngr_edit *edit, int col, int row, wchar_t const *color, wchar_t const *size,
                      char const *picture = nullptr);
    void hide_other_values(Tvx_other_panel *panel);
    /// Apply, a picture, and all closed again.
    void finish(char const *picture);

    Tvx_tour_stage &f_stage;
};
