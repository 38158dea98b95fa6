#pragma once

#include <filesystem>

/// Writes a picture for each parameter of each layer of a complex style into the directory, which is made:
/// three samples in which nothing else changes, with two pixels for one. Gives the exit code of the process.
int write_parameter_pictures(std::filesystem::path const &directory);
