#pragma once

#include <QString>

/// Writes a layout of a saved map to a PDF file without a window; an empty name means the only one there is.
/// What goes wrong stands on the error output. 0 when all of the page was written.
[[nodiscard]] int vx_layout_print(QString const &map, QString const &layout, QString const &pdf);
