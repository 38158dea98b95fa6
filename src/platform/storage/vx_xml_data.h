#pragma once

#include "platform/base/export.h"
#include "platform/base/string_adp.h"

/// Scale and style files. The formats are described in docs/file-formats.md.
///
/// A load reads and checks the whole file first: at false the target is exactly as it was. A save puts all of
/// the file in place or nothing; what goes wrong is told to the user through the handler of
/// `vx_reason_set_handler`, since most callers have no result to give. The same content makes the same
/// bytes.
///
/// A storage object lives for one or a few calls and only keeps the reason of its last failure. Both families
/// of functions, here and in vx_xml_save_2d.h, work with it.
struct Ivx_xml_data;

[[nodiscard]] VX_API Ivx_xml_data *vx_xml_save_style_create();
VX_API void vx_xml_save_style_destroy(Ivx_xml_data *xml);
/// Ends a storage object, whichever function made it. Null is accepted.
VX_API void vx_xml_data_destroy(Ivx_xml_data *xml);
/// Why the last call with the object failed, a reason (platform/basic/vx_fault.h); empty when it did not.
VX_API void vx_xml_data_get_error_w(Ivx_xml_data const *xml, Ivx_string_adp *error);

/// Read a scale into the manager. `type` is the manager's style type, plain ("pnt_style") or manager key
/// ("pnt_mngr_style"); null and empty mean the manager's own. False when the file cannot be read, is damaged,
/// newer, of another kind of scale or of another style type. Marks and the active entry are gone after a
/// load; property names, mode and flags of the manager stay. `xml` may be null.
[[nodiscard]] VX_API bool vx_xml_save_style_load_val_scale(Ivx_xml_data *xml, wchar_t const *file, void *mngr,
                                                           char const *type);
[[nodiscard]] VX_API bool vx_xml_save_style_load_rng_scale(Ivx_xml_data *xml, wchar_t const *file, void *mngr,
                                                           char const *type);
[[nodiscard]] VX_API bool vx_xml_save_style_load_rule_scale(Ivx_xml_data *xml, wchar_t const *file,
                                                            void *mngr, char const *type);
/// Write a scale of the manager. Refused where the file name was made from a property name that holds a
/// separator, since the file would lie in another folder.
VX_API bool vx_xml_save_style_save_val_scale(Ivx_xml_data *xml, wchar_t const *file, void const *mngr,
                                             char const *type);
VX_API bool vx_xml_save_style_save_rng_scale(Ivx_xml_data *xml, wchar_t const *file, void const *mngr,
                                             char const *type);

/// Writes the base colours of the range scale as a colour map in the XML form of scientific viewers: points
/// of value, opacity and colour. Each range is one colour from just above its lower bound to its upper bound;
/// what lies below and above has the colours of the min and max entries, missing values that of the other
/// entry. Opacity is that of the colour times the scale's opacity curve; hidden rows are transparent. False
/// without a finite bound.
VX_API bool vx_xml_save_style_save_pv_color_map(Ivx_xml_data *xml, wchar_t const *file, void const *mngr,
                                                char const *type);

/// A single composed style in a file of its own: `style` is a `pnt_style`, `pln_style` or `pgn_style` object.
[[nodiscard]] VX_API bool vx_xml_save_style_load_style_pnt_file(wchar_t const *file, void *style);
[[nodiscard]] VX_API bool vx_xml_save_style_load_style_pln_file(wchar_t const *file, void *style);
[[nodiscard]] VX_API bool vx_xml_save_style_load_style_pgn_file(wchar_t const *file, void *style);
VX_API bool vx_xml_save_style_save_style_pnt_file(wchar_t const *file, void const *style);
VX_API bool vx_xml_save_style_save_style_pln_file(wchar_t const *file, void const *style);
VX_API bool vx_xml_save_style_save_style_pgn_file(wchar_t const *file, void const *style);
