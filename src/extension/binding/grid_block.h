#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"

VX_BINDING_HANDLE(grid_block)
VX_BINDING_HANDLE(grid_block_visitor)
struct vx_grid_block_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*detach)(void const* table, void* self);
    int (*datatype)(void const* table, void* self);
    int (*kind)(void const* table, void* self);
    bool (*block_size)(void const* table, void* self, unsigned long long* counts);
    bool (*with_nodata)(void const* table, void* self, int datatype, double* value);
    bool (*set_nodata)(void const* table, void* self, int datatype, double value);
    int (*resampling)(void const* table, void* self);
    bool (*set_resampling)(void const* table, void* self, int method);
    int (*overview_count)(void const* table, void* self);
    bool (*with_overview)(void const* table, void* self, int index,
        t_vx_grid_block_visitor_interface visitor);
    int (*read)(void const* table, void* self, unsigned long long offset, unsigned long long count,
        void* buffer, int datatype, unsigned long long* done);
    int (*write)(void const* table, void* self, unsigned long long offset, unsigned long long count,
        void const* buffer, int datatype, unsigned long long* done);
    int (*read1d)(void const* table, void* self, unsigned long long offset, unsigned long long count,
        void* buffer, unsigned long long buffer_count, int datatype, long long space,
        unsigned long long* done);
    int (*write1d)(void const* table, void* self, unsigned long long offset, unsigned long long count,
        void const* buffer, unsigned long long buffer_count, int datatype, long long space,
        unsigned long long* done);
    int (*read2d)(void const* table, void* self, unsigned long long const* offset,
        unsigned long long const* size, void* buffer, unsigned long long const* buffer_size, int datatype,
        long long const* space, unsigned long long* done);
    int (*write2d)(void const* table, void* self, unsigned long long const* offset,
        unsigned long long const* size, void const* buffer, unsigned long long const* buffer_size,
        int datatype, long long const* space, unsigned long long* done);
    int (*read3d)(void const* table, void* self, unsigned long long const* offset,
        unsigned long long const* size, void* buffer, unsigned long long const* buffer_size, int datatype,
        long long const* space, unsigned long long* done);
    int (*write3d)(void const* table, void* self, unsigned long long const* offset,
        unsigned long long const* size, void const* buffer, unsigned long long const* buffer_size,
        int datatype, long long const* space, unsigned long long* done);
    int (*read_block1d)(void const* table, void* self, unsigned long long block, void* buffer);
    int (*write_block1d)(void const* table, void* self, unsigned long long block, void const* buffer);
    int (*read_block2d)(void const* table, void* self, unsigned long long column, unsigned long long row,
        void* buffer);
    int (*write_block2d)(void const* table, void* self, unsigned long long column, unsigned long long row,
        void const* buffer);
    int (*read_block3d)(void const* table, void* self, unsigned long long column, unsigned long long row,
        unsigned long long level, void* buffer);
    int (*write_block3d)(void const* table, void* self, unsigned long long column, unsigned long long row,
        unsigned long long level, void const* buffer);
};

struct vx_grid_block_visitor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*visit)(void const* table, void* self, t_vx_grid_block_interface block);
};

