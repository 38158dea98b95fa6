#ifndef VXK_PLUGIN_H
#define VXK_PLUGIN_H

/// Native plug-ins in plain C: a module (a shared library) whose functions are found by their names.
/// docs/extending.md shows the way from an empty folder to a tab.
///
/// A module exports all functions of one of the two kinds below; a module that lacks one is left out without
/// a word. What a plug-in may call is below them: functions of `libvxk_lr2d_edit_form.so`, which it links.
/// They stay as they are in all later versions; new ones are added, with a greater `VXK_PLUGIN_REVISION`.
///
/// All calls, in both directions, come on one thread. Exceptions may leave the functions of a plug-in written
/// in C++: the user is told. Texts that go in and come out of the functions here are UTF-8 unless something
/// else is said.

#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
struct Ivx_layer;
#else
typedef struct Ivx_layer Ivx_layer; ///< a layer of a map
#endif

#define VXK_PLUGIN_REVISION 1

/// Before each function that the module exports.
#define VXK_PLUGIN_ENTRY __attribute__((visibility("default")))

/// Once in a module, at the level of the file: tells the revision of this header that it was built with. A
/// module of a later revision than the library's is left out; one that does not say counts as of revision 1.
#ifdef __cplusplus
#define VXK_PLUGIN_MODULE                                                                                    \
    extern "C" {                                                                                             \
    extern VXK_PLUGIN_ENTRY const int vxk_plugin_revision;                                                   \
    const int vxk_plugin_revision = VXK_PLUGIN_REVISION;                                                     \
    }
#else
#define VXK_PLUGIN_MODULE VXK_PLUGIN_ENTRY const int vxk_plugin_revision = VXK_PLUGIN_REVISION;
#endif

/// A window: the handle of a control of the toolkit, which lives longer than the plug-in's instance or is
/// taken away before by `set_parent(instance, NULL)`. Four ways lead from it to something to be seen:
///   - `vxk_panel_set_parent`, below, for plain C: no header but this one, no other library;
///   - in C++ with the toolkit: `FindControl(static_cast<HWND>(window))` is the control, a parent for others;
///   - in C++ with the Qt that the library was built with: it is the `QWidget *` of that control;
///   - `vxk_window_get_x11`, for those who draw by themselves.
typedef void *vxk_window;

/// The client area of a window in its own logical pixels: left and top are 0. Valid during the call.
typedef struct vxk_rect
{
    int32_t left;
    int32_t top;
    int32_t right;
    int32_t bottom;
} vxk_rect;

/// ---- layer pages: one tab in the editor of a layer

/// A new instance, for one editor; null if there can be none, and the tab stays empty. `changed`, which may
/// be null, takes `data` and tells that the user has changed the layer; today it is null.
VXK_PLUGIN_ENTRY void *plugin_lr_2d_editor_create(void (*changed)(void *data), void *data);
/// The window of the tab.
VXK_PLUGIN_ENTRY void plugin_lr_2d_editor_set_parent(void *instance, vxk_window window);
/// Text of the tab, in the code page of the system (UTF-8 on Linux). It stays the module's.
VXK_PLUGIN_ENTRY const char *plugin_lr_2d_editor_get_caption(void);
VXK_PLUGIN_ENTRY void plugin_lr_2d_editor_destroy(void *instance);
/// The layer that is edited from now on, or null for none. What the instance knew of the one before is void.
/// The layer is the editor's copy: what is done to it shows on the map when the user presses Apply.
VXK_PLUGIN_ENTRY void plugin_lr_2d_editor_attach(void *instance, Ivx_layer *layer);
/// Show the layer's state again. Exported, though not called today.
VXK_PLUGIN_ENTRY void plugin_lr_2d_editor_update(void *instance);
/// Exported, though not called today: a panel of `vxk_panel_create` follows its window.
VXK_PLUGIN_ENTRY void plugin_lr_2d_editor_setpos(void *instance, const vxk_rect *rect);

/// ---- style editors: one tab beside the editor of a style manager

/// An element of the table data that a style editor gets: 12 bytes, without padding.
typedef struct __attribute__((packed)) vxk_any
{
    uint32_t tag;
    uint64_t value; ///< by the tag: nothing, text, number, pointer to elements, pointer to a `vxk_any_table`
} vxk_any;

