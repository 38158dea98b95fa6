#include "extension/plugin/plugin_module.h"

#include "captions/plugins.h"
#include "data/filesystem/filesystem.h"
#include "extension/plugin/vxk_plugin.h"

#include "platform/base/text_codec.h"
#include "platform/basic/vx_res.h"
#include "platform/toolkit/core/application.h"
#include "platform/winapi/library.h"
#include "platform/winapi/module_file.h"

#include <stdexcept>

namespace {
constexpr char c_revision_name[] = "vxk_plugin_revision";

/// The path as the system takes it; empty for one that does not begin at the root.
std::wstring full_path(wchar_t const *path)
{
    auto const native = vx::filesystem::system_path(path ? path : L"");
    return native.starts_with('/') ? vx::text::utf8_to_wide(native) : std::wstring();
}
} // namespace

Tvx_plugin_module::Tvx_plugin_module(wchar_t const *path) : Tvx_plugin_module(path, {})
{
}

Tvx_plugin_module::Tvx_plugin_module(wchar_t const *path, std::span<char const *const> entries)
    : f_path(path ? path : L"")
{
    auto const file = full_path(path);
    if (vx_module_look(file.c_str(), entries) != c_module_fits || !vx_module_starts(file.c_str()))
        return;
    f_module = LoadLibraryW(file.c_str());
    f_ok = f_module != nullptr;
    auto const *const revision = static_cast<int const *>(get_proc_address(c_revision_name));
    check(!revision || *revision <= VXK_PLUGIN_REVISION);
}

Tvx_plugin_module::~Tvx_plugin_module() = default;
Tvx_plugin_module_factory::~Tvx_plugin_module_factory() = default;

void *Tvx_plugin_module::get_proc_address(char const *name) const
{
    return f_module ? GetProcAddress(f_module, name) : nullptr;
}

bool Tvx_plugin_module::run(std::function<void()> const &call) const
{
    // The user is told which module it was.
    auto const tell = [this](char const *what) {
        try {
            auto const text = vx_res_format_w(c_plugin_failed, vx::filesystem::filename(f_path));
            throw std::runtime_error(vx::text::wide_to_utf8(text) + "\n" + what);
        } catch (...) {
            Application->HandleException(Application);
        }
        return false;
    };
    try {
        call();
        return true;
    } catch (std::exception const &thrown) {
        return tell(thrown.what());
    } catch (...) {
        return tell("");
    }
}

char const *Tvx_plugin_module::caption_or_name(char const *caption)
{
    if (caption && *caption)
        return caption;
    f_name = vx::text::to_bytes(vx::filesystem::basename(f_path));
    return f_name.c_str();
}

Tvx_plugin_module_set::Tvx_plugin_module_set(wchar_t const *mask, Tvx_plugin_module_factory *factory)
    : f_factory(factory)
{
    if (full_path(mask).empty())
        return;
    for (auto const &path : vx::filesystem::find(mask, vx::filesystem::c_find_files)) {
        auto *const module = factory->create_plugin_module(path.c_str());
        if (module && module->ok())
            f_modules.push_back(module);
        else if (module)
            factory->destroy_plugin_module(module);
    }
}

Tvx_plugin_module_set::~Tvx_plugin_module_set()
{
    for (auto *module : f_modules)
        f_factory->destroy_plugin_module(module);
}
