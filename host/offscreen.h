#pragma once

#include <QTemporaryFile>

/// A screen of 1920 by 1080 for programs that nobody looks at. Made before the application object, and kept
/// until that exists; without it the window system would ask for a display.
class Tvx_offscreen
{
public:
    /// Chooses the screen, and keeps what the window system says about its shortcomings from the error
    /// output. `program` stands before all other messages of the toolkit and must live as long as the
    /// program.
    explicit Tvx_offscreen(char const *program);

private:
    QTemporaryFile f_screen;
};