VX_BINDING_FUNCTIONS(grid_block, 9)
VX_LOCAL inline void vxk_datasource_grid_block_detach(t_vx_grid_block_interface h)
{
    if (h.table && h.self)
        h.table->detach(h.table, h.self);
}
VX_LOCAL inline int vxk_datasource_grid_block_datatype(t_vx_grid_block_interface h)
{
    return h.table && h.self ? h.table->datatype(h.table, h.self) : 0;
}
VX_LOCAL inline int vxk_datasource_grid_block_kind(t_vx_grid_block_interface h)
{
    return h.table && h.self ? h.table->kind(h.table, h.self) : 0;
}
VX_LOCAL inline bool vxk_datasource_grid_block_block_size(
    t_vx_grid_block_interface h, unsigned long long* counts)
{
    return h.table && h.self ? h.table->block_size(h.table, h.self, counts) : false;
}
VX_LOCAL inline bool vxk_datasource_grid_block_with_nodata(
    t_vx_grid_block_interface h, int datatype, double* value)
{
    return h.table && h.self ? h.table->with_nodata(h.table, h.self, datatype, value) : false;
}
VX_LOCAL inline bool vxk_datasource_grid_block_set_nodata(
    t_vx_grid_block_interface h, int datatype, double value)
{
    return h.table && h.self ? h.table->set_nodata(h.table, h.self, datatype, value) : false;
}
VX_LOCAL inline int vxk_datasource_grid_block_resampling(t_vx_grid_block_interface h)
{
    return h.table && h.self ? h.table->resampling(h.table, h.self) : 0;
}
VX_LOCAL inline bool vxk_datasource_grid_block_set_resampling(t_vx_grid_block_interface h, int method)
{
    return h.table && h.self ? h.table->set_resampling(h.table, h.self, method) : false;
}
VX_LOCAL inline int vxk_datasource_grid_block_overview_count(t_vx_grid_block_interface h)
{
    return h.table && h.self ? h.table->overview_count(h.table, h.self) : 0;
}
VX_LOCAL inline bool vxk_datasource_grid_block_with_overview(
    t_vx_grid_block_interface h, int index, t_vx_grid_block_visitor_interface visitor)
{
    return h.table && h.self ? h.table->with_overview(h.table, h.self, index, visitor) : false;
}
VX_LOCAL inline int vxk_datasource_grid_block_read(
    t_vx_grid_block_interface h, unsigned long long offset, unsigned long long count, void* buffer,
        int datatype, unsigned long long* done)
{
    return h.table && h.self ? h.table->read(h.table, h.self, offset, count, buffer, datatype, done) : 0;
}
VX_LOCAL inline int vxk_datasource_grid_block_write(
    t_vx_grid_block_interface h, unsigned long long offset, unsigned long long count, void const* buffer,
        int datatype, unsigned long long* done)
{
    return h.table && h.self ? h.table->write(h.table, h.self, offset, count, buffer, datatype, done) : 0;
}
VX_LOCAL inline int vxk_datasource_grid_block_read1d(
    t_vx_grid_block_interface h, unsigned long long offset, unsigned long long count, void* buffer,
        unsigned long long buffer_count, int datatype, long long space, unsigned long long* done)
{
    return h.table && h.self ? h.table->read1d(h.table, h.self, offset, count, buffer, buffer_count,
        datatype, space, done) : 0;
}
VX_LOCAL inline int vxk_datasource_grid_block_write1d(
    t_vx_grid_block_interface h, unsigned long long offset, unsigned long long count, void const* buffer,
        unsigned long long buffer_count, int datatype, long long space, unsigned long long* done)
{
    return h.table && h.self ? h.table->write1d(h.table, h.self, offset, count, buffer, buffer_count,
        datatype, space, done) : 0;
}
VX_LOCAL inline int vxk_datasource_grid_block_read2d(
    t_vx_grid_block_interface h, unsigned long long const* offset, unsigned long long const* size,
        void* buffer, unsigned long long const* buffer_size, int datatype, long long const* space,
        unsigned long long* done)
{
    return h.table && h.self ? h.table->read2d(h.table, h.self, offset, size, buffer, buffer_size, datatype,
        space, done) : 0;
}
VX_LOCAL inline int vxk_datasource_grid_block_write2d(
    t_vx_grid_block_interface h, unsigned long long const* offset, unsigned long long const* size,
        void const* buffer, unsigned long long const* buffer_size, int datatype, long long const* space,
        unsigned long long* done)
{
    return h.table && h.self ? h.table->write2d(h.table, h.self, offset, size, buffer, buffer_size, datatype,
        space, done) : 0;
}
VX_LOCAL inline int vxk_datasource_grid_block_read3d(
    t_vx_grid_block_interface h, unsigned long long const* offset, unsigned long long const* size,
        void* buffer, unsigned long long const* buffer_size, int datatype, long long const* space,
        unsigned long long* done)
{
    return h.table && h.self ? h.table->read3d(h.table, h.self, offset, size, buffer, buffer_size, datatype,
        space, done) : 0;
}
VX_LOCAL inline int vxk_datasource_grid_block_write3d(
    t_vx_grid_block_interface h, unsigned long long const* offset, unsigned long long const* size,
        void const* buffer, unsigned long long const* buffer_size, int datatype, long long const* space,
        unsigned long long* done)
{
    return h.table && h.self ? h.table->write3d(h.table, h.self, offset, size, buffer, buffer_size, datatype,
        space, done) : 0;
}
VX_LOCAL inline int vxk_datasource_grid_block_read_block1d(
    t_vx_grid_block_interface h, unsigned long long block, void* buffer)
{
    return h.table && h.self ? h.table->read_block1d(h.table, h.self, block, buffer) : 0;
}
VX_LOCAL inline int vxk_datasource_grid_block_write_block1d(
    t_vx_grid_block_interface h, unsigned long long block, void const* buffer)
{
    return h.table && h.self ? h.table->write_block1d(h.table, h.self, block, buffer) : 0;
}
VX_LOCAL inline int vxk_datasource_grid_block_read_block2d(
    t_vx_grid_block_interface h, unsigned long long column, unsigned long long row, void* buffer)
{
    return h.table && h.self ? h.table->read_block2d(h.table, h.self, column, row, buffer) : 0;
}
VX_LOCAL inline int vxk_datasource_grid_block_write_block2d(
    t_vx_grid_block_interface h, unsigned long long column, unsigned long long row, void const* buffer)
{
    return h.table && h.self ? h.table->write_block2d(h.table, h.self, column, row, buffer) : 0;
}
VX_LOCAL inline int vxk_datasource_grid_block_read_block3d(
    t_vx_grid_block_interface h, unsigned long long column, unsigned long long row, unsigned long long level,
        void* buffer)
{
    return h.table && h.self ? h.table->read_block3d(h.table, h.self, column, row, level, buffer) : 0;
}
VX_LOCAL inline int vxk_datasource_grid_block_write_block3d(
    t_vx_grid_block_interface h, unsigned long long column, unsigned long long row, unsigned long long level,
        void const* buffer)
{
    return h.table && h.self ? h.table->write_block3d(h.table, h.self, column, row, level, buffer) : 0;
}

