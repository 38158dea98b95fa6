#pragma once

#include "platform/base/export.h"
#include "platform/base/string_adp.h"

/// Style libraries: named collections of ready styles. A library has three flat lists, of point, line and
/// polygon styles, each style under an index and a version, and a tree of items with captions that name the
/// styles by the same index and version. Everything in a list belongs to it and keeps its address. All
/// functions accept null and places outside a list.

/// A list of libraries, empty at first.
[[nodiscard]] VX_API void *vx_style_libs_create();
VX_API void vx_style_libs_destroy(void *libs);
VX_API void vx_style_libs_clear(void *libs);
[[nodiscard]] VX_API unsigned vx_style_libs_get_size(void const *libs);
[[nodiscard]] VX_API void *vx_style_libs_get_lib_ptr(void *libs, unsigned index);
/// Appends an empty library, whose root item carries the name too, and returns it.
VX_API void *vx_style_libs_add_lib(void *libs, wchar_t const *name);

/// The texts that a library gives out live as long as it does. A name or caption that it has in several
/// languages comes in that of the captions, else as it was first written.
[[nodiscard]] VX_API wchar_t const *vx_style_lib_get_name_w(void const *lib);
/// Where a style comes from, and under which licence it may be used: what it says itself, else what the
/// library says of all its styles; with a null style the latter. Empty where nothing is said.
[[nodiscard]] VX_API wchar_t const *vx_style_lib_get_source_w(void const *lib, void const *idx_style);
[[nodiscard]] VX_API wchar_t const *vx_style_lib_get_licence_w(void const *lib, void const *idx_style);
/// The file that the library was read from; empty for one that was not.
[[nodiscard]] VX_API wchar_t const *vx_style_lib_get_file_w(void const *lib);
[[nodiscard]] VX_API void *vx_style_lib_get_root_item_ptr(void *lib);
[[nodiscard]] VX_API void *vx_style_lib_get_pnt_list_ptr(void *lib);
[[nodiscard]] VX_API void *vx_style_lib_get_pln_list_ptr(void *lib);
[[nodiscard]] VX_API void *vx_style_lib_get_pgn_list_ptr(void *lib);

[[nodiscard]] VX_API unsigned vx_style_list_get_size(void const *list);
[[nodiscard]] VX_API void *vx_style_list_get_idx_style(void *list, unsigned position);
/// Appends a default style of the list's kind under the index and version and returns it as an indexed style.
VX_API void *vx_style_list_add_idx_style(void *list, int index, int version);
/// The place of the first style of this index, of any version. `position`, which may be null, is written only
/// if there is one.
[[nodiscard]] VX_API bool vx_style_list_find_idx(void const *list, int index, unsigned *position);
[[nodiscard]] VX_API bool vx_style_list_find_idx_ver(void const *list, int index, int version,
                                                     unsigned *position);

/// Puts a copy of a composed style of the kind that the type key names into the library, under an index that
/// none of its styles has, and an item with the caption that names it. The style stands in the order of the
/// indices, the item in that of the captions, in the group that is reached from the root by the captions of
/// `groups` (platform/basic/vx_wstrings.h, null for the root itself); what is missing of these is made. Gives
/// the indexed style; null, with nothing done, for an index that is below 0 or taken, and a key of none of
/// the three kinds.
VX_API void *vx_style_lib_put_style(void *lib, char const *type, void const *style, int index, int version,
                                    void const *groups, wchar_t const *caption);
/// Whether one of its styles has the index.
[[nodiscard]] VX_API bool vx_style_lib_has_index(void const *lib, int index);
/// An index of six digits that none of its styles has, drawn at random, so that two people who add to copies
/// of one library do not take the same.
[[nodiscard]] VX_API int vx_style_lib_draw_index(void const *lib);

/// Of an indexed style: "pnt_style", "pln_style" or "pgn_style", static text; its index and version, 0 for
/// null.
[[nodiscard]] VX_API char const *vx_idx_style_get_type(void const *idx_style);
[[nodiscard]] VX_API int vx_idx_style_get_index(void const *idx_style);
[[nodiscard]] VX_API int vx_idx_style_get_version(void const *idx_style);
/// The style in it, or null if it is of another kind.
[[nodiscard]] VX_API void *vx_idx_pnt_style_get_pnt_style_ptr(void *idx_style);
[[nodiscard]] VX_API void *vx_idx_pln_style_get_pln_style_ptr(void *idx_style);
[[nodiscard]] VX_API void *vx_idx_pgn_style_get_pgn_style_ptr(void *idx_style);

/// The caption of an item: in the system code page, which lives until the next call for the item; wide, which
/// lives as long as the item; to a receiver.
[[nodiscard]] VX_API char const *vx_style_item_get_caption(void const *item);
[[nodiscard]] VX_API wchar_t const *vx_style_item_get_caption_w(void const *item);
VX_API void vx_style_item_get_caption_adp(void const *item, Ivx_string_adp *adp);
/// -1 and -1 for an item that names no style.
[[nodiscard]] VX_API int vx_style_item_get_index(void const *item);
[[nodiscard]] VX_API int vx_style_item_get_version(void const *item);
/// The children.
[[nodiscard]] VX_API void *vx_style_item_get_style_items_ptr(void *item);
[[nodiscard]] VX_API unsigned vx_style_items_get_size(void const *items);
[[nodiscard]] VX_API void *vx_style_items_get_style_item_ptr(void *items, unsigned index);
/// Appends an item and returns it.
VX_API void *vx_style_items_add(void *items, wchar_t const *caption, int index, int version);

/// Search for items whose caption, as it is shown, holds each word of a text somewhere, without regard to
/// case, in the order of the tree: an item before its children. `get_first` begins anew at and below `root`;
/// both give null when there is no further item, and for a text without words. The tree must outlive the
/// search.
[[nodiscard]] VX_API void *vx_style_item_search_str_create();
VX_API void vx_style_item_search_str_destroy(void *search);
[[nodiscard]] VX_API void *vx_style_item_search_str_get_first(void *search, void *root, wchar_t const *text);
[[nodiscard]] VX_API void *vx_style_item_search_str_get_next(void *search);
