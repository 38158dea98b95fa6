#pragma once

#include "platform/base/closure.h"
#include "platform/base/export.h"
#include "platform/base/string_adp.h"

struct t_vx_data_source_interface;
struct Tvx_datasource_driver;

/// Data sets over the registered drivers (see platform/basic/vx_bundle.h). Main thread only.

/// Opens the data set that the connection string names and leaves its handle in `result`; a null handle when
/// no driver can open it (`vx_datasource_get_error` then tells why). A leading virtual mark "*" is not passed
/// on. The caller ends the source with its `detach`. The bundles are loaded on first use.
VX_API void vx_datasource_open(wchar_t const *source, bool read_only, t_vx_data_source_interface *result);
/// Makes a new data set; `driver_type` goes to the drivers unchanged.
VX_API void vx_datasource_create(wchar_t const *source, int driver_type, t_vx_data_source_interface *result);
/// The reason (platform/basic/vx_fault.h) of this thread's last failed open or create; empty after a success.
VX_API void vx_datasource_get_error(Ivx_string_adp *error);

/// For a `catch` block round a call of an object of a driver's: the driver from whose module `table` is, the
/// table of the object's handle, is asked no more, and the user is told so, once, when the main thread comes
/// to it. A lack of memory is told too, and is no driver's fault.
VX_API void vx_datasource_failed(void const *table) noexcept;
/// Ends an object of a driver's, known by its wrapper, by its `detach`. Nothing that this throws comes out.
template <class Object>
void vx_datasource_end(Object const &object) noexcept
{
    try {
        object.detach();
    } catch (...) {
        vx_datasource_failed(object.handle().table);
    }
}

/// Who waits while a data set is opened or read for long: asked on the main thread, some 50 times a second,
/// so that it can serve its user; false gives the work up. Drivers then do what cannot be interrupted on a
/// thread of their own. While there is nobody, as at first, everything runs on the main thread and to its
/// end. What is opened, and what is being read, must not be used from within the question.
VX_API void vx_datasource_set_waiting(closure<bool()> waiting);
[[nodiscard]] VX_API closure<bool()> vx_datasource_get_waiting();

/// A connection kept for repeated opening: an owned copy of the source text. Ended by
/// `vx_datasource_connect_destroy`.
[[nodiscard]] VX_API void *vx_datasource_connect_create(wchar_t const *source);
VX_API void vx_datasource_connect_destroy(void *connect);
/// As `vx_datasource_open`; a null connection leaves a null handle.
VX_API void vx_datasource_connect_open(void *connect, bool read_only, t_vx_data_source_interface *result);
VX_API void vx_datasource_connect_get_source(void *connect, Ivx_string_adp *source);

/// Drivers in the order in which they are asked. A driver is kept by pointer and stays its owner's.
VX_API bool vx_datasource_add_driver(Tvx_datasource_driver const *driver);
VX_API void vx_datasource_remove_driver(Tvx_datasource_driver const *driver);
[[nodiscard]] VX_API int vx_datasource_driver_count();
/// Id of driver `index` from 0; empty when there is none.
[[nodiscard]] VX_API char const *vx_datasource_driver_id(int index);
