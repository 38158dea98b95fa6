#include "platform/base/owned.h"
#include "platform/basic/vx_fault.h"
#include "platform/basic/vx_palette.h"
#include "platform/storage/detail/storage_state.h"
#include "platform/storage/file_names.h"
#include "platform/storage/vx_ini_data.h"
#include "platform/storage/vx_xml_save_2d.h"
#include "platform/winapi/file.h"

#include <cstdint>
#include <filesystem>

using namespace vx::storage;

namespace {
constexpr char const *c_palettes_root = "vx_palettes";
constexpr wchar_t const *c_kept_ext = L".damaged";
constexpr unsigned c_palette_limit = 100'000; ///< colours of one palette

using owned_palettes = vx::owned<void, &vx_clr_palettes_destroy>;

std::wstring caption_of(void const *palette)
{
    std::wstring caption;
    Tvx_std_wstring_adapter adapter(caption);
    vx_clr_palette_get_wcaption(palette, adapter);
    return caption;
}

std::string palettes_bytes(void *palettes)
{
    xml_file file;
    auto root = file.make(c_palettes_root);
    for (unsigned i = 0; i < vx_clr_palettes_get_size(palettes); ++i) {
        void const *palette = vx_clr_palettes_get_palette(palettes, i);
        auto element = root.child("palette");
        element.field("caption", caption_of(palette));
        for (unsigned k = 0; k < vx_clr_palette_get_size(palette); ++k)
            element.child("color").field("value", vx_clr_palette_get_color(palette, k));
    }
    return file.bytes();
}

void read_palette(xml_in element, void *palette)
{
    std::wstring caption;
    element.field("caption", caption);
    vx_clr_palette_set_wcaption(palette, caption.c_str());
    std::vector<Tvx_color> colors;
    while (element.good() && element.at("color")) {
        auto color = element.child("color");
        color.field("value", colors.emplace_back());
        color.finish();
    }
    element.finish();
    if (colors.size() > c_palette_limit)
        return element.fail();
    vx_clr_palette_set_size(palette, static_cast<unsigned>(colors.size()));
    for (unsigned k = 0; k < colors.size(); ++k)
        vx_clr_palette_set_color(palette, k, colors[k]);
}

xml_fault read_palettes(std::string_view bytes, void *palettes)
{
    xml_file file;
    if (auto fault = file.parse(bytes, c_palettes_root))
        return fault;
    reading state;
    auto root = file.root(state);
    owned_palettes const fresh(vx_clr_palettes_create());
    while (state.good && root.at("palette"))
        read_palette(root.child("palette"), vx_clr_palettes_add(fresh.get()));
    root.finish();
    if (!state.good)
        return file.outcome(state);
    vx_clr_palettes_assign(palettes, fresh.get());
    return {};
}

/// Which file the user's palettes were last read from: another time or size is another file.
struct file_stamp
{
    std::filesystem::file_time_type time;
    std::uintmax_t size = 0;
    friend bool operator==(file_stamp const &, file_stamp const &) = default;
};
file_stamp g_seen;

std::wstring user_path()
{
    vx::owned<Ivx_ini_data, &vx_ini_data_destroy> const ini(vx_ini_data_create());
    std::wstring path;
    Tvx_std_wstring_adapter adapter(path);
    auto const name = std::wstring(c_clr_palettes_basename) + c_clr_palettes_ext;
    vx_ini_data_get_storage_path(ini.get(), name.c_str(), adapter);
    return path;
}

/// That of no file is empty.
file_stamp stamp_of(std::wstring const &path)
{
    std::filesystem::path const file = vx_path_to_native(path);
    std::error_code error;
    file_stamp stamp;
    stamp.time = std::filesystem::last_write_time(file, error);
    if (!error)
        stamp.size = std::filesystem::file_size(file, error);
    return error ? file_stamp() : stamp;
}

/// The user's palettes, when they are first asked for.
void load_user_palettes(void *palettes)
{
    auto const path = user_path();
    g_seen = stamp_of(path);
    std::wstring error;
    auto const bytes = file_bytes(path.c_str(), error);
    if (!bytes || !read_palettes(*bytes, palettes))
        return;
    // The user's next palettes will take the place of a file that cannot be read.
    auto const kept = path + c_kept_ext;
    if (vx::fault fault; !vx_path_exists(kept) && !vx_save_atomic(kept, *bytes, fault))
        vx_reason_report(vx_fault_reason(fault).c_str());
}

[[maybe_unused]] bool const registered = [] {
    vx_user_palettes_set_loader(&load_user_palettes);
    return true;
}();
} // namespace

void vx_user_palettes_refresh()
{
    void *const palettes = vx_get_user_palettes();
    auto const stamp = stamp_of(user_path());
    // Palettes that could not be saved stay beside a file that is as it was.
    if (stamp != g_seen && stamp != file_stamp())
        load_user_palettes(palettes);
}

bool vx_xml_data_load_clr_palettes(Ivx_xml_data *xml, wchar_t const *file, void *palettes)
{
    std::wstring error;
    auto const bytes = palettes ? file_bytes(file, error) : std::nullopt;
    if (!bytes)
        return done(xml, palettes ? error : fault_text({xml_fault::other}, file ? file : L""));
    return done(xml, fault_text(read_palettes(*bytes, palettes), file));
}

bool vx_xml_data_save_clr_palettes(Ivx_xml_data *xml, wchar_t const *file, void const *palettes)
{
    // The list is only read; its accessors hand out palettes to be changed, too.
    return palettes && saved(xml, save_bytes(file, palettes_bytes(const_cast<void *>(palettes))));
}
