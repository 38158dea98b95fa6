#pragma once

#include <QIcon>

/// An icon of the host by the name of its drawing, in the text colour of the palette; grey while disabled.
[[nodiscard]] QIcon vx_host_glyph(char const *name);
