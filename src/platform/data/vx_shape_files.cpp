#include "platform/data/vx_shape_files.h"

#include "platform/data/detail/attr_data.h"

/// It holds the arrays alone: what happens to the data object later does not reach them.
struct Ivx_shape_files
{
    std::shared_ptr<vx::attr::shape_set const> shapes;
};

Ivx_shape_files *vx_shape_files_open(Ivx_attr_data *data)
{
    auto const set = data ? data->opened() : nullptr;
    auto shapes = set && set->has_vector() ? set->shapes() : nullptr;
    return shapes ? new Ivx_shape_files{std::move(shapes)} : nullptr;
}

void vx_shape_files_close(Ivx_shape_files *shapes)
{
    delete shapes;
}

unsigned vx_shape_files_get_count(Ivx_shape_files const *shapes)
{
    return shapes ? static_cast<unsigned>(shapes->shapes->size()) : 0;
}

bool vx_shape_files_is_damaged(Ivx_shape_files const *shapes)
{
    return shapes && shapes->shapes->is_damaged();
}

Tvx_box_d2 vx_shape_files_get_box(Ivx_shape_files const *shapes)
{
    return shapes ? shapes->shapes->box() : Tvx_box_d2{};
}

bool vx_shape_files_get(Ivx_shape_files const *shapes, unsigned index, Tvx_shape_view *view)
{
    if (!view || index >= vx_shape_files_get_count(shapes))
        return false;
    *view = shapes->shapes->view(index);
    return true;
}

void vx_shape_files_visit(Ivx_shape_files const *shapes, Tvx_box_d2 const *box, Tvx_shape_visit visit,
                          void *user)
{
    if (!shapes || !box || !visit)
        return;
    auto const &all = *shapes->shapes;
    all.visit(*box, [&](std::size_t i) {
        auto const view = all.view(i);
        return visit(static_cast<unsigned>(i), &view, user);
    });
}
