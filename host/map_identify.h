#pragma once

#include "host/canvas_view.h"

#include <QIcon>
#include <QString>

#include <utility>
#include <vector>

class Tvx_layer_list;

/// An object of the map.
struct Tvx_found_object
{
    int layer_id = -1;
    unsigned record = 0;
    /// Place of the class that draws it (host/layer_classes.h); -1 where all objects are drawn alike.
    int class_place = -1;
};

/// The objects that are drawn at a point of the view or next to it, the topmost first, `most` at most: of all
/// layers that are seen, without the objects of classes that are not drawn. A symbol or line is met where it
/// is drawn, an area within its outline.
[[nodiscard]] std::vector<Tvx_found_object> vx_map_identify(Tvx_layer_list const &layers,
                                                            Tvx_canvas_view const &view, Tvx_screen_point at,
                                                            std::size_t most);

/// What is known about an object.
struct Tvx_object_info
{
    QString layer;
    /// The first text among its attributes, else the number of its record.
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
