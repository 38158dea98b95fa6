#pragma once

#include "data/grid/copy_words.h"
#include "data/grid/grid_datasource.h"
#include "extension/vxk_extension.h"

#include <cmath>
#include <cstring>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// A grid in memory whose driver offers nothing but whole blocks: no statistics, no lines, no windows.
namespace block_driver {
using vx::data::data_type;

struct field
{
    std::wstring name = L"a";
    data_type type = data_type::float64;
    std::vector<std::byte> cells; ///< in that type, row after row
    std::optional<double> nodata;
};

template <class T>
field make_field(data_type type, std::vector<T> const &cells, std::optional<double> nodata = std::nullopt)
{
    field f;
    f.type = type;
    f.cells.resize(cells.size() * sizeof(T));
    if (!cells.empty())
        std::memcpy(f.cells.data(), cells.data(), f.cells.size());
    f.nodata = nodata;
    return f;
}

class source final : public vx::polymorphic<vx::data_source_impl, vx::grid_source_impl>
{
public:
    source(int columns, int rows, unsigned long long across, unsigned long long down)
        : columns(columns), rows(rows), across(across), down(down)
    {
    }

    int columns, rows;
    unsigned long long across, down; ///< cells of a block
    std::vector<field> fields;
    std::map<std::pair<unsigned long long, unsigned long long>, int> reads; ///< of each block
    int alive = 0;                                                          ///< blocks that are outside
    int fails_at = -1; ///< the read of that number fails, counted from 0
    int failure = vx::data::read_failed;
    int total_reads = 0;

    t_vx_data_source_interface handle() { return static_cast<vx::data_source_impl &>(*this); }

    int field_count() override { return static_cast<int>(fields.size()); }
    void field_name(int i, vx::string_visitor visitor) override { visitor.visit(at(i).name.c_str()); }
    int field_type(int) override { return static_cast<int>(vx::data::field_type::numeric); }

    bool with_dimensions(int *counts) override
    {
        counts[0] = columns;
        counts[1] = rows;
        counts[2] = 1;
        return true;
    }
    int field_datatype(int i) override { return static_cast<int>(at(i).type); }
    bool with_block(int i, vx::grid_block_visitor visitor) override
    {
        if (i < 0 || i >= field_count())
            return false;
        visitor.visit(*new cells(*this, at(i)));
        return true;
    }

private:
    class cells final : public vx::grid_block_impl
    {
    public:
        cells(source &of, field const &f) : f_of(of), f_field(f) { ++of.alive; }
        void detach() override
        {
            --f_of.alive;
            delete this;
        }
        int datatype() override { return static_cast<int>(f_field.type); }
        bool block_size(unsigned long long *counts) override
        {
            counts[0] = f_of.across;
            counts[1] = f_of.down;
            counts[2] = 1;
            return true;
        }
        bool with_nodata(int, double *value) override
        {
            if (f_field.nodata)
                *value = *f_field.nodata;
            return f_field.nodata.has_value();
        }
        int read_block2d(unsigned long long column, unsigned long long row, void *buffer) override
        {
            auto const columns = static_cast<unsigned long long>(f_of.columns);
            auto const rows = static_cast<unsigned long long>(f_of.rows);
            if (f_of.total_reads++ == f_of.fails_at)
                return f_of.failure;
            if (column * f_of.across >= columns || row * f_of.down >= rows)
                return vx::data::read_failed;
            ++f_of.reads[{column, row}];
            auto const cell = static_cast<unsigned long long>(vx::data::datatype_size_bytes(f_field.type));
            auto *const to = static_cast<std::byte *>(buffer);
            std::memset(to, 0xab, cell * f_of.across * f_of.down); // what lies beyond the grid is anything
            for (unsigned long long j = 0; j < f_of.down && row * f_of.down + j < rows; ++j) {
                auto const wide = std::min(f_of.across, columns - column * f_of.across);
                std::memcpy(to + j * f_of.across * cell,
                            f_field.cells.data() +
                                ((row * f_of.down + j) * columns + column * f_of.across) * cell,
                            wide * cell);
            }
            return vx::data::read_done;
        }

    private:
        ~cells() = default;
        source &f_of;
        field const &f_field;
    };

    field const &at(int i) const { return fields[static_cast<std::size_t>(i)]; }
};
} // namespace block_driver