/// Rows of a table: 12 bytes, without padding.
typedef struct __attribute__((packed)) vxk_any_table
{
    uint32_t count;
    vxk_any *rows; ///< each is a tuple
} vxk_any_table;

enum
{
    VXK_ANY_NONE = 0,    ///< no value
    VXK_ANY_TEXT = 2,    ///< a `const char *`, in the code page of the system
    VXK_ANY_INTEGER = 3, ///< an `int64_t`
    VXK_ANY_NUMBER = 4,  ///< the bits of a `double`
    VXK_ANY_TUPLE = 5,   ///< the address of the first of its elements, null for none
    VXK_ANY_TABLE = 6    ///< the address of a `vxk_any_table`
};

/// Gives the table: a tuple without elements, or of three (the `vxk_data_*` functions read it). It is the
/// library's, is never freed by the plug-in, and stays valid until the next call with the same `data`, or the
/// end of the panel in which the tab stands. The call reads the whole table: it is made when the plug-in
/// needs the data, not in advance.
typedef const vxk_any *(*vxk_get_data)(void *data);

/// A new instance, for one panel; null if there can be none, and the tab is hidden. `window` is the window of
/// the program, or null. `commit(data)` tells that the plug-in has changed the style manager, `focus(data)`
/// asks that its tab come to the front; both may be called as long as the instance lives.
VXK_PLUGIN_ENTRY void *plugin_style_editor_create(vxk_window window, void (*commit)(void *data),
                                                  void (*focus)(void *data), void *data);
/// As of layer pages.
VXK_PLUGIN_ENTRY const char *plugin_style_editor_get_caption(void);
/// A control of the toolkit, made for `owner`, or null. `application` is a `TApplication *`, `owner` a
/// `TComponent *`.
VXK_PLUGIN_ENTRY void *plugin_style_editor_get_control(void *application, void *owner);
/// The window of the tab; null when it goes, which the instance may outlive.
VXK_PLUGIN_ENTRY void plugin_style_editor_set_parent(void *instance, vxk_window window);
VXK_PLUGIN_ENTRY void plugin_style_editor_destroy(void *instance);
/// Whether the plug-in edits managers like this one: the tab is hidden where it does not.
VXK_PLUGIN_ENTRY bool plugin_style_editor_supports(void *instance, void *style_manager);
/// The manager that is edited from now on, and where the data come from. What the instance knew of the one
/// before is void.
VXK_PLUGIN_ENTRY void plugin_style_editor_attach(void *instance, void *style_manager, vxk_get_data get_data,
                                                 void *data);
/// Show the manager's state again.
VXK_PLUGIN_ENTRY void plugin_style_editor_update(void *instance);
VXK_PLUGIN_ENTRY void plugin_style_editor_setpos(void *instance, const vxk_rect *rect);
/// Go to the next (1) or last (-1) thing of the plug-in's that can be chosen, or choose none (0). Whether
/// there was one.
VXK_PLUGIN_ENTRY bool plugin_style_editor_select_next(void *instance, int direction);

/// ---- what the library offers

#define VXK_PLUGIN_API __attribute__((visibility("default")))

/// The revision of this header that the library was built with.
VXK_PLUGIN_API int vxk_plugin_get_revision(void);
/// The language of the captions, such as "en" or "ru"; valid until it is changed.
VXK_PLUGIN_API const char *vxk_plugin_get_language(void);

/// Functions that give a text write at most `size` bytes into `buffer`, ended by zero, and give the length of
/// the whole text without the zero. `buffer` may be null where `size` is 0.

/// -- a panel of controls, one below the other, each with its caption before it

typedef struct vxk_panel vxk_panel;
typedef struct vxk_control vxk_control;
/// The user has worked the control. What the program sets runs nothing.
typedef void (*vxk_event)(void *data, vxk_control *control);

/// An empty panel, in no window yet; to be ended by `vxk_panel_destroy`, with all that is in it. A panel that
/// ends with its window is gone as well. Calls with a panel or control that is gone, or null, do nothing.
VXK_PLUGIN_API vxk_panel *vxk_panel_create(void);
VXK_PLUGIN_API void vxk_panel_destroy(vxk_panel *panel);
/// Puts the panel into a window, which it fills from then on, or takes it out (null).
VXK_PLUGIN_API void vxk_panel_set_parent(vxk_panel *panel, vxk_window window);
/// With all controls.
VXK_PLUGIN_API void vxk_panel_set_enabled(vxk_panel *panel, bool enabled);

