#pragma once

#include "platform/storage/vx_xml_data.h"

struct Ivx_layer;

/// The storage functions of the editors. Scale files are the same as those of vx_xml_data.h, arguments and
/// results too.
[[nodiscard]] VX_API Ivx_xml_data *vx_xml_save_2d_create();
VX_API void vx_xml_save_2d_destroy(Ivx_xml_data *xml);

[[nodiscard]] VX_API bool vx_xml_data_load_val_scale_w(Ivx_xml_data *xml, wchar_t const *file, void *mngr,
                                                       char const *type);
[[nodiscard]] VX_API bool vx_xml_data_load_rng_scale_w(Ivx_xml_data *xml, wchar_t const *file, void *mngr,
                                                       char const *type);
[[nodiscard]] VX_API bool vx_xml_data_load_rule_scale_w(Ivx_xml_data *xml, wchar_t const *file, void *mngr,
                                                        char const *type);
VX_API bool vx_xml_data_save_val_scale_w(Ivx_xml_data *xml, wchar_t const *file, void const *mngr,
                                         char const *type);
VX_API bool vx_xml_data_save_rng_scale_w(Ivx_xml_data *xml, wchar_t const *file, void const *mngr,
                                         char const *type);
VX_API bool vx_xml_data_save_rule_scale_w(Ivx_xml_data *xml, wchar_t const *file, void const *mngr,
                                          char const *type);

/// The text classes of a dynamic text layer (platform/layers/vx_tld_lr2d.h) with the current one. A load puts
/// those of the file in place of the layer's own, or leaves the layer as it was; the layer's visibility and
/// what its labels stand at are its own. False also for a layer of another kind.
[[nodiscard]] VX_API bool vx_xml_data_load_lr2d_dtld(Ivx_xml_data *xml, wchar_t const *file,
                                                     Ivx_layer *layer);
VX_API bool vx_xml_data_save_lr2d_dtld(Ivx_xml_data *xml, wchar_t const *file, Ivx_layer *layer);

/// A list of palettes (vx_palette.h) with captions and colours. A load replaces the list, or leaves it as it
/// was.
[[nodiscard]] VX_API bool vx_xml_data_load_clr_palettes(Ivx_xml_data *xml, wchar_t const *file,
                                                        void *palettes);
VX_API bool vx_xml_data_save_clr_palettes(Ivx_xml_data *xml, wchar_t const *file, void const *palettes);
/// Takes into the user's palettes (vx_palette.h) what another process has saved since they were read here.
/// The palettes of the list are others afterwards. A file that is missing or cannot be read changes nothing.
VX_API void vx_user_palettes_refresh();
