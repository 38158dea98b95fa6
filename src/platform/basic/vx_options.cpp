#include "platform/basic/vx_options.h"

#include "platform/base/text_codec.h"
#include "platform/basic/detail/caption_catalogue.h"
#include "platform/basic/detail/options_file.h"
#include "platform/winapi/file.h"
#include "platform/winapi/library.h"

#include <charconv>
#include <cstdlib>
#include <string>

namespace {
constexpr std::size_t c_file_limit = 1 << 20;
constexpr double c_default_mm2px = 96 / 25.4;
constexpr double c_max_mm2px = 1000;
constexpr wchar_t c_default_plugins[] = L"vxk_plugins/*.so";
constexpr char c_key_lr_2d_mask[] = "lr_2d_editor_plugin_mask";
constexpr char c_key_style_mask[] = "style_editor_plugin_mask";
constexpr char c_key_mm2px_x[] = "mm2px_x";
constexpr char c_key_mm2px_y[] = "mm2px_y";
constexpr char c_key_invert[] = "invert_layers";
constexpr char c_key_language[] = "language";

std::wstring user_file()
{
    auto const *const config = std::getenv("XDG_CONFIG_HOME");
    std::string directory = config && *config == '/' ? config : "";
    if (auto const *const home = std::getenv("HOME"); directory.empty() && home && *home)
        directory = std::string(home) + "/.config";
    return directory.empty() ? std::wstring() : vx_path_from_native(directory + "/vxk/options.ini");
}

bool valid_mm2px(double value)
{
    return value > 0 && value <= c_max_mm2px;
}

std::string number_text(double value)
{
    char buffer[32];
    auto const end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
    return {buffer, end};
}

// The captions for a locale such as "pt_BR.UTF-8": those of the country, else those of the language.
std::string locale_language(std::string_view locale)
{
    for (auto const *ends : {".@", "_.@"})
        if (auto const name = locale.substr(0, locale.find_first_of(ends)); !vx::captions::find(name).empty())
            return std::string(name);
    return std::string(vx::captions::c_base_language);
}

// The first of the variables that says anything decides, as for other programs.
std::string environment_language()
{
    for (auto const *name : {"LC_ALL", "LC_MESSAGES", "LANG"})
        if (auto const *const value = std::getenv(name); value && *value)
            return locale_language(value);
    return std::string(vx::captions::c_base_language);
}

class options
{
public:
    options() { use_file(user_file()); }

    void use_file(std::wstring file_name)
    {
        f_file_name = std::move(file_name);
        f_file = {};
        vx::fault fault;
        auto const content = vx_file_read(f_file_name, fault, c_file_limit);
        // A file that is there but cannot be read is not overwritten later by what we did not see.
        f_may_save = !f_file_name.empty() && (content || !vx_path_exists(f_file_name));
        f_saved = content.value_or(std::string());
        f_file.parse(f_saved);
        f_lr_2d_mask = mask_of(c_key_lr_2d_mask);
        f_style_mask = mask_of(c_key_style_mask);
        f_mm2px_x = number_of(c_key_mm2px_x);
        f_mm2px_y = number_of(c_key_mm2px_y);
        f_invert = f_file.get(c_key_invert) == "1";
        f_language = f_file.get(c_key_language).value_or(std::string());
        if (vx::captions::find(f_language).empty())
            f_language = environment_language();
    }

    bool save()
    {
        if (!f_may_save)
            return false;
        auto const text = f_file.text();
        if (text == f_saved)
            return true;
        auto const slash = f_file_name.rfind(L'/');
        if (slash != std::wstring::npos && slash > 0 && !vx_make_directories(f_file_name.substr(0, slash)))
            return false;
        vx::fault fault;
        if (!vx_save_atomic(f_file_name, text, fault))
            return false;
        f_saved = text;
        return true;
    }

    void set_mask(char const *key, std::wstring &field, wchar_t const *mask)
    {
        field = mask ? mask : L"";
        f_file.set(key, vx::text::wide_to_utf8(field));
    }
    void set_mm2px(double x, double y)
    {
        if (!valid_mm2px(x) || !valid_mm2px(y))
            return;
        f_mm2px_x = x;
        f_mm2px_y = y;
        f_file.set(c_key_mm2px_x, number_text(x));
        f_file.set(c_key_mm2px_y, number_text(y));
    }
    void set_invert(bool invert)
    {
        f_invert = invert;
        f_file.set(c_key_invert, invert ? "1" : "0");
    }
    bool set_language(std::string const &language)
    {
        if (vx::captions::find(language).empty())
            return false;
        f_language = language;
        f_file.set(c_key_language, language);
        return true;
    }

    std::wstring f_lr_2d_mask;
    std::wstring f_style_mask;
    double f_mm2px_x = c_default_mm2px;
    double f_mm2px_y = c_default_mm2px;
    bool f_invert = false;
    std::string f_language;

private:
    [[nodiscard]] std::wstring mask_of(char const *key) const
    {
        if (auto const mask = f_file.get(key))
            return vx::text::utf8_to_wide(*mask);
        std::wstring const own = vx_library_get_own_directory();
        return own.empty() ? own : own + c_default_plugins;
    }
    [[nodiscard]] double number_of(char const *key) const
    {
        auto const text = f_file.get(key).value_or(std::string());
        double value = 0;
        auto const [end, code] = std::from_chars(text.data(), text.data() + text.size(), value);
        return code == std::errc() && end == text.data() + text.size() && valid_mm2px(value)
                   ? value
                   : c_default_mm2px;
    }

    std::wstring f_file_name;
    options_file f_file;
    std::string f_saved;
    bool f_may_save = false;
};

options &current()
{
    static auto &o = *new options; // never destroyed: objects that end late may still ask
    return o;
}

wchar_t const *text_or_null(std::wstring const &text)
{
    return text.empty() ? nullptr : text.c_str();
}
} // namespace

wchar_t const *vx_options_get_lr_2d_editor_plugin_mask()
{
    return text_or_null(current().f_lr_2d_mask);
}

wchar_t const *vx_options_get_style_editor_plugin_mask()
{
    return text_or_null(current().f_style_mask);
}

void vx_options_set_lr_2d_editor_plugin_mask(wchar_t const *mask)
{
    current().set_mask(c_key_lr_2d_mask, current().f_lr_2d_mask, mask);
}

void vx_options_set_style_editor_plugin_mask(wchar_t const *mask)
{
    current().set_mask(c_key_style_mask, current().f_style_mask, mask);
}

double vx_options_get_mm2px_x()
{
    return current().f_mm2px_x;
}

double vx_options_get_mm2px_y()
{
    return current().f_mm2px_y;
}

void vx_options_set_mm2px(double x, double y)
{
    current().set_mm2px(x, y);
}

bool vx_options_get_invert_layers()
{
    return current().f_invert;
}

void vx_options_set_invert_layers(bool invert)
{
    current().set_invert(invert);
}

char const *vx_options_get_language()
{
    return current().f_language.c_str();
}

char const *vx_options_get_known_language(int index)
{
    // The names are literals, so each is followed by its end.
    return index >= 0 && index < vx::captions::catalogue_count
               ? vx::captions::catalogue_texts[index].language.data()
               : nullptr;
}

bool vx_options_set_language(char const *language)
{
    return language && current().set_language(language);
}

bool vx_options_save()
{
    return current().save();
}

void vx_options_set_file(wchar_t const *file_name)
{
    current().use_file(file_name ? std::wstring(file_name) : user_file());
}
