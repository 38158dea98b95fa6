#include "host/command_line.h"
#include "host/map_application.h"
#include "host/property_import.h"

#include "platform/basic/vx_options.h"

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
    if (!line.import_file.empty()) {
        if (!line.language.empty())
            vx_options_set_language(line.language.c_str());
        return vx_property_import_run(line);
    }
    return vx_map_application_run(argc, argv, line);
}
