#pragma once

class QString;
class Tvx_tour_stage;

/// Layers over property files: a hill model by its scale, with and without mixed colours, a slice of a stack,
/// and points placed by two properties, each with its page beside the map.
class Tvx_tour_property
{
public:
    explicit Tvx_tour_property(Tvx_tour_stage &stage) : f_stage(stage) {}

    /// The map is empty before and after.
    void show();

private:
    void show_hills(QString const &folder);
    void show_slice(QString const &folder);
    void show_points(QString const &folder);
    /// Opens the file and the editor on its layer; the page, or null and a failure.
    template <class Page>
    Page *open(QString const &path);
    /// Apply, a picture, and all closed again.
    void finish(char const *picture);

    Tvx_tour_stage &f_stage;
};
