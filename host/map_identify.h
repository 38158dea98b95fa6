#pragma once

#include "host/canvas_view.h"

#include <QIcon>
#include <QString>

#include <utility>
#include <vector>

class Tvx_layer_list;

/// An object of the map, or a cell of one of its pictures.
struct Tvx_found_object
{
    int layer_id = -1;
    /// It has a record in a table. Others can be looked at only.
    bool has_record = true;
    unsigned record = 0;
    /// Without a record: number of the object in a property file; a raster's cell, its row above 32 bits of
    /// the column.
    unsigned long long cell = 0;
    /// Place of the class that draws it (host/layer_classes.h); -1 where all objects are drawn alike.
    int class_place = -1;
};

/// The objects that are drawn at a point of the view or next to it, the topmost first, `most` at most: of all
/// layers that are seen, without the objects of classes that are not drawn. A symbol or line is met where it
/// is drawn, an area within its outline; of a raster or grid the cell under the point is one, if it has a
/// value.
[[nodiscard]] std::vector<Tvx_found_object> vx_map_identify(Tvx_layer_list const &layers,
                                                            Tvx_canvas_view const &view, Tvx_screen_point at,
                                                            std::size_t most);

/// What is known about an object.
struct Tvx_object_info
{
    QString layer;
    /// The first text among its attributes, else the number of its record; the place of a cell.
    QString title;
    QString drawn_by;
    QIcon symbol;
    /// Names and values in the order of the fields; a null text for no value.
    std::vector<std::pair<QString, QString>> attributes;
};
[[nodiscard]] Tvx_object_info vx_map_object_info(Tvx_layer_list const &layers,
                                                 Tvx_found_object const &object);
/// Extent of a record's geometry in map units; empty without one.
[[nodiscard]] Tvx_box_d2 vx_map_object_box(Tvx_layer_list const &layers, int layer_id, unsigned record);
