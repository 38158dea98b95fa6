#include "platform/data/vx_shape_files.h"

#include "platform/data/detail/attr_data.h"

/// Once all is read it holds the arrays alone: what happens to the data object later does not reach them.
struct Ivx_shape_files
{
    std::shared_ptr<vx::attr::attr_set> set;      ///< null when there is nothing left to read
    std::unique_ptr<vx::attr::shape_feed> window; ///< null: the whole
    std::shared_ptr<vx::attr::shape_set const> shapes;
    std::shared_ptr<std::vector<unsigned> const> records = nullptr; ///< of the shapes of a window

    ~Ivx_shape_files() { window.reset(); }
};

Ivx_shape_files *vx_shape_files_open(Ivx_attr_data *data)
{
    auto const set = data ? data->opened() : nullptr;
    auto shapes = set && set->has_vector() ? set->shapes() : nullptr;
    return shapes ? new Ivx_shape_files{nullptr, nullptr, std::move(shapes)} : nullptr;
}

Ivx_shape_files *vx_shape_files_begin(Ivx_attr_data *data)
{
    auto set = data ? data->opened() : nullptr;
    if (!set || !set->has_vector())
        return nullptr;
    auto shapes = set->shapes_so_far();
    if (!shapes)
        return nullptr;
    return new Ivx_shape_files{std::move(set), nullptr, std::move(shapes)};
}

Ivx_shape_files *vx_shape_files_begin_window(Ivx_attr_data *data, Tvx_box_d2 const *window)
{
    auto set = data && window ? data->opened() : nullptr;
    auto feed = set && set->has_vector() ? set->shapes_in(*window) : nullptr;
    if (!feed)
        return nullptr;
    auto shapes = feed->shapes();
    auto records = feed->records();
    return new Ivx_shape_files{std::move(set), std::move(feed), std::move(shapes), std::move(records)};
}

bool vx_shape_files_read_on(Ivx_shape_files *shapes, int milliseconds)
{
    if (!shapes || !shapes->set)
        return false;
    if (shapes->window ? shapes->set->read_on(*shapes->window, milliseconds)
                       : shapes->set->read_shapes(milliseconds))
        return true;
    shapes->window.reset();
    shapes->set.reset();
    return false;
}

bool vx_shape_files_is_whole(Ivx_shape_files const *shapes)
{
    return shapes && shapes->shapes->is_finished() && !shapes->records;
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

bool vx_shape_files_has_more_kinds(Ivx_shape_files const *shapes)
{
    return shapes && shapes->shapes->has_more_kinds();
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
    vx_shape_files_visit_from(shapes, box, 0, visit, user);
}

void vx_shape_files_visit_from(Ivx_shape_files const *shapes, Tvx_box_d2 const *box, unsigned first,
                               Tvx_shape_visit visit, void *user)
{
    if (!shapes || !box || !visit)
        return;
    auto const *const records = shapes->records.get();
    shapes->shapes->visit(*box, first, [&](std::size_t i, Tvx_shape_view const &view) {
        return visit(records ? (*records)[i] : static_cast<unsigned>(i), &view, user);
    });
}
