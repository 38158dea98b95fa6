#include "exports/vxk_host_api.h"

#include "platform/base/owned.h"
#include "platform/data/vx_attr_data.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/render/vx_bmp_dc.h"
#include "platform/render/vx_map_view.h"
#include "platform/render/vx_render_layer.h"
#include "platform/toolkit/core/application.h"
#include "platform/toolkit/core/form.h"
#include "platform/toolkit/core/screen.h"

#include <algorithm>
#include <iterator>

// A host in C cannot take an exception: what goes wrong inside ends here, with the neutral result.
namespace {
template <class Operation>
auto guarded(Operation operation) noexcept
{
    using result = decltype(operation());
    try {
        return operation();
    } catch (...) {
    }
    return result();
}

bool has_quit = false;
int running_loops = 0;
struct loop_scope
{
    loop_scope() { ++running_loops; }
    loop_scope(loop_scope const &) = delete;
    loop_scope &operator=(loop_scope const &) = delete;
    ~loop_scope() { --running_loops; }
};

bool is_any_form_showing()
{
    for (int i = 0; i < Screen->GetFormCount(); ++i)
        if (Screen->GetForms(i)->GetShowing())
            return true;
    return false;
}
} // namespace

bool vx_host_get_extent(Ivx_layer *layer, double extent[4])
{
    return guarded([=] {
        Tvx_box_d2 box;
        if (!extent || !vx_attr_data_get_extent(vx_shp_lr2d_get_attr_data_ptr(layer), &box))
            return false;
        double const sides[4] = {box.min_x, box.min_y, box.max_x, box.max_y};
        std::copy(std::begin(sides), std::end(sides), extent);
        return true;
    });
}

bool vx_host_draw(Ivx_layer *layer, double const extent[4], int width, int height, unsigned char *pixels,
                  int bytes_per_line)
{
    return guarded([=] {
        if (!layer || !extent || !pixels || width < 1 || height < 1 || bytes_per_line / 4 < width)
            return false;
        Tvx_box_d2 box;
        box.add(extent[0], extent[1]);
        box.add(extent[2], extent[3]);
        vx::owned<void, &vx_bmp_dc_destroy> const device(vx_bmp_dc_create());
        vx_bmp_dc_set_pixels(device.get(), pixels, width, height, bytes_per_line);
        return vx_render_layer(layer, vx_map_view_fit(box, width, height), device.get());
    });
}

void vx_host_process_events()
{
    guarded([] { Application->ProcessMessages(); });
}

void vx_host_run()
{
    guarded([] {
        if (running_loops == 0)
            has_quit = false;
        loop_scope const scope;
        while (!has_quit && is_any_form_showing())
            Application->HandleMessage();
    });
}

void vx_host_quit()
{
    // It is called from within an event, after which the loop looks here.
    has_quit = true;
}