VX_BINDING_FUNCTIONS(grid_block_visitor, 9)
VX_LOCAL inline void vxk_datasource_grid_block_visitor_visit(
    t_vx_grid_block_visitor_interface h, t_vx_grid_block_interface block)
{
    if (h.table && h.self)
        h.table->visit(h.table, h.self, block);
}

namespace vx
{
class VX_API grid_block;
class VX_API grid_block_visitor;

/// The cells of one field of a grid, or of an overview of it.
class VX_API grid_block : public binding::wrapper<t_vx_grid_block_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void detach() const;
    VX_LOCAL int datatype() const;
    VX_LOCAL int kind() const;
    /// Three counts: x, y, z.
    VX_LOCAL bool block_size(unsigned long long* counts) const;
    /// False: the field has no such value.
    VX_LOCAL bool with_nodata(int datatype, double* value) const;
    VX_LOCAL bool set_nodata(int datatype, double value) const;
    VX_LOCAL int resampling() const;
    VX_LOCAL bool set_resampling(int method) const;
    VX_LOCAL int overview_count() const;
    VX_LOCAL bool with_overview(int index, vx::grid_block_visitor visitor) const;
    /// This and all below: 0 not offered, 1 done, 2 failed; done counts cells.
    VX_LOCAL int read(unsigned long long offset, unsigned long long count, void* buffer, int datatype,
        unsigned long long* done) const;
    VX_LOCAL int write(unsigned long long offset, unsigned long long count, void const* buffer, int datatype,
        unsigned long long* done) const;
    /// Spaces count cells of the buffer, 0 is dense.
    VX_LOCAL int read1d(unsigned long long offset, unsigned long long count, void* buffer,
        unsigned long long buffer_count, int datatype, long long space, unsigned long long* done) const;
    VX_LOCAL int write1d(unsigned long long offset, unsigned long long count, void const* buffer,
        unsigned long long buffer_count, int datatype, long long space, unsigned long long* done) const;
    VX_LOCAL int read2d(unsigned long long const* offset, unsigned long long const* size, void* buffer,
        unsigned long long const* buffer_size, int datatype, long long const* space,
        unsigned long long* done) const;
    VX_LOCAL int write2d(unsigned long long const* offset, unsigned long long const* size,
        void const* buffer, unsigned long long const* buffer_size, int datatype, long long const* space,
        unsigned long long* done) const;
    VX_LOCAL int read3d(unsigned long long const* offset, unsigned long long const* size, void* buffer,
        unsigned long long const* buffer_size, int datatype, long long const* space,
        unsigned long long* done) const;
    VX_LOCAL int write3d(unsigned long long const* offset, unsigned long long const* size,
        void const* buffer, unsigned long long const* buffer_size, int datatype, long long const* space,
        unsigned long long* done) const;
    /// Whole blocks in the field's own type.
    VX_LOCAL int read_block1d(unsigned long long block, void* buffer) const;
    VX_LOCAL int write_block1d(unsigned long long block, void const* buffer) const;
    VX_LOCAL int read_block2d(unsigned long long column, unsigned long long row, void* buffer) const;
    VX_LOCAL int write_block2d(unsigned long long column, unsigned long long row, void const* buffer) const;
    VX_LOCAL int read_block3d(unsigned long long column, unsigned long long row, unsigned long long level,
        void* buffer) const;
    VX_LOCAL int write_block3d(unsigned long long column, unsigned long long row, unsigned long long level,
        void const* buffer) const;
};

