#pragma once

#include "host/command_line.h"

/// Runs the program as the command line says and gives its exit code: 0 when all went well.
[[nodiscard]] int vx_map_application_run(int argc, char **argv, Tvx_command_line const &line);
