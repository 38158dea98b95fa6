#pragma once

#include <vector>

class QString;
class Tvx_cpx_items_grid;
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
    struct class_of_values
    {
        wchar_t const *up_to, *caption;
    };

    void show_counties_by_births();
    void show_counties_by_legend();
    void show_countries_by_continent();
    void show_cities_by_size();
    void show_streets_by_rule();
    /// Streets, hatches by class, cities: styles of the libraries.
    void show_library_styles();

    /// Counties in dashed hatches over a fill: layers of a complex style, one of them in a dialog below
    /// another.
    void show_complex_style();
    /// In the dialog of a complex style, inserts a layer or an element of a template, by the menu.
    void insert(Tvx_cpx_items_grid *list, int caption);

    /// Opens a copy of an example and the editor on it; null and a failure when that does not come about.
    Tvx_stl_mngr_edit *open(QString const &name, QString const &folder);
    /// Classes of a range scale that has ten, the first and the last of them open: upper bounds, without the
    /// last one, and captions.
    void make_classes(Tvx_stl_mngr_edit *edit, std::vector<class_of_values> const &classes);
    void choose_mode(Tvx_stl_mngr_edit *edit, int mode);
    /// The choice of the field that the scale in force is made of.
    void choose_field(Tvx_stl_mngr_edit *edit, wchar_t const *field);
    void type_into_cell(Tvx_stl_mngr_edit *edit, int col, int row, wchar_t const *text);
    void click_cell(Tvx_stl_mngr_edit *edit, int col, int row);
    /// Opens the menu of a header and clicks the line that the captions lead to; with a name also a picture.
    void choose_in_header(Tvx_stl_mngr_edit *edit, int col, std::vector<int> const &captions,
                          char const *picture = nullptr);
    /// In the style dialog that opens next, sets a colour, unless it is null, and a size, unless that is;
    /// with a name also a picture.
    void in_style_dialog(wchar_t const *color, wchar_t const *size, char const *picture = nullptr);
    /// Makes a picture of the dialog that opens next, and cancels it.
    void show_dialog(char const *picture);
    /// In the style dialog that opens next, takes the style of this number from the library of a file; with a
    /// name also a picture of the library.
    void in_library(wchar_t const *library, wchar_t const *number, char const *picture = nullptr);
    void hide_other_values(Tvx_other_panel *panel);
    /// Apply, a picture, and all closed again.
    void finish(char const *picture);

    Tvx_tour_stage &f_stage;
};