/// Receives the cells of a field and owns them.
class VX_API grid_block_visitor : public binding::wrapper<t_vx_grid_block_visitor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void visit(vx::grid_block block) const;
};

inline void grid_block::detach() const
{ vxk_datasource_grid_block_detach(f_handle); }
inline int grid_block::datatype() const
{ return vxk_datasource_grid_block_datatype(f_handle); }
inline int grid_block::kind() const
{ return vxk_datasource_grid_block_kind(f_handle); }
inline bool grid_block::block_size(unsigned long long* counts) const
{ return vxk_datasource_grid_block_block_size(f_handle, counts); }
inline bool grid_block::with_nodata(int datatype, double* value) const
{ return vxk_datasource_grid_block_with_nodata(f_handle, datatype, value); }
inline bool grid_block::set_nodata(int datatype, double value) const
{ return vxk_datasource_grid_block_set_nodata(f_handle, datatype, value); }
inline int grid_block::resampling() const
{ return vxk_datasource_grid_block_resampling(f_handle); }
inline bool grid_block::set_resampling(int method) const
{ return vxk_datasource_grid_block_set_resampling(f_handle, method); }
inline int grid_block::overview_count() const
{ return vxk_datasource_grid_block_overview_count(f_handle); }
inline bool grid_block::with_overview(int index, vx::grid_block_visitor visitor) const
{ return vxk_datasource_grid_block_with_overview(f_handle, index, visitor); }
inline int grid_block::read(unsigned long long offset, unsigned long long count, void* buffer, int datatype,
    unsigned long long* done) const
{ return vxk_datasource_grid_block_read(f_handle, offset, count, buffer, datatype, done); }
inline int grid_block::write(unsigned long long offset, unsigned long long count, void const* buffer,
    int datatype, unsigned long long* done) const
{ return vxk_datasource_grid_block_write(f_handle, offset, count, buffer, datatype, done); }
inline int grid_block::read1d(unsigned long long offset, unsigned long long count, void* buffer,
    unsigned long long buffer_count, int datatype, long long space, unsigned long long* done) const
{ return vxk_datasource_grid_block_read1d(f_handle, offset, count, buffer, buffer_count, datatype, space,
    done); }
