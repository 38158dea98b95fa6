#include "host/gallery/gallery_form.h"
#include "host/gallery/parameter_pictures.h"
#include "host/gallery/pictures.h"
#include "host/offscreen.h"

#include "platform/toolkit/core/application.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>

// Every control of the toolkit and of the library on the pages of one form. `--shot DIR` writes a picture of
// each page and dialog, at the usual and at the double resolution, and ends, and `--parameters DIR` one of
// each parameter of the layers of complex styles; `--headless` before them needs no display.

int main(int argc, char **argv)
{
    std::optional<Tvx_offscreen> screen;
    int first = 1;
    if (argc > 1 && std::strcmp(argv[1], "--headless") == 0) {
        screen.emplace("vx_gallery");
        ++first;
    }
    if (argc == first + 2 && std::strcmp(argv[first], "--shot") == 0)
        return shoot_gallery(argv, argv[first + 1]);
    if (argc == first + 2 && std::strcmp(argv[first], "--parameters") == 0)
        return write_parameter_pictures(argv[first + 1]);
    if (argc != first || screen) {
        std::fprintf(stderr, "usage: vx_gallery [[--headless] --shot DIR | --parameters DIR]\n");
        return EXIT_FAILURE;
    }
    gallery_form form;
    Application->SetMainForm(&form);
    Application->Run();
    return EXIT_SUCCESS;
}
