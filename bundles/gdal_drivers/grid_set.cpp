#include "grid_set.h"

#include "data_types.h"

#include "platform/base/text_codec.h"

#include <ogr_spatialref.h>

namespace vx::gdal {
namespace {
/// The description of a band, else its number.
std::string band_name(GDALDataset &gdal, int field)
{
    char const *const text = gdal.GetRasterBand(field + 1)->GetDescription();
    return text && *text ? text : std::to_string(field + 1);
}
} // namespace

void grid_set::detach()
{
    std::wstring ignored;
    error_guard const guard(ignored);
    delete this;
}

bool grid_set::with_extent(Tvx_box_d2 *box, bool)
{
    GDALDataset &gdal = f_set->gdal();
    if (!box || gdal.GetRasterCount() == 0)
        return false;
    error_guard const guard(f_set->error());
    double m[6] = {0, 1, 0, 0, 0, 1};
    // Without a place of its own a grid lies in cells, with its first row on top.
    if (gdal.GetGeoTransform(m) != CE_None)
        m[5] = -1;
    *box = {};
    for (int corner = 0; corner < 4; ++corner) {
        double const column = corner & 1 ? gdal.GetRasterXSize() : 0;
        double const row = corner & 2 ? gdal.GetRasterYSize() : 0;
        box->add(m[0] + column * m[1] + row * m[2], m[3] + column * m[4] + row * m[5]);
    }
    return true;
}

void grid_set::with_proj4(vx::string_visitor visitor)
{
    error_guard const guard(f_set->error());
    OGRSpatialReference const *const system = f_set->gdal().GetSpatialRef();
    char *text = nullptr;
    if (system && system->exportToProj4(&text) == OGRERR_NONE)
        visit_utf8(visitor, text);
    CPLFree(text);
}

void grid_set::field_name(int field, vx::string_visitor visitor)
{
    if (field >= 0 && field < field_count())
        visit_utf8(visitor, band_name(f_set->gdal(), field).c_str());
}

int grid_set::field_type(int field)
{
    if (field < 0 || field >= field_count())
        return field_none;
    switch (f_set->gdal().GetRasterBand(field + 1)->GetRasterDataType()) {
    case GDT_Byte:
    case GDT_UInt16:
    case GDT_Int16:
    case GDT_Int32:
        return field_integer;
    case GDT_UInt32:
    case GDT_Int64:
    case GDT_UInt64:
        return field_bigint;
    default:
        return field_numeric;
    }
}

bool grid_set::field_index(wchar_t const *name, int *index)
{
    if (!name || !index)
        return false;
    std::string const wanted = text::wide_to_utf8(name);
    for (int field = 0; field < field_count(); ++field)
        if (band_name(f_set->gdal(), field) == wanted) {
            *index = field;
            return true;
        }
    return false;
}

void grid_set::with_error(vx::string_visitor visitor)
{
    if (!f_set->error().empty())
        visitor.visit(f_set->error().c_str());
}
} // namespace vx::gdal
