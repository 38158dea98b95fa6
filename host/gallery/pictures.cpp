#include "host/gallery/pictures.h"

#include "host/gallery/gallery_dialog.h"
#include "host/gallery/gallery_form.h"
#include "user_input/user_input.h"

#include "platform/toolkit/controls/page_control.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <unistd.h>

namespace {
bool take_dialog_pictures(std::filesystem::path const &directory, std::string const &suffix)
{
    bool written = true;
    for (auto const *dialog : gallery_dialog::all()) {
        std::string const name = "Dialog " + UnicodeString(dialog->caption()).to_utf8() + suffix + ".png";
        vx::user_input::on_next_modal([&](vx::user_input::modal_window const &window) {
            written = window.save_shot(UnicodeString((directory / name).string())) && written;
            window.reject();
        });
        dialog->open();
        std::printf("%s\n", (directory / name).c_str());
    }
    return written;
}

/// The pictures of all pages and dialogs; false if one could not be written.
bool take_pictures(std::filesystem::path const &directory, std::string const &suffix)
{
    gallery_form form;
    form.Show();
    for (int i = 0; i < form.pages()->GetPageCount(); ++i) {
        form.pages()->SetActivePageIndex(i);
        vx::user_input::wait_idle();
        std::string const name = form.pages()->GetPages(i)->GetCaption().to_utf8() + suffix + ".png";
        if (!vx::user_input::save_shot(&form, UnicodeString((directory / name).string())))
            return false;
        std::printf("%s\n", (directory / name).c_str());
    }
    return take_dialog_pictures(directory, suffix);
}
} // namespace

// The resolution holds for a whole process: a second one takes the pictures at the double resolution.
int shoot_gallery(char **arguments, std::filesystem::path const &directory)
{
    std::error_code error;
    std::filesystem::create_directories(directory, error);
    bool const doubled = std::getenv("QT_SCALE_FACTOR") != nullptr;
    if (!take_pictures(directory, doubled ? "@2x" : ""))
        return EXIT_FAILURE;
    if (doubled)
        return EXIT_SUCCESS;
    std::fflush(stdout);
    setenv("QT_SCALE_FACTOR", "2", 1);
    execvp(arguments[0], arguments);
    return EXIT_FAILURE;
}
