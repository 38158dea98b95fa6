#pragma once

#include "host/canvas_view.h"
#include "host/map_unit.h"

#include <QString>

#include <optional>

/// Numbers of the status bar as text, the same in every locale: "." separates decimals, a thin space
/// thousands.

/// "x  y" with as many decimals as the view can tell apart; degrees carry their sign.
[[nodiscard]] QString vx_map_text_coordinates(Tvx_pnt_d2 place, Tvx_canvas_view const &view,
                                              Tvx_map_unit unit);
/// "1 : 25 000". Scales above 1 : 10 keep two decimals; nothing sensible gives an empty text.
[[nodiscard]] QString vx_map_text_scale(double scale);
/// Reads "1 : 25 000", "1:25000", "1/25000", "25000"; nothing for other texts and for scales that are not
/// above 0.
[[nodiscard]] std::optional<double> vx_map_text_parse_scale(QString const &text);
