#include "sql_names.h"

#include <ogrsf_frmts.h>

namespace vx::gdal {
std::string quoted_name(std::string const &name)
{
    std::string text = "\"";
    for (char const c : name) {
        if (c == '"')
            text += '"';
        text += c;
    }
    return text + '"';
}

std::string text_literal(std::string const &text)
{
    std::string result = "'";
    for (char const c : text)
        result.append(c == '\'' ? 2 : 1, c);
    return result + "'";
}

std::string table_name(OGRLayer &layer, bool is_server)
{
    std::string const name = layer.GetName();
    std::size_t const point = is_server ? name.find('.') : std::string::npos;
    if (point == std::string::npos)
        return quoted_name(name);
    return quoted_name(name.substr(0, point)) + "." + quoted_name(name.substr(point + 1));
}
} // namespace vx::gdal
