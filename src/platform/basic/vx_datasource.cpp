#include "platform/basic/vx_datasource.h"

#include "captions/engine.h"
#include "extension/binding/data_source.h"

#include "platform/base/text_codec.h"
#include "platform/base/virtual_mark.h"
#include "platform/basic/detail/guest_failure.h"
#include "platform/basic/vx_bundle.h"
#include "platform/basic/vx_fault.h"
#include "platform/basic/vx_res.h"

#include <algorithm>
#include <dlfcn.h>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace {
std::vector<Tvx_datasource_driver const *> &drivers()
{
    static auto &all =
        *new std::vector<Tvx_datasource_driver const *>; // never destroyed, as drivers leave late
    return all;
}

thread_local std::wstring last_error;
closure<bool()> waiting_one;

bool is_null(t_vx_data_source_interface const &handle)
{
    return vx_data_source_interface_is_null(handle);
}

/// Runs a driver's code. Nothing when all went well.
template <class Call>
std::optional<guest_failure> guarded(Call call)
{
    try {
        call();
    } catch (...) {
        return vx_guest_current_failure();
    }
    return std::nullopt;
}

/// Asks the driver no more and gives the reason.
std::wstring drop(Tvx_datasource_driver const *driver, std::wstring const &details)
{
    auto const reason =
        vx_fault_reason({c_capt_driver_failed, vx::text::utf8_to_wide(driver->id), 0, details});
    vx_datasource_remove_driver(driver);
    return reason;
}

/// Where the module lies that an address is from; null for none.
void const *module_of(void const *address)
{
    Dl_info found{};
    return address && dladdr(address, &found) != 0 ? found.dli_fbase : nullptr;
}

/// Drops the drivers of the module that the table is from. The reason of one of them; empty when none is
/// left.
std::wstring drop_module(void const *table, std::wstring const &details)
{
    std::wstring reason;
    for (auto const *driver : std::vector(drivers()))
        if (module_of(reinterpret_cast<void const *>(driver->open)) == module_of(table))
            reason = drop(driver, details);
    return reason;
}

// Asks the drivers one after the other. The reason of the first that gives one is kept: it has the greatest
// priority.
template <class Ask>
void ask_drivers(wchar_t const *source, int refusal, t_vx_data_source_interface *result, Ask ask)
{
    last_error.clear();
    if (!result)
        return;
    *result = {};
    if (!source || !*source) {
        last_error = vx_res_get_wstr(c_capt_no_file_name);
        return;
    }
    vx_bundles_load();
    for (auto const *driver : std::vector(drivers())) {
        std::wstring error;
        Tvx_std_wstring_adapter const adapter(error);
        if (auto const thrown = guarded([&] { ask(*driver, adapter); })) {
            *result = {};
            error = thrown->is_memory ? vx_res_get_wstr(c_capt_sys_memory) : drop(driver, thrown->details);
            if (!thrown->is_memory)
                vx_reason_report(error.c_str());
        }
        if (!is_null(*result)) {
            last_error.clear();
            return;
        }
        *result = {};
        if (last_error.empty())
            last_error = vx_mask_passwords(error);
    }
    if (last_error.empty())
        last_error = vx_fault_reason({drivers().empty() ? c_capt_no_driver_loaded : refusal, source, 0, {}});
}
} // namespace

void vx_datasource_open(wchar_t const *source, bool read_only, t_vx_data_source_interface *result)
{
    if (source)
        source = vx::without_virtual_mark(source).data();
    ask_drivers(source, c_capt_no_driver_opens, result,
                [&](Tvx_datasource_driver const &driver, Ivx_string_adp *error) {
                    if (!driver.can_open || driver.can_open(driver.context, source))
                        driver.open(driver.context, source, read_only, result, error);
                });
}

void vx_datasource_create(wchar_t const *source, int driver_type, t_vx_data_source_interface *result)
{
    ask_drivers(source, c_capt_no_driver_makes, result,
                [&](Tvx_datasource_driver const &driver, Ivx_string_adp *error) {
                    if (driver.create)
                        driver.create(driver.context, source, driver_type, result, error);
                });
}

void vx_datasource_get_error(Ivx_string_adp *error)
{
    vx_string_adp_feed(error, last_error.c_str());
}

void vx_datasource_failed(void const *table) noexcept
{
    try {
        auto const thrown = vx_guest_current_failure();
        auto reason = thrown.is_memory ? vx_fault_reason({c_capt_event_no_memory, {}, 0, {}})
                                       : drop_module(table, thrown.details);
        if (!reason.empty())
            vx_guest_tell_later(std::move(reason));
    } catch (...) { // no memory to tell of it
    }
}

void vx_datasource_set_waiting(closure<bool()> waiting)
{
    waiting_one = waiting;
}

closure<bool()> vx_datasource_get_waiting()
{
    return waiting_one;
}

void *vx_datasource_connect_create(wchar_t const *source)
{
    return new std::wstring(source ? source : L"");
}

void vx_datasource_connect_destroy(void *connect)
{
    delete static_cast<std::wstring *>(connect);
}

void vx_datasource_connect_open(void *connect, bool read_only, t_vx_data_source_interface *result)
{
    vx_datasource_open(connect ? static_cast<std::wstring *>(connect)->c_str() : nullptr, read_only, result);
}

void vx_datasource_connect_get_source(void *connect, Ivx_string_adp *source)
{
    vx_string_adp_feed(source, connect ? static_cast<std::wstring *>(connect)->c_str() : nullptr);
}

bool vx_datasource_add_driver(Tvx_datasource_driver const *driver)
{
    if (!driver || !driver->id || !driver->open)
        return false;
    auto &all = drivers();
    std::string_view const id = driver->id;
    if (std::any_of(all.begin(), all.end(), [&](auto const *d) { return d->id == id; }))
        return false;
    auto const at = std::upper_bound(all.begin(), all.end(), driver,
                                     [](auto const *a, auto const *b) { return a->priority > b->priority; });
    all.insert(at, driver);
    return true;
}

void vx_datasource_remove_driver(Tvx_datasource_driver const *driver)
{
    std::erase(drivers(), driver);
}

int vx_datasource_driver_count()
{
    return static_cast<int>(drivers().size());
}

char const *vx_datasource_driver_id(int index)
{
    return index >= 0 && index < vx_datasource_driver_count() ? drivers()[static_cast<std::size_t>(index)]->id
                                                              : "";
}
