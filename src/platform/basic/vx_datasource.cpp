#include "platform/basic/vx_datasource.h"

#include "captions/engine.h"
#include "extension/binding/data_source.h"

#include "platform/base/text_codec.h"
#include "platform/base/virtual_mark.h"
#include "platform/basic/vx_bundle.h"
#include "platform/basic/vx_fault.h"
#include "platform/basic/vx_res.h"

#include <algorithm>
#include <exception>
#include <optional>
#include <string>
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

/// Runs a driver's code. What it throws, in its own words; nothing when all went well.
template <class Call>
std::optional<std::wstring> guarded(Call call)
{
    try {
        call();
    } catch (std::exception const &thrown) {
        return vx::text::utf8_to_wide(thrown.what());
    } catch (...) {
        return std::wstring();
    }
    return std::nullopt;
}

/// Asks the driver no more, tells the user so, and gives the reason that was told.
std::wstring drop(Tvx_datasource_driver const *driver, std::wstring const &details)
{
    auto const reason =
        vx_fault_reason({c_capt_driver_failed, vx::text::utf8_to_wide(driver->id), 0, details});
    vx_datasource_remove_driver(driver);
    vx_reason_report(reason.c_str());
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
            error = drop(driver, *thrown);
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
        last_error =
            vx_fault_sentence({drivers().empty() ? c_capt_no_driver_loaded : refusal, source, 0, {}});
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
