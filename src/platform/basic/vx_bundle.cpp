#include "platform/basic/vx_bundle.h"

#include "captions/engine.h"
#include "extension/binding/service_factory.h"

#include "platform/base/text_codec.h"
#include "platform/basic/vx_datasource.h"
#include "platform/basic/vx_fault.h"
#include "platform/basic/vx_service_registry.h"
#include "platform/winapi/file.h"
#include "platform/winapi/library.h"
#include "platform/winapi/module_file.h"

#include <algorithm>
#include <cstdio>
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
    std::vector<std::wstring> more_directories;
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

/// Empty for none.
std::wstring absolute(wchar_t const *directory)
{
    if (!directory || !*directory)
        return {};
    std::error_code code;
    auto const path = std::filesystem::absolute(vx_path_to_native(directory), code).lexically_normal();
    return code ? std::wstring() : vx_path_from_native(path.string());
}

/// The folder of the bundles that belong to the engine; empty when it cannot be told.
std::wstring own_directory()
{
    std::wstring const engine = vx_library_get_own_directory();
    if (!bundles().directory.empty() || engine.empty())
        return bundles().directory;
    return engine + c_bundle_folder;
}

/// Why the file cannot be loaded, as far as that can be told without doing so.
vx::fault look_at(std::wstring const &path)
{
    char const *const names[] = {c_vx_bundle_entry_name};
    auto const state = vx_module_look(path.c_str(), names);
    if (state == c_module_lacks_names)
        return {c_capt_no_bundle, path, 0, {}};
    if (state == c_module_cut) // the loader would end the process over it
        return {c_capt_module_not_loaded, path, 0, L"file is cut"};
    // What came with the engine is known to start.
    bool const is_own = path.substr(0, path.rfind(L'/')) == own_directory();
    if (state == c_module_fits && !is_own && !vx_module_starts(path.c_str()))
        return {c_capt_module_not_loaded, path, 0, L"it fails while it starts, or lacks a library"};
    return {}; // the loader has words for the rest
}

/// Loads and enters a bundle that is not loaded yet.
vx::fault load(std::wstring const &file_name)
{
    auto const file = vx_path_to_native(file_name);
    auto const path = vx_path_from_native(file);
    if (!std::filesystem::path(file).is_absolute())
        return {c_capt_no_bundle, path, 0, {}};
    if (auto const fault = look_at(path))
        return fault;
    auto *const module = LoadLibraryW(path.c_str());
    if (!module)
        return vx_library_get_fault();
    if (bundles().entered.contains(module)) {
        FreeLibrary(module);
        return {};
    }
    auto const entry = reinterpret_cast<Tvx_bundle_entry>(GetProcAddress(module, c_vx_bundle_entry_name));
    vx::fault fault{c_capt_no_bundle, path, 0, {}};
    if (entry)
        fault.code = enter(entry, fault.details);
    if (fault)
        FreeLibrary(module);
    else
        bundles().entered.insert(module);
    return fault;
}

void load_all(std::wstring const &directory)
{
    // A module of another kind may lie here, and is nobody's fault.
    for (auto const &file : bundle_files(directory))
        if (auto const fault = load(file); fault && fault.code != c_capt_no_bundle)
            std::fprintf(stderr, "%s\n", vx::text::wide_to_utf8(vx_fault_reason(fault)).c_str());
}
} // namespace

void vx_bundles_load()
{
    if (bundles().loaded)
        return;
    bundles().loaded = true; // first: an entry function may call back
    if (auto const own = own_directory(); !own.empty())
        load_all(own);
    // By index: an entry function may name another folder.
    for (std::size_t i = 0; i < bundles().more_directories.size(); ++i)
        load_all(std::wstring(bundles().more_directories[i]));
}

void vx_bundles_set_directory(wchar_t const *directory)
{
    // The current folder may be another one by the time of the first use.
    bundles().directory = absolute(directory);
}

void vx_bundles_add_directory(wchar_t const *directory)
{
    auto const path = absolute(directory);
    auto &all = bundles().more_directories;
    if (path.empty() || std::ranges::find(all, path) != all.end())
        return;
    all.push_back(path);
    if (bundles().loaded)
        load_all(path);
}

bool vx_bundle_load(wchar_t const *file_name, Ivx_string_adp *error)
{
    auto const fault = load(file_name ? file_name : L"");
    if (fault)
        vx_string_adp_feed(error, vx_fault_reason(fault).c_str());
    return !fault;
}

int vx_bundles_get_count()
{
    return static_cast<int>(bundles().entered.size());
}
