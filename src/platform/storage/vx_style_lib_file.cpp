#include "platform/storage/vx_style_lib_file.h"

#include "captions/engine.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_res.h"
#include "platform/storage/detail/storage_state.h"
#include "platform/storage/detail/style_xml.h"
#include "platform/storage/file_names.h"
#include "platform/storage/vx_ini_data.h"
#include "platform/styles/detail/lib_model.h"
#include "platform/styles/vx_global_lib_styles.h"
#include "platform/styles/vx_style_lib.h"
#include "platform/winapi/file.h"
#include "platform/winapi/library.h"

#include <algorithm>
#include <filesystem>

using namespace vx::storage;
using namespace vx::styles;

namespace {
constexpr char const *c_lib_root = "vx_style_library";
constexpr wchar_t const *c_lib_folder = L"style_libs";
/// From the folder of the system's own library, which may lie below one of the machine's kind.
constexpr wchar_t const *c_shared_folders[] = {L"../share/vxk/style_libs", L"../../share/vxk/style_libs"};
constexpr int c_put_version = 1;
constexpr int c_depth_limit = 64;               ///< levels of the tree
constexpr std::size_t c_item_limit = 100'000;   ///< of the tree
constexpr std::size_t c_style_limit = 100'000;  ///< in each list
constexpr std::size_t c_gradient_limit = 1'000; ///< colours

struct list_name
{
    char const *name;
    style_list style_lib::*list;
};
constexpr list_name c_lists[] = {
    {"points", &style_lib::pnt}, {"lines", &style_lib::pln}, {"polygons", &style_lib::pgn}};

/// What writing and reading of an item and of an indexed style share.
template <class Io, class T>
void number_fields(Io &io, T &object)
{
    io.field("index", object.index);
    io.field("version", object.version);
}

/// The tree is written as deep as it is read.
void write_item(xml_out element, style_item const &item, int depth)
{
    element.field("caption", item.caption.text);
    element.field("caption", item.caption.others);
    number_fields(element, item);
    if (depth < c_depth_limit)
        for (auto const &child : item.items)
            write_item(element.child("item"), *child, depth + 1);
}

void read_item(xml_in element, style_item &item, int depth, std::size_t &count)
{
    element.field("caption", item.caption.text);
    element.field("caption", item.caption.others);
    number_fields(element, item);
    while (element.good() && element.at("item")) {
        if (depth == c_depth_limit || ++count > c_item_limit)
            return element.fail();
        read_item(element.child("item"), *item.items.emplace_back(std::make_unique<style_item>()), depth + 1,
                  count);
    }
    element.finish();
}

void write_gradient(xml_out style, style_gradient const &gradient)
{
    if (!gradient.of && gradient.colors.empty())
        return;
    auto element = style.child("gradient");
    if (gradient.of)
        element.field("of", *gradient.of);
    for (Tvx_color const color : gradient.colors)
        element.child("color").field("value", color);
}

void read_gradient(xml_in &style, style_gradient &gradient)
{
    if (!style.at("gradient"))
        return;
    auto element = style.child("gradient");
    constexpr Tvx_color c_none = vx_clr_init_rgba(0, 0, 0, 0);
    Tvx_color of = c_none;
    element.field("of", of);
    if (of != c_none)
        gradient.of = of;
    while (element.good() && element.at("color")) {
        auto step = element.child("color");
        step.field("value", gradient.colors.emplace_back());
        step.finish();
    }
    if (gradient.colors.size() == 1 || gradient.colors.size() > c_gradient_limit)
        element.fail();
    element.finish();
}

void write_text(xml_out &element, char const *name, std::wstring const &text)
{
    if (!text.empty())
        element.field(name, text);
}

std::string lib_bytes(style_lib const &lib)
{
    xml_file file;
    auto root = file.make(c_lib_root, 1, false);
    root.field("name", lib.name.text);
    root.field("name", lib.name.others);
    write_text(root, "source", lib.source);
    write_text(root, "licence", lib.licence);
    for (auto const &[name, list] : c_lists) {
        auto styles = root.child(name);
        for (auto const &style : (lib.*list).styles) {
            auto element = styles.child("style");
            number_fields(element, *style);
            write_text(element, "source", style->source);
            write_text(element, "licence", style->licence);
            write_style(element, style->kind, *style->style);
            write_gradient(element, style->gradient);
        }
    }
    write_item(root.child("item"), lib.root, 1);
    return file.bytes();
}

void read_list(xml_in styles, style_list &list)
{
    while (styles.good() && styles.at("style")) {
        auto element = styles.child("style");
        auto style = std::make_unique<idx_style>(list.kind);
        number_fields(element, *style);
        element.field("source", style->source);
        element.field("licence", style->licence);
        style->style = read_style(element, list.kind);
        read_gradient(element, style->gradient);
        element.finish();
        list.styles.push_back(std::move(style));
        if (list.styles.size() > c_style_limit)
            return styles.fail();
    }
    styles.finish();
}

xml_fault read_lib(std::string_view bytes, style_lib &lib)
{
    xml_file file;
    if (auto fault = file.parse(bytes, c_lib_root))
        return fault;
    reading state;
    auto root = file.root(state);
    root.field("name", lib.name.text);
    root.field("name", lib.name.others);
    root.field("source", lib.source);
    root.field("licence", lib.licence);
    for (auto const &[name, list] : c_lists)
        read_list(root.child(name), lib.*list);
    std::size_t count = 1;
    read_item(root.child("item"), lib.root, 1, count);
    root.finish();
    return file.outcome(state);
}

// By name, so that the libraries stand in the same order on every machine.
std::vector<std::wstring> lib_files(std::wstring const &directory)
{
    std::vector<std::wstring> files;
    std::error_code code;
    for (auto const &entry : std::filesystem::directory_iterator(vx_path_to_native(directory), code))
        if (entry.path().extension() == vx_path_to_native(c_style_lib_ext))
            files.push_back(vx_path_from_native(entry.path().string()));
    std::ranges::sort(files);
    return files;
}

/// The libraries that came with the system; empty if there are none.
std::wstring shared_directory()
{
    for (wchar_t const *folder : c_shared_folders) {
        std::wstring const directory = vx_library_get_own_directory() + std::wstring(folder);
        std::error_code code;
        if (std::filesystem::is_directory(vx_path_to_native(directory), code))
            return directory;
    }
    return {};
}

/// Empty where the user has no storage.
std::wstring user_folder()
{
    vx::owned<Ivx_ini_data, &vx_ini_data_destroy> const ini(vx_ini_data_create());
    std::wstring folder;
    Tvx_std_wstring_adapter adapter(folder);
    vx_ini_data_get_storage_path(ini.get(), c_lib_folder, adapter);
    return folder;
}

/// A file in the folder that is not there yet. What a name may not hold everywhere stands as "_".
std::wstring new_file(std::wstring const &folder, std::wstring name)
{
    constexpr std::size_t c_longest = 60;
    name.resize(std::min(name.size(), c_longest));
    for (wchar_t &c : name)
        if (c < L' ' || std::wstring_view(L"\\/:*?\"<>|.").find(c) != std::wstring_view::npos)
            c = L'_';
    std::wstring const stem = folder + L"/" + (name.empty() ? L"_" : name);
    std::wstring file = stem + c_style_lib_ext;
    for (int i = 2; vx_path_exists(file); ++i)
        file = stem + L"_" + std::to_wstring(i) + c_style_lib_ext;
    return file;
}

/// The same in the libraries of the process. Where they were read just now, they have it.
void take_over(std::unique_ptr<style_lib> saved, char const *type, void const *style, int index,
               void const *groups, wchar_t const *caption)
{
    auto &libs = static_cast<style_libs *>(vx_global_lib_styles_get_libs())->libs;
    auto const known = std::ranges::find_if(libs, [&](auto const &lib) { return lib->file == saved->file; });
    if (known == libs.end())
        libs.push_back(std::move(saved));
    else
        vx_style_lib_put_style(known->get(), type, style, index, c_put_version, groups, caption);
}

bool load_global_libs(void *libs)
{
    std::wstring const users = user_folder();
    bool any = false;
    Ivx_xml_data reading;
    for (auto const &directory : {users, shared_directory()})
        if (!directory.empty())
            for (auto const &file : lib_files(directory)) {
                if (vx_xml_data_load_style_lib(&reading, file.c_str(), libs))
                    any = true;
                else // of a reason, its sentence
                    static_cast<style_libs *>(libs)->faults.push_back(
                        reading.error.substr(0, reading.error.find(L'\n')));
            }
    return any;
}

[[maybe_unused]] bool const registered = [] {
    vx_global_lib_styles_set_loader(&load_global_libs);
    return true;
}();
} // namespace

