#pragma once

#include <filesystem>

/// Writes a picture of each page and dialog of the gallery into the directory, which is made: at the usual
/// resolution, then once more, by starting the program again, at the double one. Gives the exit code of the
/// process; does not come back when all went well.
int shoot_gallery(char **arguments, std::filesystem::path const &directory);
