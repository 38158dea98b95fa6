#pragma once

#include "column.h"

#include <ogrsf_frmts.h>

#include <string>

namespace vx::gdal {
/// The kind in which the cells of a field are handed out.
[[nodiscard]] column_batch::cell_kind kind_of(OGRFieldDefn const &field);
/// The cell of a row; false when no more is wanted.
bool add_cell(column_builder &builder, column_batch::cell_kind kind, OGRFeature const &row, int field);

/// All columns of a table whose format is text, kept by one walk: to come to a cell of such a file is to read
/// all before it, with every field.
class kept_columns
{
public:
    explicit kept_columns(OGRFeatureDefn &fields);
    kept_columns(kept_columns const &) = delete;
    kept_columns &operator=(kept_columns const &) = delete;
    /// False when the columns take too much memory to be kept.
    [[nodiscard]] bool add(OGRFeature const &row);
    /// Hands the column out as a walk would.
    void give(int field, column_sink const &sink) const;

private:
    struct column
    {
        column_batch::cell_kind kind;
        std::vector<bool> defined;
        std::vector<long long> wholes;
        std::vector<double> floatings;
        std::string bytes;
        std::vector<std::uint32_t> ends; ///< of the texts
    };
    std::vector<column> f_columns;
    std::size_t f_size = 0; ///< bytes, about
};
} // namespace vx::gdal
