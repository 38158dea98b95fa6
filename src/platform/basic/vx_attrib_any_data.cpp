#include "platform/basic/vx_attrib_any_data.h"

#include <bit>
#include <cstdlib>
#include <cstring>
#include <new>

namespace {
/// Stands before the elements of a tuple, which is known by the address of its first element alone.
struct tuple_head
{
    std::uint64_t count;
};

template <class T>
T *pointer_of(Tvx_any const &any)
{
    return reinterpret_cast<T *>(static_cast<std::uintptr_t>(any.value));
}

void point(Tvx_any &any, Tvx_any_tag tag, void const *to)
{
    any = {tag, static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(to))};
}

tuple_head *head_of(Tvx_any const &tuple)
{
    auto *const elements = pointer_of<char>(tuple);
    return elements ? reinterpret_cast<tuple_head *>(elements - sizeof(tuple_head)) : nullptr;
}

/// `block` of `before` bytes made larger or smaller; the new bytes are 0.
void *grown(void *block, std::size_t before, std::size_t size)
{
    auto *const fresh = std::realloc(block, size);
    if (!fresh)
        throw std::bad_alloc();
    if (size > before)
        std::memset(static_cast<char *>(fresh) + before, 0, size - before);
    return fresh;
}

void clear_from(Tvx_any *elements, std::size_t first, std::size_t count)
{
    for (auto i = first; i < count; ++i)
        any_clear(elements + i);
}
} // namespace

Tvx_attrib_any_data *attrib_any_data_create()
{
    return new Tvx_attrib_any_data{{c_any_tuple, 0}};
}

void attrib_any_data_destroy(Tvx_attrib_any_data *data)
{
    if (data)
        any_clear(data);
    delete data;
}

void tuple_resize(Tvx_any *tuple, unsigned count)
{
    if (tuple->tag != c_any_tuple) {
        any_clear(tuple);
        tuple->tag = c_any_tuple;
    }
    auto *const head = head_of(*tuple);
    std::size_t const before = head ? head->count : 0;
    clear_from(pointer_of<Tvx_any>(*tuple), count, before);
    if (count == 0) {
        std::free(head);
        tuple->value = 0;
        return;
    }
    auto *const fresh =
        static_cast<tuple_head *>(grown(head, head ? sizeof *head + before * sizeof(Tvx_any) : 0,
                                        sizeof *head + std::size_t(count) * sizeof(Tvx_any)));
    fresh->count = count;
    point(*tuple, c_any_tuple, fresh + 1);
}

unsigned tuple_get_size(Tvx_any const *tuple)
{
    auto const *head = tuple && tuple->tag == c_any_tuple ? head_of(*tuple) : nullptr;
    return head ? static_cast<unsigned>(head->count) : 0;
}

Tvx_any *tuple_get(Tvx_any const *tuple, unsigned index)
{
    return index < tuple_get_size(tuple) ? pointer_of<Tvx_any>(*tuple) + index : nullptr;
}

void table_init(Tvx_any_table *table)
{
    *table = {0, nullptr};
}

void table_resize(Tvx_any_table *table, unsigned count)
{
    clear_from(table->rows, count, table->count);
    if (count == 0) {
        std::free(table->rows);
        table_init(table);
        return;
    }
    auto *const rows = static_cast<Tvx_any *>(
        grown(table->rows, table->count * sizeof(Tvx_any), std::size_t(count) * sizeof(Tvx_any)));
    *table = {count, rows};
}

Tvx_any_table *any_get_table(Tvx_any const *any)
{
    return any && any->tag == c_any_table ? pointer_of<Tvx_any_table>(*any) : nullptr;
}

void any_clear(Tvx_any *any)
{
    switch (any->tag) {
    case c_any_string:
        std::free(pointer_of<char>(*any));
        break;
    case c_any_tuple:
        tuple_resize(any, 0);
        break;
    case c_any_table:
        table_resize(pointer_of<Tvx_any_table>(*any), 0);
        delete pointer_of<Tvx_any_table>(*any);
        break;
    default:
        break;
    }
    *any = {c_any_none, 0};
}

void any_assign_table(Tvx_any *any, Tvx_any_table *table)
{
    auto *const own = new Tvx_any_table(*table);
    table_init(table);
    any_clear(any);
    point(*any, c_any_table, own);
}

void any_assign_string(Tvx_any *any, char const *text)
{
    auto *const copy = ::strdup(text ? text : "");
    if (!copy)
        throw std::bad_alloc();
    any_clear(any);
    point(*any, c_any_string, copy);
}

void any_assign_integer(Tvx_any *any, std::int64_t value)
{
    any_clear(any);
    *any = {c_any_integer, static_cast<std::uint64_t>(value)};
}

void any_assign_floating(Tvx_any *any, double value)
{
    any_clear(any);
    *any = {c_any_floating, std::bit_cast<std::uint64_t>(value)};
}
