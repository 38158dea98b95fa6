#pragma once

#include "platform/base/export.h"

#include <cstdint>

/// Values of any kind in a tree: what a table becomes when it is handed to a native plug-in. The form in
/// memory is part of the contract with plug-ins (extension/plugin/vxk_plugin.h has it for C).

/// What an element holds.
enum Tvx_any_tag : std::uint32_t
{
    c_any_none = 0,
    c_any_string = 2,   ///< value: pointer to text in the system code page, ended by zero
    c_any_integer = 3,  ///< value: the number itself, signed
    c_any_floating = 4, ///< value: the bits of a double
    c_any_tuple = 5,    ///< value: pointer to the elements, `Tvx_any` after `Tvx_any`; null for none
    c_any_table = 6,    ///< value: pointer to a `Tvx_any_table`
};

/// An element: 12 bytes, without padding. What it points to is its own.
struct [[gnu::packed]] Tvx_any
{
    std::uint32_t tag;
    std::uint64_t value;
};

/// The record of a table: 12 bytes, without padding.
struct [[gnu::packed]] Tvx_any_table
{
    std::uint32_t count; ///< of rows
    Tvx_any *rows;       ///< at offset 4; usually tuples; null for none
};

/// The whole: a tuple, so its own bytes are those of an element.
struct [[gnu::packed]] Tvx_attrib_any_data : Tvx_any
{
};

static_assert(sizeof(Tvx_any) == 12 && sizeof(Tvx_any_table) == 12 && sizeof(Tvx_attrib_any_data) == 12);

/// A tuple without elements, to be ended by `attrib_any_data_destroy`, which takes null too.
[[nodiscard]] VX_API Tvx_attrib_any_data *attrib_any_data_create();
VX_API void attrib_any_data_destroy(Tvx_attrib_any_data *data);

/// Gives the tuple so many elements: those that are there stay, new ones hold nothing. An element that is no
/// tuple becomes one. Addresses of elements change.
VX_API void tuple_resize(Tvx_any *tuple, unsigned count);
[[nodiscard]] VX_API unsigned tuple_get_size(Tvx_any const *tuple);
/// Null past the end, and for what is no tuple.
[[nodiscard]] VX_API Tvx_any *tuple_get(Tvx_any const *tuple, unsigned index);

/// Makes a new record empty; then `table_resize`, as a tuple's, and `any_assign_table`. A record that is not
/// assigned to an element is ended by a resize to 0.
VX_API void table_init(Tvx_any_table *table);
VX_API void table_resize(Tvx_any_table *table, unsigned count);
/// The table of an element, or null.
[[nodiscard]] VX_API Tvx_any_table *any_get_table(Tvx_any const *any);

/// Each takes the place of what the element held.
VX_API void any_clear(Tvx_any *any);
/// The rows go over; the record is empty afterwards.
VX_API void any_assign_table(Tvx_any *any, Tvx_any_table *table);
/// A copy of the text; null counts as empty.
VX_API void any_assign_string(Tvx_any *any, char const *text);
VX_API void any_assign_integer(Tvx_any *any, std::int64_t value);
VX_API void any_assign_floating(Tvx_any *any, double value);
