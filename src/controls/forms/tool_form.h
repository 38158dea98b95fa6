#pragma once

#include "controls/forms/form.h"

/// A tool window that stays above the others.
class VX_API Tvx_tool_form : public Tvx_form
{
public:
    explicit Tvx_tool_form(TComponent *owner);

    /// Shows the form. The first time it is placed: (0, 0) is the middle of the screen, any other point the
    /// upper left corner, pushed back to the screen's right and lower edge. Later it comes back where it was.
    void show_pos(int x, int y);

private:
    bool f_placed = false;
};
