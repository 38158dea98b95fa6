#include "host/map_text.h"

#include "platform/render/vx_map_view.h"

#include <QLocale>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <string>

namespace {
constexpr int c_most_decimals = 9;
constexpr double c_most_scale = 1e12;

/// Decimals at which neighbouring pixels differ.
int decimals(double units_per_pixel)
{
    return std::clamp(int(std::ceil(-std::log10(units_per_pixel))), 0, c_most_decimals);
}
} // namespace

QString vx_map_text_coordinates(Tvx_pnt_d2 place, Tvx_canvas_view const &view, Tvx_map_unit unit)
{
    int const count = decimals(view.units_per_pixel());
    QString const sign = unit.is_degree ? QStringLiteral("\u00b0") : QString();
    return QString::number(place.x, 'f', count) + sign + QStringLiteral("   ") +
           QString::number(place.y, 'f', count) + sign;
}

QString vx_map_text_scale(double scale)
{
    std::wstring text;
    vx_map_scale_get_text_w(scale, Tvx_std_wstring_adapter(text));
    return QString::fromStdWString(text);
}

std::optional<double> vx_map_text_parse_scale(QString const &text)
{
    QString number = text;
    static QRegularExpression const parting(QStringLiteral("[:/]"));
    if (int const at = int(text.indexOf(parting)); at >= 0) {
        if (text.left(at).trimmed() != QStringLiteral("1"))
            return {};
        number = text.mid(at + 1);
    }
    // A comma may part thousands; as a decimal sign it would turn 25,000 into 25.
    static QRegularExpression const grouped(QStringLiteral("^\\s*\\d{1,3}(,\\d{3})+\\s*$"));
    if (grouped.match(number).hasMatch())
        number.remove(',');
    QString digits;
    for (QChar const c : number)
        if (!c.isSpace())
            digits += c;
    bool ok = false;
    double const scale = QLocale::c().toDouble(digits, &ok);
    return ok && std::isfinite(scale) && scale > 0 && scale <= c_most_scale ? std::optional(scale)
                                                                            : std::nullopt;
}
