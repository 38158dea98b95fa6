#pragma once

#include "platform/base/export.h"

/// Import of ArcView 3 legends (`.avl`) into style managers, and the environment in which such work reports.
///
/// A legend is read and checked whole before the manager changes: at a failure the manager is what it was.

struct gp_avl_to_stlmgr_params;

[[nodiscard]] VX_API gp_avl_to_stlmgr_params *gp_avl_to_stlmgr_params_create();
/// Null is accepted.
VX_API void gp_avl_to_stlmgr_params_destroy(gp_avl_to_stlmgr_params *params);
/// The legend file, in the system code page; copied.
VX_API void gp_avl_to_stlmgr_params_set_filename(gp_avl_to_stlmgr_params *params, char const *file);
/// The manager that takes the legend over; not owned. Its style type decides which legends fit: markers for
/// "pnt_style", lines for "pln_style", fills for "pgn_style".
VX_API void gp_avl_to_stlmgr_params_set_stl_mngr(gp_avl_to_stlmgr_params *params, void *mngr);

/// Why an import gave nothing.
inline constexpr int c_gp_ok = 0;
inline constexpr int c_gp_no_file = 1;    ///< cannot be read, or is longer than any legend
inline constexpr int c_gp_no_legend = 2;  ///< the text is no legend, or it is damaged
inline constexpr int c_gp_wrong_type = 3; ///< no manager, or its objects are not those that the legend draws
inline constexpr int c_gp_stopped = 4;    ///< the environment asked to stop

/// Reads the legend into the manager: a single symbol into the simple style, unique values into the value
/// scale, graduated symbols into the range scale, each with the mode and, where the legend names a field, the
/// property name. Objects fall into the class that the legend puts them in, bounds included: classes of a
/// legend are closed at both ends, ranges of a scale at the upper one, so a lower bound becomes the upper
/// bound of the class before where no number lies between, else the next smaller number. Of classes that
/// overlap the first one counts. The bounds are kept exactly (nothing is rounded). The no-data class becomes
/// the other entry; without one the other entry is hidden, as are the entries below and above the classes.
/// Scales, styles and flags that the legend does not speak of stay.
[[nodiscard]] VX_API int gp_avl_to_stlmngr_execute(gp_avl_to_stlmgr_params const *params);

/// What the work of this module reports to. Any function may be null. Texts are in the system code page and
/// live during the call only.
struct gp_env_callbacks
{
    void *object = nullptr; ///< handed to each function
    void (*message)(void *object, char const *text) = nullptr;
    void (*error)(void *object, char const *text) = nullptr;
    void (*set_debug_flag)(void *object, bool on) = nullptr;
    void (*debug_message)(void *object, char const *text) = nullptr;
    void (*wait_start)(void *object) = nullptr;
    void (*wait_finish)(void *object) = nullptr;
    /// A number by which the two functions that follow know the progress.
    int (*progress_start)(void *object, char const *caption) = nullptr;
    void (*progress)(void *object, int number, int percent) = nullptr;
    void (*progress_finish)(void *object, int number) = nullptr;
    bool (*stopped)(void *object) = nullptr;
};

struct gp_env_out;
[[nodiscard]] VX_API gp_env_out *gp_env_out_create();
/// Null is accepted. The object must not be the current environment any more.
VX_API void gp_env_out_destroy(gp_env_out *out);
/// Copies the table.
VX_API void gp_env_out_set(gp_env_out *out, gp_env_callbacks const *callbacks);

/// The current environment of the process, null at first; not owned. Main thread only.
[[nodiscard]] VX_API gp_env_out *gp_env_main_get_env();
VX_API void gp_env_main_set_env(gp_env_out *out);
