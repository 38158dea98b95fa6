#pragma once

#include "platform/base/export.h"
#include "platform/base/string_adp.h"

/// An entry of a list of named switches. It belongs to its list.
class VX_API Ivx_geo_column_item
{
public:
    virtual ~Ivx_geo_column_item();

    virtual void get_name(Ivx_string_adp *name) const = 0;
    /// Null is an empty name.
    virtual void set_name(wchar_t const *name) = 0;
    [[nodiscard]] virtual bool get_flag() const = 0;
    virtual void set_flag(bool on) = 0;
};

/// A list of named switches, by place from 0: the strata of a column, the parts of a series.
class VX_API Ivx_geo_column
{
public:
    virtual ~Ivx_geo_column();

    [[nodiscard]] virtual int get_item_count() const = 0;
    /// Null outside. The item keeps its address until it is removed.
    [[nodiscard]] virtual Ivx_geo_column_item *get_item(int place) = 0;
    /// At the end, switched on; null is an empty name.
    virtual Ivx_geo_column_item *add_item(wchar_t const *name) = 0;
    /// Nothing outside.
    virtual void remove_item(int place) = 0;
};

/// An empty list; the caller ends it with `vx_geo_column_destroy`.
[[nodiscard]] VX_API Ivx_geo_column *vx_geo_column_create();
/// Null is accepted.
VX_API void vx_geo_column_destroy(Ivx_geo_column *column);
