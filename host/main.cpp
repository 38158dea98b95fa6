#include "host/command_line.h"
#include "host/map_application.h"

#include <cstdio>

int main(int argc, char **argv)
{
    Tvx_command_line const line = vx_command_line_parse({argv + 1, argv + argc});
    if (!line.error.empty()) {
        std::fprintf(stderr, "vx_map: %s\n%s\n", line.error.c_str(), vx_command_line_hint().c_str());
        return 2;
    }
    if (line.help) {
        std::fputs(vx_command_line_help().c_str(), stdout);
        return 0;
    }
    if (line.version) {
        std::puts("vx_map " VX_MAP_VERSION);
        return 0;
    }
    return vx_map_application_run(argc, argv, line);
}
