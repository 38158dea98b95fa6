#include "platform/base/vertex_list.h"

#include <vector>

namespace {
template <class Vertex>
struct part_of
{
    std::vector<Vertex> vertices;
};

template <class Part>
struct list_of
{
    std::vector<Part> parts;
    Tvx_vector_type type = c_vector_none;
};

template <class List>
std::size_t vertex_count(List const *list)
{
    std::size_t count = 0;
    if (list)
        for (auto const &part : list->parts)
            count += part.vertices.size();
    return count;
}
} // namespace

struct Tvx_pv_d2 : part_of<Tvx_vtx_d2>
{
};
struct Tvx_op2d : list_of<Tvx_pv_d2>
{
};

Tvx_op2d *vx_ov_d2_create()
{
    return new Tvx_op2d;
}

void vx_ov_d2_destroy(Tvx_op2d *list)
{
    delete list;
}

void vx_ov_d2_clear(Tvx_op2d *list)
{
    if (!list)
        return;
    list->parts.clear();
    list->type = c_vector_none;
}

void vx_ov_d2_set_size(Tvx_op2d *list, std::size_t parts)
{
    if (list)
        list->parts.resize(parts);
}

std::size_t vx_ov_d2_get_size(Tvx_op2d const *list)
{
    return list ? list->parts.size() : 0;
}

Tvx_pv_d2 *vx_ov_d2_get_pv_ptr(Tvx_op2d *list, std::size_t part)
{
    return part < vx_ov_d2_get_size(list) ? &list->parts[part] : nullptr;
}

Tvx_pv_d2 const *vx_ov_d2_get_pv_ptr(Tvx_op2d const *list, std::size_t part)
{
    return part < vx_ov_d2_get_size(list) ? &list->parts[part] : nullptr;
}

void vx_ov_d2_set_vector_type(Tvx_op2d *list, Tvx_vector_type type)
{
    if (list)
        list->type = type;
}

Tvx_vector_type vx_ov_d2_get_vector_type(Tvx_op2d const *list)
{
    return list ? list->type : c_vector_none;
}

std::size_t vx_ov_d2_get_vtx_count(Tvx_op2d const *list)
{
    return vertex_count(list);
}

void vx_pv_d2_set_size(Tvx_pv_d2 *part, std::size_t vertices)
{
    if (part)
        part->vertices.resize(vertices);
}

std::size_t vx_pv_d2_get_size(Tvx_pv_d2 const *part)
{
    return part ? part->vertices.size() : 0;
}

void vx_pv_d2_set_vtx(Tvx_pv_d2 *part, std::size_t index, Tvx_vtx_d2 const *vertex)
{
    if (index < vx_pv_d2_get_size(part) && vertex)
        part->vertices[index] = *vertex;
}

Tvx_vtx_d2 *vx_pv_d2_get_data(Tvx_pv_d2 *part)
{
    return vx_pv_d2_get_size(part) ? part->vertices.data() : nullptr;
}

Tvx_vtx_d2 const *vx_pv_d2_get_data(Tvx_pv_d2 const *part)
{
    return vx_pv_d2_get_size(part) ? part->vertices.data() : nullptr;
}

struct Tvx_pv_d3 : part_of<Tvx_vtx_d3>
{
};
struct Tvx_ovtx_d3 : list_of<Tvx_pv_d3>
{
};

Tvx_ovtx_d3 *vx_ov_d3_create()
{
    return new Tvx_ovtx_d3;
}

void vx_ov_d3_destroy(Tvx_ovtx_d3 *list)
{
    delete list;
}

void vx_ov_d3_clear(Tvx_ovtx_d3 *list)
{
    if (!list)
        return;
    list->parts.clear();
    list->type = c_vector_none;
}

void vx_ov_d3_set_size(Tvx_ovtx_d3 *list, std::size_t parts)
{
    if (list)
        list->parts.resize(parts);
}

std::size_t vx_ov_d3_get_size(Tvx_ovtx_d3 const *list)
{
    return list ? list->parts.size() : 0;
}

Tvx_pv_d3 *vx_ov_d3_get_pv_ptr(Tvx_ovtx_d3 *list, std::size_t part)
{
    return part < vx_ov_d3_get_size(list) ? &list->parts[part] : nullptr;
}

Tvx_pv_d3 const *vx_ov_d3_get_pv_ptr(Tvx_ovtx_d3 const *list, std::size_t part)
{
    return part < vx_ov_d3_get_size(list) ? &list->parts[part] : nullptr;
}

void vx_ov_d3_set_vector_type(Tvx_ovtx_d3 *list, Tvx_vector_type type)
{
    if (list)
        list->type = type;
}

Tvx_vector_type vx_ov_d3_get_vector_type(Tvx_ovtx_d3 const *list)
{
    return list ? list->type : c_vector_none;
}

std::size_t vx_ov_d3_get_vtx_count(Tvx_ovtx_d3 const *list)
{
    return vertex_count(list);
}

void vx_pv_d3_set_size(Tvx_pv_d3 *part, std::size_t vertices)
{
    if (part)
        part->vertices.resize(vertices);
}

std::size_t vx_pv_d3_get_size(Tvx_pv_d3 const *part)
{
    return part ? part->vertices.size() : 0;
}

void vx_pv_d3_set_vtx(Tvx_pv_d3 *part, std::size_t index, Tvx_vtx_d3 const *vertex)
{
    if (index < vx_pv_d3_get_size(part) && vertex)
        part->vertices[index] = *vertex;
}

Tvx_vtx_d3 *vx_pv_d3_get_data(Tvx_pv_d3 *part)
{
    return vx_pv_d3_get_size(part) ? part->vertices.data() : nullptr;
}

Tvx_vtx_d3 const *vx_pv_d3_get_data(Tvx_pv_d3 const *part)
{
    return vx_pv_d3_get_size(part) ? part->vertices.data() : nullptr;
}
