#include "platform/winapi/library.h"

#include "captions/engine.h"

#include "platform/base/ascii_case.h"
#include "platform/base/text_codec.h"

#include <climits>
#include <cstdlib>
#include <dlfcn.h>
#include <link.h>
#include <optional>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace {
constexpr std::string_view c_historical_suffix = ".dll";
constexpr std::string_view c_module_prefix = "lib";
constexpr std::string_view c_module_suffix = ".so";
constexpr char c_bundle_folder[] = "vxk_bundles/";

thread_local vx::fault last_fault;

struct split_path
{
    std::string directory; // with a "/" at the end, or empty
    std::string name;
};

split_path split(std::string const &path)
{
    auto const at = path.rfind('/');
    if (at == std::string::npos)
        return {{}, path};
    return {path.substr(0, at + 1), path.substr(at + 1)};
}

std::string const &own_directory()
{
    static std::string const directory = [] {
        Dl_info info{};
        if (!dladdr(reinterpret_cast<void const *>(&vx_library_get_own_directory), &info) || !info.dli_fname)
            return std::string();
        char resolved[PATH_MAX];
        return realpath(info.dli_fname, resolved) ? split(resolved).directory : std::string();
    }();
    return directory;
}

// Asked while the library loads: the loader's name may be relative to the folder that is the current one
// then.
[[maybe_unused]] std::string const &g_asked_at_load = own_directory();

// A name of the historical form, taken apart; nothing for any other name.
std::optional<split_path> historical_name(std::string path)
{
    if (path.size() <= c_historical_suffix.size() ||
        !vx::text::ascii_same(std::string_view(path).substr(path.size() - c_historical_suffix.size()),
                              c_historical_suffix))
        return std::nullopt;
    path.resize(path.size() - c_historical_suffix.size());
    for (auto &c : path)
        if (c == '\\')
            c = '/';
    auto parts = split(path);
    if (parts.name.empty())
        return std::nullopt;
    return parts;
}

// "libroads.so.2" and "roads.so" are both the module "roads".
std::string_view module_name(std::string_view file_name)
{
    auto const at = file_name.find(c_module_suffix);
    if (at != std::string_view::npos)
        file_name = file_name.substr(0, at);
    return file_name;
}

/// The same folder, if need be by another way: the loader keeps the names by which it found its modules.
bool is_same_directory(std::string const &a, std::string const &b)
{
    char resolved_a[PATH_MAX];
    char resolved_b[PATH_MAX];
    return a == b || (realpath(a.c_str(), resolved_a) && realpath(b.c_str(), resolved_b) &&
                      std::string_view(resolved_a) == resolved_b);
}

struct loaded_search
{
    split_path wanted;
    std::string found;
};

int look_at_loaded(dl_phdr_info *info, std::size_t, void *data)
{
    auto &search = *static_cast<loaded_search *>(data);
    if (!info->dlpi_name || !*info->dlpi_name)
        return 0;
    auto const parts = split(info->dlpi_name);
    auto const name = module_name(parts.name);
    bool const plain = vx::text::ascii_same(name, search.wanted.name);
    bool const prefixed = name.starts_with(c_module_prefix) &&
                          vx::text::ascii_same(name.substr(c_module_prefix.size()), search.wanted.name);
    if (!plain && !prefixed)
        return 0;
    if (!search.wanted.directory.empty() && !is_same_directory(parts.directory, search.wanted.directory))
        return 0;
    search.found = info->dlpi_name;
    return 1;
}

// File of the loaded module of this historical name; empty when none is.
std::string find_loaded(split_path const &wanted)
{
    loaded_search search{wanted, {}};
    dl_iterate_phdr(&look_at_loaded, &search);
    return search.found;
}

std::vector<std::string> candidates(split_path const &wanted)
{
    std::vector<std::string> directories{wanted.directory};
    if (wanted.directory.empty() && !own_directory().empty())
        directories = {own_directory(), own_directory() + c_bundle_folder, {}};
    std::vector<std::string> files;
    for (auto const &directory : directories) {
        files.push_back(directory + wanted.name + std::string(c_module_suffix));
        files.push_back(directory + std::string(c_module_prefix) + wanted.name +
                        std::string(c_module_suffix));
    }
    return files;
}

HMODULE open_file(std::string const &file, int flags)
{
    return static_cast<HMODULE>(dlopen(file.c_str(), flags));
}

void keep_fault(int code, std::string const &module, char const *details = nullptr)
{
    last_fault = {code, vx::text::utf8_to_wide(module), 0, vx::text::utf8_to_wide(details ? details : "")};
}

HMODULE load_historical(split_path const &wanted)
{
    if (auto const loaded = find_loaded(wanted); !loaded.empty())
        if (auto const module = open_file(loaded, RTLD_NOW | RTLD_LOCAL))
            return module;
    for (auto const &file : candidates(wanted)) {
        // A file that is there but fails to load is the answer: what the system would find elsewhere is
        // another one.
        bool const in_place = file.find('/') != std::string::npos;
        if (in_place && access(file.c_str(), F_OK) != 0)
            continue;
        if (auto const module = open_file(file, RTLD_NOW | RTLD_LOCAL))
            return module;
        if (in_place) {
            keep_fault(c_capt_module_not_loaded, file, dlerror());
            return nullptr;
        }
    }
    keep_fault(c_capt_no_module, wanted.directory + wanted.name);
    return nullptr;
}
} // namespace

HMODULE LoadLibraryW(wchar_t const *name)
{
    last_fault = {};
    if (!name || !*name)
        return nullptr;
    auto const path = vx::text::wide_to_utf8(name);
    if (auto const wanted = historical_name(path))
        return load_historical(*wanted);
    auto const module = open_file(path, RTLD_NOW | RTLD_LOCAL);
    if (!module)
        keep_fault(c_capt_module_not_loaded, path, dlerror());
    return module;
}

HMODULE GetModuleHandleW(wchar_t const *name)
{
    std::string file;
    if (name) {
        file = vx::text::wide_to_utf8(name);
        if (auto const wanted = historical_name(file))
            file = find_loaded(*wanted);
        if (file.empty())
            return nullptr;
    }
    auto *const module = dlopen(name ? file.c_str() : nullptr, RTLD_LAZY | RTLD_NOLOAD);
    if (module)
        dlclose(module); // takes back the reference that dlopen counted; the module stays for its loader
    return static_cast<HMODULE>(module);
}

bool FreeLibrary(HMODULE module)
{
    return module && dlclose(module) == 0;
}

void *GetProcAddress(HMODULE module, char const *name)
{
    if (!module || !name)
        return nullptr;
    auto *const address = dlsym(module, name);
    link_map *map = nullptr;
    if (!address || dlinfo(module, RTLD_DI_LINKMAP, &map) != 0 || !map)
        return nullptr;
    // dlsym also looks into what the module depends on; the link map that holds the address tells the two
    // apart. The program itself has an empty name and answers for all.
    if (!map->l_name || !*map->l_name)
        return address;
    Dl_info info{};
    link_map *holder = nullptr;
    if (!dladdr1(address, &info, reinterpret_cast<void **>(&holder), RTLD_DL_LINKMAP))
        return nullptr;
    return holder == map ? address : nullptr;
}

vx::fault const &vx_library_get_fault()
{
    return last_fault;
}

wchar_t const *vx_library_get_own_directory()
{
    static std::wstring const directory = vx::text::utf8_to_wide(own_directory());
    return directory.c_str();
}
