#pragma once

#include "host/canvas_view.h"
#include "host/layer_list.h"

#include <QString>

#include <functional>
#include <optional>
#include <string>
#include <vector>

struct Ivx_scns_2d;

/// Maps in files (docs/file-formats.md, *Scenes*): the layers with how they are drawn, and the view.

/// A layer of a file. It is there whatever becomes of its data.
struct Tvx_scene_layer
{
    Tvx_layer_list::layer_ptr layer;
    std::optional<Tvx_map_unit> unit = {};
    Tvx_layer_mark mark = c_mark_none;
    /// A reason (platform/basic/vx_fault.h) why the layer is not as it was saved; empty when it is.
    QString reason = {};
    /// What of the data cannot be used, though they are opened.
    QString flaw = {};
};

struct Tvx_loaded_scene
{
    /// From the lowest; their data are not opened yet.
    std::vector<Tvx_scene_layer> layers;
    std::optional<Tvx_canvas_view> view;
    /// What frames of its layouts call the map; empty where it has none.
    QString name;
    /// A reason why there is nothing; empty when the file was read.
    QString error;
};

/// Whether the name is one that maps are saved under.
[[nodiscard]] bool vx_map_scene_is_name(QString const &path);
/// The name with the suffix that tells a saved map.
[[nodiscard]] QString vx_map_scene_with_suffix(QString const &path);
/// What the window calls the map of a file.
[[nodiscard]] QString vx_map_scene_name(QString const &path);

/// Reads a file, and nothing else. Layouts of the map come to `layouts`, the names and files of other scenes
/// that their frames name to `other_scenes`; both may be null.
[[nodiscard]] Tvx_loaded_scene vx_map_scene_load(QString const &path, Ivx_scns_2d *layouts = nullptr,
                                                 Ivx_scns_2d *other_scenes = nullptr);
/// Asks for a password; the argument names the server without one. Nothing when the user has none.
using Tvx_password_question = std::function<std::optional<QString>(QString const &server)>;
/// Puts passwords in the places that the file has for them; asks once for each server.
void vx_map_scene_ask_passwords(std::vector<Tvx_scene_layer> &layers, Tvx_password_question const &ask);
/// Opens the data of a layer that was loaded, and reads what its first picture needs, which shows `view`. A
/// layer whose data cannot be opened is marked, one whose data have become of another kind gets a style of
/// its own.
void vx_map_scene_open_layer(Tvx_scene_layer &layer, std::optional<Tvx_box_d2> const &view);

/// The page layouts of a map, what their frames call the map, and the scenes of other files.
struct Tvx_scene_layouts
{
    QString map_name = {};
    Ivx_scns_2d const *layouts = nullptr;
    Ivx_scns_2d const *other_scenes = nullptr;
};

/// Saves the layers, the view and the layouts. False when that fails, which the user has been told.
[[nodiscard]] bool vx_map_scene_save(QString const &path, Tvx_layer_list const &layers,
                                     Tvx_canvas_view const &view, Tvx_scene_layouts const &layouts = {});
/// The bytes of the file that this would write, without writing it. Empty when it could not be read again.
[[nodiscard]] std::string vx_map_scene_bytes(QString const &path, Tvx_layer_list const &layers,
                                             Tvx_canvas_view const &view, Tvx_scene_layouts const &layouts);
