#include "platform/basic/vx_bundle.h"

#include "extension/binding/service_factory.h"

#include "platform/basic/vx_datasource.h"
#include "platform/basic/vx_service_registry.h"
#include "platform/winapi/file.h"
#include "platform/winapi/library.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace {
constexpr wchar_t c_bundle_folder[] = L"vxk_bundles";
constexpr char c_bundle_suffix[] = ".so";

struct bundle_set
{
    std::wstring directory;
    std::set<HMODULE> entered;
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
    [](void *, Tvx_datasource_driver const *driver) { return vx_datasource_add_driver(driver); },
    [](void *, Tvx_datasource_driver const *driver) { vx_datasource_remove_driver(driver); },
    [](void *, wchar_t const *category, t_vx_service_factory_interface factory) {
        return vx_service_registry_add_factory(category, factory);
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
} // namespace

void vx_bundles_load()
{
    if (bundles().loaded)
        return;
    bundles().loaded = true; // first: an entry function may call back
    auto const directory = bundles().directory.empty()
                               ? vx_library_get_own_directory() + std::wstring(c_bundle_folder)
                               : bundles().directory;
    for (auto const &file : bundle_files(directory))
        vx_bundle_load(file.c_str(), nullptr);
}

void vx_bundles_set_directory(wchar_t const *directory)
{
    bundles().directory = directory ? directory : L"";
}

bool vx_bundle_load(wchar_t const *file_name, Ivx_string_adp *error)
{
    auto *const module = LoadLibraryW(file_name);
    if (!module) {
        vx_string_adp_feed(error, vx_library_get_error());
        return false;
    }
    if (bundles().entered.contains(module)) {
        FreeLibrary(module);
        return true;
    }
    auto const entry = reinterpret_cast<Tvx_bundle_entry>(GetProcAddress(module, c_vx_bundle_entry_name));
    if (!entry || !entry(&context)) {
        FreeLibrary(module);
        vx_string_adp_feed(error, entry ? L"The bundle refuses to work with this version."
                                        : L"The file is no bundle.");
        return false;
    }
    bundles().entered.insert(module);
    return true;
}

int vx_bundles_get_count()
{
    return static_cast<int>(bundles().entered.size());
}
