#include "platform/basic/vx_bundle.h"

#include "captions/engine.h"
#include "extension/binding/service_factory.h"

#include "platform/base/text_codec.h"
#include "platform/basic/vx_datasource.h"
#include "platform/basic/vx_fault.h"
#include "platform/basic/vx_service_registry.h"
#include "platform/winapi/file.h"
#include "platform/winapi/library.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace {
constexpr wchar_t c_bundle_folder[] = L"vxk_bundles";
constexpr char c_bundle_suffix[] = ".so";

/// What the bundle that is being entered has registered: taken back when its entry fails.
struct registration
{
    std::vector<Tvx_datasource_driver const *> drivers;
    std::vector<std::pair<std::wstring, t_vx_service_factory_interface>> factories;

    void take_back()
    {
        for (auto const *driver : drivers)
            vx_datasource_remove_driver(driver);
        for (auto const &[category, factory] : factories)
            vx_service_registry_remove_factory(category.c_str(), factory);
    }
};

struct bundle_set
{
    std::wstring directory;
    std::set<HMODULE> entered;
    registration *entering = nullptr;
    bool loaded = false;
};

bundle_set &bundles()
{
    static auto &b = *new bundle_set;
    return b;
}

Tvx_bundle_context const context = {
    c_vx_bundle_version,
    nullptr,
    [](void *, Tvx_datasource_driver const *driver) {
        bool const added = vx_datasource_add_driver(driver);
        if (added && bundles().entering)
            bundles().entering->drivers.push_back(driver);
        return added;
    },
    [](void *, Tvx_datasource_driver const *driver) { vx_datasource_remove_driver(driver); },
    [](void *, wchar_t const *category, t_vx_service_factory_interface factory) {
        bool const added = vx_service_registry_add_factory(category, factory);
        if (added && bundles().entering)
            bundles().entering->factories.emplace_back(category, factory);
        return added;
    },
    [](void *, wchar_t const *category, t_vx_service_factory_interface factory) {
        vx_service_registry_remove_factory(category, factory);
    },
};

// By name, so that the drivers stand in the same order on every machine.
std::vector<std::wstring> bundle_files(std::wstring const &directory)
{
    std::vector<std::wstring> files;
    std::error_code code;
    for (auto const &entry : std::filesystem::directory_iterator(vx_path_to_native(directory), code))
        if (entry.path().extension() == c_bundle_suffix)
            files.push_back(vx_path_from_native(entry.path().string()));
    std::sort(files.begin(), files.end());
    return files;
}

/// Runs the entry; what it registered is gone again when it refuses or throws. The code of the fault, 0 for
/// none.
int enter(Tvx_bundle_entry entry, std::wstring &details)
{
    registration registered;
    auto *const outer = std::exchange(bundles().entering, &registered);
    int fault = c_capt_bundle_refuses;
    try {
        if (entry(&context))
            fault = 0;
    } catch (std::exception const &thrown) {
        fault = c_capt_bundle_failed;
        details = vx::text::utf8_to_wide(thrown.what());
    } catch (...) {
        fault = c_capt_bundle_failed;
    }
    bundles().entering = outer;
    if (fault != 0)
        registered.take_back();
    return fault;
}

bool refuse(Ivx_string_adp *error, vx::fault const &fault)
{
    vx_string_adp_feed(error, vx_fault_reason(fault).c_str());
    return false;
}
} // namespace

void vx_bundles_load()
{
    if (bundles().loaded)
        return;
    bundles().loaded = true; // first: an entry function may call back
    std::wstring const own = vx_library_get_own_directory();
    auto directory = bundles().directory;
    if (directory.empty() && !own.empty())
        directory = own + c_bundle_folder;
    for (auto const &file : bundle_files(directory))
        vx_bundle_load(file.c_str(), nullptr);
}

void vx_bundles_set_directory(wchar_t const *directory)
{
    // The current folder may be another one by the time of the first use.
    std::error_code code;
    auto const absolute = std::filesystem::absolute(vx_path_to_native(directory ? directory : L""), code);
    bundles().directory =
        directory && *directory && !code ? vx_path_from_native(absolute.string()) : std::wstring();
}

bool vx_bundle_load(wchar_t const *file_name, Ivx_string_adp *error)
{
    auto *const module = LoadLibraryW(file_name);
    if (!module)
        return refuse(error, vx_library_get_fault());
    if (bundles().entered.contains(module)) {
        FreeLibrary(module);
        return true;
    }
    auto const entry = reinterpret_cast<Tvx_bundle_entry>(GetProcAddress(module, c_vx_bundle_entry_name));
    vx::fault fault{c_capt_no_bundle, file_name, 0, {}};
    if (entry)
        fault.code = enter(entry, fault.details);
    if (fault) {
        FreeLibrary(module);
        return refuse(error, fault);
    }
    bundles().entered.insert(module);
    return true;
}

int vx_bundles_get_count()
{
    return static_cast<int>(bundles().entered.size());
}
