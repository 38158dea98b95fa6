#include "platform/basic/vx_ints.h"

#include <algorithm>
#include <unordered_set>
#include <vector>

namespace {
using ints_t = std::vector<int>;
using set_t = std::unordered_set<int>;

ints_t *list_of(void *ints)
{
    return static_cast<ints_t *>(ints);
}
ints_t const *list_of(void const *ints)
{
    return static_cast<ints_t const *>(ints);
}
} // namespace

void *vx_ints_create()
{
    return new ints_t;
}

void vx_ints_destroy(void *ints)
{
    delete list_of(ints);
}

void vx_ints_assign(void *target, void const *source)
{
    if (target && source)
        *list_of(target) = *list_of(source);
}

void vx_ints_clear(void *ints)
{
    if (ints)
        list_of(ints)->clear();
}

unsigned vx_ints_get_size(void const *ints)
{
    return ints ? static_cast<unsigned>(list_of(ints)->size()) : 0;
}

void vx_ints_set_size(void *ints, unsigned size)
{
    if (ints)
        list_of(ints)->resize(size);
}

void vx_ints_add(void *ints, int value)
{
    if (ints)
        list_of(ints)->push_back(value);
}

int vx_ints_get_int(void const *ints, unsigned index)
{
    return index < vx_ints_get_size(ints) ? (*list_of(ints))[index] : 0;
}

void vx_ints_set_int(void *ints, unsigned index, int value)
{
    if (index < vx_ints_get_size(ints))
        (*list_of(ints))[index] = value;
}

void vx_ints_reverse(void *ints)
{
    if (ints)
        std::ranges::reverse(*list_of(ints));
}

int const *vx_ints_get_data(void const *ints)
{
    return vx_ints_get_size(ints) ? list_of(ints)->data() : nullptr;
}

void *vx_int_set_create()
{
    return new set_t;
}

void vx_int_set_destroy(void *set)
{
    delete static_cast<set_t *>(set);
}

void vx_int_set_add(void *set, int value)
{
    if (set)
        static_cast<set_t *>(set)->insert(value);
}

void vx_int_set_clear(void *set)
{
    if (set)
        static_cast<set_t *>(set)->clear();
}

bool vx_int_set_find(void const *set, int value)
{
    return set && static_cast<set_t const *>(set)->contains(value);
}

unsigned vx_int_set_get_size(void const *set)
{
    return set ? static_cast<unsigned>(static_cast<set_t const *>(set)->size()) : 0;
}
