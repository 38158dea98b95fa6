#include "kept_columns.h"

#include "data_types.h"
#include "feature.h"

namespace vx::gdal {
namespace {
constexpr std::size_t c_most = 128 << 20;
} // namespace

column_batch::cell_kind kind_of(OGRFieldDefn const &field)
{
    switch (field_type_of(field)) {
    case field_integer:
        return column_batch::integers;
    case field_bigint:
        return column_batch::bigints;
    case field_numeric:
        return column_batch::floatings;
    default:
        return column_batch::texts;
    }
}

bool add_cell(column_builder &builder, column_batch::cell_kind kind, OGRFeature const &row, int field)
{
    if (!row.IsFieldSetAndNotNull(field))
        return builder.add_null();
    if (kind == column_batch::texts)
        return builder.add_text(cell_bytes(row, field));
    return kind == column_batch::floatings ? builder.add_floating(row.GetFieldAsDouble(field))
                                           : builder.add_whole(row.GetFieldAsInteger64(field));
}

kept_columns::kept_columns(OGRFeatureDefn &fields)
{
    for (int i = 0; i < fields.GetFieldCount(); ++i)
        f_columns.push_back({kind_of(*fields.GetFieldDefn(i)), {}, {}, {}, {}, {}});
}

bool kept_columns::add(OGRFeature const &row)
{
    for (std::size_t i = 0; i < f_columns.size(); ++i) {
        column &c = f_columns[i];
        auto const field = static_cast<int>(i);
        bool const is_defined = row.IsFieldSetAndNotNull(field);
        c.defined.push_back(is_defined);
        switch (c.kind) {
        case column_batch::texts: {
            std::string const text = is_defined ? cell_bytes(row, field) : std::string();
            f_size += text.size() + sizeof(std::uint32_t);
            if (f_size > c_most)
                return false;
            c.bytes += text;
            c.ends.push_back(static_cast<std::uint32_t>(c.bytes.size()));
            break;
        }
        case column_batch::floatings:
            c.floatings.push_back(is_defined ? row.GetFieldAsDouble(field) : 0);
            f_size += sizeof(double);
            break;
        default:
            c.wholes.push_back(is_defined ? row.GetFieldAsInteger64(field) : 0);
            f_size += sizeof(long long);
        }
    }
    return f_size <= c_most;
}

void kept_columns::give(int field, column_sink const &sink) const
{
    column const &c = f_columns[static_cast<std::size_t>(field)];
    column_builder builder(c.kind, sink);
    for (std::size_t row = 0; row < c.defined.size(); ++row) {
        std::uint32_t const begin = c.kind == column_batch::texts && row > 0 ? c.ends[row - 1] : 0;
        bool const goes_on =
            !c.defined[row] ? builder.add_null()
            : c.kind == column_batch::texts
                ? builder.add_text(std::string_view(c.bytes).substr(begin, c.ends[row] - begin))
            : c.kind == column_batch::floatings ? builder.add_floating(c.floatings[row])
                                                : builder.add_whole(c.wholes[row]);
        if (!goes_on)
            return;
    }
    builder.finish();
}
} // namespace vx::gdal
