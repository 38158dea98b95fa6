#include "data/grid/grid_palette.h"

#include "platform/basic/vx_datasource.h"

namespace vx::data {
grid_palette::~grid_palette()
{
    vx_datasource_end(f_handle);
}

bool grid_palette::init(vx::grid_palette handle)
{
    vx_datasource_end(f_handle);
    f_handle = handle;
    return valid();
}

Tvx_color grid_palette::fetch_color(int i) const
{
    Tvx_color color{};
    fetch_color(i, color);
    return color;
}

bool grid_palette::fetch_color(int i, Tvx_color &color) const
{
    Tvx_color found{};
    if (!f_handle.with_color(i, &found))
        return false;
    color = found;
    return true;
}
} // namespace vx::data
