#pragma once

#include "host/canvas_view.h"
#include "host/map_unit.h"

#include "platform/base/owned.h"
#include "platform/layers/vx_scn_2d.h"

#include <QString>
#include <QStringList>

#include <utility>
#include <vector>

class Tvx_layer_list;

using Tvx_scene_list_ptr = vx::owned<Ivx_scns_2d, &vx_scns_2d_destroy>;

/// The map as a scene of the project, so that frames of layouts can name it: clones of the map's layers, made
/// when they are needed. Scenes that came to the project from files get their data in the same way, and those
/// that a saved map only names are read then.
class Tvx_layout_sync
{
public:
    /// While one lives, the scenes stay as they are: somebody draws them.
    class use
    {
    public:
        explicit use(Tvx_layout_sync &sync) : f_sync(sync) { ++f_sync.f_uses; }
        use(use const &) = delete;
        use &operator=(use const &) = delete;
        ~use() { --f_sync.f_uses; }

    private:
        Tvx_layout_sync &f_sync;
    };

    /// The list must outlive the object, which takes its scene away from the project when it ends.
    Tvx_layout_sync(Tvx_layer_list const &layers, QString const &name);
    Tvx_layout_sync(Tvx_layout_sync const &) = delete;
    Tvx_layout_sync &operator=(Tvx_layout_sync const &) = delete;
    ~Tvx_layout_sync();

    [[nodiscard]] bool is_used() const { return f_uses > 0; }
    /// Brings the scenes in line with the map; little work where nothing has changed. Not while they are
    /// used.
    void refresh();
    /// Another number whenever `refresh` found something else to be drawn.
    [[nodiscard]] int revision() const { return f_revision; }
    [[nodiscard]] Ivx_scn_2d *scene() const { return f_scene; }
    [[nodiscard]] QString const &name() const { return f_name; }
    struct renaming
    {
        QString from;
        QString to;
    };
    /// Frames of all layouts that name the map go with its name. A scene of another file that has the name
    /// gets a free one, and its frames go with it. Gives what was renamed, in this order.
    std::vector<renaming> set_name(QString const &name);
    /// Scenes of other files that frames of the layouts name, as the storage of maps gives them. Layouts are
    /// there already.
    void take_other_scenes(Ivx_scns_2d const &loaded);
    /// For the storage of maps: the scenes of other files, also those that could not be read.
    [[nodiscard]] Tvx_scene_list_ptr other_scenes() const;
    /// Takes the scenes of other files away from the project, as soon as nobody draws them.
    void forget_other_scenes();
    /// What the map window shows.
    void set_view(Tvx_canvas_view const &view);
    /// Files of scenes that could not be read, and layers of such whose data could not be opened, since this
    /// was last asked.
    [[nodiscard]] QStringList take_failed();

private:
    /// What a clone was made of.
    struct source
    {
        int id;
        int revision;
        friend bool operator==(source const &, source const &) = default;
    };
    /// All that the scene shows of the map.
    struct face
    {
        source layer;
        bool visible;
        QString name;
        friend bool operator==(face const &, face const &) = default;
    };
    [[nodiscard]] std::vector<face> make_faces() const;
    void copy_layers(std::vector<face> faces);
    [[nodiscard]] QString free_name(QString const &name) const;
    /// Gives a scene of another file that has the name a free one. Empty where there is none.
    std::vector<renaming> make_way(QString const &name);
    [[nodiscard]] bool is_leaving(Ivx_scn_2d const *scene) const;
    void erase_leaving();
    void read_other_scenes();
    void open_other_scenes();

    Tvx_layer_list const &f_layers;
    Ivx_scn_2d *f_scene;
    QString f_name;
    std::vector<face> f_faces; ///< of the scene's layers, from the lowest
    Tvx_map_unit f_unit;
    std::vector<Ivx_scn_2d *> f_opened;
    std::vector<Ivx_scn_2d *> f_leaving; ///< of a map that was closed while they were drawn
    /// Scenes of other files, empty: those that are still to be read, later those that could not be.
    Tvx_scene_list_ptr f_absent{vx_scns_2d_create()};
    bool f_is_read = true;
    QStringList f_failed;
    int f_revision = 1;
    int f_uses = 0;
};
