#pragma once

#include "host/layout_sync.h"

#include <QHash>
#include <QObject>
#include <QPointer>

#include <memory>

class Tvx_layout_window;
class Tvx_map_window;
struct Ivx_scns_2d;
struct Ivx_scn_2d;

/// The page layouts of the map, in the project's list, and the windows in which they are worked on.
class Tvx_map_layouts : public QObject
{
    Q_OBJECT

public:
    explicit Tvx_map_layouts(Tvx_map_window &window);
    /// Ends the layouts with their windows.
    ~Tvx_map_layouts() override;

    /// For the storage of maps.
    [[nodiscard]] Ivx_scns_2d *list() const;
    [[nodiscard]] int count() const;
    [[nodiscard]] QString name_at(int index) const;
    /// -1 when there is none.
    [[nodiscard]] int index_of(QString const &name) const;
    [[nodiscard]] int index_of(Ivx_scn_2d const *layout) const;

    /// A new layout with a page of what the map window shows; its window opens.
    Tvx_layout_window *add();
    /// Shows the window of the layout.
    Tvx_layout_window *open(int index);
    /// Null while it was never opened.
    [[nodiscard]] Tvx_layout_window *window_at(int index) const;
    /// Ask the user, over `parent`.
    void rename(int index, QWidget *parent);
    void remove(int index, QWidget *parent);
    /// Puts the layouts of a map that was loaded in place of these, with the scenes of other files that their
    /// frames name; the frames call the map so.
    void take(Ivx_scns_2d const &loaded, Ivx_scns_2d const &other_scenes, QString const &map_name);
    /// Takes all layouts away, unasked, and the scenes of other files.
    void clear();

    /// Asks about changes of elements that were not applied. False when the user wants to go on with them.
    [[nodiscard]] bool may_lose_changes();
    /// The map's name or whether it is saved has changed.
    void update_name();
    void close_windows();

    [[nodiscard]] Tvx_map_window &map() const { return f_map; }
    /// What the map window shows of its data; empty without any.
    [[nodiscard]] Tvx_box_d2 shown_box() const;
    [[nodiscard]] Tvx_layout_sync &sync() { return f_sync; }

signals:
    /// There is layout work that is not saved.
    void changed();

private:
    void refresh_windows();
    void forget_window(Ivx_scn_2d *layout);

    Tvx_map_window &f_map;
    Tvx_layout_sync f_sync;
    QHash<Ivx_scn_2d *, Tvx_layout_window *> f_windows;
};
