#include "host/captions.h"

#include "platform/basic/vx_res.h"

QString vx_host_caption(Tvx_host_caption number)
{
    return QString::fromWCharArray(vx_res_get_wstr(number));
}

QString vx_map_caption(Tvx_map_caption number)
{
    return QString::fromWCharArray(vx_res_get_wstr(number));
}

QString vx_layout_caption(Tvx_layout_window_caption number)
{
    return QString::fromWCharArray(vx_res_get_wstr(number));
}
