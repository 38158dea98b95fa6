#include "platform/storage/vx_ini_data.h"

#include "platform/winapi/file.h"

#include <cstdlib>
#include <optional>
#include <string>

struct Ivx_ini_data
{
};

namespace {
std::optional<std::wstring> &chosen_directory()
{
    static std::optional<std::wstring> directory;
    return directory;
}

std::wstring user_directory()
{
    char const *const data = std::getenv("XDG_DATA_HOME");
    std::string directory = data && *data == '/' ? data : "";
    if (char const *const home = std::getenv("HOME"); directory.empty() && home && *home)
        directory = std::string(home) + "/.local/share";
    return directory.empty() ? std::wstring() : vx_path_from_native(directory + "/vxk");
}

bool is_file_name(std::wstring_view name)
{
    return !name.empty() && name != L"." && name != L".." && name.find_first_of(L"\\/") == name.npos;
}
} // namespace

Ivx_ini_data *vx_ini_data_create()
{
    return new Ivx_ini_data;
}

void vx_ini_data_destroy(Ivx_ini_data *ini)
{
    delete ini;
}

void vx_ini_data_get_storage_path(Ivx_ini_data *ini, wchar_t const *name, Ivx_string_adp *path)
{
    std::wstring const directory = chosen_directory() ? *chosen_directory() : user_directory();
    if (!ini || !name || !is_file_name(name) || directory.empty())
        return vx_string_adp_feed(path, L"");
    // Where the folder cannot be made, the save that follows says so.
    [[maybe_unused]] bool const made = vx_make_directories(directory);
    vx_string_adp_feed(path, (directory + L"/" + name).c_str());
}

void vx_ini_data_set_storage_directory(wchar_t const *directory)
{
    if (directory)
        chosen_directory() = directory;
    else
        chosen_directory().reset();
}