inline int grid_block::write1d(unsigned long long offset, unsigned long long count, void const* buffer,
    unsigned long long buffer_count, int datatype, long long space, unsigned long long* done) const
{ return vxk_datasource_grid_block_write1d(f_handle, offset, count, buffer, buffer_count, datatype, space,
    done); }
inline int grid_block::read2d(unsigned long long const* offset, unsigned long long const* size, void* buffer,
    unsigned long long const* buffer_size, int datatype, long long const* space,
    unsigned long long* done) const
{ return vxk_datasource_grid_block_read2d(f_handle, offset, size, buffer, buffer_size, datatype, space,
    done); }
inline int grid_block::write2d(unsigned long long const* offset, unsigned long long const* size,
    void const* buffer, unsigned long long const* buffer_size, int datatype, long long const* space,
    unsigned long long* done) const
{ return vxk_datasource_grid_block_write2d(f_handle, offset, size, buffer, buffer_size, datatype, space,
    done); }
inline int grid_block::read3d(unsigned long long const* offset, unsigned long long const* size, void* buffer,
    unsigned long long const* buffer_size, int datatype, long long const* space,
    unsigned long long* done) const
{ return vxk_datasource_grid_block_read3d(f_handle, offset, size, buffer, buffer_size, datatype, space,
    done); }
inline int grid_block::write3d(unsigned long long const* offset, unsigned long long const* size,
    void const* buffer, unsigned long long const* buffer_size, int datatype, long long const* space,
    unsigned long long* done) const
{ return vxk_datasource_grid_block_write3d(f_handle, offset, size, buffer, buffer_size, datatype, space,
    done); }
inline int grid_block::read_block1d(unsigned long long block, void* buffer) const
{ return vxk_datasource_grid_block_read_block1d(f_handle, block, buffer); }
inline int grid_block::write_block1d(unsigned long long block, void const* buffer) const
{ return vxk_datasource_grid_block_write_block1d(f_handle, block, buffer); }
inline int grid_block::read_block2d(unsigned long long column, unsigned long long row, void* buffer) const
{ return vxk_datasource_grid_block_read_block2d(f_handle, column, row, buffer); }
inline int grid_block::write_block2d(unsigned long long column, unsigned long long row,
    void const* buffer) const
{ return vxk_datasource_grid_block_write_block2d(f_handle, column, row, buffer); }
inline int grid_block::read_block3d(unsigned long long column, unsigned long long row,
    unsigned long long level, void* buffer) const
{ return vxk_datasource_grid_block_read_block3d(f_handle, column, row, level, buffer); }
inline int grid_block::write_block3d(unsigned long long column, unsigned long long row,
    unsigned long long level, void const* buffer) const
{ return vxk_datasource_grid_block_write_block3d(f_handle, column, row, level, buffer); }

inline void grid_block_visitor::visit(vx::grid_block block) const
{ vxk_datasource_grid_block_visitor_visit(f_handle, block); }

