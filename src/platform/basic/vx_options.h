#pragma once

#include "platform/base/export.h"

/// The user's settings, kept in `vxk/options.ini` under the user's configuration directory
/// (`XDG_CONFIG_HOME`, else
/// `.config` in the home directory) as `key=value` lines in UTF-8.
///
/// The file is read on first use. A missing or unreadable file, a line that is none, or a value out of its
/// range gives the default. Setters change the running process at once; `vx_options_save` writes the file,
/// keeping the lines that it does not know. Main thread only.

/// File masks of the native plug-ins, such as L"/usr/lib/x/plugins/*.so"; null means no plug-ins. Unless set,
/// the modules in the folder `vxk_plugins` beside this library, wherever that was loaded from: never the
/// current folder, nor one of the user's data.
[[nodiscard]] VX_API wchar_t const *vx_options_get_lr_2d_editor_plugin_mask();
[[nodiscard]] VX_API wchar_t const *vx_options_get_style_editor_plugin_mask();
/// Null or the empty text: no plug-ins.
VX_API void vx_options_set_lr_2d_editor_plugin_mask(wchar_t const *mask);
VX_API void vx_options_set_style_editor_plugin_mask(wchar_t const *mask);

/// Pixels of the screen to a millimetre, above 0 and at most 1000; 96 dots to the inch unless set.
[[nodiscard]] VX_API double vx_options_get_mm2px_x();
[[nodiscard]] VX_API double vx_options_get_mm2px_y();
/// Values out of the range are ignored.
VX_API void vx_options_set_mm2px(double x, double y);

/// True when lists of layers and style managers are shown in reverse. False unless set.
[[nodiscard]] VX_API bool vx_options_get_invert_layers();
VX_API void vx_options_set_invert_layers(bool invert);

/// Language of the captions, such as "en" or "ru". Unless set, the language of the environment (`LC_ALL`,
/// `LC_MESSAGES`, `LANG`) when there are captions in it, else English.
[[nodiscard]] VX_API char const *vx_options_get_language();
/// The languages that there are captions in, by index from 0; null beyond the last.
[[nodiscard]] VX_API char const *vx_options_get_known_language(int index);
/// An unknown language is refused with false. Windows that are open keep their texts until they load them
/// again.
VX_API bool vx_options_set_language(char const *language);

/// Writes the settings that differ from the file. False when the file cannot be written; it is then as it
/// was.
[[nodiscard]] VX_API bool vx_options_save();
/// Takes another file from now on and reads it; null goes back to the user's file. For hosts with a profile
/// of their own, and for tests.
VX_API void vx_options_set_file(wchar_t const *file_name);
