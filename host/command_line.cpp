#include "host/command_line.h"

#include "captions/host.h"
#include "captions/layout_window.h"
#include "captions/map.h"

#include "platform/base/text_codec.h"
#include "platform/basic/vx_options.h"
#include "platform/basic/vx_res.h"

#include <initializer_list>

namespace {
/// A caption in the encoding of the terminal, with a value in its place.
std::string text(int number, std::initializer_list<std::string> values = {})
{
    std::vector<std::wstring> wide;
    for (auto const &value : values)
        wide.push_back(vx::text::utf8_to_wide(value));
    wide.resize(2);
    return vx::text::wide_to_utf8(vx_res_format_w(number, {wide[0], wide[1]}));
}

/// Options of the window system that take a value in the next argument.
constexpr char const *c_window_options[] = {"-platform",           "-style",           "-display",
                                            "-geometry",           "-qwindowgeometry", "-stylesheet",
                                            "-platformpluginpath", "-platformtheme"};

bool is_window_option(std::string const &argument)
{
    for (char const *option : c_window_options)
        if (argument == option || argument == std::string("-") + option)
            return true;
    return false;
}

class reader
{
public:
    explicit reader(std::vector<std::string> const &arguments) : f_arguments(arguments) {}

    Tvx_command_line read()
    {
        while (f_at < f_arguments.size() && f_line.error.empty())
            take(f_arguments[f_at++]);
        check();
        return f_line;
    }

private:
    void take(std::string const &argument)
    {
        if (f_only_files || argument.empty() || argument[0] != '-')
            f_line.files.push_back(argument);
        else if (argument == "--")
            f_only_files = true;
        else if (argument == "-h" || argument == "--help")
            f_line.help = true;
        else if (argument == "--version")
            f_line.version = true;
        else if (argument == "--headless")
            f_line.headless = true;
        else if (is_window_option(argument))
            ++f_at;
        else if (!take_value(argument, "--lang", f_line.language) &&
                 !take_value(argument, "--shot", f_line.shot_directory) &&
                 !take_value(argument, "--style-sheets", f_line.sheet_directory) &&
                 !take_value(argument, "--import-property-file", f_line.import_file) &&
                 !take_value(argument, "--layout", f_line.layout_name) &&
                 !take_value(argument, "--pdf", f_line.pdf_file) &&
                 !take_value(argument, "--extensions", f_line.extension_directory) &&
                 !take_value(argument, "--data", f_line.data_directory))
            f_line.error = text(c_cap_line_unknown_option, {argument});
    }

    /// `--name value` or `--name=value`.
    bool take_value(std::string const &argument, std::string const &name, std::string &value)
    {
        if (argument.starts_with(name + "=")) {
            value = argument.substr(name.size() + 1);
        } else if (argument == name) {
            value = f_at < f_arguments.size() ? f_arguments[f_at++] : std::string();
        } else {
            return false;
        }
        if (value.empty())
            f_line.error = text(c_cap_line_needs_value, {name});
        return true;
    }

    void check()
    {
        if (!f_line.error.empty() || f_line.help || f_line.version)
            return;
        if (!f_line.language.empty() && !knows_language())
            f_line.error = text(c_cap_line_unknown_language, {f_line.language, known_languages()});
        else if (f_line.headless && f_line.shot_directory.empty() && f_line.sheet_directory.empty() &&
                 f_line.import_file.empty() && f_line.pdf_file.empty())
            f_line.error = text(c_cap_line_needs_shot);
        else if (!f_line.import_file.empty() && f_line.files.empty())
            f_line.error = text(c_map_line_import_sources);
        else if ((!f_line.pdf_file.empty() && f_line.files.size() != 1) ||
                 (f_line.pdf_file.empty() && !f_line.layout_name.empty()))
            f_line.error = text(c_lay_line_pdf_needs);
    }

    bool knows_language()
    {
        for (int i = 0; char const *const known = vx_options_get_known_language(i); ++i)
            if (f_line.language == known)
                return true;
        return false;
    }
    static std::string known_languages()
    {
        std::string names;
        for (int i = 0; char const *const known = vx_options_get_known_language(i); ++i)
            names += (i == 0 ? "" : ", ") + std::string(known);
        return names;
    }

    std::vector<std::string> const &f_arguments;
    std::size_t f_at = 0;
    bool f_only_files = false;
    Tvx_command_line f_line;
};
} // namespace

Tvx_command_line vx_command_line_parse(std::vector<std::string> const &arguments)
{
    return reader(arguments).read();
}

std::string vx_command_line_help()
{
    return text(c_cap_line_help);
}

std::string vx_command_line_hint()
{
    return text(c_cap_line_hint);
}
