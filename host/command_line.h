#pragma once

#include <string>
#include <vector>

/// What the user asked for on the command line.
struct Tvx_command_line
{
    std::vector<std::string> files;
    /// Such as "en"; empty takes the user's language.
    std::string language;
    /// Folder of the tour's pictures; empty for ordinary work.
    std::string shot_directory;
    /// Folder of the example data for the tour; empty for the one that came with the program.
    std::string data_directory;
    /// One more folder of extensions; empty for none.
    std::string extension_directory;
    /// Folder for pictures of style libraries, which `files` then are; empty for ordinary work.
    std::string sheet_directory;
    /// The property file that is made of `files`; empty for ordinary work.
    std::string import_file;
    /// The file that a layout of the map is written to; empty for ordinary work.
    std::string pdf_file;
    /// The layout; empty for the only one.
    std::string layout_name;
    bool headless = false;
    bool help = false;
    bool version = false;
    /// What is wrong with the arguments, one line in UTF-8; empty when nothing is.
    std::string error;
};

/// Arguments without the program's own name. Arguments that belong to the window system (`-platform`,
/// `-style` and the like) are left to it.
[[nodiscard]] Tvx_command_line vx_command_line_parse(std::vector<std::string> const &arguments);
/// What `--help` prints, and where a wrong line leads to, in the user's language and UTF-8.
[[nodiscard]] std::string vx_command_line_help();
[[nodiscard]] std::string vx_command_line_hint();