/// Each adds a control below the last. Captions are the accessible names too; "&" marks a letter for the
/// keyboard. `changed` may be null.
VXK_PLUGIN_API vxk_control *vxk_panel_add_text(vxk_panel *panel, const char *text);
VXK_PLUGIN_API vxk_control *vxk_panel_add_edit(vxk_panel *panel, const char *caption, vxk_event changed,
                                               void *data);
/// A number from `min` to `max`; whole ones only if `whole` is set. The event comes when the entry is done.
VXK_PLUGIN_API vxk_control *vxk_panel_add_number(vxk_panel *panel, const char *caption, double min,
                                                 double max, bool whole, vxk_event changed, void *data);
VXK_PLUGIN_API vxk_control *vxk_panel_add_check(vxk_panel *panel, const char *caption, vxk_event changed,
                                                void *data);
/// One of a list of texts.
VXK_PLUGIN_API vxk_control *vxk_panel_add_choice(vxk_panel *panel, const char *caption, vxk_event changed,
                                                 void *data);
VXK_PLUGIN_API vxk_control *vxk_panel_add_button(vxk_panel *panel, const char *caption, vxk_event clicked,
                                                 void *data);

/// The content: of an edit, a number as it is shown, the chosen text, a text, or the caption of a check box
/// or button.
VXK_PLUGIN_API void vxk_control_set_text(vxk_control *control, const char *text);
VXK_PLUGIN_API size_t vxk_control_get_text(vxk_control *control, char *buffer, size_t size);
VXK_PLUGIN_API void vxk_control_set_number(vxk_control *control, double value);
VXK_PLUGIN_API double vxk_control_get_number(vxk_control *control);
VXK_PLUGIN_API void vxk_control_set_checked(vxk_control *control, bool checked);
VXK_PLUGIN_API bool vxk_control_get_checked(vxk_control *control);
/// Nothing is chosen afterwards.
VXK_PLUGIN_API void vxk_control_set_items(vxk_control *control, const char *const *items, int count);
/// From 0; -1 for none.
VXK_PLUGIN_API void vxk_control_set_index(vxk_control *control, int index);
VXK_PLUGIN_API int vxk_control_get_index(vxk_control *control);
VXK_PLUGIN_API void vxk_control_set_hint(vxk_control *control, const char *text);
VXK_PLUGIN_API void vxk_control_set_enabled(vxk_control *control, bool enabled);
/// A hidden control gives its place to those below.
VXK_PLUGIN_API void vxk_control_set_visible(vxk_control *control, bool visible);

/// -- windows

/// The window of the X Window System, made if need be; 0 where the program shows its windows by other means.
VXK_PLUGIN_API unsigned long vxk_window_get_x11(vxk_window window);

/// -- layers; null is accepted, and is a layer of no type without a name

/// The key of the type, such as "shp_pnt_lr2d"; it is the layer's. Null for null.
VXK_PLUGIN_API const char *vxk_layer_get_type(const Ivx_layer *layer);
VXK_PLUGIN_API size_t vxk_layer_get_name(const Ivx_layer *layer, char *buffer, size_t size);
VXK_PLUGIN_API void vxk_layer_set_name(Ivx_layer *layer, const char *name);
/// The file, or the connection string of the data.
VXK_PLUGIN_API size_t vxk_layer_get_source(const Ivx_layer *layer, char *buffer, size_t size);
VXK_PLUGIN_API bool vxk_layer_get_visible(const Ivx_layer *layer);
VXK_PLUGIN_API void vxk_layer_set_visible(Ivx_layer *layer, bool visible);
/// Has the other tabs show what was done to the layer.
VXK_PLUGIN_API void vxk_layer_post_update(Ivx_layer *layer);