class VX_API grid_block_impl
    : public binding::implementation<grid_block_impl, vx::grid_block>
{
public:
    virtual void detach() {}
    virtual int datatype() { return 0; }
    virtual int kind() { return 0; }
    virtual bool block_size(unsigned long long*) { return false; }
    virtual bool with_nodata(int, double*) { return false; }
    virtual bool set_nodata(int, double) { return false; }
    virtual int resampling() { return 0; }
    virtual bool set_resampling(int) { return false; }
    virtual int overview_count() { return 0; }
    virtual bool with_overview(int, vx::grid_block_visitor) { return false; }
    virtual int read(unsigned long long, unsigned long long, void*, int, unsigned long long*) { return 0; }
    virtual int write(unsigned long long, unsigned long long, void const*, int,
        unsigned long long*) { return 0; }
    virtual int read1d(unsigned long long, unsigned long long, void*, unsigned long long, int, long long,
        unsigned long long*) { return 0; }
    virtual int write1d(unsigned long long, unsigned long long, void const*, unsigned long long, int,
        long long, unsigned long long*) { return 0; }
    virtual int read2d(unsigned long long const*, unsigned long long const*, void*,
        unsigned long long const*, int, long long const*, unsigned long long*) { return 0; }
    virtual int write2d(unsigned long long const*, unsigned long long const*, void const*,
        unsigned long long const*, int, long long const*, unsigned long long*) { return 0; }
    virtual int read3d(unsigned long long const*, unsigned long long const*, void*,
        unsigned long long const*, int, long long const*, unsigned long long*) { return 0; }
    virtual int write3d(unsigned long long const*, unsigned long long const*, void const*,
        unsigned long long const*, int, long long const*, unsigned long long*) { return 0; }
    virtual int read_block1d(unsigned long long, void*) { return 0; }
    virtual int write_block1d(unsigned long long, void const*) { return 0; }
    virtual int read_block2d(unsigned long long, unsigned long long, void*) { return 0; }
    virtual int write_block2d(unsigned long long, unsigned long long, void const*) { return 0; }
    virtual int read_block3d(unsigned long long, unsigned long long, unsigned long long, void*) { return 0; }
    virtual int write_block3d(unsigned long long, unsigned long long, unsigned long long,
        void const*) { return 0; }
    VX_LOCAL static char const* interface_name() { return vx_grid_block_interface_name; }
    VX_LOCAL static vx_grid_block_interface_table const* family_table();
protected:
    ~grid_block_impl() = default;
};
VX_LOCAL inline constexpr vx_grid_block_interface_table grid_block_family_table{
    &binding::generalize_slot<grid_block_impl>,
    &binding::slot<&grid_block_impl::detach>::call,
    &binding::slot<&grid_block_impl::datatype>::call,
    &binding::slot<&grid_block_impl::kind>::call,
    &binding::slot<&grid_block_impl::block_size>::call,
    &binding::slot<&grid_block_impl::with_nodata>::call,
    &binding::slot<&grid_block_impl::set_nodata>::call,
    &binding::slot<&grid_block_impl::resampling>::call,
    &binding::slot<&grid_block_impl::set_resampling>::call,
    &binding::slot<&grid_block_impl::overview_count>::call,
    &binding::slot<&grid_block_impl::with_overview>::call,
    &binding::slot<&grid_block_impl::read>::call,
    &binding::slot<&grid_block_impl::write>::call,
    &binding::slot<&grid_block_impl::read1d>::call,
    &binding::slot<&grid_block_impl::write1d>::call,
    &binding::slot<&grid_block_impl::read2d>::call,
    &binding::slot<&grid_block_impl::write2d>::call,
    &binding::slot<&grid_block_impl::read3d>::call,
    &binding::slot<&grid_block_impl::write3d>::call,
    &binding::slot<&grid_block_impl::read_block1d>::call,
    &binding::slot<&grid_block_impl::write_block1d>::call,
    &binding::slot<&grid_block_impl::read_block2d>::call,
    &binding::slot<&grid_block_impl::write_block2d>::call,
    &binding::slot<&grid_block_impl::read_block3d>::call,
    &binding::slot<&grid_block_impl::write_block3d>::call,
};
inline vx_grid_block_interface_table const* grid_block_impl::family_table()
{ return &grid_block_family_table; }

class VX_API grid_block_visitor_impl
    : public binding::implementation<grid_block_visitor_impl, vx::grid_block_visitor>
{
public:
    virtual void visit(vx::grid_block) {}
    VX_LOCAL static char const* interface_name() { return vx_grid_block_visitor_interface_name; }
    VX_LOCAL static vx_grid_block_visitor_interface_table const* family_table();
protected:
    ~grid_block_visitor_impl() = default;
};
VX_LOCAL inline constexpr vx_grid_block_visitor_interface_table grid_block_visitor_family_table{
    &binding::generalize_slot<grid_block_visitor_impl>,
    &binding::slot<&grid_block_visitor_impl::visit>::call,
};
inline vx_grid_block_visitor_interface_table const* grid_block_visitor_impl::family_table()
{ return &grid_block_visitor_family_table; }

}
