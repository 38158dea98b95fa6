#pragma once

#include "platform/base/export.h"
#include "platform/base/string_adp.h"

/// What a bundle and the engine know of each other.
///
/// A bundle is a module that is loaded at run time and never linked: a shared library in a bundle folder (see
/// below). It exports one C function, `vxk_bundle_entry`, which the
/// engine calls once, on the thread that loads the bundles. The entry registers what the bundle has to offer:
/// data set drivers and service factories. A bundle stays loaded until the process ends, so what it
/// registered may be static.
///
///     VX_C_API bool vxk_bundle_entry(Tvx_bundle_context const* context)
///     {
///         static Tvx_datasource_driver const driver = {"my_driver", 10, nullptr, &can_open, &open, nullptr};
///         return context->add_driver(context->host, &driver);
///     }

struct t_vx_data_source_interface;
struct t_vx_service_factory_interface;

/// Number of this description. A bundle compares it with `Tvx_bundle_context::version` and gives false at a
/// difference.
inline constexpr int c_vx_bundle_version = 1;
inline constexpr char c_vx_bundle_entry_name[] = "vxk_bundle_entry";

/// A data set driver. All functions get `context` first. They throw nothing, show nothing and print nothing;
/// a driver that throws all the same is dropped, and the user told so.
struct Tvx_datasource_driver
{
    /// Short name for messages and for `vx_datasource_driver_*`; must be unique among the drivers.
    char const *id;
    /// The driver of the greatest priority that can open a source is asked first; of equal ones the first
    /// added.
    int priority;
    void *context;
    /// A cheap look at the source text and, at most, at the first bytes of the file. True promises nothing;
    /// it only says that `open` is worth a try. Null counts as true for every source.
    bool (*can_open)(void *context, wchar_t const *source);
    /// Opens `source`, a connection string, and leaves the handle in `result`; on failure a null handle, and
    /// a reason in `error` (platform/basic/vx_fault.h): a sentence in the language of the captions, and in
    /// lines behind it what a format's library said. `result` is null when the call begins. The caller ends
    /// the source with its `detach`. A source that is opened read-only leaves no file changed or made.
    void (*open)(void *context, wchar_t const *source, bool read_only, t_vx_data_source_interface *result,
                 Ivx_string_adp *error);
    /// As `open`, for a new data set of the kind `driver_type`. Null when the driver makes none; a driver
    /// that does not know the kind leaves a null handle without an error, and the next one is asked.
    void (*create)(void *context, wchar_t const *source, int driver_type, t_vx_data_source_interface *result,
                   Ivx_string_adp *error);
};

/// What the engine offers to the entry function. `host` is the first argument of each function. The context
/// is valid for the life of the process.
struct Tvx_bundle_context
{
    int version;
    void *host;
    /// The driver is kept by pointer. False when its id is taken, or `open` or `id` is null.
    bool (*add_driver)(void *host, Tvx_datasource_driver const *driver);
    void (*remove_driver)(void *host, Tvx_datasource_driver const *driver);
    /// The factory answers under the category, a wide text such as the one of an editor's extension category.
    /// A null handle is refused; the same factory is kept once for each category.
    bool (*add_service_factory)(void *host, wchar_t const *category, t_vx_service_factory_interface factory);
    void (*remove_service_factory)(void *host, wchar_t const *category,
                                   t_vx_service_factory_interface factory);
};

/// The entry function of a bundle: false when it refuses to work. What it registered before is then taken
/// back, as after an exception.
using Tvx_bundle_entry = bool (*)(Tvx_bundle_context const *context);

/// Where bundles are looked for, in this order:
///
/// 1. `vxk_bundles` beside the engine's own library, wherever that was loaded from, or the folder that
///    `vx_bundles_set_directory` named instead;
/// 2. the folders that the host named by `vx_bundles_add_directory`, in the order of their naming.
///
/// Of each folder the files that end in ".so", in the order of their names. Nothing is ever looked for in the
/// current folder, beside data, below the user's home or in folders that variables of the environment name. A
/// file that is cut or fails is left out, and why stands on the error output; no other bundle suffers by it.
/// Modules without the entry are passed over, and none of their code runs.

/// Loads the bundles, once in the life of the process; later calls do nothing. Called by
/// `vx_datasource_open` and `vx_service_registry_with_services` on first use, so a host need not.
VX_API void vx_bundles_load();
/// A folder in place of the first; a relative one is meant from the folder that is the current one now. Set
/// before the first use; empty stands for the first again.
VX_API void vx_bundles_set_directory(wchar_t const *directory);
/// One more folder, such as one that the user named for extensions; a relative one is meant as above. When
/// the bundles are loaded already its own are loaded at once. A folder that is there already is not added.
VX_API void vx_bundles_add_directory(wchar_t const *directory);
/// Loads one bundle and runs its entry. `file_name` is absolute: any other is refused, so that the current
/// folder never counts. False, with a reason in `error` (may be null), when the file is no bundle or the
/// entry refuses. A bundle that is loaded already counts as success and is not entered again.
VX_API bool vx_bundle_load(wchar_t const *file_name, Ivx_string_adp *error);
/// Number of bundles whose entry succeeded.
[[nodiscard]] VX_API int vx_bundles_get_count();
