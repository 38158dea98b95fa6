// A folder of 200 modules that are no plug-ins: what a scan of it costs, against loading each of them and
// asking for one name, which is the plain way, and against reading the files.

#include "extension/plugin/lr_2d_edit_plugin_module.h"

#include "platform/base/text_codec.h"

#include <chrono>
#include <cstdio>
#include <dlfcn.h>
#include <filesystem>
#include <fstream>
#include <string>

namespace fs = std::filesystem;
namespace {
constexpr int c_modules = 200;

template <class F>
double milliseconds(F const &work)
{
    auto const begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}
} // namespace

int main()
{
    // A module of some hundred kilobytes and a thousand names, which does nothing by itself.
    fs::path const source = fs::path(VX_BINARY_DIR) / "lib/vxk_bundles/libvxk_scene2d_editor_bdl.so";
    fs::path const folder = fs::temp_directory_path() / "vx_bench_plugins";
    fs::remove_all(folder);
    fs::create_directories(folder);
    for (int i = 0; i < c_modules; ++i)
        fs::copy_file(source, folder / (std::to_string(1000 + i) + ".so"));
    auto const mask = vx::text::utf8_to_wide((folder / "*.so").string());

    unsigned found = 0;
    double const scan = milliseconds([&] {
        found = Tvx_plugin_module_set_impl<Tvx_lr_2d_edit_plugin_module>(mask.c_str()).get_plugin_count();
    });
    std::size_t bytes = 0;
    double const read = milliseconds([&] {
        for (auto const &entry : fs::directory_iterator(folder)) {
            std::ifstream file(entry.path(), std::ios::binary);
            bytes += std::string(std::istreambuf_iterator<char>(file), {}).size();
        }
    });
    int loaded = 0;
    double const load = milliseconds([&] {
        for (auto const &entry : fs::directory_iterator(folder))
            if (void *const handle = dlopen(entry.path().c_str(), RTLD_NOW | RTLD_LOCAL)) {
                ++loaded;
                (void)dlsym(handle, "plugin_lr_2d_editor_create");
            }
    });
    fs::remove_all(folder);
    std::printf("%d modules of %zu kB, %u plug-ins\n", c_modules, bytes / c_modules / 1024, found);
    std::printf(
        "scan %.1f ms; loading %d of them %.1f ms: ratio %.3f; reading the files %.1f ms: ratio %.3f\n", scan,
        loaded, load, scan / load, read, scan / read);
    return found == 0 && loaded == c_modules ? 0 : 1;
}
