#pragma once

#include "platform/storage/vx_xml_data.h"

#include <string>

struct Ivx_scn_2d;
struct Ivx_scns_2d;

/// Scenes in files: caption, scale rule, view, unit, and the layers from the lowest with type, caption,
/// source, visibility and how they are drawn: the style managers and texts of vector layers, the colours of
/// rasters. Data are not looked at. In the file, sources near it are named from its folder, so that both can
/// be moved together, and passwords of connection strings stand as "***".
///
/// A load puts the layers of the file in place of the scene's own, and takes its caption unless that is
/// empty. False when the file cannot be read, is damaged, newer or no scene; the scene is then as it was.
/// `xml` may be null.
[[nodiscard]] VX_API bool vx_xml_data_load_scn2d_w(Ivx_xml_data *xml, wchar_t const *file, Ivx_scn_2d *scene);
/// All of the file or nothing; the same scene makes the same bytes.
VX_API bool vx_xml_data_save_scn2d_w(Ivx_xml_data *xml, wchar_t const *file, Ivx_scn_2d const *scene);

/// The same with the page layouts (platform/layers/vx_prj.h) that belong to the scene, in the same file;
/// one of both may be null. A load puts the file's layouts in place of those of the list, none for a file
/// without; which of them is active comes back too. All or nothing for both together. Files and data sets
/// that elements show are named as sources of layers, scenes and frames by their captions. A file holds 1,000
/// layouts, with 10,000 elements together, and 10,000 layers; what has more is not saved.
///
/// `others` are scenes of other files, and may be null: of those that a frame of the layouts names, the file
/// keeps the name and where they lie, 1,000 at most with 32,767 letters each. A load puts empty scenes in
/// place of those of the list, each with its name, never twice the same nor that of `scene`, and its file,
/// which is not looked at.
[[nodiscard]] VX_API bool vx_xml_data_load_scn2d_layouts_w(Ivx_xml_data *xml, wchar_t const *file,
                                                           Ivx_scn_2d *scene, Ivx_scns_2d *layouts,
                                                           Ivx_scns_2d *others = nullptr);
VX_API bool vx_xml_data_save_scn2d_layouts_w(Ivx_xml_data *xml, wchar_t const *file, Ivx_scn_2d const *scene,
                                             Ivx_scns_2d const *layouts, Ivx_scns_2d const *others = nullptr);
/// The bytes of the file that such a save would write, with sources named from the folder of `file`; nothing
/// is written. Empty for what is not saved.
[[nodiscard]] VX_API std::string vx_scn2d_layouts_bytes_w(wchar_t const *file, Ivx_scn_2d const *scene,
                                                          Ivx_scns_2d const *layouts,
                                                          Ivx_scns_2d const *others = nullptr);