bool vx_xml_data_load_style_lib(Ivx_xml_data *xml, wchar_t const *file, void *libs)
{
    std::wstring error;
    auto const bytes = libs ? file_bytes(file, error) : std::nullopt;
    if (!bytes)
        return done(xml, libs ? error : fault_text({xml_fault::other}, file ? file : L""));
    auto lib = std::make_unique<style_lib>();
    auto const fault = read_lib(*bytes, *lib);
    lib->file = file;
    if (!fault)
        static_cast<style_libs *>(libs)->libs.push_back(std::move(lib));
    return done(xml, fault_text(fault, file));
}

bool vx_xml_data_save_style_lib(Ivx_xml_data *xml, wchar_t const *file, void const *lib)
{
    return lib && saved(xml, save_bytes(file, lib_bytes(*static_cast<style_lib const *>(lib))));
}

void vx_xml_data_load_user_style_libs(void *libs)
{
    if (std::wstring const folder = user_folder(); !folder.empty())
        for (auto const &file : lib_files(folder))
            static_cast<void>(vx_xml_data_load_style_lib(nullptr, file.c_str(), libs));
}

bool vx_xml_data_put_user_style(Ivx_xml_data *xml, wchar_t const *file, wchar_t const *name, char const *type,
                                void const *style, int index, void const *groups, wchar_t const *caption)
{
    style_libs libs;
    std::wstring path = file ? file : L"";
    if (!path.empty()) {
        Ivx_xml_data reading;
        if (!vx_xml_data_load_style_lib(&reading, path.c_str(), &libs))
            return saved(xml, reading.error);
    } else {
        std::wstring const folder = user_folder();
        vx_style_libs_add_lib(&libs, name);
        if (folder.empty() || !vx_make_directories(folder))
            return saved(xml, vx_res_format_w(c_capt_file_not_made, folder));
        path = new_file(folder, name ? name : L"");
    }
    style_lib &lib = *libs.libs.front();
    lib.file = path;
    if (!vx_style_lib_put_style(&lib, type, style, index, c_put_version, groups, caption))
        return saved(xml,
                     vx_res_format_w(c_capt_number_in_library, {std::to_wstring(index), lib.name.spoken()}));
    if (!saved(xml, save_bytes(path.c_str(), lib_bytes(lib))))
        return false;
    take_over(std::move(libs.libs.front()), type, style, index, groups, caption);
    return true;
}