/// The attribute table of a layer, open until `vxk_table_close`, which comes before the layer ends. Null for
/// a layer without one. The first cell of a field reads its column.
typedef struct vxk_table vxk_table;
VXK_PLUGIN_API vxk_table *vxk_table_open(Ivx_layer *layer);
VXK_PLUGIN_API void vxk_table_close(vxk_table *table);
/// Fields and records count from 0.
VXK_PLUGIN_API unsigned vxk_table_get_field_count(const vxk_table *table);
VXK_PLUGIN_API unsigned vxk_table_get_record_count(const vxk_table *table);
VXK_PLUGIN_API size_t vxk_table_get_field_name(const vxk_table *table, unsigned field, char *buffer,
                                               size_t size);
VXK_PLUGIN_API bool vxk_table_is_number(const vxk_table *table, unsigned field);
/// False for a cell without a value, with `value` as it was.
VXK_PLUGIN_API bool vxk_table_get_number(vxk_table *table, unsigned field, unsigned record, double *value);
/// Empty for a cell without a value.
VXK_PLUGIN_API size_t vxk_table_get_text(vxk_table *table, unsigned field, unsigned record, char *buffer,
                                         size_t size);

/// -- style managers; what can be done to styles and scales stands in the C++ headers of `platform/styles`

/// The key of the style type, such as "pnt_style". It stays valid.
VXK_PLUGIN_API const char *vxk_style_manager_get_type(const void *manager);
/// 0 one style, 1 unique values, 2 ranges, 3 rules.
VXK_PLUGIN_API unsigned vxk_style_manager_get_mode(const void *manager);
VXK_PLUGIN_API void vxk_style_manager_set_mode(void *manager, unsigned mode);

/// ---- the data of `vxk_get_data`, read where they lie; fields and records count from 0

static inline const vxk_any *vxk_any_element(const vxk_any *tuple, unsigned index)
{
    return tuple && tuple->tag == VXK_ANY_TUPLE && tuple->value
               ? (const vxk_any *)(uintptr_t)tuple->value + index
               : NULL;
}
static inline const vxk_any_table *vxk_any_get_table(const vxk_any *any)
{
    return any && any->tag == VXK_ANY_TABLE ? (const vxk_any_table *)(uintptr_t)any->value : NULL;
}
static inline unsigned vxk_data_field_count(const vxk_any *data)
{
    const vxk_any_table *fields = vxk_any_get_table(vxk_any_element(data, 0));
    return fields ? fields->count : 0;
}
static inline unsigned vxk_data_record_count(const vxk_any *data)
{
    const vxk_any_table *records = vxk_any_get_table(vxk_any_element(data, 1));
    return records ? records->count : 0;
}
static inline const vxk_any *vxk_data_field(const vxk_any *data, unsigned field, unsigned part)
{
    const vxk_any_table *fields = vxk_any_get_table(vxk_any_element(data, 0));
    return fields && field < fields->count ? vxk_any_element(fields->rows + field, part) : NULL;
}
/// Null past the end.
static inline const char *vxk_data_field_name(const vxk_any *data, unsigned field)
{
    const vxk_any *name = vxk_data_field(data, field, 0);
    return name ? (const char *)(uintptr_t)name->value : NULL;
}
static inline bool vxk_data_is_number(const vxk_any *data, unsigned field)
{
    const vxk_any *kind = vxk_data_field(data, field, 1);
    return kind && kind->value == 4;
}
/// The cell; its tag tells whether it has a value.
static inline const vxk_any *vxk_data_cell(const vxk_any *data, unsigned record, unsigned field)
{
    const vxk_any_table *records = vxk_any_get_table(vxk_any_element(data, 1));
    return records && record < records->count && field < vxk_data_field_count(data)
               ? vxk_any_element(records->rows + record, field)
               : NULL;
}
/// False for a cell without a number, with `value` as it was.
static inline bool vxk_data_get_number(const vxk_any *data, unsigned record, unsigned field, double *value)
{
    const vxk_any *cell = vxk_data_cell(data, record, field);
    if (!cell || cell->tag != VXK_ANY_NUMBER)
        return false;
    __builtin_memcpy(value, (const char *)cell + 4, sizeof *value);
    return true;
}
/// Null for a cell without a text.
static inline const char *vxk_data_get_text(const vxk_any *data, unsigned record, unsigned field)
{
    const vxk_any *cell = vxk_data_cell(data, record, field);
    return cell && cell->tag == VXK_ANY_TEXT ? (const char *)(uintptr_t)cell->value : NULL;
}

#ifdef __cplusplus
}
#endif

#endif
